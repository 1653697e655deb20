#pragma once

#include "contexts/PenContact.h"
#include "contexts/WatchedViews.h"

#include <QObject>

/// Watches the views while the draw tool is in use, for what the host does not pass on to tools: the tablet's pen.
class DrawContextInputHandler : public QObject {
    Q_OBJECT

public:
    void setUp();
    void cleanUp();
    /// Watches the active view too.
    void watchActiveView() { m_views.addActive(); }

    PenContact& pen() { return m_pen; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WatchedViews m_views{*this};
    PenContact m_pen;
};
