#include "model/LanguageSettings.h"

#include "app/ground/AppGround.h"
#include "platform/Texts.h"

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

} // namespace

LanguageSettings::LanguageSettings()
{
    m_fields.foreignLanguageName = platform::localized("unknownLanguage");
    m_fields.yourLanguageName = platform::localized("yourLanguageName");
    m_fields.isAutoSelectInputSource = true;
}

void LanguageSettings::setYourFacultativeWords(const platform::TextSet &words)
{
    m_fields.yourFacultativeWords = words;
    m_yourFacultatives = FacultativeWords(words);
}

void LanguageSettings::setForeignFacultativeWords(const platform::TextSet &words)
{
    m_fields.foreignFacultativeWords = words;
    m_foreignFacultatives = FacultativeWords(words);
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
    m_yourFacultatives = FacultativeWords(fields.yourFacultativeWords);
    m_foreignFacultatives = FacultativeWords(fields.foreignFacultativeWords);
    resolveInputSources();
}

void LanguageSettings::resolveInputSources()
{
    const QString yourId = m_fields.yourTextInputSourceId.value_or(QString());
    const QString foreignId = m_fields.foreignTextInputSourceId.value_or(QString());
    if (yourId.isEmpty() && foreignId.isEmpty())
        return;
    const QList<platform::InputSourceRef> sources = AppGround::allInputSources(false);
    findSource(sources, yourId, m_yourTextInputSource);
    findSource(sources, foreignId, m_foreignTextInputSource);
}
