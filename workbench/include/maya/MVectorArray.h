#pragma once

#include <maya/MArrayOf.h>
#include <maya/MVector.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MVectorArray : public MArrayOf<MVectorArray, MVector, const MVector&> {
public:
    MVectorArray() = default;
    MVectorArray(unsigned int initialSize, const MVector& initialValue) : MArrayOf(initialSize, initialValue) {}
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
