#pragma once

#include <maya/MObject.h>
#include <maya/MString.h>
#include <maya/MTime.h>

namespace api {
struct HandleAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An attribute on a node. The setters write at once, past the undo queue.
class MPlug {
public:
    MPlug();
    MPlug(const MObject& node, const MObject& attribute);

    bool isNull(MStatus* ReturnStatus = nullptr);
    MObject node(MStatus* ReturnStatus = nullptr);
    MObject attribute(MStatus* ReturnStatus = nullptr);
    MString name(MStatus* ReturnStatus = nullptr);  ///< node.attribute
    MString partialName(bool includeNodeName = false, bool includeNonMandatoryIndices = false,
                        bool includeInstancedIndices = false, bool useAlias = false, bool useFullAttributePath = false,
                        bool useLongNames = false, MStatus* ReturnStatus = nullptr);

    // Angles are radians, distances centimetres.
    bool asBool(MStatus* ReturnStatus = nullptr);
    char asChar(MStatus* ReturnStatus = nullptr);
    short asShort(MStatus* ReturnStatus = nullptr);
    int asInt(MStatus* ReturnStatus = nullptr);
    MInt64 asInt64(MStatus* ReturnStatus = nullptr);
    float asFloat(MStatus* ReturnStatus = nullptr);
    double asDouble(MStatus* ReturnStatus = nullptr);
    MString asString(MStatus* ReturnStatus = nullptr);
    MTime asMTime(MStatus* ReturnStatus = nullptr);
    /// A handle to the value of a custom type, null (and a failure) while the plug has none.
    MObject asMObject(MStatus* ReturnStatus = nullptr);
    MStatus getValue(bool& value);
    MStatus getValue(int& value);
    MStatus getValue(short& value);
    MStatus getValue(float& value);
    MStatus getValue(double& value);
    MStatus getValue(MString& value);
    MStatus getValue(MTime& value);
    MStatus getValue(MObject& value);

    // Refused on a locked plug (its own lock or its compound's) and outside the attribute's range.
    MStatus setBool(bool value);
    MStatus setChar(char value);
    MStatus setShort(short value);
    MStatus setInt(int value);
    MStatus setInt64(MInt64 value);
    MStatus setFloat(float value);
    MStatus setDouble(double value);
    MStatus setString(const MString& value);
    MStatus setMTime(const MTime& value);
    MStatus setMAngle(const MAngle& value);
    MStatus setMDistance(const MDistance& value);
    MStatus setMObject(const MObject& value);
    /// The host adopts the object, which must come from new (or belong to a data object, which is then shared):
    /// hand it over and forget the pointer. Refused, with the object still the caller's, for another data type.
    MStatus setMPxData(const MPxData* value);

    // Flags of this plug alone; they are saved with the scene. The channel-box flag has no
    // effect while the plug is keyable.
    bool isKeyable(MStatus* ReturnStatus = nullptr);
    MStatus setKeyable(bool keyable);
    bool isLocked(MStatus* ReturnStatus = nullptr);
    MStatus setLocked(bool locked);
    bool isChannelBoxFlagSet(MStatus* ReturnStatus = nullptr);
    MStatus setChannelBox(bool inChannelBox);

    // Attributes are connected with the curves that animate them only. There are no array attributes here.
    bool isConnected(MStatus* ReturnStatus = nullptr);
    bool isDestination(MStatus* ReturnStatus = nullptr);
    bool isSource(MStatus* ReturnStatus = nullptr);
    bool isArray(MStatus* ReturnStatus = nullptr);
    bool isCompound(MStatus* ReturnStatus = nullptr);
    bool isElement(MStatus* ReturnStatus = nullptr);
    bool isChild(MStatus* ReturnStatus = nullptr);
    bool isDynamic(MStatus* ReturnStatus = nullptr);
    bool isNetworked(MStatus* ReturnStatus = nullptr);
    MPlug child(unsigned int index, MStatus* ReturnStatus = nullptr);
    MPlug parent(MStatus* ReturnStatus = nullptr);
    MPlug array(MStatus* ReturnStatus = nullptr);
    MPlug elementByLogicalIndex(unsigned int index, MStatus* ReturnStatus = nullptr);
    unsigned int numChildren(MStatus* ReturnStatus = nullptr);
    unsigned int numElements(MStatus* ReturnStatus = nullptr);

    bool operator==(const MPlug& other);
    bool operator!=(const MPlug& other);
    bool operator==(const MObject& attribute);

private:
    friend struct api::HandleAccess;
    MObject m_node;
    MObject m_attribute;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
