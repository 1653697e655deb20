#pragma once

#include "ui/LayoutWidget.h"

#include <QPointer>

#include <map>

namespace ui {

/// Places each child by what its four edges are attached to.
class FormLayout : public LayoutWidget {
    Q_OBJECT

public:
    enum class Edge { Left, Top, Right, Bottom };
    struct Attachment {
        enum class To { Nothing, Form, Control, Position } to = To::Nothing;
        int offset = 0;             ///< pixels inwards, away from what the edge is attached to
        QPointer<QWidget> control;  ///< its facing edge
        int position = 0;           ///< in divisions from the left or the top
    };

    explicit FormLayout(QWidget* parent = nullptr);

    void place(QWidget* child) override;
    void release(QWidget* child) override;
    QList<QWidget*> placed() const override { return m_children; }

    void attach(QWidget* child, Edge edge, const Attachment& attachment);
    void setDivisions(int divisions);
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    /// Only the pointer is looked at: the child may be half gone.
    void forget(const QObject* child);
    using Edges = std::map<Edge, Attachment>;
    void arrange();
    void arrange(QWidget& child, const Edges& edges);
    /// Where the edge is to be; `fallback` when it is attached to nothing.
    int place(const Edges& edges, Edge edge, int fallback) const;

    QList<QWidget*> m_children;
    std::map<QWidget*, Edges> m_edges;
    int m_divisions = 100;
};

}  // namespace ui
