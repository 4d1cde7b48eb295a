#include "platform/Texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QList>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

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

/** The first language of the environment, as the system's list of languages finds it. */
QString environmentLocaleName()
{
    for (const char *variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const QString value = qEnvironmentVariable(variable); !value.isEmpty())
            return value.section(u':', 0, 0);
    }
    return {};
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

QString localeNameWithScript(const QString &name, const QString &environmentName)
{
    // All that the C library's locales know.
    static constexpr std::pair<QLatin1StringView, QLatin1StringView> scripts[] = {
        {"latin"_L1, "Latn"_L1},
        {"iqtelif"_L1, "Latn"_L1},
        {"cyrillic"_L1, "Cyrl"_L1},
        {"devanagari"_L1, "Deva"_L1}};
    const QString language = name.section(u'-', 0, 0);
    const QString environmentLanguage =
        environmentName.section(u'@', 0, 0).section(u'.', 0, 0).section(u'_', 0, 0);
    constexpr qsizetype scriptLength = 4;
    const bool hasScript = name.section(u'-', 1, 1).size() == scriptLength;
    const QString modifier = environmentName.section(u'@', 1);
    const auto *const known = std::find_if(std::begin(scripts), std::end(scripts), [&](const auto &script) {
        return script.first.compare(modifier, Qt::CaseInsensitive) == 0;
    });
    if (environmentLanguage != language || hasScript || known == std::end(scripts))
        return name;
    return language + u'-' + known->second + name.sliced(language.size());
}

QString userLocaleName()
{
    const QStringList languages = QLocale::system().uiLanguages();
    const QString name = languages.isEmpty() ? QString() : languages.constFirst();
    const bool hasLanguage = !name.isEmpty() && name != QLatin1String("C") && name != QLatin1String("POSIX");
    return hasLanguage ? localeNameWithScript(name, environmentLocaleName()) : QStringLiteral("en");
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
