#pragma once

#include <QByteArray>

#include <limits>
#include <optional>

/** The JSON of a vocabulary and the compressed bytes that its file consists of. */
namespace storage {

/** The ceiling of the JSON when it is read. The writer has none, so a file can be saved that can't be opened.
 */
inline constexpr qsizetype maxReadableJson = 0x400000;
/** Larger files are refused unread. JSON within the ceiling takes little more than half of it, compressed. */
inline constexpr qsizetype maxReadableFile = 2 * maxReadableJson;
/** More than this the compression library cannot count. */
inline constexpr qsizetype maxWritableJson = std::numeric_limits<int>::max();

/** Absent when the compression fails. */
std::optional<QByteArray> compressed(const QByteArray &json);
/** Absent when the bytes are damaged or hold more than can be read. */
std::optional<QByteArray> decompressed(const QByteArray &bytes);
/** Whether the bytes are compressed ones from start to end, even if they hold more than can be read. */
bool isWholeStream(const QByteArray &bytes);

} // namespace storage
