#pragma once

#include <maya/MFnData.h>
#include <maya/MTypeId.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A value of a module's data type.
class MFnPluginData : public MFnData {
public:
    MFnPluginData();
    MFnPluginData(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnPluginData(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    /// A fresh value made by the type's creator; a null object for an unknown type.
    MObject create(const MTypeId& id, MStatus* ReturnStatus = nullptr);
    MTypeId typeId(MStatus* ReturnStatus = nullptr) const;
    /// The pointer belongs to the data object: keep that while using it.
    MPxData* data(MStatus* ReturnStatus = nullptr);
    const MPxData* constData(MStatus* ReturnStatus = nullptr) const;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
