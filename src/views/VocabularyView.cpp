#include "views/VocabularyView.h"

#include "platform/Texts.h"
#include "ui_VocabularyView.h"
#include "views/UndoLine.h"
#include "widgets/Icons.h"

#include <QHideEvent>
#include <QScrollBar>

#include <cmath>

using platform::localized;

namespace {

const QColor warningColor = QColor::fromRgbF(0.8f, 0.3f, 0.3f);

void enlarge(QLabel *label, double factor, bool isBold)
{
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(isBold);
    label->setFont(font);
}

} // namespace

VocabularyView::VocabularyView()
    : m_ui(std::make_unique<Ui::VocabularyView>())
    , m_undoLine(new UndoLine)
{
    m_ui->setupUi(this);
    m_ui->statusRow->insertWidget(1, m_undoLine);
    prepareLook();
    m_levelBar = std::make_unique<LevelBar>(
        LevelBar::Buttons{m_ui->level0Button, m_ui->level1Button, m_ui->level2Button, m_ui->level3Button,
                          m_ui->level4Buttons, m_ui->level5Buttons, m_ui->allWordsButton});
    m_ui->allWordsButton->setChecked(true);
    m_statusLine = std::make_unique<StatusLine>(m_ui->statusTabView, m_ui->statusTextField,
                                                m_ui->syncStatusTextField, m_ui->toggleStatusButton);
    m_overlays = std::make_unique<HelpOverlays>(m_ui->noWordsTabView, m_ui->searchBackgroundView,
                                                m_ui->vocabularyTable);
    setSynonymsShown(false);
    localize();
    connectControls();
}

VocabularyView::~VocabularyView() = default;

void VocabularyView::prepareLook()
{
    enlarge(m_ui->headingTextField, 1.5, true);
    enlarge(m_ui->levelsLabel, 0.9, true);
    enlarge(m_ui->tagsFilterLabel, 0.9, true);
    for (QLabel *label : {m_ui->noWordsAddedLabel, m_ui->noWordsInLevelLabel, m_ui->noWordsUnknownLabel})
        enlarge(label, 1.3, false);
    m_ui->addWordButton->setIcon(Icons::icon(QStringLiteral("add")));
    m_ui->toggleStatusButton->setIcon(Icons::icon(QStringLiteral("restart")));
    m_ui->searchField->addAction(Icons::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
}

void VocabularyView::localize()
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
}

void VocabularyView::connectControls()
{
    connect(m_ui->searchField, &QLineEdit::textChanged, this, &VocabularyView::searchTermChanged);
    connect(m_ui->searchField, &QLineEdit::returnPressed, this, &VocabularyView::searchEnded);
    connect(m_ui->addWordButton, &QPushButton::clicked, this, &VocabularyView::addWordChosen);
    connect(m_ui->synonymsShowAllButton, &QPushButton::clicked, this, &VocabularyView::allWordsChosen);
    connect(m_ui->selectAllTagsButton, &QToolButton::clicked, this, &VocabularyView::selectAllTagsChosen);
    connect(m_ui->selectNoneTagsButton, &QToolButton::clicked, this, &VocabularyView::deselectAllTagsChosen);
    connect(m_ui->toggleStatusButton, &QToolButton::clicked, this, &VocabularyView::toggleStatusChosen);
}

Notices &VocabularyView::notices()
{
    return *m_ui->notices;
}

WordTableView *VocabularyView::table() const
{
    return m_ui->vocabularyTable;
}

M3TokenCloud *VocabularyView::tagCloud() const
{
    return m_ui->tagCloud;
}

void VocabularyView::growTagCloud(double height)
{
    const int needed = int(std::ceil(height));
    if (m_ui->tagCloud->height() <= needed)
        m_ui->tagCloud->setMinimumHeight(needed);
    m_ui->tagScrollArea->verticalScrollBar()->setValue(0);
}

void VocabularyView::setHeading(const QString &text)
{
    m_ui->headingTextField->setText(text);
}

void VocabularyView::setInfo(const QString &text, bool isWarning)
{
    QPalette colors;
    if (isWarning)
        colors.setColor(QPalette::WindowText, warningColor);
    m_ui->infoTextField->setPalette(colors);
    setInfo(text);
}

void VocabularyView::setInfo(const QString &text)
{
    m_ui->infoTextField->setText(text);
}

void VocabularyView::setSynonymsShown(bool shown)
{
    m_ui->synonymsShowAllButton->setEnabled(shown);
    m_ui->synonymsShowAllButton->setVisible(shown);
}

QString VocabularyView::searchTerm() const
{
    return m_ui->searchField->text();
}

void VocabularyView::emptySearchField()
{
    m_ui->searchField->clear();
}

void VocabularyView::focusOnSearchField()
{
    m_ui->searchField->setFocus(Qt::ShortcutFocusReason);
    m_ui->searchField->selectAll();
}

void VocabularyView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        emit left();
}
