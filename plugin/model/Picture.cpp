#include "model/Picture.h"

#include "model/Canvas.h"
#include "model/Id.h"
#include "model/PictureData.h"
#include "model/PictureEncoder.h"
#include "model/PixelBudget.h"
#include "model/PngCodec.h"

Picture::Data::Data() : Data(std::make_shared<Shared>(Shared{nextId(), PackedPixels(), InkMap(), false})) {}

Picture::Data::Data(const std::shared_ptr<Shared>& drawing) : shared(drawing) {}

Picture::Data::~Data()
{
    leaveBudget();
    leaveEncoder();
}

void Picture::Data::leaveBudget()
{
    if (budgeted > 0) {
        PixelBudget::instance().remove(*this);
    }
}

void Picture::Data::leaveEncoder()
{
    if (isInEncoder) {
        PictureEncoder::instance().withdraw(*this);
    }
}

// A PNG takes as long to decode as the whole canvas has to be read; of tiles only those that differ are.
bool Picture::Data::isSlowToUnpack() const
{
    return !isPacked() || (shared->packed.tiles.isEmpty() && isMixable(image));
}

void Picture::Data::leaveEncoderIfPacked()
{
    if (isPacked()) {
        leaveEncoder();
    }
}

const QByteArray& Picture::Data::encoded()
{
    if (shared->packed.png.isEmpty()) {
        shared->packed.png = encodePng(image.isNull() ? shared->packed.unpacked() : image);
        leaveEncoderIfPacked();
    }
    return shared->packed.png;
}

void Picture::Data::packNow()
{
    if (!isPacked()) {
        shared->packed = PackedPixels::quick(image);
        leaveEncoderIfPacked();
    }
}

void Picture::Data::setPixels(const QImage& pixels)
{
    image = pixels;
    PixelBudget::instance().enter(*this);
}

void Picture::Data::setInk(const InkMap& ink)
{
    shared->ink = ink;
    shared->inkKnown = true;
}

void Picture::Data::unpackBeside(const Data* similar)
{
    const bool helps = similar && !similar->image.isNull();
    setPixels(helps ? shared->packed.unpacked(similar->image, similar->shared->packed.tiles)
                    : shared->packed.unpacked());
}

void Picture::Data::dropPixels()
{
    leaveBudget();
    image = QImage();
}

Picture::Picture() = default;
Picture::Picture(std::shared_ptr<Data> data) : m_data(std::move(data)) {}

Picture::Picture(const QImage& image)
{
    if (!image.isNull()) {
        m_data = std::make_shared<Data>();
        m_data->setPixels(image);
    }
}

Picture::Picture(const QImage& image, const InkMap& ink) : Picture(image)
{
    if (m_data) {
        m_data->setInk(ink);
    }
}

Picture Picture::fromPng(const QByteArray& png)
{
    Picture picture;
    if (!png.isEmpty()) {
        picture.m_data = std::make_shared<Data>();
        picture.m_data->shared->packed.png = png;
    }
    return picture;
}

// Shared by all, so it is not the budget's business.
Picture Picture::emptyCanvas()
{
    static const std::shared_ptr<Data> data = [] {
        auto made = std::make_shared<Data>();
        made->image = blankCanvas();
        made->setInk(InkMap());
        return made;
    }();
    return Picture(data);
}

quint64 Picture::id() const
{
    return m_data ? m_data->id() : 0;
}

bool Picture::isUnpacked() const
{
    return m_data && !m_data->image.isNull();
}

const QImage& Picture::image() const
{
    static const QImage kNone;
    if (!m_data) {
        return kNone;
    }
    unpackBeside(Picture());
    PixelBudget::instance().touch(*m_data);
    return m_data->image;
}

void Picture::unpackBeside(const Picture& similar) const
{
    if (m_data && m_data->image.isNull()) {
        m_data->unpackBeside(similar.m_data.get());
    }
}

QByteArray Picture::png() const
{
    return m_data ? m_data->encoded() : QByteArray();
}

InkMap Picture::ink() const
{
    if (!m_data) {
        return InkMap();
    }
    if (!m_data->shared->inkKnown) {
        const QImage& pixels = image();
        if (pixels.isNull()) {
            return InkMap();  // which is not known yet: there may be memory for them later
        }
        m_data->setInk(InkMap::of(isMixable(pixels) ? pixels : asCanvas(pixels)));
    }
    return m_data->shared->ink;
}

void Picture::pack()
{
    if (!isUnpacked()) {
        return;
    }
    m_data->packNow();
    if (m_data->isPacked()) {  // better unpacked than lost
        *this = packedCopy();  // others that share it keep its pixels
    }
}

void Picture::packSoon() const
{
    if (m_data && m_data->budgeted > 0) {  // not the empty canvas
        PixelBudget::instance().packSoon(*m_data);
    }
}

Picture Picture::packedCopy() const
{
    if (!m_data) {
        return Picture();
    }
    m_data->packNow();
    return m_data->isPacked() ? Picture(std::make_shared<Data>(m_data->shared)) : *this;
}
