#include "StorageTest.h"

#include <QElapsedTimer>

#include <limits>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr auto realFolder = TAVIMO_SOURCE_DIR "/../shared/data/";

QJsonObject savedMap(const TAVLexiconRef &vocabulary)
{
    EXPECT_TRUE(TAVStorageManager::saveVocabulary(vocabulary));
    const QByteArray file = bytesOf(TAVStorageManager::savePathForVocabulary(*vocabulary));
    EXPECT_TRUE(file.startsWith("BZh9")) << "blocks of 900 kB";
    return QJsonDocument::fromJson(bunzip2(file)).object();
}

/** A vocabulary's words as an independent program tells them, sorted by level. */
QJsonArray wordsOf(const QJsonObject &file)
{
    QJsonArray words;
    for (const auto key : {"unknownWords"_L1, "ultraShortTermWords"_L1, "shortTermWords"_L1,
                           "midTermWords"_L1, "longTermWords"_L1, "nativeWords"_L1}) {
        for (const QJsonValue word : file[key]["words"_L1].toArray())
            words.append(word);
    }
    return words;
}

/** Sets are compared without their order. */
QStringList sorted(const QJsonValue &texts)
{
    QStringList list = texts.toVariant().toStringList();
    list.sort();
    return list;
}

QByteArray oneWord(const QByteArray &key, const QByteArray &word)
{
    return "{\"" + key + "\":{\"words\":[" + word + "]}}";
}

} // namespace

using TavvTest = StorageTest;

