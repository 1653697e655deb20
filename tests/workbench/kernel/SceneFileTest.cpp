#include "kernel/SceneFile.h"

#include "kernel/AtomicFile.h"
#include "kernel/FileContent.h"
#include "kernel/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace kernel;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
namespace fs = std::filesystem;

namespace {

/// Stands where the script language is installed and notes what the file layer asks of it.
class NotingEngine : public ScriptEngine {
public:
    explicit NotingEngine(std::vector<std::string>& log) : m_log(log) {}
    ScriptResult execute(const std::string& text, bool, bool) override
    {
        m_log.push_back("run " + text);
        return {};
    }
    ScriptResult executeFile(const std::string&, bool) override { return {}; }
    bool executeScene(std::string_view text, SceneIntake&, const PartRead&) override
    {
        m_log.push_back("read");
        if (onScene)
            onScene();
        return text.find("bad") == std::string_view::npos;
    }
    std::unique_ptr<SceneStatements> beginScene(SceneIntake&) override { return nullptr; }
    Value global(const std::string&) const override { return {}; }
    void setGlobalString(const std::string&, const std::string&) override {}
    bool isExecuting() const override { return false; }

    std::function<void()> onScene;

private:
    std::vector<std::string>& m_log;
};

struct Nothing : Command {
    Value run(const ValueList&) override { return {}; }
};

/// A module's data: writes its text as it is, in whatever format the stream has.
class WobbleData : public CustomData {
public:
    explicit WobbleData(std::string text = {}, bool ok = true) : m_text(std::move(text)), m_ok(ok) {}
    std::string typeName() const override { return "wobbleData"; }
    std::uint32_t typeId() const override { return 0x11a887; }
    bool writeText(std::ostream& out) override
    {
        out << m_text << true << ' ' << 0.5;
        out << std::hex;
        out.precision(2);
        return m_ok;
    }
    bool readText(const Arguments&, unsigned&) override { return false; }
    bool writeBinary(std::ostream&) override { return false; }
    bool readBinary(std::istream&, unsigned) override { return false; }
    std::shared_ptr<CustomData> copy() const override { return std::make_shared<WobbleData>(m_text, m_ok); }

private:
    const std::string m_text;
    const bool m_ok;
};

class SceneFileTest : public testing::Test {
protected:
    SceneFileTest()
    {
        char pattern[] = "/tmp/kernel-scenes-XXXXXX";
        folder = ::mkdtemp(pattern);
        auto engine = std::make_unique<NotingEngine>(log);
        script = engine.get();
        session.setScript(std::move(engine));
        for (const std::string& event : session.events.names())
            session.events.add(event, [this, event] { log.push_back(event); });
        session.output.addListener([this](Severity, const std::string& text) { log.push_back(text); });
    }
    ~SceneFileTest() override { fs::remove_all(folder); }

