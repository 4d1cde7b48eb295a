#pragma once

#include "model/TAVLexicon.h"

#include <QString>

class QComboBox;
class TAVFile;

/** The menu of languages: lists the language files, the youngest first, and loads what is chosen. */
class LanguageMenu
{
public:
    /** Neither is owned. */
    LanguageMenu(QComboBox *popUp, const VocabularySource &source);

    /** Reads the list anew from disk. */
    void update();
    void selectCurrentLanguage();
    void selectYoungest();
    /** The last entry, which is no language. */
    bool isManageEntryChosen() const;
    /** Absent if there is no such file or it can't be read, which only the log is told here. */
    TAVLexiconRef loadChosen() const;

    /** The file of what was used last, or of the first of the languages where that is gone. */
    static QString pathOfLast(const QList<std::shared_ptr<TAVFile>> &languages);
    /** What a user has to know whose language could not be loaded: its name, and where a copy lies. */
    static QString textAboutUnreadable(const QString &path);
    /** The one to load at the next start. */
    static void rememberAsLast(const TAVLexicon &vocabulary);

private:
    QComboBox *m_popUp;
    const VocabularySource &m_source;
};
