#include "model/WordSorting.h"

#include "platform/CaseFolding.h"

#include <limits>
#include <string_view>

namespace {

/** The start of the folded text as a number decides most comparisons; the rest stands in a common pool. */
struct TextKey
{
    quint64 beginning;
    size_t offset;
    size_t length;
    qsizetype index;
};

struct DateKey
{
    qint64 milliseconds;
    qsizetype index;
};

template <typename Key> void arrange(TAVWordList &words, const std::vector<Key> &keys)
{
    TAVWordList sorted;
    sorted.reserve(words.size());
    for (const Key &key : keys)
        sorted.append(std::move(words[key.index]));
    words = std::move(sorted);
}

quint64 beginningOf(std::u32string_view text)
{
    constexpr int bitsOfCodePoint = 21;
    constexpr size_t codePoints = 3;
    quint64 beginning = 0;
    for (size_t i = 0; i < codePoints; ++i)
        beginning = beginning << bitsOfCodePoint | (i < text.size() ? text[i] : 0);
    return beginning;
}

template <typename TextOf> void sortByText(TAVWordList &words, TextOf textOf)
{
    std::u32string pool;
    std::vector<TextKey> keys;
    keys.reserve(size_t(words.size()));
    for (qsizetype i = 0; i < words.size(); ++i) {
        const size_t offset = pool.size();
        platform::appendCaseFolded(pool, textOf(*words.at(i)));
        const size_t length = pool.size() - offset;
        keys.push_back({beginningOf(std::u32string_view(pool).substr(offset)), offset, length, i});
    }
    const std::u32string_view all = pool;
    std::sort(keys.begin(), keys.end(), [all](const TextKey &a, const TextKey &b) {
        if (a.beginning != b.beginning)
            return a.beginning < b.beginning;
        const int order = all.substr(a.offset, a.length).compare(all.substr(b.offset, b.length));
        return order != 0 ? order < 0 : a.index < b.index;
    });
    arrange(words, keys);
}

void sortByLastAsked(TAVWordList &words)
{
    std::vector<DateKey> keys;
    keys.reserve(size_t(words.size()));
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QDateTime date = words.at(i)->lastAsked();
        const qint64 never = std::numeric_limits<qint64>::min();
        keys.push_back({date.isValid() ? date.toMSecsSinceEpoch() : never, i});
    }
    std::sort(keys.begin(), keys.end(), [](const DateKey &a, const DateKey &b) {
        return a.milliseconds != b.milliseconds ? a.milliseconds < b.milliseconds : a.index < b.index;
    });
    arrange(words, keys);
}

} // namespace

void sortWords(TAVWordList &words, WordOrder order)
{
    switch (order) {
    case WordOrder::YourLang:
        return sortByText(words, [](const TAVWord &word) { return word.yourWordWithoutFacultatives(); });
    case WordOrder::ForeignLang:
        return sortByText(words, [](const TAVWord &word) { return word.foreignWordWithoutFacultatives(); });
    case WordOrder::Comment:
        return sortByText(words, [](const TAVWord &word) { return word.comment(); });
    case WordOrder::LastAsked:
        return sortByLastAsked(words);
    case WordOrder::Tags:
        std::stable_sort(words.begin(), words.end(),
                         [](const TAVWordRef &a, const TAVWordRef &b) { return a->compareTags(*b) < 0; });
    }
}
