#include "model/WordSorting.h"

#include "model/TextKeys.h"
#include "model/WordWalk.h"
#include "platform/CaseFolding.h"

#include <limits>
#include <numeric>
#include <span>

namespace {

std::vector<qsizetype> indexesOf(const TAVWordList &words)
{
    std::vector<qsizetype> indexes(size_t(words.size()));
    std::iota(indexes.begin(), indexes.end(), 0);
    return indexes;
}

template <typename TextOf> std::vector<qsizetype> orderByText(const TAVWordList &words, TextOf textOf)
{
    TextKeys keys(words.size());
    walkWords(words, [&keys, &textOf](const TAVWordRef &word) { keys.append(textOf(*word)); });
    return keys.sorted();
}

std::vector<qsizetype> orderByLastAsked(const TAVWordList &words)
{
    constexpr qint64 never = std::numeric_limits<qint64>::min();
    std::vector<qint64> dates;
    dates.reserve(size_t(words.size()));
    for (const TAVWordRef &word : words) {
        const QDateTime date = word->lastAsked();
        dates.push_back(date.isValid() ? date.toMSecsSinceEpoch() : never);
    }
    std::vector<qsizetype> order = indexesOf(words);
    std::stable_sort(order.begin(), order.end(),
                     [&dates](qsizetype a, qsizetype b) { return dates[size_t(a)] < dates[size_t(b)]; });
    return order;
}

/** Numbers in place of the tags: many words share few tags. */
class NumberedTags
{
public:
    using Tags = std::span<const int>;

    explicit NumberedTags(const TAVWordList &words)
    {
        m_ends.reserve(size_t(words.size()) + 1);
        m_ends.push_back(0);
        for (const TAVWordRef &word : words) {
            for (const QString &tag : word->tagsSorted())
                m_numbers.push_back(numberOf(tag));
            m_ends.push_back(m_numbers.size());
        }
        rankTexts();
    }

    /** The same as TAVWord::compareTags(). */
    bool isLess(qsizetype left, qsizetype right) const
    {
        const Tags a = tagsOf(size_t(left));
        const Tags b = tagsOf(size_t(right));
        if (a.size() != b.size())
            return a.size() < b.size();
        const auto [tag, otherTag] = std::mismatch(a.begin(), a.end(), b.begin());
        return tag != a.end() && m_ranks[size_t(*tag)] < m_ranks[size_t(*otherTag)];
    }

private:
    int numberOf(const QString &tag)
    {
        const auto found = m_numberByText.constFind(tag);
        if (found != m_numberByText.constEnd())
            return *found;
        m_texts.append(tag);
        return *m_numberByText.insert(tag, int(m_texts.size()) - 1);
    }

    /** Texts that differ only in case share a rank. */
    void rankTexts()
    {
        TextKeys keys(m_texts.size());
        for (const QString &text : std::as_const(m_texts))
            keys.append(text);
        m_ranks.resize(size_t(m_texts.size()));
        int rank = 0;
        qsizetype previous = -1;
        for (const qsizetype number : keys.sorted()) {
            if (previous >= 0 &&
                platform::compareCaseInsensitive(m_texts.at(previous), m_texts.at(number)) != 0)
                ++rank;
            m_ranks[size_t(number)] = rank;
            previous = number;
        }
    }

    Tags tagsOf(size_t word) const
    {
        return Tags(m_numbers).subspan(m_ends[word], m_ends[word + 1] - m_ends[word]);
    }

    QHash<QString, int> m_numberByText;
    QStringList m_texts;
    std::vector<int> m_ranks;
    std::vector<int> m_numbers;
    std::vector<size_t> m_ends;
};

std::vector<qsizetype> orderByTags(const TAVWordList &words)
{
    const NumberedTags tags(words);
    std::vector<qsizetype> order = indexesOf(words);
    std::stable_sort(order.begin(), order.end(),
                     [&tags](qsizetype a, qsizetype b) { return tags.isLess(a, b); });
    return order;
}

std::vector<qsizetype> orderOf(const TAVWordList &words, WordOrder order)
{
    switch (order) {
    case WordOrder::YourLang:
        return orderByText(words, [](const TAVWord &word) { return word.yourWordWithoutFacultatives(); });
    case WordOrder::ForeignLang:
        return orderByText(words, [](const TAVWord &word) { return word.foreignWordWithoutFacultatives(); });
    case WordOrder::Comment:
        return orderByText(words, [](const TAVWord &word) { return word.comment(); });
    case WordOrder::LastAsked:
        return orderByLastAsked(words);
    case WordOrder::Tags:
        return orderByTags(words);
    }
    return indexesOf(words);
}

} // namespace

void sortWords(TAVWordList &words, WordOrder order)
{
    arrangeWords(words, orderOf(words, order));
}

void arrangeWords(TAVWordList &words, const std::vector<qsizetype> &order)
{
    TAVWordList arranged;
    arranged.reserve(words.size());
    for (const qsizetype index : order)
        arranged.append(std::move(words[index]));
    words = std::move(arranged);
}
