#include "StorageTest.h"

#include <plist/plist.h>

using namespace Qt::StringLiterals;

namespace {

/** {"uid": n} is a reference, {"real": x} a real, {"data": "x"} bytes; all else is what it looks like. */
plist_t nodeOf(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    if (object.contains("uid"_L1))
        return plist_new_uid(uint64_t(object["uid"_L1].toInteger()));
    if (object.contains("real"_L1))
        return plist_new_real(object["real"_L1].toDouble());
    if (object.contains("data"_L1)) {
        const QByteArray bytes = object["data"_L1].toString().toUtf8();
        return plist_new_data(bytes.constData(), uint64_t(bytes.size()));
    }
    if (value.isString())
        return plist_new_string(value.toString().toUtf8().constData());
    if (value.isBool())
        return plist_new_bool(value.toBool());
    if (value.isDouble())
        return plist_new_uint(uint64_t(value.toInteger()));
    const plist_t node = value.isArray() ? plist_new_array() : plist_new_dict();
    for (const QJsonValue member : value.toArray())
        plist_array_append_item(node, nodeOf(member));
    for (auto it = object.begin(); it != object.end(); ++it)
        plist_dict_set_item(node, it.key().toUtf8().constData(), nodeOf(it.value()));
    return node;
}

/** The bytes of an archive whose objects from number 1 on are told as JSON; number 1 is the root. */
QByteArray archiveOf(const QByteArray &objectsJson)
{
    QJsonParseError error;
    QJsonArray objects = QJsonDocument::fromJson(objectsJson, &error).array();
    EXPECT_EQ(error.error, QJsonParseError::NoError) << objectsJson.toStdString();
    objects.prepend(u"$null"_s);
    const plist_t archive =
        nodeOf(QJsonObject{{u"$version"_s, 100000},
                           {u"$archiver"_s, u"NSKeyedArchiver"_s},
                           {u"$top"_s, QJsonObject{{u"root"_s, QJsonObject{{u"uid"_s, 1}}}}},
                           {u"$objects"_s, objects}});
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(archive, &bytes, &length);
    const QByteArray copy(bytes, qsizetype(length));
    plist_to_bin_free(bytes);
    plist_free(archive);
    return copy;
}

QByteArray bigEndian(quint64 value, int size)
{
    QByteArray bytes;
    for (int i = size - 1; i >= 0; --i)
        bytes += char(value >> (8 * i));
    return bytes;
}

/** A container made of raw objects, the first of which is the root; references take one byte. */
QByteArray rawList(const QByteArrayList &objects)
{
    QByteArray bytes = "bplist00";
    QByteArray offsets;
    for (const QByteArray &object : objects) {
        offsets += bigEndian(quint64(bytes.size()), 4);
        bytes += object;
    }
    const auto table = quint64(bytes.size());
    return bytes + offsets + QByteArray(6, '\0') + "\x04\x01" + bigEndian(quint64(objects.size()), 8) +
           bigEndian(0, 8) + bigEndian(table, 8);
}

/** What each object of a saved archive is, resolved by hand. */
class SavedArchive
{
public:
    explicit SavedArchive(const QByteArray &bytes)
    {
        plist_from_bin(bytes.constData(), uint32_t(bytes.size()), &m_root);
        m_objects = plist_dict_get_item(m_root, "$objects");
    }
    ~SavedArchive() { plist_free(m_root); }

