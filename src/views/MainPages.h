#pragma once

#include "document/Page.h"
#include "views/MainTab.h"

#include <QStackedWidget>

/** The pages of the main window, one for each tab and the first-start page. A missing one shows a calm line.
 */
class MainPages : public QStackedWidget
{
    Q_OBJECT

public:
    explicit MainPages(QWidget *parent = nullptr);

    /** The page is not owned; its content is. Null takes the present one away. */
    void setPage(MainTab tab, Page *page);
    void setFirstStartPage(QWidget *page);
    /** A page that answers to nothing where there is none. */
    Page &page(MainTab tab) { return *m_pages.at(size_t(tab)); }

    MainTab selectedTab() const { return MainTab(currentIndex()); }
    void select(MainTab tab) { setCurrentIndex(int(tab)); }

private:
    static QWidget *makeCalmPage();

    Page m_missing;
    std::array<Page *, toolbarTabs.size()> m_pages;
};
