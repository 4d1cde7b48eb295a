#pragma once

#include <QByteArray>
#include <QString>

#include <limits>
#include <optional>

/** Bytes of vocabulary files on their way between memory and disk. */
namespace storage {

/** The JSON of a file has this ceiling when it is read; the writer has none. */
inline constexpr qsizetype longestReadJson = 0x400000;
/** What is read at most of a file: a little more than the ceiling takes when nothing in it can be compressed.
 */
inline constexpr qsizetype longestCompressedJson = 2 * longestReadJson;
/** What the compression can count; far beyond any vocabulary. */
inline constexpr qsizetype longestJson = std::numeric_limits<int>::max();

/** Absent when the compression fails. */
std::optional<QByteArray> compressed(const QByteArray &json);
/** Absent when the bytes are damaged or hold more than can be read. */
std::optional<QByteArray> decompressed(const QByteArray &bytes);

/** Up to so many bytes of a regular file, which are not kept in the system's cache. Absent on failure. */
std::optional<QByteArray> readUncached(const QString &path, qsizetype mostBytes);
/**
 * Writes the file in place, without a temporary one. False on failure, also when something else than a
 * regular file stands there: a link would lead the save out of its folder.
 */
bool writePlainly(const QString &path, const QByteArray &bytes);

/** The last path component without its extension. */
QString nameForMessages(const QString &path);

} // namespace storage
