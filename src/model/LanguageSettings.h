#pragma once

#include "model/FacultativeWords.h"
#include "platform/InputSources.h"
#include "platform/OrderedSet.h"

#include <QString>

#include <optional>

/** What is set for a pair of languages, as a vocabulary's file holds it. */
struct LanguageFields
{
    /** Absent only from an old archive. */
    std::optional<QString> foreignLanguageName;
    std::optional<QString> yourLanguageName;
    platform::TextSet yourFacultativeWords;
    platform::TextSet foreignFacultativeWords;
    std::optional<QString> yourTextInputSourceId;
    std::optional<QString> foreignTextInputSourceId;
    bool isAutoSelectInputSource = false;
    bool isDisableMisspellRecognition = false;
};

/** The names, facultative words, keyboards and quiz settings of a pair of languages. */
class LanguageSettings
{
public:
    /** Both names by their defaults; the keyboard follows the language. */
    LanguageSettings();

    /** The foreign language's name. */
    std::optional<QString> language() const { return m_fields.foreignLanguageName; }
    QString foreignLanguageName() const { return m_fields.foreignLanguageName.value_or(QString()); }
    std::optional<QString> yourLanguageNameIfAny() const { return m_fields.yourLanguageName; }
    QString yourLanguageName() const { return m_fields.yourLanguageName.value_or(QString()); }
    /** The same as setForeignLanguageName(). */
    void setLanguage(const std::optional<QString> &name) { m_fields.foreignLanguageName = name; }
    void setForeignLanguageName(const std::optional<QString> &name) { setLanguage(name); }
    void setYourLanguageName(const std::optional<QString> &name) { m_fields.yourLanguageName = name; }

    /** Words such as articles, which sorting skips at the start of an entry. */
    const platform::TextSet &yourFacultativeWords() const { return m_fields.yourFacultativeWords; }
    void setYourFacultativeWords(const platform::TextSet &words);
    const platform::TextSet &foreignFacultativeWords() const { return m_fields.foreignFacultativeWords; }
    void setForeignFacultativeWords(const platform::TextSet &words);
    /** The same sets, prepared for removing them from entries. */
    const FacultativeWords &yourFacultatives() const { return m_yourFacultatives; }
    const FacultativeWords &foreignFacultatives() const { return m_foreignFacultatives; }

    std::optional<QString> yourTextInputSourceId() const { return m_fields.yourTextInputSourceId; }
    /** Also finds the live source; one that is not installed here leaves the live source as it was. */
    void setYourTextInputSourceId(const std::optional<QString> &sourceId);
    std::optional<QString> foreignTextInputSourceId() const { return m_fields.foreignTextInputSourceId; }
    void setForeignTextInputSourceId(const std::optional<QString> &sourceId);
    /** Looks both ids up again. One that isn't installed here leaves its source as it is. Any thread. */
    void resolveInputSources();
    platform::InputSourceRef yourTextInputSource() const { return m_yourTextInputSource; }
    platform::InputSourceRef foreignTextInputSource() const { return m_foreignTextInputSource; }
    bool isAutoSelectInputSource() const { return m_fields.isAutoSelectInputSource; }
    void setIsAutoSelectInputSource(bool flag) { m_fields.isAutoSelectInputSource = flag; }

    /** Whether an answer that is nearly right counts as wrong. */
    bool isDisableMisspellRecognition() const { return m_fields.isDisableMisspellRecognition; }
    void setIsDisableMisspellRecognition(bool flag) { m_fields.isDisableMisspellRecognition = flag; }

protected:
    const LanguageFields &languageFields() const { return m_fields; }
    /** Also finds the live sources. */
    void setLanguageFields(const LanguageFields &fields);

private:
    LanguageFields m_fields;
    FacultativeWords m_yourFacultatives;
    FacultativeWords m_foreignFacultatives;
    platform::InputSourceRef m_yourTextInputSource;
    platform::InputSourceRef m_foreignTextInputSource;
};
