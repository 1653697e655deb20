#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

#include <memory>

namespace api {
struct Access;
struct ResultValue;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// What an executed text gave, with its type. getResult of another type fails and leaves the output.
class MCommandResult {
public:
    enum Type {
        kInvalid = 0,
        kInt = 1,
        kInt64 = 2,
        kIntArray = 3,
        kInt64Array = 4,
        kDouble = 5,
        kDoubleArray = 6,
        kString = 7,
        kStringArray = 8,
        kVector = 9,
        kVectorArray = 10,
        kMatrix = 11,
        kMatrixArray = 12
    };

    MCommandResult(MStatus* ReturnStatus = NULL);
    MCommandResult(const MCommandResult&) = delete;
    MCommandResult& operator=(const MCommandResult&) = delete;
    ~MCommandResult();

    Type resultType(MStatus* ReturnStatus = NULL);
    MStatus getResult(int& result);
    MStatus getResult(MInt64& result);
    MStatus getResult(MIntArray& result);
    MStatus getResult(double& result);
    MStatus getResult(MDoubleArray& result);
    MStatus getResult(MString& result);
    MStatus getResult(MStringArray& result);
    MStatus getResult(MVector& result);
    MString stringResult(MStatus* ReturnStatus = NULL);

private:
    friend struct api::Access;
    std::unique_ptr<api::ResultValue> m_value;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
