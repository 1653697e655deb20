#include "support/ToolFixture.h"

#include "contexts/DrawContextCommand.h"
#include "contexts/ThreadManager.h"
#include "settings/Panels.h"

#include "api/Access.h"
#include "api/DrawList.h"

#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct RefreshedPanels : Panels {
    QWidget* panel(Panel) override { return nullptr; }
    QWidget* existingPanel(Panel) override { return &existing; }
    void refresh(Panel panel) override { refreshed += panel == Panel::ToolOptions; }
    bool open(Dialog) override { return false; }
    bool openLayerProperties(const QString&, int) override { return false; }

    QWidget existing;
    int refreshed = 0;
};

/// B and M as held down over the view. The canvas is shown at half its size.
class ToolAdjustmentTest : public ToolFixture {
protected:
    ToolAdjustmentTest()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator));
        Preferences::instance().setActiveTool(ToolType::Brush);
        Preferences::instance().setToolSize(ToolType::Brush, 20);
        Preferences::instance().setToolOpacity(ToolType::Brush, 50);
        run("tqLmDrawCtx drawTool; setToolTo drawTool");
        QCursor::setPos(views.persp().widget()->mapToGlobal(QPoint(100, 100)));
    }
    ~ToolAdjustmentTest() override
    {
        run("setToolTo selectSuperContext");
        ThreadManager::destroy();
    }

    /// Whether nobody but the tool gets the key.
    bool key(int key, QEvent::Type type = QEvent::KeyPress, bool repeated = false,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(type, key, modifiers, QString(), repeated);
        event.ignore();
        QCoreApplication::sendEvent(views.persp().widget(), &event);
        return event.isAccepted();
    }
    void letGo(int which) { key(which, QEvent::KeyRelease); }
    void dragTo(int x) { send(api::ToolEvent::Kind::Drag, {x, 100}); }
    void adjust(int toX)
    {
        press();
        dragTo(toX);
        release();
    }
    /// Straight to the tool: the host begins its own step at every press.
    static void pressAndReleaseSecondButton()
    {
        api::ToolEvent event;
        event.button = api::ToolEvent::Button::Middle;
        MEvent middle = api::Access::event(event);
        api::ToolBox::instance().current()->doPress(middle);
        api::ToolBox::instance().current()->doRelease(middle);
    }
    int size() const { return Preferences::instance().toolSize(ToolType::Brush); }
    int opacity() const { return Preferences::instance().toolOpacity(ToolType::Brush); }
    /// What the tool draws over a Viewport 2.0 view at an event.
    std::vector<api::DrawItem> drawnAt(api::ToolEvent::Kind kind, int x)
    {
        api::ToolEvent event;
        event.kind = kind;
        event.x = x;
        event.y = 100;
        event.button = api::ToolEvent::Button::Left;
        api::FrameState frame;
        api::DrawList drawn;
        api::ToolBox::instance().send(event, api::makeDrawManager(drawn).get(), api::makeFrameContext(frame).get());
        return drawn.items;
    }
};

TEST_F(ToolAdjustmentTest, TenPixelsToTheRightAreOneMoreAndToTheLeftOneLess)
{
    const struct {
        int dx, size;
    } drags[] = {{25, 22}, {9, 20}, {-9, 20}, {-25, 18}, {-400, 1}, {2000, 100}};
    for (const auto& drag : drags) {
        Preferences::instance().setToolSize(ToolType::Brush, 20);
        key(Qt::Key_B);
        adjust(100 + drag.dx);
        letGo(Qt::Key_B);
        EXPECT_EQ(size(), drag.size) << drag.dx;
    }
    key(Qt::Key_M);
    adjust(150);
    letGo(Qt::Key_M);
    EXPECT_EQ(opacity(), 55);
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    press();
    release();
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp")) << "with no key held it is a stroke again";
}

TEST_F(ToolAdjustmentTest, TheValueFollowsTheFirstButtonWhateverTheKeysAndOtherButtonsDo)
{
    RefreshedPanels panels;
    Panels::install(&panels);
    key(Qt::Key_B);
    press();
    letGo(Qt::Key_B);
    Preferences::instance().setActiveTool(ToolType::Pencil);
    dragTo(150);
    pressAndReleaseSecondButton();
    dragTo(160);
    EXPECT_EQ(size(), 26) << "of the tool that was active at the press";
    EXPECT_EQ(panels.refreshed, 2);
    release();
    dragTo(400);
    EXPECT_EQ(size(), 26);
    Panels::install(nullptr);
}

