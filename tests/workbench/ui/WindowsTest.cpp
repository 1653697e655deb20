#include "support/WindowFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include <maya/MQtUtil.h>

namespace {

using WindowsTest = WindowFixture;

}  // namespace

TEST_F(HostFixture, InBatchNothingIsMadeAndNothingExists)
{
    for (const char* text : {"window", "columnLayout", "colorSliderGrp", "button", "modelPanel", "menu", "menuItem"}) {
        EXPECT_FALSE(run(text)) << text;
        EXPECT_EQ(kernel::toText(evaluate(std::string(text) + " -exists anything")), "0") << text;
    }
    EXPECT_EQ(errors().front(), "window: cannot be made in batch mode");
    EXPECT_FALSE(run("radioMenuItemCollection"));
    EXPECT_FALSE(run("menuSet -label x mySet"));
    EXPECT_EQ(kernel::toText(evaluate("menuSet -exists mySet")), "0");
    EXPECT_FALSE(run("menuSet -q -currentMenuSet"));
    EXPECT_EQ(errors().back(), "menuSet: There are no menuSets to query");
}

TEST_F(WindowsTest, AWindowIsMadeHiddenAndTakesWhatFollows)
{
    EXPECT_EQ(value("window -title \"Ink & paper\" -widthHeight 300 280 -topLeftCorner 40 60 tools"), "tools");
    EXPECT_EQ(value("window -q -exists tools"), "1");
    EXPECT_EQ(value("window -q -exists none"), "0");
    EXPECT_EQ(value("window -q -visible tools"), "0");
    EXPECT_EQ(value("window -q -title tools"), "Ink & paper");
    EXPECT_EQ(value("window -q -widthHeight tools"), "300 280");
    EXPECT_EQ(value("window -q -topLeftCorner tools"), "40 60");
    EXPECT_EQ(widget("tools")->pos(), QPoint(60, 40));
    EXPECT_EQ(value("setParent -q"), "tools");
    EXPECT_EQ(value("columnLayout column"), "tools|column");
    EXPECT_EQ(value("button ok"), "tools|column|ok");
    EXPECT_EQ(value("columnLayout -q -childArray column"), "ok");
    EXPECT_EQ(MQtUtil::findWindow("tools"), widget("tools"));
    EXPECT_EQ(MQtUtil::findControl("tools|column|ok"), widget("ok"));
    EXPECT_TRUE(MQtUtil::findWindow("tools")->isAncestorOf(widget("ok")));

    EXPECT_TRUE(run("showWindow"));
    EXPECT_EQ(value("window -q -visible tools"), "1");
    EXPECT_TRUE(run("window -e -widthHeight 200 100 -visible false tools"));
    EXPECT_EQ(value("window -q -visible tools"), "0");
    EXPECT_EQ(value("window -q -width tools"), "200");
    EXPECT_EQ(value("window"), "window1");
}

TEST_F(WindowsTest, ErrorsAreInTheHostsWords)
{
    run("window foo; columnLayout column; window bare");
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"window foo", "Object's name 'foo' is not unique."},
        {"columnLayout -parent foo column", "Object's name 'column' is not unique."},
        {"window -e -title x none", "window: Object 'none' not found."},
        {"window -q -title column", "window: Object 'column' not found."},
        {"button -parent none", "button: Object 'none' not found."},
        {"showWindow none", "showWindow: Object 'none' not found."},
        {"deleteUI none", "deleteUI: Object 'none' not found."},
        {"deleteUI -layout foo", "deleteUI: Object 'foo' not found."},
        {"setParent none", "setParent: Object 'none' not found."},
        {"button -parent bare", "Controls must have a layout.  No layout found in window : bare"},
        {"deleteUI MayaWindow", "deleteUI: The main window cannot be deleted."},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(run(c.text)) << c.text;
        EXPECT_THAT(lastError(), testing::HasSubstr(c.error)) << c.text;
    }
    EXPECT_FALSE(run("paneLayout -parent bare -configuration triple panes"));
    EXPECT_FALSE(run("modelPanel -parent column -cam none panel"));
    for (const char* text : {"paneLayout -exists panes", "modelPanel -exists panel", "button -exists bare"}) {
        EXPECT_EQ(value(text), "0") << text;
    }
    EXPECT_TRUE(ui().children(*ui().find("bare")).empty()) << "what could not be placed is not there";
}

TEST_F(WindowsTest, CommonFlagsWorkOnControlsAndLayouts)
{
    run("window tools; columnLayout column");
    EXPECT_EQ(value("button -label Go -annotation \"does it\" -enable 0 -width 77 -height 31 -docTag mine "
                    "-backgroundColor 1 0 0.2 go"),
              "tools|column|go");
    const struct {
        const char* flag;
        const char* answer;
    } cases[] = {{"-label", "Go"},  {"-annotation", "does it"},  {"-enable", "0"},
                 {"-width", "77"},  {"-height", "31"},           {"-docTag", "mine"},
                 {"-visible", "1"}, {"-parent", "tools|column"}, {"-fullPathName", "tools|column|go"}};
    for (const auto& c : cases) {
        EXPECT_EQ(value(std::string("button -q ") + c.flag + " go"), c.answer) << c.flag;
    }
    const auto background = std::get<kernel::DoubleArray>(evaluate("button -q -backgroundColor go"));
    EXPECT_NEAR(background[2], 0.2, 0.001);
    EXPECT_TRUE(run("button -e -manage 0 -enable 1 tools|column|go"));
    EXPECT_TRUE(widget("go")->isHidden());
    EXPECT_TRUE(widget("go")->isEnabled());
    EXPECT_TRUE(run("columnLayout -e -visible 0 column"));
    EXPECT_EQ(value("columnLayout -q -visible column"), "0");
}