TEST_F(TavvTest, writesEveryTopLevelKeyAndNoDefaultOfAWord)
{
    const TAVLexiconRef vocabulary = makeNamed(u"Italian"_s);
    const auto full = std::make_shared<TAVWord>(u" \"to\" go\\\n "_s, u"andare"_s, u"\u0001 \U0001F600"_s);
    full->setTags({u"Verbs"_s, u"é"_s, u"verbs"_s});
    full->setLastAsked(QDateTime::fromMSecsSinceEpoch(1794897813987, Qt::UTC));
    full->setModificationID(1791280632);
    full->setFallenDownCounter(6);
    full->setDontAskAgain(true);
    full->setLevel(5);
    const auto plain = std::make_shared<TAVWord>(u"house"_s, u"casa"_s, std::nullopt);
    vocabulary->addWordWithID(full, 8063248000003);
    vocabulary->addWordWithID(plain, 0);
    vocabulary->setYourFacultativeWords({u"to"_s});
    vocabulary->setForeignFacultativeWords({u"il"_s, u"la"_s});
    vocabulary->setYourTextInputSourceId(u"us"_s);
    vocabulary->setForeignTextInputSourceId(u"it"_s);
    vocabulary->setIsAutoSelectInputSource(false);
    vocabulary->setIsDisableMisspellRecognition(true);
    vocabulary->setNeedsSync(true);
    vocabulary->setVersion(7);
    for (int level = 0; level < 6; ++level)
        vocabulary->statistics()->lastSnapshot()->setNumberOfWordsInLevel(level, qint64(level) * 10);

    const QJsonObject saved = savedMap(vocabulary);
    const QJsonObject empty{{u"words"_s, QJsonArray()}};
    const QJsonObject today{{u"day"_s, 1794960000}, {u"noUST"_s, 10}, {u"noST"_s, 20},
                            {u"noMT"_s, 30},        {u"noLT"_s, 40},  {u"noN"_s, 50}};
    const QJsonObject expectedFull{{u"yw"_s, u"\"to\" go\\"_s},
                                   {u"fw"_s, u"andare"_s},
                                   {u"c"_s, u"\u0001 \U0001F600"_s},
                                   {u"la"_s, 1794897813},
                                   {u"t"_s, QJsonArray{u"Verbs"_s, u"é"_s, u"verbs"_s}},
                                   {u"cid"_s, qint64(8063248000003)},
                                   {u"mid"_s, 1791280632},
                                   {u"daa"_s, true},
                                   {u"wc"_s, 6},
                                   {u"l"_s, 5}};
    const QJsonObject expectedPlain{{u"yw"_s, u"house"_s}, {u"fw"_s, u"casa"_s}};
    const QJsonObject expected{{u"unknownWords"_s, QJsonObject{{u"words"_s, QJsonArray{expectedPlain}}}},
                               {u"ultraShortTermWords"_s, empty},
                               {u"shortTermWords"_s, empty},
                               {u"midTermWords"_s, empty},
                               {u"longTermWords"_s, empty},
                               {u"nativeWords"_s, QJsonObject{{u"words"_s, QJsonArray{expectedFull}}}},
                               {u"language"_s, u"Italian"_s},
                               {u"foreignLanguageName"_s, u"Italian"_s},
                               {u"yourLanguageName"_s, u"English"_s},
                               {u"yourFacultativeWords"_s, QJsonArray{u"to"_s}},
                               {u"foreignFacultativeWords"_s, QJsonArray{u"il"_s, u"la"_s}},
                               {u"statistics"_s, QJsonObject{{u"dailySnapshots"_s, QJsonArray{today}}}},
                               {u"yourTextInputSourceName"_s, u"us"_s},
                               {u"foreignTextInputSourceName"_s, u"it"_s},
                               {u"isAutoSelectInputSource"_s, false},
                               {u"isDisableMisspellRecognition"_s, true},
                               {u"isDirty"_s, true},
                               {u"version"_s, 7}};
    EXPECT_EQ(QJsonDocument(saved).toJson().toStdString(), QJsonDocument(expected).toJson().toStdString());
    EXPECT_EQ(vocabulary->dictionaryRepresentation(), expected);
    EXPECT_TRUE(vocabulary->needsSync());

    // What is written in either form is read again, key by key.
    vocabulary->removeWord(plain);
    full->setLastAsked(QDateTime::fromSecsSinceEpoch(1794897813, Qt::UTC));
    QJsonObject map = vocabulary->dictionaryRepresentation();
    EXPECT_EQ(TAVLexicon::initWithDictionary(map)->dictionaryRepresentation(), map);
    EXPECT_EQ(TAVLexicon::initWithJson(vocabulary->jsonRepresentation())->dictionaryRepresentation(), map);
    const QString archive = inVocabularies(u"x.lxa"_s);
    ASSERT_TRUE(TAVStorageManager::saveVocabularyToLXAFile(vocabulary, archive));
    EXPECT_EQ(TAVStorageManager::vocabularyFromFile(archive)->dictionaryRepresentation(), map);

    const std::pair<QString, QString> comments[] = {
        {u"\uFEFFa"_s + QChar::Null + u"b"_s, u"\uFEFFa"_s + QChar::Null + u"b"_s},
        {u"ascii"_s + QChar::Null, u"ascii"_s + QChar::Null},
        {u"\uFFFF"_s, u"\uFFFF"_s},
        {u"half "_s + QChar(0xd83d) + u"x"_s, u"half \uFFFDx"_s}};
    for (const auto &[comment, read] : comments) {
        full->setComment(comment);
        ASSERT_TRUE(TAVStorageManager::saveVocabularyToLXAFile(vocabulary, archive));
        EXPECT_EQ(TAVStorageManager::vocabularyFromFile(archive)->allWords().first()->comment(), read);
    }
}

TEST_F(TavvTest, theDocumentedFileIsWrittenAsItIsRead)
{
    const QString text = QString::fromUtf8(bytesOf(QStringLiteral(TAVIMO_SOURCE_DIR "/docs/file-format.md")));
    const QByteArray json = text.section(u"```json"_s, 1, 1).section(u"```"_s, 0, 0).toUtf8();
    const QJsonObject documented = QJsonDocument::fromJson(json).object();
    EXPECT_EQ(documented.size(), 18);
    EXPECT_EQ(loadJson(json)->dictionaryRepresentation(), documented);
}

TEST_F(TavvTest, absentNamesAreWrittenByTheirDefaults)
{
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setLanguage(std::nullopt);
    vocabulary->setYourLanguageName(std::nullopt);
    const QJsonObject map = vocabulary->dictionaryRepresentation();
    EXPECT_EQ(map["language"_L1], u"No name"_s);
    EXPECT_EQ(map["foreignLanguageName"_L1], u"No name"_s);
    EXPECT_EQ(map["yourLanguageName"_L1], u"yourLanguageName"_s);
    EXPECT_EQ(map["isAutoSelectInputSource"_L1], true) << "of a new vocabulary";
}

