#include "quiz/forms/TAVTypingQuizController.h"

#include "app/ground/SettingsKeys.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"
#include "ui_TAVTypingQuiz.h"
#include "usage/RatingPrompt.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/CardFlip.h"
#include "widgets/CardText.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVProgressBar.h"

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds stepDelay = 200ms;
constexpr std::chrono::milliseconds firstFocusDelay = 1s;
constexpr int markSize = 32;
constexpr int longestAnswer = 4000;

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
    , m_judge(*this)
{
    m_ui->setupUi(m_view->page(QuizView::typingQuizPage));
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
    // More can't be typed, only pasted, and would take long to judge.
    m_ui->answerTextField->setMaxLength(longestAnswer);
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
    new ReturnKey(m_view->page(QuizView::typingQuizPage),
                  [this] { m_nextWord ? m_ui->nextButton->click() : m_ui->showStatisticsButton->click(); });
}

bool TAVTypingQuizController::eventFilter(QObject *watched, QEvent *event)
{
    // A panel that outlives its run would write the last word's texts beside another run's question.
    if (event->type() == QEvent::Hide && !event->spontaneous())
        m_editor->hidePanel();
    return QObject::eventFilter(watched, event);
}

void TAVTypingQuizController::scheduleOnPage(QuizView::Page page, void (TAVTypingQuizController::*step)())
{
    platform::clock().callAfter(stepDelay, this, [this, page, step] {
        if (m_view->currentPage() == page)
            (this->*step)();
    });
}

void TAVTypingQuizController::next()
{
    scheduleOnPage(QuizView::typingQuizPage, &TAVTypingQuizController::executeNext);
}

void TAVTypingQuizController::showStatistics()
{
    scheduleOnPage(QuizView::typingQuizPage, &TAVTypingQuizController::executeShowStatistics);
}

void TAVTypingQuizController::restartQuizWithWrong()
{
    scheduleOnPage(QuizView::resultPage, &TAVTypingQuizController::executeRestartQuizWithWrong);
}

void TAVTypingQuizController::startQuiz()
{
    beginRun();
    platform::clock().callAfter(firstFocusDelay, this, [this] { focusWhatComesNext(); });
}

void TAVTypingQuizController::beginRun()
{
    m_judge.beginRun();
    m_view->card()->setIsSplit(true);
    m_nextWord = nextWordToAsk();
    m_judge.setLastWord(m_nextWord);
    setQuestion();
    clearLeftHalf();
    m_view->setProgressStatus(1, numberOfWordsToAsk());
    m_view->statusText()->setVisible(true);
    showProgress();
    m_view->setProgressVisible(true);
    showQuestionControls(true);
    const bool showsHelp = !platform::settings().boolean(settingskeys::hasShownQuizHelpQuestion);
    if (showsHelp)
        platform::settings().setValue(settingskeys::hasShownQuizHelpQuestion, true);
    m_ui->cardRightHelpArrow->setVisible(showsHelp);
    m_ui->cardRightHelpText->setVisible(showsHelp);
    m_ui->answerTextField->setFocus();
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
    for (QCheckBox *box : {m_ui->dontAskAgainCheckBox, m_ui->iKnewItCheckBox}) {
        setControl(box, false);
        box->setChecked(false);
    }
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
    m_lastAskedForeign = drawDirection();
    selectInputSourceOfAnswer();
    m_ui->questionTextField->setWord(AnswerJudge::questionText(*m_nextWord, m_lastAskedForeign),
                                     CardText::questionLimit);
    m_ui->answerTextField->clear();
    const QString prompt =
        platform::localized("Quiz", "answerIn")
            .arg(m_lastAskedForeign ? vocabulary()->foreignLanguageName() : vocabulary()->yourLanguageName());
    m_ui->answerTextField->setPlaceholderText(prompt);
    m_ui->answerTextField->setAccessibleName(prompt);
    m_ui->questionCommentTextField->setText(m_nextWord->comment());
    m_ui->questionCommentTextField->setVisible(isShowCommentWithQuestion());
    LevelPicture::showLevel(m_ui->questionLevelImageView, m_nextWord->level());
}

