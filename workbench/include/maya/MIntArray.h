#pragma once

#include <maya/MArrayOf.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MIntArray : public MArrayOf<MIntArray, int, int> {
public:
    MIntArray() = default;
    MIntArray(unsigned int initialSize, int initialValue) : MArrayOf(initialSize, initialValue) {}
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
