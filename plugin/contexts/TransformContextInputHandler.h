#pragma once

#include "contexts/HeldKeys.h"
#include "contexts/WatchedViews.h"

#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QPointer>

class QMouseEvent;
class TransformContext;

/// Opens the transform tool's menu in the view that the tool works in, and carries out what is chosen there. Notices
/// when a press has lost its release.
class TransformContextInputHandler : public QObject {
    Q_OBJECT

public:
    explicit TransformContextInputHandler(TransformContext& tool) : m_tool(tool) {}

    void setUp();
    void cleanUp();
    /// Watches the active view, and no other any more.
    void watchActiveView();

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void Transform();
    void TransformCopy();
    void FlipHorizontal();
    void FlipVertical();
    void Cut();
    void Copy();
    void Paste();
    void PasteAndTransform();
    void Apply();
    void Revert();
    void Cancel();

private slots:
    void OnViewDestroyed();

private:
    bool asksForMenu(const QMouseEvent& event) const;
    void openMenu(QWidget& view, const QPoint& position);

    TransformContext& m_tool;
    WatchedViews m_views{*this};
    HeldKeys m_keys;
    QPointer<QMenu> m_menu;  // the last that was opened
    QPoint m_menuPosition;   // pixels of the view, y pointing up
};