TEST_F(TavvTest, readsAbsentKeysByTheirDefaults)
{
    const TAVLexiconRef vocabulary = loadJson(R"({"language":"Italian"})");
    ASSERT_TRUE(vocabulary);
    EXPECT_EQ(vocabulary->foreignLanguageName(), u"Italian"_s);
    EXPECT_EQ(vocabulary->yourLanguageName(), u"yourLanguageName"_s);
    EXPECT_FALSE(vocabulary->isAutoSelectInputSource());
    EXPECT_EQ(vocabulary->version(), 0);
    EXPECT_EQ(vocabulary->statistics()->numberOfDaysRecorded(), 0);
    EXPECT_FALSE(vocabulary->yourTextInputSourceId());
    EXPECT_EQ(vocabulary->fileNameWhereLoadedFrom(), u"File.tavv"_s);
    EXPECT_EQ(loadJson("{}")->language(), u"No name"_s);
    const TAVLexiconRef dayless = loadJson(R"({"statistics":{"dailySnapshots":[{}]}})");
    EXPECT_EQ(dayless->statistics()->lastSnapshot()->day().toSecsSinceEpoch(), 0);
    EXPECT_EQ(loadJson(R"({"version":-3})")->version(), 0);
}

TEST_F(TavvTest, levelAndExclusionFollowTheList)
{
    struct Case
    {
        const char *key;
        quint64 level;
        bool dontAskAgain;
    };
    const Case cases[] = {{"unknownWords", 0, false},   {"ultraShortTermWords", 1, false},
                          {"shortTermWords", 2, false}, {"midTermWords", 3, false},
                          {"longTermWords", 4, true},   {"nativeWords", 5, true}};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.key);
        const TAVLexiconRef vocabulary = loadJson(oneWord(c.key, R"({"l":1,"daa":true})"));
        ASSERT_EQ(vocabulary->countAllWords(), 1);
        const TAVWordRef word = vocabulary->allWords().first();
        EXPECT_EQ(word->level(), c.level);
        EXPECT_EQ(word->dontAskAgain(), c.dontAskAgain);
        EXPECT_EQ(word->weakVocForSort(), vocabulary);
        EXPECT_EQ(vocabulary->wordsOfLevel(c.level), TAVWordList({word}));
    }
}

TEST_F(TavvTest, wordsWithoutIdsGetABlockOfIds)
{
    services.clock.setNow(QDateTime(QDate(2001, 1, 1), QTime(0, 2, 0), Qt::UTC));
    const TAVLexiconRef vocabulary = loadJson(
        R"({"midTermWords":{"words":[{"cid":-5}]},"unknownWords":{"words":[{},{"cid":77},{"cid":0}]}})");
    QList<qint64> ids;
    for (const TAVWordRef &word : vocabulary->allWords())
        ids.append(word->creationID());
    EXPECT_EQ(ids, QList<qint64>({1200000, 77, 1200001, 1200002}));
    EXPECT_EQ(loadJson(R"({"unknownWords":{"words":[{},{}],"words":[{}]}})")->countAllWords(), 1);
    EXPECT_FALSE(vocabulary->needsSync());
}

TEST_F(TavvTest, textsAreTrimmedAndDaysRoundedOnReading)
{
    const TAVLexiconRef vocabulary =
        loadJson(R"({"unknownWords":{"words":[{"yw":" a\n","fw":"\tb ","c":" c ","t":["x"," y"]}]},)"
                 R"("statistics":{"dailySnapshots":[{"day":1794960050.5,"noU":3,"noN":-1}]}})");
    const TAVWordRef word = vocabulary->allWords().first();
    EXPECT_EQ(word->yourWord(), u"a"_s);
    EXPECT_EQ(word->foreignWord(), u"b"_s);
    EXPECT_EQ(word->comment(), u" c "_s);
    EXPECT_EQ(word->tags(), TAVTextSet({u"x"_s, u" y"_s}));
    const TAVSnapshotRef day = vocabulary->statistics()->lastSnapshot();
    EXPECT_EQ(day->day().toSecsSinceEpoch(), 1794960000);
    EXPECT_EQ(day->numberOfWordsInLevel(0), 3);
    EXPECT_EQ(day->numberOfWordsInLevel(5), -1);
}

