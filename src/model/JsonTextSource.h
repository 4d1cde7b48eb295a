#pragma once

#include "model/FieldSource.h"

#include <QHash>

/**
 * The fields of a JSON text in UTF-8, read in one pass. Maps of tens of thousands of words would take longer
 * to make than the whole rest of loading them.
 */
class JsonTextSource : public FieldSource
{
public:
    /**
     * Reads the record that the text consists of. Returns false if the text is no JSON or no record; the
     * caller must then throw away what was read.
     */
    static bool readRecord(QByteArrayView json, const Read &read);

    bool next() override;
    QByteArrayView key() const override { return m_key; }
    std::optional<QString> text() override;
    std::optional<double> real() override;
    qint64 integer() override;
    bool flag() override;
    platform::TextSet texts() override;
    void record(const Read &read) override;
    void records(const Read &read) override;

private:
    struct Number
    {
        double real = 0;
        qint64 integer = 0;
    };

    explicit JsonTextSource(QByteArrayView json)
        : m_position(json.begin())
        , m_end(json.end())
    {
    }

    void fail();
    void skipSpace();
    /** The next byte that is no space; 0 at the end. */
    char peek();
    bool accept(char byte);
    void expect(char byte);
    bool isDigit() const { return m_position < m_end && *m_position >= '0' && *m_position <= '9'; }
    void passDigits();

    /** Whether the value has not been read and begins like this; if not, it is passed over. */
    bool takeIf(bool isExpected);
    bool startsNumber();
    bool opens(char bracket);
    void closed() { --m_depth; }
    /** Calls once for each member of a list. The call must read the member or pass over it. */
    template <typename Call> void forEachMember(Call call);
    void readRecordBody(const Read &read);

    void passValue();
    void passMembers();
    void passLiteral(QByteArrayView literal);
    Number number();
    /** The bytes between the quotes, and whether they hold escapes. */
    QByteArrayView rawText(bool &hasEscapes);
    QString textValue();
    QString sharedTextValue();
    QString unescaped(QByteArrayView raw);

    const char *m_position;
    const char *m_end;
    QByteArrayView m_key;
    QByteArray m_unescapedKey;
    /** The members of lists of texts by their bytes: a vocabulary has few tags and each many times. */
    QHash<QByteArrayView, QString> m_sharedTexts;
    int m_depth = 0;
    bool m_isFirst = true;
    bool m_isOpen = false;
    bool m_hasValue = false;
    bool m_hasFailed = false;
};
