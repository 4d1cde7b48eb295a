#pragma once

#include <QByteArray>

#include <limits>
#include <optional>

/** The JSON of a vocabulary and the compressed bytes that its file consists of. */
namespace storage {

/** The ceiling of the JSON when it is read. The writer has none, so a file can be saved that can't be opened.
 */
inline constexpr qsizetype maxReadableJson = 0x400000;
/** Larger files are not read: even where nothing can be compressed, the ceiling takes half of this. */
inline constexpr qsizetype maxReadableFile = 2 * maxReadableJson;
/** What the compression can count; far beyond any vocabulary. */
inline constexpr qsizetype maxWritableJson = std::numeric_limits<int>::max();

/** Absent when the compression fails. */
std::optional<QByteArray> compressed(const QByteArray &json);
/** Absent when the bytes are damaged or hold more than can be read. */
std::optional<QByteArray> decompressed(const QByteArray &bytes);

} // namespace storage
