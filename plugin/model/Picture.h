#pragma once

#include "model/InkMap.h"

#include <QByteArray>
#include <QImage>

#include <memory>

/// A drawing as a value: nothing, pixels, a packed form of them, or both of the latter. Its pixels never change; a
/// changed drawing is another Picture. Copies are cheap and share what is unpacked or packed for one of them. Main
/// thread only.
class Picture {
public:
    Picture();  ///< blank: never drawn
    /// Unpacked; blank for a null image. ink: where it has some, when that is known.
    explicit Picture(const QImage& image);
    Picture(const QImage& image, const InkMap& ink);
    /// Packed; blank for no bytes. The bytes are decoded when the pixels are asked for first.
    static Picture fromPng(const QByteArray& png);
    static Picture emptyCanvas();  ///< a transparent canvas, unpacked; it takes no memory of its own

    /// Differs from that of every picture with other pixels; 0 when blank.
    quint64 id() const;
    bool isBlank() const { return !m_data; }
    bool isUnpacked() const;

    /// The pixels, decoded when they are packed; null when blank or when the PNG does not decode. The reference is good
    /// while the picture is not packed.
    const QImage& image() const;
    /// Makes the pixels when they are packed, in less time where those of a similar, unpacked drawing are the same.
    void unpackBeside(const Picture& similar) const;
    /// The drawing as PNG, encoded when that was not done before; empty when blank or when encoding fails.
    QByteArray png() const;
    /// Where the picture has ink, as a canvas. Asked for the first time, it may unpack the picture.
    InkMap ink() const;

    /// Lets go of the pixels, which costs nothing when a packed form is at hand; does nothing when none can be made.
    void pack();
    /// The pixels go, of all copies, as soon as another thread has packed them and they are neither shown nor drawn on.
    void packSoon() const;
    /// The same drawing, packed, whatever condition this one is in; unpacked only when it cannot be packed. The PNG
    /// that is made for one is there for the other.
    Picture packedCopy() const;

    struct Data;

private:
    explicit Picture(std::shared_ptr<Data> data);

    std::shared_ptr<Data> m_data;  // null when blank
};
