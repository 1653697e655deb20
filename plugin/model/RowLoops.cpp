#include "model/CpuFeatures.h"
#include "model/RowLoopBodies.h"

const RowLoops& portableRowLoops()
{
    return kLoops;
}

const RowLoops& rowLoops()
{
    return usesAvx2() ? *avx2RowLoops() : kLoops;
}
