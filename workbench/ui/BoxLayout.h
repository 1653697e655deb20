#pragma once

#include "ui/LayoutWidget.h"

#include <QBoxLayout>

#include <map>

namespace ui {

/// Children below or beside one another.
class BoxLayout : public LayoutWidget {
    Q_OBJECT

public:
    /// Natural: children keep their size and stand at the start. Filling: they share the room.
    enum class Sharing { Natural, Filling };
    BoxLayout(QBoxLayout::Direction direction, Sharing sharing, QWidget* parent = nullptr);

    void place(QWidget* child) override;
    void release(QWidget* child) override;
    QList<QWidget*> placed() const override;

    void setSpacing(int pixels) { m_box->setSpacing(pixels); }
    /// Of a column: whether children are as wide as it is.
    void setAdjustable(bool on);
    bool isAdjustable() const { return m_isAdjustable; }
    /// Of a row: the cell (from 0) that takes the room left over; -1 for none.
    void setAdjustableCell(int cell);
    /// Of a row: the width of a cell (from 0), also of one still to come.
    void setCellWidth(int cell, int pixels);

private:
    void settle(int cell, QWidget* child);

    QBoxLayout* m_box;
    const Sharing m_sharing;
    bool m_isAdjustable = false;
    int m_adjustableCell = -1;
    std::map<int, int> m_cellWidths;
};

}  // namespace ui
