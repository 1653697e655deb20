#pragma once

#include "support/QtPrint.h"

#include <QCryptographicHash>
#include <QImage>
#include <QString>

#include <algorithm>
#include <cstdlib>

/// Pixels as a test reads them.
namespace pixels {

/// The image as RGBA8888, whatever its format: decoded PNGs come in others.
inline QImage plain(const QImage& image)
{
    return image.convertToFormat(QImage::Format_RGBA8888);
}

inline bool same(const QImage& a, const QImage& b)
{
    return a.isNull() == b.isNull() && plain(a) == plain(b);
}

/// What is seen of an image: the colour of its transparent pixels is taken away.
inline QImage seen(const QImage& image)
{
    QImage result = plain(image);
    for (int y = 0; y < result.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(result.scanLine(y));
        std::replace_if(
            row, row + result.width(), [](QRgb pixel) { return qAlpha(pixel) == 0; }, 0u);
    }
    return result;
}

inline int alpha(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

/// The farthest that a channel of the two is apart, premultiplied: what is seen of a colour is its share. 256 when the
/// sizes differ.
inline int farthest(const QImage& a, const QImage& b)
{
    if (a.size() != b.size()) {
        return 256;
    }
    const QImage p = a.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const QImage q = b.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    int distance = 0;
    for (int y = 0; y < p.height(); ++y) {
        for (int i = 0; i < p.width() * 4; ++i) {
            distance = std::max(distance, std::abs(p.constScanLine(y)[i] - q.constScanLine(y)[i]));
        }
    }
    return distance;
}

/// Box of the pixels that are not fully transparent; null when there are none.
inline QRect inkBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (alpha(image, x, y) != 0) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

/// A canvas-sized picture that differs for every seed: a box of one colour.
inline QImage marked(int seed)
{
    QImage image(1024, 1024, QImage::Format_RGBA8888);
    image.fill(Qt::transparent);
    const int n = std::abs(seed);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            image.setPixelColor(n * 7 % 900 + x, n * 13 % 900 + y, QColor(n * 37 % 256, n * 91 % 256, 200));
        }
    }
    return image;
}

inline QString hash(const QImage& image)
{
    if (image.isNull()) {
        return QStringLiteral("none");
    }
    const QImage rgba = plain(image);
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (int y = 0; y < rgba.height(); ++y) {
        hash.addData(reinterpret_cast<const char*>(rgba.constScanLine(y)), rgba.width() * 4);
    }
    return QString::fromLatin1(hash.result().toHex().left(8));
}

}  // namespace pixels
