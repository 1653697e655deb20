#pragma once

#include <maya/MObject.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

#include <memory>

namespace kernel {
struct NodeType;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A list of changes of the graph, queued first and made by doIt. undoIt takes them back and a further doIt makes them
/// again on the very same nodes. When one is refused, those doIt made before it are taken back.
class MDGModifier {
public:
    MDGModifier();
    virtual ~MDGModifier();
    MDGModifier(const MDGModifier&) = delete;
    MDGModifier& operator=(const MDGModifier&) = delete;

    /// The node exists at once and enters the scene with doIt.
    MObject createNode(const MTypeId& typeId, MStatus* ReturnStatus = nullptr);
    MObject createNode(const MString& typeName, MStatus* ReturnStatus = nullptr);
    MStatus deleteNode(const MObject& node);
    MStatus renameNode(const MObject& node, const MString& newName);  ///< a taken name gets a number
    MStatus newPlugValue(const MPlug& plug, MObject& value);
    MStatus newPlugValueBool(const MPlug& plug, bool value);
    MStatus newPlugValueInt(const MPlug& plug, int value);
    MStatus newPlugValueShort(const MPlug& plug, short value);
    MStatus newPlugValueFloat(const MPlug& plug, float value);
    MStatus newPlugValueDouble(const MPlug& plug, double value);
    MStatus newPlugValueString(const MPlug& plug, const MString& value);

    // What this host does not have: connections, attributes of a single node, locked nodes, commands that undo on
    // their own. They give kNotImplemented.
    MStatus commandToExecute(const MString& melCommand);
    MStatus setNodeLockState(const MObject& node, bool locked);
    MStatus connect(const MPlug& source, const MPlug& destination);
    MStatus disconnect(const MPlug& source, const MPlug& destination);
    MStatus addAttribute(const MObject& node, const MObject& attribute);
    MStatus removeAttribute(const MObject& node, const MObject& attribute);

    MStatus doIt();
    MStatus undoIt();

protected:
    MObject queueNode(const kernel::NodeType& type, const MObject& parent);
    MStatus queueParent(const MObject& node, const MObject& newParent);

    struct Steps;
    std::unique_ptr<Steps> m_steps;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
