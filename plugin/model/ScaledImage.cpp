#include "model/ScaledImage.h"

#include "model/Cutting.h"
#include "model/RowBands.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int kChannels = 4;

/// What the pixels of the result are mixed of along one side: for each a few neighbours in the source.
struct Mix {
    struct Pixel {
        int first;            // in the source's image
        std::size_t weights;  // where its own begin
        std::size_t weightsEnd;
    };
    std::vector<Pixel> pixels;
    std::vector<float> weights;
};

/// One side of a cutting and of what becomes of it.
struct Side {
    int length;  // of the cutting
    int at;      // where its image begins
    int count;   // of the image's pixels
    double scale;
    double move;
};

/// Where an edge between two pixels of the result lies in the source.
double sourceOf(const Side& side, double edge)
{
    return (edge - side.move) / side.scale;
}

class MixMaker {
public:
    explicit MixMaker(const Side& side) : m_side(side) {}

    Mix made(int count)
    {
        for (int i = 0; i < count; ++i) {
            const double one = sourceOf(m_side, i);
            const double other = sourceOf(m_side, i + 1);
            m_mix.pixels.push_back({0, m_mix.weights.size(), m_mix.weights.size()});
            if (std::abs(m_side.scale) >= 1) {
                mixNearest((one + other) / 2);
            } else {
                mixCovered(std::min(one, other), std::max(one, other));
            }
        }
        return std::move(m_mix);
    }

private:
    void mixNearest(double centre)
    {
        const double from = std::min(std::max(centre - 0.5, 0.0), m_side.length - 1.0);
        const int nearest = static_cast<int>(from);
        add(nearest, nearest + 1 - from);
        add(nearest + 1, from - nearest);
    }

    void mixCovered(double from, double end)
    {
        for (int i = static_cast<int>(std::floor(from)); i < end; ++i) {
            add(i, (std::min(i + 1.0, end) - std::max(double(i), from)) / (end - from));
        }
    }

    void add(int source, double weight)
    {
        const int index = source - m_side.at;
        if (weight <= 0 || index < 0 || index >= m_side.count) {
            return;
        }
        Mix::Pixel& pixel = m_mix.pixels.back();
        if (pixel.weights == pixel.weightsEnd) {
            pixel.first = index;
        }
        m_mix.weights.push_back(static_cast<float>(weight));
        ++pixel.weightsEnd;
    }

    const Side m_side;
    Mix m_mix;
};

void mixDown(std::vector<float>& row, const QImage& source, const Mix& mix, int y)
{
    const Mix::Pixel& pixel = mix.pixels[static_cast<std::size_t>(y)];
    std::fill(row.begin(), row.end(), 0.0f);
    int line = pixel.first;
    for (std::size_t i = pixel.weights; i < pixel.weightsEnd; ++i, ++line) {
        const uchar* const bytes = source.constScanLine(line);
        const float weight = mix.weights[i];
        for (std::size_t x = 0; x < row.size(); ++x) {
            row[x] += weight * static_cast<float>(bytes[x]);
        }
    }
}

void mixAcross(uchar* made, const float* row, const Mix& mix)
{
    for (const Mix::Pixel& pixel : mix.pixels) {
        float sum[kChannels] = {0.5f, 0.5f, 0.5f, 0.5f};
        const float* source = row + pixel.first * kChannels;
        for (std::size_t i = pixel.weights; i < pixel.weightsEnd; ++i, source += kChannels) {
            for (int channel = 0; channel < kChannels; ++channel) {
                sum[channel] += mix.weights[i] * source[channel];
            }
        }
        for (const float channel : sum) {
            *made++ = static_cast<uchar>(channel);
        }
    }
}

}  // namespace

QImage scaledPart(const Cutting& whole, const QTransform& map, const QSize& size)
{
    Cutting seen =
        whole.within(map.inverted().mapRect(QRectF(QPointF(0, 0), size)).toAlignedRect().adjusted(-1, -1, 1, 1));
    const QImage source = std::move(seen.image).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const Mix across =
        MixMaker({whole.size.width(), seen.at.x(), source.width(), map.m11(), map.dx()}).made(size.width());
    const Mix down =
        MixMaker({whole.size.height(), seen.at.y(), source.height(), map.m22(), map.dy()}).made(size.height());
    QImage made(size, QImage::Format_RGBA8888_Premultiplied);
    uchar* const bits = made.bits();
    const int stride = made.bytesPerLine();
    forRowBands(RowSpan{0, size.height()}, size.width() * size.height(), [&](int first, int end) {
        std::vector<float> row(static_cast<std::size_t>(source.width() * kChannels));
        for (int y = first; y < end; ++y) {
            mixDown(row, source, down, y);
            mixAcross(bits + y * stride, row.data(), across);
        }
    });
    return std::move(made).convertToFormat(QImage::Format_RGBA8888);
}
