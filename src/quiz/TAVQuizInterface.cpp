#include "quiz/TAVQuizInterface.h"

#include "app/ground/SettingsTable.h"

#include <numeric>

namespace {

/**
 * Takes words out of a list by their place among those that are left, without moving the rest: a run can be
 * chosen from tens of thousands of words. A tree of counts (Fenwick) finds the place.
 */
class WordDraw
{
public:
    explicit WordDraw(const TAVWordList &words)
        : m_words(words)
        , m_remaining(words.size())
        , m_counts(size_t(words.size()) + 1)
    {
        for (size_t i = 1; i < m_counts.size(); ++i)
            m_counts[i] = i & (~i + 1);
    }

    qsizetype remaining() const { return m_remaining; }

    TAVWordRef take(qint64 place)
    {
        size_t position = 0;
        for (size_t step = std::bit_floor(m_counts.size()); step > 0; step /= 2) {
            if (position + step < m_counts.size() && m_counts[position + step] <= size_t(place)) {
                position += step;
                place -= qint64(m_counts[position]);
            }
        }
        for (size_t i = position + 1; i < m_counts.size(); i += i & (~i + 1))
            --m_counts[i];
        --m_remaining;
        return std::exchange(m_words[qsizetype(position)], nullptr);
    }

    TAVWordRef takeRandom(const TAVRandom &random)
    {
        return take(random.randomIntBetween(0, m_remaining - 1));
    }

    /** Those not taken, in their order. */
    TAVWordList rest() const
    {
        TAVWordList words = m_words;
        words.removeAll(nullptr);
        return words;
    }

private:
    TAVWordList m_words;
    qsizetype m_remaining;
    std::vector<size_t> m_counts;
};

} // namespace

TAVQuizInterface::TAVQuizInterface()
{
    doCommonInitStuff();
}

TAVQuizInterface::TAVQuizInterface(const TAVLexiconRef &vocabulary)
    : m_vocabulary(vocabulary)
{
    doCommonInitStuff();
}

void TAVQuizInterface::doCommonInitStuff()
{
    m_askForForeignWord = true;
    m_askForYourWord = false;
    m_askUnknown = true;
    m_askUltrashort = true;
    m_askShortterm = true;
    m_askMidterm = true;
    m_askLongterm = true;
    m_askNative = false;
    m_isShowCommentWithQuestion = settings::isShowCommentWithQuestion.value();
    m_isWordsMustMatchAllTags = false;
    m_numberOfWordsToAsk = 30;
    m_askIndex = -1;
    m_wordsToAsk.clear();
    m_filterTags.clear();
}

QList<quint64> TAVQuizInterface::chosenLevels() const
{
    const std::pair<bool, quint64> options[] = {
        {m_askNative, 5},     {m_askLongterm, 4},  {m_askMidterm, 3},
        {m_askUltrashort, 1}, {m_askShortterm, 2}, {m_askUnknown, 0},
    };
    QList<quint64> levels;
    for (const auto &[isOn, level] : options) {
        if (isOn)
            levels.append(level);
    }
    return levels;
}

void TAVQuizInterface::createWordsToAsk()
{
    constexpr quint64 nativeLevel = 5;
    const QList<quint64> levels = chosenLevels();
    TAVWordList words;
    for (const quint64 level : levels) {
        if (level != nativeLevel)
            words.append(m_vocabulary->wordsOverDueFromLevel(level, m_filterTags, m_isWordsMustMatchAllTags));
    }

    if (words.size() > m_numberOfWordsToAsk) {
        WordDraw draw(words);
        while (draw.remaining() > std::max<qint64>(0, m_numberOfWordsToAsk))
            draw.takeRandom(m_random);
        words = draw.rest();
    }

    if (m_askNative && words.size() < m_numberOfWordsToAsk) {
        const TAVWordList native =
            m_vocabulary->wordsOverDueFromLevel(nativeLevel, m_filterTags, m_isWordsMustMatchAllTags);
        words.append(native.first(std::min<qint64>(native.size(), m_numberOfWordsToAsk - words.size())));
    }

    if (words.size() != m_numberOfWordsToAsk)
        topUp(words, levels);
    setWordsToAsk(words);
}

