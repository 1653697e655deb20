// What the picture of a drawing costs: after a time change, while a stroke is drawn, when the pen is lifted; and what a
// frame costs to pack and unpack.

#include "Figure.h"
#include "PairedTiming.h"

#include "app/Host.h"
#include "model/Canvas.h"
#include "model/FrameNumber.h"
#include "model/PixelBudget.h"
#include "model/PngCodec.h"
#include "settings/Preferences.h"
#include "support/LiteralComposite.h"

#include <maya/MAnimControl.h>

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

#include <cmath>
#include <map>
#include <memory>

namespace {

const QString kCamera = "persp";

// Drawings ------------------------------------------------------------------------------------------------------------

// A background: colour over the whole canvas, stronger toward the bottom.
QImage wash(unsigned seed)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    QLinearGradient gradient(0, 0, 300, kCanvasSize);
    gradient.setColorAt(0, QColor(120, 170, 220, 40));
    gradient.setColorAt(1, QColor(static_cast<int>(seed * 37 % 256), 110, 60, 240));
    painter.fillRect(image.rect(), gradient);
    return image;
}

// Each is made once.
const QImage& figure(unsigned seed)
{
    static std::map<unsigned, QImage> made;
    QImage& image = made[seed];
    if (image.isNull()) {
        image = Figure(seed).drawn();
    }
    return image;
}

QImage lines(unsigned seed)
{
    return Figure(seed).lines();
}

// A scene -------------------------------------------------------------------------------------------------------------

enum class Ink { Lines, Figures, Washes };

constexpr int kTimes[] = {4, 5};  // every layer shows another key at either

// A drawing with its pictures unpacked. The active layer has keys 1 to 8, so that there are three ghosts on either
// side; the others are keyed at 1 and 5.
struct Scene {
    Scene(int layers, int activeIndex, Ink ink)
    {
        for (int i = 0; i < layers; ++i) {
            auto layer = std::make_unique<Layer>();
            for (int key = 1; key <= 8; key += i == activeIndex ? 1 : 4) {
                layer->insertFrame(frame(i, key, ink));
            }
            layer->setState(kLayerStatic);
            drawing.insertLayer(kCamera, -1, std::move(layer));
        }
        drawing.setActiveLayer(kCamera, activeIndex, true);
        goTo(kTimes[0]);
    }

    // Every other layer has the format that pictures have when they are read from a file.
    static std::unique_ptr<Frame> frame(int layerIndex, int key, Ink ink)
    {
        const unsigned seed = static_cast<unsigned>(100 * layerIndex + key);
        const QImage image = ink == Ink::Lines ? lines(seed) : ink == Ink::Figures ? figure(seed) : wash(seed);
        auto made = std::make_unique<Frame>(timeOfFrame(key));
        made->setImage(layerIndex % 2 == 1 ? image.convertToFormat(QImage::Format_ARGB32) : image);
        return made;
    }

    void goTo(int frameNumber)
    {
        MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
        drawing.updateCurrentFrames(frameNumber, false);
    }

    const QImage& composePlain() { return plain.compose(drawing, kCamera, false); }

    LayerManager drawing;
    LiteralCompositor plain;
};

void setGhosts(bool on)
{
    Preferences& preferences = Preferences::instance();
    preferences.setGhostPrev(on);
    preferences.setGhostNext(on);
    preferences.setGhostPrevCount(3);
    preferences.setGhostNextCount(3);
}

// The plain picture does not consume what changed, so each side has a scene of its own.
struct Scenes {
    Scenes(int layers, int activeIndex, Ink ink) : plain(layers, activeIndex, ink), ours(layers, activeIndex, ink) {}

    Scene plain;
    Scene ours;
};

// Time changes --------------------------------------------------------------------------------------------------------

template <class Compose>
PairedTiming::Side timeChange(Scene& scene, Compose compose)
{
    int turn = 0;
    return [&scene, compose, turn]() mutable {
        const int frameNumber = kTimes[++turn % 2];
        MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
        return millisecondsOf([&] {
            scene.drawing.updateCurrentFrames(frameNumber, false);
            compose(scene);
        });
    };
}