    plist_t root() { return follow(plist_access_path(m_root, 2, "$top", "root")); }
    plist_t follow(plist_t reference)
    {
        uint64_t number = 0;
        plist_get_uid_val(reference, &number);
        return plist_array_get_item(m_objects, uint32_t(number));
    }
    plist_t field(plist_t object, const char *key) { return follow(plist_dict_get_item(object, key)); }
    QByteArray className(plist_t object)
    {
        return text(plist_dict_get_item(field(object, "$class"), "$classname"));
    }
    static QByteArray text(plist_t node)
    {
        char *value = nullptr;
        plist_get_string_val(node, &value);
        const QByteArray copy = value;
        free(value);
        return copy;
    }
    static qint64 number(plist_t object, const char *key)
    {
        uint64_t value = 0;
        plist_get_uint_val(plist_dict_get_item(object, key), &value);
        return qint64(value);
    }
    plist_t archive() { return m_root; }

private:
    plist_t m_root = nullptr;
    plist_t m_objects = nullptr;
};

class LxaTest : public StorageTest
{
protected:
    TAVLexiconRef load(const QByteArray &bytes)
    {
        const QString path = inVocabularies(u"Old one.lxa"_s);
        writeBytes(path, bytes);
        services.alerts.shown.clear();
        return TAVStorageManager::vocabularyFromFile(path);
    }
    void expectAlert(const QByteArray &bytes)
    {
        EXPECT_FALSE(load(bytes));
        ASSERT_EQ(services.alerts.shown.size(), 1);
        EXPECT_EQ(services.alerts.shown.first().text,
                  u"The selected language 'Old one' could not be loaded."_s);
        EXPECT_EQ(services.alerts.shown.first().buttons, QStringList{u"OK"_s});
    }
};

constexpr const char *classes =
    R"({"$classname":"TAVLexicon","$classes":["TAVLexicon","NSObject"]},
       {"$classname":"TAVWord","$classes":["TAVWord","NSObject"]},
       {"$classname":"NSArray","$classes":["NSArray","NSObject"]},
       {"$classname":"NSSet","$classes":["NSSet","NSObject"]},
       {"$classname":"NSMutableString","$classes":["NSMutableString","NSString","NSObject"]},
       {"$classname":"NSDate","$classes":["NSDate","NSObject"]})";

/** Number 1 is the given lexicon, 2 to 7 are the classes above, the rest starts at 8. */
QByteArray lexicon(const QByteArray &fields, const QByteArray &rest = {})
{
    QByteArray objects = "[{" + fields + (fields.isEmpty() ? "" : ",") + R"("$class":{"uid":2}},)" + classes;
    return archiveOf(objects + (rest.isEmpty() ? "" : ",") + rest + "]");
}

/** A lexicon with one word at that level, its list being number 8 and the word number 9. */
QByteArray lexiconWithWord(const QByteArray &levelKey, const QByteArray &fields, const QByteArray &rest = {})
{
    return lexicon('"' + levelKey + R"(":{"uid":8})", R"({"NS.objects":[{"uid":9}],"$class":{"uid":4}},{)" +
                                                          fields + R"("$class":{"uid":3}})" +
                                                          (rest.isEmpty() ? "" : ",") + rest);
}

} // namespace

TEST_F(LxaTest, readsTheVariantsOfTextsSetsNumbersAndDates)
{
    const TAVLexiconRef vocabulary = load(lexiconWithWord(
        "nativeWords",
        R"("yourWord":{"uid":10},"foreignWord":{"uid":11},"comment":"inline","tags":{"uid":12},
           "lastAsked":{"uid":14},"creationID":{"real":8063248000000.0},"modificationID":{"uid":15},
           "wrongAnswerCounter":3,"level":true,"dontAskAgain":1,)",
        R"({"NS.string":"object","$class":{"uid":6}},{"NS.bytes":{"data":"bytes é"},"$class":{"uid":6}},
           {"NS.objects":[{"uid":13}],"$class":{"uid":16}},"tag",{"NS.time":800000000,"$class":{"uid":7}},99,
           {"$classname":"OurSet","$classes":["OurSet","NSMutableSet","NSSet","NSObject"]})"));
    ASSERT_TRUE(vocabulary);
    const TAVWordRef word = vocabulary->allWords().first();
    EXPECT_EQ(word->yourWord(), u"object"_s);
    EXPECT_EQ(word->foreignWord(), u"bytes é"_s);
    EXPECT_EQ(word->comment(), u"inline"_s);
    EXPECT_EQ(word->tags(), TAVTextSet({u"tag"_s}));
    EXPECT_EQ(word->lastAsked().toSecsSinceEpoch(), 1778307200);
    EXPECT_EQ(word->creationID(), 8063248000000);
    EXPECT_EQ(word->modificationID(), 99);
    EXPECT_EQ(word->fallenDownCounter(), 3u);
    EXPECT_TRUE(word->dontAskAgain());
    EXPECT_EQ(word->level(), 5u);
    EXPECT_EQ(vocabulary->fileNameWhereLoadedFrom(), u"Old one.lxa"_s);
    const QByteArray fraction = R"({"NS.time":{"real":800000000.25},"$class":{"uid":7}})";
    const TAVLexiconRef other =
        load(lexiconWithWord("nativeWords", R"("foreignWord":"x","lastAsked":{"uid":10},)", fraction));
    EXPECT_EQ(other->allWords().first()->lastAsked().toMSecsSinceEpoch(), 1778307200250);
}

