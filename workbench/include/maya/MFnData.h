#pragma once

#include <maya/MFnBase.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Base of the sets over data objects.
class MFnData : public MFnBase {
public:
    enum Type {
        kInvalid = 0,
        kNumeric = 1,
        kPlugin = 2,
        kPluginGeometry = 3,
        kString = 4,
        kMatrix = 5,
        kStringArray = 6,
        kDoubleArray = 7,
        kFloatArray = 8,
        kIntArray = 9,
        kPointArray = 10,
        kVectorArray = 11,
        kMatrixArray = 12,
        kAny = 24,
        kLast = 25,
    };

    MFnData();
    MFnData(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnData(const MObject& object, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
