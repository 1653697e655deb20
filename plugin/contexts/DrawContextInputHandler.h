#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class QTabletEvent;

/// Watches the views while the draw tool is in use, for what the host does not pass on to tools: the tablet's pen.
class DrawContextInputHandler : public QObject {
    Q_OBJECT

public:
    void setUp();
    void cleanUp();
    /// Watches the active view too.
    void watchActiveView();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followPen(const QTabletEvent& event);

    QList<QPointer<QWidget>> m_views;
};
