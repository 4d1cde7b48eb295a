#include "model/FieldSink.h"
#include "model/JsonTextSource.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/** What a reader makes of a record. A key's first letter says as what its value is read; "_" is not read. */
QStringList traceOf(FieldSource &source)
{
    QStringList trace;
    while (source.next()) {
        const QString key = QString::fromUtf8(source.key());
        const auto add = [&trace, &key](const QString &value) { trace.append(key + u'=' + value); };
        const auto addRecord = [&add](FieldSource &record) { add(traceOf(record).join(u'|')); };
        switch (key.isEmpty() ? u'_' : key.front().unicode()) {
        case u't':
            add(source.text().value_or(u"absent"_s));
            break;
        case u'r':
            add(QString::number(source.real().value_or(-1), 'g', 17));
            break;
        case u'i':
            add(QString::number(source.integer()));
            break;
        case u'f':
            add(QString::number(source.flag()));
            break;
        case u's':
            add(source.texts().values().join(u'|'));
            break;
        case u'o':
            source.record(addRecord);
            break;
        case u'l':
            source.records(addRecord);
            break;
        default:
            add(u"passed over"_s);
        }
    }
    trace.sort();
    return trace;
}

std::optional<QStringList> traceOfText(const QByteArray &json)
{
    QStringList trace;
    const bool isRead =
        JsonTextSource::readRecord(json, [&trace](FieldSource &source) { trace = traceOf(source); });
    return isRead ? std::optional(trace) : std::nullopt;
}

QStringList traceOfMap(const QJsonObject &map)
{
    MapSource source(map);
    return traceOf(source);
}

/** Mostly what has a form of its own in JSON or in UTF-8, halves of pairs included. */
QString randomText(QRandomGenerator &random)
{
    static constexpr char16_t units[] = u"\"\\/\b\f\n\r\t\u0001\u001f \u007f\u0080\u07ff\u0800\u2028\uffff";
    QString text;
    for (int length = random.bounded(9); length > 0; --length) {
        switch (random.bounded(5)) {
        case 0:
            text += QChar(units[random.bounded(int(std::size(units)) - 1)]);
            break;
        case 1:
            text += QChar(u'\xd800' + random.bounded(0x800));
            break;
        case 2:
            text += QString::fromUcs4(U"\U0001F600", 1);
            break;
        default:
            text += QChar(random.bounded(random.bounded(2) ? 0x80 : 0x10000));
        }
    }
    return text;
}

} // namespace

TEST(JsonTextTest, anyTextComesBackThroughOurWriterAndQtsReaderAndBack)
{
    QRandomGenerator random(20);
    constexpr qsizetype textsPerFile = 20000;
    for (int file = 0; file < 10; ++file) {
        QStringList texts;
        for (qsizetype i = 0; i < textsPerFile; ++i)
            texts.append(randomText(random));
        const QByteArray json = JsonTextSink::textOf([&texts](FieldSink &sink) {
            sink.records("list"_L1, texts.size(),
                         [&texts](FieldSink &record, qsizetype i) { record.text("text"_L1, texts.at(i)); });
        });
        // Stricter readers than Qt's refuse what is below a blank.
        ASSERT_TRUE(std::all_of(json.begin(), json.end(), [](char byte) { return uchar(byte) >= ' '; }));
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(json, &error);
        ASSERT_EQ(error.error, QJsonParseError::NoError) << error.offset;
        const QJsonArray list = document["list"_L1].toArray();
        ASSERT_EQ(list.size(), textsPerFile);
        QStringList expected;
        for (qsizetype i = 0; i < textsPerFile; ++i) {
            // Half a pair is no character, and would make the whole file unreadable.
            const QString text = QString::fromStdU32String(texts.at(i).toStdU32String());
            ASSERT_EQ(list.at(i)["text"_L1].toString(), text) << file << ' ' << i;
            expected.append(u"list=text="_s + text);
        }
        expected.sort();
        ASSERT_EQ(traceOfText(json), expected);
        ASSERT_EQ(traceOfText(document.toJson(QJsonDocument::Compact)), expected);
    }
}

