#pragma once

#include "platform/SharedObject.h"

#include <QString>
#include <QVariantMap>

/** Reports anonymous events, with the user's consent. This base reports nothing. */
class KeenClient
{
public:
    virtual ~KeenClient() = default;

    /** Never null. */
    static KeenClient *sharedClient() { return platform::SharedObject<KeenClient>::get(); }
    /** Not owned; null brings the silent one back. */
    static void setSharedClient(KeenClient *client)
    {
        platform::SharedObject<KeenClient>::registerObject(client);
    }

    virtual void disableGeoLocation() {}
    virtual void setKeys(const QString &projectId, const QString &writeKey, const QString &readKey)
    {
        Q_UNUSED(projectId)
        Q_UNUSED(writeKey)
        Q_UNUSED(readKey)
    }
    virtual void setGlobalProperties(const QVariantMap &properties) { Q_UNUSED(properties) }
    virtual void addEvent(const QVariantMap &event, const QString &collection)
    {
        Q_UNUSED(event)
        Q_UNUSED(collection)
    }
    virtual void upload() {}
    /** The facts about this installation, once a launch. */
    virtual void collectKeenData() {}
};
