#include "model/WeightFactors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

// The first byte of which the factor gives another product than the weight does; 256 when there is none.
int firstWrongByte(float weight)
{
    const unsigned factor = WeightFactors::instance().of(weight);
    unsigned byte = 0;
    while (byte < 256 && (byte * factor) >> 16 == static_cast<unsigned>(double(byte) * double(weight))) {
        ++byte;
    }
    return static_cast<int>(byte);
}

// Products jump at fractions, so the weights next to one are the hardest.
TEST(WeightFactors, AreExactAtEveryFractionAndRightBesideIt)
{
    for (int q = 1; q <= 400; ++q) {
        for (int p = 0; p <= q; ++p) {
            const float fraction = static_cast<float>(p) / static_cast<float>(q);
            for (const float weight : {std::nextafter(fraction, 0.0f), fraction, std::nextafter(fraction, 1.0f)}) {
                if (weight < 1.0f) {
                    ASSERT_EQ(firstWrongByte(weight), 256) << p << " / " << q << ": " << weight;
                }
            }
        }
    }
}

TEST(WeightFactors, AreExactForAnyWeight)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300000; ++i) {
        const float weight = std::ldexp(static_cast<float>(random() >> 8), -24 - i % 12);
        ASSERT_EQ(firstWrongByte(weight), 256) << weight;
    }
}

}  // namespace