void composeOurs(Scene& scene)
{
    scene.drawing.composite(kCamera);
}

void composePlain(Scene& scene)
{
    scene.composePlain();
}

void measureTimeChanges(const PairedTiming& timing)
{
    const struct {
        const char* name;
        int layers;
        Ink ink;
        double required;
    } drawings[] = {{"5 line drawings", 5, Ink::Lines, 4},
                    {"20 line drawings", 20, Ink::Lines, 4},
                    {"5 shaded figures", 5, Ink::Figures, 4},
                    {"20 shaded figures", 20, Ink::Figures, 4},
                    {"5 washes", 5, Ink::Washes, 0}};
    for (const auto& d : drawings) {
        Scenes scenes(d.layers, d.layers / 2, d.ink);
        for (const bool ghosts : {false, true}) {
            setGhosts(ghosts);
            timing.row(std::string("time change, ") + d.name + (ghosts ? ", 3+3 ghosts" : ""), d.required,
                       timeChange(scenes.plain, composePlain), timeChange(scenes.ours, composeOurs));
        }
    }
}

void measureTint(const PairedTiming& timing)
{
    const struct {
        const char* name;
        QImage image;
        double required;
    } images[] = {
        {"tint a line drawing", lines(1), 10}, {"tint a shaded figure", figure(1), 10}, {"tint a wash", wash(1), 0}};
    for (const auto& i : images) {
        QImage plain = i.image.copy();
        InkedImage ours = {i.image.copy(), InkMap::of(i.image)};
        timing.row(
            i.name, i.required, [&plain] { return millisecondsOf([&] { literalTint(plain, QColor(200, 40, 30)); }); },
            [&ours] { return millisecondsOf([&] { tintImage(ours, QColor(200, 40, 30)); }); });
    }
}

// Strokes -------------------------------------------------------------------------------------------------------------

// The pen over the figure, 5 to 18 pixels from point to point.
StrokePoint penAt(int i, int width)
{
    const double t = i * 0.02;
    return penPoint(QPointF(512 + 250 * std::sin(2 * t), 512 + 250 * std::cos(3 * t)), width, 0.8f);
}

ActiveStroke& beginStroke(Scene& scene, ToolType tool)
{
    Preferences::instance().setActiveTool(tool);
    ActiveStroke& record = *scene.drawing.beginStroke(kCamera, false);
    scene.plain.beginStroke(scene.drawing, kCamera, false);
    return record;
}

// A refresh with one more point, of a stroke begun anew when it has become long.
template <class Compose>
PairedTiming::Side refresh(Scene& scene, int width, Compose compose)
{
    constexpr int kLongStroke = 200;
    return [&scene, width, compose] {
        if (ActiveStroke* old = scene.drawing.stroke(kCamera); old && old->points.size() >= kLongStroke) {
            scene.drawing.dropStroke();
        }
        const bool beginning = !scene.drawing.hasStroke();
        ActiveStroke& record = beginning ? beginStroke(scene, ToolType::Brush) : *scene.drawing.stroke(kCamera);
        if (beginning) {
            record.points << penAt(0, width);
            record.changed = true;
            compose(scene);
        }
        record.points << penAt(record.points.size(), width);
        record.changed = true;
        return millisecondsOf([&] { compose(scene); });
    };
}

void measureRefresh(const PairedTiming& timing, Scenes& scenes, const std::string& name, int width, double required)
{
    timing.row(name + ", brush " + std::to_string(width) + " px", required, refresh(scenes.plain, width, composePlain),
               refresh(scenes.ours, width, composeOurs));
    scenes.plain.drawing.dropStroke();
    scenes.ours.drawing.dropStroke();
}

