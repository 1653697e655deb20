#pragma once

#include <maya/MFnData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MFnNumericData : public MFnData {
public:
    enum Type {
        kInvalid = 0,
        kBoolean = 1,
        kByte = 2,
        kChar = 3,
        kShort = 4,
        k2Short = 5,
        k3Short = 6,
        kLong = 7,
        kInt = kLong,
        k2Int = 8,
        k2Long = k2Int,
        k3Long = 9,
        k3Int = k3Long,
        kInt64 = 10,
        kFloat = 11,
        k2Float = 12,
        k3Float = 13,
        kDouble = 14,
        k2Double = 15,
        k3Double = 16,
        k4Double = 17,
        kAddr = 18,
        kLast = 19,
    };
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
