// What is shown of the keys around.

#include "session/sheet/Sections.h"

#include "session/sheet/Drawings.h"
#include "session/sheet/Sketch.h"
#include "settings/Preferences.h"

namespace sheet {

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

}  // namespace sheet
