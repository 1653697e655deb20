// The built module, loaded as the host loads it.

#include "settings/Names.h"
#include "support/HostFixture.h"
#include "support/TestView.h"

#include "api/HostApi.h"
#include "api/Messages.h"
#include "api/Module.h"
#include "api/Registration.h"
#include "api/Tools.h"
#include "app/MainWindow.h"

#include <QCursor>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>

#include <maya/MDrawRegistry.h>

#include <functional>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const char kName[] = "lumisketch2";

MHWRender::MPxDrawOverride* noDrawing(const MObject&)
{
    return nullptr;
}

class PluginMainTest : public HostFixture {
protected:
    bool load() { return host().loadModule(LUMISKETCH_MODULE); }
    bool unload() { return run("unloadPlugin lumisketch2"); }
    void take(const std::string& command)
    {
        session().commands.add(command, [](const kernel::ValueList&) { return kernel::Value(); });
    }
    void replace(const std::string& command, const std::function<kernel::Value(const kernel::ValueList&)>& run)
    {
        session().commands.remove(command);
        session().commands.add(command, run);
    }
    void failAt(const std::string& command)
    {
        replace(command, [](const kernel::ValueList&) -> kernel::Value { throw kernel::CommandError("refused"); });
    }
    std::string value(const std::string& text) { return kernel::toText(evaluate(text)); }
    std::string jobCount() { return value("size(`scriptJob -listJobs`)"); }
    QString preferences()
    {
        QFile file(QDir(prefsDir()).filePath("lumisketch2.ini"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    void writePreferences(const QByteArray& text)
    {
        QFile file(QDir(prefsDir()).filePath("lumisketch2.ini"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void forgetPreferences() { QFile::remove(QDir(prefsDir()).filePath("lumisketch2.ini")); }
};

/// The host as it is with a window and two views.
class PluginMainInAWindow : public PluginMainTest {
protected:
    PluginMainInAWindow() : window(host()) { session().batch = false; }
    ~PluginMainInAWindow() override { host().shutDown(); }  // its callbacks reach the window

    /// Our menus among those of the window.
    QList<QMenu*> menus() const
    {
        QList<QMenu*> found;
        for (QAction* action : window.menuBar()->actions()) {
            if (action->menu() && action->text() == "LM2") {
                found << action->menu();
            }
        }
        return found;
    }
    /// The labels in the menu bar, from left to right.
    QStringList bar() const
    {
        QStringList labels;
        for (const QAction* action : window.menuBar()->actions()) {
            if (action->isVisible()) {
                labels << action->text();
            }
        }
        return labels;
    }
    QStringList checkedItems() const
    {
        QStringList texts;
        for (const QMenu* menu : menus()) {
            for (const QMenu* submenu : menu->findChildren<QMenu*>()) {
                for (const QAction* action : submenu->actions()) {
                    if (action->isChecked()) {
                        texts << action->text();
                    }
                }
            }
        }
        return texts;
    }
    void press()
    {
        api::ToolEvent event;
        event.kind = api::ToolEvent::Kind::Press;
        event.button = api::ToolEvent::Button::Left;
        event.x = event.y = 100;
        api::ToolBox::instance().send(event, nullptr, nullptr);
    }
    void release()
    {
        api::ToolEvent event;
        event.kind = api::ToolEvent::Kind::Release;
        event.button = api::ToolEvent::Button::Left;
        api::ToolBox::instance().send(event, nullptr, nullptr);
    }

    app::MainWindow window;
    TestViews views;
};

TEST_F(PluginMainTest, RegistersCommandsToolsDataNodeAndDrawing)
{
    ASSERT_TRUE(load());
    EXPECT_THAT(api::commandsOf(kName), ElementsAre("tqLumisketchNode", "tqLumisketchLayer", "tqLumisketchFrame",
                                                    "tqLumisketchStroke", "tqLumisketchUtil"));
    EXPECT_THAT(api::contextCommandsOf(kName), ElementsAre("tqLmDrawCtx", "tqLmTransformCtx"));
    EXPECT_THAT(api::drawOverridesOf(kName), ElementsAre("drawdb/geometry/tqLumisketch"));
    const kernel::NodeType* type = session().nodeTypes.find(names::kNodeType);
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->id, 1157254u);
    EXPECT_NE(session().dataTypes.find(names::kLayerDataType), nullptr);
    EXPECT_EQ(evaluate("pluginInfo -q -version lumisketch2"), kernel::Value(std::string("2.5.4")));
    const auto jobs = std::get<kernel::StringArray>(evaluate("scriptJob -listJobs"));
    ASSERT_THAT(jobs, SizeIs(1));
    EXPECT_THAT(jobs[0], HasSubstr("\"-conditionFalse\" \"playingBack\" \"tqLumisketchNode -rg\""));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(PluginMainTest, DefinesTheScriptsProceduresInBatchButMakesAndDeletesNoMenu)
{
    int menuCommands = 0;
    for (const char* command : {"menu", "menuItem", "deleteUI", "menuSet"}) {
        replace(command, [&](const kernel::ValueList&) {
            ++menuCommands;
            return kernel::Value();
        });
    }
    ASSERT_TRUE(load());
    EXPECT_TRUE(run("tqLumisketchUtil -e -ghostPrevious 1"));
    EXPECT_EQ(value("exists tqLmCreateFloatingViewport"), "1");
    ASSERT_TRUE(unload());
    EXPECT_EQ(menuCommands, 0);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(PluginMainInAWindow, HasItsMenuForAsLongAsItIsLoaded)
{
    ASSERT_TRUE(load());
    EXPECT_THAT(menus(), SizeIs(1));
    EXPECT_EQ(checkedItems(), (QStringList{"Brush", "Always"}));
    ASSERT_TRUE(run("tqLumisketchUtil -arrowTool; tqLumisketchUtil -e -ghostNext 1;"
                    "tqLumisketchUtil -e -timelineFrameDisplay 2"));
    EXPECT_EQ(checkedItems(), (QStringList{"Arrow", "Ghost Next", "Off"}));
    ASSERT_TRUE(run("setToolTo selectSuperContext; file -f -new; flushUndo"));
    ASSERT_TRUE(unload());
    EXPECT_THAT(menus(), IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(PluginMainInAWindow, HasItsMenuUnderTheNameAndInTheSetTheUserWants)
{
    const QStringList without = bar();
    writePreferences("[main]\nmainMenuName=\"Sketch, \\\"quick\\\"\"\n");
    ASSERT_TRUE(load());
    const QString label = "Sketch, \"quick\"";
    EXPECT_EQ(bar().count(label), 1);
    EXPECT_EQ(bar().size(), without.size() + 1);
    for (const char* set : {"animationMenuSet", "renderingMenuSet", "modelingMenuSet"}) {
        ASSERT_TRUE(run(std::string("setMenuMode ") + set));
        EXPECT_TRUE(bar().contains(label)) << set;
    }
    ASSERT_TRUE(unload());
    EXPECT_EQ(bar(), without);

    writePreferences("[preferences]\nshowMainMenuInAnimationSet=true\n");
    ASSERT_TRUE(run("setMenuMode riggingMenuSet"));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(load());
        host().drainIdle();
        EXPECT_EQ(value("menuSet -q -currentMenuSet"), "riggingMenuSet");
        EXPECT_EQ(value("size(`menuSet -q -menuArray animationMenuSet`)"), "1");
        EXPECT_EQ(bar(), without);
        ASSERT_TRUE(run("setMenuMode animationMenuSet"));
        EXPECT_TRUE(bar().contains("LM2"));
        ASSERT_TRUE(run("setMenuMode riggingMenuSet"));
        EXPECT_EQ(bar(), without);
        ASSERT_TRUE(unload());
        EXPECT_EQ(value("size(`menuSet -q -menuArray animationMenuSet`)"), "0");
    }
    // The set is shown again when the host is idle, and it is not idle before both loads are done.
    ASSERT_TRUE(run(std::string("loadPlugin \"") + LUMISKETCH_MODULE + "\"; unloadPlugin lumisketch2; loadPlugin \""
                    + LUMISKETCH_MODULE + "\""));
    EXPECT_EQ(value("menuSet -q -currentMenuSet"), "riggingMenuSet");
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(PluginMainTest, LeavesNothingBehindHoweverOftenItIsLoaded)
{
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(load());
        ASSERT_TRUE(run("tqLumisketchNode -l -c persp -f; tqLumisketchFrame -clear persp; undo"));
        ASSERT_TRUE(run("evalDeferred(\"tqLumisketchUtil -rlm\"); file -f -new; flushUndo; unloadPlugin lumisketch2"));
        EXPECT_FALSE(api::isModuleLoaded(kName));
        EXPECT_EQ(jobCount(), "0");
        // The loader warns of whatever a module leaves registered.
        ASSERT_THAT(warnings(), IsEmpty());
        ASSERT_THAT(errors(), IsEmpty());
    }
    // Whoever still listened would now run code that is gone.
    for (const char* event : {"SelectionChanged", "timeChanged", "timeUnitChanged", "SceneOpened", "Undo", "Redo"}) {
        session().events.raise(event);
    }
}

TEST_F(PluginMainTest, WhatItPutOffUntilIdleTimeGoesWithIt)
{
    ASSERT_TRUE(load());
    ASSERT_TRUE(run("evalDeferred(\"tqLumisketchUtil -rlm\"); evalDeferred \"global int $gRan = 1\";"
                    "evalDeferred -lowestPriority(\" tqLumisketchUtil -draw\"); unloadPlugin lumisketch2;"
                    "if (size(`evalDeferred -list`) != 1) error \"listed\";"));
    host().drainIdle();
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(value("int $ran = $gRan; $ran;"), "1") << "what is not the module's still runs";
}

// A stroke that is being drawn has a thread at work, and so have those that are packed; a tool that is in use watches
// the view.
TEST_F(PluginMainInAWindow, LeavesNothingBehindWhateverTheUserWasDoing)
{
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(load());
        ASSERT_TRUE(run("tqLumisketchNode -l -c persp -f; tqLumisketchUtil -draw"));
        QCursor::setPos(views.persp().widget()->mapToGlobal(QPoint(100, 100)));
        press();
        if (round % 2 == 0) {
            release();
            press();
            release();
            EXPECT_TRUE(run("undo; redo"));
        }
        ASSERT_TRUE(round % 3 > 0 || run("tqLumisketchUtil -transform"));
        ASSERT_TRUE(run("file -f -new; flushUndo"));
        ASSERT_TRUE(unload());
        EXPECT_EQ(value("currentCtx"), "selectSuperContext");
        ASSERT_THAT(warnings(), IsEmpty());
        ASSERT_THAT(errors(), IsEmpty());
        release();
    }
}

TEST_F(PluginMainInAWindow, LeavesItsToolWhileAllOfItIsStillThere)
{
    for (const char* tool : {"-draw", "-transform"}) {
        ASSERT_TRUE(load());
        ASSERT_TRUE(run(std::string("tqLumisketchUtil ") + tool) && run("file -f -new; flushUndo"));
        int changes = 0;
        const unsigned listener = session().events.add("ToolChanged", [&] {
            ++changes;
            EXPECT_THAT(menus(), SizeIs(1)) << tool;
            EXPECT_NE(session().nodeTypes.find(names::kNodeType), nullptr) << tool;
        });
        ASSERT_TRUE(unload());
        EXPECT_EQ(changes, 1) << tool;
        session().events.remove(listener);
    }
}

TEST_F(PluginMainInAWindow, LeavesTheToolOfTheUserAloneUnlessItIsItsOwn)
{
    ASSERT_TRUE(load());
    ASSERT_TRUE(run("setToolTo moveSuperContext"));
    ASSERT_TRUE(unload());
    EXPECT_EQ(value("currentCtx"), "moveSuperContext");
}

TEST_F(PluginMainTest, ItsScriptsCleanUpLayersAndDrawingsInStepsThatCanBeUndone)
{
    const char* const cleanUps[] = {"tqLmDeleteActiveLayer()", "tqLmDeleteActiveCameraLayers()",
                                    "tqLmDeleteAllNodes()"};
    ASSERT_TRUE(load());
    for (const char* cleanUp : cleanUps) {
        EXPECT_TRUE(run(cleanUp)) << "without a drawing";
    }
    EXPECT_EQ(session().undo.count(), 0u);
    for (const char* step : {"tqLumisketchNode -l -c top", "tqLumisketchLayer -add -n two -ls 0 persp",
                             "tqLumisketchLayer -add -n three -ls 0 persp", "tqLumisketchLayer -e -active 0 persp"}) {
        ASSERT_TRUE(run(step)) << step << testing::PrintToString(errors());
    }
    const auto state = [this] {
        return value("objExists lumisketch") + ' ' + value("tqLumisketchLayer -cnt persp") + ' '
             + value("tqLumisketchLayer -cnt top");
    };
    ASSERT_EQ(state(), "1 2 1");
    const char* const after[] = {"1 1 1", "1 0 1", "0  "};
    for (std::size_t i = 0; i < std::size(cleanUps); ++i) {
        ASSERT_TRUE(run(cleanUps[i]));
        EXPECT_EQ(state(), after[i]) << cleanUps[i];
        ASSERT_TRUE(run("undo"));
        EXPECT_EQ(state(), "1 2 1") << cleanUps[i];
    }
}

TEST_F(PluginMainTest, IsNotUnloadedWhileItsNodesExistOrItsStepsCanBeUndone)
{
    ASSERT_TRUE(load());
    ASSERT_TRUE(run("tqLumisketchNode"));
    EXPECT_FALSE(unload());
    ASSERT_TRUE(run("undo"));
    EXPECT_FALSE(unload()) << "the step can be redone";
    ASSERT_TRUE(run("flushUndo"));
    EXPECT_TRUE(unload());
    EXPECT_THAT(errors(), Each("Plug-in, \"lumisketch2\", cannot be unloaded because it is still in use"));
}

TEST_F(PluginMainTest, SavesThePreferencesWhenItIsUnloadedAndWhenTheHostQuits)
{
    ASSERT_TRUE(load());
    EXPECT_TRUE(preferences().isEmpty());
    ASSERT_TRUE(unload());
    EXPECT_TRUE(preferences().contains("pencilSize=6"));

    forgetPreferences();
    ASSERT_TRUE(load());
    session().events.raise("quitApplication");
    EXPECT_TRUE(preferences().contains("version=1"));
    // The host unloads what is loaded when it quits: that is not another time to save.
    forgetPreferences();
    ASSERT_TRUE(unload());
    EXPECT_TRUE(preferences().isEmpty());
}

TEST_F(PluginMainTest, AFailedRegistrationStopsTheLoadInItsOwnWords)
{
    const auto takeCommand = [this](const char* name) { return [this, name] { take(name); }; };
    const auto giveCommandBack = [this](const char* name) { return [this, name] { session().commands.remove(name); }; };
    struct Case {
        std::function<void()> take;
        std::function<void()> giveBack;
        std::string message;
    };
    std::vector<Case> cases;
    for (const char* name :
         {"tqLumisketchNode", "tqLumisketchLayer", "tqLumisketchFrame", "tqLumisketchStroke", "tqLumisketchUtil"}) {
        cases.push_back({takeCommand(name), giveCommandBack(name),
                         std::string("Failed to register '") + name + "' command: (kFailure)"});
    }
    for (const char* name : {"tqLmDrawCtx", "tqLmTransformCtx"}) {
        cases.push_back({takeCommand(name), giveCommandBack(name),
                         std::string("Failed to register '") + name + "' contextCommand: (kFailure)"});
    }
    cases.push_back({[this] {
                         kernel::DataType taken;
                         taken.name = names::kLayerDataType;
                         taken.id = names::kLayerDataTypeId;
                         taken.make = [] { return nullptr; };
                         session().dataTypes.add(taken);
                     },
                     [this] { session().dataTypes.remove(names::kLayerDataTypeId); },
                     "Could not register 'tqLayerData"});
    cases.push_back({[this] {
                         kernel::NodeType taken;
                         taken.name = names::kNodeType;
                         taken.base = session().nodeTypes.find("locator");
                         session().nodeTypes.add(taken);
                     },
                     [this] { session().nodeTypes.remove(names::kNodeType); }, "Failed to register base node"});
    cases.push_back({[] {
                         MHWRender::MDrawRegistry::registerDrawOverrideCreator(names::kDrawClassification,
                                                                               names::kDrawRegistrant, noDrawing);
                     },
                     [] {
                         MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(names::kDrawClassification,
                                                                                 names::kDrawRegistrant);
                     },
                     "Failed to register draw node override"});
    for (const Case& c : cases) {
        c.take();
        forgetLines();
        EXPECT_FALSE(load()) << c.message;
        EXPECT_THAT(errors(), ElementsAre(StartsWith(c.message), "initializePlugin function failed (lumisketch2)"));
        EXPECT_FALSE(api::isModuleLoaded(kName));
        EXPECT_EQ(jobCount(), "0") << c.message;
        c.giveBack();
    }
    forgetLines();
    EXPECT_TRUE(load());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(PluginMainInAWindow, LoadsWithoutWhatIsOnlyConvenient)
{
    // Another script's variable of that name and another kind: none of the script can be defined.
    ASSERT_TRUE(run("global int $gTqLmToolItems;"));
    ASSERT_TRUE(load());
    EXPECT_THAT(errors(), Contains("Failed to source scripts"));
    EXPECT_THAT(errors(), Not(Contains("Failed to create main menu")));
    EXPECT_THAT(menus(), IsEmpty());
}

TEST_F(PluginMainInAWindow, LoadsWithoutAMenuThatCannotBeMade)
{
    failAt("menuItem");
    ASSERT_TRUE(load());
    EXPECT_THAT(errors(), Contains("Failed to create main menu"));
    EXPECT_TRUE(run("tqLumisketchNode -ex"));
}

TEST_F(PluginMainInAWindow, LoadsWithAMenuThatCannotBeUpdated)
{
    const kernel::CommandFactory makeReal = session().commands.find("menuItem")->make;
    replace("menuItem", [makeReal](const kernel::ValueList& arguments) {
        if (kernel::toText(arguments.front()) == "-edit") {
            throw kernel::CommandError("refused");
        }
        return makeReal()->run(arguments);
    });
    ASSERT_TRUE(load());
    EXPECT_THAT(errors(), AllOf(Contains("Failed to update main menu"), Not(Contains("Failed to create main menu"))));
}

TEST_F(PluginMainTest, LoadsAndUnloadsQuietlyWithoutItsScriptJob)
{
    std::vector<std::string> asked;
    replace("scriptJob", [&](const kernel::ValueList& arguments) -> kernel::Value {
        asked.push_back(kernel::toText(arguments.front()));
        throw kernel::CommandError("");
    });
    ASSERT_TRUE(load());
    ASSERT_TRUE(unload());
    EXPECT_THAT(asked, ElementsAre("-cf")) << "there is no job to kill";
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(PluginMainInAWindow, UnloadsThoughItsMenuCannotBeDeleted)
{
    ASSERT_TRUE(load());
    failAt("deleteUI");
    EXPECT_TRUE(unload());
    EXPECT_THAT(errors(), ElementsAre("refused", "Failed to delete main menu"));
}

// Whatever has been taken away under it stops the unloading there, with what comes later still in place.
TEST_F(PluginMainTest, AFailedDeregistrationStopsTheUnloadingInItsOwnWords)
{
    struct Case {
        std::function<void()> takeAway;
        std::string message;
        std::size_t commandsLeft;
        std::size_t toolsLeft;
        bool isSaved;
    };
    const auto takeCommand = [this](const char* name) {
        return [this, name] { api::deregisterCommand(session(), name); };
    };
    const auto takeTool = [this](const char* name) {
        return [this, name] { api::deregisterContextCommand(session(), name); };
    };
    const std::vector<Case> cases = {
        {[this] { run("scriptJob -killAll -force"); }, "Failed to remove scriptJobs", 5, 2, false},
        {[this] { api::dropCallbacksOf(session(), kName); }, "Failed to remove callbacks", 5, 2, false},
        {[] {
             MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(names::kDrawClassification,
                                                                     names::kDrawRegistrant);
         },
         "Failed to deregister base node draw override", 5, 2, false},
        {[] { api::removeNodeType(*api::findModule(kName), names::kNodeType); }, "Failed to deregister base node", 5, 2,
         false},
        {[] { api::removeDataType(*api::findModule(kName), names::kLayerDataType); },
         "Could not deregister tqLayerData", 5, 2, true},
        {takeTool("tqLmDrawCtx"), "Failed to deregister 'tqLmDrawCtx' contextCommand: (kFailure)", 5, 1, true},
        {takeTool("tqLmTransformCtx"), "Failed to deregister 'tqLmTransformCtx' contextCommand: (kFailure)", 5, 0,
         true},
        {takeCommand("tqLumisketchUtil"), "Failed to deregister 'tqLumisketchUtil' command: (kFailure)", 4, 0, true},
        {takeCommand("tqLumisketchStroke"), "Failed to deregister 'tqLumisketchStroke' command: (kFailure)", 3, 0,
         true},
        {takeCommand("tqLumisketchFrame"), "Failed to deregister 'tqLumisketchFrame' command: (kFailure)", 2, 0, true},
        {takeCommand("tqLumisketchLayer"), "Failed to deregister 'tqLumisketchLayer' command: (kFailure)", 1, 0, true},
        {takeCommand("tqLumisketchNode"), "Failed to deregister 'tqLumisketchNode' command: (kFailure)", 0, 0, true},
    };
    for (const Case& c : cases) {
        forgetPreferences();
        ASSERT_TRUE(load()) << c.message;
        c.takeAway();
        forgetLines();
        EXPECT_FALSE(unload()) << c.message;
        auto said = errors();
        said.erase(std::remove(said.begin(), said.end(), "scriptJob: There is no job number 1."), said.end());
        EXPECT_THAT(said, ElementsAre(StartsWith(c.message), "uninitializePlugin function failed (lumisketch2)"));
        EXPECT_THAT(api::commandsOf(kName), SizeIs(c.commandsLeft)) << c.message;
        EXPECT_THAT(api::contextCommandsOf(kName), SizeIs(c.toolsLeft)) << c.message;
        EXPECT_EQ(!preferences().isEmpty(), c.isSaved) << c.message;
        run("unloadPlugin -f lumisketch2");
        ASSERT_FALSE(api::isModuleLoaded(kName));
    }
}

}  // namespace
