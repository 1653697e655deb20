#pragma once

#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MString.h>

namespace api {
struct HandleAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The way from the world down to a DAG node. Nodes have one parent here, so the node tells the path.
class MDagPath {
public:
    MDagPath();

    bool operator==(const MDagPath& other) const;
    bool operator!=(const MDagPath& other) const { return !(*this == other); }

    /// Fails for a node that is not in the scene.
    static MStatus getAPathTo(const MObject& node, MDagPath& path);
    OPENMAYA_DEPRECATED(2018, "Use the form that gives a status.")
    static MDagPath getAPathTo(const MObject& node);
    static MStatus getAllPathsTo(const MObject& node, MDagPathArray& paths);

    bool isValid(MStatus* ReturnStatus = nullptr) const;
    MObject node(MStatus* ReturnStatus = nullptr) const;
    MObject transform(MStatus* ReturnStatus = nullptr) const;  ///< the lowest transform on the path
    MFn::Type apiType(MStatus* ReturnStatus = nullptr) const;
    bool hasFn(MFn::Type type, MStatus* ReturnStatus = nullptr) const;

    /// From a transform to the one shape below it; fails for none or several. A path to a shape stays.
    MStatus extendToShape();
    MStatus extendToShapeDirectlyBelow(unsigned int index);
    MStatus numberOfShapesDirectlyBelow(unsigned int& number) const;
    MStatus pop(unsigned int number = 1);
    MStatus push(const MObject& child);
    unsigned int length(MStatus* ReturnStatus = nullptr) const;  ///< nodes on the path, the world not counted
    unsigned int childCount(MStatus* ReturnStatus = nullptr) const;
    MObject child(unsigned int index, MStatus* ReturnStatus = nullptr) const;

    MMatrix inclusiveMatrix(
        MStatus* ReturnStatus = nullptr) const;  ///< with the node's own transformation, if it is a transform
    MMatrix exclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix inclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;
    MMatrix exclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;

    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;  ///< shortest unique path
    bool isVisible(MStatus* ReturnStatus = nullptr) const;           ///< itself and everything above it
    bool isTemplated(MStatus* ReturnStatus = nullptr) const;
    bool isInstanced(MStatus* ReturnStatus = nullptr) const;
    unsigned int instanceNumber(MStatus* ReturnStatus = nullptr) const;

private:
    friend struct api::HandleAccess;
    MObject m_node;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
