#include "model/WeightFactors.h"

const WeightFactors& WeightFactors::instance()
{
    static const WeightFactors s_instance;
    return s_instance;
}

// int(byte * weight) changes only where the weight passes a fraction p / q with q up to 255. Any two of those are at
// least 1 / (255 * 254) apart, which is more than 1 / 65536: at most one lies above a multiple of 1 / 65536 and not
// above the next. So weights in between have the products of the one multiple below that fraction, and those of the
// next from there on. Keeps for each multiple the largest rest of a weight, in 1 / 2^32, that is still below.
WeightFactors::WeightFactors() : m_rests(1 << 16, 0xffff)
{
    for (quint64 q = 1; q <= 255; ++q) {
        for (quint64 p = 1; p <= q; ++p) {
            const quint64 lastBelow = (p * kOne + q - 1) / q - 1;
            m_rests[lastBelow >> 16] = static_cast<quint16>(lastBelow & 0xffff);
        }
    }
}
