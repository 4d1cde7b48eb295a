#include "views/Notices.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

Notices::Notices(QWidget *parent)
    : QFrame(parent)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    setFrameShape(QFrame::StyledPanel);
    auto *lines = new QVBoxLayout(this);
    lines->setContentsMargins(8, 4, 8, 4);
    hide();
}

void Notices::tell(const QString &name, const QString &text)
{
    auto *line = findChild<QLabel *>(name, Qt::FindDirectChildrenOnly);
    if (!line && !text.isEmpty()) {
        line = new QLabel(this);
        line->setObjectName(name);
        line->setTextFormat(Qt::PlainText);
        line->setWordWrap(true);
        layout()->addWidget(line);
    }
    if (line && line->text() != text) {
        line->setText(text);
        line->setAccessibleName(text);
        line->setHidden(text.isEmpty());
    }
    const QList<QLabel *> all = findChildren<QLabel *>(Qt::FindDirectChildrenOnly);
    setVisible(std::any_of(all.begin(), all.end(), [](const QLabel *each) { return !each->isHidden(); }));
}