    void addWobbleModule()
    {
        DataType data;
        data.name = "wobbleData";
        data.id = 0x11a887;
        data.make = [] { return std::make_shared<WobbleData>(); };
        data.plugin = "wobblePlugin";
        session.dataTypes.add(data);
        NodeType type;
        type.name = "wobble";
        type.base = session.nodeTypes.find("locator");
        type.role = NodeRole::Locator;
        type.plugin = "wobblePlugin";
        type.pluginVersion = "1.4";
        auto attribute = std::make_shared<AttributeSpec>();
        attribute->longName = "wobbleText";
        attribute->shortName = "wt";
        attribute->kind = ValueKind::Custom;
        attribute->customType = "wobbleData";
        auto speed = std::make_shared<AttributeSpec>();
        speed->longName = "speed";
        speed->shortName = "sp";
        type.attributes = {attribute, speed};
        session.nodeTypes.add(type);
    }
    NodePtr add(const std::string& type, const std::string& name, const NodePtr& parent = nullptr)
    {
        const NodePtr node = scene.makeNode(*session.nodeTypes.find(type), name);
        scene.attach(node, parent.get());
        return node;
    }
    NodePtr addWobble(bool writable = true)
    {
        const NodePtr node = add("wobble", "wobbleShape1", add("transform", "wobble1"));
        set(node, "wobbleText", std::make_shared<WobbleData>("1 \"a\\b\"\n", writable));
        return node;
    }
    void set(const NodePtr& node, const char* attribute, PlugValue value)
    {
        node->setValue(*node->attribute(attribute), std::move(value));
    }
    void setFlags(const NodePtr& node, const char* attribute, bool locked, bool keyable, bool channelBox = false)
    {
        PlugFlags flags;
        flags.locked = locked;
        flags.keyable = keyable;
        flags.channelBox = channelBox;
        node->setFlags(*node->attribute(attribute), flags);
    }
    std::string text(const std::string& name = "/shots/a.ma")
    {
        std::ostringstream out;
        writeSceneText(session, out, name);
        return out.str();
    }
    /// What a node's `createNode` or `select` line is followed by, without the line of its identifier.
    std::vector<std::string> linesOf(const std::string& start)
    {
        std::istringstream in(text());
        std::vector<std::string> lines;
        std::string line;
        while (std::getline(in, line) && line != start) {
        }
        while (std::getline(in, line) && (line[0] == '\t' || line[0] == ';')) {
            if (line.find("rename -uid") == std::string::npos)
                lines.push_back(line.substr(line[0] == '\t'));
        }
        return lines;
    }
    std::string path(const char* name) const { return (folder / name).string(); }
    std::string content(const std::string& path) const
    {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void write(const std::string& path, const std::string& text) const { std::ofstream(path) << text; }
    std::string failureOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const CommandError& error) {
            return error.what();
        }
        return "no failure";
    }
    std::vector<std::string> filesInFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename());
        return names;
    }

    fs::path folder;
    std::vector<std::string> log;
    Session session;
    Scene& scene = session.scene;
    NotingEngine* script = nullptr;
};

}  // namespace

TEST_F(SceneFileTest, AnEmptySceneHasTheHostsForm)
{
    const std::string written = text();
    EXPECT_THAT(written, testing::StartsWith("//Maya ASCII 2019 scene\n"
                                             "//Name: a.ma\n"
                                             "//Codeset: UTF-8\n"
                                             "requires maya \"2019\";\n"
                                             "currentUnit -l centimeter -a degree -t film;\n"
                                             "fileInfo \"application\" \"maya\";\n"));
    EXPECT_THAT(written, testing::EndsWith("createNode script -n \"sceneConfigurationScriptNode\";\n"
                                           "\tsetAttr \".b\" -type \"string\" "
                                           "\"playbackOptions -min 1 -max 24 -ast 1 -aet 48 \";\n"
                                           "\tsetAttr \".st\" 6;\n"
                                           "select -ne :time1;\n"
                                           "\tsetAttr \".o\" 1;\n"
                                           "\tsetAttr \".unw\" 1;\n"
                                           "// End of a.ma\n"));
    EXPECT_THAT(linesOf("createNode transform -s -n \"persp\";"),
                ElementsAre("setAttr \".v\" no;", "setAttr \".t\" -type \"double3\" 28 21 28 ;",
                            "setAttr \".r\" -type \"double3\" -27.93835272960238 44.99999999999997 "
                            "-5.172681101354183e-14 ;"));
    EXPECT_THAT(linesOf("createNode camera -s -n \"topShape\" -p \"top\";"),
                ElementsAre("setAttr -k off \".v\" no;", "setAttr \".rnd\" no;", "setAttr \".coi\" 1000.1;",
                            "setAttr \".o\" yes;", "setAttr \".ow\" 30;",
                            "setAttr \".hc\" -type \"string\" \"viewSet -t %camera\";",
                            "setAttr \".imn\" -type \"string\" \"top\";",
                            "setAttr \".den\" -type \"string\" \"top_depth\";",
                            "setAttr \".man\" -type \"string\" \"top_mask\";"));
    EXPECT_EQ(text(), written) << "no clock in it";
}

