#pragma once

#include <QCoreApplication>

#include <array>

/** The pages of the main window, in the order of the toolbar; the last has no place there. */
enum class MainTab { Vocabulary, Quiz, Quizlet, Statistics, Settings, FirstStartSetup };

struct MainTabInfo
{
    MainTab tab;
    const char *identifier;
    /** The selected state has the suffix "_sel". */
    const char *image;
    const char *titleKey;
    const char *action;
};

inline constexpr std::array<MainTabInfo, 5> toolbarTabs{{
    {MainTab::Vocabulary, "TMTabIDVocabulary", "vocabulary_toolbar",
     QT_TRANSLATE_NOOP("MainWindow", "vocabulary"), "showVocabulary"},
    {MainTab::Quiz, "TMTabIDQuiz", "quiz_toolbar", QT_TRANSLATE_NOOP("MainWindow", "quiz"), "showQuiz"},
    {MainTab::Quizlet, "TMTabIDQuizlet", "quizlet_toolbar", QT_TRANSLATE_NOOP("MainWindow", "getWords"),
     "showQuizlet"},
    {MainTab::Statistics, "TMTabIDStatistics", "statistics_toolbar",
     QT_TRANSLATE_NOOP("MainWindow", "statistics"), "showStatistics"},
    {MainTab::Settings, "TMTabIDSettings", "settings_toolbar", QT_TRANSLATE_NOOP("MainWindow", "settings"),
     "showPreferences"},
}};
