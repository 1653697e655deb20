#include "support/ToolFixture.h"

#include "contexts/TransformContext.h"
#include "contexts/TransformContextCommand.h"
#include "model/Canvas.h"

#include "api/DrawList.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char kSelectingHelp[] =
    "Select region to transform and press Enter. No selection will apply transform to entire image.";
const char kTransformingHelp[] =
    "Translate(LMB)  Rotate(Shift+LMB)  Scale(MMB)  Apply Changes(Enter)  Revert(Backspace)  Cancel(ESC)";

/// The tool in a view that shows the canvas at half its size: view pixel (x, y) is canvas pixel (2x, 1024 - 2y). The
/// camera's drawing is a box of ink, its left half red, its right half blue.
class TransformContextTest : public ToolFixture {
protected:
    TransformContextTest()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kTransformContextCommand, TransformContextCommand::creator));
        session().commands.add(names::kUtilCommand, [this](const kernel::ValueList& args) {
            toolSwitches.push_back(textOf(args));
            return kernel::Value();
        });
        draw("persp");
        run("tqLmTransformCtx transformTool; setToolTo transformTool");
    }
    ~TransformContextTest() override { run("setToolTo selectSuperContext"); }

    static QImage inked(const QRect& box)
    {
        QImage image = blankCanvas();
        for (int y = box.top(); y <= box.bottom(); ++y) {
            for (int x = box.left(); x <= box.right(); ++x) {
                image.setPixelColor(x, y, x - box.left() < box.width() / 2 ? Qt::red : Qt::blue);
            }
        }
        return image;
    }
    void draw(const QString& camera)
    {
        drawing().insertLayer(camera, -1, "Ink");
        drawing().addFrameAtCurrentTime(camera);
        drawing().activeLayer(camera)->setCurrentImage(inked(kInk));
    }

    void send(api::ToolEvent::Kind kind, const QPoint& at, api::ToolEvent::Button button, bool shift)
    {
        api::ToolEvent event;
        event.kind = kind;
        event.x = at.x();
        event.y = at.y();
        event.button = button;
        event.shift = shift;
        const auto manager = api::makeDrawManager(lines);
        api::FrameState state;
        const auto frame = api::makeFrameContext(state);
        lines.items.clear();
        api::ToolBox::instance().send(event, drawsInViewport2 ? manager.get() : nullptr, frame.get());
    }
    void drag(const QPoint& from, const QPoint& to, api::ToolEvent::Button button = api::ToolEvent::Button::Left,
              bool shift = false)
    {
        send(api::ToolEvent::Kind::Press, from, button, shift);
        send(api::ToolEvent::Kind::Drag, to, button, shift);
        send(api::ToolEvent::Kind::Release, to, button, shift);
    }
    void enter() { api::ToolBox::instance().complete(); }
    void backspace() { api::ToolBox::instance().deleteAction(); }
    void escape() { api::ToolBox::instance().abort(); }
    static TransformContext& tool() { return static_cast<TransformContext&>(*api::ToolBox::instance().current()); }
    std::string help() const { return api::ToolBox::instance().helpString(); }

    /// Selects the ink in a view, from below and right to above and left.
    void selectInk() { drag(kInkLowerRight, kInkUpperLeft); }
    void floatInk()
    {
        selectInk();
        enter();
    }
    const ActiveStroke* record(const QString& camera = "persp") { return drawing().stroke(camera); }
    /// What a press of the right button in a view opens; null when nothing.
    QMenu* openMenu(TestView& view, const QPoint& at = QPoint(10, 10), Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QMouseEvent press(QEvent::MouseButtonPress, at, Qt::RightButton, Qt::RightButton, keys);
        press.ignore();
        const bool consumed = QCoreApplication::sendEvent(view.widget(), &press);
        QMenu* const menu = view.widget()->findChild<QMenu*>();
        EXPECT_EQ(consumed && menu, menu != nullptr) << "a press that opens the menu goes no further";
        return menu;
    }
    static void close(QMenu* menu) { delete menu; }
    /// The items from top to bottom, "-" for a separator, those that cannot be chosen in brackets.
    std::vector<std::string> items()
    {
        QMenu* const menu = openMenu(views.persp());
        std::vector<std::string> texts;
        for (const QAction* action : menu->actions()) {
            const std::string text = action->isSeparator() ? "-" : action->text().toStdString();
            texts.push_back(action->isEnabled() ? text : "(" + text + ")");
        }
        close(menu);
        return texts;
    }
    /// at: widget pixels, y pointing down.
    void choose(const QString& item, const QPoint& at = QPoint(10, 10))
    {
        QMenu* const menu = openMenu(views.persp(), at);
        for (QAction* action : menu->actions()) {
            if (action->text() == item) {
                EXPECT_TRUE(action->isEnabled()) << item.toStdString();
                action->trigger();
            }
        }
        close(menu);
    }
    void pressBackslash(bool down)
    {
        QKeyEvent event(down ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Backslash, Qt::NoModifier);
        QCoreApplication::sendEvent(views.persp().widget(), &event);
    }
    QImage drawn(const QString& camera = "persp") { return drawing().activeLayer(camera)->currentFrame()->image(); }
    /// Of the outline, where the tool's view shows it.
    QPointF corner(size_t index) { return cornersInView(node().regionOutline().corners, node().toolMetrics())[index]; }
    QRect shownInk() { return pixels::inkBox(*drawing().composite("persp")); }

    const QRect kInk{100, 200, 40, 20};
    const QPoint kInkUpperLeft{50, 412};
    const QPoint kInkLowerRight{70, 402};
    const QRect kRegion{QPoint(100, 200), QPoint(140, 220)};
    std::vector<std::string> toolSwitches;
    api::DrawList lines;
    bool drawsInViewport2 = true;
};

