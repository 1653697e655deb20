#include "support/NodeFixture.h"

#include "commands/UtilCommand.h"
#include "model/LayerListView.h"
#include "settings/Panels.h"
#include "settings/ScriptBridge.h"

#include <maya/MPxContextCommand.h>

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <map>

namespace {

using kernel::Value;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

Value colour(int red, int green, int blue)
{
    return kernel::IntArray{red, green, blue};
}

/// A tool that does nothing.
class PlainContextCommand : public MPxContextCommand {
public:
    static void* creator() { return new PlainContextCommand; }
    MPxContext* makeObj() override { return new MPxContext; }
};

/// Panels that are plain widgets; notes what is asked of it.
class TestPanels : public Panels {
public:
    TestPanels() { install(this); }
    ~TestPanels() override
    {
        install(nullptr);
        for (auto& entry : m_panels) {
            delete entry.second;
        }
    }

    QWidget* panel(Panel panel) override
    {
        if (!m_panels[panel] && !refusing) {
            m_panels[panel] = new QWidget;
            ++made;
        }
        return m_panels[panel];
    }
    QWidget* existingPanel(Panel panel) override { return m_panels[panel]; }
    void refresh(Panel panel) override { refreshed.push_back(panel); }
    bool open(Dialog dialog) override
    {
        opened.push_back(dialog);
        return !refusing;
    }
    bool openLayerProperties(const QString& camera, int layerIndex) override
    {
        layer = camera + " " + QString::number(layerIndex);
        return !refusing;
    }
    std::vector<Panel> takeRefreshed() { return std::exchange(refreshed, {}); }

    bool refusing = false;
    int made = 0;
    std::vector<Panel> refreshed;
    std::vector<Dialog> opened;
    QString layer;

private:
    std::map<Panel, QPointer<QWidget>> m_panels;
};

/// A window's host, the menu script's procedures noting their arguments, and contexts that do nothing.
class UtilCommandTest : public NodeFixture {
protected:
    UtilCommandTest()
    {
        session().batch = false;
        addCommand(names::kUtilCommand, UtilCommand::creator, UtilCommand::newSyntax);
        for (const char* context : {names::kDrawContextCommand, names::kTransformContextCommand}) {
            EXPECT_TRUE(m_plugin.registerContextCommand(context, PlainContextCommand::creator));
        }
        run("global string $said[];"
            "global proc tqLmCreateMainMenu(int $a) {} global proc tqLmDeleteMainMenu() {}"
            "global proc tqLmUpdateMainMenu(int $t, int $p, int $n, int $d)"
            "{ global string $said[]; $said[size($said)] = \"menu \" + $t + $p + $n + $d; }"
            "global proc tqLmCreateFloatingViewport(string $camera)"
            "{ global string $said[]; $said[size($said)] = \"view \" + $camera; }");
        EXPECT_TRUE(script::createMainMenu());
    }
    ~UtilCommandTest() override
    {
        script::deleteMainMenu();
        run("setToolTo selectSuperContext");
        for (const char* context : {names::kDrawContextCommand, names::kTransformContextCommand}) {
            m_plugin.deregisterContextCommand(context);
        }
    }

    static std::string text(const std::string& arguments) { return "tqLumisketchUtil " + arguments; }
    bool util(const std::string& arguments) { return run(text(arguments)); }
    Value ask(const std::string& arguments) { return evaluate(text(arguments)); }
    /// What the menu script's procedures were told since this was asked last.
    kernel::StringArray told()
    {
        const Value said = evaluate("global string $said[]; $said");
        run("global string $said[]; clear $said");
        return kernel::hasValue(said) ? std::get<kernel::StringArray>(said) : kernel::StringArray();
    }
    std::string currentTool() { return kernel::toText(evaluate("currentCtx")); }
    void expectRefused(const std::string& arguments, const char* message = nullptr)
    {
        forgetLines();
        EXPECT_FALSE(util(arguments)) << arguments;
        if (message) {
            EXPECT_THAT(errors(), Contains(std::string("[Lumisketch2] ") + message)) << arguments;
        }
    }
    /// Has `answer` called with the next dialog of its kind.
    template <class Asked>
    void whenAsked(std::function<void(Asked&)> answer)
    {
        m_dialogs = 0;
        QTimer::singleShot(0, qApp, [this, answer] {
            auto* dialog = qobject_cast<Asked*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            ++m_dialogs;
            answer(*dialog);
        });
    }
    int dialogs() const { return m_dialogs; }

