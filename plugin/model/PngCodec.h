#pragma once

#include <QByteArray>
#include <QImage>

/// Largest side of a picture that is decoded at all, in pixels.
constexpr int kLargestPictureSide = 8192;

/// Decodes a PNG; a null image when the bytes are no PNG, are damaged, or claim to be larger than the limit. Size and
/// format are those of the file.
QImage decodePng(const QByteArray& bytes);
QByteArray encodePng(const QImage& image);  ///< default quality; empty when the image cannot be encoded
