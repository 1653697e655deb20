#pragma once

#include <maya/MArrayOf.h>
#include <maya/MPoint.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MPointArray : public MArrayOf<MPointArray, MPoint, const MPoint&> {
public:
    MPointArray() = default;
    MPointArray(unsigned int initialSize, const MPoint& initialValue) : MArrayOf(initialSize, initialValue) {}

    using MArrayOf::append;
    MStatus append(double x, double y, double z = 0.0, double w = 1.0) { return append(MPoint(x, y, z, w)); }
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
