#include "quiz/forms/TAVPopupQuizController.h"

#include "app/ground/SettingsKeys.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"
#include "ui_PopupQuiz.h"
#include "ui_PopupQuizRunning.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/CardText.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLineEdit>

using namespace std::chrono_literals;

namespace {

constexpr int wordsOfAList = 10;
constexpr int leastMinutes = 1;
constexpr int mostMinutes = 100;
/** The longest interval that is taken up again at the next start. */
constexpr int mostRestoredMinutes = 99;
constexpr int shakeWidth = 5;
constexpr int shakeSteps = 5;
constexpr std::chrono::milliseconds shakeInterval = 40ms;
/** By then the desktop has put the panel where it was asked to. */
constexpr std::chrono::milliseconds placingTime = 500ms;
constexpr int longestAnswer = 4000;
constexpr quint64 highestLevel = 5;

} // namespace

TAVPopupQuizController::TAVPopupQuizController(QuizView *view, VocabularyDocument &document, QuizHub *hub,
                                               std::function<void()> showSetup)
    : m_view(view)
    , m_hub(hub)
    , m_showSetup(std::move(showSetup))
    , m_window(
          std::make_unique<QWidget>(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint))
    , m_ui(std::make_unique<Ui::PopupQuiz>())
    , m_running(std::make_unique<Ui::PopupQuizRunning>())
    , m_judge(*this)
{
    m_window->setAttribute(Qt::WA_QuitOnClose, false);
    m_ui->setupUi(m_window.get());
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
    m_ui->answerTextField->setMaxLength(longestAnswer);
    m_running->intervalStepper->findChild<QLineEdit *>()->setObjectName(QStringLiteral("intervalTextField"));
    setNumberOfWordsToAsk(wordsOfAList);
    localize();
    restoreSettings();
    connectControls();
}

