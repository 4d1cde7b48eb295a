#pragma once

#include "model/TAVLexicon.h"
#include "quiz/forms/QuizPage.h"

class QWidget;

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

/** What the main window asks of the settings page. This base shows nothing. */
class PreferencesPage
{
public:
    virtual ~PreferencesPage() = default;
    /** The tab's content, which then belongs to the window; null while there is none. */
    virtual QWidget *page() { return nullptr; }
    /** Not owned. */
    virtual void setDelegate(TAVPreferencesDelegate *delegate) { Q_UNUSED(delegate) }
    virtual void showPreferences() {}
    virtual void showLanguages() {}
    virtual void showSyncing() {}
    virtual void cloudControllerDidSync() {}
};

/** What the main window asks of the statistics page. This base shows nothing. */
class StatisticsPage
{
public:
    virtual ~StatisticsPage() = default;
    /** The tab's content, which then belongs to the window; null while there is none. */
    virtual QWidget *page() { return nullptr; }
    /** May be absent. */
    virtual void setVocabulary(const TAVLexiconRef &vocabulary) { Q_UNUSED(vocabulary) }
    virtual void showStatistics() {}
    /** The main window has a new size. */
    virtual void windowDidResize() {}
};
