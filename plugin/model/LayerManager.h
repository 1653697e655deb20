#pragma once

#include "model/ActiveStroke.h"
#include "model/CameraDrawing.h"
#include "model/FrameAddress.h"
#include "model/PixelBudget.h"
#include "model/StrokeInProgress.h"

#include <QObject>
#include <QStringList>

#include <map>

class DrawingViews;
class LayerListView;

/// The camera the user works in, and the one before it.
struct CurrentCameras {
    QString current;
    QString previous;
};

/// One node's whole drawing: for every camera a stack of layers with one active, the picture composed of them, and the
/// stroke in progress. A camera exists here from its first layer to the removal of its last. Main thread only.
/// Layer pointers handed out are loans until the next insertion, removal or move.
class LayerManager : public QObject, private PictureUser {
    Q_OBJECT
public:
    LayerManager();
    ~LayerManager() override;

    /// The one panel and the views of the process; null means nobody listens. The caller keeps them.
    static void setLayerListView(LayerListView* view);
    static LayerListView* layerListView() { return s_listView; }
    static void setDrawingViews(DrawingViews* views);

    /// Only the drawing of the scene's primary node publishes its layers.
    bool isMaster() const { return m_master; }
    void setMaster(bool master) { m_master = master; }
    /// To the layer list; does nothing unless master, and the one in use. Under a PublishOnce it is done later.
    void publish();

    // Cameras
    QStringList cameras() const;  ///< those with layers, sorted case-sensitively
    const QString& currentCamera() const { return m_current.current; }
    const QString& previousCamera() const { return m_current.previous; }
    const CurrentCameras& currentCameras() const { return m_current; }
    void restoreCurrentCameras(const CurrentCameras& cameras);  ///< as currentCameras() gave them before
    void setCurrentCamera(const QString& camera);
    void syncCurrentCamera();  ///< makes the active view's camera current; without a view nothing changes

    // Layers
    int layerCount(const QString& camera) const;
    int totalLayerCount() const;
    bool isValidLayer(const QString& camera, int index) const;
    Layer* layer(const QString& camera, int index) const;          ///< null when not valid
    quint64 layerId(const QString& camera, int index) const;       ///< stays with the layer; 0 when not valid
    int layerIndex(const QString& camera, quint64 layerId) const;  ///< -1 when the camera has no such layer
    int activeLayerIndex(const QString& camera) const;             ///< -1 when none
    Layer* activeLayer(const QString& camera) const;               ///< null when none
    QString layerName(const QString& camera, int index) const;
    float layerOpacity(const QString& camera, int index) const;
    int layerState(const QString& camera, int index) const;
    bool layerVisible(const QString& camera, int index) const;
    bool layerNameExists(const QString& name) const;
    /// The name without control characters, double quotes and back-slashes, which the text record cannot hold, or
    /// "Layer" when it is empty; a taken one becomes the first free "Layer 1", "Layer 2" and so on.
    QString uniqueLayerName(const QString& name) const;

