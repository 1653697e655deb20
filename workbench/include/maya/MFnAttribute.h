#pragma once

#include <maya/MFnBase.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An attribute of a node type. Fresh ones are readable, writable, connectable, storable and cached, no more.
class MFnAttribute : public MFnBase {
public:
    enum DisconnectBehavior { kDelete, kReset, kNothing };

    MFnAttribute();
    MFnAttribute(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnAttribute(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    MString name(MStatus* ReturnStatus = nullptr) const;
    MString shortName(MStatus* ReturnStatus = nullptr) const;
    bool isReadable(MStatus* ReturnStatus = nullptr) const;
    bool isWritable(MStatus* ReturnStatus = nullptr) const;
    bool isConnectable(MStatus* ReturnStatus = nullptr) const;
    bool isStorable(MStatus* ReturnStatus = nullptr) const;
    bool isCached(MStatus* ReturnStatus = nullptr) const;
    bool isArray(MStatus* ReturnStatus = nullptr) const;
    bool isHidden(MStatus* ReturnStatus = nullptr) const;
    bool isKeyable(MStatus* ReturnStatus = nullptr) const;
    bool isInternal(MStatus* ReturnStatus = nullptr) const;
    bool isUsedAsColor(MStatus* ReturnStatus = nullptr) const;
    bool isChannelBoxFlagSet(MStatus* ReturnStatus = nullptr) const;
    bool indexMatters(MStatus* ReturnStatus = nullptr) const;
    bool affectsAppearance(MStatus* ReturnStatus = nullptr) const;
    DisconnectBehavior disconnectBehavior(MStatus* ReturnStatus = nullptr) const;
    MString niceNameOverride(MStatus* ReturnStatus = nullptr) const;

    MStatus setReadable(bool readable);
    MStatus setWritable(bool writable);
    MStatus setConnectable(bool connectable);
    MStatus setStorable(bool storable);
    MStatus setCached(bool cached);
    MStatus setArray(bool array);
    MStatus setHidden(bool hidden);
    MStatus setKeyable(bool keyable);
    MStatus setChannelBox(bool channelBox);
    MStatus setInternal(bool internal);
    MStatus setUsedAsColor(bool usedAsColor);
    MStatus setIndexMatters(bool indexMatters);
    MStatus setAffectsAppearance(bool affectsAppearance);
    MStatus setDisconnectBehavior(DisconnectBehavior behaviour);
    MStatus setNiceNameOverride(const MString& name);

protected:
    /// Attaches the set to a new attribute, or reports failure and leaves the set as it was.
    MObject adopt(const MObject& attribute, MStatus* status);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