void measureRefreshes(const PairedTiming& timing)
{
    setGhosts(true);
    {
        Scenes scenes(20, 10, Ink::Figures);
        measureRefresh(timing, scenes, "refresh, 20 layers, 3+3 ghosts", 5, 600);
        measureRefresh(timing, scenes, "refresh, 20 layers, 3+3 ghosts", 20, 600);
        measureRefresh(timing, scenes, "refresh, 20 layers, 3+3 ghosts", 100, 75);
    }
    const struct {
        const char* name;
        int layers;
        int activeIndex;
    } places[] = {{"refresh, bottom of 20, 3+3 ghosts", 20, 0},
                  {"refresh, top of 20, 3+3 ghosts", 20, 19},
                  {"refresh, on 5 others, 3+3 ghosts", 6, 5},
                  {"refresh, on 10 others, 3+3 ghosts", 11, 10}};
    for (const auto& place : places) {
        Scenes scenes(place.layers, place.activeIndex, Ink::Figures);
        measureRefresh(timing, scenes, place.name, 20, 0);
    }
}

// The frame has been drawn on before in the session, so nobody has encoded it yet. The plain side encodes the undo
// record at once. Ours keeps the picture as it is, and encodes it when it is packed or saved, which is not timed here.
template <class Commit>
PairedTiming::Side penUp(Scene& scene, ToolType tool, int width, Commit commit)
{
    Layer* layer = scene.drawing.activeLayer(kCamera);
    const QImage drawnBefore = asCanvas(layer->currentFrame()->image());
    return [&scene, tool, width, commit, layer, drawnBefore] {
        layer->setCurrentImage(drawnBefore.copy());
        ActiveStroke& record = beginStroke(scene, tool);
        for (int i = 0; i < 60; ++i) {
            record.points << penAt(i, width);
        }
        record.changed = true;
        composePlain(scene);
        composeOurs(scene);
        const double time = millisecondsOf([&] { commit(scene); });
        scene.drawing.dropStroke();
        return time;
    };
}

void measurePenUp(const PairedTiming& timing)
{
    setGhosts(false);
    Scenes scenes(1, 0, Ink::Figures);
    const struct {
        const char* name;
        ToolType tool;
        int width;
    } strokes[] = {{"pen-up without encoding, pencil 6 px", ToolType::Pencil, 6},
                   {"pen-up without encoding, brush 60 px", ToolType::Brush, 60},
                   {"pen-up without encoding, eraser 60 px", ToolType::Eraser, 60}};
    for (const auto& s : strokes) {
        timing.row(
            s.name, 15,
            penUp(scenes.plain, s.tool, s.width, [](Scene& scene) { scene.plain.commit(scene.drawing, kCamera); }),
            penUp(scenes.ours, s.tool, s.width, [](Scene& scene) {
                Picture undo;
                scene.drawing.commitStroke(kCamera, undo);
            }));
    }
}

// Frames --------------------------------------------------------------------------------------------------------------

void measurePacking(const PairedTiming& timing)
{
    const QImage image = figure(3);
    const QByteArray png = encodePng(image);
    const auto encode = [&image] { return millisecondsOf([&] { encodePng(image); }); };
    const auto decode = [&png] { return millisecondsOf([&] { decodePng(png); }); };
    const auto clean = Frame::fromPng(timeOfFrame(1), png);
    timing.row("pack an unchanged frame, against encoding it", 100, encode, [&clean] {
        clean->image();
        return millisecondsOf([&] { clean->pack(); });
    });
    Frame changed(timeOfFrame(1));
    timing.row("pack a changed frame", 0, encode, [&] {
        changed.setImage(image);
        return millisecondsOf([&] { changed.pack(); });
    });
    timing.row("unpack a frame", 0, decode, [&clean] {
        clean->pack();
        return millisecondsOf([&] { clean->image(); });
    });
}

}  // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir prefs;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", prefs.path().toUtf8());  // or the platform warns
    }
    QApplication application(argc, argv);
    app::HostOptions options;
    options.prefsDir = prefs.path().toStdString();
    app::Host host(options);
    PixelBudget::instance().setLimit(qint64(4) << 30);  // pictures are unpacked in all that is timed
    const std::string title = "picture; figures ink " + std::to_string(inkedPercent(figure(1))) + " % of the pixels";
    const PairedTiming timing(title.c_str(), BenchArguments(argc, argv));
    measureTimeChanges(timing);
    measureTint(timing);
    measureRefreshes(timing);
    measurePenUp(timing);
    measurePacking(timing);
    return 0;
}