    TestPanels panels;

private:
    int m_dialogs = 0;
};

TEST_F(UtilCommandTest, MakesAToolCurrentAndMakesItAnewWhenTheUserDeletedIt)
{
    for (const char* flag : {"-d", "-transform"}) {
        ASSERT_TRUE(util(flag)) << flag;
        const std::string first = currentTool();
        run("setToolTo selectSuperContext");
        ASSERT_TRUE(util(flag)) << flag;
        EXPECT_EQ(currentTool(), first) << flag;
        run("setToolTo selectSuperContext; file -f -new");
        ASSERT_TRUE(util(flag)) << flag;
        EXPECT_EQ(currentTool(), first) << flag << ": a new scene has the same tools";
        run("setToolTo selectSuperContext; deleteUI -toolContext " + first);
        ASSERT_TRUE(util(flag)) << flag;
        EXPECT_NE(currentTool(), "selectSuperContext") << flag;
    }
    ASSERT_TRUE(util("-draw"));
    const std::string draw = currentTool();
    ASSERT_TRUE(util("-t"));
    EXPECT_NE(currentTool(), draw);
}

TEST_F(UtilCommandTest, FailsWhenAToolCannotBeMade)
{
    m_plugin.deregisterContextCommand(names::kDrawContextCommand);
    const ToolType before = Preferences::instance().activeTool();
    for (const char* flag : {"-draw", "-pencilTool"}) {
        expectRefused(flag);
    }
    EXPECT_EQ(Preferences::instance().activeTool(), before);
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, PlainContextCommand::creator));
}

TEST_F(UtilCommandTest, ChoosesADrawingTool)
{
    const struct {
        const char* flag;
        ToolType tool;
    } cases[] = {
        {"-pt", ToolType::Pencil},
        {"-brushTool", ToolType::Brush},
        {"-et", ToolType::Eraser},
        {"-lt", ToolType::Line},
        {"-at", ToolType::Arrow},
        {"-elt", ToolType::Ellipse},
        {"-rectangleTool", ToolType::Rectangle},
        {"-tt", ToolType::Text},
    };
    for (Panel panel : {Panel::Toolbox, Panel::ToolOptions}) {
        panels.panel(panel);
    }
    for (const auto& c : cases) {
        run("setToolTo selectSuperContext");
        ASSERT_TRUE(util(c.flag)) << c.flag;
        EXPECT_NE(currentTool(), "selectSuperContext") << c.flag;
        EXPECT_EQ(Preferences::instance().activeTool(), c.tool) << c.flag;
        EXPECT_THAT(told(), ElementsAre("menu " + std::to_string(int(c.tool)) + "000")) << c.flag;
        EXPECT_THAT(panels.takeRefreshed(), ElementsAre(Panel::Toolbox, Panel::ToolOptions)) << c.flag;
    }
}

