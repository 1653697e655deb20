#include "contexts/DrawToolMenu.h"

#include "contexts/DrawContextCommand.h"
#include "contexts/TimelineMenu.h"
#include "support/MenuOutline.h"
#include "support/QtPrint.h"
#include "support/ToolFixture.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QScreen>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Counts the presses, second ones and releases that are left to the host.
class HostEar : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        heard += event->type() >= QEvent::MouseButtonPress && event->type() <= QEvent::MouseButtonDblClick;
        return false;
    }
    int heard = 0;
};

/// The draw tool in the views of a host that has a time slider.
class DrawToolMenuTest : public ToolFixture {
protected:
    DrawToolMenuTest()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator));
        session().commands.add(names::kLayerCommand, [this](const kernel::ValueList& args) {
            layerCalls.push_back(textOf(args));
            return kernel::Value();
        });
        ui::UiObjects& ui = host().ui();
        ui.setMainWindow(&m_window);
        auto* const slider = new QWidget(&m_window);
        slider->setObjectName("timeControl1");
        const ui::UiObject& control =
            ui.add(ui::Kind::Control, "timeControl", "timeControl1", ui.mainWindowObject(), slider);
        session().script().setGlobalString("gPlayBackSlider", ui::UiObjects::path(control));
        timeSlider = slider;
        for (QWidget* widget : {timeSlider, views.persp().widget(), views.top().widget()}) {
            widget->installEventFilter(&m_ear);  // hears what later filters let through
        }
        run("tqLmDrawCtx drawTool; setToolTo drawTool");
    }
    ~DrawToolMenuTest() override { run("setToolTo selectSuperContext"); }

    /// Gives a camera layers of these names, the first at the bottom.
    void addLayers(const QString& camera, const QStringList& names)
    {
        for (const QString& name : names) {
            drawing().insertLayer(camera, -1, name);
        }
    }

    /// What a press in a widget opens, null when nothing; the host must hear of it just then.
    QMenu* press(QWidget* widget, Qt::MouseButton button = Qt::RightButton, Qt::KeyboardModifiers keys = Qt::NoModifier,
                 Qt::MouseButtons others = Qt::NoButton, QEvent::Type type = QEvent::MouseButtonPress)
    {
        QMouseEvent event(type, QPointF(10, 10), button, button | others, keys);
        m_ear.heard = 0;
        QCoreApplication::sendEvent(widget, &event);
        QMenu* const menu = widget->findChild<ToolMenu*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_EQ(m_ear.heard, menu ? 0 : 1);
        return menu;
    }
    QMenu* openIn(TestView& view) { return press(view.widget()); }

    /// The labels of the entries before the first divider.
    static QStringList layersIn(const QMenu* menu)
    {
        const QStringList all = outline(*menu);
        return all.mid(0, all.indexOf("-"));
    }
    static QAction* entry(const QMenu* menu, const QString& label)
    {
        for (QAction* action : menu->actions()) {
            if (action->text() == label) {
                return action;
            }
        }
        return nullptr;
    }

    QWidget* timeSlider = nullptr;
    std::vector<std::string> layerCalls;

private:
    QMainWindow m_window;
    HostEar m_ear;
};

TEST_F(DrawToolMenuTest, StandsAsTheHandWantsItAndShowsWhatIsSet)
{
    Preferences& preferences = Preferences::instance();
    preferences.setActiveTool(ToolType::Line);
    preferences.setGhostPrev(false);
    preferences.setGhostNext(true);
    preferences.setTimelineFrameDisplay(1);
    const std::unique_ptr<QMenu> menu(openIn(views.persp()));
    ASSERT_TRUE(menu);
    EXPECT_EQ(outline(*menu),
              (QStringList{"Transform", "-", "Draw Tool: Pencil, Brush, Eraser, Text, *Line, Arrow, Ellipse, Rectangle",
                           "-", "Layer: New Layer..., Layer Properties...",
                           "Frame: Insert Frame(s), Duplicate Frame, Delete Frame(s), -, Cut Frame(s), Copy Frame(s), "
                           "Paste Frame(s), -, Clear Frame(s), -, Step Forward, Step Back",
                           "Ghosting: .Ghost Previous, *Ghost Next, -, Settings...", "-", "Toolbox...",
                           "Tool Options...", "Layer Manager...", "Retiming Tool...", "-",
                           "Display Timeline Frames: Always, *Selection/Context Active, Off", "-",
                           "Cleanup: Delete Active Layer, Delete Active Camera Layers, -, Clear All"}));
}

TEST_F(DrawToolMenuTest, TheTimeSlidersMenuHasATitleAndTheEntriesThatChangeFrames)
{
    const std::unique_ptr<QMenu> menu(press(timeSlider));
    ASSERT_TRUE(menu);
    EXPECT_EQ(outline(*menu),
              (QStringList{"(Lumisketch 2)", "-", "Insert Frame(s)", "Duplicate Frame", "Delete Frame(s)", "-",
                           "Cut Frame(s)", "Copy Frame(s)", "Paste Frame(s)", "-", "Clear Frame(s)"}));
}

