#pragma once

#include "contexts/EventClock.h"
#include "contexts/InputWorker.h"
#include "contexts/PointerSource.h"
#include "contexts/StrokeFiller.h"
#include "contexts/TimerResolution.h"
#include "model/ActiveStroke.h"

#include <maya/MObjectHandle.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class BaseNode;
class LayerManager;
class QThread;

/// Fills the stroke that is being drawn with what the pointer does. Lives on the main thread; the sampling itself is
/// done by a worker on a thread of its own, both made anew for every stroke.
class ThreadManager : public QObject {
    Q_OBJECT

public:
    /// The one the tools use; made on first use.
    static ThreadManager& instance();
    /// Ends it with the module: waits for every thread that still runs code of ours.
    static void destroy();

    /// pointer: where the samples come from; the real pointer unless a test gives another.
    explicit ThreadManager(const PointerSource& pointer = PointerSource());
    ~ThreadManager() override;

    bool isRunning() const { return m_running; }
    /// Samples into the stroke that the camera has open on the node, with the tool it was begun for, until stop().
    /// Does nothing without a view, a node or a stroke. pressed: where the button went down, in the samples' pixels.
    void start(QWidget* view, BaseNode* node, const QString& camera,
               const QPoint& pressed = InputWorker::unknownPosition());
    /// Takes what was sampled up to the release, or up to now where none was noted; at least a click's mark.
    void stop();
    /// Of every event that the views get: a busy host hands a release on late, and what the pointer does after it is no
    /// part of the stroke.
    void noteInput(const QEvent& event, SampleTime now = SampleClock::now());

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// The pen's pressure came to be known only now, after the stroke has begun: makes it the pen's, and weighs with it
    /// what has been sampled so far without any.
    void weighStroke(float pressure);
    /// The pen came to be known to draw with its eraser end only now: makes an eraser's stroke of it, from its start.
    void eraseInstead();

signals:
    void RunInputWorker();
    void ShutdownInputWorker();

public slots:
    void OnMousePositionChanged(const QPoint& position, int width, float opacity, float hardness);

private:
    struct Target {
        BaseNode* node;
        std::shared_ptr<LayerManager> manager;
        ActiveStroke* stroke;  // null when the stroke, or the whole drawing, is gone
    };
    Target findTarget() const;
    bool startThread(const QRect& view);
    void endThread();
    void pollOnce();
    void connectSamples(InputWorker& worker, Qt::ConnectionType type);
    void deliverSamples();
    void endWhereLifted(const Target& target);
    void followView();
    void leaveView();

    const PointerSource m_pointer;
    TimerResolution m_timerResolution;
    QThread* m_thread = nullptr;
    std::shared_ptr<SampleGate> m_gate;
    QList<QPointer<QThread>> m_detached;  // did not end in time; they still run code of ours
    bool m_running = false;
    MObjectHandle m_node;
    QString m_camera;
    QPointer<QWidget> m_view;
    bool m_viewIsAsBefore = false;        // for samples that are delivered now
    QList<QPointer<QWidget>> m_followed;  // the view and what it is in, any of which may move it
    QPoint m_pressed;
    SamplingOptions m_options;
    StrokeFiller m_filler;
    EventClock m_eventClock;
    SampleTime m_released = SampleTime::max();  // by then, surely
    PointerSighting m_lifted;                   // the release, where and about when it was
};
