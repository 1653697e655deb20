#pragma once

#include <maya/MFnAttribute.h>
#include <maya/MFnData.h>
#include <maya/MTypeId.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Attributes of texts and of modules' data types. There are no default values other than none: a plug has no data
/// until some is set.
class MFnTypedAttribute : public MFnAttribute {
public:
    MFnTypedAttribute();
    MFnTypedAttribute(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnTypedAttribute(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    /// Fails for a data type that is not registered, and for default data.
    MObject create(const MString& fullName, const MString& briefName, const MTypeId& id,
                   MObject defaultData = MObject::kNullObj, MStatus* ReturnStatus = nullptr);
    /// kString is the one built-in type held here; others fail.
    MObject create(const MString& fullName, const MString& briefName, MFnData::Type type,
                   MObject defaultData = MObject::kNullObj, MStatus* ReturnStatus = nullptr);
    MFnData::Type attrType(MStatus* ReturnStatus = nullptr) const;
    MStatus setDefault(const MObject& data);
    MStatus getDefault(MObject& data) const;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
