#include "model/DabMask.h"

#include "settings/Rounding.h"

#include <algorithm>
#include <cmath>

constexpr float DabMask::kLargestRadius;

namespace {

constexpr int kQuarterSide = static_cast<int>(DabMask::kLargestRadius) + 1;

// A quarter of a disc about (0, 0): how strongly each pixel is covered, 0..1.
class QuarterDisc {
public:
    // Row by row up to the octant boundary; each row is mirrored into the other octant. The antialiased rim is that of
    // Xiaolin Wu's circle ("An Efficient Antialiasing Technique", 1991): of the pixels beside the exact boundary x the
    // outer one is covered by the fraction of x. The inner one, covered by the rest, lies in the filled interior, which
    // is never weaker.
    QuarterDisc(float inner, float radius, DabMask::Mode mode)
    {
        const int lastY = roundedHalfAwayFromZero(radius / std::sqrt(2.0f));
        for (int y = 0; y <= lastY; ++y) {
            const float x = radius * std::sqrt(std::max(1.0f - static_cast<float>(y * y) / (radius * radius), 0.0f));
            const int lastX = static_cast<int>(x);
            fillRow(lastX, y, inner, radius, mode);
            if (mode == DabMask::Mode::Hard) {
                raise(lastX + 1, y, x - static_cast<float>(lastX));
            }
        }
    }

    int reach() const { return m_reach; }  ///< no pixel farther than this in x or y is covered
    float at(int x, int y) const { return m_coverage[y][x]; }

private:
    void fillRow(int lastX, int y, float inner, float radius, DabMask::Mode mode)
    {
        for (int x = 0; x <= lastX; ++x) {
            float coverage = 1.0f;
            if (mode == DabMask::Mode::Soft) {
                const float distance = std::sqrt(static_cast<float>(x * x + y * y));
                coverage = 1.0f - std::min(std::max((distance - inner) / (radius - inner), 0.0f), 1.0f);
            }
            raise(x, y, coverage);
        }
    }

    void raise(int x, int y, float coverage)
    {
        if (coverage > 0.0f) {  // the largest disc's rim would lie outside, and is not covered there
            m_coverage[y][x] = std::max(m_coverage[y][x], coverage);
            m_coverage[x][y] = std::max(m_coverage[x][y], coverage);
            m_reach = std::max(m_reach, std::max(x, y));
        }
    }

    int m_reach = 0;
    float m_coverage[kQuarterSide][kQuarterSide] = {};
};

}  // namespace

DabMask::DabMask()
{
    layOut(QRect());
}

void DabMask::setShape(float inner, float radius, Mode mode)
{
    radius = radius > 0.0f ? std::min(radius, kLargestRadius) : 0.0f;
    if (inner != m_inner || radius != m_radius || mode != m_mode) {
        m_inner = inner;
        m_radius = radius;
        m_mode = mode;
        build();
    }
}

void DabMask::build()
{
    if (m_radius == 0.0f) {
        layOut(QRect());
    } else if (m_radius == 1.0f) {
        layOut(QRect(-1, -1, 2, 2));
        std::fill_n(m_shape.begin(), 2, 1.0f);
    } else {
        const QuarterDisc disc(m_inner, m_radius, m_mode);
        const int reach = disc.reach();
        layOut(QRect(QPoint(-reach, -reach), QPoint(reach, reach)));
        auto row = m_shape.begin();
        for (int y = reach; y >= 0; --y, row += m_columns) {
            for (int x = -reach; x <= reach; ++x) {
                row[x + reach] = disc.at(std::abs(x), y);
            }
        }
    }
    findSpans();
}

// A row is symmetric, and wider the nearer it is to the middle.
void DabMask::findSpans()
{
    const int width = m_box.width();
    const int height = m_box.height();
    for (int row = 0; row < height; ++row) {
        const auto values = m_shape.begin() + m_starts[row + 1] - m_columns;
        const auto isSet = [](float value) { return value > 0.0f; };
        const int empty = static_cast<int>(std::find_if(values, values + width, isSet) - values);
        const int length = ((width - 2 * empty) / kMaskBlock + 1) * kMaskBlock;
        const int first = std::min(empty, m_columns - length);
        m_spans[row] = {first, first + length};
    }
    for (int row = 0; row <= height && height > 0; ++row) {
        m_pairSpans[row] = m_spans[row <= height / 2 ? std::min(row, height - 1) : row - 1];
    }
}

void DabMask::layOut(const QRect& box)
{
    m_box = box;
    m_columns = (box.width() / kMaskBlock + 1) * kMaskBlock;
    m_starts[0] = 0;
    for (int row = 0; row < box.height(); ++row) {
        m_starts[row + 1] = (std::min(row, box.height() - 1 - row) + 1) * m_columns;
    }
    m_starts[box.height() + 1] = 0;
    const int rows = (box.height() + 1) / 2;
    m_shape.assign(rows * m_columns, 0.0f);
    m_byteValues.assign((rows + 1) * m_columns, 0);
    m_wordValues.assign((rows + 1) * m_columns, 0);
    m_bytes = {m_byteValues.data(), m_starts + 1, m_spans, m_pairSpans, box.height(), m_columns};
    m_words = {m_wordValues.data(), m_starts + 1, m_spans, m_pairSpans, box.height(), m_columns};
    m_bytesOpacity = m_wordsOpacity = -1.0f;
}

MaskShape DabMask::shape() const
{
    return {m_shape.data(), (m_box.height() + 1) / 2, m_columns, m_box.width()};
}

void DabMask::fillBytes()
{
    const MaskShape from = shape();
    coverageLoops().fillBytes(m_byteValues.data() + m_columns, &from, m_opacity);
    m_bytesOpacity = m_opacity;
}

void DabMask::fillWords()
{
    const MaskShape from = shape();
    coverageLoops().fillWords(m_wordValues.data() + m_columns, &from, m_opacity);
    m_wordsOpacity = m_opacity;
}

uchar DabMask::at(int dx, int dy)
{
    const QPoint place = QPoint(dx, dy) - m_box.topLeft();
    return m_box.contains(dx, dy) ? bytes().values[m_bytes.starts[place.y()] + place.x()] : 0;
}
