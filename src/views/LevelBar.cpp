#include "views/LevelBar.h"

#include "document/WordListQuery.h"
#include "platform/Texts.h"
#include "views/MemoryLevelButton.h"
#include "widgets/Icons.h"

#include <QCoreApplication>

using platform::localized;

namespace {

constexpr std::array<LevelBar::Row, TAVLexicon::numberOfLevels> levelRows{{
    {1, QT_TRANSLATE_NOOP("Vocabulary", "ultraShortInfoText"),
     QT_TRANSLATE_NOOP("Vocabulary", "ultraShortHeadding")},
    {2, QT_TRANSLATE_NOOP("Vocabulary", "shortInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "shortHeadding")},
    {3, QT_TRANSLATE_NOOP("Vocabulary", "midInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "midHeadding")},
    {4, QT_TRANSLATE_NOOP("Vocabulary", "longInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "longHeadding")},
    {5, QT_TRANSLATE_NOOP("Vocabulary", "nativeInfoText"), QT_TRANSLATE_NOOP("Vocabulary", "nativeHeadding")},
    {0, QT_TRANSLATE_NOOP("Vocabulary", "unknownInfoText"),
     QT_TRANSLATE_NOOP("Vocabulary", "unknownHeadding")},
}};
constexpr LevelBar::Row allWordsRow{WordListQuery::allLevels,
                                    QT_TRANSLATE_NOOP("Vocabulary", "allWordsInfoText"),
                                    QT_TRANSLATE_NOOP("Vocabulary", "allWordsHeadding")};

} // namespace

LevelBar::LevelBar(const Buttons &buttons)
    : m_buttons(buttons)
{
    for (const Row &row : levelRows) {
        buttonOf(row.level)->setText(localized("Vocabulary", row.headingKey));
        buttonOf(row.level)->setIcon(Icons::icon(Icons::levelName(int(row.level))));
    }
    m_buttons.back()->setIcon(Icons::icon(QStringLiteral("vocabulary_toolbar")));
    for (MemoryLevelButton *button : m_buttons)
        connect(button, &MemoryLevelButton::clicked, this, [this, button] { emit clicked(button); });
}

MemoryLevelButton *LevelBar::buttonOf(quint64 level) const
{
    return m_buttons.at(size_t(std::min(level, WordListQuery::allLevels)));
}

const LevelBar::Row &LevelBar::rowThatIsOn() const
{
    const auto row = std::find_if(levelRows.begin(), levelRows.end(), [this](const Row &candidate) {
        return buttonOf(candidate.level)->isChecked();
    });
    return row == levelRows.end() ? allWordsRow : *row;
}

void LevelBar::turnOn(MemoryLevelButton *button)
{
    if (m_selectedButton)
        m_selectedButton->setChecked(false);
    button->setChecked(true);
}

void LevelBar::select(const Row &row)
{
    m_selectedButton = buttonOf(row.level);
    m_selectedButton->setChecked(true);
}

void LevelBar::showCounts(const TAVLexicon &vocabulary)
{
    for (const Row &row : levelRows)
        buttonOf(row.level)->setCount(vocabulary.wordsOfLevel(row.level).size());
    m_buttons.back()->setCount(vocabulary.countAllWords());
}
