// What a transform costs while it is dragged: each redraw, from the changed record to the picture that shows it, and
// the memory it takes.

#include "Distribution.h"
#include "DrawnStage.h"
#include "Require.h"

#include "support/LiteralComposite.h"
#include "support/ResidentMemory.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <cstring>
#include <functional>

#include <malloc.h>

namespace {

constexpr double kAimMs = 30;
constexpr double kAimMebibytes = 64;
constexpr double kMebibyte = 1024 * 1024;

const QRect kCanvas(0, 0, kCanvasSize, kCanvasSize);
const QRect kRegion(300, 350, 400, 300);
const QRect kOver(-kCanvasSize, -kCanvasSize, 3 * kCanvasSize, 3 * kCanvasSize);  // no region is larger

/// One step of a drag, and what it makes of the record.
using Step = std::function<void(ActiveStroke& record, int step)>;

void move(ActiveStroke& record, int step)
{
    record.translation = QPoint(step % 200 - 100, step * 7 % 300 - 150);
}

void turn(ActiveStroke& record, int step)
{
    record.angle = float(step % 360);
}

void scaleTo(ActiveStroke& record, double scale)
{
    record.scaleX = scale;
    record.scaleY = scale;
}

Step moveTurned(float angle, double scale)
{
    return [=](ActiveStroke& record, int step) {
        record.angle = angle;
        scaleTo(record, scale);
        move(record, step);
    };
}

// The pointer is held 400 pixels right of where it was pressed.
void growFromAfar(ActiveStroke& record, int)
{
    scaleTo(record, record.scaleX + 400 * 0.0001);
}

void shrinkFromAfar(ActiveStroke& record, int)
{
    scaleTo(record, std::max(record.scaleX - 400 * 0.0001 / 20, 0.1));
}

struct Row {
    const char* name;
    QRect region;
    Step step;
    int steps;
};

const Row kRows[] = {
    {"400 x 300 moved", kRegion, move, 200},
    {"canvas moved", kCanvas, move, 200},
    {"canvas turned", kCanvas, turn, 360},
    {"canvas at 33, moved", kCanvas, moveTurned(33, 1), 200},
    {"canvas grown to 25", kCanvas, growFromAfar, 600},
    {"canvas shrunk to 0.1", kCanvas, shrinkFromAfar, 600},
    {"canvas at 33, x 3.9, moved", kCanvas, moveTurned(33, 3.9), 200},
    {"canvas at 33, x 1000, moved", kCanvas, moveTurned(33, 1000), 200},
    {"canvas at 33, x 1e9, moved", kCanvas, moveTurned(33, 1e9), 200},
    {"3072 x 3072 moved", kOver, move, 200},
    {"3072 x 3072 turned", kOver, turn, 360},
    {"3072 x 3072 shrunk to 0.1", kOver, shrinkFromAfar, 600},
    {"3072 x 3072 at 33, x 3.9, moved", kOver, moveTurned(33, 3.9), 200},
};

// Samples -------------------------------------------------------------------------------------------------------------

double copyOfACanvas()
{
    static const QImage from = Figure(1).drawn();
    static QImage to = blankCanvas();
    return millisecondsOf([] { std::memcpy(to.bits(), from.constBits(), std::size_t(from.sizeInBytes())); });
}

struct Measured {
    std::vector<Took> redraws;
    std::vector<double> bare;
    double mebibytes = 0;  // that resident memory rose at most
};

/// Does the work of every step, after the record was changed. largestScale: where it ends.
template <class Work>
Measured measure(const Row& row, ActiveStroke& record, double largestScale, bool quick, Work work)
{
    Measured measured;
    for (int i = 0; i < row.steps; ++i) {
        row.step(record, i);
        if (record.scaleX > largestScale) {
            break;
        }
        if (!quick || i % 10 == 0) {
            measured.redraws.push_back(tookOf(work));
            measured.bare.push_back(copyOfACanvas());
        }
    }
    return measured;
}

/// Memory that was let go of is given back first, so that what is taken again counts.
template <class Work>
Measured withMemory(Work work)
{
    malloc_trim(0);
    forgetHighestResident();
    const qint64 before = residentBytes();
    Measured measured = work();
    measured.mebibytes = double(highestResidentBytes() - before) / kMebibyte;
    return measured;
}

Measured redraws(LayerManager& drawing, const Row& row, bool quick)
{
    return withMemory([&] {
        ActiveStroke* const record = drawing.beginStroke(kCamera, true);
        require(record, "a transform begins");
        record->tool = ToolType::Transform;
        record->region = row.region;
        record->takeRegion = true;
        const auto redraw = [&] {
            record->changed = true;
            drawing.composite(kCamera);
        };
        const Took taken = tookOf(redraw);  // the region, as it is
        Measured measured = measure(row, *record, 1e9, quick, redraw);
        measured.redraws.push_back(taken);
        drawing.dropStroke();
        return measured;
    });
}

/// The piece alone, all of it made anew at every redraw; up to a scale at which the machine can still hold it.
Measured plainPieces(const Row& row, bool quick)
{
    return withMemory([&] {
        const QImage region = Figure(1).drawn().copy(row.region);
        QImage canvas = blankCanvas();
        ActiveStroke record;
        record.region = row.region;
        return measure(row, record, 4, quick, [&] {
            QPainter painter(&canvas);
            literalTransform(painter, record, region);
        });
    });
}

void addLayer(LayerManager& drawing)
{
    auto frame = std::make_unique<Frame>(timeOfFrame(1));
    frame->setImage(Figure(1).drawn());
    auto layer = std::make_unique<Layer>();
    layer->insertFrame(std::move(frame));
    drawing.insertLayer(kCamera, -1, std::move(layer));
    drawing.composite(kCamera);
}

struct Memory {
    std::string name;
    double mebibytes;
    double aim;  // 0 when there is none
};

void print(const std::vector<Memory>& memories)
{
    std::printf("\n%-50s %8s\n", "Memory that a transform takes", "MiB");
    for (const Memory& m : memories) {
        std::printf("%-50s %8.1f", m.name.c_str(), m.mebibytes);
        if (m.aim > 0) {
            std::printf("  aim %g: %s", m.aim, m.mebibytes <= m.aim ? "reached" : "MISSED");
        }
        std::printf("\n");
    }
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const BenchArguments arguments(argc, argv);
    DrawnStage many;
    many.goTo(DrawnStage::kTimes[0]);
    LayerManager one;
    addLayer(one);
    const DistributionTable table("Redraw of a transform; 20 layers: 3+3 ghosts; ms", "a canvas copied: median, 95 %",
                                  arguments);
    std::vector<Memory> memories;
    for (const Row& row : kRows) {
        const auto measureIn = [&](const char* scene, double aim, double memoryAim, const auto& work) {
            const std::string name = std::string("transform, ") + scene + row.name;
            if (table.isWanted(name)) {
                const Measured measured = work();
                if (measured.redraws.empty()) {
                    return;
                }
                table.row(name, aim, measured.redraws, measured.bare);
                memories.push_back({name, measured.mebibytes, memoryAim});
            }
        };
        measureIn("1 layer: ", kAimMs, kAimMebibytes, [&] { return redraws(one, row, arguments.quick); });
        measureIn("20 layers: ", kAimMs, kAimMebibytes, [&] { return redraws(many.drawing(), row, arguments.quick); });
        measureIn("plain: ", 0, 0, [&] { return plainPieces(row, arguments.quick); });
    }
    print(memories);
    return 0;
}
