#include "model/TextKeys.h"

#include "platform/CaseFolding.h"

#include <string_view>

namespace {

quint64 beginningOf(std::u32string_view text)
{
    constexpr int bitsOfCodePoint = 21;
    constexpr size_t codePoints = 3;
    quint64 beginning = 0;
    for (size_t i = 0; i < codePoints; ++i)
        beginning = beginning << bitsOfCodePoint | (i < text.size() ? text[i] : 0);
    return beginning;
}

} // namespace

void TextKeys::append(const QString &text)
{
    const size_t offset = m_pool.size();
    const auto number = qsizetype(m_keys.size());
    platform::appendCaseFolded(m_pool, text);
    const std::u32string_view folded = std::u32string_view(m_pool).substr(offset);
    m_keys.push_back({beginningOf(folded), offset, folded.size(), number, number});
}

void TextKeys::setPreviousOrder(const std::vector<qsizetype> &numbers)
{
    for (size_t place = 0; place < numbers.size(); ++place)
        m_keys[size_t(numbers[place])].place = qsizetype(place);
}

std::vector<qsizetype> TextKeys::sorted()
{
    const std::u32string_view pool = m_pool;
    std::sort(m_keys.begin(), m_keys.end(), [pool](const Key &a, const Key &b) {
        if (a.beginning != b.beginning)
            return a.beginning < b.beginning;
        const int order = pool.substr(a.offset, a.length).compare(pool.substr(b.offset, b.length));
        return order != 0 ? order < 0 : a.place < b.place;
    });

    std::vector<qsizetype> numbers;
    numbers.reserve(m_keys.size());
    for (const Key &key : m_keys)
        numbers.push_back(key.number);
    return numbers;
}
