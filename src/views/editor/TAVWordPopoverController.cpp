#include "views/editor/TAVWordPopoverController.h"

#include "app/ground/AppGround.h"
#include "app/ground/SettingsTable.h"
#include "document/VocabularyDocument.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "ui_TAVWordPopover.h"
#include "views/editor/KeptKeys.h"
#include "widgets/ArrowPopup.h"
#include "widgets/KeyReleases.h"

#include <QApplication>
#include <QKeyEvent>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds focusDelay = 500ms;
constexpr quint64 nativeLevel = 5;
/** Far above what anybody types; a dropped text full of separators would keep the program busy for ever. */
constexpr qsizetype maxPairs = 500;

void enableAndShow(QWidget *control, bool flag)
{
    control->setEnabled(flag);
    control->setVisible(flag);
}

} // namespace

TAVWordPopoverController::TAVWordPopoverController(QWidget *parentWidget, VocabularyDocument &document)
    : QObject(parentWidget)
    , m_ui(std::make_unique<Ui::TAVWordPopover>())
    , m_popup(new ArrowPopup(parentWidget))
    , m_document(document)
    , m_keyReleases(KeyReleases::ofApplication())
{
    auto *panel = new QWidget;
    m_ui->setupUi(panel);
    m_popup->setContent(panel);
    m_keptKeys = std::make_unique<KeptKeys>(m_popup, parentWidget);
    localize();
    connectControls();
}

TAVWordPopoverController::~TAVWordPopoverController()
{
    m_keptKeys.reset();
    delete m_popup.data();
}

void TAVWordPopoverController::localize()
{
    m_ui->addButton->setText(platform::localized("Vocabulary", "add"));
    m_ui->cancelButton->setText(platform::localized("Vocabulary", "cancel"));
    m_ui->deleteButton->setText(platform::localized("Vocabulary", "delete"));
    m_ui->quizSelectedButton->setText(platform::localized("Vocabulary", "quizSelectedWords"));
    m_ui->dontAskAgainCheckBox->setText(platform::localized("Vocabulary", "dontAskAgain"));
    m_ui->commentLabel->setText(platform::localized("Vocabulary", "comment"));
    m_ui->tagsLabel->setText(platform::localized("Vocabulary", "topicTags"));
    m_ui->tagsTokenField->setPlaceholderText(platform::localized("Vocabulary", "separateWithComma"));
    m_ui->commentTextField->setAccessibleName(m_ui->commentLabel->text());
    m_ui->commentTextField->setStandIn(variousTexts().comment);
    m_ui->tagsTokenField->setAccessibleName(m_ui->tagsLabel->text());
}

void TAVWordPopoverController::connectControls()
{
    for (QPushButton *button : {m_ui->okButton, m_ui->addButton, m_ui->cancelButton})
        connect(button, &QPushButton::clicked, this, [this, button] { closeWordPanel(button); });
    connect(m_ui->deleteButton, &QPushButton::clicked, this, &TAVWordPopoverController::deleteWord);
    connect(m_ui->quizSelectedButton, &QPushButton::clicked, this, [this] {
        if (m_quizSelected)
            m_quizSelected();
    });
    connect(m_popup.data(), &ArrowPopup::escapePressed, this, [this] { closeWordPanel(m_ui->cancelButton); });
    for (TAVLanguageTextField *field :
         {m_ui->yourLangWordTextField, m_ui->foreignWordTextField, m_ui->commentTextField}) {
        field->setOhDelegate(this);
        field->installEventFilter(this);
        connect(field, &TAVLanguageTextField::textShouldEndEditing, this,
                &TAVWordPopoverController::switchKeyboardBack);
    }
    m_ui->tagsTokenField->setOhDelegate(this);
    connect(m_ui->tagsTokenField, &TAVLanguageTokenField::textShouldEndEditing, this,
            &TAVWordPopoverController::switchKeyboardBack);
    m_ui->tagsTokenField->setCompletionProvider([this](const QString &prefix) {
        platform::diagnosticLog(QLatin1String("tokenCell completions for: ") + prefix);
        return m_vocabulary ? m_vocabulary->completionTagsForPrefix(prefix).value_or(QStringList())
                            : QStringList();
    });
    // Return that no field wants reaches the panel.
    m_popup->installEventFilter(this);
}

