#pragma once

#include "app/Composition.h"
#include "support/TestServices.h"
#include "views/TAVLexiconController.h"

#include <QPalette>
#include <QSize>

#include <memory>

/** The composed program with a clock of its own, from which pictures are taken. */
class Stage
{
public:
    /** The folder takes the pictures; the vocabulary file, if there is one, is shown instead of a few words.
     */
    Stage(const QString &folder, const QString &vocabularyFile, const QSize &size, bool isDark);
    ~Stage();

    static QPalette darkPalette();

    /** Opens the program; without a language, the first-start page shows. */
    void open(bool withLanguage);
    void shoot(const QString &name);
    void pass(double seconds);

    template <typename Control> Control *control(const char *name)
    {
        auto *found = window()->findChild<Control *>(QLatin1String(name));
        if (!found)
            qFatal("no control named %s", name);
        return found;
    }
    QMainWindow *window() { return m_program->mainWindowController().mainWindow(); }
    Program &program() { return *m_program; }
    TAVMainWindowController &hub() { return m_program->mainWindowController(); }
    TAVLexiconController &vocabularyView() { return *hub().vocabularyController(); }
    TAVLexiconRef vocabulary() { return vocabularyView().vocabulary(); }
    TestServices &services() { return m_services; }

private:
    void writeLanguage();

    QString m_folder;
    QString m_vocabularyFile;
    QSize m_size;
    TestServices m_services;
    std::unique_ptr<Composition> m_composition;
    Program *m_program = nullptr;
};
