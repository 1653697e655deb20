#include <maya/MCursor.h>

#include "api/Access.h"

#include <QtGui/QBitmap>
#include <QtGui/QCursor>

#include <vector>

namespace api {

/// A cursor as data: a QCursor needs a running application, and the constants are made when the library is loaded.
struct CursorShape {
    Qt::CursorShape standard = Qt::ArrowCursor;
    short width = 0;  ///< 0: the standard shape
    short height = 0;
    short hotSpotX = 0;
    short hotSpotY = 0;
    std::vector<unsigned char> bits;
    std::vector<unsigned char> mask;

    bool operator==(const CursorShape& o) const
    {
        return standard == o.standard && width == o.width && height == o.height && hotSpotX == o.hotSpotX
            && hotSpotY == o.hotSpotY && bits == o.bits && mask == o.mask;
    }
};

QCursor Access::cursor(const MCursor& cursor)
{
    const CursorShape& shape = *cursor.m_shape;
    if (shape.width == 0)
        return QCursor(shape.standard);
    const QSize size(shape.width, shape.height);
    return QCursor(QBitmap::fromData(size, shape.bits.data(), QImage::Format_MonoLSB),
                   QBitmap::fromData(size, shape.mask.data(), QImage::Format_MonoLSB), shape.hotSpotX, shape.hotSpotY);
}

}  // namespace api

namespace {

std::shared_ptr<const api::CursorShape> standard(Qt::CursorShape shape)
{
    auto cursor = std::make_shared<api::CursorShape>();
    cursor->standard = shape;
    return cursor;
}

std::shared_ptr<const api::CursorShape> drawn(short width, short height, short hotSpotX, short hotSpotY,
                                              const unsigned char* bits, const unsigned char* mask)
{
    auto cursor = std::make_shared<api::CursorShape>();
    if (width <= 0 || height <= 0 || !bits || !mask)
        return cursor;
    const std::size_t bytes = std::size_t((width + 7) / 8) * std::size_t(height);
    cursor->width = width;
    cursor->height = height;
    cursor->hotSpotX = hotSpotX;
    cursor->hotSpotY = hotSpotY;
    cursor->bits.assign(bits, bits + bytes);
    cursor->mask.assign(mask, mask + bytes);
    return cursor;
}

// A pencil leaning to the right, its point at the lower left.
constexpr unsigned char kPencilBits[] = {0x00, 0x60, 0x00, 0x90, 0x00, 0xc8, 0x00, 0xa4, 0x00, 0x52, 0x00,
                                         0x29, 0x80, 0x14, 0x40, 0x0a, 0x20, 0x05, 0x90, 0x02, 0x48, 0x01,
                                         0xa4, 0x00, 0x54, 0x00, 0x2c, 0x00, 0x1e, 0x00, 0x03, 0x00};
constexpr unsigned char kPencilMask[] = {0x00, 0x60, 0x00, 0xf0, 0x00, 0xf8, 0x00, 0xfc, 0x00, 0x7e, 0x00,
                                         0x3f, 0x80, 0x1f, 0xc0, 0x0f, 0xe0, 0x07, 0xf0, 0x03, 0xf8, 0x01,
                                         0xfc, 0x00, 0x7c, 0x00, 0x3c, 0x00, 0x1e, 0x00, 0x03, 0x00};

}  // namespace

OPENMAYA_MAJOR_NAMESPACE_OPEN

MCursor::MCursor(short width, short height, short hotSpotX, short hotSpotY, unsigned char* bits, unsigned char* mask)
    : m_shape(drawn(width, height, hotSpotX, hotSpotY, bits, mask))
{}

MCursor::MCursor(std::shared_ptr<const api::CursorShape> shape) : m_shape(std::move(shape)) {}

MCursor::MCursor(const MCursor& other) = default;

MCursor& MCursor::operator=(const MCursor& other) = default;

MCursor::~MCursor() = default;

bool MCursor::operator==(const MCursor& other) const
{
    return m_shape == other.m_shape || *m_shape == *other.m_shape;
}

bool MCursor::operator!=(const MCursor& other) const
{
    return !(*this == other);
}

const MCursor MCursor::defaultCursor(standard(Qt::ArrowCursor));
const MCursor MCursor::crossHairCursor(standard(Qt::CrossCursor));
const MCursor MCursor::doubleCrossHairCursor(standard(Qt::SizeAllCursor));
const MCursor MCursor::editCursor(standard(Qt::PointingHandCursor));
const MCursor MCursor::pencilCursor(drawn(16, 16, 0, 15, kPencilBits, kPencilMask));
const MCursor MCursor::handCursor(standard(Qt::OpenHandCursor));

OPENMAYA_MAJOR_NAMESPACE_CLOSE
