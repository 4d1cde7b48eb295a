#include "quiz/forms/TAVQuizSetupController.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/InfoPanels.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/QuizForm.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "ui_TAVQuizSetup.h"
#include "widgets/CardFlip.h"
#include "widgets/TAVCardView.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QLocale>

#include <numeric>

namespace {

/** The main window builds the page once more half a second after it was opened. */
constexpr qint64 secondCallWithinMs = 750;
constexpr qint64 maxProposedWords = 30;
enum DirectionTag { foreignTag, yourTag, bothTag };
enum TagRule { allTagsRule, anyTagRule };

int pluralNumber(qint64 number)
{
    return int(std::min<qint64>(number, std::numeric_limits<int>::max()));
}

} // namespace

TAVQuizSetupController::TAVQuizSetupController(QuizView *view, const VocabularySource *vocabularyController)
    : m_view(view)
    , m_vocabularyController(vocabularyController)
    , m_ui(std::make_unique<Ui::TAVQuizSetup>())
    , m_direction(AskDirection::fromSettings())
{
    m_ui->setupUi(m_view->page(QuizView::setupPage));
    m_view->card()->setIsSplit(false);
    m_levelButtons = {m_ui->quizAskUnknownButton, m_ui->quizAskUltraShortButton, m_ui->quizAskShortTermButton,
                      m_ui->quizAskMidTermButton, m_ui->quizAskLongTermButton,   m_ui->quizAskNativeButton};
    m_dueLabels = {m_ui->unknownNoOfDueLabel, m_ui->ultraShortNoOfDueLabel, m_ui->shortNoOfDueLabel,
                   m_ui->midNoOfDueLabel,     m_ui->longNoOfDueLabel,       m_ui->nativeNoOfDueLabel};
    auto *numberField = m_ui->quizNumberOfWordsStepper->findChild<QLineEdit *>();
    numberField->setObjectName(QStringLiteral("quizNumberOfWordsTextField"));
    numberField->setAccessibleName(platform::localized("Quiz", "numberOfWords"));
    CardStyle::enlarge(m_ui->summaryLabel, 1.7);
    CardStyle::enlarge(m_ui->quizStartQuizButton, 1.15);
    CardStyle::makeDefault(m_ui->quizStartQuizButton);
    CardStyle::setTextColor(m_ui->errorLabel, QColor::fromRgbF(0.68f, 0.2f, 0.29f));
    CardStyle::keepPlaceWhenHidden(m_ui->errorLabel);
    m_infoPanels =
        std::make_unique<InfoPanels>(m_ui->infoTabView, m_ui->promptTabView, announcement::address());
    localize();
    for (int mode = 0; mode < numberOfForms; ++mode)
        m_ui->quizModeSegmentControl->setSegmentEnabled(mode, false);
    connectControls();
}

TAVQuizSetupController::~TAVQuizSetupController() = default;

void TAVQuizSetupController::localize()
{
    m_ui->fromLevelsLabel->setText(platform::localized("Quiz", "fromLevels"));
    m_ui->askInLabel->setText(platform::localized("Quiz", "askIn"));
    m_ui->numberOfWordsLabel->setText(platform::localized("Quiz", "numberOfWords"));
    m_ui->onlyWithTagsLabel->setText(platform::localized("Quiz", "onlyWithTags"));
    m_ui->quizStartQuizButton->setText(platform::localized("Quiz", "startQuiz"));
    m_ui->quizDirectionPopup->setAccessibleName(m_ui->askInLabel->text());
    m_ui->quizNumberOfWordsStepper->setAccessibleName(m_ui->numberOfWordsLabel->text());
    m_ui->quizTagsTokenField->setAccessibleName(m_ui->onlyWithTagsLabel->text());
    m_ui->quizTagsAllAnyPopup->addItem(platform::localized("Quiz", "all"), allTagsRule);
    m_ui->quizTagsAllAnyPopup->addItem(platform::localized("Quiz", "any"), anyTagRule);
    m_ui->quizTagsAllAnyPopup->setAccessibleName(platform::localized("Quiz", "allOrAny"));
    m_ui->quizModeSegmentControl->addSegment(platform::localized("Quiz", "typingQuiz"));
    m_ui->quizModeSegmentControl->addSegment(platform::localized("Quiz", "slideshowQuiz"));
    m_ui->quizModeSegmentControl->addSegment(platform::localized("Quiz", "popupQuiz"));
    m_ui->quizModeSegmentControl->setAccessibleName(platform::localized("Quiz", "setup"));
    for (size_t level = 0; level < m_levelButtons.size(); ++level) {
        m_levelButtons[level]->setLevel(int(level));
        m_levelButtons[level]->setText(LevelPicture::name(level));
    }
}

