#include "model/PngCodec.h"

#include <QBuffer>
#include <QtEndian>

namespace {

// A PNG starts with its signature and the header chunk, whose first fields are the width and height.
constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
constexpr int kHeaderTypeAt = 12;
constexpr int kWidthAt = 16;
constexpr int kHeightAt = 20;
constexpr int kHeaderEnd = 24;

bool isUsableSide(const QByteArray& bytes, int at)
{
    const quint32 side = qFromBigEndian<quint32>(reinterpret_cast<const uchar*>(bytes.constData()) + at);
    return side > 0 && side <= static_cast<quint32>(kLargestPictureSide);
}

// Asked before decoding, so that a few bytes cannot claim gigabytes.
bool isUsablePng(const QByteArray& bytes)
{
    return bytes.size() >= kHeaderEnd && bytes.startsWith(kSignature) && bytes.mid(kHeaderTypeAt, 4) == "IHDR"
        && isUsableSide(bytes, kWidthAt) && isUsableSide(bytes, kHeightAt);
}

}  // namespace

QImage decodePng(const QByteArray& bytes)
{
    QImage image;
    if (isUsablePng(bytes)) {
        image.loadFromData(bytes, "PNG");
    }
    return image;
}

QByteArray encodePng(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG", -1)) {
        bytes.clear();
    }
    return bytes;
}
