#pragma once

#include "model/TAVLexicon.h"

#include <QObject>

#include <array>

class MemoryLevelButton;

/** The seven buttons beside the word table, one for each memory level and one for all words: one is on. */
class LevelBar : public QObject
{
    Q_OBJECT

public:
    /** What a button stands for. */
    struct Row
    {
        quint64 level;
        const char *infoKey;
        const char *headingKey;
    };
    /** The levels from 0 to 5, then all words. Not owned. */
    using Buttons = std::array<MemoryLevelButton *, TAVLexicon::numberOfLevels + 1>;

    explicit LevelBar(const Buttons &buttons);

    MemoryLevelButton *buttonOf(quint64 level) const;
    /** Of the button that is on. */
    const Row &rowThatIsOn() const;
    /** Turns the button that was on off, and this one on. */
    void turnOn(MemoryLevelButton *button);
    /** From here on, this is the button that was on. */
    void select(const Row &row);
    void showCounts(const TAVLexicon &vocabulary);

signals:
    void clicked(MemoryLevelButton *button);

private:
    Buttons m_buttons;
    MemoryLevelButton *m_selectedButton = nullptr;
};
