#pragma once

#include "model/PictureData.h"
#include "model/PictureEncoder.h"

#include <future>

/// Keeps the thread of an encoder busy until it is let go, so that what is added meanwhile waits for certain.
class HeldEncoder {
public:
    explicit HeldEncoder(PictureEncoder& encoder = PictureEncoder::instance()) : m_encoder(encoder)
    {
        m_encoder.finish();
        m_encoder.takeFinished();
        m_picture.image = QImage(8, 8, QImage::Format_RGBA8888);
        m_encoder.add(m_picture, [this](const QImage&) {
            m_taken.set_value();
            m_letGo.get_future().wait();
            return PackedPixels();
        });
        m_taken.get_future().wait();
    }
    ~HeldEncoder()
    {
        letGo();
        m_encoder.finish();
    }

    void letGo()
    {
        if (m_isHeld) {
            m_isHeld = false;
            m_letGo.set_value();
        }
    }

private:
    PictureEncoder& m_encoder;
    Picture::Data m_picture;
    std::promise<void> m_taken;
    std::promise<void> m_letGo;
    bool m_isHeld = true;
};
