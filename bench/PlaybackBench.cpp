// Playback in the program's own window: an image sequence behind a camera, and over it a drawing that changes with
// every frame. How many frames a second reach the screen and how many of those due are dropped, in the scene's time;
// and how many a second when every frame is shown. Needs a display with OpenGL.

#include "BenchArguments.h"
#include "Figure.h"
#include "Require.h"

#include "app/Batch.h"
#include "app/Host.h"
#include "app/MainWindow.h"
#include "model/BaseNodeLayerData.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "model/PngCodec.h"
#include "session/Plates.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace {

constexpr int kPoses = 12;
constexpr double kRate = 24;  // of the scene
constexpr char kEveryFrame[] = "0";
constexpr char kRealTime[] = "1";

/// The same poses on every layer, each layer one behind the one before.
std::shared_ptr<LayerManager> drawing(int layerCount)
{
    std::vector<QByteArray> poses;
    for (unsigned seed = 1; seed <= kPoses; ++seed) {
        poses.push_back(encodePng(Figure(seed).drawn()));
    }
    auto made = std::make_shared<LayerManager>();
    for (int i = 0; i < layerCount; ++i) {
        auto layer = std::make_unique<Layer>();
        for (int key = 1; key <= session::kPlateCount; ++key) {
            auto frame = std::make_unique<Frame>(timeOfFrame(key));
            frame->setPicture(Picture::fromPng(poses[static_cast<std::size_t>(key + i) % kPoses]));
            layer->insertFrame(std::move(frame));
        }
        made->insertLayer("persp", -1, std::move(layer));
    }
    return made;
}

/// A scene with that drawing, as a file.
std::string drawnScene(const QTemporaryDir& folder, int layerCount)
{
    const std::string path = folder.filePath(QString("layers%1.ma").arg(layerCount)).toStdString();
    std::ofstream scene(path, std::ios::binary);
    scene << "//Maya ASCII 2019 scene\n"
             "createNode transform -n \"lumisketch\";\n"
             "createNode tqLumisketch -n \"lumisketchShape\" -p \"lumisketch\";\n"
             "setAttr \".ld\" -type \"tqLayerData\" ";
    BaseNodeLayerData data;
    data.setLayerManager(drawing(layerCount));
    require(data.writeASCII(scene) && scene << ";\n", "the drawing is written");
    return path;
}

class Stage {
public:
    Stage()
    {
        require(m_host.loadModule(app::ownModulePath(QApplication::applicationDirPath().toStdString())),
                "the module is loaded");
        require(session::writePlates(QDir(m_folder.path())), "the plates are written");
        m_window.resize(1440, 900);
        m_window.show();
        m_host.session().events.add("timeChanged", [this] { ++m_shown; });
    }

    void open(int layerCount)
    {
        m_host.run("file -force -new");
        if (layerCount > 0) {
            m_host.run("file -import -type \"mayaAscii\" \"" + drawnScene(m_folder, layerCount) + '"');
        }
        m_host.run("createImagePlane(\"perspShape\", \"" + m_folder.filePath("plate.0001.png").toStdString()
                   + "\", 1); playbackOptions -min 1 -max " + std::to_string(session::kPlateCount));
        play(kEveryFrame, 2000);  // every picture is decoded once
    }

    /// Frames a second that reached the screen: none is taken before the one before has.
    double play(const char* speed, int milliseconds)
    {
        m_host.run(std::string("playbackOptions -playbackSpeed ") + speed + "; play -state on");
        m_shown = 0;
        QElapsedTimer clock;
        clock.start();
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, SLOT(quit()));
        loop.exec();
        const double rate = 1000.0 * m_shown / double(clock.elapsed());
        m_host.run("play -state off");
        return rate;
    }

private:
    QTemporaryDir m_folder;
    app::Host m_host{hostOptions(m_folder)};
    app::MainWindow m_window{m_host};
    int m_shown = 0;

    static app::HostOptions hostOptions(const QTemporaryDir& folder)
    {
        app::HostOptions options;
        options.batch = false;
        options.prefsDir = folder.path().toStdString();
        return options;
    }
};

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);  // as the program has it
    const QApplication application(argc, argv);
    if (QGuiApplication::platformName() == "offscreen") {
        std::printf("\nPlayback: no OpenGL on this platform\n");
        return 0;
    }
    const BenchArguments arguments(argc, argv);
    const int milliseconds = arguments.quick ? 2000 : 6000;
    const struct {
        const char* name;
        int layerCount;
    } rows[] = {{"playback of an image sequence", 0},
                {"playback with a drawing of 1 layer over it", 1},
                {"playback with a drawing of 10 layers over it", 10}};
    std::printf("\n%-52s %11s %11s %11s\n", "Frames a second in a window of 1440 x 900", "at 24 fps", "dropped",
                "every frame");
    Stage stage;
    for (const auto& row : rows) {
        if (arguments.isWanted(row.name)) {
            stage.open(row.layerCount);
            const double inTime = stage.play(kRealTime, milliseconds);
            const double dropped = std::max(0.0, 1 - inTime / kRate);
            std::printf("%-52s %11.1f %9.0f %% %11.1f\n", row.name, inTime, 100 * dropped,
                        stage.play(kEveryFrame, milliseconds));
            std::fflush(stdout);
        }
    }
    return 0;
}
