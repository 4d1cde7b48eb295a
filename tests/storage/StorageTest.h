#pragma once

#include "app/ground/AppGround.h"
#include "model/TAVLexicon.h"
#include "model/TAVStatistics.h"
#include "storage/TAVStorageManager.h"
#include "support/TestServices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <bzlib.h>

inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

inline QByteArray bzip2(const QByteArray &plain)
{
    QByteArray packed(plain.size() + plain.size() / 50 + 600, '\0');
    auto length = unsigned(packed.size());
    EXPECT_EQ(BZ2_bzBuffToBuffCompress(packed.data(), &length, const_cast<char *>(plain.constData()),
                                       unsigned(plain.size()), 9, 0, 30),
              BZ_OK);
    return packed.first(qsizetype(length));
}

inline QByteArray bunzip2(const QByteArray &packed)
{
    QByteArray plain(64 * 1024 * 1024, '\0');
    auto length = unsigned(plain.size());
    EXPECT_EQ(BZ2_bzBuffToBuffDecompress(plain.data(), &length, const_cast<char *>(packed.constData()),
                                         unsigned(packed.size()), 0, 0),
              BZ_OK);
    return plain.first(qsizetype(length));
}

/** The program's folders exist, no backup was made yet. */
class StorageTest : public ServicesTest
{
protected:
    StorageTest()
    {
        AppGround::applicationSupportFolder();
        TAVStorageManager::resetForTest();
    }

    QString inVocabularies(const QString &name) const
    {
        return AppGround::vocabularyFolderPath() + u'/' + name;
    }
    QStringList backups() const { return QDir(AppGround::backupFolderPath()).entryList(QDir::Files); }

    static TAVLexiconRef makeNamed(const QString &foreign)
    {
        const auto vocabulary = std::make_shared<TAVLexicon>();
        vocabulary->setForeignLanguageName(foreign);
        vocabulary->setYourLanguageName(QStringLiteral("English"));
        return vocabulary;
    }

    TAVLexiconRef loadJson(const QByteArray &json) const
    {
        const QString path = inVocabularies(QStringLiteral("File.tavv"));
        writeBytes(path, bzip2(json));
        return TAVStorageManager::vocabularyFromFile(path);
    }
};