void TAVWordPopoverController::setQuizSelectedAction(std::function<void()> action)
{
    m_quizSelected = std::move(action);
}

void TAVWordPopoverController::showEditWindowForWords(const TAVWordList &words,
                                                      const TAVLexiconRef &vocabulary,
                                                      TAVWordPopoverDelegate *delegate)
{
    rememberUnsavedTexts();
    m_isActive = true;
    m_failedEdit.reset();
    m_selectedWords = words;
    m_vocabulary = vocabulary;
    m_delegate = delegate;
    setupPopoverGUI();
}

void TAVWordPopoverController::showAddWindowForWords(const TAVWordList &words,
                                                     const TAVLexiconRef &vocabulary,
                                                     TAVWordPopoverDelegate *delegate)
{
    m_isInAddingMode = true;
    showEditWindowForWords(words, vocabulary, delegate);
}

void TAVWordPopoverController::showBeside(QWidget *widget, const QRect &rectangle)
{
    m_popup->showBeside(widget, rectangle);
}

void TAVWordPopoverController::hidePanel()
{
    m_focusTimer.reset();
    if (m_popup->isVisible())
        m_keptKeys->drop();
    rememberUnsavedTexts();
    m_popup->hide();
}

void TAVWordPopoverController::keepKeys()
{
    m_keptKeys->begin();
}

void TAVWordPopoverController::dropKeptKeys()
{
    m_keptKeys->drop();
}

bool TAVWordPopoverController::isPanelVisible() const
{
    return m_popup->isVisible();
}

void TAVWordPopoverController::setupPopoverGUI()
{
    const bool isMany = m_selectedWords.size() > 1;
    enableAndShow(m_ui->addButton, m_isInAddingMode);
    enableAndShow(m_ui->deleteButton, !m_isInAddingMode);
    enableAndShow(m_ui->quizSelectedButton, isMany && m_quizSelected);
    m_ui->okButton->setText(m_isInAddingMode ? platform::localized("Vocabulary", "wordPopOverAddMore")
                                             : platform::localized("Vocabulary", "wordPopOverEdit"));
    const QString yourName = m_vocabulary->yourLanguageNameIfAny() ? m_vocabulary->yourLanguageName()
                                                                   : AppGround::selectedLocaleName();
    m_ui->yourLangNameTextField->setText(yourName);
    m_ui->foreignLangNameTextField->setText(m_vocabulary->foreignLanguageName());
    m_ui->yourLangWordTextField->setAccessibleName(yourName);
    m_ui->foreignWordTextField->setAccessibleName(m_vocabulary->foreignLanguageName());
    m_isSwitchTagsKeyboardToForeign = settings::isSwitchKeyboardTagsToForeign.value();
    m_isSwitchCommentKeyboardToForeign = settings::isSwitchKeyboardCommentToForeign.value();

    if (isMany)
        showManyWords();
    else if (!m_selectedWords.isEmpty())
        showOneWord(*m_selectedWords.last());
    m_shownContent = content();
    if (m_popup->isVisible())
        m_popup->adjustSize();
    focusSoon();
}

void TAVWordPopoverController::showOneWord(const TAVWord &word)
{
    m_ui->yourLangWordTextField->setText(word.yourWord());
    m_ui->foreignWordTextField->setText(word.foreignWord());
    m_ui->commentTextField->setText(word.comment());
    m_ui->tagsTokenField->setTokens(word.tagsSorted());
    m_ui->yourLangWordTextField->setEnabled(true);
    m_ui->foreignWordTextField->setEnabled(true);
    m_ui->dontAskAgainCheckBox->setTristate(false);
    m_ui->dontAskAgainCheckBox->setChecked(word.dontAskAgain());
    enableAndShow(m_ui->dontAskAgainCheckBox, word.level() >= nativeLevel);
}

