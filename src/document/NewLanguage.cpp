#include "document/NewLanguage.h"

namespace NewLanguage {

QString foreignName(const QString &typed)
{
    const QString trimmed = typed.trimmed();
    return trimmed.isEmpty() ? QStringLiteral("Unknown") : trimmed;
}

QString yourName(const QString &typed)
{
    QString name = foreignName(typed);
    if (name.endsWith(QLatin1Char(')')))
        name += QLatin1Char('_');
    return name;
}

TAVLexiconRef make(const QString &yourLanguage, const QString &foreignLanguage)
{
    QString your = yourName(yourLanguage);
    const QString foreign = foreignName(foreignLanguage);
    if (your.toLower() == foreign.toLower())
        your = QStringLiteral("My Language");
    const auto created = std::make_shared<TAVLexicon>();
    created->setYourLanguageName(your);
    created->setForeignLanguageName(foreign);
    return created;
}

} // namespace NewLanguage
