#include "kernel/SceneFile.h"
#include "kernel/SceneIntake.h"
#include "workbench/mel/ModuleType.h"
#include "workbench/mel/ScriptHost.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <utility>

namespace {

using Texts = std::vector<std::string>;

/// Data that keeps the tokens it was given, and refuses when the first is "bad".
class WobbleData : public kernel::CustomData {
public:
    std::string typeName() const override { return "wobbleData"; }
    std::uint32_t typeId() const override { return 77; }
    bool writeText(std::ostream& out) override
    {
        for (const kernel::Value& token : tokens) {
            const auto* text = std::get_if<std::string>(&token);
            out << (text ? "\"" + *text + "\"" : kernel::toText(token)) << ' ';
        }
        return true;
    }
    bool readText(const kernel::Arguments& args, unsigned& next) override
    {
        firstIndex = next;
        if (onRead)
            std::exchange(onRead, nullptr)();
        for (; next < args.size(); ++next) {
            if (args.at(next) == kernel::Value(std::string("bad")))
                return false;
            tokens.push_back(args.at(next));
        }
        return true;
    }
    bool writeBinary(std::ostream&) override { return true; }
    bool readBinary(std::istream&, unsigned) override { return true; }
    std::shared_ptr<kernel::CustomData> copy() const override { return std::make_shared<WobbleData>(*this); }

    kernel::ValueList tokens;
    unsigned firstIndex = 0;
    static std::function<void()> onRead;  ///< done once, before any token is taken
};
std::function<void()> WobbleData::onRead;

void addWobble(kernel::Session& session)
{
    addModuleType(session, {"wobble", 78, "wobblePlugin", "wobbles", "wb", "wobbleData",
                            [] { return std::make_shared<WobbleData>(); }});
}

const WobbleData* wobblesOf(ScriptHost& host, const std::string& node)
{
    const kernel::NodePtr found = host.session.scene.findOne(node);
    const kernel::PlugValue value = found->value(*found->attribute("wb"));
    const auto* data = std::get_if<std::shared_ptr<kernel::CustomData>>(&value);
    return data ? static_cast<const WobbleData*>(data->get()) : nullptr;
}

bool read(ScriptHost& host, const std::string& text)
{
    kernel::SceneIntake intake(host.session, kernel::SceneIntake::Purpose::Open, "shot.ma");
    return host.session.script().executeScene(text, intake);
}

std::string written(ScriptHost& host)
{
    std::ostringstream out;
    kernel::writeSceneText(host.session, out, "shot.ma");
    return out.str();
}

}  // namespace

TEST(SceneReader, ReadsTheFormScenesAreWrittenIn)
{
    ScriptHost host;
    addWobble(host.session);
    EXPECT_TRUE(read(host,
                     "//Maya ASCII 2019 scene\n"
                     "requires maya \"2019\";\n"
                     "currentUnit -l centimeter -a degree -t pal;\n"
                     "fileInfo \"application\" \"maya\";\n"
                     "createNode transform -s -n \"persp\";\n"
                     "\trename -uid \"7C1A4A60-0000-4C0B-9F00-1D2E3F405162\";\n"
                     "\tsetAttr \".v\" no;\n"
                     "\tsetAttr \".t\" -type \"double3\" 1 -2 3e1 ;\n"
                     "createNode camera -s -n \"perspShape\" -p \"persp\";\n"
                     "\tsetAttr -k off \".v\";\n"
                     "\tsetAttr \".fl\" 34.999999999999993;\n"
                     "createNode transform -n \"ink\";\n"
                     "\tsetAttr -l on -k off \".tx\" 5;\n"
                     "createNode wobble -n \"inkShape\" -p \"ink\";\n"
                     "\tsetAttr \".wb\" -type \"wobbleData\" 2 -1 0.5 \"persp\" \"\" \"-x\"\n\t\t \"rough\" word ;\n"
                     "createNode script -n \"notes\";\n"
                     "\tsetAttr \".b\" -type \"string\" (\n\t\t\"one\\n\"\n\t\t+ \"two\");\n"
                     "select -ne :time1;\n"
                     "\tsetAttr \".o\" 12;\n"
                     "select -ne :noSuchDefaultNode;\n"
                     "\tsetAttr \".whatever\" 3;\n"
                     "// End of shot.ma\n"));
    EXPECT_EQ(host.errors, Texts());
    EXPECT_EQ(host.eval("getAttr persp.t"), "1 -2 30");
    EXPECT_EQ(host.eval("size(`ls \"persp*\"`)"), "2") << "shared nodes are not made twice";
    EXPECT_EQ(host.session.scene.findOne("persp")->uid(), "7C1A4A60-0000-4C0B-9F00-1D2E3F405162");
    EXPECT_EQ(host.session.scene.findOne("perspShape")->number("fl"), 34.999999999999993);
    EXPECT_EQ(host.eval("getAttr -l ink.tx"), "1");
    EXPECT_EQ(host.eval("getAttr notes.b"), "one\ntwo");
    EXPECT_EQ(host.eval("currentUnit -q -t"), "pal");
    EXPECT_EQ(host.eval("currentTime -q"), "12");
    EXPECT_EQ(host.eval("ls -sl"), "") << "reading leaves the selection alone";
    EXPECT_EQ(host.eval("undoInfo -q"), "0") << "and records nothing";

    const WobbleData* data = wobblesOf(host, "inkShape");
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->tokens, (kernel::ValueList{2, -1, 0.5, std::string("persp"), std::string(), std::string("-x"),
                                               std::string("rough"), std::string("word")}));
    EXPECT_GT(data->firstIndex, 0u) << "the list holds the whole statement";
}