TEST_F(SceneFileTest, ValuesAndFlagsHaveTheHostsForms)
{
    const NodePtr a = add("transform", "a");
    setFlags(a, "tx", true, false);
    setFlags(a, "v", false, false, true);
    set(a, "translateY", 0.1);
    set(a, "rotateZ", 90.0);
    setFlags(a, "scale", true, true);
    set(a, "scaleX", 2.0);
    const NodePtr script = add("script", "notes");
    set(script, "before", std::string("say \"C:\\x\"\t"));
    EXPECT_THAT(linesOf("createNode transform -n \"a\";"),
                ElementsAre("setAttr -k off -cb on \".v\";", "setAttr -l on -k off \".tx\";", "setAttr \".ty\" 0.1;",
                            "setAttr \".r\" -type \"double3\" 0 0 90 ;",
                            "setAttr -l on \".s\" -type \"double3\" 2 1 1 ;"));
    EXPECT_THAT(linesOf("createNode script -n \"notes\";"),
                ElementsAre("setAttr \".b\" -type \"string\" \"say \\\"C:\\\\x\\\"\\t\";"));
}

TEST_F(SceneFileTest, LongTextsAreBrokenBehindTheirLines)
{
    const NodePtr script = add("script", "notes");
    const std::string line(90, 'x');
    set(script, "before", line + "\n" + line + "\nend");
    EXPECT_THAT(linesOf("createNode script -n \"notes\";"),
                ElementsAre("setAttr \".b\" -type \"string\" (", "\t\"" + line + "\\n\"", "\t+ \"" + line + "\\n\"",
                            "\t+ \"end\");"));
    set(script, "before", std::string(5000, 'y') + "\n");
    EXPECT_EQ(linesOf("createNode script -n \"notes\";").size(), 1u) << "one line is one literal";
    std::string lines;
    for (int i = 0; i < 100000; ++i)
        lines += "0123456789\n";
    set(script, "before", lines);
    EXPECT_LT(linesOf("createNode script -n \"notes\";").size(), 300u) << "the sum does not grow without end";
}

TEST_F(SceneFileTest, AStartupCameraSaysTheDefaultsItWasMovedTo)
{
    const NodePtr persp = scene.findOne("persp");
    for (const char* attribute : {"tx", "ty", "tz", "rx", "ry", "rz"})
        set(persp, attribute, 0.0);
    set(persp, "v", 1.0);
    setFlags(scene.findOne("perspShape"), "v", false, true);
    EXPECT_THAT(linesOf("createNode transform -s -n \"persp\";"),
                ElementsAre("setAttr \".v\" yes;", "setAttr \".t\" -type \"double3\" 0 0 0 ;",
                            "setAttr \".r\" -type \"double3\" 0 0 0 ;"));
    EXPECT_THAT(linesOf("createNode camera -s -n \"perspShape\" -p \"persp\";").front(), "setAttr -k on \".v\" no;");
}

TEST_F(SceneFileTest, ParentsAreNamedByTheShortestPathAndComeFirst)
{
    const NodePtr late = add("transform", "late");
    const NodePtr a = add("transform", "a");
    const NodePtr inner = add("transform", "a", a);
    scene.setParent(a, late.get());
    add("locator", "spot", inner);
    const std::string written = text();
    EXPECT_LT(written.find("createNode transform -n \"late\";"),
              written.find("createNode transform -n \"a\" -p \"late\";"));
    EXPECT_THAT(written, HasSubstr("createNode transform -n \"a\" -p \"late|a\";"));
    EXPECT_THAT(written, HasSubstr("createNode locator -n \"spot\" -p \"a|a\";"));
}