void TAVQuizSetupController::connectControls()
{
    for (LevelButton *button : m_levelButtons)
        connect(button, &LevelButton::clicked, this, [this, button] { quizListsToAskChanged(button); });
    connect(m_ui->quizDirectionPopup, &QComboBox::activated, this, &TAVQuizSetupController::setAskDirection);
    connect(m_ui->quizTagsAllAnyPopup, &QComboBox::activated, this, [this] { quizListsToAskChanged(); });
    connect(m_ui->quizNumberOfWordsStepper, &QSpinBox::valueChanged, this,
            &TAVQuizSetupController::updateErrorLabel);
    connect(m_ui->quizTagsTokenField, &TokenField::tokensChanged, this, [this] {
        // A tag that is still being typed is no reason to complain.
        if (m_ui->quizTagsTokenField->input()->text().isEmpty())
            tidyTags();
    });
    connect(m_ui->quizTagsTokenField, &TokenField::editingFinished, this, &TAVQuizSetupController::tidyTags);
    m_ui->quizTagsTokenField->setCompletionProvider(
        [this](const QString &substring) { return completionsForSubstring(substring); });
    connect(m_ui->quizStartQuizButton, &QPushButton::clicked, this, &TAVQuizSetupController::startQuiz);
    m_view->result()->setNewQuizAction([this] { showQuiz(); });
    m_view->page(QuizView::setupPage)->installEventFilter(this);
    new ReturnKey(
        m_view->page(QuizView::setupPage), [this] { m_ui->quizStartQuizButton->click(); },
        [this] { return m_view->steps().isPending(); });
}

bool TAVQuizSetupController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && !event->spontaneous())
        takeFocus();
    return QObject::eventFilter(watched, event);
}

void TAVQuizSetupController::takeFocus()
{
    const QWidget *page = m_view->page(QuizView::setupPage);
    if (page->isVisible() && !page->isAncestorOf(QApplication::focusWidget()))
        m_ui->quizStartQuizButton->setFocus();
}

void TAVQuizSetupController::setForm(int mode, QuizForm *form)
{
    m_forms.at(size_t(mode)) = form;
    m_ui->quizModeSegmentControl->setSegmentEnabled(mode, form != nullptr);
}

bool TAVQuizSetupController::isSecondCallOfOpening() const
{
    if (!m_hasStartedSinceOpening || !m_openedAt.isValid())
        return false;
    const qint64 elapsed = m_openedAt.msecsTo(platform::clock().now());
    return elapsed >= 0 && elapsed <= secondCallWithinMs;
}

