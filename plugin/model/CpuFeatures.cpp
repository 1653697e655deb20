#include "model/CpuFeatures.h"

namespace {

bool s_allowed = true;

bool hasAvx2()
{
#ifdef LUMISKETCH_AVX2
    return __builtin_cpu_supports("avx2");
#else
    return false;
#endif
}

}  // namespace

bool usesAvx2()
{
    static const bool kHas = hasAvx2();
    return kHas && s_allowed;
}

void allowAvx2(bool allowed)
{
    s_allowed = allowed;
}
