#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MColor.h>
#include <maya/MDagPath.h>
#include <maya/MGl.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MVector.h>

class QWidget;

namespace api {
struct Access;
class View;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

typedef unsigned long MNativeWindowHdl;

/// A handle to a camera view. It may outlive the view: every call then fails.
/// Port coordinates are pixels of the drawing area, origin lower left, y up.
class M3dView {
public:
    enum DisplayStyle { kBoundingBox = 0, kFlatShaded = 1, kGouraudShaded = 2, kWireFrame = 3, kPoints = 4 };
    enum DisplayStatus {
        kActive = 0,
        kLive = 1,
        kDormant = 2,
        kInvisible = 3,
        kHilite = 4,
        kTemplate = 5,
        kActiveTemplate = 6,
        kActiveComponent = 7,
        kLead = 8,
        kIntermediateObject = 9,
        kActiveAffected = 10,
        kNoStatus = 11
    };
    enum RendererName {
        kDefaultQualityRenderer = 0,
        kHighQualityRenderer = 1,
        kViewport2Renderer = 2,
        kExternalRenderer = 3
    };
    enum TextPosition { kLeft = 0, kCenter = 1, kRight = 2 };
    enum LineStipplePattern { kStippleNone = 0, kStippleDashed = 1 };

    M3dView() = default;

    /// The view last focused; during a tool event the one under the pointer. Fails when there is none.
    static M3dView active3dView(MStatus* ReturnStatus = NULL);
    static unsigned int numberOf3dViews();
    static MStatus get3dView(const unsigned int index, M3dView& view);
    static MStatus getM3dViewFromModelPanel(const MString& panelName, M3dView& view);
    static MStatus getM3dViewFromModelEditor(const MString& editorName, M3dView& view);

    QWidget* widget(MStatus* ReturnStatus = NULL);
    MNativeWindowHdl window(MStatus* ReturnStatus = NULL);

    /// The path ends at the camera shape.
    MStatus getCamera(MDagPath& camera);
    MStatus setCamera(MDagPath& camera);
    int portWidth(MStatus* ReturnStatus = NULL);
    int portHeight(MStatus* ReturnStatus = NULL);

    /// Draws this view, or all, before it returns.
    MStatus refresh(bool all = false, bool force = false);
    MStatus refresh(bool all, bool force, bool offscreen);
    /// Draws at the next idle moment; from any thread.
    MStatus scheduleRefresh();
    static MStatus scheduleRefreshAllViews();

    /// The point of the near clipping plane under a pixel, and the direction from there into the scene (unit length).
    MStatus viewToWorld(short x, short y, MPoint& worldPt, MVector& worldVector);
    MStatus viewToWorld(short x, short y, MPoint& nearClipPt, MPoint& farClipPt);
    /// False when the point is outside the view's volume; x and y are then those it would have.
    bool worldToView(const MPoint& worldPt, short& x, short& y, MStatus* ReturnStatus = NULL);

    MStatus viewport(unsigned int& x, unsigned int& y, unsigned int& width, unsigned int& height) const;
    MStatus projectionMatrix(MMatrix& matrix) const;
    MStatus modelViewMatrix(MMatrix& matrix) const;

    RendererName getRendererName(MStatus* ReturnStatus = NULL);
    bool isVisible(MStatus* ReturnStatus = NULL);
    /// Upper left corner of the drawing area on the screen.
    void getScreenPosition(int& x, int& y, MStatus* ReturnStatus = NULL);

    /// Legacy views only: OpenGL calls from here to endGL go to this view.
    [[deprecated("legacy viewport only")]] MStatus beginGL();
    [[deprecated("legacy viewport only")]] MStatus endGL();

    /// Legacy views only: what is drawn until endXorDrawing inverts the picture; drawing it twice erases it.
    MStatus beginXorDrawing(bool drawOrthographic = true, bool disableDepthTesting = true, float lineWidth = 1.0f,
                            LineStipplePattern stipplePattern = kStippleNone,
                            const MColor& lineColor = MColor(1, 1, 1));
    MStatus endXorDrawing();

private:
    friend struct api::Access;
    api::View* live() const;
    api::View* m_view = nullptr;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