void TAVWordPopoverController::showManyWords()
{
    const WordEdits::Summary summary = WordEdits::summaryOf(m_selectedWords);
    m_ui->dontAskAgainCheckBox->setTristate(true);
    m_ui->dontAskAgainCheckBox->setCheckState(summary.allFlagged    ? Qt::Checked
                                              : summary.noneFlagged ? Qt::Unchecked
                                                                    : Qt::PartiallyChecked);
    const auto [various, variousTag] = variousTexts();
    m_ui->yourLangWordTextField->setText(various);
    m_ui->foreignWordTextField->setText(various);
    m_ui->yourLangWordTextField->setEnabled(false);
    m_ui->foreignWordTextField->setEnabled(false);
    m_ui->commentTextField->setText(summary.noComments ? QString() : various);
    m_ui->tagsTokenField->setTokens(summary.sameTags ? m_selectedWords.first()->tagsSorted()
                                                     : QStringList{variousTag});
    enableAndShow(m_ui->dontAskAgainCheckBox, summary.allNative);
}

void TAVWordPopoverController::focusSoon()
{
    m_focusTimer = platform::clock().startTimer(focusDelay, false, [this] {
        if (!m_popup->isVisible())
            return;
        // A reload may come while the user works in another program.
        if (QApplication::activeWindow())
            m_popup->activateWindow();
        QWidget *first = m_ui->foreignWordTextField->isEnabled()
                             ? static_cast<QWidget *>(m_ui->foreignWordTextField)
                             : m_ui->commentTextField;
        first->setFocus();
        m_keptKeys->deliverTo(first);
    });
}

WordEdits::Content TAVWordPopoverController::content() const
{
    WordEdits::Content content;
    content.yourWord = m_ui->yourLangWordTextField->text();
    content.foreignWord = m_ui->foreignWordTextField->text();
    content.comment = m_ui->commentTextField->text();
    content.tags = m_ui->tagsTokenField->tokens();
    content.dontAskAgain = m_ui->dontAskAgainCheckBox->checkState() == Qt::Checked;
    return content;
}

WordEdits::VariousTexts TAVWordPopoverController::variousTexts() const
{
    return {platform::localized("Vocabulary", "<Various Values>"),
            platform::localized("Vocabulary", "Various Values")};
}

void TAVWordPopoverController::rememberUnsavedTexts()
{
    const WordEdits::Content typed = content();
    if (!m_popup->isVisible() || !m_vocabulary || m_selectedWords.isEmpty() || typed == m_shownContent)
        return;
    m_shownContent = typed;
    if (m_isInAddingMode)
        m_document.rememberUnsavedAddition(*m_vocabulary, typed);
    else
        m_document.rememberUnsaved(*m_vocabulary, m_selectedWords, typed, variousTexts());
}

void TAVWordPopoverController::closeWordPanel(QObject *sender)
{
    const bool saves = sender && (sender == m_ui->okButton || sender == m_ui->addButton);
    if (!saves) {
        m_focusTimer.reset();
        rememberUnsavedTexts();
        if (m_delegate && m_isInAddingMode)
            m_delegate->wordPopoverDidCancelAddingWords(m_selectedWords);
        else if (m_delegate)
            m_delegate->wordPopoverDidCancelEditWords(m_selectedWords);
        m_isInAddingMode = false;
        m_failedEdit.reset();
        return;
    }
    if (m_selectedWords.isEmpty() || !m_vocabulary)
        return;
    const QPointer<QWidget> focused = m_popup->focusWidget();
    if (!save()) {
        // The alert has taken the keyboard; without it the next Return would go to the list.
        if (m_popup->isVisible() && focused) {
            m_popup->activateWindow();
            focused->setFocus();
        }
        return;
    }
    const bool wasAdding = m_isInAddingMode;
    end();
    if (m_delegate && wasAdding)
        m_delegate->wordPopoverDidAddWords(m_selectedWords, sender == m_ui->okButton);
    else if (m_delegate)
        m_delegate->wordPopoverDidEditWords(m_selectedWords);
}

