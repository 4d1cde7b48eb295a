#pragma once

#include <QString>

#include <string>
#include <vector>

/** Keys by which a list is sorted in the order of compareCaseInsensitive(), made once for each of its texts.
 */
class TextKeys
{
public:
    explicit TextKeys(qsizetype size) { m_keys.reserve(size_t(size)); }

    /** Texts are numbered in the order of their adding. */
    void append(const QString &text);
    /** Lets equal texts keep the order of these numbers instead of their own. */
    void setPreviousOrder(const std::vector<qsizetype> &numbers);
    /** The numbers in sorted order. To be called last. */
    std::vector<qsizetype> sorted();

private:
    /** The beginning of the folded text as one number decides most comparisons; the rest stands in the pool.
     */
    struct Key
    {
        quint64 beginning;
        size_t offset;
        size_t length;
        qsizetype number;
        qsizetype place;
    };

    std::u32string m_pool;
    std::vector<Key> m_keys;
};