TEST_F(UtilCommandTest, StoresToolOptionsAsFarAsTheyGo)
{
    const struct {
        const char* arguments;
        ToolType tool;
        int size, opacity, hardness;
        bool tablet;
    } cases[] = {
        {"-po 7 50 1", ToolType::Pencil, 7, 50, 100, true},
        {"-pencilOptions 0 0 0", ToolType::Pencil, 1, 1, 100, false},
        {"-bo 200 200 200 5", ToolType::Brush, 100, 100, 100, true},
        {"-brushOptions 9 8 7 0", ToolType::Brush, 9, 8, 7, false},
        {"-eo 9 8 0 1", ToolType::Eraser, 9, 8, 0, true},
        {"-txo 12 34 Courier", ToolType::Text, 12, 34, 100, false},
        {"-lo 80 20", ToolType::Line, 50, 20, 100, false},
        {"-ao 2147483647 2147483647", ToolType::Arrow, 50, 100, 100, false},
        {"-ellipseOptions 3 4", ToolType::Ellipse, 3, 4, 100, false},
        {"-ro 5 6", ToolType::Rectangle, 5, 6, 100, false},
    };
    for (Panel panel : {Panel::Toolbox, Panel::ToolOptions}) {
        panels.panel(panel);
    }
    const Preferences& preferences = Preferences::instance();
    for (const auto& c : cases) {
        ASSERT_TRUE(util(c.arguments)) << c.arguments;
        EXPECT_EQ(preferences.toolSize(c.tool), c.size) << c.arguments;
        EXPECT_EQ(preferences.toolOpacity(c.tool), c.opacity) << c.arguments;
        EXPECT_EQ(preferences.toolHardness(c.tool), c.hardness) << c.arguments;
        EXPECT_EQ(preferences.isTabletEnabled(c.tool), c.tablet) << c.arguments;
        EXPECT_THAT(panels.takeRefreshed(), ElementsAre(Panel::ToolOptions, Panel::Toolbox)) << c.arguments;
    }
    EXPECT_EQ(preferences.textFontFamily(), "Courier");
    expectRefused("-q -po", "Invalid command parameters");
    EXPECT_EQ(preferences.toolSize(ToolType::Pencil), 1);
}

