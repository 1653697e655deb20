#pragma once

#include <maya/MFnAttribute.h>
#include <maya/MFnNumericData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Number attributes. Each create attaches the set to the new one: set its flags before the next.
class MFnNumericAttribute : public MFnAttribute {
public:
    MFnNumericAttribute();
    MFnNumericAttribute(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnNumericAttribute(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, MFnNumericData::Type type,
                   double defaultValue = 0, MStatus* ReturnStatus = nullptr);
    MObject createColor(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = nullptr);
    MObject createPoint(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = nullptr);
    /// Child of a compound made by createColor, createPoint or a type of several numbers.
    MObject child(unsigned int index, MStatus* ReturnStatus = nullptr) const;

    bool hasMin(MStatus* ReturnStatus = nullptr) const;
    bool hasMax(MStatus* ReturnStatus = nullptr) const;
    bool hasSoftMin(MStatus* ReturnStatus = nullptr) const;
    bool hasSoftMax(MStatus* ReturnStatus = nullptr) const;
    MStatus getMin(double& value) const;
    MStatus getMax(double& value) const;
    MStatus getSoftMin(double& value) const;
    MStatus getSoftMax(double& value) const;
    MStatus setMin(double value);
    MStatus setMax(double value);
    MStatus setSoftMin(double value);
    MStatus setSoftMax(double value);

    MStatus setDefault(bool value);
    MStatus setDefault(char value);
    MStatus setDefault(short value);
    MStatus setDefault(int value);
    MStatus setDefault(float value);
    MStatus setDefault(double value);
    MStatus setDefault(float value1, float value2, float value3);
    MStatus setDefault(double value1, double value2, double value3);
    MStatus getDefault(bool& value) const;
    MStatus getDefault(char& value) const;
    MStatus getDefault(short& value) const;
    MStatus getDefault(int& value) const;
    MStatus getDefault(float& value) const;
    MStatus getDefault(double& value) const;
    MStatus getDefault(float& value1, float& value2, float& value3) const;
    MStatus getDefault(double& value1, double& value2, double& value3) const;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