bool TAVWordPopoverController::save()
{
    const WordEdits::Content typed = content();
    const Change change = m_isInAddingMode ? Change::WordsAdded : Change::WordsEdited;
    if (m_failedEdit && m_failedEdit->content == typed)
        return m_document.commit(change, m_vocabulary).isSaved;
    // Pairs that the failed try has made would stay beside those of this one, and what it made of a new word
    // would look like another word with the same texts.
    if (m_failedEdit && (m_isInAddingMode || WordEdits::holdsSeveral(m_failedEdit->content))) {
        m_document.withdraw(*m_vocabulary, m_failedEdit->step);
        m_failedEdit.reset();
    }
    if (m_selectedWords.size() > 1)
        return endTry(m_document.editWords(m_vocabulary, m_selectedWords, typed, variousTexts()), typed);
    return saveOneWord(typed);
}

bool TAVWordPopoverController::saveOneWord(const WordEdits::Content &typed)
{
    if (WordEdits::numberOfPairs(typed) > maxPairs) {
        platform::services().alerts->show({platform::localized("Vocabulary", "tooManyWordsTitle"),
                                           platform::localized("Vocabulary", "tooManyWordsMsg"),
                                           {platform::localized("Vocabulary", "ok")}});
        return false;
    }
    if (refuseAsDuplicate(typed))
        return m_document.commit(Change::WordsAdded, m_vocabulary).isSaved;
    const Change change = m_isInAddingMode ? Change::WordsAdded : Change::WordsEdited;
    return endTry(m_document.editWord(change, m_vocabulary, m_selectedWords.last(), typed), typed);
}

bool TAVWordPopoverController::refuseAsDuplicate(const WordEdits::Content &typed)
{
    if (!m_isInAddingMode || WordEdits::holdsSeveral(typed))
        return false;
    const TAVWordRef word = m_selectedWords.last();
    const TAVWord scratch(typed.yourWord, typed.foreignWord, typed.comment);
    const bool isEmpty = scratch.yourWord().isEmpty() && scratch.foreignWord().isEmpty();
    if (!isEmpty && !m_vocabulary->containsWordEqualTo(scratch))
        return false;
    m_document.cancelAddition(m_vocabulary, {word});
    platform::services().alerts->show({platform::localized("Vocabulary", "addDuplicateTitle"),
                                       platform::localized("Vocabulary", "addDuplicateMsg"),
                                       {platform::localized("Vocabulary", "ok")}});
    return true;
}

bool TAVWordPopoverController::endTry(const EditOutcome &outcome, const WordEdits::Content &typed)
{
    m_shownContent = typed;
    if (!outcome.isSaved)
        m_failedEdit = FailedEdit{typed, outcome.step};
    return outcome.isSaved;
}

void TAVWordPopoverController::deleteWord()
{
    if (m_selectedWords.isEmpty() || !m_vocabulary)
        return;
    if (m_selectedWords.size() > 1) {
        const int choice = platform::services().alerts->show(
            {platform::localized("Vocabulary", "reallyDelete"),
             platform::localized("Vocabulary", "reallyDeleteMsg"),
             {platform::localized("Vocabulary", "cancel"), platform::localized("Vocabulary", "delete")}});
        if (choice != 1)
            return;
    }
    if (!m_document.deleteWords(m_vocabulary, m_selectedWords).isSaved)
        return;
    end();
    if (m_delegate)
        m_delegate->wordPopoverDidDeleteWords(m_selectedWords);
}

void TAVWordPopoverController::end()
{
    m_focusTimer.reset();
    m_isInAddingMode = false;
    m_isActive = false;
    m_failedEdit.reset();
    m_shownContent = content();
}

void TAVWordPopoverController::withdrawFailedEdit()
{
    if (!m_failedEdit)
        return;
    const WordEdits::Content typed = m_popup->isVisible() ? content() : m_failedEdit->content;
    // By the texts of the file its words can be found again.
    m_document.withdraw(*m_vocabulary, m_failedEdit->step);
    m_failedEdit.reset();
    if (m_isInAddingMode)
        m_document.rememberUnsavedAddition(*m_vocabulary, typed);
    else
        m_document.rememberUnsaved(*m_vocabulary, m_selectedWords, typed, variousTexts());
    m_shownContent = content();
}

