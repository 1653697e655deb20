#pragma once

#include <maya/MApiNamespace.h>

#include <memory>

namespace api {
struct Access;
struct CursorShape;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The pointer's picture while a tool is current.
class MCursor {
public:
    /// bits and mask: rows of (width + 7) / 8 bytes, lowest bit leftmost. A pixel of the mask is drawn, black where
    /// bits is set and white elsewhere; the buffers are copied.
    MCursor(short width, short height, short hotSpotX, short hotSpotY, unsigned char* bits, unsigned char* mask);
    MCursor(const MCursor& other);
    MCursor& operator=(const MCursor& other);
    ~MCursor();
    bool operator==(const MCursor& other) const;
    bool operator!=(const MCursor& other) const;

    static const MCursor defaultCursor;
    static const MCursor crossHairCursor;
    static const MCursor doubleCrossHairCursor;
    static const MCursor editCursor;
    static const MCursor pencilCursor;
    static const MCursor handCursor;

private:
    friend struct api::Access;
    explicit MCursor(std::shared_ptr<const api::CursorShape> shape);
    std::shared_ptr<const api::CursorShape> m_shape;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
