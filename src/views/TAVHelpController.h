#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/** Lays a panel of labels over the vocabulary view, each beside the control that it explains. */
class TAVHelpController : public QObject
{
    Q_OBJECT

public:
    /** The view is not owned. */
    explicit TAVHelpController(QWidget *vocabularyView, QObject *parent = nullptr);

    void showVocabularyHelp();
    /** A click or a key on the panel does the same. */
    void closeHelp();
    bool isShowing() const;

private:
    QPointer<QWidget> m_vocabularyView;
    QPointer<QWidget> m_panel;
};