void TAVWordPopoverController::updateVocabulary(const TAVLexiconRef &vocabulary)
{
    if (m_isActive && m_vocabulary) {
        withdrawFailedEdit();
        rememberUnsavedTexts();
    }
    m_vocabulary = vocabulary;
    if (!m_isActive || !m_vocabulary)
        return;
    TAVWordList kept = WordEdits::counterparts(m_selectedWords, *m_vocabulary);
    if (kept.isEmpty() && m_isInAddingMode && m_selectedWords.size() == 1) {
        m_vocabulary->addWord(m_selectedWords.first());
        kept = m_selectedWords;
    } else if (!kept.isEmpty()) {
        // A word of the file is no longer in the making: a cancel must not remove it.
        m_isInAddingMode = false;
    }
    if (kept.isEmpty()) {
        closeWordPanel(m_ui->cancelButton);
        return;
    }
    m_selectedWords = kept;
    const QPointer<QWidget> focused = m_popup->focusWidget();
    const bool hadFocus = focused && focused->hasFocus();
    setupPopoverGUI();
    if (hadFocus && focused) {
        focused->setFocus();
        m_focusTimer.reset();
    }
}

bool TAVWordPopoverController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && handleKey(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool TAVWordPopoverController::handleKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        // A Return that is held down would run through one word after the other.
        if (event.isAutoRepeat() || m_keyReleases->isRepeat(event))
            return true;
        auto *focused = qobject_cast<QPushButton *>(m_popup->focusWidget());
        if (event.modifiers().testFlag(Qt::ControlModifier) && m_ui->addButton->isEnabled())
            m_ui->addButton->click();
        else if (focused && focused->hasFocus())
            focused->click();
        else
            m_ui->okButton->click();
        return true;
    }
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const bool isPlain = !(event.modifiers() & ~Qt::KeypadModifier);
        if (!isPlain || m_isInAddingMode || !m_delegate || content() != m_shownContent)
            return false;
        m_delegate->wordPopoverDidMoveSelection(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    default:
        return false;
    }
}

void TAVWordPopoverController::languageTextFieldDidBecomeActive(TAVLanguageTextField *field)
{
    if (!m_vocabulary)
        return;
    if (field == m_ui->foreignWordTextField)
        switchKeyboardTo(m_vocabulary->foreignTextInputSource());
    else if (field == m_ui->yourLangWordTextField)
        switchKeyboardTo(m_vocabulary->yourTextInputSource());
    else
        switchKeyboardToEither(m_isSwitchCommentKeyboardToForeign);
}

void TAVWordPopoverController::languageTokenFieldDidBecomeActive(TAVLanguageTokenField *)
{
    if (m_vocabulary)
        switchKeyboardToEither(m_isSwitchTagsKeyboardToForeign);
}

void TAVWordPopoverController::switchKeyboardToEither(bool foreign)
{
    const platform::InputSourceRef yours = m_vocabulary->yourTextInputSource();
    const platform::InputSourceRef foreigns = m_vocabulary->foreignTextInputSource();
    if (yours && foreigns)
        switchKeyboardTo(foreign ? foreigns : yours);
}

void TAVWordPopoverController::switchKeyboardTo(const platform::InputSourceRef &source)
{
    if (!source || !m_vocabulary->isAutoSelectInputSource())
        return;
    platform::InputSources *sources = platform::services().inputSources;
    m_textInputSourceBackup = sources->currentKeyboardLayoutInputSource();
    m_hasSwitchedKeyboard = true;
    sources->selectInputSource(source);
}

void TAVWordPopoverController::switchKeyboardBack()
{
    // What was switched for an earlier vocabulary is given back also if this one switches nothing.
    const bool isAutomatic = m_vocabulary && m_vocabulary->isAutoSelectInputSource();
    if (m_hasSwitchedKeyboard || isAutomatic)
        platform::services().inputSources->selectInputSource(m_textInputSourceBackup);
    m_hasSwitchedKeyboard = false;
}
