#include "model/TAVWord.h"

#include "app/ground/AppGround.h"
#include "model/FacultativeWords.h"
#include "model/TAVLexicon.h"
#include "platform/CaseFolding.h"
#include "platform/DiagnosticLog.h"

namespace {

QStringList sortedTags(const TAVTextSet &tags)
{
    QStringList sorted = tags.values();
    std::stable_sort(sorted.begin(), sorted.end(), [](const QString &a, const QString &b) {
        return platform::compareCaseInsensitive(a, b) < 0;
    });
    return sorted;
}

} // namespace

TAVWord::TAVWord() = default;

TAVWord::TAVWord(const QString &yourWord, const QString &foreignWord, const std::optional<QString> &comment)
    : m_comment(comment.value_or(QString()))
{
    setYourWord(yourWord);
    setForeignWord(foreignWord);
}

TAVWordRef TAVWord::copy() const
{
    return std::make_shared<TAVWord>(*this);
}

void TAVWord::setYourWord(const std::optional<QString> &word)
{
    m_yourWord = word.value_or(QString()).trimmed();
}

void TAVWord::setForeignWord(const std::optional<QString> &word)
{
    if (word)
        m_foreignWord = word->trimmed();
    else
        m_yourWord.clear();
}

void TAVWord::setTags(const TAVTextSet &tags)
{
    if (tags == m_tags)
        return;
    m_tags = tags;
    m_tagsSorted = sortedTags(m_tags);
}

void TAVWord::addTag(const std::optional<QString> &tag)
{
    if (!tag || tag->isEmpty())
        return;
    if (m_tags.insert(tag->trimmed()))
        m_tagsSorted = sortedTags(m_tags);
}

QString TAVWord::yourWordWithoutFacultatives() const
{
    const TAVLexiconRef vocabulary = m_weakVocForSort.lock();
    return vocabulary ? vocabulary->yourFacultatives().removedFrom(m_yourWord) : m_yourWord;
}

QString TAVWord::foreignWordWithoutFacultatives() const
{
    const TAVLexiconRef vocabulary = m_weakVocForSort.lock();
    return vocabulary ? vocabulary->foreignFacultatives().removedFrom(m_foreignWord) : m_foreignWord;
}

QString TAVWord::wordByRemovingFacultatives(const TAVTextSet &facultatives, const QString &word)
{
    return FacultativeWords(facultatives).removedFrom(word);
}

bool TAVWord::matchesSearchTerm(const std::optional<QString> &term) const
{
    if (!term) {
        platform::diagnosticLog(QStringLiteral("TAVWord > matchesSearchTerm > searching NIL"));
        return false;
    }
    if (term->isEmpty())
        return false;
    const auto holdsTerm = [&term](const QString &text) { return text.contains(*term, Qt::CaseInsensitive); };
    return holdsTerm(m_yourWord) || holdsTerm(m_foreignWord) || holdsTerm(m_comment) ||
           std::any_of(m_tags.begin(), m_tags.end(), holdsTerm);
}

int TAVWord::compareYourLang(const TAVWord &other) const
{
    return platform::compareCaseInsensitive(yourWordWithoutFacultatives(),
                                            other.yourWordWithoutFacultatives());
}

int TAVWord::compareForeignLang(const TAVWord &other) const
{
    return platform::compareCaseInsensitive(foreignWordWithoutFacultatives(),
                                            other.foreignWordWithoutFacultatives());
}

int TAVWord::compareComment(const TAVWord &other) const
{
    return platform::compareCaseInsensitive(m_comment, other.m_comment);
}

int TAVWord::compareLastAsked(const TAVWord &other) const
{
    if (!m_lastAsked.isValid() || !other.m_lastAsked.isValid())
        return int(m_lastAsked.isValid()) - int(other.m_lastAsked.isValid());
    return int(m_lastAsked > other.m_lastAsked) - int(m_lastAsked < other.m_lastAsked);
}

int TAVWord::compareTags(const TAVWord &other) const
{
    if (m_tagsSorted.size() != other.m_tagsSorted.size())
        return m_tagsSorted.size() < other.m_tagsSorted.size() ? -1 : 1;
    const auto [tag, otherTag] =
        std::mismatch(m_tagsSorted.begin(), m_tagsSorted.end(), other.m_tagsSorted.begin());
    return tag == m_tagsSorted.end() ? 0 : platform::compareCaseInsensitive(*tag, *otherTag);
}

bool TAVWord::isEqualToWord(const TAVWord &other) const
{
    return m_foreignWord == other.m_foreignWord && m_yourWord == other.m_yourWord;
}

bool TAVWord::isAllPropertiesEqual(const TAVWord &other) const
{
    return isEqualToWord(other) && m_comment == other.m_comment && m_tags == other.m_tags &&
           m_lastAsked.isValid() && other.m_lastAsked.isValid() && m_lastAsked == other.m_lastAsked &&
           m_dontAskAgain == other.m_dontAskAgain && m_creationID == other.m_creationID &&
           m_modificationID == other.m_modificationID && m_fallenDownCounter == other.m_fallenDownCounter &&
           m_level == other.m_level;
}

QString TAVWord::description() const
{
    return QStringLiteral("%1 <%2 = %3> %4 %5  ")
        .arg(QString::number(m_level), m_foreignWord, m_yourWord, m_comment,
             AppGround::timeSinceDate(m_lastAsked));
}
