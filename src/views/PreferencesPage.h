#pragma once

#include "document/Page.h"

#include <QString>

/** Who hears what the user did to the languages on the settings page. */
class TAVPreferencesDelegate
{
public:
    virtual ~TAVPreferencesDelegate() = default;
    /** A language was made or edited; its file may have a new name. */
    virtual void preferencesDidChangeVocabularyAtPath(const QString &path) = 0;
    virtual void preferencesDidDeleteVocabularyAtPath(const QString &path) = 0;
    virtual void preferencesDidClose() = 0;
};

/** The settings page, which the main window can also open at one of its own pages. This base shows nothing.
 */
class PreferencesPage : public Page
{
public:
    /** Not owned. */
    virtual void setDelegate(TAVPreferencesDelegate *delegate) { Q_UNUSED(delegate) }
    virtual void showLanguages() {}
    virtual void showSyncing() {}
};
