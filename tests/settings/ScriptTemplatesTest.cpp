// Every text the bridge sends, as the host gets it.

#include "settings/Names.h"
#include "settings/ScriptBridge.h"
#include "support/HostileTexts.h"
#include "support/QtPrint.h"
#include "support/SettingsFixture.h"

#include <functional>

namespace {

using Calls = std::vector<QStringList>;

/// Takes note of its arguments; undoable, so that the undo queue shows whether it was recorded.
class Recorder : public kernel::Command {
public:
    Recorder(const char* name, Calls& calls) : m_name(name), m_calls(calls) {}
    kernel::Value run(const kernel::ValueList& arguments) override
    {
        QStringList call(m_name);
        for (const kernel::Value& argument : arguments) {
            call << QString::fromStdString(kernel::toText(argument));
        }
        m_calls.push_back(call);
        return {};
    }
    bool isUndoable() const override { return true; }

private:
    const char* const m_name;
    Calls& m_calls;
};

class ScriptTemplates : public SettingsFixture {
protected:
    ScriptTemplates()
    {
        for (const char* name :
             {names::kNodeCommand, names::kLayerCommand, names::kFrameCommand, names::kStrokeCommand,
              names::kUtilCommand, names::kCreateFloatingViewport, names::kDeleteActiveLayer,
              names::kDeleteActiveCameraLayers, names::kDeleteAllNodes, "setToolTo", "contextInfo", "colorSliderGrp"}) {
            session().commands.remove(name);
            session().commands.add(name, [this, name] { return std::make_unique<Recorder>(name, m_calls); });
        }
        session().commands.add("intrude", [this](const kernel::ValueList&) {
            ++m_intrusions;
            return kernel::Value();
        });
    }

