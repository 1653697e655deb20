#pragma once

#include <QToolBar>

namespace ui {

class MenuSets;
class UiObjects;

/// The row below the main window's menu bar, which begins with the choice of the menu set.
class StatusLine : public QToolBar {
    Q_OBJECT

public:
    StatusLine(UiObjects& ui, MenuSets& sets);

protected:
    /// The ground is the window's: the style would draw bright lines around it.
    void paintEvent(QPaintEvent*) override {}
};

}  // namespace ui
