// What is shown of layers and keys.

#include "session/sheet/Sections.h"

#include "session/sheet/Drawings.h"
#include "session/sheet/Sketch.h"
#include "settings/Preferences.h"

namespace sheet {

// Ghosts --------------------------------------------------------------------------------------------------------------

namespace {

struct GhostCount {
    int previous;
    int next;
};

void setGhosts(const GhostCount& count, bool tinted)
{
    Preferences& preferences = Preferences::instance();
    preferences.setGhostPrev(count.previous > 0);
    preferences.setGhostNext(count.next > 0);
    preferences.setGhostPrevCount(count.previous);
    preferences.setGhostNextCount(count.next);
    preferences.setGhostColorOverride(tinted);
}

/// The ball as it is shown at its middle key. Drawn anew each time: earlier ghosts outlive being switched off.
QImage ghosted(const GhostCount& count, bool tinted)
{
    Sketch sketch;
    bouncingBall(sketch, kCorner);
    setGhosts(count, tinted);
    sketch.goTo(ballFrame(kBallMiddle));
    const QImage shown = sketch.shown(QSize(Page::share(4), 292));
    setGhosts({0, 0}, false);
    return shown;
}

}  // namespace

void addGhosts(Page& page)
{
    page.section("Ghosts",
                 "Nineteen keys on every second frame, shown at the tenth. Ghosts are counted in keys, are strongest "
                 "next to the drawing and lie under every layer.");
    for (const bool tinted : {false, true}) {
        QVector<Tile> pictures;
        for (const int count : {0, 1, 3, 9}) {
            pictures << Tile{ghosted({count, count}, tinted), QString("%1 each side").arg(count)};
        }
        page.row(tinted ? "tinted" : "as drawn", Ground::Paper, pictures);
    }
    page.row("one side", Ground::Paper,
             {Tile{ghosted({9, 0}, false), "9 earlier"}, Tile{ghosted({0, 9}, false), "9 later"},
              Tile{ghosted({3, 0}, true), "3 earlier"}, Tile{ghosted({0, 3}, true), "3 later"}});
}

// Holds ---------------------------------------------------------------------------------------------------------------

namespace {

const QSize kHoldSize(Page::share(7), 230);

struct TimedLayer {
    const char* name;
    QList<int> keys;
};

/// Keys and holds of layers from frame 0 to 10 and, beyond a gap, 99; with the time that is looked at.
QImage timeStrip(const QVector<TimedLayer>& layers, int time)
{
    constexpr int kRowHeight = 16;
    constexpr int kFirst = 50;
    constexpr int kStep = 20;
    const auto left = [](int frameNumber) { return kFirst + (frameNumber > 10 ? 228 : frameNumber * kStep); };
    const int bottom = layers.size() * kRowHeight;
    QImage strip(kHoldSize.width(), bottom + 18, QImage::Format_RGB32);
    strip.fill(Page::kWell);
    QPainter painter(&strip);
    QFont font("DejaVu Sans");
    font.setPixelSize(11);
    painter.setFont(font);
    painter.fillRect(left(time), 0, kStep, strip.height(), Page::kHighlight);
    for (int i = 0; i < layers.size(); ++i) {
        const int y = i * kRowHeight;
        painter.setPen(Page::kFaintText);
        painter.drawText(QRect(0, y, kFirst - 8, kRowHeight), Qt::AlignRight | Qt::AlignVCenter, layers[i].name);
        painter.fillRect(QRect(QPoint(left(layers[i].keys.first()), y + 7), QPoint(left(99) + kStep - 1, y + 8)),
                         Page::kSeparator);
        for (const int key : layers[i].keys) {
            painter.fillRect(left(key) + 4, y + 3, kStep - 8, kRowHeight - 6, Page::kAccent);
        }
    }
    for (const int frameNumber : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 99}) {
        painter.setPen(frameNumber == time ? Qt::white : Page::kFaintText);
        painter.drawText(QRect(left(frameNumber), bottom, kStep, 18), Qt::AlignCenter, QString::number(frameNumber));
    }
    return strip;
}

}  // namespace

void addHolds(Page& page)
{
    page.section("Holds", "Every layer shows its last key at or before the time, and nothing before its first.");
    Sketch sketch;
    growingPlant(sketch, kCorner);
    QVector<Tile> pictures;
    QVector<Tile> strips;
    for (const int time : {0, 1, 4, 5, 9, 10, 99}) {
        sketch.goTo(time);
        pictures << Tile{sketch.shown(kHoldSize), QString("frame %1").arg(time)};
        strips << Tile{timeStrip({{"Anim", {1, 5, 10}}, {"Static", {0}}}, time)};
    }
    page.row("", Ground::Paper, pictures);
    page.row("", Ground::None, strips);
}

// Layers --------------------------------------------------------------------------------------------------------------

void addLayers(Page& page)
{
    page.section("Layers", "Drawn bottom first; a hidden layer is left out.");
    const struct {
        const char* caption;
        QList<int> hidden;
        int from, to;  // what is moved before that
    } cases[] = {{"Back alone", {1, 2}, 0, 0},
                 {"Middle alone", {0, 2}, 0, 0},
                 {"Front alone", {0, 1}, 0, 0},
                 {"Back, Middle, Front", {}, 0, 0},
                 {"Back, Front: Middle is hidden", {1}, 0, 0},
                 {"Back, Front, Middle", {}, 2, 1},
                 {"Front, Back, Middle", {}, 2, 0}};
    QVector<Tile> pictures;
    for (const auto& c : cases) {
        Sketch sketch;
        landscape(sketch, kCorner);
        LayerManager& drawing = sketch.drawing();
        drawing.moveLayer(drawing.currentCamera(), c.from, c.to);
        for (const int index : c.hidden) {
            drawing.setLayerVisible(drawing.currentCamera(), index, false);
        }
        pictures << Tile{sketch.shown(QSize(Page::share(7), 220)), c.caption};
    }
    page.row("", Ground::LightChecks, pictures);
}

}  // namespace sheet