TEST_F(TransformContextTest, EnterWithoutASelectionTakesTheWholeCanvas)
{
    EXPECT_EQ(help(), kSelectingHelp);
    enter();
    ASSERT_NE(record(), nullptr);
    EXPECT_EQ(record()->tool, ToolType::Transform);
    EXPECT_EQ(record()->region, QRect(QPoint(0, 0), QPoint(1023, 1023)));
    EXPECT_EQ(help(), kTransformingHelp);
    EXPECT_EQ(node().regionOutline().camera, "persp");
    EXPECT_EQ(corner(0), QPointF(0, 512));
    EXPECT_EQ(corner(2), QPointF(512, 0));

    backspace();
    drag({60, 60}, {60, 60});
    enter();
    ASSERT_NE(record(), nullptr) << "a click selects nothing";
    EXPECT_EQ(record()->region.size(), QSize(1024, 1024));
}

TEST_F(TransformContextTest, ASelectedRegionIsSeenWhereItIsDraggedAndAppliedByOneCommand)
{
    selectInk();
    EXPECT_EQ(record(), nullptr);
    EXPECT_EQ(corner(0), QPointF(kInkLowerRight)) << "where the drag began";
    EXPECT_EQ(corner(2), QPointF(kInkUpperLeft));
    enter();
    ASSERT_NE(record(), nullptr);
    EXPECT_EQ(record()->region, kRegion);
    EXPECT_EQ(shownInk(), kInk) << "floats where it was";

    const unsigned undoSteps = session().undo.count();
    drag({300, 300}, {310, 295});
    drag({300, 300}, {305, 300});
    EXPECT_EQ(record()->translation, QPoint(30, 10));
    EXPECT_EQ(shownInk(), kInk.translated(30, 10));
    EXPECT_EQ(drawn().pixelColor(101, 201), QColor(Qt::red)) << "the drawing itself is not changed yet";
    EXPECT_EQ(corner(0), QPointF(kInkUpperLeft + QPoint(15, -5)));
    EXPECT_EQ(session().undo.count(), undoSteps);

    enter();
    EXPECT_THAT(commits, ElementsAre("persp"));
    EXPECT_TRUE(pixels::same(drawn(), inked(kInk.translated(30, 10))));
    EXPECT_FALSE(drawing().hasStroke());
    EXPECT_EQ(help(), kSelectingHelp);
    EXPECT_TRUE(node().regionOutline().camera.isEmpty());
    host().drainIdle();
    EXPECT_THAT(toolSwitches, ElementsAre("-transform"));
}

