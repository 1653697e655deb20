// What the menu script makes of a bare window.

#include "settings/Names.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "support/HostileTexts.h"
#include "support/MenuOutline.h"
#include "support/QtPrint.h"
#include "support/WindowFixture.h"

#include <QMenuBar>

namespace {

using testing::IsEmpty;

const char kWindow[] = "tqLmFloatingWindow";
const std::string kPanel = "tqLumisketchFloatingModelPanel";

class MenuScript : public WindowFixture {
protected:
    MenuScript()
    {
        Preferences::instance() = Preferences();
        for (const char* name : {"intrude", names::kLayerCommand}) {
            session().commands.add(name, [this, name](const kernel::ValueList& arguments) {
                QString line = name;
                for (const kernel::Value& argument : arguments) {
                    line += ' ' + QString::fromStdString(kernel::toText(argument));
                }
                m_calls << line;
                return kernel::Value();
            });
        }
    }
    ~MenuScript() override
    {
        script::deleteMainMenu();
        Preferences::instance() = Preferences();
    }

    /// What reached the layer command since the last call, or ran though it is only text.
    QStringList takeCalls()
    {
        QStringList taken;
        taken.swap(m_calls);
        return taken;
    }

    bool makeMenu() { return script::sourceMenuScript() && script::createMainMenu(); }
    QList<QMenu*> menus() const
    {
        QList<QMenu*> shown;
        for (const QAction* action : window.menuBar()->actions()) {
            if (action->isVisible()) {
                shown << action->menu();
            }
        }
        return shown;
    }

    QStringList labelsThatAreOn() const
    {
        QStringList labels;
        for (const QMenu* submenu : menus().first()->findChildren<QMenu*>()) {
            for (const QAction* action : submenu->actions()) {
                if (action->isChecked()) {
                    labels << action->text();
                }
            }
        }
        return labels;
    }

    /// Whether the floating window is open, and what it shows.
    std::string floating()
    {
        return value("window -q -visible " + std::string(kWindow)) + ' ' + value("lookThru -q " + kPanel);
    }

private:
    QStringList m_calls;
};

TEST_F(MenuScript, MakesTheMenuWithItsGroups)
{
    ASSERT_TRUE(makeMenu());
    ASSERT_EQ(menus().size(), 1);
    EXPECT_EQ(menus().first()->title(), "LM2");
    EXPECT_TRUE(menus().first()->isTearOffEnabled());
    EXPECT_EQ(outline(*menus().first()),
              (QStringList{"Draw",
                           "Transform",
                           "-",
                           "Draw Tool: *Pencil, .Brush, .Eraser, .Text, .Line, .Arrow, .Ellipse, .Rectangle",
                           "-",
                           "Layer: New Layer..., Layer Properties...",
                           "Frame: Insert Frame(s), Duplicate Frame, Delete Frame(s), -, Cut Frame(s), Copy Frame(s), "
                           "Paste Frame(s), -, Clear Frame(s), -, Step Forward, Step Back",
                           "Ghosting: .Ghost Previous, .Ghost Next, -, Settings...",
                           "-",
                           "Toolbox...",
                           "Tool Options...",
                           "Layer Manager...",
                           "Retiming Tool...",
                           "-",
                           "Display Timeline Frames: *Always, .Selection/Context Active, .Off",
                           "-",
                           "View: Lumisketch View, Move layers to Lumisketch View",
                           "Utilities: Reset UI",
                           "Cleanup: Delete Active Layer, Delete Active Camera Layers, -, Clear All",
                           "-",
                           "Preferences...",
                           "About..."}));
}

TEST_F(MenuScript, ShowsTheToolTheGhostsAndTheTimelineDisplayAsTheyAreSet)
{
    EXPECT_TRUE(script::notifyMainMenu()) << "there is no menu yet, and nothing to fail";
    ASSERT_TRUE(makeMenu());
    Preferences& preferences = Preferences::instance();
    preferences.setActiveTool(ToolType::Ellipse);
    preferences.setGhostNext(true);
    preferences.setGhostPrev(false);
    preferences.setTimelineFrameDisplay(2);
    EXPECT_TRUE(script::notifyMainMenu());
    EXPECT_EQ(labelsThatAreOn(), (QStringList{"Ellipse", "Ghost Next", "Off"}));

    preferences.setGhostNext(false);
    preferences.setGhostPrev(true);
    EXPECT_TRUE(script::notifyMainMenu());
    EXPECT_EQ(labelsThatAreOn(), (QStringList{"Ellipse", "Ghost Previous", "Off"}));

    // A value from elsewhere than the menu's own items changes nothing.
    EXPECT_TRUE(run("tqLmUpdateMainMenu(8, 1, 0, 3); tqLmUpdateMainMenu(-1, 1, 0, -1)"));
    EXPECT_EQ(labelsThatAreOn(), (QStringList{"Ellipse", "Ghost Previous", "Off"}));
}

TEST_F(MenuScript, OneMenuIsThereHoweverOftenItIsMadeAndNoneAfterItIsDeleted)
{
    ASSERT_TRUE(makeMenu());
    const QStringList once = outline(*menus().first());
    ASSERT_TRUE(makeMenu());
    ASSERT_EQ(menus().size(), 1);
    EXPECT_EQ(outline(*menus().first()), once);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(script::deleteMainMenu());
        EXPECT_TRUE(menus().isEmpty());
        EXPECT_TRUE(script::notifyMainMenu());
    }
    ASSERT_TRUE(makeMenu());
    run("deleteUI -menu $gTqLmMainMenu");
    EXPECT_TRUE(script::notifyMainMenu()) << "the user may have taken the menu away";
    EXPECT_THAT(errors(), IsEmpty());
}