    /// Inserts a new layer under a unique name, in the default state; an index outside the list appends. Gives the
    /// index used. The first layer of a camera becomes its active one; the first of all makes its camera current.
    int insertLayer(const QString& camera, int index, const QString& name);
    /// The same with a layer that keeps its name and marks; always consumes it. -1 for null.
    int insertLayer(const QString& camera, int index, std::unique_ptr<Layer> layer);
    std::unique_ptr<Layer> takeLayer(const QString& camera, int index);  ///< null when not valid; keeps its active mark
    std::vector<std::unique_ptr<Layer>> takeAllLayers(const QString& camera);
    int moveLayer(const QString& camera, int from, int to);  ///< where it landed; -1, reported, when not valid
    int moveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex);
    /// False, reported, for an index that the camera does not have; -1 is accepted on a camera without layers.
    bool setActiveLayer(const QString& camera, int index, bool makeCurrentCamera);
    void renameLayer(const QString& camera, int index, const QString& name);
    /// The name exactly as it is given, though it may be taken or unrecordable: what undo gives back.
    void restoreLayerName(const QString& camera, int index, const QString& name);
    void setLayerOpacity(const QString& camera, int index, float opacity);
    void setLayerState(const QString& camera, int index, int state);
    void setLayerVisible(const QString& camera, int index, bool visible);
    void clear(bool publishing);

    // Frames of a camera's active layer; without one -1, null, empty or false
    int addFrame(const QString& camera, const MTime& time);
    int addFrameAtCurrentTime(const QString& camera);
    int insertFrame(const QString& camera, std::unique_ptr<Frame> frame);
    std::unique_ptr<Frame> copyFrame(const QString& camera, const MTime& time) const;
    std::unique_ptr<Frame> takeFrame(const QString& camera, const MTime& time);
    std::unique_ptr<Frame> takeFrameAtCurrentTime(const QString& camera);
    Frame* nextFrame(const QString& camera, bool wrap) const;
    Frame* previousFrame(const QString& camera, bool wrap) const;
    QList<int> frameNumbers(const QString& camera) const;
    void retime(const QString& camera, const QList<int>& numbers);
    bool hasFrameAtCurrentTime(const QString& camera) const;
    /// Shows every layer at a time. skipActive leaves the current camera's active layer as it is; the layer under an
    /// open stroke always stays.
    void updateCurrentFrames(int frameNumber, bool skipActive);

    // The stroke in progress. It belongs to one camera; the others see none.
    /// The record to fill; an open one is given again. Its tool and colour are those of this moment (the pen's eraser
    /// end counts). Null without an active layer, while another camera's stroke is open, or when there is no frame to
    /// draw on, unless blank: then the stroke starts from nothing.
    ActiveStroke* beginStroke(const QString& camera, bool blank);
    ActiveStroke* stroke(const QString& camera) const;  ///< null when the camera has none
    bool hasStroke() const { return m_stroke.record() != nullptr; }
    int strokeLayerIndex(const QString& camera) const;  ///< -1 when there is no stroke or its layer is gone
    /// The frame that the camera's stroke goes to; layerId 0 when there is no stroke or its frame is gone.
    FrameAddress strokeFrame(const QString& camera) const;
    /// Draws what the record has gained since the last time into the working images. Nothing is shown yet.
    void advanceStroke(const QString& camera);
    /// Puts the stroke into its frame and ends it; undo becomes the drawing before it. False when the camera has no
    /// stroke, or nothing to put it into (the stroke is dropped then).
    bool commitStroke(const QString& camera, Picture& undo);
    void dropStroke();
    Picture strokeBase() const;  ///< the drawing beneath the stroke; blank without a stroke and when the frame is gone
    /// Drops a stroke whose layer or frame is gone after a change. So too one that works on a copy of the drawing
    /// beneath it when that drawing has given way to another: the copy would bring it back. base: what was beneath it
    /// before.
    void dropStrokeUnlessOn(const Picture& base);
    bool holdsCut() const { return m_stroke.holdsCut(); }  ///< a transform has kept a region, which can be pasted
    /// Exchanges a frame's drawing with the given one: one call undoes a stroke, the next redoes it. False when there
    /// is no such frame.
    bool swapImage(const FrameAddress& address, Picture& other);
    bool swapActiveImage(const QString& camera, Picture& other);  ///< the active layer's current frame

    // What is shown
    void markForRedraw(const QString& camera);
    bool needsRedraw(const QString& camera) const;
    /// The camera's picture, made anew when something changed: ghosts, layers, the stroke. Null without layers. Owned
    /// by the manager; good until the camera loses its last layer. Beside ink its transparent pixels have the ink's
    /// colour; of the others the colour means nothing.
    const QImage* composite(const QString& camera);
    /// Tells the pictures that composite() gave apart, those of other cameras and drawings too: who has seen this one
    /// knows every byte of it. 0 without layers, and before the first.
    quint64 compositeGeneration(const QString& camera) const;

private:
    friend class PublishOnce;

    CameraDrawing* drawing(const QString& camera);  // null without layers
    const CameraDrawing* drawing(const QString& camera) const;
    void prepareCamera(const QString& camera, CameraDrawing& drawing);
    void dropCamera(const QString& camera);
    Layer* editedLayer(const QString& camera);  // the active one, its camera marked for redraw
    static InkedImage strokeStart(Layer& layer, ToolType tool, bool blank);
    Layer* strokeLayer() const;       // null without a stroke and when the layer is gone
    Layer* shownStrokeLayer() const;  // null also when it is hidden, and when the frame drawn on is gone
    Frame* strokeTargetFrame() const;

    bool onlyTheStrokeChanged(const QString& camera, const CameraDrawing& drawing) const;
    bool ghostsAreSilenced() const;                                     // by playback
    const InkedImage* shownGhosts(const CameraDrawing& drawing) const;  // null when there are none to see
    void rebuild(const QString& camera, CameraDrawing& drawing);
    void rebuildGhosts(const QString& camera, CameraDrawing& drawing);
    static void appendPicture(std::vector<Ply>& plies, const Picture& picture);
    void appendStroke(std::vector<Ply>& plies);
    void refreshStroke(CameraDrawing& drawing);
    void refreshColumns(CameraDrawing& drawing, const InkMap& columns);
    void refreshArea(CameraDrawing& drawing, const QRect& area);
    const QImage& imageBelow(CameraDrawing& drawing, const InkMap& columns);
    void mixFromStroke(CameraDrawing& drawing, const InkMap& columns);
    void paintFromStroke(CameraDrawing& drawing, const QRect& area);
    static void paintLayers(QPainter& painter, const CameraDrawing& drawing, int first, int end, const QRect& area);
    void paintStroke(QPainter& painter, Layer& layer, const QRect& area);

    void collectPicturesInUse(QSet<quint64>& ids) const override;
    bool isDrawnOn() const override { return hasStroke(); }

    static void redrawDrawing();

    static LayerListView* s_listView;
    static DrawingViews* s_views;

    std::map<QString, CameraDrawing> m_cameras;
    CurrentCameras m_current;
    StrokeInProgress m_stroke;
    bool m_master = false;
    bool m_wasPlaying = false;
    int m_publishingLater = 0;  // how many PublishOnce there are
    bool m_isToPublish = false;
};

/// While one of these is there the drawing is not published, and when the last goes once, if it was to be: building the
/// list anew for each of many layers takes long.
class PublishOnce {
public:
    explicit PublishOnce(LayerManager& manager);
    ~PublishOnce();
    PublishOnce(const PublishOnce&) = delete;
    PublishOnce& operator=(const PublishOnce&) = delete;

private:
    LayerManager& m_manager;
};