TEST_F(ToolAdjustmentTest, TheEraserDrawsWhileMIsHeld)
{
    Preferences::instance().setActiveTool(ToolType::Eraser);
    key(Qt::Key_M);
    adjust(150);
    EXPECT_EQ(Preferences::instance().toolOpacity(ToolType::Eraser), 100);
    EXPECT_EQ(commits.size(), 1u);
}

TEST_F(ToolAdjustmentTest, KeysAreTheToolsAndRepeatsChangeNothing)
{
    for (const int held : {Qt::Key_B, Qt::Key_M}) {
        EXPECT_TRUE(key(held, QEvent::ShortcutOverride));
        EXPECT_TRUE(key(held));
        EXPECT_TRUE(key(held, QEvent::KeyRelease, true));
        EXPECT_TRUE(key(held, QEvent::KeyPress, true));
        adjust(150);
        EXPECT_THAT(commits, IsEmpty()) << "a held key still counts";
        EXPECT_TRUE(key(held, QEvent::KeyRelease));
        key(held, QEvent::KeyPress, true);
    }
    EXPECT_FALSE(key(Qt::Key_Backslash));
    press();
    release();
    EXPECT_EQ(commits.size(), 1u) << "a repeat alone holds nothing down";

    key(Qt::Key_B);
    run("setToolTo selectSuperContext; setToolTo drawTool");
    press();
    release();
    EXPECT_EQ(commits.size(), 2u) << "entering the tool forgets the keys";
}

TEST_F(ToolAdjustmentTest, AKeyThatIsAShortcutWithAModifierIsTheHosts)
{
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        for (const int held : {Qt::Key_B, Qt::Key_M}) {
            EXPECT_FALSE(key(held, QEvent::ShortcutOverride, false, modifier));
            EXPECT_FALSE(key(held, QEvent::KeyPress, false, modifier));
            EXPECT_FALSE(key(held, QEvent::KeyRelease, false, modifier));
            key(held);
            key(held, QEvent::KeyRelease, false, modifier);
        }
        press();
        release();
    }
    EXPECT_EQ(commits.size(), 3u) << "no key is held";
}

TEST_F(ToolAdjustmentTest, Viewport2ShowsTheSizeAsACircleAndBothValuesAsNumbers)
{
    key(Qt::Key_B);
    const auto pressed = drawnAt(api::ToolEvent::Kind::Press, 100);
    ASSERT_EQ(pressed.size(), 2u);
    EXPECT_NEAR(pressed[0].points[0].x, 105, 0.01) << "half of 20 canvas pixels, half as large in the view";
    EXPECT_NEAR(pressed[0].points[0].y, 100, 0.01);
    EXPECT_THAT(pressed[0].state.colour, ElementsAre(1, 0, 0, 1));
    EXPECT_EQ(pressed[1].text, "20");
    EXPECT_EQ(pressed[1].textAlignment, MHWRender::MUIDrawManager::kRight);
    const auto dragged = drawnAt(api::ToolEvent::Kind::Drag, 200);
    ASSERT_EQ(dragged.size(), 2u);
    EXPECT_NEAR(dragged[0].points[0].x, 107.5, 0.01);
    EXPECT_EQ(dragged[1].text, "30");
    EXPECT_THAT(drawnAt(api::ToolEvent::Kind::Release, 200), IsEmpty());
    views.persp().pixelRatio = 2;
    const auto dense = drawnAt(api::ToolEvent::Kind::Press, 100);
    ASSERT_EQ(dense.size(), 2u);
    EXPECT_NEAR(dense[0].points[0].x, 115, 0.01) << "of 30 canvas pixels on a dense screen";
    release();
    letGo(Qt::Key_B);

    key(Qt::Key_M);
    const auto opacity = drawnAt(api::ToolEvent::Kind::Press, 100);
    ASSERT_EQ(opacity.size(), 1u);
    EXPECT_EQ(opacity[0].text, "50");
    const int scheduled = views.persp().scheduled;
    run("setToolTo selectSuperContext");
    EXPECT_GT(views.persp().scheduled, scheduled) << "else the number would stay";
}

TEST_F(ToolAdjustmentTest, ALegacyViewIsLeftAsItWas)
{
    views.persp().legacy = true;
    key(Qt::Key_B);
    press();
    EXPECT_EQ(views.persp().invertedOutlines, 1);
    dragTo(200);
    EXPECT_EQ(views.persp().invertedOutlines, 3) << "the circle before, and the new one";
    run("setToolTo selectSuperContext");
    EXPECT_EQ(views.persp().invertedOutlines, 4);
    run("setToolTo drawTool");
    key(Qt::Key_M);
    adjust(200);
    EXPECT_EQ(views.persp().invertedOutlines, 4) << "an opacity has no circle";
}

}  // namespace
