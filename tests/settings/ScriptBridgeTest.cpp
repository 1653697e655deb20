#include "settings/ScriptBridge.h"
#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/Text.h"
#include "support/HostileTexts.h"
#include "support/QtPrint.h"
#include "support/SettingsFixture.h"

#include <maya/MSelectionList.h>

namespace {

using testing::ElementsAre;

class ScriptBridgeTest : public SettingsFixture {
protected:
    /// What the host got to run under a name: the arguments, a blank between them.
    void listenTo(const char* command)
    {
        ASSERT_TRUE(session().commands.add(command, [this](const kernel::ValueList& arguments) {
            std::string text;
            for (const kernel::Value& argument : arguments) {
                text += (text.empty() ? "" : " ") + kernel::toText(argument);
            }
            m_heard.push_back(text);
            return kernel::Value();
        }));
    }
    const std::vector<std::string>& heard() const { return m_heard; }

    static QString keyOf(const char* node)
    {
        MSelectionList list;
        MDagPath path;
        EXPECT_TRUE(list.add(node) && list.getDagPath(0, path)) << node;
        return script::cameraKey(path);
    }

private:
    std::vector<std::string> m_heard;
};

TEST_F(ScriptBridgeTest, OnlyLegalNodeNamesAreBareWords)
{
    const struct {
        const char* name;
        const char* written;
    } cases[] = {{"persp", "persp"},       {"cam_2", "cam_2"},           {"|group1|cam", "|group1|cam"},
                 {"shot:cam", "shot:cam"}, {"2nd", "\"2nd\""},           {"", "\"\""},
                 {"a b", "\"a b\""},       {"-delete", "\"-delete\""},   {"x;quit", "\"x;quit\""},
                 {":cam", ":cam"},         {"a||quit", "\"a||quit\""},   {"a:", "\"a:\""},
                 {"|", "\"|\""},           {"a|2nd", "\"a|2nd\""},       {"cam\n", "\"cam\\n\""},
                 {"in", "\"in\""},         {"a|string", "\"a|string\""}, {"inCam", "inCam"}};
    for (const auto& c : cases) {
        EXPECT_EQ(script::word(c.name).toStdString(), c.written);
    }
}

TEST_F(ScriptBridgeTest, CreatesTheNodeOnlyWhenTheHostIsIdle)
{
    listenTo(names::kNodeCommand);
    const script::FirstLayer layer{"cam1", "my \"ink\"", 1, true};
    EXPECT_TRUE(script::createDrawingNodeOnIdle());
    EXPECT_TRUE(script::createDrawingNodeOnIdle(&layer));
    EXPECT_THAT(heard(), ElementsAre());
    host().drainIdle();
    EXPECT_THAT(heard(), ElementsAre("", "-l -c cam1 -ln my \"ink\" -ls 1 -f"));
}

TEST_F(ScriptBridgeTest, AFailedCommandGivesFalse)
{
    EXPECT_FALSE(script::commitStroke("persp", -1, false));
    EXPECT_FALSE(script::setCurrentTool("nonesuchCtx"));
    EXPECT_FALSE(script::contextExists("nonesuchCtx"));
}

TEST_F(ScriptBridgeTest, ListsCamerasByTheirTransformsInTheHostsOrder)
{
    EXPECT_EQ(script::sceneCameras(), (QStringList{"front", "persp", "side", "top"}));
    ASSERT_TRUE(run("createNode transform -n shot; createNode camera -n shotShape -p shot;"));
    ASSERT_TRUE(run("createNode transform -n aim; createNode camera -n aimShape -p aim;"));
    EXPECT_EQ(script::sceneCameras(), (QStringList{"front", "persp", "side", "top", "shot", "aim"}));
    EXPECT_TRUE(script::cameraExists("aim"));
    EXPECT_FALSE(script::cameraExists("aimShape"));
    EXPECT_FALSE(script::cameraExists("Aim"));
}

TEST_F(ScriptBridgeTest, ExactlyTheNamesOfTheSceneListExist)
{
    QTemporaryDir folder;
    const std::string file = folder.filePath("set.ma").toStdString();
    const char* const cameras = "createNode transform -n a; createNode transform -n b; createNode transform -n same;"
                                "createNode camera -n same -p same; createNode camera -n second -p \"|same\";"
                                "createNode transform -n cam -p a; createNode camera -n camShape -p \"|a|cam\";"
                                "createNode transform -n cam -p b; createNode camera -n camShape -p \"|b|cam\";"
                                "createNode transform -n box; createNode locator -n boxShape -p box;";
    ASSERT_TRUE(run(cameras));
    ASSERT_TRUE(run("file -rename \"" + file + "\"; file -save -type \"mayaAscii\"; file -force -new"));
    ASSERT_TRUE(run("file -reference -namespace ref \"" + file + "\"") && run(cameras));
    ASSERT_TRUE(run("namespace -add ns; createNode transform -n \"ns:cam\"; createNode camera -p \"ns:cam\";"
                    "createNode transform -n cam -p \"ns:cam\"; createNode camera -p \"ns:cam|cam\""));
    QStringList names = script::sceneCameras();
    EXPECT_THAT(names, testing::IsSupersetOf({"persp", "|same", "a|cam", "ns:cam|cam", "ref:a|ref:cam"}));
    for (const char* list : {"ls", "ls -long", "ls -dagObjects"}) {
        const kernel::Value listed = evaluate(list);
        for (const std::string& name : std::get<kernel::StringArray>(listed)) {
            names << QString::fromStdString(name);
        }
    }
    for (const QString& name : QStringList(names)) {
        names << '|' + name << ':' + name << name + '*' << name + ".translateX" << name + '|' << name.toUpper()
              << name.mid(1) << name.chopped(1) + '?' << name.section(':', -1) << name.section('|', -1) << name + ' ';
    }
    const QStringList known = script::sceneCameras();
    for (const QString& name : names + hostileTexts() + QStringList{"", "*", "?", "|", ":", "*:*", "*|*", "ref:*"}) {
        ASSERT_EQ(script::cameraExists(name), known.contains(name)) << qPrintable(name);
    }
}

TEST_F(ScriptBridgeTest, ACamerasKeyIsItsShortestUniqueName)
{
    EXPECT_EQ(keyOf("perspShape"), QString("persp"));
    EXPECT_EQ(keyOf("persp"), QString("persp"));
    EXPECT_EQ(script::cameraKey(MDagPath()), QString());
    ASSERT_TRUE(run("createNode transform -n a; createNode transform -n b;"
                    "createNode transform -n cam -p a; createNode camera -n camShape -p \"|a|cam\";"));
    EXPECT_EQ(keyOf("|a|cam|camShape"), QString("cam"));
    ASSERT_TRUE(run("createNode transform -n cam -p b; createNode camera -n camShape -p \"|b|cam\";"));
    EXPECT_EQ(keyOf("|a|cam|camShape"), QString("a|cam"));
    EXPECT_TRUE(script::cameraExists("b|cam"));
}

TEST_F(ScriptBridgeTest, AnswersQuestionsAboutTheHost)
{
    EXPECT_TRUE(script::isBatch());
    EXPECT_EQ(script::userPrefDir(), prefsDir() + "/");
    session().scene.setCurrentTime({7, session().scene.timeUnit()});
    EXPECT_EQ(script::highlightedSpan().first, 7);
    EXPECT_EQ(script::highlightedSpan().end, 8);
    session().scene.highlightSliderRange({10, 15});
    EXPECT_EQ(script::highlightedSpan().first, 10);
    EXPECT_EQ(script::highlightedSpan().end, 15);
}

TEST_F(ScriptBridgeTest, AColourBeyondWhatCanBeDrawnIsCutDown)
{
    session().commands.remove("colorSliderGrp");
    session().commands.add("colorSliderGrp", [](const kernel::ValueList&) -> kernel::Value {
        return kernel::DoubleArray{1.5, -0.25, 0.6};
    });
    EXPECT_EQ(script::colourOfSlider("ink"), QColor::fromRgbF(1.0, 0.0, 0.6));
}

TEST_F(ScriptBridgeTest, ReportsAMissingTimeSlider)
{
    EXPECT_EQ(script::timeControlName(), QString());
    EXPECT_THAT(errors(), testing::Contains("[Lumisketch2] Failed to get time control name"));
}

TEST_F(ScriptBridgeTest, MessagesCarryThePrefixOfTheirKind)
{
    messages::error(QString::fromUtf8("für %1"));
    messages::warning("w");
    messages::info("i");
    messages::debug("d");
    messages::bareError("b");
    EXPECT_THAT(errors(), ElementsAre("[Lumisketch2] für %1", "b"));
    EXPECT_THAT(warnings(), ElementsAre("[Lumisketch2] w"));
    EXPECT_THAT(said(kernel::Severity::Info), ElementsAre("[Lumisketch2] i", "[DEBUG] d"));
}

}  // namespace
