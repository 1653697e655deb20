// The transform tool as its user works it: a real pointer, real keys and the menu of the right button. What comes of it
// is read from the scene that the program saves.

#include "support/Pixels.h"
#include "support/PointedPopup.h"
#include "support/TransformFixture.h"

#include <QPainter>

#include <algorithm>

using support::PointedPopup;
using support::PointedTransform;

namespace {

constexpr QPoint kViewCorner(0, (kCanvas - kView.height()) / 2);
const QRect kRegion(200, 460, 120, 80);  // on the canvas

const QImage kEmpty = [] {
    QImage canvas(kCanvas, kCanvas, QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    return canvas;
}();

/// Every pixel of the region is another one, of any opacity; around it are some that nothing may touch.
QImage unevenDrawing()
{
    QImage canvas = kEmpty;
    for (int y = kRegion.top(); y <= kRegion.bottom(); ++y) {
        for (int x = kRegion.left(); x <= kRegion.right(); ++x) {
            canvas.setPixelColor(x, y, QColor(x % 256, y % 256, (x * y) % 256, 1 + (x * 7 + y * 13) % 255));
        }
    }
    QPainter painter(&canvas);
    painter.fillRect(kRegion.left() - 60, kRegion.top() - 20, 40, 140, QColor(90, 200, 120, 180));
    return canvas;
}

/// Where the view shows a canvas pixel. A press is told to the tool by the lower edge of the pixel under it, the place
/// of a menu by the upper one.
QPoint menuAt(const QPoint& canvasPixel)
{
    return canvasPixel - kViewCorner;
}

QPoint pressAt(const QPoint& canvasPixel)
{
    return menuAt(canvasPixel) - QPoint(0, 1);
}

// --- whole pixels ---------------------------------------------------------------------------------------------------

/// A drawing without what the region held, or with a piece laid somewhere else.
QImage cleared(QImage drawing)
{
    for (int y = kRegion.top(); y <= kRegion.bottom(); ++y) {
        std::fill_n(drawing.scanLine(y) + 4 * kRegion.left(), 4 * kRegion.width(), uchar(0));
    }
    return drawing;
}

QImage laid(QImage drawing, const QImage& piece, const QPoint& corner)
{
    for (int y = 0; y < piece.height(); ++y) {
        for (int x = 0; x < piece.width(); ++x) {
            drawing.setPixel(corner + QPoint(x, y), piece.pixel(x, y));
        }
    }
    return drawing;
}

const QPoint kFar(430, -30);   // how far it is moved
const QPoint kAway(600, 500);  // where it is pasted
const QPoint kTurnedCorner = kRegion.topLeft() + QPoint(60, 40) - QPoint(40, 60);

void begin(PointedTransform& tool)
{
    tool.begin(pressAt(kRegion.topLeft()), pressAt(kRegion.bottomRight()));
}

bool chooseFor(PointedTransform& tool, const char* entry)
{
    tool.select(pressAt(kRegion.bottomRight()), pressAt(kRegion.topLeft()));
    return tool.choose(entry);
}

struct Action {
    const char* name;
    void (*act)(PointedTransform& tool);
    int steps;  ///< to be undone
    QImage (*result)(const QImage& before, const QImage& piece);
};

QImage unchanged(const QImage& before, const QImage&)
{
    return before;
}

QImage copied(const QImage& before, const QImage& piece)
{
    return laid(before, piece, kAway);
}

const Action kActions[] = {
    {"move",
     [](PointedTransform& tool) {
         begin(tool);
         tool.move(kFar);
         tool.apply();
     },
     1,
     [](const QImage& before, const QImage& piece) { return laid(cleared(before), piece, kRegion.topLeft() + kFar); }},
    {"turn by 90",
     [](PointedTransform& tool) {
         begin(tool);
         tool.turn(90);
         tool.apply();
     },
     1,
     [](const QImage& before, const QImage& piece) {
         return laid(cleared(before), piece.transformed(QTransform().rotate(90)), kTurnedCorner);
     }},
    {"flip horizontal",
     [](PointedTransform& tool) {
         begin(tool);
         tool.choose("Flip Horizontal");
         tool.apply();
     },
     1,
     [](const QImage& before, const QImage& piece) {
         return laid(before, piece.mirrored(true, false), kRegion.topLeft());
     }},
    {"flip vertical",
     [](PointedTransform& tool) {
         begin(tool);
         tool.choose("Flip Vertical");
         tool.choose("Apply Transform");
     },
     1,
     [](const QImage& before, const QImage& piece) {
         return laid(before, piece.mirrored(false, true), kRegion.topLeft());
     }},
    {"flip twice",
     [](PointedTransform& tool) {
         for (int flip = 0; flip < 2; ++flip) {
             begin(tool);
             tool.choose("Flip Horizontal");
             tool.apply();
         }
     },
     2, unchanged},
    {"cut", [](PointedTransform& tool) { chooseFor(tool, "Cut"); }, 1,
     [](const QImage& before, const QImage&) { return cleared(before); }},
    {"cut, pasted at the same place",
     [](PointedTransform& tool) {
         chooseFor(tool, "Cut");
         tool.choose("Paste", menuAt(kRegion.topLeft()));
     },
     2, unchanged},
    {"copy", [](PointedTransform& tool) { chooseFor(tool, "Copy"); }, 0, unchanged},
    {"copy, pasted",
     [](PointedTransform& tool) {
         chooseFor(tool, "Copy");
         tool.choose("Paste", menuAt(kAway));
     },
     1, copied},
    {"paste and transform",
     [](PointedTransform& tool) {
         chooseFor(tool, "Copy");
         tool.choose("Paste and Transform", menuAt(kAway - QPoint(100, 20)));
         tool.move({100, 20});
         tool.apply();
     },
     1, copied},
    {"transform copy",
     [](PointedTransform& tool) {
         chooseFor(tool, "Transform Copy");
         tool.move(kAway - kRegion.topLeft());
         tool.apply();
     },
     1, copied},
    {"the whole canvas",
     [](PointedTransform& tool) {
         tool.apply();
         tool.turn(180);
         tool.apply();
     },
     1, [](const QImage& before, const QImage&) { return before.mirrored(true, true); }},
    {"revert",
     [](PointedTransform& tool) {
         begin(tool);
         tool.move(kFar);
         tool.revert();
     },
     0, unchanged},
    {"cancel",
     [](PointedTransform& tool) {
         begin(tool);
         tool.turn(30);
         tool.cancel();
     },
     0, unchanged},
};

class Transform : public TransformFixture {
protected:
    void SetUp() override
    {
        TransformFixture::SetUp();
        open(unevenDrawing());
    }
    static void undo(int steps) { run(QString("for ($i = 0; $i < %1; ++$i) undo").arg(steps)); }
    static void redo(int steps) { run(QString("for ($i = 0; $i < %1; ++$i) redo").arg(steps)); }
    /// Goes to another time, and through another camera, without a step.
    static void go(const QString& text)
    {
        run(QString("undoInfo -stateWithoutFlush off; %1; undoInfo -stateWithoutFlush on").arg(text));
    }
    static int said(const char* message) { return host().output().count(message); }
};

QImage picture(const QByteArray& drawing, int index = 0)
{
    return pixels::seen(support::framePictures(drawing).value(index));
}

}  // namespace

TEST_F(Transform, MovesTurnsFlipsAndPastesWholePixelsInStepsThatAreUndone)
{
    for (const Action& action : kActions) {
        SCOPED_TRACE(action.name);
        open(unevenDrawing());
        const QByteArray before = drawing();
        action.act(tool());
        const QByteArray after = drawing();
        const QImage expected = action.result(picture(before), picture(before).copy(kRegion));
        EXPECT_TRUE(picture(after) == expected);
        undo(action.steps);
        EXPECT_TRUE(drawing() == before);
        EXPECT_EQ(run("undoInfo -q -undoName"), "");
        redo(action.steps);
        EXPECT_TRUE(drawing() == after);
    }
}

TEST_F(Transform, PastesAtAnotherTimeAndForAnotherCamera)
{
    const QByteArray before = drawing();
    const QImage piece = picture(before).copy(kRegion);
    chooseFor(tool(), "Cut");
    const QByteArray cut = drawing();
    go("currentTime 5; lookThru stageView side; setAttr sideShape.filmFit 1");
    tool().choose("Paste", menuAt(kAway));
    const QByteArray pasted = drawing();
    ASSERT_EQ(support::framePictures(pasted).size(), 2);
    EXPECT_EQ(picture(pasted, 0), picture(cut)) << "cameras stand by their names";
    EXPECT_TRUE(picture(pasted, 1) == laid(kEmpty, piece, kAway));
    undo(1);
    EXPECT_TRUE(drawing() == cut);
    undo(1);
    EXPECT_TRUE(drawing() == before);
    redo(2);
    EXPECT_TRUE(drawing() == pasted);
}

TEST_F(Transform, APasteThatIsTakenBackTakesAlongWhatHadToBeMadeForIt)
{
    const struct {
        const char* made;
        const char* where;
    } cases[] = {{"a layer", "lookThru stageView side"},
                 {"a frame", "currentTime 5"},
                 {"a static layer's frame", "tqLumisketchLayer -add -n Still -ls 1 front"}};
    const struct {
        const char* name;
        void (PointedTransform::*end)();
    } ends[] = {{"reverted", &PointedTransform::revert}, {"cancelled", &PointedTransform::cancel}};
    for (const auto& where : cases) {
        SCOPED_TRACE(where.made);
        open(unevenDrawing());
        chooseFor(tool(), "Copy");
        go(where.where);
        const QByteArray before = drawing();
        for (const auto& end : ends) {
            tool().choose("Paste and Transform", menuAt(kAway));
            tool().turn(20);
            (tool().*end.end)();
            EXPECT_TRUE(drawing() == before) << end.name;
            EXPECT_EQ(run("undoInfo -q -undoName"), "") << end.name;
            tool().takeUp();
        }
        tool().choose("Paste", menuAt(kAway));
        const QByteArray pasted = drawing();
        EXPECT_EQ(support::framePictures(pasted).size(), 2);
        undo(1);
        EXPECT_TRUE(drawing() == before);
        redo(1);
        EXPECT_TRUE(drawing() == pasted);
    }
}

TEST_F(Transform, ItsMenuOffersWhatCanBeDone)
{
    const QStringList selecting = {"Transform", "Transform Copy", "Cut", "Copy", "Paste", "Paste and Transform"};
    const QStringList transforming = {"Apply Transform", "Revert Transform", "Flip Horizontal", "Flip Vertical"};
    PointedPopup menu(host(), host().viewRect(stage().panel()).center());
    const auto shown = [&](bool canPaste) {
        menu.open();
        QStringList labels;
        for (const QString& label : selecting + transforming + QStringList{"Cancel"}) {
            if (!menu.entryRect(label).isNull()) {
                labels << label;
            }
        }
        for (const char* entry : {"Paste", "Paste and Transform"}) {
            if (!canPaste && labels.contains(entry)) {
                host().clickControl(menu.entryRect(entry).center());
                EXPECT_FALSE(menu.entryRect(entry).isNull()) << "a click on what is greyed leaves the menu open";
            }
        }
        host().key("Escape");
        return labels;
    };
    EXPECT_EQ(shown(false), selecting + QStringList{"Cancel"});
    begin(tool());
    EXPECT_EQ(shown(false), transforming + QStringList{"Cancel"});
    tool().revert();
    chooseFor(tool(), "Copy");
    EXPECT_TRUE(tool().choose("Paste and Transform", menuAt(kAway)));
    EXPECT_EQ(shown(false), transforming + QStringList{"Cancel"}) << "what was copied can be pasted";
    tool().choose("Revert Transform");
    open(unevenDrawing());
    EXPECT_EQ(shown(false), selecting + QStringList{"Cancel"}) << "another scene has nothing to be pasted";
}

TEST_F(Transform, AHiddenOrLockedLayerIsLeftAloneAndTheToolWorksOnceItIsChosenAgain)
{
    const struct {
        const char* close;
        const char* open;
        const char* message;
    } cases[] = {{"-editVis 0 0", "-editVis 1 0", "Active layer is not visible."},
                 {"-editState 2 0", "-editState 0 0", "Active layer is locked."}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.message);
        go(QString("tqLumisketchLayer %1 front").arg(each.close));
        const QByteArray before = drawing();
        begin(tool());
        tool().move(kFar);
        tool().apply();
        chooseFor(tool(), "Cut");
        EXPECT_TRUE(drawing() == before);
        EXPECT_EQ(said(each.message), 1);

        go(QString("tqLumisketchLayer %1 front").arg(each.open));
        const QByteArray open = drawing();
        tool().takeUp();
        kActions[0].act(tool());
        EXPECT_FALSE(drawing() == open);
        undo(1);
        EXPECT_TRUE(drawing() == open);
    }
}
