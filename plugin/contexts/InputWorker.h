#pragma once

#include "contexts/PointerSource.h"
#include "contexts/SampleGate.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <memory>

/// Samples the pointer every 8 ms on a thread of its own, so that a stroke is as smooth while the host is busy.
class InputWorker : public QObject {
    Q_OBJECT

public:
    static QPoint unknownPosition();
    /// Where a view at `view` shows a place of the screen, counted from (1, 1) at its lower left.
    static QPoint inView(const QPoint& place, const QRect& view);

    InputWorker(const PointerSource& pointer, std::shared_ptr<SampleGate> gate);

    /// Where the button went down, in the samples' pixels. When the pointer has left that place by the first poll (the
    /// host was busy), the stroke begins there all the same.
    void setPressPosition(const QPoint& position) { m_pressPosition = position; }

public slots:
    /// Starts sampling; the thread's event loop waits between the polls, so that Shutdown ends a wait at once.
    void Run();
    /// Ends sampling and the thread's event loop.
    void Shutdown();
    /// Sends a sample when the pointer moved; two, one pixel apart, the first time, so that a click has a length.
    void Poll();

signals:
    /// position: pixels of the view, lower left is (1, 1). width, opacity, hardness as in SamplingOptions.
    void MousePositionChanged(const QPoint& position, int width, float opacity, float hardness);

private:
    struct Sampling;
    void sendMove(const QPoint& position, const Sampling& sampling);
    void send(const QPoint& position, const Sampling& sampling);
    QPoint firstPosition(const QPoint& polled) const;

    const PointerSource m_pointer;
    const std::shared_ptr<SampleGate> m_gate;
    QPoint m_pressPosition;
    QPoint m_lastPosition;
    QTimer m_timer;
};
