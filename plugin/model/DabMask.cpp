#include "model/DabMask.h"

#include <algorithm>
#include <cmath>
#include <cstring>

constexpr int DabMask::kSide;
constexpr float DabMask::kLargestRadius;

namespace {

// No number at all counts as nothing.
float heldOpacity(float opacity)
{
    return opacity > 0.0f ? std::min(opacity, 1.0f) : 0.0f;
}

}  // namespace

uchar alphaOf(float opacity)
{
    return static_cast<uchar>(heldOpacity(opacity) * 255.0f);
}

void DabMask::build(float inner, float radius, float opacity, Mode mode)
{
    radius = std::min(radius, kLargestRadius);
    std::memset(m_alpha, 0, sizeof m_alpha);
    m_reach = 0;
    if (!(radius > 0.0f)) {
        m_centre = 0;
        return;
    }
    m_centre = static_cast<int>(radius) + 1;
    m_reach = m_centre;
    if (radius == 1.0f) {
        for (int y = m_centre - 1; y <= m_centre; ++y) {
            std::memset(m_alpha + y * kSide + m_centre - 1, alphaOf(opacity), 2);
        }
        return;
    }
    buildDisc(inner, radius, heldOpacity(opacity), mode);
}

// Row by row up to the octant boundary; each row is mirrored into all eight octants. The antialiased rim is that of
// Xiaolin Wu's circle ("An Efficient Antialiasing Technique", 1991): of the pixels beside the exact boundary x the
// outer one is covered by the fraction of x. The inner one, covered by the rest, lies in the filled interior, which
// is never weaker.
void DabMask::buildDisc(float inner, float radius, float opacity, Mode mode)
{
    const int lastY = static_cast<int>(std::lround(radius / std::sqrt(2.0f)));
    for (int y = 0; y <= lastY; ++y) {
        const float x = radius * std::sqrt(std::max(1.0f - static_cast<float>(y * y) / (radius * radius), 0.0f));
        const int lastX = static_cast<int>(x);
        fillHalfRow(lastX, y, inner, radius, opacity, mode);
        if (mode == Mode::Hard) {
            raise(lastX + 1, y, alphaOf((x - static_cast<float>(lastX)) * opacity));
        }
    }
}

void DabMask::fillHalfRow(int lastX, int y, float inner, float radius, float opacity, Mode mode)
{
    for (int x = 0; x <= lastX; ++x) {
        float weight = 1.0f;
        if (mode == Mode::Soft) {
            const float distance = std::sqrt(static_cast<float>(x * x + y * y));
            weight = 1.0f - std::min(std::max((distance - inner) / (radius - inner), 0.0f), 1.0f);
        }
        raise(x, y, alphaOf(weight * opacity));
    }
}

// Raises the eight mirror images of an offset from the centre.
void DabMask::raise(int dx, int dy, uchar alpha)
{
    if (alpha == 0) {
        return;  // the largest dab's rim would lie outside the table, and is empty there
    }
    const int offsets[][2] = {{dx, dy}, {dy, dx}};
    for (const auto& offset : offsets) {
        for (const int y : {m_centre - offset[1], m_centre + offset[1]}) {
            uchar* row = m_alpha + y * kSide;
            for (const int x : {m_centre - offset[0], m_centre + offset[0]}) {
                row[x] = std::max(row[x], alpha);
            }
        }
    }
}