TEST_F(LxaTest, absentKeysReadByTheirDefaults)
{
    const TAVLexiconRef empty = load(lexicon(R"("version":-4)"));
    ASSERT_TRUE(empty);
    EXPECT_FALSE(empty->language());
    EXPECT_EQ(empty->yourLanguageName(), u"yourLanguageName"_s);
    EXPECT_EQ(empty->statistics()->numberOfDaysRecorded(), 0);
    EXPECT_FALSE(empty->isAutoSelectInputSource());
    EXPECT_EQ(empty->version(), 0);
    EXPECT_EQ(load(lexicon(R"("language":"Old","foreignLanguageName":{"uid":0})"))->foreignLanguageName(),
              u"Old"_s);

    // An absent foreign word takes the other with it.
    const TAVWordRef word =
        load(lexiconWithWord("unknownWords", R"("yourWord":"a","comment":"c","creationID":-2,)"))
            ->allWords()
            .first();
    EXPECT_EQ(word->yourWord(), QString());
    EXPECT_EQ(word->foreignWord(), QString());
    EXPECT_EQ(word->comment(), u"c"_s);
    EXPECT_GT(word->creationID(), 0);
}

TEST_F(LxaTest, onlyTheHighestListKeepsExclusion)
{
    for (const char *key : {"unknownWords", "longTermWords", "nativeWords"}) {
        const TAVLexiconRef vocabulary =
            load(lexiconWithWord(key, R"("foreignWord":"x","dontAskAgain":true,"level":2,)"));
        EXPECT_EQ(vocabulary->allWords().first()->dontAskAgain(), QByteArray(key) == "nativeWords") << key;
        EXPECT_NE(vocabulary->allWords().first()->level(), 2u) << key;
    }
}