TEST_F(TavvTest, inputSourcesAreFoundByTheirIds)
{
    const platform::InputSourceRef source = services.inputSources.add(u"us"_s);
    const platform::InputSourceRef italian = services.inputSources.add(u"it"_s);
    const TAVLexiconRef vocabulary =
        loadJson(R"({"yourTextInputSourceName":"us","foreignTextInputSourceName":""})");
    EXPECT_EQ(vocabulary->yourTextInputSource(), source);
    EXPECT_EQ(vocabulary->foreignTextInputSourceId(), QString());
    EXPECT_FALSE(vocabulary->foreignTextInputSource());
    const TAVLexiconRef other = loadJson(R"({"foreignTextInputSourceName":"it"})");
    EXPECT_EQ(other->foreignTextInputSource(), italian);
    EXPECT_FALSE(other->yourTextInputSource());

    TAVLexiconRef readInBackground;
    std::thread([&] { readInBackground = loadJson(R"({"foreignTextInputSourceName":"us"})"); }).join();
    EXPECT_EQ(readInBackground->foreignTextInputSource(), source);
}

TEST_F(TavvTest, readsWhatItCanOfTheWrongShape)
{
    const TAVLexiconRef vocabulary = loadJson(R"({
        "unknownWords": 17, "shortTermWords": {"words": [1, 2, "x", null, []]}, "midTermWords": {"words": {}},
        "nativeWords": {"words": [{"yw": 5, "fw": "good", "la": "yesterday", "t": "x", "cid": 1e300, "mid": -1e300,
            "wc": -4, "daa": "yes", "l": {}},
            {"fw": "late", "la": 1e400, "t": [1, "kept", null], "cid": 9223372036854775807, "wc": 1.9}]},
        "language": 4, "foreignLanguageName": ["x"], "yourLanguageName": null, "yourFacultativeWords": {"a": 1},
        "statistics": {"dailySnapshots": [4, {"day": 1e300, "noU": 1e300, "noUST": 9223372036854775807,
            "noST": 9223372036854775807}]},
        "isDirty": 1, "isAutoSelectInputSource": "yes", "version": 9223372036854775807})");
    ASSERT_TRUE(vocabulary);
    EXPECT_TRUE(services.alerts.shown.isEmpty());
    ASSERT_EQ(vocabulary->wordsOfLevel(2).size(), 5) << "a place in the list is a word";
    EXPECT_EQ(vocabulary->wordsOfLevel(2).first()->foreignWord(), QString());
    ASSERT_EQ(vocabulary->wordsOfLevel(5).size(), 2);
    const TAVWordRef good = vocabulary->wordsOfLevel(5).first();
    EXPECT_EQ(good->yourWord(), QString());
    EXPECT_EQ(good->foreignWord(), u"good"_s);
    EXPECT_FALSE(good->lastAsked().isValid());
    EXPECT_TRUE(good->tags().isEmpty());
    EXPECT_GT(good->creationID(), 0);
    EXPECT_EQ(good->modificationID(), 0);
    EXPECT_EQ(good->fallenDownCounter(), 0u);
    const TAVWordRef late = vocabulary->wordsOfLevel(5).last();
    EXPECT_FALSE(late->lastAsked().isValid());
    EXPECT_EQ(late->tags(), TAVTextSet({u"kept"_s}));
    EXPECT_EQ(late->creationID(), 9223372036854775807);
    EXPECT_EQ(late->fallenDownCounter(), 1u);
    EXPECT_EQ(vocabulary->foreignLanguageName(), u"No name"_s);
    EXPECT_TRUE(vocabulary->needsSync());
    EXPECT_FALSE(vocabulary->isAutoSelectInputSource());
    // What counts on from these numbers must not overflow.
    ASSERT_EQ(vocabulary->statistics()->numberOfDaysRecorded(), 2);
    EXPECT_EQ(vocabulary->statistics()->lastSnapshot()->day().toSecsSinceEpoch(), 0);
    EXPECT_EQ(vocabulary->statistics()->lastSnapshot()->numberOfWordsInLevel(2), largest);
    EXPECT_EQ(vocabulary->statistics()->wordsLearnedTotal(), largest);
    EXPECT_EQ(vocabulary->statistics()->wordsLearnedToday(), 0);
    EXPECT_EQ(vocabulary->version(), largest);
}