TEST(SceneReader, ReportsEachErrorWithItsLineAndGoesOn)
{
    const struct {
        const char* what;
        const char* statement;
        const char* error;
    } cases[] = {
        {"an unknown flag", "createNode transform -zz -n \"x\";", "Invalid flag '-zz'"},
        {"a command no scene may hold", "delete persp;", "The command \"delete\" cannot stand in a scene."},
        {"a script", "global proc string[] evil() {\n print 1; };",
         "Cannot define a Mel procedure \"evil\" in a Maya Ascii file"},
        {"a variable", "setAttr \"a.tx\" ($x + 1);", "Syntax error"},
        {"a nested command", "setAttr \"a.tx\" `getAttr a.ty`;", "Syntax error"},
        {"a function", "setAttr \"a.tx\" (size(\"x\"));", "Syntax error"},
        {"a string that is not closed", "setAttr \"a.n\" -type \"string\" \"open\n\t\t rest\" 1 2;",
         "Syntax error near '\"open'"},
        {"stray bytes", "\xFF\xFE;", "Syntax error near '\xFF'"},
        {"a value out of range", "createNode camera; setAttr \".fl\" 1;",
         "setAttr: Cannot set the attribute 'cameraShape1.focalLength' below its minimum value of 2.5."},
        {"an attribute that is not there", "createNode transform -n \"a\"; setAttr \".noSuch\" 1;",
         "setAttr: No object matches name: a.noSuch"},
        {"a parent that is not there", "createNode locator -n \"a\" -p \"lost\";", "No object matches name: lost"},
        {"data that is refused", "createNode wobble; setAttr \".wb\" -type \"wobbleData\" 1 \"bad\";",
         "setAttr: Error reading data element number 2: bad"},
    };
    for (const auto& c : cases) {
        ScriptHost host;
        addWobble(host.session);
        EXPECT_FALSE(read(host, "createNode transform -n \"before\";\n\n" + std::string(c.statement)
                                    + "\ncreateNode transform -n \"after\";\n\tsetAttr \".tx\" 3;\n"))
            << c.what;
        ASSERT_EQ(host.errors.size(), 1u) << c.what;
        EXPECT_EQ(host.errors[0], std::string("file: shot.ma line 3: ") + c.error) << c.what;
        EXPECT_EQ(host.eval("objExists before"), "1") << c.what;
        EXPECT_EQ(host.eval("getAttr after.tx"), "3") << c.what;
    }
}

