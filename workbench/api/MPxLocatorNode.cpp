#include <maya/MPxLocatorNode.h>

#include <algorithm>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MObject MPxLocatorNode::localPosition;
MObject MPxLocatorNode::localPositionX;
MObject MPxLocatorNode::localPositionY;
MObject MPxLocatorNode::localPositionZ;
MObject MPxLocatorNode::localScale;
MObject MPxLocatorNode::localScaleX;
MObject MPxLocatorNode::localScaleY;
MObject MPxLocatorNode::localScaleZ;

namespace {

/// The colours locators are drawn in by the views.
MColor colourOf(M3dView::DisplayStatus status)
{
    switch (status) {
    case M3dView::kLead: return MColor(0.26f, 1.0f, 0.64f);
    case M3dView::kActive: return MColor(1.0f, 1.0f, 1.0f);
    case M3dView::kTemplate: return MColor(0.47f, 0.47f, 0.47f);
    case M3dView::kActiveTemplate: return MColor(1.0f, 0.47f, 0.47f);
    default: return MColor(0.0f, 0.02f, 0.38f);
    }
}

}  // namespace

MPxLocatorNode::MPxLocatorNode() = default;
MPxLocatorNode::~MPxLocatorNode() = default;

MPxNode::Type MPxLocatorNode::type() const
{
    return kLocatorNode;
}

void MPxLocatorNode::draw(M3dView&, const MDagPath&, M3dView::DisplayStyle, M3dView::DisplayStatus) {}

bool MPxLocatorNode::isBounded() const
{
    return false;
}

MBoundingBox MPxLocatorNode::boundingBox() const
{
    return MBoundingBox(MPoint(-1, -1, -1), MPoint(1, 1, 1));
}

bool MPxLocatorNode::isTransparent() const
{
    return false;
}

bool MPxLocatorNode::drawLast() const
{
    return false;
}

bool MPxLocatorNode::excludeAsLocator() const
{
    return true;
}

bool MPxLocatorNode::useClosestPointForSelection() const
{
    return false;
}

MPoint MPxLocatorNode::closestPoint(MPoint, MVector) const
{
    return MPoint::origin;
}

MSelectionMask MPxLocatorNode::getShapeSelectionMask() const
{
    return MSelectionMask(MSelectionMask::kSelectLocators);
}

unsigned int MPxLocatorNode::color(M3dView::DisplayStatus status)
{
    return static_cast<unsigned int>(std::max(0, static_cast<int>(status)));
}

MColor MPxLocatorNode::colorRGB(M3dView::DisplayStatus status)
{
    return colourOf(status);
}

const char* MPxLocatorNode::className()
{
    return "MPxLocatorNode";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
