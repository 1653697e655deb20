#include "model/Frame.h"

#include "model/Canvas.h"
#include "model/FrameNumber.h"
#include "model/PngCodec.h"

Frame::Frame(const MTime& time) : m_time(time) {}

Frame::Frame(const Frame& other) : m_time(other.m_time)
{
    if (!other.isBlank()) {
        m_packed = other.png();
    }
}

std::unique_ptr<Frame> Frame::fromPng(const MTime& time, const QByteArray& bytes)
{
    if (decodePng(bytes).isNull()) {
        return nullptr;
    }
    std::unique_ptr<Frame> frame(new Frame(time));
    frame->m_packed = bytes;
    return frame;
}

int Frame::frameNumber() const
{
    return frameNumberOf(m_time);
}

void Frame::setFrameNumber(int frameNumber)
{
    m_time = timeOfFrame(frameNumber);
}

const QImage& Frame::image()
{
    if (!m_image.isNull()) {
        return m_image;
    }
    if (m_packed.isEmpty()) {
        m_image = blankCanvas();
        m_clean = blankCanvasPng();
        return m_image;
    }
    m_image = decodePng(m_packed);
    m_clean = m_image.isNull() ? QByteArray() : m_packed;
    m_packed.clear();
    return m_image;
}

void Frame::setImage(const QImage& image)
{
    m_image = image;
    m_clean.clear();
}

void Frame::pack()
{
    if (m_image.isNull()) {
        return;
    }
    const QByteArray bytes = png();
    if (bytes.isEmpty()) {
        return;  // better unpacked than lost
    }
    m_packed = bytes;
    m_image = QImage();
    m_clean.clear();
}

QByteArray Frame::png() const
{
    if (m_image.isNull()) {
        return m_packed.isEmpty() ? blankCanvasPng() : m_packed;
    }
    if (m_clean.isEmpty()) {
        m_clean = encodePng(m_image);
    }
    return m_clean;
}

bool Frame::swapPng(QByteArray& bytes)
{
    const QImage other = decodePng(bytes);
    const QByteArray own = other.isNull() ? QByteArray() : png();
    if (own.isEmpty()) {
        return false;
    }
    m_image = other;
    m_clean = bytes;
    m_packed.clear();
    bytes = own;
    return true;
}