// The name comes from a file that anybody can write.
TEST_F(MenuScript, ANameIsALabelAndNothingElseWhateverItSays)
{
    QStringList names = hostileTexts();
    names << QString::fromUtf8("スケッチ") << QString::fromUtf8("Schnellübersicht") << "LM2";
    for (const QString& name : names) {
        Preferences::instance().setMainMenuName(name);
        ASSERT_TRUE(makeMenu()) << name.left(60).toStdString();
        EXPECT_EQ(QString::fromStdString(value("menu -q -label $gTqLmMainMenu")), name);
    }
    EXPECT_TRUE(takeCalls().isEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(MenuScript, OpensTheFloatingViewOnceThroughACameraOfItsOwn)
{
    ASSERT_TRUE(script::sourceMenuScript());
    run("select -r persp");
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(floating(), "1 lumisketchCam");
    EXPECT_EQ(value("window -q -title " + std::string(kWindow)), "Lumisketch");
    EXPECT_EQ(value("getAttr lumisketchCam.translate"), "0 1000 0");
    EXPECT_EQ(value("ls -sl"), "persp");

    run("lookThru " + kPanel + " persp");
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(floating(), "1 persp") << "a visible window is left alone";

    run(std::string("window -e -visible 0 ") + kWindow);
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(floating(), "1 lumisketchCam");

    // Without its window the panel is another's leftover.
    run("modelPanel -e -unParent " + kPanel + "; deleteUI " + kWindow + "; file -f -new");
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(floating(), "1 lumisketchCam");
    EXPECT_EQ(value("modelPanel -q -control " + kPanel),
              std::string(kWindow) + "|tqLumisketchFloatingPaneLayout|" + kPanel);
    EXPECT_EQ(value("ls -sl"), "") << "an empty selection stays empty";

    run("file -f -new; lookThru " + kPanel + " persp");
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(floating(), "1 lumisketchCam") << "the camera of the new scene";
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(MenuScript, MovesTheLayersOfTheCameraThatIsNamed)
{
    ASSERT_TRUE(script::sourceMenuScript());
    ASSERT_TRUE(script::openFloatingViewport("persp"));
    EXPECT_EQ(takeCalls(), QStringList("tqLumisketchLayer -mva lumisketchCam persp"));
    ASSERT_TRUE(script::openFloatingViewport("lumisketchCam"));
    EXPECT_TRUE(takeCalls().isEmpty()) << "they are there already";
    for (const QString& text : hostileTexts()) {
        ASSERT_TRUE(script::openFloatingViewport(text));
        EXPECT_EQ(takeCalls(), QStringList("tqLumisketchLayer -mva lumisketchCam " + text));
    }
}

TEST_F(MenuScript, IsOneStepToUndo)
{
    ASSERT_TRUE(script::sourceMenuScript());
    EXPECT_EQ(session().undo.count(), 0u);
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(session().undo.count(), 1u);
    run("undo");
    EXPECT_EQ(value("objExists lumisketchCam"), "0");
}

}  // namespace
