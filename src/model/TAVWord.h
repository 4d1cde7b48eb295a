#pragma once

#include "platform/OrderedSet.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class ArchiveDecoder;
class ArchiveEncoder;
class FieldSink;
class FieldSource;
class TAVLexicon;
class TAVWord;

using TAVWordRef = std::shared_ptr<TAVWord>;
using TAVWordList = QList<TAVWordRef>;
/** Words by identity, in order of insertion. */
using TAVWordSet = platform::OrderedSet<TAVWordRef>;
using TAVTextSet = platform::TextSet;

/** One word pair of a vocabulary. Lists and sets compare words by identity, never by content. */
class TAVWord
{
public:
    TAVWord();
    TAVWord(const QString &yourWord, const QString &foreignWord, const std::optional<QString> &comment);

    /** Reads the short keys of a vocabulary file; absent: a word with all defaults. */
    static TAVWordRef initWithDictionary(const std::optional<QJsonObject> &dictionary);
    static TAVWordRef initWithFields(FieldSource &source);
    QJsonObject dictionaryRepresentation() const;
    /** The fields of dictionaryRepresentation(), which are the form in a vocabulary's file. */
    void writeFields(FieldSink &sink) const;
    static TAVWordRef initWithCoder(const ArchiveDecoder &decoder);
    void encodeWithCoder(ArchiveEncoder &encoder) const;

    /** A new record with the same identity and content, the link to the vocabulary included. */
    TAVWordRef copy() const;

    /** The user has excluded the word from rehearsal. */
    bool dontAskAgain() const { return m_dontAskAgain; }
    void setDontAskAgain(bool flag) { m_dontAskAgain = flag; }
    /** Identity in the vocabulary, from the seconds since 2001; 0 or less: none yet. */
    qint64 creationID() const { return m_creationID; }
    void setCreationID(qint64 creationID) { m_creationID = creationID; }
    /** Time of the last edit by the user in seconds since 1970; 0: not edited since creation. */
    qint64 modificationID() const { return m_modificationID; }
    void setModificationID(qint64 modificationID) { m_modificationID = modificationID; }
    /** When the word was last answered in a quiz; invalid: never. */
    QDateTime lastAsked() const { return m_lastAsked; }
    void setLastAsked(const QDateTime &date) { m_lastAsked = date; }
    /** How many wrong answers have pulled the word down. */
    quint64 fallenDownCounter() const { return m_fallenDownCounter; }
    void setFallenDownCounter(quint64 counter) { m_fallenDownCounter = counter; }
    /** Memory level, 0 to 5. The caller drops the vocabulary's level lists after a change. */
    quint64 level() const { return m_level; }
    void setLevel(quint64 level) { m_level = level; }

    /** Word in the user's language, trimmed. */
    const QString &yourWord() const { return m_yourWord; }
    /** Absent stores the empty text. */
    void setYourWord(const std::optional<QString> &word);
    /** Word in the foreign language, trimmed. */
    const QString &foreignWord() const { return m_foreignWord; }
    /** Absent empties yourWord and leaves foreignWord; callers pass the empty text to clear it. */
    void setForeignWord(const std::optional<QString> &word);
    /** Free text, kept as it comes. */
    const QString &comment() const { return m_comment; }
    void setComment(const QString &comment) { m_comment = comment; }

    const TAVTextSet &tags() const { return m_tags; }
    void setTags(const TAVTextSet &tags);
    /** An absent or empty text is ignored, another is trimmed first. The caller rebuilds the tag index. */
    void addTag(const std::optional<QString> &tag);
    /** The tags in case-insensitive order. */
    const QStringList &tagsSorted() const { return m_tagsSorted; }

    /** The vocabulary that holds the word. */
    std::shared_ptr<TAVLexicon> weakVocForSort() const { return m_weakVocForSort.lock(); }
    void setWeakVocForSort(const std::weak_ptr<TAVLexicon> &vocabulary) { m_weakVocForSort = vocabulary; }

    /** The word without one leading facultative word of its vocabulary; what sorting goes by. */
    QString yourWordWithoutFacultatives() const;
    QString foreignWordWithoutFacultatives() const;
    static QString wordByRemovingFacultatives(const TAVTextSet &facultatives, const QString &word);

    /** Whether a text or tag holds the term, without regard to case. Absent or empty: false. */
    bool matchesSearchTerm(const std::optional<QString> &term) const;

    /** Each returns -1, 0 or 1. */
    int compareYourLang(const TAVWord &other) const;
    int compareForeignLang(const TAVWord &other) const;
    int compareComment(const TAVWord &other) const;
    /** Never asked comes first, then the longest ago. */
    int compareLastAsked(const TAVWord &other) const;
    /** Fewer tags come first. */
    int compareTags(const TAVWord &other) const;

    /** Whether both texts are equal, case included. */
    bool isEqualToWord(const TAVWord &other) const;
    /** Whether all stored fields are equal; never true for a word that was never asked. */
    bool isAllPropertiesEqual(const TAVWord &other) const;

    QString description() const;

private:
    // What sorting and counting read comes first, so that a walk over all words fetches little memory.
    QString m_yourWord;
    QString m_foreignWord;
    std::weak_ptr<TAVLexicon> m_weakVocForSort;
    quint64 m_level = 0;
    QDateTime m_lastAsked;
    bool m_dontAskAgain = false;
    qint64 m_creationID = 0;
    qint64 m_modificationID = 0;
    quint64 m_fallenDownCounter = 0;
    QString m_comment;
    TAVTextSet m_tags;
    QStringList m_tagsSorted;
};
