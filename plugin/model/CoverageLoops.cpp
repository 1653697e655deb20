#include "model/CoverageLoops.h"

#include "model/CoverageLoopBodies.h"
#include "model/CpuFeatures.h"

namespace {

const CoverageLoops kPortable = {fillMask<uint8_t>, fillMask<uint16_t>, stamp,     stampWeighted,
                                 stampPair,         raiseAlpha,         clearAlpha};

}  // namespace

#ifdef LUMISKETCH_AVX2

extern const CoverageLoops kCoverageLoopsAvx2;

const CoverageLoops& coverageLoops()
{
    return usesAvx2() ? kCoverageLoopsAvx2 : kPortable;
}

#else

const CoverageLoops& coverageLoops()
{
    return kPortable;
}

#endif