TEST(SceneReader, AnyCutIsReportedAndKeepsWhatWasWhole)
{
    const std::string whole = "createNode transform -n \"a\";\n\tsetAttr \".t\" -type \"double3\" 1 2 3 ;\n"
                              "createNode script -n \"s\";\n\tsetAttr \".b\" -type \"string\" (\"x\" + \"y\\\"\");\n";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        ScriptHost host;
        const std::string text = whole.substr(0, length);
        const std::size_t lastEnd = text.rfind(';');
        const std::string rest = text.substr(lastEnd == std::string::npos ? 0 : lastEnd + 1);
        const bool isWhole = rest.find_first_not_of(" \t\n") == std::string::npos;
        EXPECT_EQ(read(host, text), isWhole) << length;
        ASSERT_EQ(host.errors.size(), isWhole ? 0u : 1u) << length;
        if (!isWhole) {
            EXPECT_NE(host.errors[0].find(": The file ends in the middle of a statement."), std::string::npos)
                << host.errors[0];
        }
        if (length > whole.find("3 ;") + 2) {
            EXPECT_EQ(host.eval("getAttr a.tz"), "3") << length;
        }
    }
}

TEST(SceneReader, NodesOfMissingModulesAreKeptWordForWord)
{
    const std::string statements =
        "\tsetAttr -k off \".v\";\n"
        "\tsetAttr \".data\" -type \"mysteryData\" 1 -2 \"a;b\" \"\\\"q\\\"\" 0.10\n\t\t \"\" ;\n"
        "\taddAttr -ci true -sn \"x\" -ln \"xtra\" -at \"double\";\n";
    const std::string scene = "//Maya ASCII 2019 scene\n"
                              "requires -nodeType \"mystery\" -dataType \"mysteryData\" \"mysteryPlugin\" \"1.4\";\n"
                              "fileInfo \"studio\" \"old\";\n"
                              "fileInfo \"studio\" \"ours\";\n"
                              "createNode transform -n \"m\";\n"
                              "createNode mystery -n \"mShape\" -p \"m\";\n"
                            + statements
                            + "createNode transform -n \"after\";\n"
                              "\taddAttr -ln \"extra\" -sn \"ex\" -at \"double\";\n"
                              "\tsetAttr \".ex\" 4.50;\n"
                              "connectAttr \"m.out\" \"after.in\";\n";
    ScriptHost host;
    EXPECT_TRUE(read(host, scene));
    EXPECT_EQ(host.warnings, (Texts{"file: shot.ma line 2: Plug-in, \"mysteryPlugin\", was not found on "
                                    "MAYA_PLUG_IN_PATH.",
                                    "file: shot.ma line 6: Unknown object type: mystery. The node mShape is kept "
                                    "unread."}));
    EXPECT_EQ(host.eval("nodeType mShape"), "mystery");
    EXPECT_EQ(host.eval("listRelatives m"), "mShape");

    const std::string once = written(host);
    EXPECT_NE(once.find(statements), std::string::npos) << once;
    EXPECT_NE(once.find("requires -nodeType \"mystery\" -dataType \"mysteryData\" \"mysteryPlugin\" \"1.4\";"),
              std::string::npos);
    EXPECT_NE(once.find("fileInfo \"studio\" \"ours\";"), std::string::npos);
    EXPECT_EQ(once.find("fileInfo \"studio\" \"old\";"), std::string::npos);
    EXPECT_NE(once.find("\tsetAttr \".ex\" 4.50;\n"), std::string::npos);
    EXPECT_NE(once.find("connectAttr \"m.out\" \"after.in\";\n"), std::string::npos);

    ScriptHost again;
    EXPECT_TRUE(read(again, once));
    EXPECT_EQ(written(again), once) << "reading and writing again changes nothing";
}

