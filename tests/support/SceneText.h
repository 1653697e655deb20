#pragma once

#include <QByteArray>
#include <QImage>
#include <QVector>

namespace support {

/// The drawing as a text scene holds it: its layers, their keys and pictures. Without the line it begins with, which
/// names the camera that is current.
inline QByteArray drawingText(const QByteArray& scene)
{
    const int begin = scene.indexOf("\n\t\t", scene.indexOf("setAttr \".ld\""));
    return begin < 0 ? QByteArray() : scene.mid(begin, scene.indexOf(';', begin) - begin);
}

/// The frame pictures in a text scene, in file order.
inline QVector<QImage> framePictures(const QByteArray& scene)
{
    const QByteArray signature = "\"89504e470d0a1a0a";
    QVector<QImage> pictures;
    for (int at = scene.indexOf(signature); at >= 0; at = scene.indexOf(signature, at + 1)) {
        const int end = scene.indexOf('"', at + 1);
        pictures << QImage::fromData(QByteArray::fromHex(scene.mid(at + 1, end - at - 1)), "PNG");
    }
    return pictures;
}

/// Number of pixels that are not fully transparent.
inline int inkPixels(const QImage& picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            count += qAlpha(row[x]) != 0;
        }
    }
    return count;
}

}  // namespace support
