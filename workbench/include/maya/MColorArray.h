#pragma once

#include <maya/MArrayOf.h>
#include <maya/MColor.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MColorArray : public MArrayOf<MColorArray, MColor, const MColor&> {
public:
    MColorArray() = default;
    MColorArray(unsigned int initialSize, const MColor& initialValue) : MArrayOf(initialSize, initialValue) {}
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
