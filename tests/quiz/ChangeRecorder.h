#pragma once

#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"

#include <QFile>

/** Writes down what a change causes, and whether the vocabulary's file was there by then. */
class ChangeRecorder : public DropBoxController, public VocabularySource
{
public:
    ChangeRecorder() { DropBoxController::setSharedManager(this); }
    ~ChangeRecorder() override { DropBoxController::setSharedManager(nullptr); }

    TAVLexiconRef vocabulary() const override { return current; }
    void markFileAsNeedsSync(const TAVLexicon &vocabulary) override
    {
        calls.append(QLatin1String(vocabulary.needsSync() ? "flagged, mark" : "mark") + savedText());
    }
    void syncWithDropbox() override { calls.append(QLatin1String("sync") + savedText()); }

    QString path() const { return TAVStorageManager::savePathForVocabulary(*current); }
    QString savedText() const { return QLatin1String(QFile::exists(path()) ? ", saved" : ""); }
    /** Forgets the calls and the file. */
    void restart()
    {
        calls.clear();
        QFile::remove(path());
        current->setNeedsSync(false);
    }
    /** The calls since the last restart, and whether the file was written at last; then restarts. */
    QString take()
    {
        const QString taken = calls.join(QLatin1String("; ")) + savedText();
        restart();
        return taken;
    }

    TAVLexiconRef current;
    QStringList calls;
};
