#pragma once

#include <maya/MArrayOf.h>
#include <maya/MPlug.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MPlugArray : public MArrayOf<MPlugArray, MPlug, const MPlug&> {
public:
    MPlugArray() = default;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
