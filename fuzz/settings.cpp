// The settings file, which can be edited by hand: whatever it holds, each setting reads as one of its type or
// as absent, and what is stored then comes back.

#include "app/ground/SettingsTable.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void demand(bool holds)
{
    if (!holds)
        std::abort();
}

void readAll(const platform::Settings &settings)
{
    const QString keys[] = {settings::installationUuid.key(),
                            settings::lastActiveLanguage.key(),
                            settings::mainWindowSize.key(),
                            settings::vocabularyTableColumns.key(),
                            settings::askForYourWord.key(),
                            settings::learnFlipLevel.key(),
                            settings::popupQuizInterval.key(),
                            settings::bgQuizWindowXOrigin.key(),
                            settings::backgroundColor.key(),
                            settings::isLanguageDeleted(u"a/b %"_s).key(),
                            settings::isAnnouncementDismissed(u"{}"_s).key()};
    for (const QString &key : keys) {
        settings.read<bool>(key);
        settings.read<qint64>(key);
        settings.read<QString>(key);
        demand(std::isfinite(settings.read<double>(key).value_or(0)));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder;
    // The store remembers files by their paths, so that each gets one of its own.
    static int run = 0;
    const QString path = folder.filePath(QString::number(++run));
    QFile file(path + u"/settings.ini"_s);
    demand(QDir().mkpath(path) && file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();

    const QString key = settings::lastActiveLanguage.key();
    {
        const std::unique_ptr<platform::Settings> settings = platform::makeSystemSettings(path);
        readAll(*settings);
        settings->setValue(key, u"Italian - English"_s);
        settings->synchronize();
    }
    const std::unique_ptr<platform::Settings> again = platform::makeSystemSettings(path);
    readAll(*again);
    demand(again->read<QString>(key) == u"Italian - English"_s);
    QDir(path).removeRecursively();
    return 0;
}
