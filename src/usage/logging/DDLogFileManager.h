#pragma once

#include "usage/logging/DDLogFileInfo.h"

#include <QList>
#include <QString>

/** Where log files lie, how they are called, and how many are kept. Belongs to its logger's queue. */
class DDLogFileManagerDefault
{
public:
    /** An empty folder stands for the program's own. */
    explicit DDLogFileManagerDefault(const QString &logsDirectory = {},
                                     const QString &applicationName = processName());

    QString logsDirectory() const { return m_logsDirectory; }
    int maximumNumberOfLogFiles() const { return m_maximumNumberOfLogFiles; }
    /** How many finished files are kept; 0 keeps all. Deletes at once what is now too much. */
    void setMaximumNumberOfLogFiles(int number);

    bool isLogFile(const QString &fileName) const;
    /** The newest first. */
    QList<DDLogFileInfo> sortedLogFileInfos() const;
    /** Makes an empty file, deletes old ones, and returns its path; empty if it cannot be made. */
    QString createNewLogFile();
    void deleteOldLogFiles();

private:
    static QString processName();

    QString m_logsDirectory;
    QString m_applicationName;
    int m_maximumNumberOfLogFiles = 5;
};