void TAVQuizSetupController::showQuiz()
{
    // The second call of the opening must not take a run off its page that a quick user has started already.
    if (isSecondCallOfOpening())
        return;
    m_openedAt = platform::clock().now();
    m_hasStartedSinceOpening = false;

    m_infoPanels->hideInfo();
    if (m_ui->quizTagsTokenField->tokens().isEmpty())
        m_ui->quizTagsTokenField->setTokens({platform::localized("Quiz", "allTags")});
    showDirections();
    const LevelCounts counts = countOverDue();
    showCounts(counts);
    if (isSelectionAsked()) {
        showPreSelectedWords();
    } else {
        for (size_t level = 0; level < counts.size(); ++level)
            m_levelButtons[level]->setActive(counts[level] > 0);
        updateNumberOfDueLabelsState();
        m_preSelectedWords.clear();
        takeCounts(counts);
    }
    m_view->card()->setIsSplit(false);
    m_view->card()->setColorNeutral();
    m_view->showPage(QuizView::setupPage);
    m_view->setProgressVisible(false);
    if (!m_infoPanels->showRatingPrompt())
        m_infoPanels->showInfoPanel();
    takeFocus();
}

void TAVQuizSetupController::showDirections()
{
    const TAVLexiconRef vocabulary = m_vocabularyController->vocabulary();
    QComboBox *popup = m_ui->quizDirectionPopup;
    popup->clear();
    if (vocabulary) {
        popup->addItem(vocabulary->foreignLanguageName(), foreignTag);
        popup->addItem(vocabulary->yourLanguageName(), yourTag);
        popup->addItem(platform::localized("Quiz", "Both"), bothTag);
    }
    popup->setCurrentIndex(m_direction.foreignWord && m_direction.yourWord ? bothTag
                           : m_direction.yourWord                          ? yourTag
                                                                           : foreignTag);
}

TAVQuizSetupController::LevelCounts TAVQuizSetupController::countOverDue() const
{
    LevelCounts counts = {};
    if (const TAVLexiconRef vocabulary = m_vocabularyController->vocabulary()) {
        for (size_t level = 0; level < counts.size(); ++level)
            counts[level] = vocabulary->wordsOverDueFromLevel(level, {}, false).size();
    }
    return counts;
}

void TAVQuizSetupController::showCounts(const LevelCounts &counts)
{
    for (size_t level = 0; level < counts.size(); ++level) {
        m_dueLabels[level]->setText(
            platform::localized("Quiz", "wordsDue", nullptr, pluralNumber(counts[level])));
        m_levelButtons[level]->setAccessibleName(LevelPicture::name(level) + QLatin1String(", ") +
                                                 m_dueLabels[level]->text());
    }
    m_allWordsOverDue = std::accumulate(counts.begin(), counts.end(), qint64(0));
}

void TAVQuizSetupController::takeCounts(const LevelCounts &counts)
{
    m_totalNumberOfWordsOverDue = 0;
    for (size_t level = 0; level < counts.size(); ++level) {
        if (m_levelButtons[level]->isChecked())
            m_totalNumberOfWordsOverDue += counts[level];
    }
    setNumberOfWords(std::min(m_totalNumberOfWordsOverDue, maxProposedWords));
    updateErrorLabel();
    updateNumberOfDueLabelsState();
}

void TAVQuizSetupController::showPreSelectedWords()
{
    std::array<bool, TAVLexicon::numberOfLevels> levels = {};
    for (const TAVWordRef &word : m_preSelectedWords)
        levels.at(size_t(std::min<quint64>(word->level(), TAVLexicon::numberOfLevels - 1))) = true;
    for (size_t level = 0; level < levels.size(); ++level)
        m_levelButtons[level]->setActive(levels[level]);
    updateNumberOfDueLabelsState();
    setNumberOfWords(m_preSelectedWords.size());
    updateErrorLabel();
}

void TAVQuizSetupController::quizListsToAskChanged(QAbstractButton *sender)
{
    m_preSelectedWords.clear();
    if (auto *button = qobject_cast<LevelButton *>(sender))
        button->setActive(button->isChecked());
    const LevelCounts counts = countOverDue();
    showCounts(counts);
    takeCounts(counts);
}

void TAVQuizSetupController::setNumberOfWords(qint64 number)
{
    QSpinBox *stepper = m_ui->quizNumberOfWordsStepper;
    const QSignalBlocker quiet(stepper);
    stepper->setMaximum(int(std::max<qint64>(9999, number)));
    stepper->setValue(int(number));
}

