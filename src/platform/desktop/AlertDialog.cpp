#include "platform/desktop/AlertDialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace platform {

namespace {

constexpr int textWidth = 400;
/** More than any of our own texts; a name out of a damaged file can be of any length. */
constexpr qsizetype maxTextLength = 1200;

QString shortened(const QString &text)
{
    return text.size() <= maxTextLength ? text : text.left(maxTextLength) + QChar(0x2026);
}

} // namespace

AlertDialog::AlertDialog(const Alert &alert)
{
    setObjectName(QStringLiteral("alertDialog"));
    setWindowTitle(QCoreApplication::applicationName());
    setAccessibleName(shortened(alert.title));
    setAccessibleDescription(shortened(alert.text));

    auto *picture = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    const QIcon icon = windowIcon().isNull()
                           ? style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this)
                           : windowIcon();
    picture->setPixmap(icon.pixmap(size, size));

    auto *column = new QVBoxLayout;
    column->setSpacing(8);
    addText(column, alert.title, "alertTitle");
    addText(column, alert.text, "alertText");
    addText(column, alert.additionalLine, "alertAdditionalLine");
    if (auto *title = findChild<QLabel *>(QStringLiteral("alertTitle"))) {
        QFont font = title->font();
        font.setBold(true);
        font.setPointSizeF(font.pointSizeF() * 1.1);
        title->setFont(font);
    }
    if (auto *line = findChild<QLabel *>(QStringLiteral("alertAdditionalLine"))) {
        QFont font = line->font();
        font.setPointSizeF(font.pointSizeF() * 0.85);
        line->setFont(font);
    }

    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(column, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(20);
    layout->addLayout(row);
    layout->addWidget(makeButtons(alert.buttons));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void AlertDialog::addText(QVBoxLayout *column, const QString &text, const char *name)
{
    if (text.isEmpty())
        return;
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setText(shortened(text));
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    label->setMaximumWidth(textWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(label);
}

QWidget *AlertDialog::makeButtons(const QStringList &buttons)
{
    auto *box = new QDialogButtonBox(this);
    for (int i = 0; i < buttons.size(); ++i) {
        // Only one button may accept, so that every desktop puts the default where its users look for it.
        const auto role = i == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::ActionRole;
        QPushButton *button = box->addButton(buttons.at(i), role);
        button->setObjectName(QStringLiteral("alertButton%1").arg(i));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, i] {
            m_chosenButton = i;
            accept();
        });
        if (i == 0) {
            button->setDefault(true);
            button->setFocus();
        }
    }
    return box;
}

} // namespace platform
