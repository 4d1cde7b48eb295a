#include "quiz/forms/TAVTypingQuizController.h"

#include "app/ground/SettingsTable.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/HeldKeys.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "quiz/forms/TypedCard.h"
#include "ui_TAVTypingQuiz.h"
#include "usage/RatingPrompt.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/CardFlip.h"
#include "widgets/CardText.h"
#include "widgets/TAVCardView.h"

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds firstFocusDelay = 1s;
constexpr int markSize = 32;

QString helpText(Verdict verdict)
{
    switch (verdict) {
    case Verdict::misspelled:
        return platform::localized("Quiz", "quizMisspelledAnswerHelpText");
    case Verdict::wrong:
        return platform::localized("Quiz", "quizWrongHelpText");
    default:
        return platform::localized("Quiz", "quizCorrectAnswerHelpText");
    }
}

} // namespace

TAVTypingQuizController::TAVTypingQuizController(QuizView *view, VocabularyDocument &document)
    : m_view(view)
    , m_ui(std::make_unique<Ui::TAVTypingQuiz>())
    , m_run(*this, document)
{
    m_ui->setupUi(m_view->page(QuizView::typingQuizPage));
    m_card = std::make_unique<TypedCard>(m_run, m_view->card(), TypedCard::Controls::of(*m_ui));
    m_editor = std::make_unique<TAVWordPopoverController>(m_view->page(QuizView::typingQuizPage), document);
    for (QLabel *label : {m_ui->answerUpperLevelImageView, m_ui->answerArrowImageView,
                          m_ui->questionLevelImageView, m_ui->deletedImageView})
        CardStyle::keepPlaceWhenHidden(label);
    CardStyle::setPicture(m_ui->deletedImageView, QStringLiteral("deleted"), LevelPicture::size);
    CardStyle::setPicture(m_ui->correctedAnswerIndicator, QStringLiteral("checkmark_32"), markSize);
    CardStyle::setPicture(m_ui->cardLeftHelpArrow, QStringLiteral("arrow_up"), LevelPicture::arrowSize, 0.5);
    CardStyle::setPicture(m_ui->cardRightHelpArrow, QStringLiteral("arrow_up"), LevelPicture::arrowSize, 0.5);
    for (QLabel *label : {static_cast<QLabel *>(m_ui->commentTextField),
                          static_cast<QLabel *>(m_ui->questionCommentTextField), m_ui->cardLeftHelpText,
                          m_ui->cardRightHelpText})
        CardStyle::setTextColor(label, CardText::fadedTextColor());
    CardStyle::makeDefault(m_ui->nextButton);
    CardStyle::makeDefault(m_ui->showStatisticsButton);
    m_ui->answerTextField->setFont(CardText::font(QString(), CardText::answerLimit));
    localize();
    connectControls();
}

TAVTypingQuizController::~TAVTypingQuizController()
{
    if (m_view)
        m_ui->answerTextField->setOhDelegate(nullptr);
}

void TAVTypingQuizController::localize()
{
    m_ui->iKnewItCheckBox->setText(platform::localized("Quiz", "iKnewIt"));
    m_ui->dontAskAgainCheckBox->setText(platform::localized("Quiz", "dontAskAgain"));
    m_ui->showStatisticsButton->setText(platform::localized("Quiz", "showResults"));
    m_ui->editButton->setText(platform::localized("Quiz", "edit"));
    m_ui->nextButton->setText(platform::localized("Quiz", "flipCard"));
    m_ui->cardRightHelpText->setText(platform::localized("Quiz", "cardRightHelpText"));
    m_ui->correctedAnswerIndicator->setAccessibleName(platform::localized("Quiz", "correct"));
    m_ui->cardLeftHelpArrow->setAccessibleName(platform::localized("Quiz", "hint"));
    m_ui->cardRightHelpArrow->setAccessibleName(platform::localized("Quiz", "hint"));
    m_ui->deletedImageView->setAccessibleName(platform::localized("Quiz", "wordDeleted"));
    m_ui->deletedImageView->setToolTip(platform::localized("Quiz", "wordDeleted"));
}