TEST_F(TavvTest, largeNumbersComeBackInBothForms)
{
    for (const qint64 number : {(qint64(1) << 56) - 1, qint64(1) << 56, largest}) {
        SCOPED_TRACE(number);
        const TAVLexiconRef vocabulary = makeNamed(u"Italian"_s);
        vocabulary->setVersion(number);
        vocabulary->statistics()->lastSnapshot()->setNumberOfWordsInLevel(2, number);
        const QString archive = inVocabularies(u"x.lxa"_s);
        ASSERT_TRUE(TAVStorageManager::saveVocabularyToLXAFile(vocabulary, archive));
        for (const TAVLexiconRef &read : {TAVStorageManager::vocabularyFromFile(archive),
                                          TAVLexicon::initWithJson(vocabulary->jsonRepresentation()),
                                          TAVLexicon::initWithDictionary(savedMap(vocabulary))}) {
            EXPECT_EQ(read->version(), number);
            EXPECT_EQ(read->statistics()->lastSnapshot()->numberOfWordsInLevel(2), number);
        }
    }
}

TEST_F(TavvTest, theLastOfAKeyThatStandsTwiceCounts)
{
    const QByteArray day = R"("statistics":{"dailySnapshots":[{"day":1794960000,"noU":3}]})";
    const std::pair<QByteArray, qint64> cases[] = {
        {"{" + day + R"(,"statistics":{"dailySnapshots":[{},{}]}})", 2},
        {"{" + day + R"(,"statistics":{}})", 0},
        {"{" + day + R"(,"statistics":null})", 0},
        {R"({"statistics":5,)" + day + "}", 1},
    };
    for (const auto &[json, days] : cases)
        EXPECT_EQ(loadJson(json)->statistics()->numberOfDaysRecorded(), days) << json.toStdString();
}

TEST_F(TavvTest, thousandsOfFacultativeWordsAndTagsTakeNoTime)
{
    QByteArray json = R"({"yourFacultativeWords":["x")";
    constexpr int number = 20000;
    for (int i = 0; i < number; ++i)
        json += ",\"f" + QByteArray::number(i) + '"';
    json += R"(],"unknownWords":{"words":[{"yw":"f1 tagged","t":["x")";
    for (int i = 0; i < number; ++i)
        json += ",\"t" + QByteArray::number(i) + '"';
    json += "]}";
    for (int i = 0; i < number; ++i)
        json += ",{\"yw\":\"word " + QByteArray::number(i) + "\"}";
    QElapsedTimer timer;
    timer.start();
    const TAVLexiconRef vocabulary = loadJson(json + "]}}");
    ASSERT_TRUE(vocabulary);
    vocabulary->buildSynonyms();
    EXPECT_EQ(vocabulary->allTags().size(), number + 1);
    EXPECT_EQ(vocabulary->countAllWords(), number + 1);
    EXPECT_EQ(vocabulary->yourFacultativeWords().size(), number + 1);
    EXPECT_EQ(vocabulary->allWords().first()->yourWordWithoutFacultatives(), u"tagged"_s);
    EXPECT_LT(timer.elapsed(), 10000) << "walking through all of them for each word takes minutes";
}