void TAVTypingQuizController::selectInputSourceOfAnswer()
{
    if (!vocabulary()->isAutoSelectInputSource())
        return;
    platform::services().inputSources->selectInputSource(
        m_lastAskedForeign ? vocabulary()->foreignTextInputSource() : vocabulary()->yourTextInputSource());
}

void TAVTypingQuizController::languageTextFieldDidBecomeActive(TAVLanguageTextField *)
{
    if (m_nextWord)
        selectInputSourceOfAnswer();
}

void TAVTypingQuizController::executeNext()
{
    // A second press within the delay may come when the last word has just been answered.
    if (!m_nextWord)
        return;
    if (platform::settings().boolean(settingskeys::hasShownQuizHelpQuestion)) {
        m_ui->cardRightHelpArrow->hide();
        m_ui->cardRightHelpText->hide();
    }
    m_view->flip()->flipFirstHalf();
    takeCheckBoxes();

    const QString answer = m_ui->answerTextField->text();
    m_ui->commentTextField->setText(m_nextWord->comment());
    const Verdict verdict = m_judge.judge(m_nextWord, answer, m_lastAskedForeign);
    showVerdict(verdict);
    showLeftHelp(verdict);
    showLastTexts(verdict, answer);
    setControl(m_ui->editButton, true);
    m_ui->deletedImageView->hide();

    m_nextWord = nextWordToAsk();
    if (m_nextWord) {
        setQuestion();
    } else {
        showQuestionControls(false);
        m_view->statusText()->hide();
        m_ui->questionCommentTextField->hide();
    }
    m_view->setProgressStatus(m_judge.numberOfAnswers() + 1, numberOfWordsToAsk());
    showProgress();

    vocabulary()->setNeedsSync(true);
    save();
    m_view->flip()->flipSecondHalf();
    m_view->card()->update();
    focusWhatComesNext();
}

void TAVTypingQuizController::takeCheckBoxes()
{
    if (m_ui->dontAskAgainCheckBox->isChecked()) {
        lastWord()->setDontAskAgain(true);
        vocabulary()->invalidateCachedWordLists();
        m_ui->dontAskAgainCheckBox->setChecked(false);
    }
    if (m_ui->iKnewItCheckBox->isChecked()) {
        m_ui->iKnewItCheckBox->setChecked(false);
        m_judge.takeOverrule();
    }
}