void TAVTypingQuizController::connectControls()
{
    connect(m_ui->nextButton, &QPushButton::clicked, this, &TAVTypingQuizController::next);
    connect(m_ui->showStatisticsButton, &QPushButton::clicked, this,
            &TAVTypingQuizController::showStatistics);
    connect(m_ui->iKnewItCheckBox, &QCheckBox::clicked, this, &TAVTypingQuizController::iKnewIt);
    connect(m_ui->editButton, &QPushButton::clicked, this, &TAVTypingQuizController::editLastWord);
    m_ui->answerTextField->setOhDelegate(this);
    connect(m_view->flip(), &CardFlip::animationDidStop, this, &TAVTypingQuizController::focusWhatComesNext);
    m_view->page(QuizView::typingQuizPage)->installEventFilter(this);
    const auto isBusy = [this] { return m_view->steps().isPending(); };
    new ReturnKey(
        m_view->page(QuizView::typingQuizPage),
        [this] { nextWord() ? m_ui->nextButton->click() : m_ui->showStatisticsButton->click(); }, isBusy);
    m_heldKeys = new HeldKeys(m_ui->answerTextField, isBusy);
}

bool TAVTypingQuizController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        // A panel that outlives its run would write the last word's texts beside another run's question.
        m_editor->hidePanel();
        m_card->giveInputSourceBack();
    } else if (event->type() == QEvent::Show && !event->spontaneous()) {
        focusWhatComesNext();
    }
    return QObject::eventFilter(watched, event);
}

void TAVTypingQuizController::schedule(void (TAVTypingQuizController::*step)())
{
    m_view->steps().add(this, [this, step] {
        (this->*step)();
        m_heldKeys->drop();
    });
}

void TAVTypingQuizController::next()
{
    schedule(&TAVTypingQuizController::executeNext);
}

void TAVTypingQuizController::showStatistics()
{
    schedule(&TAVTypingQuizController::executeShowStatistics);
}

void TAVTypingQuizController::restartQuizWithWrong()
{
    schedule(&TAVTypingQuizController::executeRestartQuizWithWrong);
}

void TAVTypingQuizController::startQuiz()
{
    m_run.begin();
    showBeginning();
    platform::clock().callAfter(firstFocusDelay, this, [this] { focusWhatComesNext(); });
}

void TAVTypingQuizController::showBeginning()
{
    m_view->card()->setIsSplit(true);
    setQuestion();
    clearLeftHalf();
    m_view->showProgress(m_run.progress());
    m_view->statusText()->setVisible(true);
    m_view->setProgressVisible(true);
    showQuestionControls(true);
    const bool showsHelp = !settings::hasShownQuizHelpQuestion.value();
    if (showsHelp)
        settings::hasShownQuizHelpQuestion.set(true);
    m_ui->cardRightHelpArrow->setVisible(showsHelp);
    m_ui->cardRightHelpText->setVisible(showsHelp);
    if (!m_view->isVisible())
        m_card->giveInputSourceBack();
}

void TAVTypingQuizController::clearLeftHalf()
{
    for (WordLabel *label : {m_ui->correctAnswerTextField, m_ui->lastQuestionTextField,
                             m_ui->userAnswerTextField, m_ui->commentTextField})
        label->clear();
    for (QLabel *picture :
         {m_ui->answerWrongCorrectIndicator, m_ui->correctedAnswerIndicator, m_ui->deletedImageView,
          m_ui->answerUpperLevelImageView, m_ui->answerLowerLevelImageView, m_ui->answerArrowImageView,
          m_ui->cardLeftHelpArrow, m_ui->cardLeftHelpText})
        picture->hide();
    setControl(m_ui->editButton, false);
    for (QCheckBox *box : {m_ui->dontAskAgainCheckBox, m_ui->iKnewItCheckBox})
        setControl(box, false);
    m_card->uncheckBoxes();
}