TAVPopupQuizController::~TAVPopupQuizController()
{
    m_ui->answerTextField->setOhDelegate(nullptr);
    m_window->removeEventFilter(this);
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

void TAVPopupQuizController::restoreSettings()
{
    const qint64 minutes = platform::settings().integer(settingskeys::popupQuizInterval);
    if (minutes >= leastMinutes && minutes <= mostRestoredMinutes)
        m_running->intervalStepper->setValue(int(minutes));
    const double x = platform::settings().real(settingskeys::bgQuizWindowXOrigin);
    const double y = platform::settings().real(settingskeys::bgQuizWindowYOrigin);
    constexpr double farthest = 1e5;
    if (x > 0 && y > 0 && x < farthest && y < farthest) {
        m_windowXPos = x;
        m_windowYPos = y;
    }
}

void TAVPopupQuizController::connectControls()
{
    using Self = TAVPopupQuizController;
    connect(m_ui->checkButton, &QPushButton::clicked, this, &Self::checkWord);
    connect(m_ui->nextButton, &QPushButton::clicked, this, &Self::next);
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
    m_window->installEventFilter(this);
    // An answer on the screen when the program ends is an answer all the same.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &Self::savePendingAnswer);
}

void TAVPopupQuizController::startQuiz()
{
    m_judge.beginRun();
    m_hasCreatedCorrectWordsToAsk = true;
    m_isRunning = true;
    m_hasPendingAnswer = false;
    m_running->stopQuizButton->setEnabled(true);
    m_hub->disableAllToolbarItems();
    showQuiz();
}

void TAVPopupQuizController::showQuiz()
{
    m_timer.reset();
    m_oldApp = platform::services().desktop->frontmostApplication();
    m_ui->dontAskAgainCheckBox->setChecked(false);
    m_ui->iKnewItCheckBox->setChecked(false);
    m_ignoreWindowMove = true;
    if (!m_hasCreatedCorrectWordsToAsk) {
        setNumberOfWordsToAsk(wordsOfAList);
        createWordsToAsk();
    }
    const bool isMore = numberOfWordsToAsk() != 0 && m_judge.numberOfAnswers() < numberOfWordsToAsk();
    m_currentWord = isMore ? nextWordToAsk() : nullptr;
    if (!m_currentWord) {
        platform::diagnosticLog(QStringLiteral("bgquiz > showQuiz > show stats"));
        showStatistics();
        return;
    }
    m_currentWordOriginLevel = m_currentWord->level();
    m_ui->editButton->setEnabled(false);
    setQuestion();
    m_ui->popupTabView->setCurrentIndex(questionTab);
    placePanel();
    bringWindowToFront();
    m_ui->answerTextField->setFocus();
    m_questionIntervalMinutes = m_running->intervalStepper->value();
}

void TAVPopupQuizController::setQuestion()
{
    m_lastAskedForeign = drawDirection();
    m_ui->popupCard->setColorNeutral();
    m_ui->questionTextField->setWord(AnswerJudge::questionText(*m_currentWord, m_lastAskedForeign),
                                     CardText::questionLimit);
    m_ui->questionCommentTextField->setText(m_currentWord->comment());
    m_ui->questionCommentTextField->setVisible(isShowCommentWithQuestion());
    LevelPicture::showLevel(m_ui->questionLevelImageView, m_currentWord->level());
    const QString prompt =
        platform::localized("Quiz", "answerIn")
            .arg(m_lastAskedForeign ? vocabulary()->foreignLanguageName() : vocabulary()->yourLanguageName());
    m_ui->answerTextField->clear();
    m_ui->answerTextField->setPlaceholderText(prompt);
    m_ui->answerTextField->setAccessibleName(prompt);
}

void TAVPopupQuizController::checkWord()
{
    if (!m_currentWord || m_ui->popupTabView->currentIndex() != questionTab)
        return;
    const QString answer = m_ui->answerTextField->text();
    const Verdict verdict = m_judge.judge(m_currentWord, answer, m_lastAskedForeign);
    // The panel shows from where the asked word came, also when a synonym was named.
    m_judge.setLastWordOriginLevel(m_currentWordOriginLevel);
    m_currentWord = m_judge.lastWord();
    m_hasPendingAnswer = true;
    showVerdict(verdict, answer);
    m_ui->popupTabView->setCurrentIndex(answerTab);
    m_ui->nextButton->setFocus();
    if (verdict == Verdict::wrong)
        shakeWindow();
}

void TAVPopupQuizController::showVerdict(Verdict verdict, const QString &answer)
{
    m_lastVerdict = verdict;
    const bool showsAnswer = verdict != Verdict::wrong || !AnswerJudge::isNoAnswer(answer);
    const QColor color = isRight(verdict) ? CardText::textColor() : CardText::fadedTextColor();
    m_ui->answerMark->setText(isRight(verdict)                 ? QStringLiteral("✓")
                              : verdict == Verdict::misspelled ? QStringLiteral("≈")
                                                               : QStringLiteral("X"));
    CardStyle::setTextColor(m_ui->answerMark, color);
    CardStyle::setTextColor(m_ui->userAnswerTextField, color);
    m_ui->userAnswerTextField->setWord(answer, CardText::answerLimit);
    m_ui->answerMark->setVisible(showsAnswer);
    m_ui->userAnswerTextField->setVisible(showsAnswer);
    m_ui->correctAnswerTextField->setVisible(!isRight(verdict));
    m_ui->deletedImageView->hide();
    showLastTexts();
    showVerdictLevels();
    const bool isAtTop = isRight(verdict) && m_currentWord->level() == highestLevel;
    m_ui->iKnewItCheckBox->setVisible(!isRight(verdict));
    m_ui->iKnewItCheckBox->setEnabled(!isRight(verdict));
    m_ui->dontAskAgainCheckBox->setVisible(isAtTop);
    m_ui->dontAskAgainCheckBox->setEnabled(isAtTop);
    m_ui->editButton->setEnabled(true);
}

void TAVPopupQuizController::showLastTexts()
{
    m_ui->lastQuestionTextField->setWord(AnswerJudge::questionText(*m_currentWord, m_lastAskedForeign),
                                         CardText::lastQuestionLimit);
    m_ui->correctAnswerTextField->setWord(AnswerJudge::expectedText(*m_currentWord, m_lastAskedForeign),
                                          CardText::answerLimit);
    m_ui->commentTextField->setText(m_currentWord->comment());
}

void TAVPopupQuizController::showVerdictLevels()
{
    const quint64 present = m_currentWord->level();
    switch (m_lastVerdict) {
    case Verdict::correct:
    case Verdict::correctBySynonym:
        if (m_lastVerdict == Verdict::correct)
            m_ui->popupCard->setColorCorrect();
        else
            m_ui->popupCard->setColorSynonym();
        return showLevels(m_currentWordOriginLevel, present, true, present != highestLevel);
    case Verdict::misspelled:
        m_ui->popupCard->setColorMisspelled();
        return showLevels(present, present, true, false);
    case Verdict::wrong:
        m_ui->popupCard->setColorWrong();
        return showLevels(present, m_currentWordOriginLevel, false, m_currentWordOriginLevel != 0);
    }
}

void TAVPopupQuizController::showLevels(quint64 lower, quint64 upper, bool rises, bool moves)
{
    LevelPicture::showLevel(m_ui->answerLowerLevelImageView, lower);
    LevelPicture::showLevel(m_ui->answerUpperLevelImageView, upper);
    LevelPicture::showArrow(m_ui->answerArrowImageView, rises);
    m_ui->answerUpperLevelImageView->setVisible(moves);
    m_ui->answerArrowImageView->setVisible(moves);
}

void TAVPopupQuizController::iKnewIt()
{
    const quint64 present = m_currentWord->level();
    if (m_ui->iKnewItCheckBox->isChecked()) {
        m_ui->popupCard->setColorCorrect();
        showLevels(m_currentWordOriginLevel, AnswerJudge::levelAbove(present), true, present != highestLevel);
        return;
    }
    showVerdictLevels();
    if (present >= highestLevel) {
        m_ui->answerUpperLevelImageView->hide();
        m_ui->answerArrowImageView->hide();
    }
}

void TAVPopupQuizController::takeCheckBoxes()
{
    if (m_ui->dontAskAgainCheckBox->isChecked() && m_currentWord) {
        m_currentWord->setDontAskAgain(true);
        vocabulary()->invalidateCachedWordLists();
    }
    m_ui->dontAskAgainCheckBox->setChecked(false);
    if (m_ui->iKnewItCheckBox->isChecked() && m_hasPendingAnswer)
        m_judge.takeOverrule();
    m_ui->iKnewItCheckBox->setChecked(false);
}

void TAVPopupQuizController::savePendingAnswer()
{
    if (!m_hasPendingAnswer)
        return;
    takeCheckBoxes();
    m_hasPendingAnswer = false;
    vocabulary()->setNeedsSync(true);
    DropBoxController::sharedManager()->markFileAsNeedsSync(*vocabulary());
    TAVStorageManager::saveVocabulary(vocabulary());
}

void TAVPopupQuizController::next()
{
    if (m_ui->popupTabView->currentIndex() != answerTab || !m_hasPendingAnswer)
        return;
    m_ui->popupCard->setColorNeutral();
    savePendingAnswer();
    m_ui->questionTextField->clear();
    m_ui->answerTextField->clear();
    hidePanel();
    platform::services().inputSources->selectInputSource(vocabulary()->yourTextInputSource());
    armTimer();
    platform::services().desktop->activateApplication(m_oldApp);
}

void TAVPopupQuizController::armTimer()
{
    m_timer.reset();
    m_timer = platform::clock().startTimer(std::chrono::minutes(m_questionIntervalMinutes), false,
                                           [this] { showQuiz(); });
}

void TAVPopupQuizController::updateInterval(int minutes)
{
    if (minutes < leastMinutes || minutes > mostMinutes) {
        platform::diagnosticLog(QStringLiteral("BackgroundQuizController > updateInterval > out of range"));
        return;
    }
    platform::settings().setValue(settingskeys::popupQuizInterval, minutes);
    m_questionIntervalMinutes = minutes;
    const QSignalBlocker quiet(m_running->intervalStepper);
    m_running->intervalStepper->setValue(minutes);
    m_timer.reset();
    if (m_isRunning)
        armTimer();
}

void TAVPopupQuizController::showStatistics()
{
    const bool wasPending = m_hasPendingAnswer;
    savePendingAnswer();
    if (!wasPending)
        TAVStorageManager::saveVocabulary(vocabulary());
    endRun();

    const qint64 answers = m_judge.numberOfAnswers();
    const double total = double(std::max<qint64>(answers, 1));
    const double correctShare = double(m_judge.numberOfCorrect()) / total;
    m_ui->statisticsIntro->setText(QuizResultPage::introForPercent(correctShare * 100.0));
    m_ui->pieChart->setVisible(answers > 0);
    m_ui->pieChart->setCorrectPercent(correctShare);
    m_ui->pieChart->setMisspelledPercent(double(m_judge.numberOfMisspelled()) / total);
    const auto ofAnswers = [answers](qint64 number) {
        return QStringLiteral("%1 / %2").arg(QString::number(number), QString::number(answers));
    };
    m_ui->statisticsCorrect->setText(ofAnswers(m_judge.numberOfCorrect()));
    m_ui->statisticsMissspelled->setText(ofAnswers(m_judge.numberOfMisspelled()));
    m_ui->statisticsWrong->setText(ofAnswers(m_judge.numberOfWrong()));
    m_ui->popupCard->setColorNeutral();
    m_ui->popupTabView->setCurrentIndex(resultTab);
    placePanel();
    bringWindowToFront();
    m_ui->closeButton->setFocus();
}

void TAVPopupQuizController::endRun()
{
    m_timer.reset();
    m_isRunning = false;
    m_hasCreatedCorrectWordsToAsk = false;
    m_currentWord.reset();
    m_running->stopQuizButton->setEnabled(false);
    m_hub->enableAllToolbarItems();
}

void TAVPopupQuizController::stopQuiz()
{
    if (m_isRunning)
        showStatistics();
}

void TAVPopupQuizController::close()
{
    m_window->close();
}

void TAVPopupQuizController::windowWillClose()
{
    m_timer.reset();
    m_shakeTimer.reset();
    m_editor->hidePanel();
    savePendingAnswer();
    endRun();
    if (m_view->currentPage() == QuizView::popupQuizPage)
        m_showSetup();
}

void TAVPopupQuizController::placePanel()
{
    m_ignoreWindowMove = true;
    m_window->setWindowOpacity(1.0);
    movePanel(QPoint(int(m_windowXPos), int(m_windowYPos)));
    m_window->show();
    movePanel(QPoint(int(m_windowXPos), int(m_windowYPos)));
    platform::clock().callAfter(placingTime, this, [this] { m_ignoreWindowMove = !m_window->isVisible(); });
}

void TAVPopupQuizController::hidePanel()
{
    m_ignoreWindowMove = true;
    m_shakeTimer.reset();
    m_editor->hidePanel();
    m_ui->firstResponderDummy->setFocus();
    // Out of the way even where a desktop still shows it for a moment.
    movePanel(QPoint(1 - m_window->width(), 1 - m_window->height()));
    m_window->setWindowOpacity(0.0);
    m_window->hide();
}

void TAVPopupQuizController::movePanel(const QPoint &position)
{
    m_window->move(position);
}

void TAVPopupQuizController::bringWindowToFront()
{
    const auto bring = [this] {
        m_window->show();
        m_window->raise();
        m_window->activateWindow();
        platform::services().desktop->raiseAboveAll(m_window->winId());
    };
    bring();
    platform::Desktop *desktop = platform::services().desktop;
    if (desktop->canRaiseAboveAll())
        return;
    const QString text = m_currentWord ? AnswerJudge::questionText(*m_currentWord, m_lastAskedForeign)
                                       : m_ui->statisticsIntro->text();
    desktop->notify(platform::localized("Quiz", "popupQuiz"), text, [this, bring] {
        if (m_isRunning || m_ui->popupTabView->currentIndex() == resultTab)
            bring();
    });
}

void TAVPopupQuizController::windowDidMove()
{
    const QPoint position = m_window->pos();
    if (m_ignoreWindowMove || position.x() < 0 || position.y() < 0)
        return;
    m_windowXPos = double(float(position.x()));
    m_windowYPos = double(float(position.y()));
    platform::settings().setValue(settingskeys::bgQuizWindowXOrigin, m_windowXPos);
    platform::settings().setValue(settingskeys::bgQuizWindowYOrigin, m_windowYPos);
}

void TAVPopupQuizController::shakeWindow()
{
    m_ignoreWindowMove = true;
    m_shakeStep = 0;
    const QPoint home = m_window->pos();
    m_shakeTimer = platform::clock().startTimer(shakeInterval, true, [this, home] {
        ++m_shakeStep;
        const bool isLast = m_shakeStep >= shakeSteps;
        movePanel(home + QPoint(isLast ? 0 : m_shakeStep % 2 == 1 ? -shakeWidth : shakeWidth, 0));
        if (isLast) {
            m_ignoreWindowMove = false;
            m_shakeTimer.reset();
        }
    });
}

bool TAVPopupQuizController::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
        windowDidMove();
        break;
    case QEvent::Close:
        windowWillClose();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        drag(*static_cast<QMouseEvent *>(event));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void TAVPopupQuizController::drag(const QMouseEvent &event)
{
    if (event.type() == QEvent::MouseButtonPress && event.button() == Qt::LeftButton) {
        m_isDragging = true;
        m_ignoreWindowMove = false;
        m_dragStart = event.globalPosition().toPoint() - m_window->pos();
    } else if (event.type() == QEvent::MouseMove && m_isDragging) {
        movePanel(event.globalPosition().toPoint() - m_dragStart);
    } else if (event.type() == QEvent::MouseButtonRelease) {
        m_isDragging = false;
    }
}

void TAVPopupQuizController::editLastWord()
{
    if (!m_currentWord)
        return;
    m_editor->showEditWindowForWords({m_currentWord}, vocabulary(), this);
    m_editor->showBeside(m_ui->editButton, m_ui->editButton->rect());
}

void TAVPopupQuizController::closeAddWordPopover()
{
    if (m_editor->isInAddingMode())
        m_editor->closeWordPanel(nullptr);
}

void TAVPopupQuizController::wordPopoverDidEditWords(const TAVWordList &)
{
    m_editor->hidePanel();
    if (m_currentWord)
        showLastTexts();
}

void TAVPopupQuizController::wordPopoverDidDeleteWords(const TAVWordList &)
{
    m_ui->deletedImageView->show();
    m_ui->editButton->setEnabled(false);
    m_editor->hidePanel();
    m_ui->dontAskAgainCheckBox->setEnabled(false);
    m_ui->iKnewItCheckBox->setEnabled(false);
}

void TAVPopupQuizController::wordPopoverDidCancelEditWords(const TAVWordList &)
{
    m_editor->hidePanel();
}

void TAVPopupQuizController::languageTextFieldDidBecomeActive(TAVLanguageTextField *)
{
    if (!vocabulary() || !vocabulary()->isAutoSelectInputSource())
        return;
    platform::services().inputSources->selectInputSource(
        m_lastAskedForeign ? vocabulary()->foreignTextInputSource() : vocabulary()->yourTextInputSource());
}
