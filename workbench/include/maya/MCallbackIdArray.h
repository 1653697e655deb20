#pragma once

#include <maya/MArrayOf.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MCallbackIdArray : public MArrayOf<MCallbackIdArray, MCallbackId, MCallbackId> {
public:
    MCallbackIdArray() = default;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