void TAVQuizSetupController::updateNumberOfDueLabelsState()
{
    for (size_t level = 0; level < m_dueLabels.size(); ++level) {
        QColor color = m_view->card()->palette().color(QPalette::WindowText);
        color.setAlphaF(float(m_levelButtons[level]->alpha()));
        CardStyle::setTextColor(m_dueLabels[level], color);
    }
}

void TAVQuizSetupController::setAskDirection()
{
    const int tag = m_ui->quizDirectionPopup->currentData().toInt();
    m_direction.foreignWord = tag != yourTag;
    m_direction.yourWord = tag != foreignTag;
    m_direction.store();
    updateErrorLabel();
}

QStringList TAVQuizSetupController::completionsForSubstring(const QString &substring) const
{
    platform::diagnosticLog(QLatin1String("tokenField completions for: ") + substring);
    const TAVLexiconRef vocabulary = m_vocabularyController->vocabulary();
    return vocabulary ? vocabulary->completionTagsForPrefix(substring).value_or(QStringList())
                      : QStringList();
}

void TAVQuizSetupController::tidyTags()
{
    // "All tags" makes way for the first tag that is chosen, and comes back when the last one goes.
    const QString allTags = platform::localized("Quiz", "allTags");
    QStringList tags = m_ui->quizTagsTokenField->tokens();
    if (tags.isEmpty() && !m_ui->quizTagsTokenField->input()->hasFocus())
        tags.append(allTags);
    else if (tags.size() > 1)
        tags.removeAll(allTags);
    if (tags != m_ui->quizTagsTokenField->tokens())
        m_ui->quizTagsTokenField->setTokens(tags);
    updateErrorLabel();
}

TAVTextSet TAVQuizSetupController::chosenTags() const
{
    const QStringList tokens = m_ui->quizTagsTokenField->tokens();
    if (tokens.size() == 1 && tokens.first() == platform::localized("Quiz", "allTags"))
        return {};
    return TAVTextSet(tokens);
}

bool TAVQuizSetupController::mustHaveAllTags() const
{
    return m_ui->quizTagsAllAnyPopup->currentData().toInt() == allTagsRule;
}

QuizChoice TAVQuizSetupController::choice() const
{
    QuizChoice choice;
    for (size_t level = 0; level < choice.levels.size(); ++level)
        choice.levels[level] = m_levelButtons[level]->isChecked();
    choice.numberOfWords = m_ui->quizNumberOfWordsStepper->value();
    choice.tags = chosenTags();
    choice.mustHaveAllTags = mustHaveAllTags();
    choice.wordsOverDue = m_totalNumberOfWordsOverDue;
    return choice;
}

bool TAVQuizSetupController::isUserSetupOK()
{
    const QuizChoice::Check check = choice().check(m_vocabularyController->vocabulary().get());
    m_ui->quizStartQuizButton->setEnabled(check.canStart);
    if (check.message)
        m_ui->errorLabel->setText(platform::localized("Quiz", check.message));
    if (check.isOK)
        m_ui->errorLabel->hide();
    return check.isOK;
}

void TAVQuizSetupController::updateErrorLabel()
{
    m_ui->errorLabel->setVisible(!isUserSetupOK());
    showSummary();
}

void TAVQuizSetupController::showSummary()
{
    if (isSelectionAsked()) {
        m_ui->summaryLabel->setText(
            platform::localized("Quiz", "summarySelected", nullptr, pluralNumber(m_preSelectedWords.size())));
    } else if (m_allWordsOverDue > 0) {
        m_ui->summaryLabel->setText(
            platform::localized("Quiz", "summaryDue", nullptr, pluralNumber(m_allWordsOverDue)));
    } else {
        m_ui->summaryLabel->setText(platform::localized("Quiz", "summaryNothingDue"));
    }
    m_ui->planLabel->setText(m_ui->errorLabel->isHidden() ? plan() : platform::localized("Quiz", "planOpen"));
}

