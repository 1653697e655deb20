#include "model/Frame.h"

#include "model/FrameNumber.h"
#include "model/PngCodec.h"

Frame::Frame(const MTime& time) : m_time(time) {}

Frame::Frame(const Frame& other) : m_time(other.m_time), m_picture(other.m_picture.packedCopy()) {}

std::unique_ptr<Frame> Frame::fromPng(const MTime& time, const QByteArray& bytes)
{
    if (decodePng(bytes).isNull()) {
        return nullptr;
    }
    std::unique_ptr<Frame> frame(new Frame(time));
    frame->setPicture(Picture::fromPng(bytes));
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
    static const QImage kNone;
    if (m_picture.isBlank()) {
        m_picture = Picture::emptyCanvas();
    }
    if (m_picture.image().isNull()) {
        m_picture = Picture();
        return kNone;
    }
    return m_picture.image();
}

QByteArray Frame::png() const
{
    return m_picture.isBlank() ? Picture::emptyCanvas().png() : m_picture.png();
}