void TAVTypingQuizController::showQuestionControls(bool visible)
{
    for (QWidget *control :
         {static_cast<QWidget *>(m_ui->questionTextField), static_cast<QWidget *>(m_ui->answerTextField),
          static_cast<QWidget *>(m_ui->nextButton)})
        setControl(control, visible);
    setControl(m_ui->showStatisticsButton, !visible);
    m_ui->questionLevelImageView->setVisible(visible);
}

void TAVTypingQuizController::setQuestion()
{
    m_card->selectInputSourceOfAnswer();
    m_card->showQuestion();
}

void TAVTypingQuizController::languageTextFieldDidBecomeActive(TAVLanguageTextField *)
{
    if (nextWord())
        m_card->selectInputSourceOfAnswer();
}

void TAVTypingQuizController::executeNext()
{
    // After two presses within the delay, the first may have answered the last word already.
    if (!nextWord())
        return;
    if (settings::hasShownQuizHelpQuestion.value()) {
        m_ui->cardRightHelpArrow->hide();
        m_ui->cardRightHelpText->hide();
    }
    const bool isInFront = m_view->currentPage() == QuizView::typingQuizPage;
    if (isInFront)
        m_view->flip()->flipFirstHalf();

    const TAVWordRef asked = nextWord();
    const QString answer = m_ui->answerTextField->text();
    const Verdict verdict = m_run.answer(answer);
    m_card->uncheckBoxes();
    showVerdict(verdict, answer);
    // Even if a synonym was named, the comment is that of the asked word.
    m_ui->commentTextField->setText(asked->comment());
    showLeftHelp(verdict);

    m_run.askNext();
    if (nextWord()) {
        setQuestion();
        m_heldKeys->typeIntoField();
    } else {
        showQuestionControls(false);
        m_view->statusText()->hide();
        m_ui->questionCommentTextField->hide();
    }
    m_view->showProgress(m_run.progress());
    m_run.saveAnswer();
    // The page may have been left since the press: the answer counts, but must not colour another page's
    // card.
    if (!isInFront)
        m_view->card()->setColorNeutral();
    if (!isSeen())
        m_card->giveInputSourceBack();
    m_view->flip()->flipSecondHalf();
    m_view->card()->update();
    focusWhatComesNext();
}

void TAVTypingQuizController::showVerdict(Verdict verdict, const QString &answer)
{
    m_card->showVerdict(answer);
    showMark(verdict);
    const bool showsAnswer = TypedCard::showsAnswer(verdict, answer);
    m_ui->answerWrongCorrectIndicator->setVisible(showsAnswer);
    m_ui->userAnswerRow->setVisible(showsAnswer);
    m_ui->correctedAnswerIndicator->setVisible(!isRight(verdict));
    m_ui->correctAnswerRow->setVisible(!isRight(verdict));
    setControl(m_ui->editButton, true);
}

void TAVTypingQuizController::showMark(Verdict verdict)
{
    const auto show = [this](const QString &picture, double opacity, const QString &meaning) {
        CardStyle::setPicture(m_ui->answerWrongCorrectIndicator, picture, markSize, opacity);
        m_ui->answerWrongCorrectIndicator->setAccessibleName(meaning);
    };
    if (isRight(verdict))
        show(QStringLiteral("checkmark_32"), 1.0, platform::localized("Quiz", "correct"));
    else if (verdict == Verdict::misspelled)
        show(QStringLiteral("misspelled_32"), 0.5, platform::localized("Quiz", "misspelled"));
    else
        show(QStringLiteral("strikeout_32"), 0.5, platform::localized("Quiz", "wrong"));
}

void TAVTypingQuizController::showLeftHelp(Verdict verdict)
{
    const settings::QuizHelpSetting &hasShown = isRight(verdict) ? settings::hasShownQuizHelpCorrectAnswer
                                                : verdict == Verdict::misspelled
                                                    ? settings::hasShownQuizHelpMisspelledAnswer
                                                    : settings::hasShownQuizHelpWrongAnswer;
    // A word on the lowest level can't fall: there is nothing to explain.
    const bool explains = verdict != Verdict::wrong || m_run.lastWordOriginLevel() != 0;
    const bool shows = explains && !hasShown.value();
    m_ui->cardLeftHelpArrow->setVisible(shows);
    m_ui->cardLeftHelpText->setVisible(shows);
    if (!shows)
        return;
    m_ui->cardLeftHelpText->setText(helpText(verdict));
    hasShown.set(true);
}

