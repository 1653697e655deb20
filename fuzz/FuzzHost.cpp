#include "FuzzHost.h"

#include "model/BaseNodeLayerData.h"
#include "model/FrameNumber.h"
#include "model/PngCodec.h"
#include "node/BaseNode.h"
#include "node/HostViews.h"
#include "settings/Names.h"
#include "settings/Preferences.h"

#include "api/Handles.h"
#include "api/Module.h"
#include "app/Host.h"

#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#define MNoVersionString
#include <maya/MFnPlugin.h>

namespace fuzz {

namespace {

class Environment {
public:
    Environment()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char program[] = "fuzz";
        static char* argv[] = {program, nullptr};
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});  // about damaged files
        m_application = std::make_unique<QGuiApplication>(argc, argv);
        app::HostOptions options;
        options.prefsDir = m_folder.path().toStdString();
        m_host = std::make_unique<app::Host>(options);
        m_host->session().commands.remove("loadPlugin");  // a scene may name any library of this machine
        m_module->name = "fuzz";
        m_module->session = &m_host->session();
        MObject object = api::toObject(m_module);
        m_plugin.setObject(object);
        m_plugin.registerData(names::kLayerDataType, names::kLayerDataTypeId, BaseNodeLayerData::creator);
        m_plugin.registerNode(names::kNodeType, names::kNodeTypeId, BaseNode::creator, BaseNode::initialize,
                              MPxNode::kLocatorNode);
        LayerManager::setDrawingViews(&m_views);
        Preferences::instance().setGhostPrev(true);
        Preferences::instance().setGhostNext(true);
    }

    app::Host& host() { return *m_host; }
    const QTemporaryDir& folder() const { return m_folder; }

private:
    const QTemporaryDir m_folder;
    std::unique_ptr<QGuiApplication> m_application;
    std::unique_ptr<app::Host> m_host;
    std::shared_ptr<api::Module> m_module = std::make_shared<api::Module>();
    MFnPlugin m_plugin;
    HostViews m_views;
};

Environment& environment()
{
    static auto* const s_environment = new Environment;  // the process may end at any point of it
    return *s_environment;
}

constexpr int kTriedLayers = 2;  // of each of as many cameras

void drawStroke(LayerManager& drawing, const QString& camera, ToolType tool)
{
    Preferences::instance().setActiveTool(tool);
    ActiveStroke* const stroke = drawing.beginStroke(camera, false);
    if (!stroke) {
        return;
    }
    for (const QPoint position : {QPoint(-20, 5), QPoint(300, 200), QPoint(320, 1200)}) {
        stroke->points.append({9, 0.5f, 1.0f, position});
        stroke->changed = true;
        drawing.composite(camera);
    }
    Picture undo;
    if (drawing.commitStroke(camera, undo)) {
        drawing.composite(camera);
        drawing.swapActiveImage(camera, undo);
    }
    require(!drawing.hasStroke(), "a stroke that is over is no longer in progress");
}

QImage smallImage(QImage::Format format)
{
    QImage image(6, 5, QImage::Format_RGBA8888);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixelColor(x, y, QColor(40 * x, 50 * y, 200, 50 * x));
        }
    }
    return image.convertToFormat(format);
}

std::unique_ptr<Layer> sampleLayer(const QString& name, int state, const QList<int>& frameNumbers)
{
    const QImage::Format formats[] = {QImage::Format_RGBA8888, QImage::Format_ARGB32,     QImage::Format_Indexed8,
                                      QImage::Format_Mono,     QImage::Format_RGBA64,     QImage::Format_Grayscale8,
                                      QImage::Format_RGB32,    QImage::Format_Grayscale16};
    auto layer = std::make_unique<Layer>();
    layer->setName(name);
    layer->setState(state);
    layer->setVisible(state != kLayerLocked);
    layer->setOpacity(state == kLayerAnim ? 1.0f : 0.375f);
    std::size_t next = 0;
    for (const int number : frameNumbers) {
        const QByteArray png = encodePng(smallImage(formats[next++ % (sizeof formats / sizeof *formats)]));
        layer->insertFrame(Frame::fromPng(timeOfFrame(number), png));
    }
    return layer;
}

QByteArray record(LayerManager& drawing, MStatus (BaseNodeLayerData::*write)(std::ostream&))
{
    BaseNodeLayerData data;
    // Not owned: the data lives no longer than this.
    data.setLayerManager(std::shared_ptr<LayerManager>(&drawing, [](LayerManager*) {}));
    std::ostringstream out;
    require((data.*write)(out) == MS::kSuccess, "every drawing can be written");
    return QByteArray::fromStdString(out.str());
}

}  // namespace

kernel::Session& session()
{
    return environment().host().session();
}

std::string workFolder()
{
    return environment().folder().path().toStdString();
}

void require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "This does not hold: %s\n", what);
        std::abort();
    }
}

bool isDrawnOn(const std::uint8_t* bytes, std::size_t size)
{
    unsigned sum = 0;
    for (std::size_t i = 0; i < size; ++i) {
        sum = sum * 31 + bytes[i];
    }
    return sum % 64 == 0;
}

void drawOn(LayerManager& drawing)
{
    for (const QString& camera : drawing.cameras().mid(0, kTriedLayers)) {
        for (int i = 0; i < std::min(drawing.layerCount(camera), kTriedLayers); ++i) {
            drawing.setActiveLayer(camera, i, true);
            const QList<int> numbers = drawing.frameNumbers(camera);
            drawing.updateCurrentFrames(numbers.isEmpty() ? 1 : numbers[numbers.size() / 2], false);
            for (const ToolType tool : {ToolType::Brush, ToolType::Eraser, ToolType::Ellipse}) {
                drawStroke(drawing, camera, tool);
            }
        }
    }
}

QByteArray binaryRecord(LayerManager& drawing)
{
    return record(drawing, &BaseNodeLayerData::writeBinary);
}

QByteArray textRecord(LayerManager& drawing)
{
    return record(drawing, &BaseNodeLayerData::writeASCII);
}

void makeSample(int number, LayerManager& drawing)
{
    switch (number) {
    case 0: break;
    case 1: drawing.insertLayer("persp", -1, sampleLayer("Ink", kLayerAnim, {1})); break;
    case 2: drawing.insertLayer("persp", -1, sampleLayer("Empty", kLayerStatic, {})); break;
    case 3: drawing.insertLayer("persp", -1, sampleLayer("Many", kLayerAnim, {-7, 0, 1, 2, 3, 10, 2000})); break;
    case 4:
        drawing.insertLayer("persp", -1, sampleLayer(QString::fromUtf8("Übermalt 日本"), kLayerStatic, {-999}));
        drawing.insertLayer("top", -1, sampleLayer("Locked", kLayerLocked, {5, 6}));
        drawing.insertLayer("top", -1, sampleLayer("Layer 1", kLayerAnim, {5}));
        drawing.setActiveLayer("top", 1, true);
        break;
    default:
        drawing.insertLayer("persp", -1, sampleLayer("Blank", kLayerAnim, {}));
        drawing.addFrame("persp", timeOfFrame(4));
    }
    drawing.setMaster(number % 2 == 1);
}

}  // namespace fuzz