TEST_F(SceneFileTest, ModuleDataIsWrittenWordForWordAndAsksForItsModule)
{
    addWobbleModule();
    const NodePtr node = addWobble();
    EXPECT_THAT(linesOf("createNode wobble -n \"wobbleShape1\" -p \"wobble1\";"),
                ElementsAre("setAttr \".wt\" -type \"wobbleData\" 1 \"a\\b\""));
    EXPECT_THAT(text(), HasSubstr("\tsetAttr \".wt\" -type \"wobbleData\" 1 \"a\\b\"\n1 0.5;\n"));
    EXPECT_THAT(text(),
                HasSubstr("requires -nodeType \"wobble\" -dataType \"wobbleData\" \"wobblePlugin\" \"1.4\";\n"));
    const std::string once = text();
    EXPECT_EQ(text(), once) << "the data's own stream settings do not stay";
    set(node, "wobbleText", std::shared_ptr<CustomData>());
    EXPECT_THAT(text(), HasSubstr("requires -nodeType \"wobble\" \"wobblePlugin\" \"1.4\";\n"));
}

TEST_F(SceneFileTest, KeptStatementsGoToTheirSectionsOnce)
{
    addWobbleModule();
    addWobble();
    scene.keptStatements = {"requires \"stereo\" \"10.0\"", "requires \"wobblePlugin\" \"1.0\";",
                            "fileInfo \"product\" \"Other\";", "fileInfo \"mood\" \"blue\";",
                            "\tconnectAttr \"a.x\" \"b.y\";\n"};
    const std::string written = text();
    const auto at = [&](const char* part) {
        EXPECT_THAT(written, HasSubstr(part));
        return written.find(part);
    };
    EXPECT_LT(at("\nrequires \"stereo\" \"10.0\";\n"), at("\ncurrentUnit"));
    EXPECT_LT(at("\nfileInfo \"mood\" \"blue\";\n"), at("\ncreateNode"));
    EXPECT_LT(at("\nselect -ne :time1"), at("\nconnectAttr \"a.x\" \"b.y\";\n// End"));
    EXPECT_THAT(written, Not(HasSubstr("\"1.0\"")));
    EXPECT_THAT(written, Not(HasSubstr("Other")));
}

