#pragma once

#include "document/WordListQuery.h"

class QAbstractButton;
class QLabel;
class QStackedWidget;

/** The line below the word table: how many words there are or, on its other side, how the last sync went. */
class StatusLine
{
public:
    /** Not owned. Each side's label stands on its page, the words' on the first and the sync's on the last.
     */
    StatusLine(QStackedWidget *statusTabView, QLabel *words, QLabel *sync, QAbstractButton *toggle);

    void showUnknownWords(qsizetype unknown, qsizetype all);
    /** So many words are shown, by that query, and so many rows are selected. */
    void showWords(const TAVLexicon &vocabulary, const WordListQuery &query, qsizetype shown,
                   qsizetype selected);
    /** Absent: a sync is under way. */
    void showSync(const std::optional<QString> &status);
    /** Without a sync there is only one side. */
    void setSyncEnabled(bool enabled);
    void turnToWords();
    void turnToSync();
    void turnOver();

private:
    QStackedWidget *m_statusTabView;
    QLabel *m_words;
    QLabel *m_sync;
    QAbstractButton *m_toggle;
};