TEST_F(LxaTest, oneCountIsKeptInThirtyTwoBits)
{
    const TAVLexiconRef vocabulary = load(lexicon(
        R"("statistics":{"uid":8})",
        R"({"dailySnapshots":{"uid":9},"$class":{"uid":10}},{"NS.objects":[{"uid":11}],"$class":{"uid":4}},
           {"$classname":"TAVStatistics"},
           {"numberOfUltraShortTermWords":4294967298,"numberOfShortTermWords":4294967298,"$class":{"uid":12}},
           {"$classname":"TAVDailyStatisticsSnapshot"})"));
    const TAVSnapshotRef day = vocabulary->statistics()->lastSnapshot();
    EXPECT_EQ(day->numberOfWordsInLevel(1), 2);
    EXPECT_EQ(day->numberOfWordsInLevel(2), 4294967298);
}

TEST_F(LxaTest, damagedArchivesGiveTheAlert)
{
    struct Case
    {
        const char *what;
        QByteArray bytes;
    };
    const QByteArray whole = lexicon(R"("language":"long text")");
    ASSERT_TRUE(load(whole));
    QByteArray manyReferences = R"({"NS.objects":[)";
    for (int i = 0; i < 100000; ++i)
        manyReferences += R"({"uid":9},)";
    manyReferences += R"({"uid":9}],"$class":{"uid":4}},{"comment":{"uid":10},"$class":{"uid":3}},")" +
                      QByteArray(5000, 'x') + '"';
    QByteArrayList doubling;
    for (char i = 0; i < 120; ++i)
        doubling.append(QByteArray("\xa2") + char(i + 1) + char(i + 1));
    doubling.append("\x09");
    QByteArrayList nested = doubling.first(31);
    nested.append("\x09");
    const Case cases[] = {
        {"nothing", {}},
        {"no container", "something else, but long enough to hold a trailer of a container"},
        {"another form of the container", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>"},
        {"cut off", whole.first(whole.size() / 2)},
        {"another root", archiveOf(R"([{"$class":{"uid":2}},{"$classname":"NSDate"}])")},
        {"root without class", archiveOf("[{}]")},
        {"root without class name", archiveOf(R"([{"$class":{"uid":2}},{"$classes":["TAVLexicon",3]}])")},
        {"root is itself a reference", archiveOf(R"([{"uid":1}])")},
        {"reference out of range", lexicon(R"("language":{"uid":4000})")},
        {"number for a text", lexicon(R"("language":5)")},
        {"text for a number", lexicon(R"("version":"5")")},
        {"text object of a wrong class",
         lexicon(R"("language":{"uid":8})", R"({"NS.string":"x","$class":{"uid":3}})")},
        {"text object without text", lexicon(R"("language":{"uid":8})", R"({"$class":{"uid":6}})")},
        {"set for a list", lexicon(R"("unknownWords":{"uid":8})", R"({"NS.objects":[],"$class":{"uid":5}})")},
        {"list without members", lexicon(R"("unknownWords":{"uid":8})", R"({"$class":{"uid":4}})")},
        {"absent word in a list",
         lexicon(R"("unknownWords":{"uid":8})", R"({"NS.objects":[{"uid":0}],"$class":{"uid":4}})")},
        {"list that holds itself",
         lexicon(R"("unknownWords":{"uid":8})", R"({"NS.objects":[{"uid":8}],"$class":{"uid":4}})")},
        {"lexicon as its own word",
         lexicon(R"("unknownWords":{"uid":8})", R"({"NS.objects":[{"uid":1}],"$class":{"uid":4}})")},
        {"one word again and again", lexicon(R"("unknownWords":{"uid":8})", manyReferences)},
        {"container within itself", rawList({"\xa1" + QByteArray(1, '\0')})},
        {"count beyond the file", rawList({"\xaf\x13\x7f\xff\xff\xff\xff\xff\xff\xff"})},
        {"text beyond the file", rawList({"\x6f\x13\x7f\xff\xff\xff\xff\xff\xff\xff"})},
        {"text with a null that is a part of another object",
         rawList({"\xa2\x01\x02" + QByteArray("\x57") + "\xa1\x03" + QByteArray("abcd\0", 5), "\x09"})},
        {"number as a key", rawList({QByteArray("\xd1\x01\x01"), "\x10\x05"})},
        {"deep nesting", rawList(doubling)},
        {"references that double at each step", rawList(nested)},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        expectAlert(c.bytes);
    }
    // No cut and no changed byte may do worse.
    for (qsizetype i = 0; i < whole.size(); ++i) {
        QByteArray changed = whole;
        changed[i] = char(changed[i] ^ 0xff);
        const TAVLexiconRef read = load(changed);
        EXPECT_EQ(read == nullptr, services.alerts.shown.size() == 1) << i;
    }
}

TEST_F(LxaTest, aNullIsACharacterOfItsText)
{
    const QByteArray narrow = lexicon(R"("language":"long text")");
    const QByteArray wide = lexicon(R"("language":"日本")");
    const TAVLexiconRef vocabulary =
        load(QByteArray(narrow).replace("long text", QByteArrayView("long\0text", 9)));
    ASSERT_TRUE(vocabulary);
    EXPECT_EQ(vocabulary->language(), u"long"_s + QChar::Null + u"text"_s);
    const TAVLexiconRef other =
        load(QByteArray(wide).replace(QByteArrayView("\x65\xe5", 2), QByteArrayView("\0\0", 2)));
    ASSERT_TRUE(other);
    EXPECT_EQ(other->language(), QChar::Null + u"本"_s);
}

TEST_F(LxaTest, aMissingFileIsAbsentWithoutAlert)
{
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(inVocabularies(u"none.lxa"_s)));
    EXPECT_TRUE(services.alerts.shown.isEmpty());
    ASSERT_TRUE(QDir().mkpath(inVocabularies(u"folder.lxa"_s)));
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(inVocabularies(u"folder.lxa"_s)));
    EXPECT_EQ(services.alerts.shown.size(), 1);
}

