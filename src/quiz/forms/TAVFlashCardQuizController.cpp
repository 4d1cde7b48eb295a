#include "quiz/forms/TAVFlashCardQuizController.h"

#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/FlashCardRestart.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "ui_TAVFlashCardQuiz.h"
#include "usage/RatingPrompt.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/CardFlip.h"
#include "widgets/CardText.h"
#include "widgets/Icons.h"
#include "widgets/KeyReleases.h"
#include "widgets/TAVCardView.h"

#include <QKeyEvent>
#include <QShortcut>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds questionDelay = 10ms;
constexpr std::chrono::milliseconds correctMarkDelay = 600ms;
/** Deliberately a little shorter than after a known word. */
constexpr std::chrono::milliseconds wrongMarkDelay = 500ms;
/** How soon a paused autoplay sees that the user is back. */
constexpr std::chrono::milliseconds awayInterval = 500ms;
enum ButtonsPage { markButtons, showButton };

} // namespace

TAVFlashCardQuizController::TAVFlashCardQuizController(QuizView *view, VocabularyDocument &document)
    : m_view(view)
    , m_ui(std::make_unique<Ui::TAVFlashCardQuiz>())
    , m_run(*this, document)
    , m_keyReleases(KeyReleases::ofApplication())
{
    QWidget *page = m_view->page(QuizView::flashCardPage);
    m_ui->setupUi(page);
    m_editor = std::make_unique<TAVWordPopoverController>(page, document);
    for (QLabel *label :
         {m_ui->upperLevelImageView, m_ui->upArrowImageView, m_ui->downArrowImageView,
          m_ui->lowerLevelImageView, m_ui->deletedImageView,
          static_cast<QLabel *>(m_ui->correctAnswerTextField), static_cast<QLabel *>(m_ui->commentTextField)})
        CardStyle::keepPlaceWhenHidden(label);
    for (QWidget *text : {static_cast<QWidget *>(m_ui->questionTextField),
                          static_cast<QWidget *>(m_ui->correctAnswerTextField),
                          static_cast<QWidget *>(m_ui->commentTextField)})
        text->setAttribute(Qt::WA_TransparentForMouseEvents);
    CardStyle::setTextColor(m_ui->commentTextField, CardText::fadedTextColor());
    LevelPicture::showArrow(m_ui->upArrowImageView, true);
    LevelPicture::showArrow(m_ui->downArrowImageView, false);
    CardStyle::setPicture(m_ui->deletedImageView, QStringLiteral("deleted"), LevelPicture::size);
    CardStyle::makeDefault(m_ui->showAnswerButton);
    m_ui->showAnswerHiddenButton->lower();
    page->setFocusPolicy(Qt::StrongFocus);

    auto *place = m_view->result()->extraPlace();
    m_restartControls = new FlashCardRestart(place);
    (new QVBoxLayout(place))->addWidget(m_restartControls);
    place->layout()->setContentsMargins({});
    place->hide();

    localize();
    showPlayState();
    connectControls();
    addShortcuts();
    page->installEventFilter(this);
    m_view->result()->installEventFilter(this);

    m_ui->flipTimeoutSlider->setValue(FlashCardPace::fromSettings().position);
    changeFlipTimeout();
}

TAVFlashCardQuizController::~TAVFlashCardQuizController() = default;

void TAVFlashCardQuizController::localize()
{
    m_ui->offLabel->setText(platform::localized("Learn", "off"));
    m_ui->slowLabel->setText(platform::localized("Learn", "slow"));
    m_ui->normalLabel->setText(platform::localized("Learn", "normal"));
    m_ui->fastLabel->setText(platform::localized("Learn", "fast"));
    m_ui->flipTimeoutSlider->setAccessibleName(platform::localized("Learn", "speed"));
    m_ui->showAnswerButton->setText(platform::localized("Learn", "showAnswer"));
    m_ui->correctButton->setText(platform::localized("Learn", "known"));
    m_ui->wrongButton->setText(platform::localized("Learn", "notKnown"));
    m_ui->stopButton->setText(platform::localized("Quiz", "showResults"));
    m_ui->dontAskAgainCheckBox->setText(platform::localized("Quiz", "dontAskAgain"));
    m_ui->editButton->setText(platform::localized("Quiz", "edit"));
    m_ui->deletedImageView->setToolTip(platform::localized("Quiz", "wordDeleted"));
    m_ui->deletedImageView->setAccessibleName(platform::localized("Quiz", "wordDeleted"));
}