TEST(JsonTextTest, writesWhatTheMapHolds)
{
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    const auto write = [](FieldSink &sink) {
        sink.record("empty"_L1, [](FieldSink &) {});
        sink.texts("noTexts"_L1, {});
        sink.texts("texts"_L1, {u"a"_s, u""_s, u"c"_s});
        sink.text("long"_L1, QString(100000, u'\u0001'));
        sink.flag("yes"_L1, true);
        sink.flag("no"_L1, false);
        sink.integer("largest"_L1, largest);
        sink.integer("smallest"_L1, std::numeric_limits<qint64>::min());
        sink.real("day"_L1, 1794960000.125);
        sink.real("tiny"_L1, 1e-7);
        sink.records("records"_L1, 3, [](FieldSink &record, qsizetype i) {
            if (i > 0)
                record.integer("i"_L1, i);
        });
    };
    const QByteArray json = JsonTextSink::textOf(write);
    const QJsonObject map = QJsonDocument::fromJson(json).object();
    EXPECT_EQ(map, MapSink::mapOf(write)) << json.right(300).toStdString();
    EXPECT_EQ(map["largest"_L1].toInteger(), largest);
    EXPECT_EQ(map.size(), 11);
    EXPECT_FALSE(json.contains(' ')) << "compact";
}

TEST(JsonTextTest, readsWhatQtReads)
{
    const QByteArray cases[] = {
        R"({"t":"\"\\\/\b\f\n\r\té日😀","t2":"","t3":"\ud83d\ude00\u00E9\u0041","s":["\n\"","\n\"","b"]})",
        "\xef\xbb\xbf \t\r\n{ \"i\" \r:\t1\n, \"s\" : [ \"a\" , 4, \"b\" ] , \"o\" : { } } \r\n\t",
        R"({"l" : [ ] })",
        R"({"\u0074ext":"known by an escaped key","i":[1,{"a":2}],"t":{"b":[3]},"_":{"a":[{}],"b":"]}\"\\"}})",
        R"({"i":-5,"i2":1.9,"i3":-1.9,"i4":1e300,"i5":9223372036854775807,"i6":"7","i7":1E+2,"i8":12e-1})",
        R"({"i":18446744073709551616,"i2":-9223372036854775808,"r":-12.5e-3,"r2":"1","r3":12345678901234567890})",
        R"({"f":true,"f2":false,"f3":0,"f4":0.5,"f5":null,"f6":"true","f7":[true],"f8":{}})",
        R"({"l":[{"t":"a"},7,{"l":[{"t":"b"},{}]},[{"t":"no"}],null,"x",{"t":"c"}],"t":"behind"})",
        R"({"o":{"o":{"t":"deep","_":1},"t":"less"},"o2":[{"t":"no"}],"l":{"t":"no"},"_":true,"t":null})",
    };
    for (const QByteArray &json : cases) {
        SCOPED_TRACE(json.toStdString());
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(json, &error);
        ASSERT_EQ(error.error, QJsonParseError::NoError);
        EXPECT_EQ(traceOfText(json), traceOfMap(document.object()));
        // Whatever gets lost at a file's end, the rest is not taken for a whole file.
        for (qsizetype length = json.lastIndexOf('}'); length > 0; --length)
            EXPECT_FALSE(traceOfText(json.first(length))) << length;
    }
    EXPECT_EQ(traceOfText(R"({"r":1e400,"r2":-1e400,"r3":1e-400,"i":1e400})"),
              QStringList({u"i=0"_s, u"r2=-inf"_s, u"r3=0"_s, u"r=inf"_s}));
    // Many records side by side are not deep.
    EXPECT_TRUE(traceOfText("{\"l\":[" + QByteArray("{\"s\":[]},").repeated(5000) + "{}],\"_\":[" +
                            QByteArray("{},[],").repeated(5000) + "{}]}"));
}

TEST(JsonTextTest, refusesWhatIsNoJson)
{
    const QByteArray values[] = {"",
                                 "1 2",
                                 "[1 2]",
                                 "[1,]",
                                 "[,1]",
                                 "{\"a\":1,}",
                                 "{\"a\" 1}",
                                 "{a:1}",
                                 "{1:1}",
                                 "{\"a\":}",
                                 "tru",
                                 "falsey",
                                 "nul",
                                 "-",
                                 "+1",
                                 ".5",
                                 "1.",
                                 "1e",
                                 "\"\\x\"",
                                 "\"\\u12\"",
                                 "\"\\u12g4\"",
                                 "\"\\\"",
                                 "'a'",
                                 "]",
                                 "\"\xff\"",
                                 "\"\xc0\x80\"",
                                 "\"\xed\xa0\x80\""};
    for (const QByteArray &value : values) {
        // The same whether the value is read or passed over.
        for (const char *key : {"_", "t", "i", "f", "s", "o", "l"}) {
            const QByteArray json = QByteArray("{\"") + key + "\":" + value + ",\"z\":1}";
            EXPECT_FALSE(traceOfText(json)) << json.toStdString();
        }
    }
    for (const char *json :
         {"{\"t\":\"a\" \"t2\":\"b\"}", "{\"t\":\"a\",}", "{,\"t\":\"a\"}", "{} {}", "[]", "{\"t\"}"})
        EXPECT_FALSE(traceOfText(json)) << json;
}
