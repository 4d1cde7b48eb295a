#pragma once

#include "app/Composition.h"
#include "support/GuiTest.h"

#include <QHash>
#include <QMap>
#include <QRandomGenerator>
#include <QSet>

#include <memory>

class WordTableView;

/**
 * Does to the composed program what no person would think of, in an order that its seed decides, and looks
 * after each action whether a word has gone that nobody deleted, whether something was answered on a page
 * that isn't seen, and whether the file holds what the memory holds.
 */
class Monkey
{
public:
    explicit Monkey(quint32 seed);
    ~Monkey();

    /** Stops at the first fault, which fails the test. */
    void act(int actions);

private:
    struct Kind;
    class RefusedWrites;
    /** How often each word is there, by its id and its texts. */
    using Words = QHash<QString, int>;
    static QString nameOf(qint64 creationID, const QString &yourWord, const QString &foreignWord);

    static const QList<Kind> &kinds();
    void open();
    void makeLanguage(const char *foreign, int words);
    int random(int below) { return int(m_random.bounded(below)); }
    QString randomText();
    TAVMainWindowController &hub() { return m_program->mainWindowController(); }
    TAVLexiconController &words() { return *hub().vocabularyController(); }
    TAVLexiconRef vocabulary();
    WordTableView *table();
    QList<QWidget *> windows();

    // What it does
    void clickAButton();
    void pressAKey();
    void typeSomething();
    void selectRows();
    void pressARow();
    void dropATag();
    void letTimePass();
    void waitForThePopup();
    void switchLanguage();
    /** A run keeps the vocabulary that it was started with, and saves that: a reload waits for its end. */
    bool isQuizUnderWay();
    /** A popup quiz that was ended asks on when its time comes, if its panel wasn't closed. */
    bool isPopupOfAnEarlierObject();
    void endASync();
    void changeTheFile();
    void toggleFailingSaves();
    void showATab();
    void addAWord();
    void endTheEditor();
    void deleteWords();
    void removeDuplicates();
    void undo();
    /** What is taken back goes by the user's will. */
    void noteUndo();
    void sort();
    void startAQuiz();

    // What it looks at
    Words wordsInMemory();
    /** When each word was answered last, and its level then. */
    QMap<QString, QString> answers();
    void noteStep();
    void check(const QString &action);
    void checkWords();
    void checkAnswers();
    void checkFile();

    QRandomGenerator m_random;
    TestServices m_services;
    std::unique_ptr<RefusedWrites> m_refusedWrites;
    std::unique_ptr<Composition> m_composition;
    Program *m_program = nullptr;

    TAVLexiconRef m_lastVocabulary;
    Words m_lastWords;
    QMap<QString, QString> m_lastAnswers;
    /** Words that steps of the history tell of as taken away by this action. */
    QSet<QString> m_removedByUser;
    bool m_mayReplaceWords = false;
    bool m_mayAnswer = false;
    bool m_isQuizSeen = false;
    /** The list was turned round when the editor was opened for a new word, or is now. */
    bool m_wasDescending = false;
    /** Memory is ahead of the file, or the file of memory, as told. */
    bool m_isFileBehind = false;
    QString m_actions;
};
