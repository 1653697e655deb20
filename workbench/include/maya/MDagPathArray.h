#pragma once

#include <maya/MArrayOf.h>
#include <maya/MDagPath.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MDagPathArray : public MArrayOf<MDagPathArray, MDagPath, const MDagPath&> {
public:
    MDagPathArray() = default;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
