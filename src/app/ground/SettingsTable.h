#pragma once

#include "app/ground/Setting.h"

class AppDelegate;
struct AskDirection;
struct FlashCardPace;
class InfoPanels;
class LanguageMenu;
class PopupPanel;
class TAVBookmarkView;
class TAVMainWindowController;
class TAVPopupQuizController;
class TAVPreferencesController;
class TAVTypingQuizController;
class WindowSize;
class WordTable;

/** Every key of the settings store: type, owner, key as it is stored, and default if it has one. */
namespace settings {

using Qt::StringLiterals::operator""_L1;

/** The anonymous identity of this installation, made at the first start. */
inline constexpr OptionalSetting<QString, AppDelegate> installationUuid("installation_uuid"_L1);

// Main window
/** Display name of the vocabulary that is opened at start. */
inline constexpr OptionalSetting<QString, LanguageMenu> lastActiveLanguage("lastActiveLanguage"_L1);
inline constexpr Setting<bool, TAVMainWindowController> hasShownVocabularyHelp("hasShownVocabularyHelp"_L1,
                                                                               false);
/** Width and height in pixels as "1080x720". */
inline constexpr OptionalSetting<QString, WindowSize> mainWindowSize("mainWindowSize"_L1);
/** "column:width" for each column of the word table in its order, divided by commas. */
inline constexpr OptionalSetting<QString, WordTable> vocabularyTableColumns("vocabularyTableColumns"_L1);

// Direction of a quiz. Both false is read as foreign.
inline constexpr Setting<bool, AskDirection> askForYourWord("askForYourWord"_L1, false);
inline constexpr Setting<bool, AskDirection> askForForeignWord("askForForeignWord"_L1, false);

// Each help of the typing quiz is shown once.
using QuizHelpSetting = Setting<bool, TAVTypingQuizController>;
inline constexpr QuizHelpSetting hasShownQuizHelpQuestion("hasShownQuizHelpQuestion"_L1, false);
inline constexpr QuizHelpSetting hasShownQuizHelpCorrectAnswer("hasShownQuizHelpCorrectAnswer"_L1, false);
inline constexpr QuizHelpSetting hasShownQuizHelpMisspelledAnswer("hasShownQuizHelpMisspelledAnswer"_L1,
                                                                  false);
inline constexpr QuizHelpSetting hasShownQuizHelpWrongAnswer("hasShownQuizHelpWrongAnswer"_L1, false);

// Flash cards
/** Whether learnFlipLevel counts. */
inline constexpr Setting<bool, FlashCardPace> learnHasSetTimeout("learnHasSetTimeout"_L1, false);
/** 0 (off) to 3 (fast). */
inline constexpr OptionalSetting<qint64, FlashCardPace> learnFlipLevel("learnFlipLevel"_L1);

// Popup quiz
/** Minutes, 1 to 99. */
inline constexpr OptionalSetting<qint64, TAVPopupQuizController> popupQuizInterval("popupQuizInterval"_L1);
/** Pixels. They count only if both are above 0. */
inline constexpr OptionalSetting<double, PopupPanel> bgQuizWindowXOrigin("bgQuizWindowXOrigin"_L1);
inline constexpr OptionalSetting<double, PopupPanel> bgQuizWindowYOrigin("bgQuizWindowYOrigin"_L1);

// Panels of the quiz setup
inline constexpr Setting<bool, InfoPanels> userWasUnhappy("userWasUnhappy"_L1, false);
/** Stands under the announcement's own UUID: the user doesn't want to see it again. */
inline Setting<bool, InfoPanels, QString> isAnnouncementDismissed(const QString &uuid)
{
    return {uuid, false};
}

// Settings page
using PageSetting = Setting<bool, TAVPreferencesController>;
inline constexpr PageSetting isShowCommentWithQuestion("isShowCommentWithQuestion"_L1, false);
/** False: the field is typed in the user's own language. */
inline constexpr PageSetting isSwitchKeyboardTagsToForeign("isSwitchKeyboardTagsToForeign"_L1, false);
inline constexpr PageSetting isSwitchKeyboardCommentToForeign("isSwitchKeyboardCommentToForeign"_L1, false);
/** Usage data are sent only with the first true and the second false. */
inline constexpr PageSetting isEnableUserStatistics("isEnableUserStatistics"_L1, false);
inline constexpr PageSetting isDisableUserStatistics("isDisableUserStatistics"_L1, false);
/** Stands under the vocabulary's file name without extension: the language was deleted here and must not come
 * back by itself. */
inline Setting<bool, TAVPreferencesController, QString> isLanguageDeleted(const QString &fileName)
{
    return {fileName, false};
}
/** The colour theme, 0 to 5: black, blue, purple, green, red, violet. */
inline constexpr Setting<qint64, TAVBookmarkView> backgroundColor("backgroundColor"_L1, 0);

} // namespace settings