void TAVTypingQuizController::showVerdict(Verdict verdict)
{
    m_lastVerdict = verdict;
    showCardColor(verdict);
    showLevels(verdict);
    setControl(m_ui->iKnewItCheckBox, !isRight(verdict));
    setControl(m_ui->dontAskAgainCheckBox, isRight(verdict) && m_judge.lastWordOriginLevel() == 5);
    showMark(verdict);
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

void TAVTypingQuizController::showCardColor(Verdict verdict)
{
    switch (verdict) {
    case Verdict::correct:
        return m_view->card()->setColorCorrect();
    case Verdict::correctBySynonym:
        return m_view->card()->setColorSynonym();
    case Verdict::misspelled:
        return m_view->card()->setColorMisspelled();
    case Verdict::wrong:
        return m_view->card()->setColorWrong();
    }
}

void TAVTypingQuizController::showLevels(Verdict verdict)
{
    const quint64 before = m_judge.lastWordOriginLevel();
    const quint64 after = lastWord()->level();
    const bool falls = verdict == Verdict::wrong;
    const bool moves = isRight(verdict) ? before != 5 : falls && before != 0;
    LevelPicture::showLevel(m_ui->answerLowerLevelImageView, falls ? after : before);
    LevelPicture::showLevel(m_ui->answerUpperLevelImageView, falls ? before : after);
    LevelPicture::showArrow(m_ui->answerArrowImageView, !falls);
    m_ui->answerLowerLevelImageView->show();
    m_ui->answerUpperLevelImageView->setVisible(moves);
    m_ui->answerArrowImageView->setVisible(moves);
}

void TAVTypingQuizController::showLeftHelp(Verdict verdict)
{
    const QLatin1String key = isRight(verdict) ? settingskeys::hasShownQuizHelpCorrectAnswer
                              : verdict == Verdict::misspelled
                                  ? settingskeys::hasShownQuizHelpMisspelledAnswer
                                  : settingskeys::hasShownQuizHelpWrongAnswer;
    // A word that stood on the lowest level can't fall, so that there is nothing to explain.
    const bool explains = verdict != Verdict::wrong || m_judge.lastWordOriginLevel() != 0;
    const bool shows = explains && !platform::settings().boolean(key);
    m_ui->cardLeftHelpArrow->setVisible(shows);
    m_ui->cardLeftHelpText->setVisible(shows);
    if (!shows)
        return;
    m_ui->cardLeftHelpText->setText(helpText(verdict));
    platform::settings().setValue(key, true);
}

void TAVTypingQuizController::showLastTexts(Verdict verdict, const QString &answer)
{
    const QColor color = isRight(verdict) ? CardText::textColor() : CardText::fadedTextColor();
    const bool showsAnswer = verdict != Verdict::wrong || !AnswerJudge::isNoAnswer(answer);
    CardStyle::setTextColor(m_ui->userAnswerTextField, color);
    m_ui->userAnswerTextField->setWord(answer, CardText::answerLimit);
    m_ui->userAnswerTextField->setVisible(showsAnswer);
    m_ui->answerWrongCorrectIndicator->setVisible(showsAnswer);
    m_ui->correctAnswerTextField->setWord(AnswerJudge::expectedText(*lastWord(), m_lastAskedForeign),
                                          CardText::answerLimit);
    m_ui->correctAnswerTextField->setVisible(!isRight(verdict));
    m_ui->correctedAnswerIndicator->setVisible(!isRight(verdict));
    m_ui->userAnswerRow->setVisible(showsAnswer);
    m_ui->correctAnswerRow->setVisible(!isRight(verdict));
    m_ui->lastQuestionTextField->setWord(AnswerJudge::questionText(*lastWord(), m_lastAskedForeign),
                                         CardText::lastQuestionLimit);
}

void TAVTypingQuizController::iKnewIt()
{
    const quint64 before = m_judge.lastWordOriginLevel();
    const quint64 present = lastWord()->level();
    if (!m_ui->iKnewItCheckBox->isChecked()) {
        showCardColor(m_judge.lastWrongWasJustMisspelled() ? Verdict::misspelled : Verdict::wrong);
        showLevels(m_lastVerdict);
        m_ui->answerUpperLevelImageView->setVisible(before != present);
        m_ui->answerArrowImageView->setVisible(before != present);
        m_ui->cardLeftHelpText->setText(helpText(m_lastVerdict));
        return;
    }
    m_view->card()->setColorCorrect();
    LevelPicture::showLevel(m_ui->answerLowerLevelImageView, before);
    LevelPicture::showLevel(m_ui->answerUpperLevelImageView, AnswerJudge::levelAbove(before));
    LevelPicture::showArrow(m_ui->answerArrowImageView, true);
    m_ui->answerLowerLevelImageView->show();
    m_ui->answerUpperLevelImageView->show();
    m_ui->answerArrowImageView->setVisible(present != 5);
    m_ui->cardLeftHelpText->setText(helpText(Verdict::correct));
}

void TAVTypingQuizController::showProgress()
{
    m_view->progressIndicator()->setTotal(quint64(numberOfWordsToAsk()));
    m_view->progressIndicator()->setProgress(quint64(m_judge.numberOfAnswers() + 1),
                                             quint64(m_judge.numberOfCorrect()));
}

void TAVTypingQuizController::save()
{
    DropBoxController::sharedManager()->markFileAsNeedsSync(*vocabulary());
    TAVStorageManager::saveVocabulary(vocabulary());
}

void TAVTypingQuizController::executeShowStatistics()
{
    m_view->flip()->flipFirstHalf();
    m_view->card()->setIsSplit(false);
    takeCheckBoxes();
    save();
    DropBoxController::sharedManager()->syncWithDropbox();
    m_view->showPage(QuizView::resultPage);
    QuizResult result;
    result.correct = m_judge.numberOfCorrect();
    result.between = m_judge.numberOfMisspelled();
    result.betweenLabel = platform::localized("Quiz", "misspelled");
    result.wrong = m_judge.numberOfWrong();
    result.total = numberOfWordsToAsk();
    // Misspelled words alone offer no restart. Deleted ones can't be asked either.
    result.canRestartWithWrong = result.wrong > 0 && !m_judge.wrongAnsweredWords().isEmpty();
    m_view->card()->setColorNeutral();
    m_view->result()->setResult(result, [this] { restartQuizWithWrong(); });
    m_view->result()->focusDefaultButton();
    m_view->flip()->flipSecondHalf();
    m_view->setProgressVisible(false);
    RatingPrompt::shared()->logEvent(1);
}

void TAVTypingQuizController::executeRestartQuizWithWrong()
{
    if (m_judge.wrongAnsweredWords().isEmpty())
        return;
    m_view->flip()->flipFirstHalf();
    m_view->card()->setColorNeutral();
    setAskIndex(-1);
    mutableWordsToAsk() = m_judge.wrongAnsweredWords();
    setNumberOfWordsToAsk(wordsToAsk().size());
    beginRun();
    m_view->showPage(QuizView::typingQuizPage);
    m_ui->answerTextField->setFocus();
    m_view->flip()->flipSecondHalf();
}

void TAVTypingQuizController::focusWhatComesNext()
{
    if (m_view->currentPage() != QuizView::typingQuizPage)
        return;
    if (m_nextWord)
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

void TAVTypingQuizController::wordPopoverDidEditWords(const TAVWordList &)
{
    closeEditor();
    // By the direction of the present question, which may have turned since.
    m_ui->correctAnswerTextField->setWord(AnswerJudge::expectedText(*lastWord(), m_lastAskedForeign),
                                          CardText::answerLimit);
    m_ui->lastQuestionTextField->setWord(AnswerJudge::questionText(*lastWord(), m_lastAskedForeign),
                                         CardText::lastQuestionLimit);
    m_ui->commentTextField->setText(lastWord()->comment());
}

void TAVTypingQuizController::wordPopoverDidDeleteWords(const TAVWordList &words)
{
    for (const TAVWordRef &word : words)
        m_judge.removeFromWrongAnsweredWords(word);
    closeEditor();
    // The run may have moved on while the editor was open.
    if (!words.contains(lastWord()))
        return;
    m_ui->deletedImageView->show();
    setControl(m_ui->editButton, false);
    m_ui->dontAskAgainCheckBox->setEnabled(false);
    m_ui->iKnewItCheckBox->setEnabled(false);
}

void TAVTypingQuizController::wordPopoverDidCancelEditWords(const TAVWordList &)
{
    closeEditor();
}

void TAVTypingQuizController::resetQuizHelp()
{
    for (const QLatin1String key :
         {settingskeys::hasShownQuizHelpQuestion, settingskeys::hasShownQuizHelpCorrectAnswer,
          settingskeys::hasShownQuizHelpMisspelledAnswer, settingskeys::hasShownQuizHelpWrongAnswer})
        platform::settings().setValue(key, false);
}

void TAVTypingQuizController::setControl(QWidget *control, bool enableAndShow)
{
    control->setVisible(enableAndShow);
    control->setEnabled(enableAndShow);
}
