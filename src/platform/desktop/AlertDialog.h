#pragma once

#include "platform/Alerts.h"

#include <QDialog>

class QVBoxLayout;

namespace platform {

/** The dialog of one alert. Everything in it is shown as plain text, as it may hold what users typed. */
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AlertDialog(const Alert &alert);
    /** The chosen button; 0 when the dialog was dismissed. */
    int chosenButton() const { return m_chosenButton; }

private:
    void addText(QVBoxLayout *column, const QString &text, const char *name);
    QWidget *makeButtons(const QStringList &buttons);

    int m_chosenButton = 0;
};

} // namespace platform