TEST_F(LxaTest, writesWhatAnyReaderOfSuchArchivesExpects)
{
    const TAVLexiconRef vocabulary = makeNamed(u"日本語"_s);
    const auto word = std::make_shared<TAVWord>(u"house"_s, u"家"_s, std::nullopt);
    word->setTags({u"a"_s, u"b"_s});
    word->setLastAsked(QDateTime::fromMSecsSinceEpoch(978307200500, Qt::UTC));
    word->setLevel(4);
    vocabulary->addWordWithID(word, 12);
    vocabulary->addWordWithID(std::make_shared<TAVWord>(), 13);
    const QString path = inVocabularies(u"x.lxa"_s);
    ASSERT_TRUE(TAVStorageManager::saveVocabularyToLXAFile(vocabulary, path));
    EXPECT_EQ(services.diagnosticLines, QStringList{u"VocController > saveVoc > created lxa data"_s});
    EXPECT_TRUE(backups().isEmpty());

    SavedArchive saved(bytesOf(path));
    EXPECT_EQ(SavedArchive::number(saved.archive(), "$version"), 100000);
    EXPECT_EQ(SavedArchive::text(plist_dict_get_item(saved.archive(), "$archiver")), "NSKeyedArchiver");
    EXPECT_EQ(saved.className(saved.root()), "TAVLexicon");
    EXPECT_EQ(plist_dict_get_size(saved.root()), 19u);
    EXPECT_EQ(SavedArchive::text(saved.field(saved.root(), "language")), "日本語");
    EXPECT_EQ(SavedArchive::text(saved.field(saved.root(), "yourTextInputSourceName")), "$null");
    const plist_t list = saved.field(saved.root(), "longTermWords");
    EXPECT_EQ(saved.className(list), "NSMutableArray");
    const plist_t first = saved.follow(plist_array_get_item(plist_dict_get_item(list, "NS.objects"), 0));
    EXPECT_EQ(saved.className(first), "TAVWord");
    EXPECT_EQ(plist_dict_get_size(first), 11u);
    EXPECT_EQ(SavedArchive::number(first, "creationID"), 12);
    double time = 0;
    plist_get_real_val(plist_dict_get_item(saved.field(first, "lastAsked"), "NS.time"), &time);
    EXPECT_EQ(time, 0.5);
    const plist_t tags = saved.field(first, "tags");
    EXPECT_EQ(saved.className(tags), "NSMutableSet");
    EXPECT_EQ(plist_array_get_size(plist_dict_get_item(tags, "NS.objects")), 2u);
    const plist_t ancestors = plist_dict_get_item(saved.field(tags, "$class"), "$classes");
    ASSERT_EQ(plist_array_get_size(ancestors), 3u);
    EXPECT_EQ(SavedArchive::text(plist_array_get_item(ancestors, 1)), "NSSet");
}

TEST_F(LxaTest, aRealVocabularyComesBackTheSameInBothForms)
{
    const QString folder = QLatin1String(TAVIMO_SOURCE_DIR "/../shared/data/");
    if (!QFileInfo::exists(folder))
        GTEST_SKIP() << "no real vocabulary beside the repository";
    const TAVLexiconRef archived = TAVStorageManager::vocabularyFromFile(folder + u"Italian - English.lxa"_s);
    const TAVLexiconRef whole = TAVStorageManager::vocabularyFromFile(folder + u"Italian - English.tavv"_s);
    ASSERT_TRUE(archived && whole);
    EXPECT_EQ(archived->countAllWords(), 300);
    QHash<qint64, TAVWordRef> byId;
    for (const TAVWordRef &word : whole->allWords())
        byId.insert(word->creationID(), word);
    for (const TAVWordRef &word : archived->allWords()) {
        const TAVWordRef other = byId.value(word->creationID());
        ASSERT_TRUE(other);
        if (word->level() == 4) // the two forms differ there
            other->setDontAskAgain(false);
        EXPECT_EQ(word->dictionaryRepresentation(), other->dictionaryRepresentation());
    }
    const QString copy = inVocabularies(u"copy.lxa"_s);
    ASSERT_TRUE(TAVStorageManager::saveVocabularyToLXAFile(archived, copy));
    const TAVLexiconRef again = TAVStorageManager::vocabularyFromFile(copy);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->dictionaryRepresentation(), archived->dictionaryRepresentation());
}
