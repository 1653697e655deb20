#include <maya/MPxData.h>

#include <maya/MArgList.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MPxData::MPxData() = default;
MPxData::~MPxData() = default;

MStatus MPxData::readASCII(const MArgList&, unsigned int&)
{
    return MStatus::kNotImplemented;
}

MStatus MPxData::readBinary(std::istream&, unsigned int)
{
    return MStatus::kNotImplemented;
}

MStatus MPxData::writeASCII(std::ostream&)
{
    return MStatus::kNotImplemented;
}

MStatus MPxData::writeBinary(std::ostream&)
{
    return MStatus::kNotImplemented;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
