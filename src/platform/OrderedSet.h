#pragma once

#include <QHash>
#include <QList>
#include <QSet>

#include <initializer_list>
#include <memory>

namespace platform {

/**
 * A set that delivers its members in the order of their insertion, so that two runs on the same members do
 * the same. Small sets are searched one by one, larger ones through an index. Pointers are compared by
 * identity.
 */
template <typename T> class OrderedSet
{
public:
    using const_iterator = typename QList<T>::const_iterator;
    using value_type = T;

    OrderedSet() = default;
    OrderedSet(std::initializer_list<T> members)
    {
        for (const T &member : members)
            insert(member);
    }
    template <typename Iterator> OrderedSet(Iterator first, Iterator last)
    {
        for (; first != last; ++first)
            insert(*first);
    }
    explicit OrderedSet(const QList<T> &members)
        : OrderedSet(members.begin(), members.end())
    {
    }

    bool contains(const T &member) const
    {
        return m_members.size() <= smallSize ? m_members.contains(member) : m_index.contains(member);
    }
    /** Whether the member is new. */
    bool insert(const T &member)
    {
        if (contains(member))
            return false;
        m_members.append(member);
        if (m_members.size() == smallSize + 1)
            m_index = QSet<T>(m_members.begin(), m_members.end());
        else if (m_members.size() > smallSize)
            m_index.insert(member);
        return true;
    }
    /** Whether the member was there. Takes time in proportion to the size. */
    bool remove(const T &member)
    {
        if (!contains(member) || !m_members.removeOne(member))
            return false;
        if (m_members.size() > smallSize)
            m_index.remove(member);
        else
            m_index.clear();
        return true;
    }
    /** Removes all members for which the test holds, in one pass. */
    template <typename Test> void removeIf(Test test)
    {
        const qsizetype removed = m_members.removeIf(test);
        if (removed > 0 && !m_index.isEmpty())
            m_index = m_members.size() > smallSize ? QSet<T>(m_members.begin(), m_members.end()) : QSet<T>();
    }
    void clear()
    {
        m_members.clear();
        m_index.clear();
    }
    void reserve(qsizetype size) { m_members.reserve(size); }

    qsizetype size() const { return m_members.size(); }
    bool isEmpty() const { return m_members.isEmpty(); }
    const_iterator begin() const { return m_members.cbegin(); }
    const_iterator end() const { return m_members.cend(); }
    /** The members in order of insertion. */
    const QList<T> &values() const { return m_members; }

    /** Whether both hold the same members, in whatever order. */
    friend bool operator==(const OrderedSet &a, const OrderedSet &b)
    {
        if (a.size() != b.size())
            return false;
        for (const T &member : a) {
            if (!b.contains(member))
                return false;
        }
        return true;
    }

private:
    static constexpr qsizetype smallSize = 12;
    QList<T> m_members;
    QSet<T> m_index;
};

using TextSet = OrderedSet<QString>;

} // namespace platform
