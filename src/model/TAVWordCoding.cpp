#include "model/CodingNumbers.h"
#include "model/FieldSink.h"
#include "model/FieldSource.h"
#include "model/TAVWord.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"

using namespace Qt::StringLiterals;

namespace {

TAVTextSet textSetFrom(const std::optional<QStringList> &texts)
{
    return TAVTextSet(texts.value_or(QStringList()));
}

QDateTime dateFrom(std::optional<double> seconds)
{
    return seconds ? coding::dateFromSeconds(std::trunc(*seconds)) : QDateTime();
}

} // namespace

TAVWordRef TAVWord::initWithDictionary(const std::optional<QJsonObject> &dictionary)
{
    if (!dictionary)
        return std::make_shared<TAVWord>();
    MapSource source(*dictionary);
    return initWithFields(source);
}

TAVWordRef TAVWord::initWithFields(FieldSource &source)
{
    const auto word = std::make_shared<TAVWord>();
    while (source.next()) {
        const QByteArrayView key = source.key();
        if (key == "yw")
            word->setYourWord(source.text());
        else if (key == "fw")
            word->setForeignWord(source.text().value_or(QString()));
        else if (key == "c")
            word->setComment(source.text().value_or(QString()));
        else if (key == "t")
            word->setTags(source.texts());
        else if (key == "cid")
            word->setCreationID(source.integer());
        else if (key == "l")
            word->setLevel(coding::unsignedOf(source.integer()));
        else if (key == "la")
            word->setLastAsked(dateFrom(source.real()));
        else if (key == "mid")
            word->setModificationID(source.integer());
        else if (key == "wc")
            word->setFallenDownCounter(coding::unsignedOf(source.integer()));
        else if (key == "daa")
            word->setDontAskAgain(source.flag());
    }
    return word;
}

QJsonObject TAVWord::dictionaryRepresentation() const
{
    return MapSink::mapOf([this](FieldSink &sink) { writeFields(sink); });
}

void TAVWord::writeFields(FieldSink &sink) const
{
    sink.text("yw"_L1, m_yourWord);
    sink.text("fw"_L1, m_foreignWord);
    if (!m_comment.isEmpty())
        sink.text("c"_L1, m_comment);
    if (m_lastAsked.isValid())
        sink.integer("la"_L1, m_lastAsked.toMSecsSinceEpoch() / 1000);
    if (!m_tags.isEmpty())
        sink.texts("t"_L1, m_tags);
    if (m_creationID > 0)
        sink.integer("cid"_L1, m_creationID);
    if (m_modificationID > 0)
        sink.integer("mid"_L1, m_modificationID);
    if (m_dontAskAgain)
        sink.flag("daa"_L1, true);
    if (m_fallenDownCounter > 0)
        sink.integer("wc"_L1, qint64(m_fallenDownCounter));
    if (m_level > 0)
        sink.integer("l"_L1, qint64(m_level));
}

TAVWordRef TAVWord::initWithCoder(const ArchiveDecoder &decoder)
{
    const auto word = std::make_shared<TAVWord>();
    word->setYourWord(decoder.text("yourWord"_L1));
    // Last of the two: an absent foreign word takes the other with it.
    word->setForeignWord(decoder.text("foreignWord"_L1));
    word->setComment(decoder.text("comment"_L1).value_or(QString()));
    word->setLastAsked(decoder.date("lastAsked"_L1));
    word->setTags(textSetFrom(decoder.textSet("tags"_L1)));
    word->setDontAskAgain(decoder.flag("dontAskAgain"_L1));
    word->setCreationID(std::max<qint64>(0, decoder.integer("creationID"_L1)));
    word->setModificationID(std::max<qint64>(0, decoder.integer("modificationID"_L1)));
    word->setFallenDownCounter(coding::unsignedOf(decoder.integer("wrongAnswerCounter"_L1)));
    word->setLevel(coding::unsignedOf(decoder.integer("level"_L1)));
    return word;
}

void TAVWord::encodeWithCoder(ArchiveEncoder &encoder) const
{
    encoder.text("yourWord"_L1, m_yourWord);
    encoder.text("foreignWord"_L1, m_foreignWord);
    encoder.text("comment"_L1, m_comment);
    encoder.date("lastAsked"_L1, m_lastAsked);
    encoder.textSet("tags"_L1, m_tags.values());
    encoder.flag("dontAskAgain"_L1, m_dontAskAgain);
    encoder.integer("creationID"_L1, m_creationID);
    encoder.integer("modificationID"_L1, m_modificationID);
    encoder.integer("wrongAnswerCounter"_L1, qint64(m_fallenDownCounter));
    encoder.integer("level"_L1, qint64(m_level));
}
