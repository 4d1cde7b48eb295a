#pragma once

#include "model/TAVLexicon.h"

class Exporter;
class Importer;
class QWidget;

class TAVImporterDelegate
{
public:
    virtual ~TAVImporterDelegate() = default;
    /** Sent at every end of an import, a cancelled one included. */
    virtual void importDidEnd(Importer *importer) = 0;
    /** The window over which the importer opens its sheets. */
    virtual QWidget *mainWindow() const = 0;
};

class TAVExporterDelegate
{
public:
    virtual ~TAVExporterDelegate() = default;
    virtual void exportDidEnd(Exporter *exporter) = 0;
    virtual QWidget *mainWindow() const = 0;
};

/** How the main window starts an import. This base imports nothing. */
class Importer
{
public:
    virtual ~Importer() = default;
    /** Neither is owned; the vocabulary may be absent. */
    virtual void showOpenSheetWithVocabulary(const TAVLexiconRef &vocabulary, TAVImporterDelegate *delegate)
    {
        Q_UNUSED(vocabulary)
        Q_UNUSED(delegate)
    }
};

/** How the main window starts an export. This base exports nothing. */
class Exporter
{
public:
    virtual ~Exporter() = default;
    virtual void showExportWithVocabulary(const TAVLexiconRef &vocabulary) { Q_UNUSED(vocabulary) }
};
