#pragma once

#include "support/TestServices.h"

#include <QApplication>
#include <QWidget>

/** The one control of that name and class below the root; the test fails if it is missing. */
template <typename Control> Control *findControl(QWidget *root, const char *name)
{
    auto *control = root->findChild<Control *>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << "no control named " << name;
    return control;
}

/** Lets queued events run, deferred deletions included. */
inline void processEvents()
{
    for (int i = 0; i < 3; ++i) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