TEST_F(TransformContextTest, TheNextTransformBeginsFromNothingWhetherOrNotTheHostEntersTheToolAnew)
{
    for (const bool entersAnew : {false, true}) {
        floatInk();
        drag({300, 300}, {310, 300}, api::ToolEvent::Button::Left, true);
        drag({300, 300}, {310, 300}, api::ToolEvent::Button::Middle);
        enter();
        if (entersAnew) {
            run("setToolTo transformTool");
        }
        enter();
        ASSERT_NE(record(), nullptr);
        EXPECT_EQ(record()->region.size(), QSize(1024, 1024));
        EXPECT_EQ(record()->angle, 0);
        EXPECT_EQ(record()->scaleX, 1);
        backspace();
    }
    EXPECT_EQ(commits.size(), 2u);
}

TEST_F(TransformContextTest, ShiftTurnsAndTheMiddleButtonScales)
{
    floatInk();
    drag({300, 300}, {390, 250}, api::ToolEvent::Button::Left, true);
    EXPECT_EQ(record()->angle, 90);
    // 41 by 21 turned about its centre, seen as 21 by 41; the ink is the region less its last row and column.
    EXPECT_EQ(shownInk().size(), QSize(20, 40));
    EXPECT_EQ(drawing().composite("persp")->pixelColor(shownInk().center().x(), shownInk().top() + 2), QColor(Qt::red))
        << "turned clockwise";
    EXPECT_NEAR(corner(0).x(), 65.5, 1);
    EXPECT_NEAR(corner(0).y(), 417.5, 1);
    backspace();

    floatInk();
    drag({100, 100}, {-9900, 100}, api::ToolEvent::Button::Middle);
    EXPECT_FLOAT_EQ(float(record()->scaleX), 0.1f);
    EXPECT_FLOAT_EQ(float(record()->scaleY), 0.1f);
    drag({100, 100}, {100, 10100}, api::ToolEvent::Button::Middle, true);
    EXPECT_NEAR(record()->scaleX, 0.1, 1e-3);
    EXPECT_NEAR(record()->scaleY, 1.1, 1e-3);
}

TEST_F(TransformContextTest, AButtonThatStartedNothingDragsNothing)
{
    drag({10, 10}, {80, 80}, api::ToolEvent::Button::Middle);
    EXPECT_TRUE(node().regionOutline().camera.isEmpty());
    send(api::ToolEvent::Kind::Press, kInkUpperLeft, api::ToolEvent::Button::Left, false);
    send(api::ToolEvent::Kind::Drag, kInkLowerRight, api::ToolEvent::Button::Left, false);
    enter();
    send(api::ToolEvent::Kind::Drag, {200, 200}, api::ToolEvent::Button::Left, false);
    EXPECT_EQ(record()->region, kRegion) << "the key ended the selection";
    EXPECT_EQ(record()->translation, QPoint());
    EXPECT_EQ(corner(0), QPointF(kInkUpperLeft));
    EXPECT_NE(corner(2), QPointF(200, 200));
}

TEST_F(TransformContextTest, TheOutlineIsDrawnDuringADrag)
{
    send(api::ToolEvent::Kind::Press, kInkUpperLeft, api::ToolEvent::Button::Left, false);
    send(api::ToolEvent::Kind::Drag, kInkLowerRight, api::ToolEvent::Button::Left, false);
    EXPECT_EQ(lines.items.size(), 4u);
    send(api::ToolEvent::Kind::Release, kInkLowerRight, api::ToolEvent::Button::Left, false);
    enter();
    send(api::ToolEvent::Kind::Press, {300, 300}, api::ToolEvent::Button::Left, false);
    send(api::ToolEvent::Kind::Drag, {310, 320}, api::ToolEvent::Button::Left, false);
    ASSERT_EQ(lines.items.size(), 4u);
    EXPECT_EQ(lines.items[0].points[0].x, 60);
    EXPECT_EQ(lines.items[0].points[0].y, 432);
    send(api::ToolEvent::Kind::Release, {310, 320}, api::ToolEvent::Button::Left, false);

    send(api::ToolEvent::Kind::Press, {300, 300}, api::ToolEvent::Button::Middle, false);
    send(api::ToolEvent::Kind::Drag, {400, 300}, api::ToolEvent::Button::Middle, false);
    EXPECT_TRUE(lines.items.empty()) << "they would stay while scaling goes on";
    EXPECT_NE(corner(0), QPointF(60, 432)) << "the node's follow";
}

