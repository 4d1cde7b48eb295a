#include "usage/logging/DDLogFileInfo.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <sys/xattr.h>

namespace {

constexpr const char *archivedAttribute = "user.temiopilvi.log.archived";

void tellFailure(const char *doing, const QString &path)
{
    const QString reason = qt_error_string(errno);
    platform::diagnosticLog(
        QStringLiteral("DDLogFileInfo: Error %1 (%2): %3").arg(QLatin1String(doing), path, reason));
}

} // namespace

QString DDLogFileInfo::fileName() const
{
    return QFileInfo(m_filePath).fileName();
}

QVariantMap DDLogFileInfo::fileAttributes() const
{
    return {{QStringLiteral("creationDate"), creationDate()},
            {QStringLiteral("modificationDate"), modificationDate()},
            {QStringLiteral("size"), fileSize()}};
}

QDateTime DDLogFileInfo::creationDate() const
{
    return attributes().creationDate;
}

QDateTime DDLogFileInfo::modificationDate() const
{
    return attributes().modificationDate;
}

quint64 DDLogFileInfo::fileSize() const
{
    return attributes().fileSize;
}

double DDLogFileInfo::age() const
{
    const platform::Clock *clock = platform::services().clock;
    const QDateTime now = clock ? clock->now() : platform::systemTime();
    return double(creationDate().msecsTo(now)) / 1000.0;
}

bool DDLogFileInfo::isArchived() const
{
    return getxattr(QFile::encodeName(m_filePath).constData(), archivedAttribute, nullptr, 0) >= 0;
}

void DDLogFileInfo::setArchived(bool archived)
{
    const QByteArray path = QFile::encodeName(m_filePath);
    if (archived) {
        if (setxattr(path.constData(), archivedAttribute, "1", 1, 0) != 0)
            tellFailure("setting extended attribute", m_filePath);
    } else if (removexattr(path.constData(), archivedAttribute) != 0 && errno != ENODATA) {
        tellFailure("removing extended attribute", m_filePath);
    }
}

void DDLogFileInfo::reset()
{
    m_attributes.reset();
}

void DDLogFileInfo::renameFile(const QString &newFileName)
{
    if (newFileName == fileName())
        return;
    const QString newPath = QFileInfo(m_filePath).dir().filePath(newFileName);
    if (std::rename(QFile::encodeName(m_filePath).constData(), QFile::encodeName(newPath).constData()) != 0) {
        tellFailure("renaming file", m_filePath);
        return;
    }
    m_filePath = newPath;
    reset();
}

bool DDLogFileInfo::isYoungerThan(const DDLogFileInfo &other) const
{
    if (creationDate() != other.creationDate())
        return creationDate() > other.creationDate();
    // Within one tick of the file system's clock: the one that is still being written.
    return !isArchived() && other.isArchived();
}

const DDLogFileInfo::Attributes &DDLogFileInfo::attributes() const
{
    if (!m_attributes) {
        const QFileInfo info(m_filePath);
        const QDateTime birth = info.birthTime();
        m_attributes = Attributes{birth.isValid() ? birth : info.lastModified(), info.lastModified(),
                                  quint64(info.size())};
    }
    return *m_attributes;
}
