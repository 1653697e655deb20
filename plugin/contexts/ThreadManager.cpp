#include "contexts/ThreadManager.h"

#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "settings/PenState.h"
#include "settings/Preferences.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QThread>

namespace {

const unsigned long kLongestWait = 250;  // milliseconds the user may be kept waiting by a worker that is stuck

ThreadManager* s_instance = nullptr;

PointerSighting realPointer()
{
    return {QCursor::pos(), SampleClock::now()};
}

QRect placeOnScreen(const QWidget& view)
{
    return QRect(view.mapToGlobal(QPoint(0, 0)), view.size());
}

/// Read once, on the main thread: the preferences may change while a stroke is drawn, and belong to this thread.
SamplingOptions samplingOptions(ToolType tool)
{
    const Preferences& preferences = Preferences::instance();
    return {preferences.toolSize(tool), float(preferences.toolOpacity(tool)) / 100.0f,
            float(preferences.toolHardness(tool)) / 100.0f, preferences.isTabletEnabled(tool)};
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
    if (!view || !node) {
        return;
    }
    m_node = node->thisMObject();
    m_camera = camera;
    m_view = view;
    m_pressed = pressed;
    m_released = SampleTime::max();
    m_lifted = {QPoint(), SampleTime::min()};
    m_filler.clear();
    const ActiveStroke* stroke = findTarget().stroke;
    if (!stroke) {
        return;
    }
    m_options = samplingOptions(stroke->tool);
    m_running = startThread(placeOnScreen(*view));
    if (m_running) {
        m_timerResolution.raise();
        followView();
        emit RunInputWorker();
    }
}

// Where the system has no thread to give, the toolkit says so, and there is no stroke.
bool ThreadManager::startThread(const QRect& view)
{
    m_gate = std::make_shared<SampleGate>(view, m_options);
    auto* const worker = new InputWorker(m_pointer, m_gate);
    worker->setPressPosition(m_pressed);
    connect(this, SIGNAL(RunInputWorker()), worker, SLOT(Run()));
    connect(this, SIGNAL(ShutdownInputWorker()), worker, SLOT(Shutdown()));
    connectSamples(*worker, Qt::AutoConnection);
    m_thread = new QThread;
    // Both go by themselves when the thread ends, however late that is.
    connect(m_thread, SIGNAL(finished()), worker, SLOT(deleteLater()));
    connect(m_thread, SIGNAL(finished()), m_thread, SLOT(deleteLater()));
    worker->moveToThread(m_thread);
    m_thread->start(QThread::TimeCriticalPriority);
    if (m_thread->isRunning()) {
        return true;
    }
    delete worker;
    delete m_thread;
    m_thread = nullptr;
    return false;
}

void ThreadManager::connectSamples(InputWorker& worker, Qt::ConnectionType type)
{
    connect(&worker, SIGNAL(MousePositionChanged(const QPoint&, int, float, float)), this,
            SLOT(OnMousePositionChanged(const QPoint&, int, float, float)), type);
}

void ThreadManager::deliverSamples()
{
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void ThreadManager::stop()
{
    if (m_running) {
        endThread();
        if (m_filler.isEmpty()) {
            pollOnce();
        }
        const Target target = findTarget();
        if (target.stroke) {
            m_filler.cutAfter(m_released, *target.stroke);
            endWhereLifted(target);
        }
        m_eventClock.restart();
    }
    m_running = false;
    m_timerResolution.restore();
    leaveView();
    m_node = MObject();
    m_camera.clear();
}

// The worker may have looked for the last time a while before the button went up.
void ThreadManager::endWhereLifted(const Target& target)
{
    if (m_view) {
        const QPoint place = InputWorker::inView(m_lifted.place, placeOnScreen(*m_view));
        m_filler.endAt(target.node->viewToCanvas(place), m_lifted.time, *target.stroke);
    }
}

void ThreadManager::endThread()
{
    emit ShutdownInputWorker();
    const bool ended = m_thread->wait(kLongestWait);
    if (!ended) {
        m_gate->close();  // nothing it still finds may reach the next stroke
    }
    deliverSamples();
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
    m_gate->betweenSamples([pressure] { penState::setPressure(pressure); });
    deliverSamples();  // the last ones of before
    ActiveStroke* stroke = findTarget().stroke;
    if (stroke && m_options.tabletEnabled) {
        m_filler.weigh(pressure, *stroke);
    }
}

void ThreadManager::eraseInstead()
{
    const ActiveStroke* begun = m_running ? findTarget().stroke : nullptr;
    if (!begun || begun->tool == ToolType::Eraser) {
        return;
    }
    m_options = samplingOptions(ToolType::Eraser);
    m_gate->setOptions(m_options);
    deliverSamples();  // the last ones of before
    if (ActiveStroke* stroke = findTarget().stroke) {
        stroke->tool = ToolType::Eraser;
        m_filler.remake(m_options, *stroke);
    }
}

void ThreadManager::pollOnce()
{
    m_gate = std::make_shared<SampleGate>(m_view ? placeOnScreen(*m_view) : QRect(), m_options);
    InputWorker last(m_pointer, m_gate);
    last.setPressPosition(m_pressed);
    connectSamples(last, Qt::QueuedConnection);
    last.Poll();
    deliverSamples();
}

void ThreadManager::followView()
{
    for (QWidget* widget = m_view; widget; widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        m_followed.append(widget);
    }
}

void ThreadManager::leaveView()
{
    for (const QPointer<QWidget>& widget : m_followed) {
        if (widget) {
            widget->removeEventFilter(this);
        }
    }
    m_followed.clear();
    m_view.clear();
}

bool ThreadManager::eventFilter(QObject* watched, QEvent* event)
{
    if (m_view && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
        m_gate->moveView(placeOnScreen(*m_view));
        // What was sampled before is put where the view showed it then.
        m_viewIsAsBefore = true;
        deliverSamples();
        m_viewIsAsBefore = false;
    }
    return QObject::eventFilter(watched, event);
}

void ThreadManager::noteInput(const QEvent& event, SampleTime now)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (!m_running) {
            m_eventClock.restart();  // it may be the one that begins the next stroke
        }
        break;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        if (!m_running) {
            return;
        }
        break;
    default: return;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    m_eventClock.note(mouse.timestamp(), now);
    if (event.type() == QEvent::MouseButtonRelease && mouse.button() == Qt::LeftButton) {
        m_released = m_eventClock.latest(mouse.timestamp());
        m_lifted = {mouse.globalPos(), m_eventClock.likely(mouse.timestamp())};
    }
}

ThreadManager::Target ThreadManager::findTarget() const
{
    BaseNode* node = BaseNode::fromHandle(m_node);
    const std::shared_ptr<LayerManager> manager = node ? node->layerManager() : nullptr;
    return {node, manager, manager ? manager->stroke(m_camera) : nullptr};
}

void ThreadManager::OnMousePositionChanged(const QPoint& position, int width, float opacity, float hardness)
{
    if (!m_running) {
        return;
    }
    const SampleTime time = m_gate->takeTime();
    const Target target = findTarget();
    if (!target.stroke) {
        return;
    }
    ActiveStroke& stroke = *target.stroke;
    if (!m_viewIsAsBefore) {
        target.node->followToolView(m_view, m_camera);
    }
    if (!m_filler.add(stroke, {width, opacity, hardness, target.node->viewToCanvas(position)}, time)) {
        return;
    }
    if (stroke.tool == ToolType::Text) {
        stroke.fontFamily = Preferences::instance().textFontFamily();
    }
    if (isFreehand(stroke.tool) && stroke.points.size() == 2) {
        target.node->redrawActiveView();  // the first segment shows without waiting for the pointer to move on
    } else if (stroke.tool == ToolType::Text || stroke.points.size() > 1) {  // nothing shows of a line's first point
        target.node->scheduleRedraw();
    }
}
