#include "contexts/ThreadManager.h"

#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "settings/PenState.h"
#include "settings/Preferences.h"

#include <QCoreApplication>
#include <QCursor>
#include <QThread>

namespace {

const unsigned long kLongestWait = 250;  // milliseconds the user may be kept waiting by a worker that is stuck

ThreadManager* s_instance = nullptr;

QPoint realPointer()
{
    return QCursor::pos();
}

QRect placeOnScreen(const QWidget& view)
{
    return QRect(view.mapToGlobal(QPoint(0, 0)), view.size());
}

/// Read once, on the main thread: the preferences may change while a stroke is drawn, and belong to this thread.
SamplingOptions samplingOptions(const QWidget& view, ToolType tool)
{
    const Preferences& preferences = Preferences::instance();
    return {placeOnScreen(view), preferences.toolSize(tool), float(preferences.toolOpacity(tool)) / 100.0f,
            float(preferences.toolHardness(tool)) / 100.0f, preferences.isTabletEnabled(tool)};
}

/// A shape is spanned by two points: where the pointer went down, and where it is now.
void spanShape(QVector<StrokePoint>& points, const StrokePoint& point)
{
    if (points.size() < 2) {
        points.prepend(point);
    } else {
        points[1] = point;
    }
}

}  // namespace

ThreadManager& ThreadManager::instance()
{
    if (!s_instance) {
        s_instance = new ThreadManager;
    }
    return *s_instance;
}

void ThreadManager::destroy()
{
    delete s_instance;
}

ThreadManager::ThreadManager(const PointerSource& pointer)
    : m_pointer(pointer ? pointer : PointerSource(realPointer)), m_options()
{}

ThreadManager::~ThreadManager()
{
    stop();
    for (const QPointer<QThread>& thread : m_detached) {
        if (thread) {
            thread->wait();
            delete thread;
        }
    }
    if (s_instance == this) {
        s_instance = nullptr;
    }
}

void ThreadManager::start(QWidget* view, BaseNode* node, const QString& camera, const QPoint& pressed)
{
    stop();
    m_smoother.clear();
    if (!view || !node) {
        return;
    }
    m_node = node->thisMObject();
    m_camera = camera;
    m_view = view;
    m_pressed = pressed;
    const ActiveStroke* stroke = findTarget().stroke;
    if (!stroke) {
        return;
    }
    m_timerResolution.raise();
    m_options = samplingOptions(*view, stroke->tool);
    m_gate = std::make_shared<SampleGate>();
    m_thread = new QThread;
    auto* worker = new InputWorker(m_options, m_pointer, m_gate);
    worker->setPressPosition(pressed);
    connect(this, SIGNAL(RunInputWorker()), worker, SLOT(Run()));
    connect(this, SIGNAL(ShutdownInputWorker()), worker, SLOT(Shutdown()));
    connectSamples(*worker);
    // Both go by themselves when the thread ends, however late that is.
    connect(m_thread, SIGNAL(finished()), worker, SLOT(deleteLater()));
    connect(m_thread, SIGNAL(finished()), m_thread, SLOT(deleteLater()));
    worker->moveToThread(m_thread);
    m_thread->start(QThread::TimeCriticalPriority);
    m_running = true;
    emit RunInputWorker();
}

void ThreadManager::connectSamples(InputWorker& worker)
{
    connect(&worker, SIGNAL(MousePositionChanged(const QPoint&, int, float, float)), this,
            SLOT(OnMousePositionChanged(const QPoint&, int, float, float)));
}

void ThreadManager::stop()
{
    if (m_running) {
        endThread();
        const ActiveStroke* stroke = findTarget().stroke;
        if (stroke && stroke->points.isEmpty()) {
            InputWorker last(m_options, m_pointer, std::make_shared<SampleGate>());
            last.setPressPosition(m_pressed);
            connectSamples(last);
            last.Poll();
        }
    }
    m_running = false;
    m_timerResolution.restore();
    m_node = MObject();
    m_camera.clear();
    m_view.clear();
}

void ThreadManager::endThread()
{
    emit ShutdownInputWorker();
    const bool ended = m_thread->wait(kLongestWait);
    if (!ended) {
        m_gate->close();  // nothing it still finds may reach the next stroke
    }
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);  // the samples that are under way
    if (ended) {
        delete m_thread;  // the worker went with the thread's last event
    } else {
        m_detached.append(m_thread);  // a thread that runs must not be deleted
    }
    m_thread = nullptr;
}

void ThreadManager::weighStroke(float pressure)
{
    if (!m_running) {
        penState::setPressure(pressure);
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(m_gate->mutex);
        penState::setPressure(pressure);
    }
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);  // the last samples of before
    ActiveStroke* stroke = findTarget().stroke;
    if (!stroke || !m_options.tabletEnabled) {
        return;
    }
    for (StrokePoint& point : stroke->points) {
        point.opacity *= pressure;
    }
    m_smoother.weigh(pressure);
    stroke->drawAnew = true;
    stroke->changed = true;
}

ThreadManager::Target ThreadManager::findTarget() const
{
    BaseNode* node = BaseNode::fromHandle(m_node);
    const std::shared_ptr<LayerManager> manager = node ? node->layerManager() : nullptr;
    return {node, manager, manager ? manager->stroke(m_camera) : nullptr};
}

// A worker counts from where the view was when the stroke began.
QPoint ThreadManager::inViewNow(const QPoint& position) const
{
    if (!m_view) {
        return position;
    }
    const QRect now = placeOnScreen(*m_view);
    return position + QPoint(m_options.view.left() - now.left(), now.bottom() - m_options.view.bottom());
}

void ThreadManager::OnMousePositionChanged(const QPoint& position, int width, float opacity, float hardness)
{
    const Target target = m_running ? findTarget() : Target();
    if (!target.stroke) {
        return;
    }
    ActiveStroke& stroke = *target.stroke;
    target.node->followToolView(m_view, m_camera);
    const StrokePoint point = {width, opacity, hardness, target.node->viewToCanvas(inViewNow(position))};
    if (isFreehand(stroke.tool)) {
        if (!addFreehandPoint(stroke, point)) {
            return;
        }
    } else if (isShape(stroke.tool)) {
        spanShape(stroke.points, point);
    } else if (stroke.tool == ToolType::Text) {
        stroke.fontFamily = Preferences::instance().textFontFamily();
        stroke.points = {point};
    }
    stroke.changed = true;
    if (isFreehand(stroke.tool) && stroke.points.size() == 2) {
        target.node->redrawActiveView();  // the first segment shows without waiting for the pointer to move on
    } else {
        target.node->scheduleRedraw();
    }
}

bool ThreadManager::addFreehandPoint(ActiveStroke& stroke, StrokePoint point)
{
    if (!m_smoother.accept(point, stroke.points)) {
        return false;
    }
    stroke.points.append(point);
    return true;
}
