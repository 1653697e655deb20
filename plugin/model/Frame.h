#pragma once

#include "model/Picture.h"

#include <maya/MTime.h>

#include <QByteArray>
#include <QImage>

#include <memory>

/// One drawing, keyed at one scene time. It is blank (never drawn), packed (only PNG bytes) or unpacked (with pixels).
class Frame {
public:
    explicit Frame(const MTime& time);
    /// A copy is packed or blank whatever the source is, unless that cannot be packed: copies go to clipboards and undo
    /// records and must stay small.
    Frame(const Frame& other);
    Frame& operator=(const Frame&) = delete;
    /// A packed frame; null when the bytes are no picture. They are decoded once, to know.
    static std::unique_ptr<Frame> fromPng(const MTime& time, const QByteArray& bytes);

    const MTime& time() const { return m_time; }
    void setTime(const MTime& time) { m_time = time; }
    int frameNumber() const;
    void setFrameNumber(int frameNumber);

    const Picture& picture() const { return m_picture; }
    void setPicture(const Picture& picture) { m_picture = picture; }

    /// The pixels, unpacked on demand: a blank frame gives a blank canvas, a packed one whatever size and format its
    /// PNG has; a PNG that does not decode gives a null image and leaves the frame blank.
    const QImage& image();
    void setImage(const QImage& image) { m_picture = Picture(image); }
    void pack() { m_picture.pack(); }  ///< does nothing to a blank or packed frame

    bool isBlank() const { return m_picture.isBlank(); }
    bool isUnpacked() const { return m_picture.isUnpacked(); }

    /// The drawing as PNG, whatever condition the frame is in and without changing it. Unchanged pixels are not
    /// encoded again. Empty when encoding fails.
    QByteArray png() const;

private:
    MTime m_time;
    Picture m_picture;
};
