#pragma once

#include <QtGlobal>

#include <vector>

/// Whole numbers that weight a byte exactly as a fraction does: (byte * factor) >> 16 is int(byte * weight) for every
/// byte.
class WeightFactors {
public:
    static const WeightFactors& instance();

    /// weight: 0..1, but 1 itself has none.
    quint16 of(float weight) const
    {
        const auto fixed = static_cast<quint32>(static_cast<double>(weight) * static_cast<double>(kOne));
        const quint32 multiple = fixed >> 16;
        return static_cast<quint16>(multiple + ((fixed & 0xffff) > m_rests[multiple] ? 1 : 0));
    }

private:
    static constexpr quint64 kOne = quint64(1) << 32;

    WeightFactors();

    std::vector<quint16> m_rests;
};