TEST_F(UtilCommandTest, WhatIsNoValueOfItsTypeIsRefusedWhole)
{
    const struct {
        const char* flag;
        int numbers;
        const char* rest;  // what the flag takes after its numbers
        bool isSigned;
    } cases[] = {
        {"-e -dc", 3, "", false},  {"-e -gp", 1, "", true},   {"-e -gn", 1, "", true},   {"-e -gpc", 1, "", false},
        {"-e -gnc", 1, "", false}, {"-e -gco", 1, "", false}, {"-e -gcp", 3, "", false}, {"-e -gcn", 3, "", false},
        {"-e -tfd", 1, "", false}, {"-po", 3, "", false},     {"-bo", 4, "", false},     {"-eo", 4, "", false},
        {"-txo", 2, "x", false},   {"-lo", 2, "", false},     {"-ao", 2, "", false},     {"-elo", 2, "", false},
        {"-ro", 2, "", false},
    };
    const auto settings = [this] {
        std::string all;
        for (const char* flag : {"-dc", "-gp", "-gn", "-gpc", "-gnc", "-gco", "-gcp", "-gcn", "-tfd"}) {
            all += kernel::toText(ask(std::string("-q ") + flag)) + "; ";
        }
        for (int i = 0; i < 8; ++i) {
            const Preferences& preferences = Preferences::instance();
            const ToolType tool = ToolType(i);
            for (int value : {preferences.toolSize(tool), preferences.toolOpacity(tool), preferences.toolHardness(tool),
                              int(preferences.isTabletEnabled(tool))}) {
                all += std::to_string(value) + " ";
            }
        }
        return all + Preferences::instance().textFontFamily().toStdString();
    };
    const std::string before = settings();
    for (const auto& c : cases) {
        for (int wrong = 0; wrong < c.numbers; ++wrong) {
            for (const char* value : {"", "-1", "-2147483649", "2147483648", "4294967295", "1e10", "x"}) {
                if (c.isSigned && value == std::string("-1")) {
                    continue;
                }
                std::string arguments = c.flag;
                for (int i = 0; i < c.numbers; ++i) {
                    arguments += std::string(" ") + (i == wrong ? value : "1");
                }
                expectRefused(arguments + " " + c.rest);
                EXPECT_EQ(settings(), before) << arguments;
            }
        }
    }
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(UtilCommandTest, SettingsAreEditedHeldWithinTheirRangeAndAskedFor)
{
    const struct {
        const char* edit;
        const char* query;
        Value value;
    } cases[] = {
        {"-e -dc 1 2 255", "-q -drawColor", colour(1, 2, 255)},
        {"-e -gp 1", "-q -ghostPrevious", 1},
        {"-e -ghostPrevious -1", "-q -gp", 0},
        {"-e -gp -2147483648", "-q -gp", 1},
        {"-e -gp 0", "-q -gp", 0},
        {"-e -gn 2147483647", "-q -ghostNext", 1},
        {"-e -ghostNext -1", "-q -gn", 0},
        {"-e -gpc 0", "-q -ghostPreviousCount", 1},
        {"-e -gpc 40", "-q -gpc", 9},
        {"-e -ghostPreviousCount 5", "-q -gpc", 5},
        {"-e -gnc 2147483647", "-q -ghostNextCount", 9},
        {"-e -gco 7", "-q -ghostColorOverride", 1},
        {"-e -ghostColorOverride 0", "-q -gco", 0},
        {"-e -gcp 9 8 7", "-q -ghostColorPrevious", colour(9, 8, 7)},
        {"-e -gcn 0 255 0", "-q -ghostColorNext", colour(0, 255, 0)},
        {"-e -tfd 2", "-q -timelineFrameDisplay", 2},
        {"-e -timelineFrameDisplay 0", "-q -tfd", 0},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(util(c.edit)) << c.edit;
        EXPECT_EQ(ask(c.query), c.value) << c.edit;
    }
    EXPECT_EQ(Preferences::instance().activeColor(), QColor(1, 2, 255, 255));
    EXPECT_EQ(Preferences::instance().ghostColorOverridePrev(), QColor(9, 8, 7, 255));
    EXPECT_EQ(Preferences::instance().ghostColorOverrideNext(), QColor(0, 255, 0, 255));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(UtilCommandTest, ARefusedSettingLeavesTheOldValue)
{
    const struct {
        const char* edit;
        const char* message;
        const char* query;
    } cases[] = {
        {"-e -dc 255 0 256", "Color values must be in the range of 0-255.", "-q -dc"},
        {"-e -dc 2147483647 0 0", "Color values must be in the range of 0-255.", "-q -dc"},
        {"-e -gcp 0 300 0", "Color values must be in the range of 0-255.", "-q -gcp"},
        {"-e -gcn 256 0 0", "Color values must be in the range of 0-255.", "-q -gcn"},
        {"-e -tfd 3", "Invalid timeline frame display option.", "-q -tfd"},
        {"-tfd 2", "Invalid command parameters", "-q -tfd"},
        {"-dc 1 2 3", "Invalid command parameters", "-q -dc"},
    };
    for (const auto& c : cases) {
        const Value before = ask(c.query);
        expectRefused(c.edit, c.message);
        EXPECT_EQ(ask(c.query), before) << c.edit;
        EXPECT_THAT(told(), IsEmpty()) << c.edit;
    }
}

TEST_F(UtilCommandTest, WhatShowsTheGhostSettingsFollowsThem)
{
    drawing().insertLayer("persp", -1, "Ink");
    panels.panel(Panel::Toolbox);
    for (const char* edit :
         {"-e -gp 1", "-e -gn 1", "-e -gpc 2", "-e -gnc 2", "-e -gco 1", "-e -gcp 1 2 3", "-e -gcn 1 2 3"}) {
        drawing().composite("persp");
        ASSERT_FALSE(drawing().needsRedraw("persp")) << edit;
        told();
        ASSERT_TRUE(util(edit)) << edit;
        EXPECT_TRUE(drawing().needsRedraw("persp")) << edit;
        EXPECT_EQ(told().size(), 1u) << edit;
        EXPECT_THAT(panels.takeRefreshed(), ElementsAre(Panel::Toolbox)) << edit;
    }
    util("-e -gn 0");
    EXPECT_THAT(told(), ElementsAre("menu 1100"));
}

TEST_F(UtilCommandTest, TheTimelinesMarksFollowTheirDisplay)
{
    struct Marks : TimelineMarks {
        bool update() override { return false; }
        void refresh() override { ++refreshes; }
        int refreshes = 0;
    } marks;
    TimelineMarks::install(&marks);
    EXPECT_TRUE(util("-e -tfd 1"));
    EXPECT_EQ(marks.refreshes, 1);
    EXPECT_THAT(told(), ElementsAre("menu 1001"));
    EXPECT_TRUE(util("-rtd"));
    EXPECT_EQ(marks.refreshes, 2);
    EXPECT_THAT(told(), IsEmpty());
    TimelineMarks::install(nullptr);
    EXPECT_TRUE(util("-refreshTimelineDisplay"));
}

TEST_F(UtilCommandTest, OpensTheFloatingViewWithTheCameraNamed)
{
    const struct {
        const char* arguments;
        const char* told;
    } cases[] = {
        {"-fv", "view "},
        {"-fvm top", "view top"},
        {"-floatingViewportMove nowhere", "view "},
        {"-fvm \"\"", "view "},  // nobody is asked without a drawing
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(util(c.arguments)) << c.arguments;
        EXPECT_THAT(told(), ElementsAre(c.told)) << c.arguments;
    }
}

TEST_F(UtilCommandTest, AsksWhoseLayersToMoveIntoTheFloatingView)
{
    drawing().insertLayer("top", -1, "Ink");
    whenAsked<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Move Layers to View");
        EXPECT_EQ(dialog.labelText(), "Select camera to move layers from:                 ");
        EXPECT_EQ(dialog.comboBoxItems(), script::sceneCameras());
        EXPECT_EQ(dialog.textValue(), "top");
        EXPECT_FALSE(dialog.isComboBoxEditable());
        dialog.setTextValue("side");
        dialog.accept();
    });
    EXPECT_TRUE(util("-fvm \"\""));
    EXPECT_EQ(dialogs(), 1);
    EXPECT_THAT(told(), ElementsAre("view side"));

    drawing().setCurrentCamera("elsewhere");
    whenAsked<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), script::sceneCameras().first());
        dialog.reject();
    });
    EXPECT_TRUE(util("-fvm \"\""));
    EXPECT_EQ(dialogs(), 1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(UtilCommandTest, ShowsThePanelThatThereIsOrMakesIt)
{
    const struct {
        const char* flag;
        Panel panel;
    } cases[] = {
        {"-layerManager", Panel::LayerManager}, {"-tb", Panel::Toolbox},
        {"-toolOptions", Panel::ToolOptions},   {"-colorPalette", Panel::ColorPalette},
        {"-retimingTool", Panel::RetimingTool},
    };
    int made = 0;
    for (const auto& c : cases) {
        ASSERT_TRUE(util(c.flag)) << c.flag;
        QWidget* panel = panels.existingPanel(c.panel);
        ASSERT_NE(panel, nullptr) << c.flag;
        EXPECT_TRUE(panel->isVisible()) << c.flag;
        ASSERT_TRUE(util(c.flag)) << c.flag;
        EXPECT_EQ(panels.made, ++made) << c.flag;
        panel->hide();
        ASSERT_TRUE(util(c.flag)) << c.flag;
        EXPECT_TRUE(panel->isVisible()) << c.flag;
        panel->setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
        ASSERT_TRUE(util(c.flag)) << c.flag;
        EXPECT_EQ(panel->windowState(), Qt::WindowMaximized) << c.flag;
    }
    panels.refusing = true;
    delete panels.existingPanel(Panel::Toolbox);
    expectRefused("-tb");
}

TEST_F(UtilCommandTest, OpensDialogs)
{
    const struct {
        const char* flag;
        Dialog dialog;
    } cases[] = {
        {"-nl", Dialog::NewLayer},
        {"-ghostingSettings", Dialog::GhostingSettings},
        {"-pr", Dialog::Preferences},
        {"-about", Dialog::About},
    };
    for (const auto& c : cases) {
        panels.opened.clear();
        EXPECT_TRUE(util(c.flag)) << c.flag;
        EXPECT_THAT(panels.opened, ElementsAre(c.dialog)) << c.flag;
    }
    panels.refusing = true;
    expectRefused("-ab");
}

TEST_F(UtilCommandTest, LayerPropertiesAreThoseOfTheActiveLayer)
{
    expectRefused("-lp");  // no drawing
    drawing();
    expectRefused("-lp");  // no camera
    drawing().insertLayer("top", -1, "Ink");
    drawing().insertLayer("top", -1, "Paint");
    drawing().setActiveLayer("top", 1, true);
    EXPECT_TRUE(util("-layerProperties"));
    EXPECT_EQ(panels.layer, "top 1");
    drawing().setCurrentCamera("persp");
    expectRefused("-lp");  // no layer
}

TEST_F(UtilCommandTest, RefreshesWhatExists)
{
    struct List : LayerListView {
        void clear() override { calls += "clear "; }
        void addRow(const QString&, int, const QString& name, int, bool) override { calls += name + " "; }
        void select(const QString&, int) override {}
        void refresh() override { calls += "refresh"; }
        QString calls;
    } list;
    EXPECT_TRUE(util("-rlm"));
    LayerManager::setLayerListView(&list);
    EXPECT_TRUE(util("-refreshLayerManager"));
    EXPECT_EQ(list.calls, "refresh");
    drawing().insertLayer("persp", -1, "Ink");
    list.calls.clear();
    EXPECT_TRUE(util("-rlm"));
    EXPECT_EQ(list.calls, "clear Ink refresh");

    EXPECT_TRUE(util("-rtb"));
    EXPECT_THAT(panels.takeRefreshed(), IsEmpty());
    panels.panel(Panel::Toolbox);
    EXPECT_TRUE(util("-refreshToolbox"));
    EXPECT_THAT(panels.takeRefreshed(), ElementsAre(Panel::Toolbox));
}

TEST_F(UtilCommandTest, ResetsThePanelsOnceTheUserAgrees)
{
    util("-lm; tqLumisketchUtil -tb");
    QPointer<QWidget> manager = panels.existingPanel(Panel::LayerManager);
    QPointer<QWidget> toolbox = panels.existingPanel(Panel::Toolbox);
    toolbox->setAttribute(Qt::WA_DeleteOnClose);
    Preferences::instance().setToolboxGeometry("somewhere");
    whenAsked<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Reset UI");
        EXPECT_EQ(box.text(), "Reset user interface elements?");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        box.button(QMessageBox::No)->click();
    });
    EXPECT_TRUE(util("-rui"));
    EXPECT_EQ(dialogs(), 1);
    EXPECT_TRUE(manager && manager->isVisible());

    whenAsked<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(util("-resetUI"));
    EXPECT_FALSE(manager);
    EXPECT_FALSE(toolbox);
    EXPECT_TRUE(Preferences::instance().toolboxGeometry().isEmpty());
    const int made = panels.made;
    EXPECT_TRUE(util("-lm"));
    EXPECT_EQ(panels.made, made + 1);
}

