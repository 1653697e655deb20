#pragma once

#include <QList>
#include <QWidget>

namespace ui {

/// A widget that arranges those a script puts into it.
class LayoutWidget : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Takes the child over and shows it.
    virtual void place(QWidget* child) = 0;
    /// Gives the child's room away; it stays a child until it is moved or deleted.
    virtual void release(QWidget* child) = 0;
    /// In the order in which they were placed.
    virtual QList<QWidget*> placed() const = 0;

    /// The one the widget stands in; null when there is none.
    static LayoutWidget* around(const QWidget& widget);
};

}  // namespace ui
