#pragma once

#include "model/Layer.h"
#include "node/LegacyPicture.h"
#include "node/RegionOutline.h"
#include "node/ViewportMetrics.h"

// Before the host's view headers, which may bring the window system's macros (None, Bool, CursorShape).
#include <QPoint>
#include <QString>
#include <QWidget>

#include <maya/M3dView.h>
#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MFrameContext.h>
#include <maya/MObject.h>
#include <maya/MObjectHandle.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>
#include <vector>

class LayerManager;
class QImage;

/// The scene's drawing: a locator whose layerData attribute carries every camera's layers and frames.
class BaseNode : public MPxLocatorNode {
public:
    static void* creator();
    static MStatus initialize();

    ~BaseNode() override;

    void postConstructor() override;
    bool isBounded() const override;
    MBoundingBox boundingBox() const override;
    bool isTransparent() const override;
    bool drawLast() const override;
    bool excludeAsLocator() const override;
    /// The legacy viewport's; Viewport 2.0 has the draw override.
    void draw(M3dView& view, const MDagPath& path, M3dView::DisplayStyle style, M3dView::DisplayStatus status) override;

    // Finding nodes -------------------------------------------------------------------------------------------------

    /// Every drawing node of the scene; loans until the scene changes.
    static std::vector<BaseNode*> allNodes();
    /// The scene's primary drawing node, null when there is none.
    static BaseNode* masterNode();
    /// The drawing node an object is; null for any other object.
    static BaseNode* fromObject(const MObject& object);
    /// The same for an object that may have left the scene since; null then.
    static BaseNode* fromHandle(const MObjectHandle& handle);
    /// The same, but also while only undo can still bring the object back into the scene.
    static BaseNode* fromLivingHandle(const MObjectHandle& handle);

    // The drawing ---------------------------------------------------------------------------------------------------

    /// Empty, and reported, when the attribute holds no drawing.
    std::shared_ptr<LayerManager> layerManager() const;
    /// The same without a report, for what is asked all the time and of nodes that are still being read.
    std::shared_ptr<LayerManager> layerManagerIfAny() const;
    /// Gives the node a new empty drawing; false, and reported, when it could not be stored.
    bool initializeLayerManager();
    bool isMaster() const;
    float opacity() const;  ///< 0..1

    /// The picture a camera's view shows now; the manager's own, valid until the drawing changes. Null for none.
    const QImage* compositeImage(const QString& camera);
    /// Another one whenever compositeImage gave another picture, of any camera or node; 0 for none.
    quint64 compositeGeneration(const QString& camera) const;
    bool hasDrawingFor(const QString& camera) const;  ///< the camera has layers
    /// The scene's time changed to this frame number: tells the marks of the time slider and the drawing.
    void changeTime(int frameNumber);
    /// The same for the drawing alone. overlayChanged: the marks on the slider changed with it, so that the layer
    /// being edited keeps its frame.
    void setCurrentFrame(int frameNumber, bool overlayChanged);
    int currentFrameNumber() const { return m_frameNumber; }

    /// Sees to it that a stroke at the current time has a layer and a frame to go into, as the preferences allow.
    /// newLayerIndex: of the layer made for it, else -1. frameCreated: a frame was made for it. False when there is
    /// nothing to draw on (reported, but for an empty camera or a question put to the user); nothing is left behind
    /// then.
    bool drawingTarget(const QString& camera, int& newLayerIndex, bool& frameCreated);
    /// Has the camera's stroke committed as one undo step, with what was made for it. False when there is none, when
    /// this is not the node that commands work on, and when the host refuses.
    bool commitStroke(const QString& camera);
    /// Takes back a stroke in progress with the layer and the frame made for it; nothing when none were made. Steps of
    /// the undo queue must not meet these: they were not there when the steps were made.
    void withdrawMadeStroke();
    /// The camera has an active layer, and the user may change its drawings. False, and reported, when not.
    bool canEditActiveLayer(const QString& camera) const;

    /// What was copied last: packed frames, their times counted from the start of the span they were copied from. A
    /// cut keeps the same list for its redo, so a list is replaced and never changed.
    const Frames& frameClipboard() const { return *m_frameClipboard; }
    void setFrameClipboard(const std::shared_ptr<const Frames>& frames) { m_frameClipboard = frames; }

    // Where it is shown ---------------------------------------------------------------------------------------------

    /// Works out where a view of this camera and size (pixels) shows the canvas, and shows the current frames.
    void updateViewportMetrics(const MDagPath& cameraPath, int width, int height);
    /// Follows the camera's 2D pan; runs right after updateViewportMetrics.
    void updatePanOffset(const MDagPath& cameraPath, const MHWRender::MFrameContext& frameContext);
    /// Both for a view at hand.
    void updateViewportMetrics(const MDagPath& cameraPath, M3dView& view);
    /// As the last of these left them; those of another view after that view was drawn.
    const ViewportMetrics& metrics() const { return m_metrics; }
    MPoint drawCentre() const { return m_metrics.centre; }
    double drawHalfSize() const { return m_metrics.halfSize; }

    /// From now on viewToCanvas maps points of this view; drawing other views does not change that. False, and the
    /// mapping stays as it was, when the view is gone or shows no canvas that points could be told on.
    bool prepareToolView(M3dView& view);
    enum class ToolView { Gone, AsBefore, Changed };
    /// Prepares the view of a widget again as it is now: it may have been resized, zoomed or panned. Gone, and the
    /// mapping stays, when it is no more, looks through another camera or shows no canvas.
    ToolView followToolView(const QWidget* widget, const QString& camera);
    const ViewportMetrics& toolMetrics() const { return m_toolMetrics; }
    /// Canvas pixel under a point of the tool's view (its widget's pixels, but y pointing up).
    QPoint viewToCanvas(const QPoint& point) const;
    /// The same for a point as the tools' events give it: port pixels, y pointing up.
    QPoint portToCanvas(const QPoint& point) const;
    QPointF portToCanvasPoint(const QPoint& point) const;  ///< not rounded to a pixel
    /// How large the tool's view shows the canvas.
    double portPixelsPerCanvasPixel() const;

    /// Shown in Viewport 2.0 from the next redraw on.
    void setRegionOutline(const RegionOutline& outline) { m_regionOutline = outline; }
    const RegionOutline& regionOutline() const { return m_regionOutline; }
    /// The outline belongs into the view of this camera whose metrics were worked out last.
    bool showsRegionOutline(const QString& camera) const;

    /// Has the views draw the node anew at their next refresh.
    void requestRedraw();
    /// The same, and draws the active view now.
    void redrawActiveView();
    /// The same, and draws the active view when the host is next idle.
    void scheduleRedraw();

private:
    std::shared_ptr<LayerManager> findLayerManager(const char** failure) const;
    QString drawnCamera(const LayerManager& manager, const QString& camera) const;
    QString cameraInFile(const QString& camera) const;
    void setUpDrawing();
    static Layer* editableLayer(LayerManager& manager, const QString& camera);
    bool prepareFrame(LayerManager& manager, const QString& camera, bool& frameCreated) const;

    static MObject s_layerData;
    static MObject s_opacity;

    ViewportMetrics m_metrics;
    ViewportMetrics m_toolMetrics;
    double m_toolPixelRatio = 1.0;  ///< port pixels for each pixel of the tool view's widget
    int m_frameNumber = 0;
    LegacyPicture m_legacyPicture;
    std::shared_ptr<const Frames> m_frameClipboard = std::make_shared<Frames>();
    RegionOutline m_regionOutline;
};