void TAVTypingQuizController::iKnewIt()
{
    m_card->showStanding();
    m_ui->cardLeftHelpText->setText(helpText(m_run.shownVerdict()));
}

void TAVTypingQuizController::executeShowStatistics()
{
    // A double click asks twice for the same result.
    if (m_view->currentPage() == QuizView::resultPage)
        return;
    m_view->flip()->flipFirstHalf();
    m_view->card()->setIsSplit(false);
    m_run.end();
    m_card->uncheckBoxes();
    m_view->showPage(QuizView::resultPage);
    m_view->card()->setColorNeutral();
    m_view->result()->setResult(m_run.result(), platform::localized("Quiz", "misspelled"),
                                [this] { restartQuizWithWrong(); });
    m_view->result()->focusDefaultButton();
    m_view->flip()->flipSecondHalf();
    m_view->setProgressVisible(false);
    RatingPrompt::shared()->logEvent(1);
}

void TAVTypingQuizController::executeRestartQuizWithWrong()
{
    if (m_run.wrongAnsweredWords().isEmpty())
        return;
    m_view->flip()->flipFirstHalf();
    m_view->card()->setColorNeutral();
    m_run.beginWithWrongWords();
    showBeginning();
    m_view->showPage(QuizView::typingQuizPage);
    focusWhatComesNext();
    m_view->flip()->flipSecondHalf();
}

bool TAVTypingQuizController::isSeen() const
{
    return m_view->page(QuizView::typingQuizPage)->isVisible();
}

void TAVTypingQuizController::focusWhatComesNext()
{
    if (!isSeen())
        return;
    if (nextWord())
        m_ui->answerTextField->setFocus();
    else
        m_ui->showStatisticsButton->setFocus();
}

void TAVTypingQuizController::editLastWord()
{
    m_editor->showEditWindowForWords({lastWord()}, vocabulary(), this);
    m_editor->showBeside(m_ui->editButton, m_ui->editButton->rect());
}

void TAVTypingQuizController::closeAddWordPopover()
{
    if (m_editor->isInAddingMode())
        m_editor->closeWordPanel(nullptr);
}

void TAVTypingQuizController::closeEditor()
{
    m_editor->hidePanel();
    m_view->activateWindow();
    focusWhatComesNext();
}

void TAVTypingQuizController::wordPopoverDidEditWords(const TAVWordList &words)
{
    if (const TAVWordList gone = m_run.goneWords(words); !gone.isEmpty()) {
        wordPopoverDidDeleteWords(gone);
        return;
    }
    closeEditor();
    // By the direction of the present question, which can differ from that of the word on the left.
    m_card->showLastTexts();
}

void TAVTypingQuizController::wordPopoverDidDeleteWords(const TAVWordList &words)
{
    m_run.forgetWords(words);
    closeEditor();
    // The run may have moved on while the editor was open.
    if (!words.contains(lastWord()))
        return;
    m_card->showDeleted();
    setControl(m_ui->editButton, false);
}

void TAVTypingQuizController::wordPopoverDidCancelEditWords(const TAVWordList &)
{
    closeEditor();
}

void TAVTypingQuizController::resetQuizHelp()
{
    for (const settings::QuizHelpSetting &hasShown :
         {settings::hasShownQuizHelpQuestion, settings::hasShownQuizHelpCorrectAnswer,
          settings::hasShownQuizHelpMisspelledAnswer, settings::hasShownQuizHelpWrongAnswer})
        hasShown.set(false);
}

void TAVTypingQuizController::setControl(QWidget *control, bool enableAndShow)
{
    control->setVisible(enableAndShow);
    control->setEnabled(enableAndShow);
}