TEST_F(DrawToolMenuTest, LayersOfTheViewsCameraStandTopFirstUnderTheirVeryNames)
{
    addLayers("persp", {"Rough", "Ink & Wash", "a  b"});
    drawing().restoreLayerName("persp", 0, "tab\there");
    drawing().setActiveLayer("persp", 1, true);
    addLayers("top", {"Elsewhere"});
    std::unique_ptr<QMenu> menu(openIn(views.persp()));
    EXPECT_EQ(layersIn(menu.get()), (QStringList{"a  b", "Ink && Wash (active)", "tab here"}));

    drawing().setCurrentCamera("top");
    menu.reset();
    menu.reset(openIn(views.persp()));
    EXPECT_EQ(layersIn(menu.get()), (QStringList{"a  b", "Ink && Wash", "tab here"}))
        << "only the camera in use has an active layer";
}

TEST_F(DrawToolMenuTest, TheLayerThatWasSeenBecomesActiveWhateverHappenedWhileTheMenuWasOpen)
{
    addLayers("persp", {"Ink", "Wash", "Notes"});
    std::unique_ptr<QMenu> menu(openIn(views.persp()));
    drawing().moveLayer("persp", 0, 2);
    drawing().renameLayer("persp", 0, "Another");
    entry(menu.get(), "Ink (active)")->trigger();
    EXPECT_THAT(layerCalls, ElementsAre("-e -active 2 persp"));

    layerCalls.clear();
    drawing().takeLayer("persp", 1);  // the notes
    entry(menu.get(), "Notes")->trigger();
    run("file -f -new");
    entry(menu.get(), "Wash")->trigger();
    EXPECT_THAT(layerCalls, IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(DrawToolMenuTest, AHundredLayersAndALongNameLeaveOneColumnOnTheScreen)
{
    for (int i = 0; i < 100; ++i) {
        addLayers("persp", {QString("Layer with a number %1").arg(i)});
    }
    drawing().renameLayer("persp", 7, QString(5000, 'w'));
    const std::unique_ptr<QMenu> menu(openIn(views.persp()));
    ASSERT_TRUE(menu);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    EXPECT_LE(menu->height(), screen.height());
    EXPECT_LE(menu->width(), screen.width() * 3 / 4);
    const QList<QAction*> actions = menu->actions();
    EXPECT_EQ(menu->actionGeometry(actions.first()).left(), menu->actionGeometry(actions.last()).left());
}

TEST_F(DrawToolMenuTest, OpensForTheRightButtonAloneAndLeavesEveryOtherPressToTheHost)
{
    const struct {
        const char* name;
        Qt::MouseButton button;
        Qt::KeyboardModifiers keys;
        Qt::MouseButtons others;
        QEvent::Type type;
        bool opens;
    } cases[] = {
        {"right", Qt::RightButton, Qt::NoModifier, Qt::NoButton, QEvent::MouseButtonPress, true},
        {"the second of two", Qt::RightButton, Qt::NoModifier, Qt::NoButton, QEvent::MouseButtonDblClick, true},
        {"right, let go", Qt::RightButton, Qt::NoModifier, Qt::NoButton, QEvent::MouseButtonRelease, false},
        {"left", Qt::LeftButton, Qt::NoModifier, Qt::NoButton, QEvent::MouseButtonPress, false},
        {"with Ctrl", Qt::RightButton, Qt::ControlModifier, Qt::NoButton, QEvent::MouseButtonPress, false},
        {"with Alt", Qt::RightButton, Qt::AltModifier, Qt::NoButton, QEvent::MouseButtonPress, false},
        {"during a stroke", Qt::RightButton, Qt::NoModifier, Qt::LeftButton, QEvent::MouseButtonPress, false},
    };
    for (QWidget* widget : {views.persp().widget(), timeSlider}) {
        for (const auto& c : cases) {
            const std::unique_ptr<QMenu> menu(press(widget, c.button, c.keys, c.others, c.type));
            EXPECT_EQ(menu != nullptr, c.opens) << c.name;
        }
    }
    EXPECT_EQ(press(views.top().widget()), nullptr) << "a view in which nobody draws";
}

TEST_F(DrawToolMenuTest, TheHostKeepsItsClicksWhereAMenuIsNotWanted)
{
    Preferences& preferences = Preferences::instance();
    preferences.setDrawToolContextMenu(false);
    EXPECT_EQ(openIn(views.persp()), nullptr);
    delete press(timeSlider);
    preferences.setDrawToolContextMenu(true);
    preferences.setTimelineContextMenu(false);
    EXPECT_EQ(press(timeSlider), nullptr);

    QWidget* const window = host().ui().mainWindow();
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Backslash, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &down);
    EXPECT_EQ(openIn(views.persp()), nullptr) << "the host's own key for moving its view";
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Backslash, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &up);
    delete openIn(views.persp());

    preferences.setTimelineContextMenu(true);
    run("setToolTo selectSuperContext");
    EXPECT_EQ(openIn(views.persp()), nullptr) << "another tool is in use";
    EXPECT_EQ(press(timeSlider), nullptr);
}

TEST_F(DrawToolMenuTest, AMenuIsGoneOnceItIsClosedOrItsToolIsLeft)
{
    QPointer<QMenu> menu(openIn(views.persp()));
    ASSERT_TRUE(menu);
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(menu);

    menu = press(timeSlider);
    ASSERT_TRUE(menu);
    run("setToolTo selectSuperContext");
    EXPECT_FALSE(menu) << "a module may be unloaded next, and the menu's code with it";
}

}  // namespace
