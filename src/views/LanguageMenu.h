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

    /** What was used last, or the first of the languages where that is gone. Absent if it can't be read. */
    static TAVLexiconRef loadLast(const QList<std::shared_ptr<TAVFile>> &languages);
    /** The one to load at the next start. */
    static void rememberAsLast(const TAVLexicon &vocabulary);

private:
    QComboBox *m_popUp;
    const VocabularySource &m_source;
};
