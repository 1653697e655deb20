#pragma once

#include <maya/MArrayOf.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MDoubleArray : public MArrayOf<MDoubleArray, double, double> {
public:
    MDoubleArray() = default;
    MDoubleArray(unsigned int initialSize, double initialValue) : MArrayOf(initialSize, initialValue) {}
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