TEST_F(TransformContextTest, InALegacyViewTheOutlineIsInvertedOnceForEachRefresh)
{
    TestView& view = views.persp();
    floatInk();
    choose("Flip Horizontal");
    EXPECT_EQ(view.invertedOutlines, 0) << "Viewport 2.0 has the node draw it";
    backspace();

    view.legacy = true;
    drawsInViewport2 = false;
    view.refreshes = 0;
    floatInk();
    drag({300, 300}, {310, 300});
    EXPECT_EQ(view.invertedOutlines, 4) << "press and drag, start, drag";
    EXPECT_EQ(view.refreshes, view.invertedOutlines) << "a second one would erase the first";
    EXPECT_TRUE(lines.items.empty());
}

TEST_F(TransformContextTest, TakingBackLeavesNoTrace)
{
    drawing().insertLayer("persp", -1, "Upper");
    const QString before = describeDrawing();
    const unsigned undoSteps = session().undo.count();
    const struct {
        const char* how;
        std::function<void()> takeBack;
        std::string next;
    } ways[] = {
        {"Backspace", [this] { backspace(); }, "-transform"},
        {"Escape", [this] { escape(); }, "-draw"},
        {"leaving", [this] { run("setToolTo selectSuperContext"); }, ""},
        {"entering", [this] { run("setToolTo transformTool"); }, ""},
        {"entering without leaving",
         [] {
             MEvent event;
             tool().toolOnSetup(event);
         },
         ""},
    };
    for (const auto& way : ways) {
        run("setToolTo transformTool");
        toolSwitches.clear();
        floatInk();
        drag({300, 300}, {310, 300});
        drawing().setActiveLayer("persp", 1, false);
        way.takeBack();
        EXPECT_EQ(describeDrawing(), before) << way.how;
        EXPECT_EQ(shownInk(), kInk) << way.how;
        EXPECT_FALSE(drawing().hasStroke()) << way.how;
        EXPECT_TRUE(node().regionOutline().camera.isEmpty()) << way.how;
        host().drainIdle();
        EXPECT_EQ(toolSwitches, way.next.empty() ? std::vector<std::string>() : std::vector<std::string>{way.next})
            << way.how;
    }
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(session().undo.count(), undoSteps);
}

TEST_F(TransformContextTest, EnterTakesBackWhenTimeOrViewHasChanged)
{
    const QString before = pixels("persp");
    floatInk();
    drag({300, 300}, {310, 300});
    goTo(7);
    enter();
    EXPECT_FALSE(drawing().hasStroke());
    EXPECT_EQ(pixels("persp"), before);

    goTo(1);
    draw("top");
    floatInk();
    views.activate(views.top());
    enter();
    EXPECT_FALSE(drawing().hasStroke());
    EXPECT_EQ(pixels("persp"), before);
    EXPECT_THAT(commits, IsEmpty());
    host().drainIdle();
    EXPECT_THAT(toolSwitches, ElementsAre("-transform", "-transform"));
}

TEST_F(TransformContextTest, EnterGoesByTheTimeOfTheBeginningInWhicheverUnit)
{
    run("currentUnit -t film");
    goTo(1);
    floatInk();
    run("currentUnit -t show");
    enter();
    EXPECT_THAT(commits, ElementsAre("persp"));
    floatInk();
    run("currentUnit -t film");
    goTo(2);  // the number that it began at
    enter();
    EXPECT_FALSE(drawing().hasStroke());
    EXPECT_EQ(commits.size(), 1u);
}

TEST_F(TransformContextTest, APressInAnotherViewStopsTheToolUntilItIsSetUpAgain)
{
    floatInk();
    views.activate(views.top());
    drag({300, 300}, {310, 300});
    views.activate(views.persp());
    drag({300, 300}, {350, 300});
    tool().flip(&RegionTransform::flipHorizontal);
    EXPECT_EQ(record()->translation, QPoint());
    EXPECT_EQ(record()->scaleX, 1);
    enter();
    EXPECT_THAT(commits, IsEmpty());
    run("setToolTo transformTool");
    EXPECT_EQ(record(), nullptr);
    floatInk();
    enter();
    EXPECT_THAT(commits, ElementsAre("persp"));
}

