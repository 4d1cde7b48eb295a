#include "quiz/forms/TAVPopupQuizController.h"

#include "app/ground/SettingsTable.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/PopupPanel.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "quiz/forms/TypedCard.h"
#include "ui_PopupQuiz.h"
#include "ui_PopupQuizRunning.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/CardText.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QLocale>

using namespace std::chrono_literals;

namespace {

/** The user has come to an end with what was being typed elsewhere. */
constexpr std::chrono::milliseconds idleTimeNeeded = 1500ms;
constexpr std::chrono::milliseconds maxWaitForIdleTime = 5s;
/** So long the fingers go on that can't be waited for. */
constexpr std::chrono::milliseconds deafTime = 800ms;
constexpr int minMinutes = 1;
constexpr int maxMinutes = 100;
/** The longest interval that is taken up again at the next start. */
constexpr int maxRestoredMinutes = 99;

} // namespace

TAVPopupQuizController::TAVPopupQuizController(QuizView *view, VocabularyDocument &document, QuizHub *hub,
                                               std::function<void()> showSetup)
    : m_view(view)
    , m_hub(hub)
    , m_showSetup(std::move(showSetup))
    , m_window(std::make_unique<PopupPanel>())
    , m_ui(std::make_unique<Ui::PopupQuiz>())
    , m_running(std::make_unique<Ui::PopupQuizRunning>())
    , m_run(*this, document)
{
    m_ui->setupUi(m_window.get());
    m_card = std::make_unique<TypedCard>(m_run, m_ui->popupCard, TypedCard::Controls::of(*m_ui));
    m_ui->popupCard->setPalette(CardStyle::palette(m_window->palette()));
    m_running->setupUi(m_view->page(QuizView::popupQuizPage));
    m_editor = std::make_unique<TAVWordPopoverController>(m_window.get(), document);
    for (QPushButton *button : {m_ui->checkButton, m_ui->nextButton, m_ui->closeButton})
        CardStyle::makeDefault(button);
    for (QLabel *label : {static_cast<QLabel *>(m_ui->commentTextField), m_running->popupIntro})
        CardStyle::setTextColor(label, CardText::fadedTextColor());
    CardStyle::enlarge(m_running->popupInProgress, 1.6);
    CardStyle::enlarge(m_ui->statisticsIntro, 1.2);
    CardStyle::enlarge(m_ui->answerMark, 1.6);
    CardStyle::setDot(m_ui->correctDot, TAVPieChart::correctColor());
    CardStyle::setDot(m_ui->misspelledDot, TAVPieChart::misspelledColor());
    CardStyle::setDot(m_ui->wrongDot, TAVPieChart::wrongColor());
    CardStyle::setPicture(m_ui->deletedImageView, QStringLiteral("deleted"), LevelPicture::arrowSize);
    CardStyle::keepPlaceWhenHidden(m_ui->deletedImageView);
    m_running->intervalStepper->findChild<QLineEdit *>()->setObjectName(QStringLiteral("intervalTextField"));
    setNumberOfWordsToAsk(PopupRun::wordsOfAList);
    localize();
    restoreInterval();
    connectControls();
}

TAVPopupQuizController::~TAVPopupQuizController()
{
    m_ui->answerTextField->setOhDelegate(nullptr);
}

QWidget *TAVPopupQuizController::quizWindow() const
{
    return m_window.get();
}

