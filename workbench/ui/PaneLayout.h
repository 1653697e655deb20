#pragma once

#include "ui/LayoutWidget.h"

#include <QList>
#include <QPointer>

#include <map>
#include <string>

class QSplitter;

namespace ui {

/// Panes with bars between them that can be dragged. Children beyond the panes of the configuration are hidden.
class PaneLayout : public LayoutWidget {
    Q_OBJECT

public:
    explicit PaneLayout(QWidget* parent = nullptr);

    void place(QWidget* child) override;
    void release(QWidget* child) override;
    QList<QWidget*> placed() const override;

    /// "single", "horizontal2", "quad" and so on. False, and nothing done, for a name that is none of them.
    bool setConfiguration(const std::string& name);
    const std::string& configuration() const { return m_configuration; }
    int paneCount() const;  ///< of the configuration

    /// All that decides where the children stand.
    struct Arrangement {
        std::string configuration;
        QList<QPointer<QWidget>> order;  ///< of the children; those that are gone or not named follow at the end
        QList<QList<int>> sizes;         ///< of the outer bar's parts, then of those inside; empty: even ones
    };
    Arrangement arrangement() const;
    void setArrangement(const Arrangement& arrangement);
    /// Exchanges the child with the one in that pane, from 0. False when there is no such child or pane.
    bool setPane(QWidget* child, int pane);
    /// What a pane, from 0, takes of the room, each 1 to 99; the others share the rest. Holds until the next
    /// configuration, also for children still to come.
    void setPaneSize(int pane, int widthPercent, int heightPercent);
    void setBarThickness(int pixels);

private:
    struct Share {
        int widthPercent;
        int heightPercent;
    };
    void arrange();
    void giveShare(int pane, const Share& share);
    QSplitter* makeSplitter(Qt::Orientation orientation, QWidget* parent) const;

    QList<QSplitter*> splitters() const;  ///< the outer one first

    QList<QPointer<QWidget>> m_children;
    std::string m_configuration = "single";
    std::map<int, Share> m_shares;  ///< of the panes that were given one
    QSplitter* m_outer = nullptr;
    int m_barThickness = 4;
};

}  // namespace ui
