#include "model/FacultativeWords.h"

#include <algorithm>

namespace {

bool isBlank(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

/** Unlike QString::trimmed(), which also cuts line ends. */
QStringView trimmedOfBlanks(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

} // namespace

FacultativeWords::FacultativeWords(const platform::TextSet &words)
    : m_words(words)
{
    for (const QString &word : m_words) {
        const QStringView trimmed = trimmedOfBlanks(word);
        if (m_places.contains(trimmed))
            continue;
        m_places.insert(trimmed, m_places.size());
        m_lengths.push_back(trimmed.size());
    }
    std::sort(m_lengths.begin(), m_lengths.end());
    m_lengths.erase(std::unique(m_lengths.begin(), m_lengths.end()), m_lengths.end());
}

QString FacultativeWords::removedFrom(const QString &entry) const
{
    qsizetype place = m_places.size();
    qsizetype cut = 0;
    for (const qsizetype length : m_lengths) {
        if (length >= entry.size())
            break;
        if (entry.at(length) != u' ')
            continue;
        const auto found = m_places.constFind(QStringView(entry).first(length));
        if (found != m_places.constEnd() && *found < place) {
            place = *found;
            cut = length + 1;
        }
    }
    return cut > 0 ? trimmedOfBlanks(QStringView(entry).sliced(cut)).toString() : entry;
}
