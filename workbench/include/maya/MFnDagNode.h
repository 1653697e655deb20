#pragma once

#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MMatrix.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A node of the DAG.
class MFnDagNode : public MFnDependencyNode {
public:
    enum { kNextPos = 0xff };

    MFnDagNode();
    MFnDagNode(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnDagNode(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFnDagNode(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;
    MStatus setObject(MObject& object) override;
    MStatus setObject(const MObject& object) override;
    MStatus setObject(const MDagPath& path);

    /// A shape without a parent gets a transform above it, and that transform is what is returned.
    MObject create(const MTypeId& typeId, MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = nullptr);
    MObject create(const MTypeId& typeId, const MString& name, MObject& parent = MObject::kNullObj,
                   MStatus* ReturnStatus = nullptr);
    MObject create(const MString& typeName, MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = nullptr);
    MObject create(const MString& typeName, const MString& name, MObject& parent = MObject::kNullObj,
                   MStatus* ReturnStatus = nullptr);

    /// A node right below the world has one parent, the world.
    unsigned int parentCount(MStatus* ReturnStatus = nullptr);
    MObject parent(unsigned int index, MStatus* ReturnStatus = nullptr);
    unsigned int childCount(MStatus* ReturnStatus = nullptr);
    MObject child(unsigned int index, MStatus* ReturnStatus = nullptr);
    MStatus addChild(MObject& child, unsigned int index = kNextPos, bool keepExistingParents = false);
    MStatus getPath(MDagPath& path);
    MDagPath dagPath(MStatus* ReturnStatus = nullptr);  ///< fails unless attached by a path
    MString fullPathName(MStatus* ReturnStatus = nullptr);
    MString partialPathName(MStatus* ReturnStatus = nullptr);
    MBoundingBox boundingBox(MStatus* ReturnStatus = nullptr) const;  ///< object space
    MMatrix transformationMatrix(MStatus* ReturnStatus = nullptr);
    bool isIntermediateObject(MStatus* ReturnStatus = nullptr);
    bool inModel(MStatus* ReturnStatus = nullptr);
    bool isInstanced(bool indirect = true, MStatus* ReturnStatus = nullptr);
    unsigned int instanceCount(bool total, MStatus* ReturnStatus = nullptr);

protected:
    MDagPath m_path;  ///< invalid unless attached by a path
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
