#include "storage/Fullness.h"

#include "storage/Overwriting.h"
#include "storage/TAVStorageManager.h"
#include "storage/VocabularyFiles.h"

#include <cmath>

namespace {

constexpr qsizetype mebibyte = qsizetype(1) << 20;
constexpr qsizetype worthTelling = storage::maxReadableJson / 8 * 7;

} // namespace

namespace storage {

bool Fullness::isWorthTelling() const
{
    return m_jsonSize >= worthTelling;
}

bool Fullness::isBeyond() const
{
    return m_jsonSize > maxReadableJson;
}

double Fullness::mebibytes() const
{
    const double tenths = 10 * double(m_jsonSize) / mebibyte;
    return (isBeyond() ? std::ceil(tenths) : std::floor(tenths)) / 10;
}

int Fullness::maxMebibytes()
{
    return int(maxReadableJson / mebibyte);
}

Fullness fullnessOf(const TAVLexicon &vocabulary)
{
    return Fullness(knownSize(TAVStorageManager::savePathForVocabulary(vocabulary)));
}

} // namespace storage
