#pragma once

#include <QObject>

class QAction;

/** Offers new versions of the program: one menu item, which opens the page of releases. */
class TAVUpdateController : public QObject
{
    Q_OBJECT

public:
    explicit TAVUpdateController(QObject *parent = nullptr);

    QAction *updateMenuItem() const { return m_updateMenuItem; }

private:
    QAction *m_updateMenuItem = nullptr;
};