void TAVPopupQuizController::localize()
{
    m_running->popupInProgress->setText(platform::localized("Quiz", "popupInProgress"));
    m_running->popupIntro->setText(platform::localized("Quiz", "popupIntro"));
    m_running->popupIntervalLabel->setText(platform::localized("Quiz", "popupIntervalLabel"));
    m_running->popupMinutes->setText(platform::localized("Quiz", "popupMinutes"));
    m_running->intervalStepper->setAccessibleName(m_running->popupIntervalLabel->text());
    for (QPushButton *button :
         {m_running->stopQuizButton, m_ui->questionEndQuizButton, m_ui->answerEndQuizButton})
        button->setText(platform::localized("Quiz", "popupEndQuiz"));
    m_ui->nextButton->setText(platform::localized("Quiz", "popupNext"));
    m_ui->laterButton->setText(platform::localized("Quiz", "popupLater"));
    m_ui->checkButton->setText(platform::localized("Quiz", "popupCheck"));
    m_ui->closeButton->setText(platform::localized("Quiz", "popupClose"));
    m_ui->correctLabel->setText(platform::localized("Quiz", "correct"));
    m_ui->misspelledLabel->setText(platform::localized("Quiz", "misspelled"));
    m_ui->wrongLabel->setText(platform::localized("Quiz", "wrong"));
    m_ui->pieChart->setAccessibleName(platform::localized("Quiz", "pieChart"));
    m_ui->dontAskAgainCheckBox->setText(platform::localized("Quiz", "dontAskAgain"));
    m_ui->iKnewItCheckBox->setText(platform::localized("Quiz", "iKnewIt"));
    m_ui->editButton->setText(platform::localized("Quiz", "edit"));
    m_ui->deletedImageView->setToolTip(platform::localized("Quiz", "wordDeleted"));
    m_ui->deletedImageView->setAccessibleName(platform::localized("Quiz", "wordDeleted"));
    m_window->setWindowTitle(platform::localized("Quiz", "popupQuiz"));
}

void TAVPopupQuizController::restoreInterval()
{
    const std::optional<qint64> minutes = settings::popupQuizInterval.value();
    if (minutes && *minutes >= minMinutes && *minutes <= maxRestoredMinutes)
        m_running->intervalStepper->setValue(int(*minutes));
}

void TAVPopupQuizController::connectControls()
{
    using Self = TAVPopupQuizController;
    connect(m_ui->checkButton, &QPushButton::clicked, this, &Self::checkWord);
    connect(m_ui->nextButton, &QPushButton::clicked, this, &Self::next);
    connect(m_ui->laterButton, &QPushButton::clicked, this, &Self::later);
    connect(m_window.get(), &PopupPanel::escapePressed, this, &Self::leavePage);
    connect(m_view, &QuizView::popupEndChosen, this, &Self::stopQuiz);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &Self::close);
    connect(m_ui->iKnewItCheckBox, &QCheckBox::clicked, this, &Self::iKnewIt);
    connect(m_ui->editButton, &QPushButton::clicked, this, &Self::editLastWord);
    for (QPushButton *button :
         {m_running->stopQuizButton, m_ui->questionEndQuizButton, m_ui->answerEndQuizButton})
        connect(button, &QPushButton::clicked, this, &Self::stopQuiz);
    connect(m_running->intervalStepper, &QSpinBox::valueChanged, this, &Self::updateInterval);
    m_ui->answerTextField->setOhDelegate(this);
    new ReturnKey(m_ui->questionPage, [this] { checkWord(); });
    new ReturnKey(m_ui->answerPage, [this] { next(); });
    new ReturnKey(m_ui->resultPage, [this] { close(); });
    connect(m_window.get(), &PopupPanel::closing, this, &Self::windowWillClose);
    // An answer on the screen when the program ends is an answer all the same.
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        savePendingAnswer();
        m_card->giveInputSourceBack();
    });
}

void TAVPopupQuizController::leaveRun()
{
    if (!m_run.isRunning())
        return;
    endRun();
    hidePanel();
}

void TAVPopupQuizController::startQuiz()
{
    m_run.begin();
    m_running->stopQuizButton->setEnabled(true);
    m_hub->disableAllToolbarItems();
    showQuiz();
}

void TAVPopupQuizController::showQuiz()
{
    m_timer.reset();
    m_oldApp = platform::services().desktop->frontmostApplication();
    m_card->uncheckBoxes();
    if (!m_run.ask()) {
        platform::diagnosticLog(QStringLiteral("bgquiz > showQuiz > show stats"));
        showStatistics();
        return;
    }
    m_ui->editButton->setEnabled(false);
    setQuestion();
    showProgress();
    m_ui->popupTabView->setCurrentIndex(questionTab);
    m_window->showInPlace();
    bringWindowToFront();
    m_ui->answerTextField->setFocus();
    m_questionIntervalMinutes = m_running->intervalStepper->value();
}

