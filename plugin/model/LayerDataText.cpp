#include "model/LayerDataText.h"

#include "model/Hex.h"
#include "model/LayerName.h"
#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/Text.h"

#include <maya/MFileIO.h>

#include <algorithm>
#include <locale>
#include <ostream>

namespace layerText {

namespace {

constexpr int kVersion = 1;
constexpr char kNewLine[] = "\n\t\t";

// Takes the arguments one by one. A take that fails reports its message, in which %1 is the argument's index, and
// leaves the host's status for the record's reader to return.
class Arguments {
public:
    Arguments(const MArgList& list, unsigned int& next) : m_list(list), m_next(next) {}

    MStatus status() const { return m_status; }

    bool takeBool(bool& value, const char* message) { return take(&MArgList::asBool, value, message); }
    bool takeInt(int& value, const char* message) { return take(&MArgList::asInt, value, message); }
    bool takeDouble(double& value, const char* message) { return take(&MArgList::asDouble, value, message); }
    bool takeTime(MTime& value, const char* message) { return take(&MArgList::asTime, value, message); }
    bool takeString(MString& value, const char* message) { return take(&MArgList::asString, value, message); }
    bool takeName(QString& value, const char* message)
    {
        MString text;
        const bool taken = takeString(text, message);
        value = recordableName(toQString(text));
        return taken;
    }
    /// Reports a message about the argument taken last.
    void report(const char* message) const { messages::error(QString::fromLatin1(message).arg(m_next - 1)); }

    // The two whose failure is passed over.
    int takeVersion() { return m_list.asInt(m_next++, &m_status); }
    QString takeActiveCamera() { return recordableName(toQString(m_list.asString(m_next++))); }

private:
    template <class Value>
    bool take(Value (MArgList::*read)(unsigned int, MStatus*) const, Value& value, const char* message)
    {
        value = (m_list.*read)(m_next++, &m_status);
        if (!m_status) {
            report(message);
        }
        return m_status;
    }