TEST(SceneReader, ARequiredModuleIsLoadedInMidRead)
{
    ScriptHost host;
    Texts loaded;
    host.session.commands.add("loadPlugin", [&](const kernel::ValueList& args) -> kernel::Value {
        loaded.push_back(kernel::toText(args.back()));
        if (loaded.back() != "wobblePlugin")
            throw kernel::CommandError("Unable to dynamically load : x");
        addWobble(host.session);
        return {};
    });
    EXPECT_TRUE(read(host, "requires -nodeType \"wobble\" -dataType \"wobbleData\" \"wobblePlugin\" \"1.4\";\n"
                           "requires \"broken\" \"1\";\n"
                           "createNode wobble -n \"w\" ;\n\tsetAttr \".wb\" -type \"wobbleData\" 7;\n"));
    EXPECT_EQ(loaded, (Texts{"wobblePlugin", "broken"}));
    EXPECT_EQ(host.warnings, Texts{"file: shot.ma line 2: Unable to dynamically load : x"});
    ASSERT_NE(wobblesOf(host, "w"), nullptr);
    const std::string ours = "requires -nodeType \"wobble\" -dataType \"wobbleData\" \"wobblePlugin\" \"1.4\";";
    EXPECT_EQ(host.session.scene.keptStatements, (Texts{ours, "requires \"broken\" \"1\";"}));
    const std::string text = written(host);
    EXPECT_EQ(text.find("wobblePlugin"), text.rfind("wobblePlugin")) << "once, for the node\n" << text;
    host.session.scene.detach(host.session.scene.findOne("w"));
    EXPECT_NE(written(host).find(ours), std::string::npos) << "the scene still asks for the module";
}

TEST(SceneReader, AnArgumentThatCannotBeComputedCostsItsStatementOnly)
{
    ScriptHost host;
    EXPECT_FALSE(read(host, "createNode transform -n \"a\";\n\tsetAttr \".tx\" (1/0); setAttr \".ty\" 2;\n"
                            "createNode transform -n (\"b\" / 0);\n\tsetAttr \".ty\" 5;\n"
                            "createNode transform -n \"c\";\n\tsetAttr \".tz\" (1/0);"));
    ASSERT_EQ(host.errors.size(), 3u);
    const char* const lines[] = {"file: shot.ma line 2: ", "file: shot.ma line 3: ", "file: shot.ma line 6: "};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(host.errors[i].find(lines[i]), 0u) << host.errors[i];
    EXPECT_EQ(host.eval("getAttr a.ty"), "2") << "what follows in the line counts, but not a lost node's settings";
    EXPECT_EQ(host.eval("objExists c"), "1");
    EXPECT_EQ(host.eval("getAttr .tx"), "<error>") << "no node is current once the scene is read";
}

TEST(SceneReader, ChildrenOfUnknownNodesKeepTheirPlace)
{
    ScriptHost host;
    EXPECT_TRUE(read(host, "createNode transform -n \"first\";\n"
                           "createNode joint -n \"j1\";\n\tsetAttr \".jo\" 4;\n"
                           "createNode transform -n \"last\";\n"
                           "createNode joint -n \"j2\" -p \"j1\";\n"
                           "createNode transform -n \"g\" -p \"j1\";\n"
                           "\tsetAttr \".t\" -type \"double3\" 7 8 9;\n"
                           "createNode transform -n \"h\" -p \"j2\";\n"));
    EXPECT_EQ(host.errors, Texts());
    EXPECT_EQ(host.eval("ls -l g h"), "|j1|g |j1|j2|h");
    EXPECT_EQ(host.eval("getAttr g.t"), "7 8 9");
    const std::string once = written(host);
    EXPECT_LT(once.find("-n \"first\""), once.find("createNode joint -n \"j1\"")) << once;
    EXPECT_LT(once.find("createNode joint -n \"j1\""), once.find("-n \"last\"")) << once;
    EXPECT_NE(once.find("createNode joint -n \"j2\" -p \"j1\";"), std::string::npos) << once;
    EXPECT_NE(once.find("\tsetAttr \".jo\" 4;"), std::string::npos) << once;
    ScriptHost again;
    EXPECT_TRUE(read(again, once));
    EXPECT_EQ(written(again), once);
}