void TAVFlashCardQuizController::connectControls()
{
    using Self = TAVFlashCardQuizController;
    connect(m_ui->showAnswerButton, &QPushButton::clicked, this, &Self::showSolution);
    connect(m_ui->showAnswerHiddenButton, &QAbstractButton::clicked, this, &Self::showNext);
    connect(m_ui->correctButton, &QPushButton::clicked, this, &Self::markCorrect);
    connect(m_ui->wrongButton, &QPushButton::clicked, this, &Self::markWrong);
    connect(m_ui->playButton, &QPushButton::clicked, this, &Self::togglePlay);
    connect(m_ui->stopButton, &QPushButton::clicked, this, &Self::showStatistics);
    connect(m_ui->flipTimeoutSlider, &QSlider::valueChanged, this, &Self::changeFlipTimeout);
    connect(m_ui->editButton, &QPushButton::clicked, this, &Self::editCurrentWord);
    connect(m_ui->dontAskAgainCheckBox, &QCheckBox::toggled, this,
            [this](bool isOn) { m_run.setIsExcluded(isOn); });
    connect(m_restartControls, &FlashCardRestart::restartRequested, this, &Self::startAgain);
    new ReturnKey(
        m_view->page(QuizView::flashCardPage),
        [this] {
            if (!m_isAutoPlay)
                showNext();
        },
        [this] { return m_view->steps().isPending(); });
}

