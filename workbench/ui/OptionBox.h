#pragma once

#include "ui/MenuItem.h"

#include <QPointer>
#include <QWidget>

class QMenu;

namespace ui {

/// An item without a row of its own: a small box at the right end of the row of another, for the options of what that
/// does. Torn-off copies of the menu have it, too.
class OptionBox : public MenuItem {
    Q_OBJECT

public:
    OptionBox(UiObjects& ui, QObject* parent, QAction* base);

    QAction* base() const { return m_base; }  ///< null once that is gone

protected:
    QWidget* createWidget(QWidget* parent) override;

private:
    const QPointer<QAction> m_base;
};

/// The box as one menu shows it, in a column that the menu keeps free right of its rows.
class OptionBoxMark : public QWidget {
    Q_OBJECT

public:
    OptionBoxMark(OptionBox& box, QMenu& menu);

    /// Empty: a row of the menu would be made of it otherwise.
    QSize sizeHint() const override { return QSize(0, 0); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void place();

    OptionBox& m_box;
    QMenu& m_menu;
};

}  // namespace ui
