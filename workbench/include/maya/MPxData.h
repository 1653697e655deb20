#pragma once

#include <maya/MString.h>
#include <maya/MTypeId.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A value of a type of a module's own. Objects belong to the host; it copies values with the type's creator and
/// copy().
class MPxData {
public:
    enum Type { kData, kGeometryData, kLast };

    MPxData();
    virtual ~MPxData();

    /// The list is the whole statement; the index is the first token of the data on entry and one past the last used
    /// one on return.
    virtual MStatus readASCII(const MArgList& argList, unsigned int& endOfTheLastParsedElement);
    virtual MStatus readBinary(std::istream& in, unsigned int length);
    /// Writes tokens that the script language reads: numbers, bare words, quoted strings.
    virtual MStatus writeASCII(std::ostream& out);
    virtual MStatus writeBinary(std::ostream& out);
    virtual void copy(const MPxData& src) = 0;
    virtual MTypeId typeId() const = 0;
    virtual MString name() const = 0;

private:
    MPxData(const MPxData&) = delete;
    MPxData& operator=(const MPxData&) = delete;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