TEST_F(WindowsTest, TheCurrentParentGoesUpAndDown)
{
    run("window tools; columnLayout outer; rowLayout inner");
    EXPECT_EQ(value("setParent .."), "tools|outer");
    EXPECT_EQ(value("button"), "tools|outer|button1");
    EXPECT_EQ(value("setParent inner"), "tools|outer|inner");
    EXPECT_EQ(value("setParent -topLevel"), "tools");
    EXPECT_FALSE(run("setParent -upLevel"));
    EXPECT_EQ(value("setParent inner; setParent \"|\""), "tools");
    EXPECT_EQ(value("window -exists tools"), "1");
}

TEST_F(WindowsTest, ButtonsRunTheirScript)
{
    run("window; columnLayout; button -command \"createNode transform -n pressed\" go");
    widget<QPushButton>("go")->click();
    EXPECT_EQ(value("objExists pressed"), "1");
    run("button -e -command \"delete pressed; deleteUI go\" go");
    const QPointer<QPushButton> button = widget<QPushButton>("go");
    button->click();
    EXPECT_EQ(value("objExists pressed"), "0");
    EXPECT_EQ(value("button -exists go"), "0") << "gone at once for scripts";
    EXPECT_FALSE(button.isNull()) << "its own click is not over";
    deliverDeletions();
    EXPECT_TRUE(button.isNull());
}

TEST_F(WindowsTest, ClosingDeletesAWindowOrHidesIt)
{
    run("global int $closed; window -closeCommand \"$closed++\" once; columnLayout deep;"
        "window -retain -closeCommand \"$closed = $closed + 10\" kept; showWindow once; showWindow kept");
    const QPointer<QWidget> once = widget("once");
    widget("once")->close();
    EXPECT_EQ(value("window -exists once"), "0");
    EXPECT_EQ(value("columnLayout -exists deep"), "0");
    deliverDeletions();
    EXPECT_TRUE(once.isNull());
    widget("kept")->close();
    EXPECT_EQ(value("window -q -visible kept"), "0");
    EXPECT_EQ(value("$seen = $closed"), "11");
    run("showWindow kept");
    EXPECT_EQ(value("window -q -visible kept"), "1");
}

TEST_F(WindowsTest, ACloseCommandMayDeleteItsWindowOrMakeItAgain)
{
    run("window -closeCommand \"deleteUI tools\" tools; showWindow tools");
    widget("tools")->close();
    EXPECT_EQ(value("window -exists tools"), "0");
    run("window -closeCommand \"deleteUI tools; window tools\" tools; showWindow tools");
    widget("tools")->close();
    EXPECT_EQ(value("window -exists tools"), "1") << "the new one";
    deliverDeletions();
    EXPECT_EQ(value("window -exists tools"), "1");
    EXPECT_TRUE(errors().empty()) << lastError();
}

// Filters of modules on the main window, and its own keys, work in every window.
TEST_F(WindowsTest, KeysThatNothingWantsGoToTheMainWindow)
{
    struct Filter : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
                seen << event->type();
            }
            return false;
        }
        QList<QEvent::Type> seen;
    } filter;
    window.installEventFilter(&filter);
    run("window tools; columnLayout; text -label x label");
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_B, Qt::NoModifier);
        QApplication::sendEvent(widget("label"), &event);
    }
    EXPECT_EQ(filter.seen, (QList<QEvent::Type>{QEvent::KeyPress, QEvent::KeyRelease}));
}

// What a module does: it takes a control into a panel of its own, and deletes that.
TEST_F(WindowsTest, AControlWithoutAWindowCanBeTakenAwayAndDeleted)
{
    const std::string path = value("colorSliderGrp -columnWidth3 0 40 0 mySlider");
    EXPECT_EQ(path.substr(path.rfind('|') + 1), "mySlider");
    auto panel = std::make_unique<QWidget>();
    QWidget* const slider = MQtUtil::findControl(MString(path.c_str()));
    ASSERT_NE(slider, nullptr);
    slider->setParent(panel.get());
    EXPECT_EQ(MQtUtil::findControl("mySlider"), slider);
    EXPECT_EQ(value("colorSliderGrp -exists mySlider"), "1");
    panel.reset();
    EXPECT_EQ(value("colorSliderGrp -exists mySlider"), "0");
    EXPECT_EQ(MQtUtil::findControl(MString(path.c_str())), nullptr);
    EXPECT_TRUE(run("colorSliderGrp mySlider"));
}
