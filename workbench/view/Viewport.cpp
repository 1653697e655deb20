#include "view/Viewport.h"

#include "view/CameraMath.h"
#include "view/Gates.h"
#include "view/GlState.h"
#include "view/TextureCache.h"
#include "view/Viewports.h"

#include <QMouseEvent>
#include <QOpenGLFunctions>
#include <QPointer>
#include <QScopedValueRollback>
#include <QThread>
#include <QWheelEvent>

#include <maya/MFrameContext.h>
#include <maya/MUIDrawManager.h>

#include <cmath>

namespace view {

namespace {

constexpr double kWheelStep = 120;
constexpr int kNameSize = 13;  // pixels

QSurfaceFormat viewFormat()
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    format.setSwapInterval(0);  // a refresh during a stroke must not wait for the screen
    return format;
}

/// Whether what the pointer does now moves the picture in its plane.
bool usePanZoomKey()
{
    Viewports* const views = Viewports::installed();
    if (!views || !views->panZoomKey().isHeld()) {
        return false;
    }
    views->panZoomKey().use();
    return true;
}

}  // namespace

Viewport::Viewport(kernel::Session& session, std::string panelName, const kernel::NodePtr& camera, QWidget* parent)
    : QOpenGLWidget(parent), m_session(session), m_panelName(std::move(panelName))
{
    setCamera(camera);
    setObjectName(QString::fromStdString(m_panelName));
    setFormat(viewFormat());
    // The last picture stays until a new one is drawn: inverted lines are drawn onto it.
    setUpdateBehavior(QOpenGLWidget::PartialUpdate);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

Viewport::~Viewport()
{
    endLostDrag(Qt::NoButton);
    if (context()) {
        makeCurrent();
        m_smoothTarget.clear();
        m_text.clear();
        m_sceneRenderer.clear();
        TextureCache::instance().collect();
        doneCurrent();
    }
}

kernel::NodePtr Viewport::camera() const
{
    kernel::NodePtr camera = m_camera.lock();
    if (!camera || !camera->isInScene()) {
        // A new scene has new cameras of the same names; a camera that was deleted leaves the view to another.
        camera = m_session.scene.findOrNull(m_cameraName);
        if (!camera || !camera->type().isA("camera")) {
            camera = m_session.scene.findOrNull("perspShape");
        }
        m_camera = camera;
    }
    if (camera) {
        m_cameraName = camera->name();
    }
    return camera;
}

void Viewport::setCamera(const kernel::NodePtr& cameraShape)
{
    m_camera = cameraShape;
    m_cameraName = cameraShape ? cameraShape->name() : std::string();
    scheduleRefresh();
}

void Viewport::setOptions(const ViewOptions& options)
{
    m_options = options;
    scheduleRefresh();
}

void Viewport::setLegacy(bool legacy)
{
    m_legacy = legacy;
    m_toolShapes.items.clear();
    scheduleRefresh();
}

int Viewport::portWidth() const
{
    return int(std::lround(width() * devicePixelRatioF()));
}

int Viewport::portHeight() const
{
    return int(std::lround(height() * devicePixelRatioF()));
}

api::ViewMatrices Viewport::matrices() const
{
    const kernel::NodePtr shape = camera();
    return shape ? matricesOf(*shape, portWidth(), portHeight()) : api::ViewMatrices();
}

void Viewport::refresh(bool)
{
    if (m_painting) {
        scheduleRefresh();
        return;
    }
    m_outdated = true;
    repaint();
    // Qt holds repaints back that come faster than the screen shows them; lines are inverted on what is there now.
    if (m_outdated && m_legacy && isValid()) {
        makeCurrent();
        paintGL();
        doneCurrent();
    }
}

void Viewport::scheduleRefresh()
{
    if (QThread::currentThread() == thread()) {
        m_outdated = true;
        update();
    } else {
        QMetaObject::invokeMethod(
            this, [this] { scheduleRefresh(); }, Qt::QueuedConnection);
    }
}

api::FrameState Viewport::frameState() const
{
    api::FrameState frame;
    frame.camera = camera();
    frame.width = portWidth();
    frame.height = portHeight();
    frame.matrices = matrices();
    return frame;
}

// --- drawing -------------------------------------------------------------------------------------------------------

void Viewport::initializeGL()
{
    m_isSoftware = isSoftwareRenderer();
    // The same state must give the same bytes.
    glDisable(GL_DITHER);
    // Colours are straight, the picture itself is opaque: its alpha stays 1.
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void Viewport::resizeGL(int, int)
{
    m_outdated = true;
}

void Viewport::paintGL()
{
    if (m_painting || (m_hasInvertedLines && !m_outdated)) {
        return;
    }
    const QScopedValueRollback<bool> painting(m_painting, true);
    m_outdated = false;
    m_hasInvertedLines = false;
    const api::FrameState frame = frameState();
    // Without graphics hardware smoothing takes most of a frame's time, which what moves has more need of.
    const bool isSmooth = !(m_isSoftware && m_session.playback.isPlaying());
    if (isSmooth) {
        m_smoothTarget.begin(QSize(frame.width, frame.height));
    }
    drawPicture(frame);
    if (isSmooth) {
        m_smoothTarget.end();
    }
    if (!m_keepToolShapes) {
        m_toolShapes.items.clear();
    }
}

void Viewport::drawPicture(const api::FrameState& frame)
{
    glViewport(0, 0, frame.width, frame.height);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    TextureCache::instance().collect();
    if (!frame.camera) {
        return;
    }
    const api::DrawList shapes = m_legacy ? api::DrawList() : collectShapes(frame);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    m_sceneRenderer.draw(m_session.scene, frame, m_options);
    if (m_legacy && m_options.moduleShapes) {
        m_legacyRenderer.draw(m_session, frame, *this, m_options);
    }
    m_listRenderer.draw(shapes, frame, m_text);
    drawGates(m_session.scene, frame, m_text, devicePixelRatioF());
    if (m_options.headsUp) {
        drawCameraName(frame);
    }
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

api::DrawList Viewport::collectShapes(const api::FrameState& frame)
{
    api::DrawList shapes;
    if (m_options.moduleShapes) {
        api::drawOverrides(frame, shapes);
    }
    {
        const auto manager = api::makeDrawManager(shapes);
        const auto context = api::makeFrameContext(frame);
        api::ToolBox::instance().drawFeedback(*manager, *context);
    }
    shapes.items.insert(shapes.items.end(), m_toolShapes.items.begin(), m_toolShapes.items.end());
    return shapes;
}

void Viewport::drawCameraName(const api::FrameState& frame)
{
    const kernel::Node* const transform = frame.camera->parent();
    const QString name = QString::fromStdString(transform ? transform->name() : frame.camera->name());
    const int size = int(std::lround(kNameSize * devicePixelRatioF()));
    const QPointF at(frame.width / 2.0, size);
    const GlMatrices matrices({}, pixelProjection(frame.width, frame.height));
    glEnable(GL_BLEND);
    m_text.draw(at + QPointF(1, -1), name, size, QColor(0, 0, 0, 150), GlText::Align::Centre);
    m_text.draw(at, name, size, QColor(0xd8, 0xd8, 0xd8), GlText::Align::Centre);
    glDisable(GL_BLEND);
}

bool Viewport::beginGl()
{
    if (!m_painting) {
        makeCurrent();
    }
    return isValid();
}

void Viewport::endGl()
{
    if (!m_painting) {
        doneCurrent();
    }
}

void Viewport::beginXorDrawing(float lineWidth, const float colour[4])
{
    makeCurrent();
    const kernel::Matrix4 pixels = pixelProjection(portWidth(), portHeight());
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadMatrixd(&pixels.m[0][0]);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    glEnable(GL_COLOR_LOGIC_OP);
    glLogicOp(GL_XOR);
    glLineWidth(lineWidth);
    glColor4fv(colour);
}

void Viewport::endXorDrawing()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
    glPopAttrib();
    glFlush();
    doneCurrent();
    m_hasInvertedLines = true;
    repaint();  // shows the picture with the lines on it; paintGL leaves it alone
}

// --- input ---------------------------------------------------------------------------------------------------------

QPoint Viewport::portPoint(const QPointF& widgetPoint) const
{
    const double ratio = devicePixelRatioF();
    return QPoint(int(std::floor(widgetPoint.x() * ratio)),
                  portHeight() - 1 - int(std::floor(widgetPoint.y() * ratio)));
}

void Viewport::sendToTool(api::ToolEvent::Kind kind, const QPointF& at, Qt::KeyboardModifiers modifiers)
{
    // Before the tool hears of a release the drag is over: it may open a dialog, which ends drags.
    const Qt::MouseButton button = m_toolButton;
    if (kind == api::ToolEvent::Kind::Release) {
        m_toolButton = Qt::NoButton;
    }
    m_toolAt = at;
    const QPoint point = portPoint(at);
    api::ToolEvent toolEvent;
    toolEvent.kind = kind;
    toolEvent.x = point.x();
    toolEvent.y = point.y();
    toolEvent.button = button == Qt::LeftButton ? api::ToolEvent::Button::Left
                     : button == Qt::MidButton  ? api::ToolEvent::Button::Middle
                                                : api::ToolEvent::Button::None;
    toolEvent.shift = modifiers & Qt::ShiftModifier;
    toolEvent.control = modifiers & Qt::ControlModifier;

    const api::FrameState frame = frameState();
    api::DrawList drawn;
    const auto manager = api::makeDrawManager(drawn);
    const auto context = api::makeFrameContext(frame);
    const bool hadShapes = !m_toolShapes.items.empty();
    const QPointer<Viewport> self(this);
    // A legacy view has no draw manager: the tool gets the plain form of the event.
    api::ToolBox::instance().send(toolEvent, m_legacy ? nullptr : manager.get(), context.get());
    if (!self) {
        return;  // the tool had the view deleted
    }
    // While a button is held, what the tool drew stays until it draws again; otherwise it is there for one frame.
    m_keepToolShapes =
        m_toolButton != Qt::NoButton && (kind == api::ToolEvent::Kind::Press || kind == api::ToolEvent::Kind::Drag);
    m_toolShapes = std::move(drawn);
    if (hadShapes || !m_toolShapes.items.empty()) {
        scheduleRefresh();
    }
}

bool Viewport::endLostDrag(Qt::MouseButtons held)
{
    const QPointer<Viewport> self(this);
    if (m_cameraDrag.isActive() && !held.testFlag(m_cameraDrag.button())) {
        m_cameraDrag.end();
    }
    if (m_toolButton != Qt::NoButton && !held.testFlag(m_toolButton)) {
        sendToTool(api::ToolEvent::Kind::Release, m_toolAt, Qt::NoModifier);
    }
    return !self.isNull();
}

bool Viewport::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Hide) {
        if (!endLostDrag(Qt::NoButton)) {
            return true;
        }
    }
    return QOpenGLWidget::event(event);
}

