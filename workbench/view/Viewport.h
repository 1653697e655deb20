#pragma once

#include "api/DrawList.h"
#include "api/Tools.h"
#include "api/Views.h"
#include "kernel/Session.h"
#include "view/CameraDrag.h"
#include "view/GlText.h"
#include "view/LegacyRenderer.h"
#include "view/ListRenderer.h"
#include "view/SceneRenderer.h"
#include "view/SmoothTarget.h"

#include <QOpenGLWidget>

namespace view {

/// One camera view. Draws the scene and what draw overrides and tools add to it; turns the pointer into camera moves
/// (with Alt) and tool events (without).
class Viewport : public QOpenGLWidget, public api::View {
    Q_OBJECT

public:
    /// camera: the shape looked through at first; may be null.
    Viewport(kernel::Session& session, std::string panelName, const kernel::NodePtr& camera, QWidget* parent = nullptr);
    ~Viewport() override;

    std::string panelName() const override { return m_panelName; }
    QWidget* widget() override { return this; }
    kernel::NodePtr camera() const override;
    void setCamera(const kernel::NodePtr& cameraShape) override;
    int portWidth() const override;
    int portHeight() const override;
    bool isLegacy() const override { return m_legacy; }
    /// Drawn by the legacy viewport from now on, or by Viewport 2.0.
    void setLegacy(bool legacy);
    api::ViewMatrices matrices() const override;
    void refresh(bool force) override;
    void scheduleRefresh() override;
    bool beginGl() override;
    void endGl() override;
    void beginXorDrawing(float lineWidth, const float colour[4]) override;
    void endXorDrawing() override;

    const ViewOptions& options() const { return m_options; }
    void setOptions(const ViewOptions& options);

    QSize sizeHint() const override { return QSize(960, 540); }
    QSize minimumSizeHint() const override { return QSize(160, 90); }

signals:
    /// The pointer was pressed here, or the keyboard's focus came here: this is now the view the user works in.
    void Activated(view::Viewport* view);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    api::FrameState frameState() const;
    /// What draw overrides and the tool show in Viewport 2.0.
    api::DrawList collectShapes(const api::FrameState& frame);
    void drawPicture(const api::FrameState& frame);
    void drawCameraName(const api::FrameState& frame);
    QPoint portPoint(const QPointF& widgetPoint) const;
    void sendToTool(api::ToolEvent::Kind kind, const QPointF& at, Qt::KeyboardModifiers modifiers);
    /// Ends the drag whose button is not among those held: its release went elsewhere, or will (to a dialog that was
    /// opened meanwhile). The tool gets the release where it last saw the pointer.
    /// False when the tool had the view deleted.
    bool endLostDrag(Qt::MouseButtons held);

    kernel::Session& m_session;
    const std::string m_panelName;
    mutable std::weak_ptr<kernel::Node> m_camera;
    mutable std::string m_cameraName;  ///< to find it again in another scene
    ViewOptions m_options;
    SceneRenderer m_sceneRenderer;
    LegacyRenderer m_legacyRenderer;
    ListRenderer m_listRenderer;
    GlText m_text;
    SmoothTarget m_smoothTarget;
    bool m_isSoftware = false;  ///< the processor draws
    bool m_legacy = false;
    bool m_painting = false;

    api::DrawList m_toolShapes;  ///< what the tool drew in its last event
    bool m_keepToolShapes = false;
    Qt::MouseButton m_toolButton = Qt::NoButton;
    QPointF m_toolAt;  ///< where the tool last saw the pointer
    CameraDrag m_cameraDrag;
    bool m_outdated = true;           ///< the picture has to be drawn anew
    bool m_hasInvertedLines = false;  ///< which stay on the picture for as long as nothing changes
};

}  // namespace view
