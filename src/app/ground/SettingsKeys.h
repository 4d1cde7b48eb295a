#pragma once

#include <QLatin1String>

/**
 * Every key of the settings store: type, value where nothing is stored, and owner. Only the owner writes.
 * Beside these stand keys that are made at run time: the uuid of a dismissed announcement (boolean, false,
 * TAVQuizSetupController), and a vocabulary's file name without extension (boolean, false, the settings
 * page), which says that the language was deleted here and must not come back by itself.
 */
namespace settingskeys {

// AppDelegate
/** Text; absent. The anonymous identity of this installation, made at the first start. */
inline constexpr QLatin1String installationUuid{"installation_uuid"};

// TAVMainWindowController
/** Text; absent. Display name of the vocabulary that is opened at start. */
inline constexpr QLatin1String lastActiveLanguage{"lastActiveLanguage"};
/** Boolean; false. */
inline constexpr QLatin1String hasShownVocabularyHelp{"hasShownVocabularyHelp"};
/** Text, width and height in pixels as "1080x720"; absent. */
inline constexpr QLatin1String mainWindowSize{"mainWindowSize"};

// TAVLexiconController
/** Text, "column:width" for each column of the word table in its order, divided by commas; absent. */
inline constexpr QLatin1String vocabularyTableColumns{"vocabularyTableColumns"};

// Setup of a quiz: direction. Both false is read as foreign.
/** Boolean; false. */
inline constexpr QLatin1String askForYourWord{"askForYourWord"};
/** Boolean; false. */
inline constexpr QLatin1String askForForeignWord{"askForForeignWord"};

// TAVTypingQuizController: each help is shown once. Booleans; false.
inline constexpr QLatin1String hasShownQuizHelpQuestion{"hasShownQuizHelpQuestion"};
inline constexpr QLatin1String hasShownQuizHelpCorrectAnswer{"hasShownQuizHelpCorrectAnswer"};
inline constexpr QLatin1String hasShownQuizHelpMisspelledAnswer{"hasShownQuizHelpMisspelledAnswer"};
inline constexpr QLatin1String hasShownQuizHelpWrongAnswer{"hasShownQuizHelpWrongAnswer"};

// TAVFlashCardQuizController
/** Boolean; false. Whether learnFlipLevel counts. */
inline constexpr QLatin1String learnHasSetTimeout{"learnHasSetTimeout"};
/** Integer, 0 (off) to 3 (fast); absent. */
inline constexpr QLatin1String learnFlipLevel{"learnFlipLevel"};

// TAVPopupQuizController
/** Integer, minutes, 1 to 99; absent. */
inline constexpr QLatin1String popupQuizInterval{"popupQuizInterval"};
/** Reals, pixels; absent. They count only if both are above 0. */
inline constexpr QLatin1String bgQuizWindowXOrigin{"bgQuizWindowXOrigin"};
inline constexpr QLatin1String bgQuizWindowYOrigin{"bgQuizWindowYOrigin"};

// Announcement of the quiz setup
/** Boolean; false. */
inline constexpr QLatin1String userWasUnhappy{"userWasUnhappy"};

// Settings page
/** Boolean; false. */
inline constexpr QLatin1String isShowCommentWithQuestion{"isShowCommentWithQuestion"};
/** Booleans; false: the field is typed in the user's own language. */
inline constexpr QLatin1String isSwitchKeyboardTagsToForeign{"isSwitchKeyboardTagsToForeign"};
inline constexpr QLatin1String isSwitchKeyboardCommentToForeign{"isSwitchKeyboardCommentToForeign"};
/** Booleans; false. Usage data are sent only with the first true and the second false. */
inline constexpr QLatin1String isEnableUserStatistics{"isEnableUserStatistics"};
inline constexpr QLatin1String isDisableUserStatistics{"isDisableUserStatistics"};
/** Integer, 0 to 5; 0. The colour theme: black, blue, purple, green, red, violet. */
inline constexpr QLatin1String backgroundColor{"backgroundColor"};

} // namespace settingskeys
