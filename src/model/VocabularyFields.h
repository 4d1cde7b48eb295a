#pragma once

#include "model/LanguageSettings.h"
#include "model/LevelLists.h"

#include <memory>

class ArchiveDecoder;
class ArchiveEncoder;
class FieldSink;
class FieldSource;
class TAVStatistics;

/**
 * What a file holds of a vocabulary, in either form. Reading never fails: what is absent or of a wrong type
 * reads by its default. Words come as their list says: at its level, and kept from rehearsal only where the
 * form keeps that.
 */
struct VocabularyFields
{
    static VocabularyFields readFrom(FieldSource &source);
    static VocabularyFields readFrom(const ArchiveDecoder &decoder);
    void writeTo(FieldSink &sink) const;
    void writeTo(ArchiveEncoder &encoder) const;

    LevelLists::Lists words;
    LanguageFields languages;
    /** Never null. */
    std::shared_ptr<TAVStatistics> statistics;
    bool needsSync = false;
    qint64 version = 0;
};