TEST(SceneReader, WhatANewerHostSaysIsReportedAndCostsLittle)
{
    ScriptHost host;
    EXPECT_FALSE(read(host, "createNode transform -n \"group\";\n"
                            "createNode transform -zz 5 -n \"a\" -p \"group\";\n"
                            "\tsetAttr \".noSuch\" -type \"string\" \".x\";\n\tsetAttr \".tx\" 3;\n"));
    EXPECT_EQ(host.errors, (Texts{"file: shot.ma line 2: Invalid flag '-zz'",
                                  "file: shot.ma line 3: setAttr: No object matches name: a.noSuch"}));
    EXPECT_EQ(host.eval("ls -l a"), "|group|a");
    EXPECT_EQ(host.eval("getAttr a.tx"), "3");
    EXPECT_NE(written(host).find("\tsetAttr \".noSuch\" -type \"string\" \".x\";\n"), std::string::npos);
}

TEST(SceneReader, LongTokensArriveWhole)
{
    ScriptHost host;
    addWobble(host.session);
    const std::string hex(5 << 20, 'A');
    std::string text = "createNode wobble -n \"w\";\n\tsetAttr \".wb\" -type \"wobbleData\"";
    for (int i = 0; i < 4; ++i)
        text += "\n\t\t " + std::to_string(i) + " \"" + hex + "\"";
    std::string parts = "(\"\"";
    for (int i = 0; i < 20000; ++i)
        parts += "\n\t\t+ \"0123456789\"";
    text += ";\ncreateNode script -n \"s\";\n\tsetAttr \".b\" -type \"string\" " + parts + ");\n";
    EXPECT_TRUE(read(host, text));
    const WobbleData* data = wobblesOf(host, "w");
    ASSERT_NE(data, nullptr);
    ASSERT_EQ(data->tokens.size(), 8u);
    EXPECT_EQ(data->tokens[7], kernel::Value(hex));
    EXPECT_EQ(host.session.scene.findOne("s")->text("b").size(), 200000u);
}

TEST(SceneReader, WhatAModuleSetsWhileItReadsHasItsOwnArguments)
{
    ScriptHost host;
    addWobble(host.session);
    host.run("createNode wobble -n \"other\"; createNode transform -n \"t\"");
    WobbleData::onRead = [&host] { host.run("setAttr \"other.wb\" -type \"wobbleData\" 5; setAttr \"t.tx\" 3"); };
    const std::string longText(1 << 20, 'x');
    EXPECT_TRUE(read(host, "createNode wobble -n \"w\";\n\tsetAttr \".wb\" -type \"wobbleData\" 1 \"" + longText
                               + "\";\n"
                                 "createNode script -n \"s\";\n\tsetAttr \".b\" -type \"string\" \""
                               + longText + "\";\n"));
    EXPECT_EQ(wobblesOf(host, "other")->tokens, kernel::ValueList{5});
    EXPECT_EQ(wobblesOf(host, "w")->tokens, (kernel::ValueList{1, longText}));
    EXPECT_EQ(host.eval("getAttr t.tx"), "3");
    EXPECT_EQ(host.session.scene.findOne("s")->text("b"), longText);
    EXPECT_TRUE(
        read(host, "createNode wobble -n \"late\";\nsetAttr \"late.wb\" -type \"wobbleData\" \"" + longText + "\";\n"));
    EXPECT_EQ(wobblesOf(host, "late")->tokens, kernel::ValueList{longText}) << "by the node's name";
}

TEST(SceneReader, HostileScenesEndInErrors)
{
    const auto repeated = [](const std::string& piece, int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += piece;
        return text;
    };
    const std::string texts[] = {
        repeated("(", 100000),
        "setAttr \".b\" " + repeated("(", 100000),
        "setAttr \".b\" " + repeated("{", 100000),
        "setAttr \".b\" " + repeated("-", 1000) + "1;",
        repeated("\"\n", 5000),
        repeated("setAttr \"\n", 1000),
        "setAttr ;createNode ;rename ;addAttr ;connectAttr ;select ;requires ;fileInfo ;file ;parent ;lockNode ;",
        "setAttr -type;\nrename -uid;\nsetAttr \".t\" -type \"double3\";\n",
        std::string("a\0;b", 4),
        "createNode unknownThing; setAttr \".a\" 1; createNode unknownThing -p unknownThing; rename -uid \"x\";",
    };
    for (const std::string& text : texts) {
        ScriptHost host;
        read(host, text);
        EXPECT_GT(host.errors.size() + host.warnings.size(), 0u) << text.substr(0, 40);
    }
}
