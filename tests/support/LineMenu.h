// The menu of the right button in a line of text.
#pragma once

#include <gtest/gtest.h>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>

namespace pintalux {

/// Opens the menu, takes its item for pasting, and lets the text come.
inline void PasteByMenu(QLineEdit& line) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, line.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&line, &event);
    auto* menu = line.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions())
        if (action->text().startsWith("C&olar")) action->trigger();
    delete menu;
    QApplication::sendPostedEvents(&line, QEvent::MetaCall); // the paste itself
}

} // namespace pintalux
