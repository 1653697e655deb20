#pragma once

#include <maya/MFnBase.h>
#include <maya/MPlug.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>
#include <maya/MUuid.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Any node of the scene. What it creates enters the scene at once and is not undoable.
class MFnDependencyNode : public MFnBase {
public:
    MFnDependencyNode();
    MFnDependencyNode(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnDependencyNode(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    MObject create(const MTypeId& typeId, MStatus* ReturnStatus = nullptr);
    MObject create(const MTypeId& typeId, const MString& name, MStatus* ReturnStatus = nullptr);
    MObject create(const MString& typeName, MStatus* ReturnStatus = nullptr);
    MObject create(const MString& typeName, const MString& name, MStatus* ReturnStatus = nullptr);

    /// A null plug and kInvalidParameter for an unknown attribute. Names may be long or short.
    MPlug findPlug(const MString& attributeName, bool wantNetworkedPlug, MStatus* ReturnStatus = nullptr) const;
    MPlug findPlug(const MObject& attribute, bool wantNetworkedPlug, MStatus* ReturnStatus = nullptr) const;
    OPENMAYA_DEPRECATED(2018, "Use the form that says whether a networked plug is wanted.")
    MPlug findPlug(const MString& attributeName, MStatus* ReturnStatus = nullptr) const;
    OPENMAYA_DEPRECATED(2018, "Use the form that says whether a networked plug is wanted.")
    MPlug findPlug(const MObject& attribute, MStatus* ReturnStatus = nullptr) const;

    /// The module's own object behind a node of a module's type, null for others. It belongs to the node.
    MPxNode* userNode(MStatus* ReturnStatus = nullptr) const;
    MString name(MStatus* ReturnStatus = nullptr) const;  ///< without path
    MString absoluteName(MStatus* ReturnStatus = nullptr) const;
    MString uniqueName(MStatus* ReturnStatus = nullptr) const;
    /// Gives the name really given: a taken one gets a number.
    MString setName(const MString& name, bool createNamespace = false, MStatus* ReturnStatus = nullptr);
    MTypeId typeId(MStatus* ReturnStatus = nullptr) const;
    MString typeName(MStatus* ReturnStatus = nullptr) const;
    bool hasAttribute(const MString& name, MStatus* ReturnStatus = nullptr) const;
    MObject attribute(const MString& name, MStatus* ReturnStatus = nullptr) const;
    MObject attribute(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    unsigned int attributeCount(MStatus* ReturnStatus = nullptr) const;
    /// Attributes belong to node types here: both give kNotImplemented.
    MStatus addAttribute(const MObject& attribute);
    MStatus removeAttribute(const MObject& attribute);
    bool isLocked(MStatus* ReturnStatus = nullptr) const;  ///< nodes as a whole cannot be locked here: always false
    MStatus setLocked(bool locked);
    bool isFromReferencedFile(MStatus* ReturnStatus = nullptr) const;
    bool isShared(MStatus* ReturnStatus = nullptr) const;
    bool isDefaultNode(MStatus* ReturnStatus = nullptr) const;
    bool hasUniqueName(MStatus* ReturnStatus = nullptr) const;
    MUuid uuid(MStatus* ReturnStatus = nullptr) const;
    static MString classification(const MString& nodeTypeName);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