TEST_F(TransformContextTest, ARegionFollowsThePointerInAViewThatWasResizedWhileItFloats)
{
    floatInk();
    drag({300, 300}, {310, 300});
    EXPECT_EQ(record()->translation, QPoint(20, 0));
    views.persp().widget()->resize(1024, 1024);  // from here on view pixel (x, y) is canvas pixel (x, 1024 - y)
    drag({300, 300}, {310, 295});
    EXPECT_EQ(record()->translation, QPoint(30, 5));
    EXPECT_EQ(corner(0), QPointF(130, 1024 - 205));
    EXPECT_EQ(corner(2), QPointF(171, 1024 - 226));
}

TEST_F(TransformContextTest, ADragGoesOnFromWhereTheRegionIsWhenTheViewIsResizedUnderIt)
{
    const auto left = api::ToolEvent::Button::Left;
    floatInk();
    send(api::ToolEvent::Kind::Press, {300, 300}, left, false);
    send(api::ToolEvent::Kind::Drag, {310, 300}, left, false);
    views.persp().widget()->resize(1024, 1024);
    const struct {
        QPoint pointer, translation;
    } moves[] = {{{620, 600}, {20, 0}}, {{625, 590}, {25, 10}}};
    for (const auto& move : moves) {
        send(api::ToolEvent::Kind::Drag, move.pointer, left, false);
        EXPECT_EQ(record()->translation, move.translation);
        EXPECT_EQ(corner(0), QPointF(100 + move.translation.x(), 1024 - 200 - move.translation.y()));
    }

    send(api::ToolEvent::Kind::Press, {300, 300}, left, true);
    send(api::ToolEvent::Kind::Drag, {310, 300}, left, true);
    views.persp().widget()->resize(512, 512);
    for (const int turn : {0, 5}) {
        send(api::ToolEvent::Kind::Drag, {155 + turn, 150}, left, true);
        EXPECT_FLOAT_EQ(record()->angle, float(10 + turn));
    }
}

TEST_F(TransformContextTest, ASelectionBeginsWhereItWasPressedWhenTheViewIsResizedUnderIt)
{
    const auto left = api::ToolEvent::Button::Left;
    send(api::ToolEvent::Kind::Press, kInkLowerRight, left, false);
    views.persp().widget()->resize(1024, 1024);
    send(api::ToolEvent::Kind::Drag, {100, 1024 - 200}, left, false);
    enter();
    EXPECT_EQ(record()->region, kRegion);
}

TEST_F(TransformContextTest, APressInAViewThatShowsNoCanvasIsIgnored)
{
    run("setAttr perspShape.overscan 1000000");
    drag({50, 400}, {70, 380});
    EXPECT_TRUE(node().regionOutline().camera.isEmpty());
    run("setAttr perspShape.overscan 1");
    floatInk();
    run("setAttr perspShape.overscan 1000000");
    drag({300, 300}, {310, 300});
    EXPECT_EQ(record()->translation, QPoint());
    run("setAttr perspShape.overscan 1");
    drag({300, 300}, {310, 300});
    EXPECT_EQ(record()->translation, QPoint(20, 0));
}

TEST_F(TransformContextTest, AFailedToolCanStillBeLeftByItsKeys)
{
    floatInk();
    views.activate(views.top());
    drag({300, 300}, {310, 300});
    escape();
    EXPECT_FALSE(drawing().hasStroke());
    host().drainIdle();
    EXPECT_THAT(toolSwitches, ElementsAre("-draw"));
}

TEST_F(TransformContextTest, ALayerThatMayNotBeChangedIsRefusedWithTheDrawToolsWords)
{
    const struct {
        const char* error;
        std::function<void(bool)> prepare;
    } cases[] = {
        {"Active layer is not visible.", [this](bool on) { drawing().setLayerVisible("persp", 0, !on); }},
        {"Active layer is locked.",
         [this](bool on) { drawing().setLayerState("persp", 0, on ? kLayerLocked : kLayerAnim); }},
        {"An active layer does not exist.", [this](bool on) { views.activate(on ? views.top() : views.persp()); }},
    };
    for (const auto& c : cases) {
        for (const bool selectedBefore : {false, true}) {
            forgetLines();
            if (selectedBefore) {
                selectInk();
                c.prepare(true);
                if (std::string(c.error) == "An active layer does not exist.") {
                    drag({10, 10}, {20, 20});
                }
            } else {
                c.prepare(true);
            }
            enter();
            EXPECT_THAT(errors(), ElementsAre(std::string(names::kMessagePrefix) + c.error));
            EXPECT_FALSE(drawing().hasStroke());
            EXPECT_TRUE(node().regionOutline().camera.isEmpty());
            c.prepare(false);
            enter();
            EXPECT_FALSE(drawing().hasStroke()) << "no more until the tool is set up again";
            run("setToolTo transformTool");
        }
    }
    floatInk();
    EXPECT_NE(record(), nullptr);
}

