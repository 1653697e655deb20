#pragma once

#include <maya/MFnAttribute.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A choice by name. Values are 0 and up.
class MFnEnumAttribute : public MFnAttribute {
public:
    MFnEnumAttribute();
    MFnEnumAttribute(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnEnumAttribute(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, short defaultValue = 0,
                   MStatus* ReturnStatus = nullptr);
    MStatus addField(const MString& fieldName, short value);
    MString fieldName(short value, MStatus* ReturnStatus = nullptr) const;
    short fieldIndex(const MString& fieldName, MStatus* ReturnStatus = nullptr) const;
    MStatus getMin(short& value) const;
    MStatus getMax(short& value) const;
    MStatus setDefault(short value);
    MStatus getDefault(short& value) const;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
