#pragma once

#include <maya/MTime.h>

#include <QByteArray>
#include <QImage>

#include <memory>

/// One drawing, keyed at one scene time. It is blank (never drawn), packed (only PNG bytes) or unpacked (only pixels).
class Frame {
public:
    explicit Frame(const MTime& time);
    /// A copy is packed or blank, never unpacked, whatever the source is: copies go to clipboards and undo records
    /// and must stay small.
    Frame(const Frame& other);
    Frame& operator=(const Frame&) = delete;
    /// A packed frame; null when the bytes are no picture. They are decoded once, to know.
    static std::unique_ptr<Frame> fromPng(const MTime& time, const QByteArray& bytes);

    const MTime& time() const { return m_time; }
    void setTime(const MTime& time) { m_time = time; }
    int frameNumber() const;
    void setFrameNumber(int frameNumber);

    /// The pixels, unpacked on demand: a blank frame gives a blank canvas, a packed one whatever size and format its
    /// PNG has; a PNG that does not decode gives a null image and leaves the frame blank.
    const QImage& image();
    void setImage(const QImage& image);  ///< the only way to change pixels; packed bytes are left as they are
    void pack();                         ///< does nothing to a blank or packed frame

    bool isBlank() const { return m_image.isNull() && m_packed.isEmpty(); }
    bool isUnpacked() const { return !m_image.isNull(); }
    const QByteArray& packedBytes() const { return m_packed; }

    /// The drawing as PNG, whatever condition the frame is in and without changing it. Unchanged pixels are not
    /// encoded again. Empty when encoding fails.
    QByteArray png() const;
    /// Exchanges the drawing with the one in bytes. False, and nothing changes, when bytes holds no picture or the
    /// drawing cannot be encoded.
    bool swapPng(QByteArray& bytes);

private:
    MTime m_time;
    QImage m_image;
    QByteArray m_packed;
    mutable QByteArray m_clean;  // PNG of m_image, from its last decoding or encoding; empty when it has changed since
};
