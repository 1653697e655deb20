#pragma once

#include <maya/MArrayOf.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MUintArray : public MArrayOf<MUintArray, unsigned int, unsigned int> {
public:
    MUintArray() = default;
    MUintArray(unsigned int initialSize, unsigned int initialValue) : MArrayOf(initialSize, initialValue) {}
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
