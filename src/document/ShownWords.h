#pragma once

#include "document/WordListQuery.h"

#include <functional>

/**
 * The words that a table shows: worked out only after they were declared out of date, however often each
 * cell asks for them. The list is always ascending; a descending table reads it from its end.
 */
class ShownWords
{
public:
    /** The query is asked for each time that the list is worked out; both must outlive this object. */
    ShownWords(const VocabularySource &source, std::function<WordListQuery()> query);

    const TAVWordList &words();
    void invalidate() { m_isOutOfDate = true; }
    bool isOutOfDate() const { return m_isOutOfDate; }
    /** As the query is now, whatever is shown. */
    TAVWordList workOut() const;
    /** Shows a list that workOut() gave. */
    void show(const TAVWordList &words);
    qsizetype numberShown() const { return m_words.size(); }

    bool isDescending() const { return m_isDescending; }
    void setDescending(bool flag) { m_isDescending = flag; }
    qsizetype indexForRow(qsizetype row);

    /** The list may still hold words of a vocabulary that was replaced under an open editor. */
    bool isOutlived() const;
    /** The words themselves, or of an outlived list those that stand for them now, as far as there are any.
     */
    TAVWordList present(const TAVWordList &words) const;

private:
    const VocabularySource &m_source;
    std::function<WordListQuery()> m_query;
    TAVWordList m_words;
    /** The vocabulary that the list was taken from. */
    std::weak_ptr<TAVLexicon> m_origin;
    bool m_isOutOfDate = false;
    bool m_isDescending = false;
};