TEST_F(TavvTest, whatDoesNotParseIsAFreshVocabularyAndStaysOnDisk)
{
    const QByteArray deep = R"({"unknownWords":)" + QByteArray(100000, '[') + QByteArray(100000, ']') + "}";
    const QByteArray cases[] = {"no json",
                                "",
                                "[1,2]",
                                "\"text\"",
                                R"({"a":1)",
                                deep,
                                "{\"language\":\"\xff\xfe\"}",
                                R"({"language":"X"}x)"};
    for (const QByteArray &json : cases) {
        SCOPED_TRACE(json.first(std::min<qsizetype>(json.size(), 30)).toStdString());
        const TAVLexiconRef vocabulary = loadJson(json);
        ASSERT_TRUE(vocabulary);
        EXPECT_EQ(vocabulary->countAllWords(), 0);
        EXPECT_EQ(vocabulary->language(), u"unknownLanguage"_s);
        EXPECT_EQ(vocabulary->statistics()->numberOfDaysRecorded(), 1);
        EXPECT_EQ(bunzip2(bytesOf(inVocabularies(u"File.tavv"_s))), json);
    }
    EXPECT_TRUE(services.alerts.shown.isEmpty());
}

TEST_F(TavvTest, theCeilingLiesAtFourMebibytes)
{
    struct Case
    {
        qsizetype size;
        bool loads;
    };
    for (const Case &c :
         {Case{0x80000, true}, Case{0x80001, true}, Case{0x400000, true}, Case{0x400001, false}}) {
        SCOPED_TRACE(c.size);
        services.alerts.shown.clear();
        QByteArray json = R"({"language":"Italian"})";
        json += QByteArray(c.size - json.size(), ' ');
        const TAVLexiconRef vocabulary = loadJson(json);
        EXPECT_EQ(vocabulary != nullptr, c.loads);
        EXPECT_EQ(services.alerts.shown.size(), c.loads ? 0 : 1);
        if (c.loads && vocabulary) {
            EXPECT_EQ(vocabulary->language(), u"Italian"_s);
        }
    }
}

TEST_F(TavvTest, aRealVocabularyComesBackTheSame)
{
    const QString path = QLatin1String(realFolder) + u"Italian - English.tavv"_s;
    if (!QFileInfo::exists(path))
        GTEST_SKIP() << "no real vocabulary beside the repository";
    const QJsonObject original = QJsonDocument::fromJson(bunzip2(bytesOf(path))).object();
    const TAVLexiconRef vocabulary = TAVStorageManager::vocabularyFromFile(path);
    ASSERT_TRUE(vocabulary);
    EXPECT_EQ(vocabulary->countAllWords(), 3422);

    QJsonObject saved = savedMap(vocabulary);
    QJsonObject rest = original;
    const QJsonArray words = wordsOf(saved);
    const QJsonArray originalWords = wordsOf(original);
    ASSERT_EQ(words.size(), originalWords.size());
    for (qsizetype i = 0; i < words.size(); ++i) {
        QJsonObject word = words[i].toObject();
        QJsonObject originalWord = originalWords[i].toObject();
        EXPECT_EQ(sorted(word.take("t"_L1)), sorted(originalWord.take("t"_L1)));
        ASSERT_EQ(word, originalWord) << i;
    }
    const QJsonArray days = saved["statistics"_L1]["dailySnapshots"_L1].toArray();
    const QJsonArray originalDays = original["statistics"_L1]["dailySnapshots"_L1].toArray();
    ASSERT_EQ(days.size(), originalDays.size());
    for (qsizetype i = 0; i < days.size(); ++i) {
        QJsonObject day = days[i].toObject();
        QJsonObject originalDay = originalDays[i].toObject();
        EXPECT_EQ(day.take("day"_L1).toDouble(), double(float(originalDay.take("day"_L1).toDouble())));
        EXPECT_EQ(day, originalDay) << i;
    }
    for (const auto key : {"yourFacultativeWords"_L1, "foreignFacultativeWords"_L1})
        EXPECT_EQ(sorted(saved.take(key)), sorted(rest.take(key)));
    for (const auto key : {"unknownWords"_L1, "ultraShortTermWords"_L1, "shortTermWords"_L1,
                           "midTermWords"_L1, "longTermWords"_L1, "nativeWords"_L1, "statistics"_L1}) {
        saved.remove(key);
        rest.remove(key);
    }
    EXPECT_EQ(saved, rest);
}
