#pragma once

#include <maya/M3dView.h>
#include <maya/MBoundingBox.h>
#include <maya/MColor.h>
#include <maya/MDagPath.h>
#include <maya/MPoint.h>
#include <maya/MPxNode.h>
#include <maya/MSelectionMask.h>
#include <maya/MVector.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A locator drawn by its module. draw, isTransparent and drawLast are for the legacy viewport only.
class MPxLocatorNode : public MPxNode {
public:
    MPxLocatorNode();
    ~MPxLocatorNode() override;

    Type type() const override;
    virtual void draw(M3dView& view, const MDagPath& path, M3dView::DisplayStyle style, M3dView::DisplayStatus status);
    virtual bool isBounded() const;
    virtual MBoundingBox boundingBox() const;  ///< object space
    virtual bool isTransparent() const;
    virtual bool drawLast() const;
    virtual bool excludeAsLocator() const;  ///< hidden together with locators by a panel's Show menu
    virtual bool useClosestPointForSelection() const;
    virtual MPoint closestPoint(MPoint cursorRayPoint, MVector cursorRayDir) const;
    virtual MSelectionMask getShapeSelectionMask() const;

    unsigned int color(M3dView::DisplayStatus status);
    MColor colorRGB(M3dView::DisplayStatus status);
    static const char* className();

    // The host's own attributes of every locator; null before the first locator type is registered.
    static MObject localPosition;
    static MObject localPositionX;
    static MObject localPositionY;
    static MObject localPositionZ;
    static MObject localScale;
    static MObject localScaleX;
    static MObject localScaleY;
    static MObject localScaleZ;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
