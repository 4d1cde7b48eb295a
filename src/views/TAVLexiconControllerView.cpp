#include "app/ground/SettingsKeys.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "sync/DropBoxController.h"
#include "sync/TAVSyncLog.h"
#include "ui_VocabularyView.h"
#include "views/TAVLexiconController.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/Icons.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>

using platform::localized;

const std::array<TAVLexiconController::LevelRow, TAVLexicon::numberOfLevels> TAVLexiconController::levelRows{{
    {1, QT_TRANSLATE_NOOP("Vocabulary", "ultraShortInfoText"),
     QT_TRANSLATE_NOOP("Vocabulary", "ultraShortHeadding")},
    {2, QT_TRANSLATE_NOOP("Vocabulary", "shortInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "shortHeadding")},
    {3, QT_TRANSLATE_NOOP("Vocabulary", "midInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "midHeadding")},
    {4, QT_TRANSLATE_NOOP("Vocabulary", "longInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "longHeadding")},
    {5, QT_TRANSLATE_NOOP("Vocabulary", "nativeInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "nativeHeadding")},
    {0, QT_TRANSLATE_NOOP("Vocabulary", "unknownInfoText"),
     QT_TRANSLATE_NOOP("Vocabulary", "unknownHeadding")},
}};
const TAVLexiconController::LevelRow TAVLexiconController::allWordsRow{
    allLevels, QT_TRANSLATE_NOOP("Vocabulary", "allWordsInfoText"),
    QT_TRANSLATE_NOOP("Vocabulary", "allWordsHeadding")};

namespace {

/** Pages of noWordsTabView. */
enum HelpPage { noWordsPage, noWordsInLevelPage, noUnknownWordsPage };

const QColor warningColor = QColor::fromRgbF(0.8f, 0.3f, 0.3f);

void enlarge(QLabel *label, double factor, bool isBold)
{
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(isBold);
    label->setFont(font);
}

} // namespace

TAVLexiconController::TAVLexiconController()
    : m_view(new QWidget)
    , m_ui(std::make_unique<Ui::VocabularyView>())
    , m_model(std::make_unique<WordTableModel>(*this))
    , m_textInputSourceBackup(platform::services().inputSources->currentKeyboardLayoutInputSource())
{
    m_ui->setupUi(m_view);
    m_wordEditor = std::make_unique<TAVWordPopoverController>(m_view);
    m_wordEditor->setQuizSelectedAction([this] { emit quizSelectedRequested(); });
    setupLevelButtons();
    setupTable();
    connectActions();
    awakeFromNib();
}

TAVLexiconController::~TAVLexiconController()
{
    // The editor's panel belongs to the view's window, and the table reads from this object.
    m_wordEditor.reset();
    if (!m_view)
        return;
    m_ui->tagCloud->setDelegate(nullptr);
    // The view still sends events while its table is gone.
    m_ui->vocabularyTable->viewport()->removeEventFilter(this);
    m_view->removeEventFilter(this);
    delete m_view;
}

void TAVLexiconController::awakeFromNib()
{
    setSortIndicator();
    m_ui->statusTextField->setText(
        localized("Vocabulary", "%ld unknown words, %ld total words")
            .arg(QString::number(m_vocabulary ? m_vocabulary->level0Words().size() : 0),
                 QString::number(m_vocabulary ? m_vocabulary->countAllWords() : 0)));
    m_ui->tagCloud->setDelegate(this);
    m_ui->synonymsShowAllButton->hide();
    m_ui->toggleStatusButton->hide();
    m_ui->allWordsButton->setChecked(true);
    closeHelp();
    localize();
}

void TAVLexiconController::setupLevelButtons()
{
    for (const LevelRow &row : levelRows) {
        MemoryLevelButton *button = buttonOf(row);
        button->setText(localized("Vocabulary", row.headingKey));
        button->setIcon(Icons::icon(Icons::levelName(int(row.level))));
        connect(button, &MemoryLevelButton::clicked, this, [this, button] { selectMemoryView(button); });
    }
    m_ui->allWordsButton->setIcon(Icons::icon(QStringLiteral("vocabulary_toolbar")));
    connect(m_ui->allWordsButton, &MemoryLevelButton::clicked, this,
            [this] { selectMemoryView(m_ui->allWordsButton); });
}

void TAVLexiconController::setupTable()
{
    WordTableView *table = m_ui->vocabularyTable;
    table->setModel(m_model.get());
    table->restoreColumns(platform::settings().text(settingskeys::vocabularyTableColumns));
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { tableViewSelectionDidChange(); });
    connect(table->horizontalHeader(), &QHeaderView::sectionClicked, this,
            &TAVLexiconController::didClickTableColumn);
    connect(table, &WordTableView::deletePressed, this, &TAVLexiconController::deleteSelectedWords);
    connect(table, &WordTableView::escapePressed, this, [this] {
        if (m_wordEditor->isPanelVisible())
            m_wordEditor->closeWordPanel(nullptr);
    });
    connect(table, &WordTableView::openPressed, this, [this] { tableViewSelectionDidChange(); });

    m_ui->noWordsTabView->setParent(table->viewport());
    table->viewport()->installEventFilter(this);
    m_view->installEventFilter(this);

    enlarge(m_ui->headingTextField, 1.5, true);
    enlarge(m_ui->levelsLabel, 0.9, true);
    enlarge(m_ui->tagsFilterLabel, 0.9, true);
    for (QLabel *label : {m_ui->noWordsAddedLabel, m_ui->noWordsInLevelLabel, m_ui->noWordsUnknownLabel})
        enlarge(label, 1.3, false);
    m_ui->searchBackgroundView->setAutoFillBackground(true);
    m_ui->searchBackgroundView->setBackgroundRole(QPalette::Highlight);
    QSizePolicy keepsItsPlace = m_ui->searchBackgroundView->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_ui->searchBackgroundView->setSizePolicy(keepsItsPlace);
}

void TAVLexiconController::connectActions()
{
    connect(m_ui->searchField, &QLineEdit::textChanged, this, &TAVLexiconController::search);
    connect(m_ui->searchField, &QLineEdit::returnPressed, this, [this] {
        m_ui->vocabularyTable->setFocus(Qt::TabFocusReason);
        putCursorNear(0);
    });
    connect(m_ui->addWordButton, &QPushButton::clicked, this, &TAVLexiconController::showAddWordPanel);
    connect(m_ui->synonymsShowAllButton, &QPushButton::clicked, this,
            &TAVLexiconController::setDisplaySynonyms);
    connect(m_ui->selectAllTagsButton, &QToolButton::clicked, this, &TAVLexiconController::selectAllTags);
    connect(m_ui->selectNoneTagsButton, &QToolButton::clicked, this, &TAVLexiconController::deselectAllTags);
    connect(m_ui->toggleStatusButton, &QToolButton::clicked, this, &TAVLexiconController::toggleStatusView);
    m_ui->addWordButton->setIcon(Icons::icon(QStringLiteral("add")));
    m_ui->toggleStatusButton->setIcon(Icons::icon(QStringLiteral("restart")));
    m_ui->searchField->addAction(Icons::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
}

void TAVLexiconController::localize()
{
    const auto entitle = [](auto *control, const QString &text) {
        control->setText(text);
        control->setAccessibleName(text);
    };
    m_ui->levelsLabel->setText(localized("Vocabulary", "levelsLabel"));
    m_ui->tagsFilterLabel->setText(localized("Vocabulary", "tagsFilter"));
    entitle(m_ui->allWordsButton, localized("Vocabulary", "allWordsLabel"));
    entitle(m_ui->addWordButton, localized("Vocabulary", "addWordButtonTitle"));
    entitle(m_ui->selectAllTagsButton, localized("Vocabulary", "selectAllTagsButtonTitle"));
    entitle(m_ui->selectNoneTagsButton, localized("Vocabulary", "selectNoneTagsButtonTitle"));
    entitle(m_ui->synonymsShowAllButton, localized("Vocabulary", "showAllWords"));
    m_ui->searchField->setPlaceholderText(localized("Vocabulary", "searchPlaceholder"));
    m_ui->searchField->setAccessibleName(localized("Vocabulary", "searchPlaceholder"));
    m_ui->vocabularyTable->setAccessibleName(localized("Vocabulary", "wordTable"));
    m_ui->tagCloud->setAccessibleName(localized("Vocabulary", "tagsFilter"));
    m_ui->toggleStatusButton->setToolTip(localized("Vocabulary", "toggleStatus"));
    m_ui->toggleStatusButton->setAccessibleName(localized("Vocabulary", "toggleStatus"));
    m_ui->noWordsAddedLabel->setText(localized("Vocabulary", "noWordsAdded"));
    m_ui->noWordsInLevelLabel->setText(localized("Vocabulary", "noWordsInLevel"));
    m_ui->noWordsInLevelSmallLabel->setText(localized("Vocabulary", "noWordsInLevelSmall"));
    m_ui->noWordsUnknownLabel->setText(localized("Vocabulary", "noWordsUnknown"));
    m_model->setColumnTitle(WordTableModel::Comment, localized("Vocabulary", "commentTableColumnTitle"));
    m_model->setColumnTitle(WordTableModel::Tags, localized("Vocabulary", "tagsTableColumnTitle"));
    m_model->setColumnTitle(WordTableModel::LastAsked, localized("Vocabulary", "lastAskedTableColumnTitle"));
}

MemoryLevelButton *TAVLexiconController::buttonOf(const LevelRow &row) const
{
    switch (row.level) {
    case 0:
        return m_ui->level0Button;
    case 1:
        return m_ui->level1Button;
    case 2:
        return m_ui->level2Button;
    case 3:
        return m_ui->level3Button;
    case 4:
        return m_ui->level4Buttons;
    case 5:
        return m_ui->level5Buttons;
    default:
        return m_ui->allWordsButton;
    }
}

void TAVLexiconController::updateLevelCounts()
{
    for (const LevelRow &row : levelRows)
        buttonOf(row)->setCount(m_vocabulary->wordsOfLevel(row.level).size());
    m_ui->allWordsButton->setCount(m_vocabulary->countAllWords());
}

void TAVLexiconController::updateStatusText()
{
    if (!m_vocabulary)
        return;
    QString text = wordCountStatus();
    const qsizetype selected = m_ui->vocabularyTable->selectedRowList().size();
    if (selected > 0)
        text += QStringLiteral(", ") + localized("Vocabulary", "selectedStatus", nullptr, int(selected));
    m_ui->statusTextField->setText(text);
    m_ui->syncStatusTextField->setText(TAVSyncLog::sharedManager()
                                           ->syncStatusForVocabulary(*m_vocabulary)
                                           .value_or(QStringLiteral("Sync in progress")));
}

QString TAVLexiconController::wordCountStatus()
{
    const QString shown = QLocale().toString(currentWordsToShow().size());
    const QString all = QLocale().toString(m_vocabulary->countAllWords());
    if (!searchTerm().isEmpty())
        return localized("Vocabulary", "searchStatus").arg(shown, all);
    if (m_isSynonymsActive)
        return localized("Vocabulary", "synonymsStatus").arg(shown, all);
    if (m_selectedLevel < 5)
        return localized("Vocabulary", "wordsStatus").arg(shown, all);
    if (m_selectedLevel == 5) {
        const qsizetype native = m_vocabulary->level5Words().size();
        const qsizetype excluded = native - m_vocabulary->nativeWithoutDontAsk().size();
        return localized("Vocabulary", "nativeStatus")
            .arg(QLocale().toString(native), QLocale().toString(excluded), all);
    }
    return localized("Vocabulary", "allStatus").arg(all);
}

void TAVLexiconController::toggleStatusView()
{
    updateStatusText();
    if (!m_dropboxController || !m_dropboxController->isEnabled())
        return;
    const int last = m_ui->statusTabView->count() - 1;
    m_ui->statusTabView->setCurrentIndex(m_ui->statusTabView->currentIndex() == 0 ? last : 0);
}

void TAVLexiconController::cloudControllerDidSync()
{
    updateStatusText();
    m_ui->statusTabView->setCurrentIndex(m_ui->statusTabView->count() - 1);
}

void TAVLexiconController::chooseOverlay()
{
    if (m_vocabulary->allWords().isEmpty())
        showNoWordsHelp();
    else if (currentWordsToShow().isEmpty() && m_selectedLevel != 0)
        showNoWordsInLevelHelp();
    else if (currentWordsToShow().isEmpty())
        showNoUnknownHelp();
    else if (!searchTerm().isEmpty())
        showSearchHelp();
    else
        closeHelp();
}

void TAVLexiconController::showNoWordsHelp()
{
    showHelpPage(noWordsPage);
}

void TAVLexiconController::showNoWordsInLevelHelp()
{
    showHelpPage(noWordsInLevelPage);
}

void TAVLexiconController::showNoUnknownHelp()
{
    showHelpPage(noUnknownWordsPage);
}

void TAVLexiconController::showHelpPage(int page)
{
    m_ui->searchBackgroundView->hide();
    m_ui->noWordsTabView->setCurrentIndex(page);
    placeHelpPages();
    m_ui->noWordsTabView->show();
    m_ui->noWordsTabView->raise();
}

void TAVLexiconController::showSearchHelp()
{
    m_ui->noWordsTabView->hide();
    m_ui->searchBackgroundView->show();
}

void TAVLexiconController::closeHelp()
{
    m_ui->noWordsTabView->hide();
    m_ui->searchBackgroundView->hide();
}

void TAVLexiconController::placeHelpPages()
{
    m_ui->noWordsTabView->setGeometry(m_ui->vocabularyTable->viewport()->rect());
}

void TAVLexiconController::setWarningColor(bool isWarning)
{
    QPalette colors;
    if (isWarning)
        colors.setColor(QPalette::WindowText, warningColor);
    m_ui->infoTextField->setPalette(colors);
}

void TAVLexiconController::rememberTableLayout()
{
    platform::settings().setValue(settingskeys::vocabularyTableColumns,
                                  m_ui->vocabularyTable->columnLayout());
}

bool TAVLexiconController::eventFilter(QObject *watched, QEvent *event)
{
    // The kind of event comes first: others arrive while the table is being destroyed.
    if (event->type() == QEvent::Resize && watched == m_ui->vocabularyTable->viewport())
        placeHelpPages();
    // A panel beside a row must not stand over another page.
    if (event->type() == QEvent::Hide && watched == m_view && !event->spontaneous())
        hideWordEditor();
    return QObject::eventFilter(watched, event);
}
