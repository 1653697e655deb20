#pragma once

#include <maya/MArrayOf.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MFloatArray : public MArrayOf<MFloatArray, float, float> {
public:
    MFloatArray() = default;
    MFloatArray(unsigned int initialSize, float initialValue) : MArrayOf(initialSize, initialValue) {}
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
