#include "Stage.h"

#include "platform/Texts.h"
#include "quiz/forms/InfoPanels.h"
#include "quiz/forms/SegmentControl.h"
#include "views/MemoryLevelButton.h"
#include "views/editor/TAVWordPopoverController.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableView>

void linkTavimoTexts();

namespace {

/** The quiet lines, with the texts that the program gives them. */
void shootNotices(Stage &stage, const QString &name)
{
    const QString folder = QStringLiteral("/home/ada/.local/share/Tavimo");
    stage.hub().tell(QStringLiteral("folderNotLockedLabel"),
                     platform::localized("folderNotLocked").arg(folder));
    stage.vocabularyView().tell(
        QStringLiteral("fullnessLabel"),
        platform::localized("Vocabulary", "fileNearlyFull").arg(QStringLiteral("3.6"), QStringLiteral("4")));
    stage.shoot(name);
    stage.hub().tell(QStringLiteral("folderNotLockedLabel"), {});
    stage.vocabularyView().tell(QStringLiteral("fullnessLabel"), {});
}

void shootVocabularyView(Stage &stage)
{
    auto *table = stage.control<QTableView>("vocabularyTable");
    const auto select = [&](int first, int last) {
        QItemSelection rows(table->model()->index(first, 0), table->model()->index(last, 0));
        table->selectionModel()->select(rows,
                                        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        stage.pass(1);
    };
    stage.shoot(QStringLiteral("vocabulary"));
    shootNotices(stage, QStringLiteral("vocabulary-notices"));
    auto *cloud = stage.control<M3TokenCloud>("tagCloud");
    cloud->setSelectedTokenNames({stage.vocabulary()->allTags().values().first()});
    stage.vocabularyView().updateEntireView();
    stage.shoot(QStringLiteral("vocabulary-tags"));
    stage.vocabularyView().deselectAllTags();

    auto *search = stage.control<QLineEdit>("searchField");
    search->setText(QStringLiteral("ca"));
    stage.vocabularyView().search();
    stage.shoot(QStringLiteral("vocabulary-search"));
    search->setText(QStringLiteral("nothing like this"));
    stage.vocabularyView().search();
    stage.shoot(QStringLiteral("vocabulary-nothing-found"));
    search->clear();
    stage.vocabularyView().search();

    stage.vocabularyView().setDisplaySynonyms();
    stage.shoot(QStringLiteral("vocabulary-synonyms"));
    stage.vocabularyView().setDisplaySynonyms();

    select(1, 1);
    stage.shoot(QStringLiteral("editor-one"));
    select(1, 4);
    stage.shoot(QStringLiteral("editor-many"));
    select(0, 0);
    stage.vocabularyView().deleteSelectedWords();
    stage.pass(1);
    stage.shoot(QStringLiteral("vocabulary-undo"));
    stage.vocabularyView().undo();
    stage.vocabularyView().deselectWords();
    stage.hub().addNewWord();
    stage.pass(1);
    stage.shoot(QStringLiteral("editor-adding"));
    stage.vocabularyView().wordEditor()->closeWordPanel(nullptr);
    stage.vocabularyView().selectMemoryView(stage.control<MemoryLevelButton>("level0Button"));
    stage.shoot(QStringLiteral("vocabulary-unknown"));
}

void answer(Stage &stage, const QString &text)
{
    stage.control<QLineEdit>("answerTextField")->setText(text);
    stage.control<QPushButton>("nextButton")->click();
    stage.pass(1.5);
}

void shootTypingQuiz(Stage &stage)
{
    stage.hub().showQuiz();
    stage.pass(1);
    stage.shoot(QStringLiteral("quiz-setup"));
    stage.control<QSpinBox>("quizNumberOfWordsStepper")->setValue(0);
    stage.shoot(QStringLiteral("quiz-setup-error"));
    stage.control<QSpinBox>("quizNumberOfWordsStepper")->setValue(5);
    stage.control<QPushButton>("quizStartQuizButton")->click();
    stage.pass(2.5);
    stage.shoot(QStringLiteral("typing-question"));

    auto &quiz = stage.program().typingQuiz();
    answer(stage, quiz.nextWord()->foreignWord());
    stage.shoot(QStringLiteral("typing-correct"));
    answer(stage, quiz.nextWord()->foreignWord() + QLatin1Char('x'));
    stage.shoot(QStringLiteral("typing-misspelled"));
    answer(stage, QStringLiteral("something else"));
    stage.shoot(QStringLiteral("typing-wrong"));
    const auto synonym =
        std::make_shared<TAVWord>(quiz.nextWord()->yourWord(), QStringLiteral("un sinonimo"), std::nullopt);
    stage.vocabulary()->addWord(synonym);
    stage.vocabulary()->buildSynonyms();
    answer(stage, synonym->foreignWord());
    stage.shoot(QStringLiteral("typing-synonym"));
    while (quiz.nextWord())
        answer(stage, quiz.nextWord()->foreignWord());
    stage.shoot(QStringLiteral("typing-out-of-questions"));
    stage.control<QPushButton>("showStatisticsButton")->click();
    stage.pass(1.5);
    stage.shoot(QStringLiteral("typing-result"));
}

void shootFlashCards(Stage &stage)
{
    stage.hub().showQuiz();
    stage.pass(1);
    stage.control<SegmentControl>("quizModeSegmentControl")->setSelectedSegment(1);
    stage.control<QSlider>("flipTimeoutSlider")->setValue(0);
    stage.control<QPushButton>("quizStartQuizButton")->click();
    stage.pass(1.5);
    auto &quiz = stage.program().flashCardQuiz();
    stage.shoot(QStringLiteral("cards-question"));
    quiz.showSolution();
    stage.pass(1);
    stage.shoot(QStringLiteral("cards-solution"));
    stage.control<QPushButton>("correctButton")->click();
    stage.pass(0.1);
    stage.shoot(QStringLiteral("cards-known"));
    stage.pass(1.5);
    quiz.showSolution();
    stage.pass(1);
    stage.control<QPushButton>("wrongButton")->click();
    stage.pass(0.1);
    stage.shoot(QStringLiteral("cards-not-known"));
    stage.pass(1.5);
    stage.control<QSlider>("flipTimeoutSlider")->setValue(1);
    quiz.togglePlay();
    stage.shoot(QStringLiteral("cards-autoplay"));
    stage.control<QPushButton>("stopButton")->click();
    stage.pass(1.5);
    stage.shoot(QStringLiteral("cards-result"));
}

void shootPopupQuiz(Stage &stage)
{
    stage.hub().showQuiz();
    stage.pass(1);
    stage.control<SegmentControl>("quizModeSegmentControl")->setSelectedSegment(2);
    stage.control<QPushButton>("quizStartQuizButton")->click();
    stage.pass(1.5);
    auto &quiz = stage.program().popupQuiz();
    quiz.quizWindow()->move(stage.window()->mapToGlobal(QPoint(60, 200)));
    stage.shoot(QStringLiteral("popup-question"));
    const auto answer = [&](const QString &text) {
        quiz.quizWindow()->findChild<QLineEdit *>(QStringLiteral("answerTextField"))->setText(text);
        quiz.checkWord();
        stage.pass(1);
    };
    answer(quiz.currentWord()->foreignWord());
    stage.shoot(QStringLiteral("popup-correct"));
    quiz.next();
    stage.shoot(QStringLiteral("popup-waiting"));
    stage.hub().showQuiz();
    stage.pass(1);
    stage.shoot(QStringLiteral("popup-line-on-setup"));
    quiz.showQuiz();
    answer(QStringLiteral("something else"));
    stage.shoot(QStringLiteral("popup-wrong"));
    quiz.stopQuiz();
    stage.shoot(QStringLiteral("popup-result"));
    quiz.close();
}

void shootAnnouncement(Stage &stage)
{
    const qint64 now = platform::secondsSince1970(stage.services().clock);
    stage.program().quizSetup().infoPanels()->setMessageDict(
        {{QStringLiteral("title"), QStringLiteral("A new set of words")},
         {QStringLiteral("message"), QStringLiteral("Two hundred words about the sea are waiting for you.")},
         {QStringLiteral("validFrom"), now - 10},
         {QStringLiteral("validTo"), now + 1000},
         {QStringLiteral("buttonTitle"), QStringLiteral("Have a look")},
         {QStringLiteral("url"), QStringLiteral("https://example.org/sea")},
         {QStringLiteral("alternateButtonTitle"), QStringLiteral("Tell me more")},
         {QStringLiteral("alternateUrl"), QStringLiteral("https://example.org/more")},
         {QStringLiteral("displayedIn"), QStringLiteral("all")},
         {QStringLiteral("uuid"), QStringLiteral("6ba7b810-9dad-11d1-80b4-00c04fd430c8")}});
    stage.hub().showQuiz();
    stage.pass(1);
    stage.shoot(QStringLiteral("quiz-setup-announcement"));
}

void shootAll(const QString &folder, const QString &vocabularyFile, const QSize &size, bool isDark)
{
    {
        Stage stage(folder, vocabularyFile, size, isDark);
        stage.open(false);
        stage.shoot(QStringLiteral("first-start"));
        shootNotices(stage, QStringLiteral("first-start-notices"));
        stage.hub().createFirstLanguageWithName(QStringLiteral("Italian"));
        stage.pass(1);
        stage.shoot(QStringLiteral("vocabulary-no-words"));
        stage.hub().showQuiz();
        stage.pass(1);
        stage.shoot(QStringLiteral("quiz-setup-nothing-due"));
    }
    Stage stage(folder, vocabularyFile, size, isDark);
    stage.open(true);
    shootVocabularyView(stage);
    shootTypingQuiz(stage);
    shootFlashCards(stage);
    shootPopupQuiz(stage);
    shootAnnouncement(stage);
}

} // namespace

/** Arguments: the folder for the pictures, and a vocabulary file to show, if there is one. */
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    linkTavimoTexts();
    platform::installTexts(QStringLiteral("en"));
    const QString folder = application.arguments().value(1, QStringLiteral("screenshots"));
    const QString file = application.arguments().value(2);
    const QString vocabularyFile = QFileInfo::exists(file) ? file : QString();
    for (const bool isDark : {false, true}) {
        const QString palette = folder + QLatin1String(isDark ? "/dark" : "/light");
        shootAll(palette, vocabularyFile, QSize(1080, 720), isDark);
        shootAll(palette + QLatin1String("-800x600"), vocabularyFile, QSize(800, 600), isDark);
    }
    return 0;
}