    const MArgList& m_list;
    unsigned int& m_next;
    MStatus m_status;
};

struct LayerHeader {
    QString name;
    int frameCount;
    bool visible;
    double opacity;
    int state;
};

enum class LayerKind { Present, Absent, Broken };

LayerKind readLayerHeader(Arguments& arguments, LayerHeader& header)
{
    if (!arguments.takeName(header.name, "Invalid layer name (%1)")
        || !arguments.takeInt(header.frameCount, "Invalid frame count (%1)")) {
        return LayerKind::Broken;
    }
    if (header.name == QLatin1String(names::kAbsentLayer) && header.frameCount < 0) {
        return LayerKind::Absent;
    }
    if (!arguments.takeBool(header.visible, "Invalid layer visibility (%1)")
        || !arguments.takeDouble(header.opacity, "Invalid opacity (%1)")
        || !arguments.takeInt(header.state, "Invalid layer state (%1)")) {
        return LayerKind::Broken;
    }
    if (header.state < 0 || header.state >= kLayerStateCount) {
        // The reading as such succeeded, and that is the status the whole record then has: it is meant.
        arguments.report("Invalid layer state (%1)");
        return LayerKind::Broken;
    }
    return LayerKind::Present;
}

bool readFrame(Arguments& arguments, int index, Layer& layer)
{
    MTime time;
    MString hex;
    if (!arguments.takeTime(time, "Invalid frame time (%1)") || !arguments.takeString(hex, "Invalid draw data (%1)")) {
        return false;
    }
    int length = 0;
    const char* digits = hex.asUTF8(length);
    std::unique_ptr<Frame> frame = Frame::fromPng(time, decodeHex(digits, length));
    if (frame) {
        layer.restoreFrame(std::move(frame));
    } else {
        messages::error(QString("Failed to load draw data: %1 (%2)").arg(layer.name(), QString::number(index)));
    }
    return true;
}

bool readLayer(Arguments& arguments, const QString& camera, LayerManager& manager)
{
    LayerHeader header;
    switch (readLayerHeader(arguments, header)) {
    case LayerKind::Broken: return false;
    case LayerKind::Absent: messages::warning(QString("Skipping invalid layer")); return true;
    case LayerKind::Present: break;
    }
    std::unique_ptr<Layer> made(new Layer);
    made->setName(header.name);
    made->setVisible(header.visible);
    made->setOpacity(static_cast<float>(header.opacity));
    made->setState(header.state);
    Layer& layer = *made;
    manager.insertLayer(camera, -1, std::move(made));
    for (int i = 0; i < header.frameCount; ++i) {
        if (!readFrame(arguments, i, layer)) {
            return false;
        }
    }
    return true;
}

bool readCamera(Arguments& arguments, LayerManager& manager)
{
    QString camera;
    int layerCount = 0;
    int activeLayer = -1;
    if (!arguments.takeName(camera, "Invalid camera name (%1)")
        || !arguments.takeInt(layerCount, "Invalid layer count (%1)")
        || !arguments.takeInt(activeLayer, "Invalid active layer index (%1)")) {
        return false;
    }
    for (int i = 0; i < layerCount; ++i) {
        if (!readLayer(arguments, camera, manager)) {
            return false;
        }
    }
    if (activeLayer >= 0) {
        manager.setActiveLayer(camera, activeLayer, true);
    }
    return true;
}

// While it lives, numbers are written as scenes have them, whatever the stream or the process is set to.
class PlainNumbers {
public:
    explicit PlainNumbers(std::ostream& out)
        : m_out(out), m_locale(out.imbue(std::locale::classic())), m_flags(out.flags(std::ios::dec)),
          m_precision(out.precision(6))
    {}
    ~PlainNumbers()
    {
        m_out.imbue(m_locale);
        m_out.flags(m_flags);
        m_out.precision(m_precision);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    std::ostream& m_out;
    const std::locale m_locale;
    const std::ios::fmtflags m_flags;
    const std::streamsize m_precision;
};

// Nothing is escaped: the record has never had escapes, and names that need them do not come this far.
void writeString(std::ostream& out, const QString& text)
{
    out << " \"" << text.toUtf8().constData() << '"';
}

void writeHex(std::ostream& out, const QByteArray& bytes)
{
    constexpr int kBlock = 1 << 14;  // a picture is large: no second copy of all of it
    char digits[2 * kBlock];
    for (int at = 0; at < bytes.size(); at += kBlock) {
        const int count = std::min(kBlock, bytes.size() - at);
        encodeHex(digits, bytes.constData() + at, count);
        out.write(digits, 2 * count);
    }
}

void writeFrame(std::ostream& out, const Frame* frame)
{
    out << kNewLine;
    if (!frame) {
        out << " -1 \"\"";
        return;
    }
    out << ' ' << frame->time() << " \"";
    writeHex(out, frame->png());
    out << '"';
}

void writeLayer(std::ostream& out, const Layer* layer)
{
    if (!layer) {
        out << " \"" << names::kAbsentLayer << "\" -1";
        return;
    }
    writeString(out, layer->name());
    out << ' ' << layer->frameCount() << ' ' << layer->isVisible() << ' ' << layer->opacity() << ' ' << layer->state();
    for (int i = 0; i < layer->frameCount(); ++i) {
        writeFrame(out, layer->frameAt(i));
    }
    out << kNewLine;
}

}  // namespace

MStatus read(const MArgList& list, unsigned int& next, LayerManager& manager)
{
    Arguments arguments(list, next);
    const int version = arguments.takeVersion();
    if (arguments.status() && version <= 0) {
        messages::error(QString("Invalid version"));
        return MS::kFailure;
    }
    bool master = false;
    if (!arguments.takeBool(master, "Failed to get master (%1)")) {
        return arguments.status();
    }
    if (master && !MFileIO::isReferencingFile()) {
        manager.setMaster(true);
    }
    const QString activeCamera = arguments.takeActiveCamera();
    int cameraCount = 0;
    // The message speaks of layers although cameras are counted: it is meant.
    if (!arguments.takeInt(cameraCount, "Invalid layer count (%1)")) {
        return arguments.status();
    }
    for (int i = 0; i < cameraCount; ++i) {
        if (!readCamera(arguments, manager)) {
            return arguments.status();
        }
    }
    if (!activeCamera.isEmpty()) {
        manager.setCurrentCamera(activeCamera);
    }
    return MS::kSuccess;
}

void write(std::ostream& out, const LayerManager& manager)
{
    const PlainNumbers plain(out);
    const QStringList cameras = manager.cameras();
    out << kVersion << ' ' << manager.isMaster();
    writeString(out, manager.currentCamera());
    out << ' ' << cameras.size() << kNewLine;
    for (const QString& camera : cameras) {
        writeString(out, camera);
        out << ' ' << manager.layerCount(camera) << ' ' << manager.activeLayerIndex(camera) << kNewLine;
        for (int i = 0; i < manager.layerCount(camera); ++i) {
            writeLayer(out, manager.layer(camera, i));
        }
    }
}

}  // namespace layerText
