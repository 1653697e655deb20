#include "model/LayerDataBinary.h"

#include "model/FrameNumber.h"
#include "model/LayerName.h"

#include <maya/MFileIO.h>

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <istream>
#include <ostream>

namespace layerBinary {

namespace {

constexpr qint32 kVersion = 1;

class Writer {
public:
    explicit Writer(std::ostream& out) : m_out(out) {}

    void writeByte(bool value) { m_out.put(value ? 1 : 0); }
    void writeInt(qint32 value)
    {
        uchar bytes[sizeof value];
        qToLittleEndian(value, bytes);
        m_out.write(reinterpret_cast<const char*>(bytes), sizeof bytes);
    }
    void writeFloat(float value)
    {
        qint32 bits;
        std::memcpy(&bits, &value, sizeof bits);
        writeInt(bits);
    }
    void writeBytes(const QByteArray& bytes)
    {
        writeInt(bytes.size());
        m_out.write(bytes.constData(), bytes.size());
    }
    void writeString(const QString& text) { writeBytes(text.toUtf8()); }

private:
    std::ostream& m_out;
};

class Reader {
public:
    explicit Reader(std::istream& in) : m_in(in) {}

    bool isGood() const { return !m_in.fail(); }

    quint8 readByte()
    {
        char byte = 0;
        m_in.get(byte);
        return static_cast<quint8>(byte);
    }
    qint32 readInt(qint32 otherwise = 0)
    {
        uchar bytes[sizeof(qint32)];
        return m_in.read(reinterpret_cast<char*>(bytes), sizeof bytes) ? qFromLittleEndian<qint32>(bytes) : otherwise;
    }
    float readFloat()
    {
        const qint32 bits = readInt();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    // In blocks: a length that is only claimed must not take memory for more than there is.
    QByteArray readBytes()
    {
        constexpr qint32 kBlock = 1 << 16;
        QByteArray bytes;
        for (qint32 left = readInt(); left > 0 && isGood();) {
            const qint32 count = std::min(left, kBlock);
            const int before = bytes.size();
            bytes.resize(before + count);
            m_in.read(bytes.data() + before, count);
            left -= count;
        }
        bytes.squeeze();  // it has grown ahead
        return bytes;
    }
    // The text form has to be able to hold it too.
    QString readName() { return recordableName(QString::fromUtf8(readBytes())); }

private:
    std::istream& m_in;
};

void readFrame(Reader& in, Layer& layer)
{
    const qint32 frameNumber = in.readInt(1);
    const QByteArray png = in.readBytes();
    if (in.isGood()) {
        layer.insertFrame(Frame::fromPng(timeOfFrame(frameNumber), png));  // a damaged picture is left out
    }
}

void readLayer(Reader& in, const QString& camera, LayerManager& manager)
{
    std::unique_ptr<Layer> made(new Layer);
    made->setName(in.readName());
    const qint32 frameCount = in.readInt();
    made->setVisible(in.readByte() != 0);
    made->setOpacity(in.readFloat());
    const qint32 state = in.readInt();
    made->setState(state >= 0 && state < kLayerStateCount ? state : static_cast<qint32>(kLayerAnim));
    if (!in.isGood()) {
        return;
    }
    Layer& layer = *made;
    manager.insertLayer(camera, -1, std::move(made));
    for (qint32 i = 0; i < frameCount && in.isGood(); ++i) {
        readFrame(in, layer);
    }
}

void readCamera(Reader& in, LayerManager& manager)
{
    const QString camera = in.readName();
    const qint32 layerCount = in.readInt();
    const qint32 activeLayer = in.readInt();
    for (qint32 i = 0; i < layerCount && in.isGood(); ++i) {
        readLayer(in, camera, manager);
    }
    if (activeLayer >= 0 && in.isGood()) {
        manager.setActiveLayer(camera, activeLayer, true);
    }
}

// What is absent, or cannot be encoded, is left out although its number was counted: such a drawing does not occur,
// and the record has no way to say so.
void writeFrame(Writer& out, const Frame* frame)
{
    if (!frame) {
        return;
    }
    out.writeInt(frame->frameNumber());
    const QByteArray png = frame->png();
    if (!png.isEmpty()) {
        out.writeBytes(png);
    }
}

void writeLayer(Writer& out, const Layer* layer)
{
    if (!layer) {
        return;
    }
    out.writeString(layer->name());
    out.writeInt(layer->frameCount());
    out.writeByte(layer->isVisible());
    out.writeFloat(layer->opacity());
    out.writeInt(layer->state());
    for (int i = 0; i < layer->frameCount(); ++i) {
        writeFrame(out, layer->frameAt(i));
    }
}

}  // namespace

void read(std::istream& stream, LayerManager& manager)
{
    Reader in(stream);
    in.readInt();  // the version; any is accepted
    if (in.readByte() != 0 && !MFileIO::isReferencingFile()) {
        manager.setMaster(true);
    }
    const QString activeCamera = in.readName();
    const qint32 cameraCount = in.readInt();
    for (qint32 i = 0; i < cameraCount && in.isGood(); ++i) {
        readCamera(in, manager);
    }
    if (!activeCamera.isEmpty()) {
        manager.setCurrentCamera(activeCamera);
    }
}

void write(std::ostream& stream, const LayerManager& manager)
{
    Writer out(stream);
    const QStringList cameras = manager.cameras();
    out.writeInt(kVersion);
    out.writeByte(manager.isMaster());
    out.writeString(manager.currentCamera());
    out.writeInt(cameras.size());
    for (const QString& camera : cameras) {
        out.writeString(camera);
        out.writeInt(manager.layerCount(camera));
        out.writeInt(manager.activeLayerIndex(camera));
        for (int i = 0; i < manager.layerCount(camera); ++i) {
            writeLayer(out, manager.layer(camera, i));
        }
    }
}

}  // namespace layerBinary
