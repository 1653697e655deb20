#pragma once

#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MSpace {
public:
    enum Space { kInvalid, kTransform, kPreTransform, kPostTransform, kWorld, kLast, kObject = kPreTransform };
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
