#pragma once

#include <maya/MDGModifier.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Adds what needs a parent.
class MDagModifier : public MDGModifier {
public:
    MDagModifier();
    ~MDagModifier() override;

    /// A shape without a parent gets a transform above it, and that transform is what is returned.
    MObject createNode(const MTypeId& typeId, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = nullptr);
    MObject createNode(const MString& typeName, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = nullptr);
    MStatus reparentNode(const MObject& node, const MObject& newParent = MObject::kNullObj);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