void Viewport::mousePressEvent(QMouseEvent* event)
{
    emit Activated(this);
    if (!endLostDrag(event->buttons() & ~Qt::MouseButtons(event->button()))) {
        return;
    }
    if (m_cameraDrag.isActive() || m_toolButton != Qt::NoButton) {
        return;  // a second button while one is at work
    }
    if (m_cameraDrag.begin(*event, usePanZoomKey()) || event->modifiers() & Qt::AltModifier) {
        return;
    }
    if (event->button() == Qt::LeftButton || event->button() == Qt::MidButton) {
        m_toolButton = event->button();
        sendToTool(api::ToolEvent::Kind::Press, event->localPos(), event->modifiers());
    } else {
        event->ignore();
    }
}

void Viewport::mouseMoveEvent(QMouseEvent* event)
{
    if (!endLostDrag(event->buttons())) {
        return;
    }
    const kernel::NodePtr shape = m_cameraDrag.isActive() ? camera() : nullptr;
    if (shape) {
        m_cameraDrag.moveTo(event->pos(), m_session.scene, *shape, size());
        scheduleRefresh();
    } else if (m_toolButton != Qt::NoButton) {
        sendToTool(api::ToolEvent::Kind::Drag, event->localPos(), event->modifiers());
    } else if (event->buttons() == Qt::NoButton) {
        sendToTool(api::ToolEvent::Kind::Move, event->localPos(), event->modifiers());
    }
}

