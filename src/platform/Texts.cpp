#include "platform/Texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QList>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

namespace platform {

namespace {

QList<QPointer<QTranslator>> &installedTranslators()
{
    static QList<QPointer<QTranslator>> translators;
    return translators;
}

/** Later ones are asked first. */
void install(const QString &file, const QString &folder)
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(file, folder)) {
        delete translator;
        return;
    }
    QCoreApplication::installTranslator(translator);
    installedTranslators().append(translator);
}

} // namespace

QString localized(const char *table, const char *key, const char *comment, int n)
{
    return QCoreApplication::translate(table, key, comment, n);
}

QString localized(const char *key)
{
    return localized("Default", key);
}

QString userLocaleName()
{
    const QStringList languages = QLocale::system().uiLanguages();
    const QString name = languages.isEmpty() ? QString() : languages.constFirst();
    const bool hasLanguage = !name.isEmpty() && name != QLatin1String("C") && name != QLatin1String("POSIX");
    return hasLanguage ? name : QStringLiteral("en");
}

void installTexts(const QString &localeName)
{
    for (const QPointer<QTranslator> &translator : std::as_const(installedTranslators()))
        delete translator.data();
    installedTranslators().clear();

    const QString texts = QStringLiteral(":/texts");
    install(QStringLiteral("tavimo_en"), texts);
    const QString language = QString(localeName).replace(u'-', u'_').section(u'_', 0, 0).toLower();
    if (language == QLatin1String("en") || language.isEmpty())
        return;
    install(QLatin1String("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(QLatin1String("tavimo_") + language, texts);
}

} // namespace platform