TEST_F(TransformContextTest, WithoutANodeOrAFrameNothingHappens)
{
    goTo(-5);
    enter();
    EXPECT_FALSE(drawing().hasStroke());
    goTo(1);
    enter();
    EXPECT_NE(record(), nullptr) << "the tool has not failed";
    run("file -f -new");
    drag({10, 10}, {20, 20});
    enter();
    enter();
    backspace();
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(TransformContextTest, ATransformWhoseStrokeIsGoneOrRefusedIsTakenBack)
{
    floatInk();
    drawing().dropStroke();
    enter();
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(help(), kSelectingHelp);

    const QString before = describeDrawing();
    floatInk();
    drag({300, 300}, {310, 300});
    refuseCommits = true;
    enter();
    EXPECT_EQ(describeDrawing(), before);
    EXPECT_FALSE(drawing().hasStroke());
}

TEST_F(TransformContextTest, APressSelectsAnewWhenNothingFloatsAnyMore)
{
    const std::function<void()> losses[] = {[this] { drawing().dropStroke(); },
                                            [this] {
                                                run("file -f -new; setAttr perspShape.filmFit 1");
                                                draw("persp");
                                            }};
    for (const auto& lose : losses) {
        floatInk();
        drag({300, 300}, {310, 300});
        lose();
        selectInk();
        EXPECT_EQ(help(), kSelectingHelp);
        EXPECT_EQ(corner(0), QPointF(kInkLowerRight)) << "not the outline of what is gone";
        enter();
        ASSERT_NE(record(), nullptr);
        EXPECT_EQ(record()->region, kRegion);
        EXPECT_EQ(record()->translation, QPoint());
        backspace();
    }
}

TEST_F(TransformContextTest, AStrokeThatNobodyDrawsMakesWay)
{
    draw("top");
    ASSERT_NE(drawing().beginStroke("top", false), nullptr);
    enter();
    EXPECT_EQ(record("top"), nullptr);
    ASSERT_NE(record(), nullptr);
    EXPECT_TRUE(record()->region.isValid());
}

TEST_F(TransformContextTest, BeginningInAnotherCamerasViewMakesItCurrentUntilItIsTakenBack)
{
    draw("top");
    EXPECT_EQ(drawing().currentCamera(), "persp");
    views.activate(views.top());
    enter();
    EXPECT_EQ(drawing().currentCamera(), "top");
    EXPECT_EQ(record(), nullptr);
    EXPECT_NE(record("top"), nullptr);
    backspace();
    EXPECT_EQ(drawing().currentCamera(), "persp");
}

TEST_F(TransformContextTest, ARegionPartlyOffTheCanvasIsPaddedAndKeepsItsCentre)
{
    drawing().activeLayer("persp")->setCurrentImage(inked(QRect(0, 200, 40, 20)));
    drag({-20, 412}, {20, 402});
    enter();
    EXPECT_EQ(record()->region, QRect(QPoint(-40, 200), QPoint(40, 220)));
    drag({300, 300}, {480, 300}, api::ToolEvent::Button::Left, true);
    EXPECT_EQ(record()->angle, 180);
    EXPECT_EQ(shownInk(), QRect(0, 201, 1, 20)) << "all but one column is turned off the canvas";
}

TEST_F(TransformContextTest, TheMenuOffersWhatCanBeDoneNow)
{
    const std::vector<std::string> selecting = {"Transform", "Transform Copy",        "-", "Cut",   "Copy",
                                                "(Paste)",   "(Paste and Transform)", "-", "Cancel"};
    EXPECT_EQ(items(), selecting);
    selectInk();
    choose("Copy");
    EXPECT_THAT(items(), ElementsAre("Transform", "Transform Copy", "-", "Cut", "Copy", "Paste", "Paste and Transform",
                                     "-", "Cancel"));
    choose("Transform");
    EXPECT_THAT(items(), ElementsAre("Apply Transform", "Revert Transform", "-", "Flip Horizontal", "Flip Vertical",
                                     "-", "Cancel"));
    backspace();
    run("file -f -new");
    EXPECT_EQ(items(), selecting);
    draw("persp");
    EXPECT_EQ(items(), selecting) << "another scene has nothing to paste";
}

TEST_F(TransformContextTest, TheMenuOpensOnlyForAPlainRightPressInTheViewInUse)
{
    EXPECT_EQ(openMenu(views.persp(), QPoint(10, 10), Qt::ControlModifier), nullptr);
    EXPECT_EQ(openMenu(views.top()), nullptr);
    pressBackslash(true);
    EXPECT_EQ(openMenu(views.persp()), nullptr);
    pressBackslash(false);
    Preferences::instance().setTransformToolContextMenu(false);
    EXPECT_EQ(openMenu(views.persp()), nullptr);
    Preferences::instance().setTransformToolContextMenu(true);
    QMenu* menu = openMenu(views.persp());
    EXPECT_NE(menu, nullptr);
    close(menu);

    draw("top");
    views.activate(views.top());
    drag({10, 10}, {20, 20});
    EXPECT_EQ(openMenu(views.persp()), nullptr);
    menu = openMenu(views.top());
    EXPECT_NE(menu, nullptr);
    close(menu);
    run("setToolTo selectSuperContext");
    EXPECT_EQ(openMenu(views.top()), nullptr);
}

TEST_F(TransformContextTest, TheMenuAppliesRevertsAndCancels)
{
    const QString before = pixels("persp");
    selectInk();
    choose("Transform");
    drag({300, 300}, {310, 300});
    choose("Revert Transform");
    EXPECT_EQ(pixels("persp"), before);
    selectInk();
    choose("Transform");
    drag({300, 300}, {310, 300});
    choose("Cancel");
    EXPECT_EQ(pixels("persp"), before);
    EXPECT_THAT(commits, IsEmpty());
    selectInk();
    choose("Transform");
    drag({300, 300}, {310, 300});
    choose("Apply Transform");
    EXPECT_EQ(pixels::inkBox(drawn()), kInk.translated(20, 0));
    host().drainIdle();
    EXPECT_THAT(toolSwitches, ElementsAre("-transform", "-draw", "-transform"));
}

TEST_F(TransformContextTest, FlippingMirrorsTheRegionAndFlippingAgainGivesItBack)
{
    floatInk();
    const auto colourAt = [this](int x, int y) { return drawing().composite("persp")->pixelColor(x, y); };
    choose("Flip Horizontal");
    EXPECT_EQ(record()->scaleX, -1);
    EXPECT_EQ(colourAt(105, 210), QColor(Qt::blue));
    EXPECT_EQ(colourAt(135, 210), QColor(Qt::red));
    choose("Flip Horizontal");
    EXPECT_EQ(shownInk(), kInk);
    EXPECT_EQ(colourAt(105, 210), QColor(Qt::red));
    choose("Flip Vertical");
    EXPECT_EQ(shownInk(), kInk.translated(0, 1)) << "the region's last row is empty";
    choose("Flip Vertical");
    enter();
    EXPECT_TRUE(pixels::same(drawn(), inked(kInk)));
}

TEST_F(TransformContextTest, ATransformedCopyLeavesTheSource)
{
    selectInk();
    choose("Transform Copy");
    drag({300, 300}, {400, 300});
    enter();
    EXPECT_EQ(pixels::inkBox(drawn()), QRect(100, 200, 240, 20));
    EXPECT_EQ(drawn().pixelColor(105, 210), QColor(Qt::red));
    EXPECT_EQ(drawn().pixelColor(305, 210), QColor(Qt::red));
    EXPECT_EQ(pixels::alpha(drawn(), 200, 210), 0);
}

TEST_F(TransformContextTest, WhatIsCutIsGoneInOneStepAndComesBackWhereItIsPasted)
{
    selectInk();
    choose("Cut");
    EXPECT_THAT(commits, ElementsAre("persp"));
    EXPECT_EQ(pixels::inkBox(drawn()), QRect());
    choose("Paste", QPoint(150, 250));
    EXPECT_EQ(commits.size(), 2u);
    EXPECT_TRUE(pixels::same(drawn(), inked(QRect(300, 500, 40, 20))));
    host().drainIdle();
    EXPECT_THAT(toolSwitches, ElementsAre("-transform", "-transform"));
}

TEST_F(TransformContextTest, WhatIsCopiedStaysAndCanBePastedAtAnotherTime)
{
    const QString before = describeDrawing();
    selectInk();
    choose("Copy");
    EXPECT_EQ(describeDrawing(), before);
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_FALSE(drawing().hasStroke());

    goTo(5);
    choose("Paste", QPoint(0, 0));
    EXPECT_THAT(commits, ElementsAre("-fa persp"));
    EXPECT_TRUE(pixels::same(drawn(), inked(QRect(0, 0, 40, 20))));
    EXPECT_EQ(drawing().frameNumbers("persp"), (QList<int>{1, 5}));
}

TEST_F(TransformContextTest, WhatIsPastedCanBeTurnedBeforeItIsApplied)
{
    selectInk();
    choose("Cut");
    choose("Paste and Transform", QPoint(150, 250));
    EXPECT_EQ(help(), kTransformingHelp);
    EXPECT_EQ(corner(0), QPointF(150, 262));
    EXPECT_EQ(shownInk(), QRect(300, 500, 40, 20));
    choose("Flip Horizontal");
    drag({300, 300}, {310, 300});
    enter();
    EXPECT_EQ(pixels::inkBox(drawn()), QRect(321, 500, 40, 20));
    EXPECT_EQ(drawn().pixelColor(325, 510), QColor(Qt::blue));
}

TEST_F(TransformContextTest, APasteThatIsTakenBackTakesItsLayerAndFrameAlong)
{
    selectInk();
    choose("Copy");
    drawing().insertLayer("persp", -1, "Upper");
    const QString before = describeDrawing();
    const unsigned undoSteps = session().undo.count();

    goTo(5);
    choose("Paste and Transform");
    EXPECT_EQ(drawing().frameNumbers("persp"), (QList<int>{1, 5}));
    drawing().moveLayer("persp", 0, 1);  // the frame is still the one of its layer
    backspace();
    drawing().moveLayer("persp", 1, 0);
    goTo(1);
    EXPECT_EQ(describeDrawing(), before);

    refuseCommits = true;
    goTo(5);
    choose("Paste");
    goTo(1);
    EXPECT_EQ(describeDrawing(), before);

    drawing().takeAllLayers("persp");
    choose("Paste and Transform");
    EXPECT_EQ(drawing().layerCount("persp"), 1);
    escape();
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    EXPECT_EQ(session().undo.count(), undoSteps);

    refuseCommits = false;
    run("setToolTo transformTool");
    choose("Paste");
    EXPECT_EQ(commits.back(), "-la 0 -fa persp");
}

TEST_F(TransformContextTest, AFloatingPasteIsWithdrawnWithItsLayerAndFrameAndAnyOtherRegionStays)
{
    selectInk();
    choose("Copy");
    floatInk();
    node().withdrawMadeStroke();
    EXPECT_NE(record(), nullptr);
    backspace();

    goTo(5);
    choose("Paste and Transform");
    node().withdrawMadeStroke();
    EXPECT_FALSE(drawing().hasStroke());
    EXPECT_EQ(drawing().frameNumbers("persp"), QList<int>{1});
    enter();
    EXPECT_THAT(commits, IsEmpty());
    run("setToolTo transformTool");

    drawing().takeAllLayers("persp");
    choose("Paste and Transform");
    node().withdrawMadeStroke();
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    backspace();
    EXPECT_EQ(drawing().totalLayerCount(), 0);
}

TEST_F(TransformContextTest, APasteWithoutATargetSaysWhyAndStopsTheTool)
{
    selectInk();
    choose("Copy");
    drawing().setLayerState("persp", 0, kLayerLocked);
    choose("Paste");
    EXPECT_THAT(errors(), ElementsAre("[Lumisketch2] Active layer is locked."));
    drawing().setLayerState("persp", 0, kLayerAnim);
    choose("Paste");
    EXPECT_THAT(commits, IsEmpty());
    run("setToolTo transformTool");
    choose("Paste");
    EXPECT_THAT(commits, ElementsAre("persp"));
}

}  // namespace