TEST_F(UtilCommandTest, WithoutAWindowNothingOpensAndNobodyIsAsked)
{
    drawing().insertLayer("persp", -1, "Ink");
    session().batch = true;
    for (const char* flag :
         {"-lm", "-tb", "-to", "-cp", "-rtt", "-nl", "-lp", "-gs", "-pr", "-ab", "-rui", "-fvm \"\""}) {
        expectRefused(flag);
    }
    EXPECT_EQ(panels.made, 0);
    EXPECT_THAT(panels.opened, IsEmpty());
    EXPECT_THAT(told(), IsEmpty());
    session().batch = false;
    Panels::install(nullptr);
    for (const char* flag : {"-lm", "-nl", "-lp", "-ab"}) {
        expectRefused(flag);
    }
}

TEST_F(UtilCommandTest, TheFirstFlagInOrderIsRun)
{
    EXPECT_TRUE(util("-e -tfd 1 -gpc 4 -about"));
    EXPECT_EQ(ask("-q -gpc"), Value(4));
    EXPECT_EQ(ask("-q -tfd"), Value(0));
    EXPECT_THAT(panels.opened, IsEmpty());
    EXPECT_TRUE(util("-tt -lt"));
    EXPECT_EQ(Preferences::instance().activeTool(), ToolType::Line);
    EXPECT_EQ(ask("-q -tfd -gpc"), Value(4)) << "asked, too";
}

TEST_F(UtilCommandTest, LeavesNoUndoStepAndSaysWhatItCannotDo)
{
    const unsigned steps = session().undo.count();
    EXPECT_TRUE(util("-framewrightImport"));
    EXPECT_TRUE(util("-e -gp 1"));
    EXPECT_TRUE(util("-pt"));
    EXPECT_TRUE(util("-po 1 2 0"));
    EXPECT_EQ(session().undo.count(), steps);
    expectRefused("", "Invalid command parameters");
    expectRefused("-e", "Invalid command parameters");
    expectRefused("-q", "Invalid command parameters");
    expectRefused("-zz");
    expectRefused("-tb persp");
}

}  // namespace