void Viewport::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_cameraDrag.isActive() && event->button() == m_cameraDrag.button()) {
        m_cameraDrag.end();
    } else if (m_toolButton != Qt::NoButton && event->button() == m_toolButton) {
        sendToTool(api::ToolEvent::Kind::Release, event->localPos(), event->modifiers());
    } else {
        event->ignore();
    }
}

void Viewport::wheelEvent(QWheelEvent* event)
{
    const kernel::NodePtr shape = camera();
    if (!shape) {
        return;
    }
    // With Alt held some systems turn the wheel sideways.
    const QPoint turned = event->angleDelta();
    const double steps = (turned.y() != 0 ? turned.y() : turned.x()) / kWheelStep;
    turnWheel(steps, m_session.scene, *shape, usePanZoomKey());
    scheduleRefresh();
    event->accept();
}

void Viewport::enterEvent(QEvent*)
{
    sendToTool(api::ToolEvent::Kind::Enter, mapFromGlobal(QCursor::pos()), Qt::NoModifier);
}

void Viewport::leaveEvent(QEvent*)
{
    sendToTool(api::ToolEvent::Kind::Leave, mapFromGlobal(QCursor::pos()), Qt::NoModifier);
}

void Viewport::focusInEvent(QFocusEvent* event)
{
    QOpenGLWidget::focusInEvent(event);
    emit Activated(this);
}

}  // namespace view