TEST_F(SceneFileTest, SavingReplacesTheFileAndClearsModified)
{
    write(path("a.ma"), "old");
    fs::permissions(path("a.ma"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("a.ma", path("link.ma"));
    add("transform", "a");
    ASSERT_TRUE(scene.isModified());
    bool writing = false;
    session.events.watch("writingFile", [&](bool on) { writing = writing || on; });
    log.clear();
    saveScene(session, path("link.ma"));
    EXPECT_FALSE(scene.isModified());
    EXPECT_TRUE(writing);
    EXPECT_THAT(log, ElementsAre("SceneSaved"));
    EXPECT_EQ(scene.fileName(), path("link.ma"));
    EXPECT_EQ(content(path("a.ma")), text("link.ma")) << "a link still leads to the scene";
    EXPECT_EQ(fs::status(path("a.ma")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(filesInFolder().size(), 2u) << "nothing temporary is left";
    const std::string once = content(path("a.ma"));
    saveScene(session, path("link.ma"));
    EXPECT_EQ(content(path("a.ma")), once);
}

TEST_F(SceneFileTest, AFailedSaveSaysWhyAndLeavesTheOldFile)
{
    addWobbleModule();
    addWobble(false);
    scene.setFileName("/shots/before.ma");
    write(path("a.ma"), "old");
    log.clear();
    EXPECT_EQ(failureOf([&] { saveScene(session, path("a.ma")); }),
              "The data of 'wobbleShape1.wobbleText' could not be written.");
    EXPECT_EQ(failureOf([&] { saveScene(session, path("missing/a.ma")); }),
              "The file \"" + path("missing/a.ma") + "\" could not be written: No such file or directory");
    EXPECT_EQ(failureOf([&] { saveScene(session, folder.string()); }),
              "The file \"" + folder.string() + "\" could not be written: Is a directory");
    EXPECT_EQ(content(path("a.ma")), "old");
    EXPECT_THAT(filesInFolder(), ElementsAre("a.ma"));
    EXPECT_TRUE(scene.isModified());
    EXPECT_EQ(scene.fileName(), "/shots/before.ma");
    EXPECT_FALSE(session.events.condition("writingFile"));
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(SceneFileTest, ADiskThatIsFullLeavesTheOldFile)
{
    // A limit on the size of files fails just as a full disk does, in the middle of the writing.
    const NodePtr notes = add("script", "notes");
    set(notes, "before", std::string(4 << 20, 'x'));
    write(path("a.ma"), "old");
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 1 << 16;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string failure = failureOf([&] { saveScene(session, path("a.ma")); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(failure, "The file \"" + path("a.ma") + "\" could not be written: File too large");
    EXPECT_EQ(content(path("a.ma")), "old");
    EXPECT_THAT(filesInFolder(), ElementsAre("a.ma"));
}

TEST_F(SceneFileTest, ASaveRemovesWhatAKilledOneLeft)
{
    const auto saveAndHang = [this](int ready) {
        AtomicFile file(path("a.ma"));
        file.stream() << "half" << std::flush;
        EXPECT_EQ(::write(ready, "1", 1), 1);
        ::pause();
    };
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = ::fork();
    if (child == 0)
        saveAndHang(pipe[1]);
    char signal = 0;
    ASSERT_EQ(::read(pipe[0], &signal, 1), 1);
    EXPECT_EQ(filesInFolder().size(), 1u);

    saveScene(session, path("a.ma"));
    EXPECT_EQ(filesInFolder().size(), 2u) << "one that is still at work keeps its own";
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(pipe[0]);
    ::close(pipe[1]);
    saveScene(session, path("a.ma"));
    EXPECT_THAT(filesInFolder(), ElementsAre("a.ma"));
}

TEST_F(SceneFileTest, AFileIsWrittenInAnyOrder)
{
    const std::string large(3 << 20, 'x');
    {
        AtomicFile file(path("a"));
        file.stream() << "....";
        const auto middle = file.stream().tellp();
        file.stream() << large << "end";
        const auto end = file.stream().tellp();
        file.stream().seekp(0);
        file.stream() << "1234";
        EXPECT_EQ(file.stream().tellp(), middle);
        file.stream().seekp(end);
        file.stream() << "!";
        file.commit();
    }
    EXPECT_EQ(content(path("a")), "1234" + large + "end!");
}

TEST_F(SceneFileTest, BytesThatWereGivenBackAreThereAgain)
{
    std::string bytes(5 << 20, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7919 >> 8);
    write(path("a"), bytes);
    const FileContent file(path("a"));
    file.release(file.bytes());
    file.release(file.bytes().substr(4097, 9));
    file.release({});
    EXPECT_EQ(file.bytes(), bytes);
    EXPECT_NE(FileContent("/proc/self/status").bytes().find("VmHWM"), std::string_view::npos)
        << "a file of no size that is read all the same";
    write(path("empty"), "");
    EXPECT_EQ(FileContent(path("empty")).bytes(), "");
}

TEST_F(SceneFileTest, OpeningTellsEverythingOnceTheSceneIsThere)
{
    write(path("a.ma"), "//Maya ASCII 2019 scene\n");
    add("transform", "old");
    session.undo.record(std::make_unique<Nothing>());
    script->onScene = [&] {
        EXPECT_TRUE(scene.isDoing(FileActivity::Open));
        EXPECT_TRUE(session.events.condition("readingFile"));
        EXPECT_EQ(scene.findOrNull("old"), nullptr);
        scene.setTimeUnit(TimeUnit::PalFrame);
        set(scene.findOne("time1"), "o", 12.0);
        add("transform", "sceneConfigurationScriptNode");  // so the script comes in with a number
        for (const char* name : {"sceneConfigurationScriptNode", "mine", "other"}) {
            const NodePtr node = add("script", name);
            set(node, "before", std::string(name));
            set(node, "scriptType", std::string(name) == "other" ? 1.0 : 6.0);
        }
    };
    log.clear();
    openScene(session, path("a.ma"));
    EXPECT_THAT(log, ElementsAre("read", "run sceneConfigurationScriptNode", "run mine", "timeUnitChanged",
                                 "playbackRangeChanged", "timeChanged", "PostSceneRead", "SceneOpened"));
    EXPECT_NE(scene.findOrNull("sceneConfigurationScriptNode"), nullptr);
    EXPECT_EQ(scene.findOrNull("sceneConfigurationScriptNode1"), nullptr);
    EXPECT_NE(scene.findOrNull("mine"), nullptr);
    EXPECT_FALSE(scene.isModified() || scene.wasReadWithErrors() || session.undo.canUndo());
    EXPECT_EQ(scene.fileName(), path("a.ma"));
    EXPECT_FALSE(scene.isBusyWithFile());
    EXPECT_FALSE(session.events.condition("readingFile"));
}

TEST_F(SceneFileTest, WhatIsNoSceneLeavesTheSceneAlone)
{
    write(path("cat.ma"), "Meow");
    write(path("empty.ma"), "");
    write(path("old.mb"), "FOR4....Maya");
    add("transform", "mine");
    session.undo.record(std::make_unique<Nothing>());
    log.clear();
    EXPECT_EQ(failureOf([&] { openScene(session, path("none.ma")); }), "File not found: " + path("none.ma"));
    EXPECT_EQ(failureOf([&] { openScene(session, folder.string()); }),
              "The file \"" + folder.string() + "\" could not be read: Is a directory");
    for (const char* name : {"cat.ma", "empty.ma"})
        EXPECT_EQ(failureOf([&] { openScene(session, path(name)); }),
                  "The file \"" + path(name) + "\" is not a Maya scene.");
    EXPECT_EQ(failureOf([&] { openScene(session, path("old.mb")); }),
              "The file \"" + path("old.mb") + "\" is of an older binary form that is not supported.");
    EXPECT_NE(scene.findOrNull("mine"), nullptr);
    EXPECT_TRUE(scene.isModified() && session.undo.canUndo());
    EXPECT_EQ(scene.fileName(), "");
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(SceneFileTest, ErrorsInsideASceneAreRemembered)
{
    write(path("a.ma"), "//Maya bad");
    openScene(session, path("a.ma"));
    EXPECT_TRUE(scene.wasReadWithErrors());
    newScene(session);
    EXPECT_FALSE(scene.wasReadWithErrors());
}

TEST_F(SceneFileTest, ANewSceneHasWhatEveryNewSceneHas)
{
    const std::string fresh = [&] {
        Session other;
        std::ostringstream out;
        writeSceneText(other, out, "/shots/a.ma");
        return out.str();
    }();
    add("transform", "mine");
    set(scene.findOne("persp"), "tx", 5.0);
    scene.setTimeUnit(TimeUnit::PalFrame);
    scene.setAnimationRange({5, 500});
    scene.setCurrentTime(Time{7, TimeUnit::Film});
    scene.keptStatements = {"requires \"stereo\" \"10.0\";"};
    scene.setFileName("/shots/mine.ma");
    scene.setSelection({scene.findOne("mine")});
    session.undo.record(std::make_unique<Nothing>());
    bool wasThere = false;
    session.events.add("deleteAll", [&] { wasThere = scene.findOrNull("mine") != nullptr; });
    log.clear();
    newScene(session);
    EXPECT_THAT(log,
                ElementsAre("deleteAll", "timeUnitChanged", "playbackRangeChanged", "timeChanged", "NewSceneOpened"));
    EXPECT_TRUE(wasThere);
    EXPECT_FALSE(scene.isModified() || session.undo.canUndo());
    EXPECT_TRUE(scene.selection().empty() && scene.fileName().empty());
    const auto withoutUids = [](std::string text) {
        for (std::size_t at = 0; (at = text.find("rename -uid", at)) != std::string::npos;)
            text.erase(at, text.find('\n', at) - at);
        return text;
    };
    EXPECT_EQ(withoutUids(text()), withoutUids(fresh));
}
