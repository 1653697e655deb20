#include "model/Picture.h"

#include "model/Canvas.h"
#include "model/Id.h"
#include "model/PictureData.h"
#include "model/PictureEncoder.h"
#include "model/PixelBudget.h"
#include "model/PngCodec.h"

Picture::Data::Data() : id(nextId()) {}

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

const QByteArray& Picture::Data::encoded()
{
    if (packed.png.isEmpty()) {
        packed.png = encodePng(image.isNull() ? packed.unpacked() : image);
    }
    if (isPacked()) {
        leaveEncoder();
    }
    return packed.png;
}

void Picture::Data::packNow()
{
    if (!isPacked()) {
        packed = PackedPixels::quick(image);
    }
    if (isPacked()) {
        leaveEncoder();
    }
}

void Picture::Data::setPixels(const QImage& pixels)
{
    image = pixels;
    PixelBudget::instance().enter(*this);
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
        m_data->ink = ink;
        m_data->inkKnown = true;
    }
}

Picture Picture::fromPng(const QByteArray& png)
{
    Picture picture;
    if (!png.isEmpty()) {
        picture.m_data = std::make_shared<Data>();
        picture.m_data->packed.png = png;
    }
    return picture;
}

// Shared by all, so it is not the budget's business.
Picture Picture::emptyCanvas()
{
    static const std::shared_ptr<Data> data = [] {
        auto made = std::make_shared<Data>();
        made->image = blankCanvas();
        made->inkKnown = true;
        return made;
    }();
    return Picture(data);
}

quint64 Picture::id() const
{
    return m_data ? m_data->id : 0;
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
        m_data->setPixels(m_data->packed.unpacked(similar.isUnpacked() ? similar.m_data->image : QImage()));
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
    if (!m_data->inkKnown) {
        const QImage& pixels = image();
        m_data->ink = InkMap::of(isMixable(pixels) ? pixels : asCanvas(pixels));
        m_data->inkKnown = true;
    }
    return m_data->ink;
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
    if (isUnpacked()) {
        PixelBudget::instance().packSoon(*m_data);
    }
}

Picture Picture::packedCopy() const
{
    Picture copy;
    if (!m_data) {
        return copy;
    }
    m_data->packNow();
    if (m_data->isPacked()) {
        copy.m_data = std::make_shared<Data>();
        copy.m_data->packed = m_data->packed;
        copy.m_data->id = m_data->id;
        copy.m_data->ink = m_data->ink;
        copy.m_data->inkKnown = m_data->inkKnown;
    }
    return copy;
}