QString TAVQuizSetupController::plan() const
{
    if (isSelectionAsked())
        return platform::localized("Quiz", "planSelected");
    const QuizChoice chosen = choice();
    QStringList levels;
    for (size_t level = 0; level < chosen.levels.size(); ++level) {
        if (chosen.levels[level])
            levels.append(LevelPicture::name(level));
    }
    const QLocale locale;
    const QString answer =
        m_direction.foreignWord && m_direction.yourWord
            ? platform::localized("Quiz", "planBothLanguages")
            : platform::localized("Quiz", "planLanguage").arg(m_ui->quizDirectionPopup->currentText());
    QString text = platform::localized("Quiz", "planWords", nullptr, pluralNumber(chosen.numberOfWords))
                       .arg(locale.createSeparatedList(levels)) +
                   QLatin1Char(' ') + answer;
    if (!chosen.tags.isEmpty()) {
        const QString tags = locale.createSeparatedList(QStringList(chosen.tags.values()));
        text += QLatin1Char(' ') + (chosen.mustHaveAllTags ? platform::localized("Quiz", "planAllTags")
                                                           : platform::localized("Quiz", "planAnyTag"))
                                       .arg(tags);
    }
    return text;
}

QuizForm *TAVQuizSetupController::chosenForm() const
{
    const int mode = m_ui->quizModeSegmentControl->selectedSegment();
    return m_forms.at(mode > 0 && mode < numberOfForms ? size_t(mode) : 0);
}

void TAVQuizSetupController::fillOptions(QuizForm &form) const
{
    const QuizChoice chosen = choice();
    form.setAskUnknown(chosen.levels[0]);
    form.setAskUltrashort(chosen.levels[1]);
    form.setAskShortterm(chosen.levels[2]);
    form.setAskMidterm(chosen.levels[3]);
    form.setAskLongterm(chosen.levels[4]);
    form.setAskNative(chosen.levels[5]);
    form.setNumberOfWordsToAsk(chosen.numberOfWords);
    form.setIsWordsMustMatchAllTags(chosen.mustHaveAllTags);
    form.setFilterTags(chosen.tags);
    form.setAskForForeignWord(m_direction.foreignWord);
    form.setAskForYourWord(m_direction.yourWord);
}

void TAVQuizSetupController::startQuiz()
{
    if (m_isStarting)
        return;
    tidyTags();
    if (!isUserSetupOK()) {
        m_ui->errorLabel->show();
        return;
    }
    QuizForm *form = chosenForm();
    if (!form)
        return;
    for (QuizForm *each : m_forms) {
        if (each)
            each->finishSteps();
    }
    m_view->steps().runNow();
    form->leaveRun();
    form->setVocabulary(m_vocabularyController->vocabulary());
    if (isSelectionAsked()) {
        form->setWordsToAsk(m_preSelectedWords);
        form->setNumberOfWordsToAsk(m_preSelectedWords.size());
    } else {
        fillOptions(*form);
        form->createWordsToAsk();
    }
    if (form->wordsToAsk().isEmpty()) {
        m_ui->errorLabel->setText(platform::localized("Quiz", "noMatchingWordsMsg"));
        m_ui->errorLabel->show();
        return;
    }
    m_ui->errorLabel->hide();
    m_isStarting = true;
    m_hasStartedSinceOpening = true;
    m_view->steps().add(this, [this, form] { startForm(form); });
    m_preSelectedWords.clear();
    m_infoPanels->hideInfo();
}

void TAVQuizSetupController::startForm(QuizForm *form)
{
    m_isStarting = false;
    m_view->flip()->flipFirstHalf();
    m_view->card()->setColorNeutral();
    m_view->card()->setIsSplit(false);
    form->startQuiz();
    m_view->showPage(form->page());
    m_view->flip()->flipSecondHalf();
}
