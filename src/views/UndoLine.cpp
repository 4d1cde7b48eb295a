#include "views/UndoLine.h"

#include "platform/Texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

using platform::localized;

namespace {

constexpr qsizetype maxLengthOfWord = 30;

QString shortened(const QString &word)
{
    return word.size() > maxLengthOfWord ? word.left(maxLengthOfWord - 1) + u'…' : word;
}

QString nameOf(const QString &yourWord, const QString &foreignWord)
{
    return shortened((foreignWord.isEmpty() ? yourWord : foreignWord).simplified());
}

/** The only word that a step is about, as a user knows it; empty for several. */
QString onlyWordOf(const UndoStep &step)
{
    if (step.removed.size() + step.changed.size() != 1)
        return {};
    if (step.changed.isEmpty())
        return nameOf(step.removed.first()->yourWord(), step.removed.first()->foreignWord());
    const WordIdentity &word = step.changed.first().word;
    return nameOf(word.yourWord, word.foreignWord);
}

/** The key for one word whose name is known, or the one for any number. */
QString aboutOneOrMany(const UndoStep &step, const char *one, const char *many)
{
    const QString word = onlyWordOf(step);
    const int count = int(step.removed.size() + step.changed.size());
    return word.isEmpty() ? localized("Vocabulary", many, nullptr, count)
                          : localized("Vocabulary", one).arg(word);
}

QString textOf(const UndoStep &step)
{
    switch (step.kind) {
    case UndoStep::Kind::Deletion:
        return localized("Vocabulary", "wordsDeletedLine", nullptr, int(step.removed.size()));
    case UndoStep::Kind::Duplicates:
        return localized("Vocabulary", "wordsRemovedLine", nullptr, int(step.removed.size()));
    case UndoStep::Kind::CancelledAddition:
        return aboutOneOrMany(step, QT_TRANSLATE_NOOP("Vocabulary", "wordRemovedLine"),
                              QT_TRANSLATE_NOOP("Vocabulary", "wordsRemovedLine"));
    case UndoStep::Kind::TagDrop:
        return aboutOneOrMany(step, QT_TRANSLATE_NOOP("Vocabulary", "tagAddedLine"),
                              QT_TRANSLATE_NOOP("Vocabulary", "wordsChangedLine"));
    case UndoStep::Kind::Edit:
        if (step.removed.isEmpty() && step.changed.isEmpty())
            return localized("Vocabulary", "wordsAddedLine", nullptr, int(step.added.size()));
        return aboutOneOrMany(step, QT_TRANSLATE_NOOP("Vocabulary", "wordChangedLine"),
                              QT_TRANSLATE_NOOP("Vocabulary", "wordsChangedLine"));
    case UndoStep::Kind::UnsavedTexts:
        break;
    }
    return step.changed.isEmpty()
               ? aboutOneOrMany(step, QT_TRANSLATE_NOOP("Vocabulary", "newWordNotAddedLine"),
                                QT_TRANSLATE_NOOP("Vocabulary", "newWordsNotAddedLine"))
               : aboutOneOrMany(step, QT_TRANSLATE_NOOP("Vocabulary", "changesNotSavedLine"),
                                QT_TRANSLATE_NOOP("Vocabulary", "changesToManyNotSavedLine"));
}

} // namespace

UndoLine::UndoLine(QWidget *parent)
    : QWidget(parent)
    , m_text(new QLabel(this))
    , m_action(new QToolButton(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(m_text);
    row->addWidget(m_action);
    m_text->setObjectName(QStringLiteral("undoText"));
    m_text->setTextFormat(Qt::PlainText);
    m_action->setObjectName(QStringLiteral("undoButton"));
    m_action->setAutoRaise(true);
    QFont font = m_action->font();
    font.setUnderline(true);
    m_action->setFont(font);
    // A click must not take the keyboard from the list.
    m_action->setFocusPolicy(Qt::TabFocus);
    connect(m_action, &QToolButton::clicked, this, &UndoLine::undoChosen);
    hide();
}

void UndoLine::offer(const UndoStep &step)
{
    const bool isUnsaved = step.kind == UndoStep::Kind::UnsavedTexts;
    show(textOf(step),
         isUnsaved ? localized("Vocabulary", "bringBack") : localized("Vocabulary", "undoLineAction"));
}

void UndoLine::tell(const QString &text)
{
    show(text, {});
}

void UndoLine::show(const QString &text, const QString &action)
{
    m_text->setText(text);
    m_text->setAccessibleName(text);
    m_action->setText(action);
    m_action->setAccessibleName(action);
    m_action->setToolTip(action.isEmpty() ? QString() : text);
    m_action->setVisible(!action.isEmpty());
    setVisible(true);
}