void TAVPopupQuizController::setQuestion()
{
    m_ui->popupCard->setColorNeutral();
    m_card->showQuestion();
}

void TAVPopupQuizController::checkWord()
{
    if (!m_run.isAsking())
        return;
    const QString answer = m_ui->answerTextField->text();
    const Verdict verdict = m_run.check(answer);
    showVerdict(verdict, answer);
    showProgress();
    m_ui->popupTabView->setCurrentIndex(answerTab);
    m_ui->nextButton->setFocus();
    if (verdict == Verdict::wrong)
        shakeWindow();
}

void TAVPopupQuizController::showVerdict(Verdict verdict, const QString &answer)
{
    m_card->showVerdict(answer);
    m_ui->answerMark->setText(isRight(verdict)                 ? QStringLiteral("✓")
                              : verdict == Verdict::misspelled ? QStringLiteral("≈")
                                                               : QStringLiteral("X"));
    CardStyle::setTextColor(m_ui->answerMark,
                            isRight(verdict) ? CardText::textColor() : CardText::fadedTextColor());
    m_ui->answerMark->setVisible(TypedCard::showsAnswer(verdict, answer));
    m_ui->editButton->setEnabled(true);
}

void TAVPopupQuizController::iKnewIt()
{
    m_card->showStanding();
}

void TAVPopupQuizController::savePendingAnswer()
{
    m_run.savePendingAnswer();
    m_card->uncheckBoxes();
}

void TAVPopupQuizController::next()
{
    if (m_run.askedWord() || !m_run.hasPendingAnswer())
        return;
    m_ui->popupCard->setColorNeutral();
    savePendingAnswer();
    putAway();
}

void TAVPopupQuizController::later()
{
    if (!m_run.isAsking())
        return;
    m_run.postpone();
    putAway();
}

void TAVPopupQuizController::leavePage()
{
    if (m_run.isAsking())
        later();
    else
        next();
}

void TAVPopupQuizController::putAway()
{
    m_ui->questionTextField->clear();
    m_ui->answerTextField->clear();
    hidePanel();
    platform::services().inputSources->selectInputSource(vocabulary()->yourTextInputSource());
    armTimer();
    platform::services().desktop->activateApplication(m_oldApp);
}

void TAVPopupQuizController::showProgress()
{
    const RunProgress progress = m_run.questionProgress();
    const QLocale locale;
    const QString text = platform::localized("Quiz", "progressStatus")
                             .arg(locale.toString(progress.reached), locale.toString(progress.total));
    m_ui->questionProgressLabel->setText(text);
    m_ui->answerProgressLabel->setText(text);
    m_view->setPopupProgress(progress);
}

void TAVPopupQuizController::armTimer()
{
    m_timer.reset();
    m_timer = platform::clock().startTimer(std::chrono::minutes(m_questionIntervalMinutes), false,
                                           [this] { showQuizWhenIdle(0ms); });
}

void TAVPopupQuizController::showQuizWhenIdle(std::chrono::milliseconds waited)
{
    const std::optional<std::chrono::milliseconds> idle = platform::services().idleTime->sinceLastInput();
    const auto left = idle ? std::min(idleTimeNeeded - *idle, maxWaitForIdleTime - waited) : 0ms;
    if (left > 0ms) {
        // In the place of the timer that has just fired: whatever ends that one ends this wait too.
        m_timer = platform::clock().startTimer(left, false,
                                               [this, waited, left] { showQuizWhenIdle(waited + left); });
        return;
    }
    showQuiz();
    if (!idle || *idle < idleTimeNeeded)
        m_window->ignoreKeys(deafTime);
}

