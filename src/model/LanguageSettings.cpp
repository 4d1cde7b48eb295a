#include "model/LanguageSettings.h"

#include "app/ground/AppGround.h"
#include "platform/Texts.h"

#include <QCoreApplication>
#include <QThread>

namespace {

/** Leaves the live source as it is if the one of that id isn't installed here. */
void findSource(const QList<platform::InputSourceRef> &sources, const QString &sourceId,
                platform::InputSourceRef &liveSource)
{
    for (const platform::InputSourceRef &source : sources) {
        if (source->id == sourceId) {
            liveSource = source;
            return;
        }
    }
}

bool isMainThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return !application || application->thread() == QThread::currentThread();
}

} // namespace

LanguageSettings::LanguageSettings()
{
    m_fields.foreignLanguageName = platform::localized("unknownLanguage");
    m_fields.yourLanguageName = platform::localized("yourLanguageName");
    m_fields.isAutoSelectInputSource = true;
}

void LanguageSettings::setYourTextInputSourceId(const std::optional<QString> &sourceId)
{
    m_fields.yourTextInputSourceId = sourceId;
    if (sourceId)
        findSource(AppGround::allInputSources(false), *sourceId, m_yourTextInputSource);
}

void LanguageSettings::setForeignTextInputSourceId(const std::optional<QString> &sourceId)
{
    m_fields.foreignTextInputSourceId = sourceId;
    if (sourceId)
        findSource(AppGround::allInputSources(false), *sourceId, m_foreignTextInputSource);
}

void LanguageSettings::setLanguageFields(const LanguageFields &fields)
{
    m_fields = fields;
    const QString yourId = fields.yourTextInputSourceId.value_or(QString());
    const QString foreignId = fields.foreignTextInputSourceId.value_or(QString());
    // The keyboard belongs to the main thread; nobody types into what the sync reads in the background.
    if ((yourId.isEmpty() && foreignId.isEmpty()) || !isMainThread())
        return;
    const QList<platform::InputSourceRef> sources = AppGround::allInputSources(false);
    findSource(sources, yourId, m_yourTextInputSource);
    findSource(sources, foreignId, m_foreignTextInputSource);
}
