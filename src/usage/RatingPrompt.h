#pragma once

#include "platform/SharedObject.h"

#include <QtGlobal>

/** Asks for a rating when the program was used long and often enough. This base never asks. */
class RatingPrompt
{
public:
    struct Thresholds
    {
        int daysUntilPrompt = 5;
        int usesUntilPrompt = 10;
        int eventsUntilPrompt = 10;
        bool promptAtLaunch = false;
        bool previewMode = false;
    };

    virtual ~RatingPrompt() = default;

    /** Never null. */
    static RatingPrompt *shared() { return platform::SharedObject<RatingPrompt>::get(); }
    /** Not owned; null brings the silent one back. */
    static void setShared(RatingPrompt *prompt)
    {
        platform::SharedObject<RatingPrompt>::registerObject(prompt);
    }

    virtual void configure(const Thresholds &thresholds) { Q_UNUSED(thresholds) }
    virtual void logEvent(int count) { Q_UNUSED(count) }
    virtual void setRatedThisVersion(bool rated) { Q_UNUSED(rated) }
    virtual void openRatingsPageInAppStore() {}
};
