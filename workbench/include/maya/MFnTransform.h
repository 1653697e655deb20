#pragma once

#include <maya/MFnDagNode.h>
#include <maya/MSpace.h>
#include <maya/MVector.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A transform. Its parts are read and set in centimetres.
class MFnTransform : public MFnDagNode {
public:
    MFnTransform();
    MFnTransform(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnTransform(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFnTransform(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    MObject create(MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = nullptr);
    /// kWorld needs a set attached by a path for reading, and is refused for writing.
    MVector getTranslation(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
    MStatus setTranslation(const MVector& translation, MSpace::Space space);
    MStatus getScale(double scale[3]) const;
    MStatus setScale(const double scale[3]);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
