#include "views/StatusLine.h"

#include "platform/Texts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QStackedWidget>

using platform::localized;

namespace {

QString textOf(const TAVLexicon &vocabulary, const WordListQuery &query, qsizetype shownCount)
{
    const QString shown = QLocale().toString(shownCount);
    const QString all = QLocale().toString(vocabulary.countAllWords());
    if (!query.searchTerm.isEmpty())
        return localized("Vocabulary", "searchStatus").arg(shown, all);
    if (query.isSynonyms)
        return localized("Vocabulary", "synonymsStatus").arg(shown, all);
    if (query.level < 5)
        return localized("Vocabulary", "wordsStatus").arg(shown, all);
    if (query.level == 5) {
        const qsizetype native = vocabulary.level5Words().size();
        const qsizetype excluded = native - vocabulary.nativeWithoutDontAsk().size();
        return localized("Vocabulary", "nativeStatus")
            .arg(QLocale().toString(native), QLocale().toString(excluded), all);
    }
    return localized("Vocabulary", "allStatus").arg(all);
}

} // namespace

StatusLine::StatusLine(QStackedWidget *statusTabView, QLabel *words, QLabel *sync, QAbstractButton *toggle)
    : m_statusTabView(statusTabView)
    , m_words(words)
    , m_sync(sync)
    , m_toggle(toggle)
{
    m_toggle->hide();
}

void StatusLine::showUnknownWords(qsizetype unknown, qsizetype all)
{
    m_words->setText(localized("Vocabulary", "%ld unknown words, %ld total words")
                         .arg(QString::number(unknown), QString::number(all)));
}

void StatusLine::showWords(const TAVLexicon &vocabulary, const WordListQuery &query, qsizetype shown,
                           qsizetype selected)
{
    QString text = textOf(vocabulary, query, shown);
    if (selected > 0)
        text += QStringLiteral(", ") + localized("Vocabulary", "selectedStatus", nullptr, int(selected));
    m_words->setText(text);
}

void StatusLine::showSync(const std::optional<QString> &status)
{
    m_sync->setText(status.value_or(QStringLiteral("Sync in progress")));
}

void StatusLine::setSyncEnabled(bool enabled)
{
    m_toggle->setVisible(enabled);
    if (enabled)
        turnToSync();
    else
        turnToWords();
}

void StatusLine::turnToWords()
{
    m_statusTabView->setCurrentIndex(0);
}

void StatusLine::turnToSync()
{
    m_statusTabView->setCurrentIndex(m_statusTabView->count() - 1);
}

void StatusLine::turnOver()
{
    if (m_statusTabView->currentIndex() == 0)
        turnToSync();
    else
        turnToWords();
}
