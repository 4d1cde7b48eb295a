#include "document/ShownWords.h"

#include "document/WordEdits.h"

ShownWords::ShownWords(const VocabularySource &source, std::function<WordListQuery()> query)
    : m_source(source)
    , m_query(std::move(query))
{
}

const TAVWordList &ShownWords::words()
{
    if (m_isOutOfDate)
        show(workOut());
    return m_words;
}

TAVWordList ShownWords::workOut() const
{
    const TAVLexiconRef vocabulary = m_source.vocabulary();
    return vocabulary ? m_query().wordsOf(*vocabulary) : TAVWordList();
}

void ShownWords::show(const TAVWordList &words)
{
    m_words = words;
    m_origin = m_source.vocabulary();
    m_isOutOfDate = false;
}

qsizetype ShownWords::indexForRow(qsizetype row)
{
    return m_isDescending ? words().size() - 1 - row : row;
}

bool ShownWords::isOutlived() const
{
    const TAVLexiconRef present = m_source.vocabulary();
    return present && m_origin.lock() != present;
}

TAVWordList ShownWords::present(const TAVWordList &words) const
{
    return isOutlived() ? WordEdits::counterparts(words, *m_source.vocabulary()) : words;
}