    /// What reached the host when an action was taken, idle time included.
    const Calls& callsOf(const std::function<void()>& action)
    {
        m_calls.clear();
        action();
        host().drainIdle();
        return m_calls;
    }
    std::size_t callCount() const { return m_calls.size(); }
    int intrusions() const { return m_intrusions; }

private:
    Calls m_calls;
    int m_intrusions = 0;
};

struct Row {
    std::function<bool()> send;
    const char* text;
    bool display;
    bool undo;
};

using namespace script;

const Row kFrameRows[] = {
    {[] { return editFrames(FrameAction::Insert); }, "tqLumisketchFrame -insert", true, true},
    {[] { return editFrames(FrameAction::Duplicate); }, "tqLumisketchFrame -duplicate", true, true},
    {[] { return editFrames(FrameAction::Delete); }, "tqLumisketchFrame -delete", true, true},
    {[] { return editFrames(FrameAction::Cut); }, "tqLumisketchFrame -cut", true, true},
    {[] { return editFrames(FrameAction::Copy); }, "tqLumisketchFrame -copy", true, false},
    {[] { return editFrames(FrameAction::Paste); }, "tqLumisketchFrame -paste", true, true},
    {[] { return editFrames(FrameAction::Clear); }, "tqLumisketchFrame -clear", true, true},
    {[] { return editFrames(FrameAction::StepForward); }, "tqLumisketchFrame -stepForward", false, true},
    {[] { return editFrames(FrameAction::StepBack); }, "tqLumisketchFrame -stepBack", false, true},
    {[] { return retimeFrames(3, false, false); }, "tqLumisketchFrame -retime 3", true, true},
    {[] { return retimeFrames(-2, true, true); }, "tqLumisketchFrame -retime -2 -relative -moveToNext", true, true},
    {[] { return moveFrames(-3, 10, 14); }, "tqLumisketchFrame -move -3 10 14", false, true},
};

const Row kLayerRows[] = {
    {[] { return commitStroke("persp", -1, false); }, "tqLumisketchStroke persp", false, true},
    {[] { return commitStroke("persp", 0, true); }, "tqLumisketchStroke -la 0 -fa persp", false, true},
    {[] { return addLayer("persp", "", -1); }, "tqLumisketchLayer -add persp", false, true},
    {[] { return addLayer("persp", "two words", 1); }, "tqLumisketchLayer -add -n <two words> -ls 1 persp", false,
     true},
    {[] { return setActiveLayer("persp", 2); }, "tqLumisketchLayer -e -active 2 persp", false, true},
    {[] { return deleteLayer("persp", 2); }, "tqLumisketchLayer -delete 2 persp", false, true},
    {[] { return renameLayer("persp", 2, "Ink"); }, "tqLumisketchLayer -en Ink 2 persp", false, true},
    {[] { return setLayerState("persp", 2, 1); }, "tqLumisketchLayer -es 1 2 persp", false, true},
    {[] { return setLayerVisible("persp", 2, false); }, "tqLumisketchLayer -ev 0 2 persp", false, true},
    {[] { return moveLayer("persp", 2, 3); }, "tqLumisketchLayer -move 2 3 persp", false, true},
    {[] { return moveAllLayers("persp", "side"); }, "tqLumisketchLayer -moveAll side persp", false, true},
    {[] { return moveLayerToCamera("persp", 2, "side", -1); }, "tqLumisketchLayer -newCamera side -move 2 -1 persp",
     false, true},
};

const ToolOptions kOptions = {6, 80, 70, true, "Noto Sans"};
const Row kToolRows[] = {
    {[] { return selectTool(ToolType::Pencil); }, "tqLumisketchUtil -pencilTool", false, false},
    {[] { return selectTool(ToolType::Brush); }, "tqLumisketchUtil -brushTool", false, false},
    {[] { return selectTool(ToolType::Eraser); }, "tqLumisketchUtil -eraserTool", false, false},
    {[] { return selectTool(ToolType::Text); }, "tqLumisketchUtil -textTool", false, false},
    {[] { return selectTool(ToolType::Line); }, "tqLumisketchUtil -lineTool", false, false},
    {[] { return selectTool(ToolType::Arrow); }, "tqLumisketchUtil -arrowTool", false, false},
    {[] { return selectTool(ToolType::Ellipse); }, "tqLumisketchUtil -ellipseTool", false, false},
    {[] { return selectTool(ToolType::Rectangle); }, "tqLumisketchUtil -rectangleTool", false, false},
    {[] { return setToolOptions(ToolType::Pencil, kOptions); }, "tqLumisketchUtil -pencilOptions 6 80 1", false, false},
    {[] { return setToolOptions(ToolType::Brush, kOptions); }, "tqLumisketchUtil -brushOptions 6 80 70 1", false,
     false},
    {[] { return setToolOptions(ToolType::Eraser, kOptions); }, "tqLumisketchUtil -eraserOptions 6 80 70 1", false,
     false},
    {[] { return setToolOptions(ToolType::Text, kOptions); }, "tqLumisketchUtil -textOptions 6 80 <Noto Sans>", false,
     false},
    {[] { return setToolOptions(ToolType::Line, kOptions); }, "tqLumisketchUtil -lineOptions 6 80", false, false},
    {[] { return setToolOptions(ToolType::Arrow, kOptions); }, "tqLumisketchUtil -arrowOptions 6 80", false, false},
    {[] { return setToolOptions(ToolType::Ellipse, kOptions); }, "tqLumisketchUtil -ellipseOptions 6 80", false, false},
    {[] { return setToolOptions(ToolType::Rectangle, kOptions); }, "tqLumisketchUtil -rectangleOptions 6 80", false,
     false},
    {[] { return setDrawColour(QColor(1, 2, 255)); }, "tqLumisketchUtil -e -drawColor 1 2 255", true, false},
    {[] { return setCurrentTool("tqLmDrawCtx1"); }, "setToolTo tqLmDrawCtx1", false, false},
    {[] { return setSelectTool(); }, "setToolTo selectSuperContext", false, false},
};

const Row kDisplayRows[] = {
    {[] { return showGhosts(GhostSide::Previous, GhostSwitch::Toggle); }, "tqLumisketchUtil -e -ghostPrevious -1", true,
     false},
    {[] { return showGhosts(GhostSide::Next, GhostSwitch::On); }, "tqLumisketchUtil -e -ghostNext 1", true, false},
    {[] { return setGhostCount(GhostSide::Previous, 4); }, "tqLumisketchUtil -e -ghostPreviousCount 4", false, false},
    {[] { return setGhostCount(GhostSide::Next, 5); }, "tqLumisketchUtil -e -ghostNextCount 5", false, false},
    {[] { return setGhostColourOverride(true); }, "tqLumisketchUtil -e -ghostColorOverride 1", false, false},
    {[] { return setGhostColour(GhostSide::Previous, QColor(9, 8, 7)); },
     "tqLumisketchUtil -e -ghostColorPrevious 9 8 7", false, false},
    {[] { return setGhostColour(GhostSide::Next, QColor(9, 8, 7)); }, "tqLumisketchUtil -e -ghostColorNext 9 8 7",
     false, false},
    {[] { return setTimelineFrameDisplay(2); }, "tqLumisketchUtil -e -timelineFrameDisplay 2", false, false},
    {[] { return refreshTimelineDisplay(); }, "tqLumisketchUtil -refreshTimelineDisplay", false, false},
    {[] { return openPanel(Panel::Toolbox); }, "tqLumisketchUtil -toolbox", false, false},
    {[] { return openPanel(Panel::ToolOptions); }, "tqLumisketchUtil -toolOptions", false, false},
    {[] { return openPanel(Panel::LayerManager); }, "tqLumisketchUtil -layerManager", false, false},
    {[] { return openPanel(Panel::ColorPalette); }, "tqLumisketchUtil -colorPalette", false, false},
    {[] { return openPanel(Panel::RetimingTool); }, "tqLumisketchUtil -retimingTool", false, false},
    {[] { return openDialog(Dialog::GhostingSettings); }, "tqLumisketchUtil -ghostingSettings", false, false},
    {[] { return openDialog(Dialog::NewLayer); }, "tqLumisketchUtil -newLayer", false, false},
    {[] { return openLayerProperties(); }, "tqLumisketchUtil -layerProperties", false, false},
    {[] { return openDialog(Dialog::Preferences); }, "tqLumisketchUtil -preferences", false, false},
    {[] { return openDialog(Dialog::About); }, "tqLumisketchUtil -about", false, false},
    {[] { return openFloatingViewport(""); }, "tqLmCreateFloatingViewport <>", false, true},
    {[] { return openFloatingViewport("persp"); }, "tqLmCreateFloatingViewport persp", false, true},
    {[] { return cleanUp(Cleanup::ActiveLayer); }, "tqLmDeleteActiveLayer", false, true},
    {[] { return cleanUp(Cleanup::ActiveCameraLayers); }, "tqLmDeleteActiveCameraLayers", false, true},
    {[] { return cleanUp(Cleanup::Everything); }, "tqLmDeleteAllNodes", false, true},
    // Of a control the name comes last.
    {[] { return !createColourSlider("inkColour", 40).isEmpty(); }, "colorSliderGrp -columnWidth3 0 40 0 inkColour",
     false, false},
    {[] { return colourOfSlider("inkColour").isValid(); }, "colorSliderGrp -q -rgbValue inkColour", false, false},
    {[] { return setColourOfSlider("inkColour", QColor(255, 0, 51)); }, "colorSliderGrp -e -rgbValue 1 0 0.2 inkColour",
     false, false},
    {[] { return refreshToolboxWithSlider("inkColour"); },
     "colorSliderGrp -e -changeCommand <tqLumisketchUtil -rtb> inkColour", false, false},
};

/// The call as text; an argument that is not a plain word stands in angle brackets.
QString written(const QStringList& call)
{
    QStringList words;
    for (const QString& argument : call) {
        words << (argument.isEmpty() || argument.contains(' ') ? '<' + argument + '>' : argument);
    }
    return words.join(' ');
}

TEST_F(ScriptTemplates, EveryActionSendsItsTextEchoedAndRecordedAsItShould)
{
    const auto expectAll = [this](const auto& rows) {
        for (const Row& row : rows) {
            forgetLines();
            session().undo.flush();
            const Calls& calls = callsOf([&] { row.send(); });
            ASSERT_EQ(calls.size(), 1u) << row.text;
            EXPECT_EQ(written(calls[0]), QString(row.text));
            EXPECT_EQ(!said(kernel::Severity::Echo).empty(), row.display) << row.text;
            EXPECT_EQ(session().undo.count(), row.undo ? 1u : 0u) << row.text;
        }
    };
    expectAll(kFrameRows);
    expectAll(kLayerRows);
    expectAll(kToolRows);
    expectAll(kDisplayRows);
}

TEST_F(ScriptTemplates, TextsForLaterReachTheHostOnlyWhenItIsIdle)
{
    const Row rows[] = {
        {switchToDrawToolDeferred, "tqLumisketchUtil -draw", false, false},
        {switchToTransformToolDeferred, "tqLumisketchUtil -transform", false, false},
        {refreshLayerManagerDeferred, "tqLumisketchUtil -rlm", false, false},
        {openNewLayerDialogDeferred, "tqLumisketchUtil -newLayer", false, false},
        {[] { return createDrawingNodeOnIdle(); }, "tqLumisketchNode", false, true},
    };
    for (const Row& row : rows) {
        std::size_t atOnce = 1;
        const Calls& calls = callsOf([&] {
            EXPECT_TRUE(row.send());
            atOnce = callCount();
        });
        EXPECT_EQ(atOnce, 0u) << row.text;
        ASSERT_EQ(calls.size(), 1u) << row.text;
        EXPECT_EQ(written(calls[0]), QString(row.text));
    }
}

TEST_F(ScriptTemplates, WhatIsNoDrawingToolIsRefused)
{
    EXPECT_TRUE(callsOf([] {
                    EXPECT_FALSE(selectTool(ToolType::Transform));
                    EXPECT_FALSE(setToolOptions(static_cast<ToolType>(-1), kOptions));
                }).empty());
}

// Whatever a user types comes out of the interpreter as it went in, and is never run.
TEST_F(ScriptTemplates, NoTextOfAUserEverRunsAndEachArrivesUnchanged)
{
    const struct {
        const char* name;
        std::function<void(const QString&)> send;
        int places;  ///< in how many arguments the text stands
    } actions[] = {
        {"commitStroke", [](const QString& t) { commitStroke(t, 1, true); }, 1},
        {"createDrawingNodeOnIdle",
         [](const QString& t) {
             const FirstLayer layer{t, t, 1, true};
             createDrawingNodeOnIdle(&layer);
         },
         2},
        {"addLayer", [](const QString& t) { addLayer(t, t, 1); }, 2},
        {"setActiveLayer", [](const QString& t) { setActiveLayer(t, 1); }, 1},
        {"deleteLayer", [](const QString& t) { deleteLayer(t, 1); }, 1},
        {"renameLayer", [](const QString& t) { renameLayer(t, 1, t); }, 2},
        {"setLayerState", [](const QString& t) { setLayerState(t, 1, 1); }, 1},
        {"setLayerVisible", [](const QString& t) { setLayerVisible(t, 1, true); }, 1},
        {"moveLayer", [](const QString& t) { moveLayer(t, 0, 1); }, 1},
        {"moveAllLayers", [](const QString& t) { moveAllLayers(t, t); }, 2},
        {"moveLayerToCamera", [](const QString& t) { moveLayerToCamera(t, 0, t, -1); }, 2},
        {"setToolOptions",
         [](const QString& t) {
             setToolOptions(ToolType::Text, {6, 80, 70, true, t});
         },
         1},
        {"setCurrentTool", [](const QString& t) { setCurrentTool(t); }, 1},
        {"contextExists", [](const QString& t) { contextExists(t); }, 1},
        {"openFloatingViewport", [](const QString& t) { openFloatingViewport(t); }, 1},
        {"createColourSlider", [](const QString& t) { createColourSlider(t, 40); }, 1},
        {"colourOfSlider", [](const QString& t) { colourOfSlider(t); }, 1},
        {"setColourOfSlider", [](const QString& t) { setColourOfSlider(t, Qt::red); }, 1},
        {"refreshToolboxWithSlider", [](const QString& t) { refreshToolboxWithSlider(t); }, 1},
    };
    for (const auto& action : actions) {
        for (const QString& text : hostileTexts()) {
            const Calls& calls = callsOf([&] { action.send(text); });
            ASSERT_EQ(calls.size(), 1u) << action.name << ' ' << text.left(60).toStdString();
            EXPECT_EQ(calls[0].count(text), action.places) << action.name << ' ' << text.left(60).toStdString();
        }
    }
    EXPECT_EQ(intrusions(), 0);
}

}  // namespace