void TAVQuizInterface::topUp(TAVWordList &words, const QList<quint64> &levels) const
{
    // The levels may hold too few words that match; the run is then shorter than wanted.
    constexpr int maxRounds = 20;
    Q_ASSERT(!levels.isEmpty());
    TAVWordSet chosen(words);
    for (int round = 0; round < maxRounds && chosen.size() < m_numberOfWordsToAsk; ++round) {
        const qint64 share = std::max<qint64>(1, (m_numberOfWordsToAsk - chosen.size()) / levels.size());
        for (const quint64 level : levels) {
            const TAVWordList picked =
                m_vocabulary->randomlyPick(share, level, m_filterTags, m_isWordsMustMatchAllTags);
            for (const TAVWordRef &word : picked)
                chosen.insert(word);
            if (chosen.size() >= m_numberOfWordsToAsk)
                break;
        }
    }
    // Words that stood here before are now here twice; the clustering drops repeats.
    words.append(chosen.values());
}

void TAVQuizInterface::setWordsToAsk(const TAVWordList &words)
{
    m_isShowCommentWithQuestion = settings::isShowCommentWithQuestion.value();
    m_askIndex = -1;
    WordDraw draw(words);
    m_wordsToAsk.clear();
    while (draw.remaining() > 0)
        m_wordsToAsk.append(draw.takeRandom(m_random));
    clusterTagsInArray(m_wordsToAsk);
    m_numberOfWordsToAsk = m_wordsToAsk.size();
}

TAVWordRef TAVQuizInterface::nextWordToAsk()
{
    ++m_askIndex;
    return m_askIndex < m_wordsToAsk.size() ? m_wordsToAsk.at(m_askIndex) : nullptr;
}

void TAVQuizInterface::clusterTagsInArray(TAVWordList &words)
{
    QHash<QString, qsizetype> places;
    QList<TAVWordList> groups;
    const auto addToGroup = [&places, &groups](const QString &tag, const TAVWordRef &word) {
        const auto place = places.constFind(tag);
        if (place != places.constEnd()) {
            groups[*place].append(word);
        } else {
            places.insert(tag, groups.size());
            groups.append({word});
        }
    };
    for (const TAVWordRef &word : std::as_const(words)) {
        if (word->tags().isEmpty())
            addToGroup(QStringLiteral("noTagsSet"), word);
        for (const QString &tag : word->tags())
            addToGroup(tag, word);
    }

    TAVWordSet clustered;
    for (const TAVWordList &group : std::as_const(groups)) {
        for (const TAVWordRef &word : group)
            clustered.insert(word);
    }
    words = clustered.values();
}

qint64 TAVQuizInterface::distanceBetween(const QString &a, const QString &b)
{
    if (a == b)
        return 0;
    // Only the last two rows of the table are ever looked back at.
    const auto width = size_t(b.size()) + 1;
    std::vector<qint64> beforePrevious(width);
    std::vector<qint64> previous(width);
    std::vector<qint64> row(width);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        beforePrevious.swap(previous);
        previous.swap(row);
        row[0] = i;
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const auto column = size_t(j);
            const qint64 cost = a.at(i - 1) == b.at(j - 1) ? 0 : 1;
            row[column] = std::min({previous[column] + 1, row[column - 1] + 1, previous[column - 1] + cost});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                row[column] = std::min(row[column], beforePrevious[column - 2] + cost);
        }
    }
    return row.back();
}

bool TAVQuizInterface::drawDirection() const
{
    if (m_askForForeignWord && m_askForYourWord)
        return m_random.randomIntBetween(0, 1) == 0;
    return m_askForForeignWord || !m_askForYourWord;
}
