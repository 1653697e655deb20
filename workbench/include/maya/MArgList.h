#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>
#include <maya/MVector.h>

#include <memory>

namespace api {
struct Access;
class ArgumentValues;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The arguments of one invocation, in order. A value that has no reading of the asked kind, and an index out of
/// range, give 0, false or nothing and a failing status.
class MArgList {
public:
    enum { kInvalidArgIndex = 0xffffffff };

    MArgList();
    MArgList(const MArgList& other);
    MArgList& operator=(const MArgList& other);
    ~MArgList();

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    bool asBool(unsigned int index, MStatus* ReturnStatus = NULL) const;
    int asInt(unsigned int index, MStatus* ReturnStatus = NULL) const;
    double asDouble(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MString asString(unsigned int index, MStatus* ReturnStatus = NULL) const;
    /// A bare number is in the current time unit; "12film" and "2sec" carry their own.
    MTime asTime(unsigned int index, MStatus* ReturnStatus = NULL) const;

    // These take several arguments (or one array) and leave index one past the last one taken.
    MVector asVector(unsigned int& index, unsigned int numElements = 3, MStatus* ReturnStatus = NULL) const;
    MPoint asPoint(unsigned int& index, unsigned int numElements = 3, MStatus* ReturnStatus = NULL) const;
    MIntArray asIntArray(unsigned int& index, MStatus* ReturnStatus = NULL) const;
    MDoubleArray asDoubleArray(unsigned int& index, MStatus* ReturnStatus = NULL) const;
    MStringArray asStringArray(unsigned int& index, MStatus* ReturnStatus = NULL) const;

    MStatus addArg(bool arg);
    MStatus addArg(int arg);
    MStatus addArg(double arg);
    MStatus addArg(const MString& arg);
    MStatus addArg(const MTime& arg);

    /// Index of the first use of a flag under either name, with or without the dash; kInvalidArgIndex when absent.
    unsigned int flagIndex(const char* shortFlag, const char* longFlag = NULL) const;

private:
    friend struct api::Access;
    std::unique_ptr<api::ArgumentValues> m_values;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
