#include "views/MainPages.h"

#include "platform/Texts.h"

#include <QLabel>
#include <QVBoxLayout>

MainPages::MainPages(QWidget *parent)
    : QStackedWidget(parent)
{
    setObjectName(QStringLiteral("mainTabView"));
    m_pages.fill(&m_missing);
    for (const MainTabInfo &info : toolbarTabs) {
        auto *frame = new QWidget(this);
        frame->setObjectName(QLatin1String(info.identifier));
        auto *layout = new QVBoxLayout(frame);
        layout->setContentsMargins({});
        layout->addWidget(makeCalmPage());
        addWidget(frame);
    }
}

QWidget *MainPages::makeCalmPage()
{
    auto *label = new QLabel(platform::localized("MainWindow", "notYetBuilt"));
    label->setAlignment(Qt::AlignCenter);
    label->setEnabled(false);
    return label;
}

void MainPages::setPage(MainTab tab, Page *page)
{
    m_pages.at(size_t(tab)) = page ? page : &m_missing;
    QLayout *layout = widget(int(tab))->layout();
    QLayoutItem *present = layout->takeAt(0);
    delete present->widget();
    delete present;
    QWidget *content = page ? page->page() : nullptr;
    layout->addWidget(content ? content : makeCalmPage());
}

void MainPages::setFirstStartPage(QWidget *page)
{
    page->setObjectName(QStringLiteral("TMTabIDFirstStartSetup"));
    addWidget(page);
}