void TAVPopupQuizController::updateInterval(int minutes)
{
    if (minutes < minMinutes || minutes > maxMinutes) {
        platform::diagnosticLog(QStringLiteral("BackgroundQuizController > updateInterval > out of range"));
        return;
    }
    settings::popupQuizInterval.set(minutes);
    m_questionIntervalMinutes = minutes;
    const QSignalBlocker quiet(m_running->intervalStepper);
    m_running->intervalStepper->setValue(minutes);
    m_timer.reset();
    if (m_run.isRunning())
        armTimer();
}

void TAVPopupQuizController::showStatistics()
{
    m_run.end();
    m_card->uncheckBoxes();
    unlock();

    const RunResult result = m_run.result();
    m_ui->statisticsIntro->setText(QuizResultPage::introForPercent(result.correctPercent()));
    m_ui->pieChart->setVisible(result.total > 0);
    m_ui->pieChart->setCorrectPercent(result.correctPercent() / 100.0);
    m_ui->pieChart->setMisspelledPercent(result.betweenPercent() / 100.0);
    m_ui->statisticsCorrect->setText(QuizResultPage::countText(result.correct, result));
    m_ui->statisticsMissspelled->setText(QuizResultPage::countText(result.between, result));
    m_ui->statisticsWrong->setText(QuizResultPage::countText(result.wrong, result));
    m_ui->popupCard->setColorNeutral();
    m_ui->popupTabView->setCurrentIndex(resultTab);
    m_window->showInPlace();
    bringWindowToFront();
    m_ui->closeButton->setFocus();
}

void TAVPopupQuizController::unlock()
{
    m_timer.reset();
    m_card->giveInputSourceBack();
    m_view->setPopupProgress(std::nullopt);
    m_running->stopQuizButton->setEnabled(false);
    m_hub->enableAllToolbarItems();
}

void TAVPopupQuizController::stopQuiz()
{
    if (m_run.isRunning())
        showStatistics();
}

void TAVPopupQuizController::close()
{
    m_window->close();
}

void TAVPopupQuizController::endRun()
{
    m_editor->hidePanel();
    m_run.leave();
    m_card->uncheckBoxes();
    unlock();
}

void TAVPopupQuizController::windowWillClose()
{
    endRun();
    if (m_view->currentPage() == QuizView::popupQuizPage)
        m_showSetup();
}

void TAVPopupQuizController::hidePanel()
{
    m_editor->hidePanel();
    m_ui->firstResponderDummy->setFocus();
    m_window->putOutOfSight();
}

void TAVPopupQuizController::bringWindowToFront()
{
    const QString text =
        m_run.askedWord() ? m_run.questionText(*m_run.askedWord()) : m_ui->statisticsIntro->text();
    m_window->bringToFront(text, [this] { return m_window->isVisible(); });
}

void TAVPopupQuizController::shakeWindow()
{
    m_window->shake();
}

void TAVPopupQuizController::editLastWord()
{
    if (!currentWord())
        return;
    m_editor->showEditWindowForWords({currentWord()}, vocabulary(), this);
    m_editor->showBeside(m_ui->editButton, m_ui->editButton->rect());
}

void TAVPopupQuizController::closeAddWordPopover()
{
    if (m_editor->isInAddingMode())
        m_editor->closeWordPanel(nullptr);
}

void TAVPopupQuizController::wordPopoverDidEditWords(const TAVWordList &words)
{
    if (const TAVWordList gone = m_run.goneWords(words); !gone.isEmpty()) {
        wordPopoverDidDeleteWords(gone);
        return;
    }
    m_editor->hidePanel();
    if (m_run.lastWord())
        m_card->showLastTexts();
}

void TAVPopupQuizController::wordPopoverDidDeleteWords(const TAVWordList &words)
{
    m_run.forgetWords(words);
    m_card->showDeleted();
    m_ui->editButton->setEnabled(false);
    m_editor->hidePanel();
}

void TAVPopupQuizController::wordPopoverDidCancelEditWords(const TAVWordList &)
{
    m_editor->hidePanel();
}

void TAVPopupQuizController::languageTextFieldDidBecomeActive(TAVLanguageTextField *)
{
    m_card->selectInputSourceOfAnswer();
}