void TAVFlashCardQuizController::addShortcuts()
{
    QWidget *page = m_view->page(QuizView::flashCardPage);
    const auto add = [this, page](const QList<QKeySequence> &keys, const std::function<void()> &action) {
        for (const QKeySequence &key : keys) {
            auto *shortcut = new QShortcut(key, page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
            shortcut->setAutoRepeat(false);
            connect(shortcut, &QShortcut::activated, this, action);
        }
    };
    // A mark by key counts only for a solution that is seen.
    const auto mark = [this](QAbstractButton *button) {
        if (m_isShowingSolution && button->isVisible())
            button->click();
    };
    add({Qt::Key_Space}, [this] {
        if (!m_isAutoPlay)
            showNext();
    });
    add({Qt::Key_Right, Qt::Key_C}, [this, mark] { mark(m_ui->correctButton); });
    add({Qt::Key_Left, Qt::Key_X}, [this, mark] { mark(m_ui->wrongButton); });
    add({Qt::Key_P}, [this] {
        if (m_ui->playButton->isEnabled())
            m_ui->playButton->click();
    });
    for (auto *button : page->findChildren<QAbstractButton *>())
        button->installEventFilter(this);
    m_ui->flipTimeoutSlider->installEventFilter(this);
}

bool TAVFlashCardQuizController::isKeyOfControl(const QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Left || key == Qt::Key_Right;
}

bool TAVFlashCardQuizController::eventFilter(QObject *watched, QEvent *event)
{
    QWidget *page = m_view->page(QuizView::flashCardPage);
    if (watched != page && watched != m_view->result() && isKeyOfControl(*event)) {
        event->accept();
        return true;
    }
    // A key that is held down would run through the words; its repeats mustn't become shortcuts.
    if (watched == page && event->type() == QEvent::ShortcutOverride &&
        m_keyReleases->isRepeat(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    // A minimised window is left as well: nobody sees what would be booked. A mark was made by the user, and
    // is booked all the same.
    if (event->type() == QEvent::Hide) {
        if (watched == page) {
            if (m_isAutoPlay)
                togglePlay();
            m_editor->hidePanel();
        } else {
            m_restartControls->endCountdown();
        }
    } else if (event->type() == QEvent::Show && !event->spontaneous() && watched == page) {
        takeFocus();
    } else if (event->type() == QEvent::Resize && watched == page) {
        m_ui->showAnswerHiddenButton->setGeometry(page->rect());
    }
    return QObject::eventFilter(watched, event);
}

void TAVFlashCardQuizController::takeFocus()
{
    if (QWidget *page = m_view->page(QuizView::flashCardPage); page->isVisible())
        page->setFocus();
}

void TAVFlashCardQuizController::finishSteps()
{
    if (m_showNextTimer)
        showNext();
}

void TAVFlashCardQuizController::changeFlipTimeout()
{
    const int position = m_ui->flipTimeoutSlider->value();
    m_pace = FlashCardPace::ofPosition(position);
    m_pace.store();
    m_ui->playButton->setEnabled(position > 0);
    // Without a pace, the words would run through faster than anybody can read.
    if (position == 0 && m_isAutoPlay)
        togglePlay();
}

void TAVFlashCardQuizController::startQuiz()
{
    stopPlaying();
    m_restartControls->endCountdown();
    m_run.begin();
    showBeginning();
}

void TAVFlashCardQuizController::showBeginning()
{
    m_view->card()->setIsSplit(false);
    m_isShowingSolution = false;
    m_view->showProgress(m_run.progress());
    m_view->statusText()->show();
    m_view->setProgressVisible(true);
    setQuestion();
    // If the user has gone to another tab meanwhile, autoplay would book the words unseen.
    if (m_ui->flipTimeoutSlider->value() > 0 && m_view->isVisible())
        togglePlay();
}

void TAVFlashCardQuizController::setQuestion()
{
    m_autoPlayTimer.reset();
    m_isQuestionComing = false;
    m_ui->correctButton->setChecked(false);
    m_ui->wrongButton->setChecked(false);
    m_ui->dontAskAgainCheckBox->setChecked(false);
    showTexts();
    m_ui->correctAnswerTextField->hide();
    m_ui->commentTextField->hide();
    m_ui->editButton->setEnabled(false);
    m_ui->deletedImageView->hide();
    m_ui->buttonsTabView->setCurrentIndex(showButton);

    const quint64 level = currentWord()->level();
    LevelPicture::showLevel(m_ui->levelImageView, level);
    LevelPicture::showLevel(m_ui->upperLevelImageView, FlashCardRun::levelAbove(level));
    LevelPicture::showLevel(m_ui->lowerLevelImageView, FlashCardRun::levelBelow(level));
    showMarks();
    // The keys of this page work wherever the last click has left the focus.
    takeFocus();
    if (m_isAutoPlay)
        armAutoPlay(m_pace.showAnswerTimeout, &TAVFlashCardQuizController::showSolution);
}

void TAVFlashCardQuizController::showTexts()
{
    const TAVWord &word = *currentWord();
    m_ui->questionTextField->setWord(m_run.questionText(word), CardText::questionLimit);
    m_ui->correctAnswerTextField->setWord(m_run.expectedText(word), CardText::answerLimit);
    m_ui->commentTextField->setText(word.comment());
}

void TAVFlashCardQuizController::flip(bool reverse, const std::function<void()> &change)
{
    if (m_view->currentPage() == QuizView::setupPage) {
        change();
        return;
    }
    CardFlip *flip = m_view->flip();
    flip->setReverseDirection(reverse);
    flip->setPulsesOpacity(true);
    flip->flipFirstHalf();
    change();
    flip->flipSecondHalf();
    flip->setReverseDirection(false);
    flip->setPulsesOpacity(false);
}

void TAVFlashCardQuizController::flipSetQuestionAndReverseDirection(bool reverse)
{
    flip(reverse, [this] { setQuestion(); });
}

void TAVFlashCardQuizController::showSolution()
{
    m_showNextTimer.reset();
    if (!currentWord() || m_isQuestionComing || m_isShowingSolution)
        return;
    flip(true, [this] {
        // With its button gone, the focus would go on to a mark, and take the arrows with it.
        if (m_ui->showAnswerButton->hasFocus())
            takeFocus();
        m_isShowingSolution = true;
        m_autoPlayTimer.reset();
        m_ui->correctAnswerTextField->show();
        m_ui->commentTextField->show();
        if (m_isAutoPlay)
            armAutoPlay(m_pace.flipTimeout, &TAVFlashCardQuizController::showNext);
        m_ui->dontAskAgainCheckBox->setEnabled(m_run.offersExclusion());
        m_ui->dontAskAgainCheckBox->setVisible(m_run.offersExclusion());
        m_ui->dontAskAgainCheckBox->setChecked(false);
        m_ui->editButton->setEnabled(true);
        m_ui->buttonsTabView->setCurrentIndex(markButtons);
    });
}

void TAVFlashCardQuizController::markCorrect()
{
    takeMark(m_ui->wrongButton, correctMarkDelay);
}

void TAVFlashCardQuizController::markWrong()
{
    takeMark(m_ui->correctButton, wrongMarkDelay);
}

void TAVFlashCardQuizController::takeMark(QAbstractButton *otherMark, std::chrono::milliseconds delay)
{
    otherMark->setChecked(false);
    // The word that the card still shows may be booked already.
    if (!currentWord() || m_isQuestionComing)
        return;
    armShowNext(delay);
    showMarks();
}

CardMark TAVFlashCardQuizController::mark() const
{
    if (m_ui->wrongButton->isChecked())
        return CardMark::notKnown;
    return m_ui->correctButton->isChecked() ? CardMark::known : CardMark::none;
}

void TAVFlashCardQuizController::showMarks()
{
    switch (mark()) {
    case CardMark::known:
        m_view->card()->setColorCorrect();
        break;
    case CardMark::notKnown:
        m_view->card()->setColorWrong();
        break;
    case CardMark::none:
        m_view->card()->setColorNeutral();
        break;
    }
    const bool rises = mark() == CardMark::known && currentWord()->level() < QuizRun::maxLevel;
    const bool falls = mark() == CardMark::notKnown && currentWord()->level() > 0;
    m_ui->upperLevelImageView->setVisible(rises);
    m_ui->upArrowImageView->setVisible(rises);
    m_ui->lowerLevelImageView->setVisible(falls);
    m_ui->downArrowImageView->setVisible(falls);
}

void TAVFlashCardQuizController::armAutoPlay(int seconds, Step step)
{
    m_autoPlayTimer.reset();
    m_autoPlayTimer =
        platform::clock().startTimer(std::chrono::seconds(seconds), false, [this, seconds, step] {
            if (isAway())
                waitForReturn(seconds, step);
            else
                (this->*step)();
        });
}

void TAVFlashCardQuizController::waitForReturn(int seconds, Step step)
{
    m_autoPlayTimer = platform::clock().startTimer(awayInterval, true, [this, seconds, step] {
        if (!isAway())
            armAutoPlay(seconds, step);
    });
}

bool TAVFlashCardQuizController::isAway() const
{
    return platform::services().desktop->isOnAnotherDesktop(m_view->window()->winId());
}

void TAVFlashCardQuizController::armShowNext(std::chrono::milliseconds delay)
{
    m_showNextTimer.reset();
    m_showNextTimer = platform::clock().startTimer(delay, false, [this] { showNext(); });
}

void TAVFlashCardQuizController::showNext()
{
    m_showNextTimer.reset();
    if (!currentWord() || m_isQuestionComing)
        return;
    const bool wasPlaying = m_autoPlayTimer != nullptr;
    m_autoPlayTimer.reset();
    if (wasPlaying && m_isAutoPlay) {
        if (m_isShowingSolution)
            armAutoPlay(m_pace.showAnswerTimeout, &TAVFlashCardQuizController::showSolution);
        else
            armAutoPlay(m_pace.flipTimeout, &TAVFlashCardQuizController::showNext);
    }
    if (!wasPlaying && !m_isShowingSolution) {
        showSolution();
        return;
    }

    m_run.book(mark());
    askNext();
    m_run.saveCard();
}

void TAVFlashCardQuizController::askNext()
{
    m_isShowingSolution = false;
    m_ui->dontAskAgainCheckBox->setChecked(false);
    m_run.askNext();
    if (currentWord()) {
        m_isQuestionComing = true;
        platform::clock().callAfter(questionDelay, this, [this] {
            if (m_isQuestionComing)
                flipSetQuestionAndReverseDirection(false);
        });
    } else {
        if (m_isAutoPlay)
            togglePlay();
        showStatistics();
    }
    m_view->showProgress(m_run.progress());
}

void TAVFlashCardQuizController::togglePlay()
{
    m_autoPlayTimer.reset();
    m_isAutoPlay = !m_isAutoPlay;
    if (m_isAutoPlay && m_isShowingSolution)
        armAutoPlay(m_pace.flipTimeout, &TAVFlashCardQuizController::showNext);
    else if (m_isAutoPlay)
        armAutoPlay(m_pace.showAnswerTimeout, &TAVFlashCardQuizController::showSolution);
    showPlayState();
}

void TAVFlashCardQuizController::showPlayState()
{
    m_ui->showAnswerButton->setEnabled(!m_isAutoPlay);
    m_ui->showAnswerHiddenButton->setEnabled(!m_isAutoPlay);
    m_ui->showAnswerButton->setVisible(!m_isAutoPlay);
    m_ui->playButton->setText(m_isAutoPlay ? platform::localized("Learn", "pause")
                                           : platform::localized("Learn", "play"));
    m_ui->playButton->setIcon(
        Icons::icon(m_isAutoPlay ? QStringLiteral("pause") : QStringLiteral("play"), CardText::textColor()));
}

void TAVFlashCardQuizController::stopPlaying()
{
    if (m_isAutoPlay)
        togglePlay();
    m_showNextTimer.reset();
}

void TAVFlashCardQuizController::showStatistics()
{
    m_view->steps().add(this, [this] { executeShowStatistics(); });
}

void TAVFlashCardQuizController::executeShowStatistics()
{
    // A double click asks twice for the same result.
    if (m_view->currentPage() == QuizView::resultPage)
        return;
    stopPlaying();
    m_restartControls->endCountdown();
    m_isQuestionComing = false;
    m_view->flip()->flipFirstHalf();
    m_view->card()->setIsSplit(false);
    m_run.end(m_isShowingSolution ? mark() : CardMark::none);
    m_ui->dontAskAgainCheckBox->setChecked(false);
    m_isShowingSolution = false;

    m_view->showPage(QuizView::resultPage);
    m_view->card()->setColorNeutral();
    m_view->result()->setResult(m_run.result(), platform::localized("Learn", "skipped"),
                                [this] { restartQuizWithWrong(); });
    m_view->result()->extraPlace()->show();
    m_view->result()->focusDefaultButton();
    m_view->flip()->flipSecondHalf();
    m_view->setProgressVisible(false);
    RatingPrompt::shared()->logEvent(1);
}

void TAVFlashCardQuizController::restartQuizWithWrong()
{
    m_view->steps().add(this, [this] { executeRestartQuizWithWrong(); });
}

void TAVFlashCardQuizController::executeRestartQuizWithWrong()
{
    if (m_run.wrongAnsweredWords().isEmpty())
        return;
    m_restartControls->endCountdown();
    m_view->flip()->flipFirstHalf();
    m_run.beginWithWrongWords();
    showBeginning();
    m_view->showPage(QuizView::flashCardPage);
    m_view->flip()->flipSecondHalf();
}

void TAVFlashCardQuizController::restartCountdown()
{
    m_restartControls->restartCountdown();
}

void TAVFlashCardQuizController::startAgain()
{
    if (wordsToAsk().isEmpty())
        return;
    m_view->flip()->flipFirstHalf();
    setWordsToAsk(wordsToAsk());
    startQuiz();
    m_view->showPage(QuizView::flashCardPage);
    m_view->flip()->flipSecondHalf();
}

void TAVFlashCardQuizController::editCurrentWord()
{
    if (!currentWord())
        return;
    // The word must stay while the user edits it.
    stopPlaying();
    m_editor->showEditWindowForWords({currentWord()}, vocabulary(), this);
    m_editor->showBeside(m_ui->editButton, m_ui->editButton->rect());
}

void TAVFlashCardQuizController::closeAddWordPopover()
{
    if (m_editor->isInAddingMode())
        m_editor->closeWordPanel(nullptr);
}

void TAVFlashCardQuizController::wordPopoverDidEditWords(const TAVWordList &words)
{
    m_editor->hidePanel();
    const TAVWordList gone = m_run.goneWords(words);
    if (gone.contains(currentWord())) {
        m_ui->editButton->setEnabled(false);
        m_ui->deletedImageView->show();
        m_showNextTimer.reset();
        askNext();
    } else if (currentWord()) {
        showTexts();
    }
    m_run.forgetWords(gone);
}

void TAVFlashCardQuizController::wordPopoverDidDeleteWords(const TAVWordList &words)
{
    m_editor->hidePanel();
    // The run may have moved on while the editor was open.
    if (words.contains(currentWord())) {
        m_ui->editButton->setEnabled(false);
        m_ui->deletedImageView->show();
        showNext();
    }
    m_run.forgetWords(words);
}

void TAVFlashCardQuizController::wordPopoverDidCancelEditWords(const TAVWordList &)
{
    m_editor->hidePanel();
}
