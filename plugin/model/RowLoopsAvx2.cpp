#ifdef LUMISKETCH_AVX2

#include "model/RowLoopBodies.h"

const RowLoops* avx2RowLoops()
{
    return &kLoops;
}

#else

#include "model/RowLoops.h"

const RowLoops* avx2RowLoops()
{
    return nullptr;
}

#endif
