#pragma once

#include <maya/MArrayOf.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MStringArray : public MArrayOf<MStringArray, MString, const MString&> {
public:
    MStringArray() = default;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
