#include "mel/builtins/OptionVars.h"
#include "workbench/mel/ScriptHost.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

namespace {

using Texts = std::vector<std::string>;

struct Case {
    const char* text;
    const char* value;
};

void expectValues(ScriptHost& host, const std::vector<Case>& cases)
{
    for (const Case& c : cases)
        EXPECT_EQ(host.eval(c.text), c.value) << c.text << (host.errors.empty() ? "" : ": " + host.errors.back());
}

void expectErrors(ScriptHost& host, const std::vector<Case>& cases)
{
    for (const Case& c : cases)
        EXPECT_EQ(host.error(c.text), c.value) << c.text;
}

}  // namespace

TEST(NodeCommands, NodesAreMadeNamedAndListed)
{
    ScriptHost host;
    expectValues(host, {
                           {"createNode transform -n grp", "grp"},
                           {"ls -sl", "grp"},
                           {"createNode transform -n grp -ss", "grp1"},
                           {"ls -sl", "grp"},
                           {"createNode locator", "locatorShape1"},
                           {"listRelatives -p locatorShape1", "locator1"},
                           {"createNode locator -n mark -p grp", "mark"},
                           {"createNode camera -s -n perspShape -p persp", "perspShape"},
                           {"createNode transform -p grp", "transform1"},
                           {"rename grp1 \"grp#\"", "grp1"},
                           {"rename transform1 \"a b!\"", "a_b_"},
                           {"rename grp house", "house"},
                           {"ls \"h*\" noSuch \"gr?1\"", "house grp1"},
                           {"ls -l mark", "|house|mark"},
                           {"ls -dag house", "house mark a_b_"},
                           {"ls -dag -s house persp", "mark perspShape"},
                           {"ls -type locator", "locatorShape1 mark"},
                           {"ls -type shape -l -dag house", "|house|mark"},
                           {"ls -tr \"top*\"", "top"},
                           {"ls -ca", "frontShape perspShape sideShape topShape"},
                           {"ls -type camera -hd 2", "frontShape perspShape"},
                           {"ls -type camera -tl 1", "topShape"},
                           {"ls -st mark", "mark locator"},
                           {"ls -as -ext camera \"*o*\"", "top front house locator1"},
                           {"listRelatives house", "mark a_b_"},
                           {"listRelatives -f -s house", "|house|mark"},
                           {"listRelatives -ad -pa -type locator house", "mark"},
                           {"listRelatives -p house", ""},
                           {"objExists house", "1"},
                           {"objExists house.tx", "1"},
                           {"objExists house.noSuch", "0"},
                           {"objExists noSuch", "0"},
                           {"nodeType mark", "locator"},
                           {"nodeType -i mark", "dependNode dagNode shape locator"},
                           {"objectType -isa dagNode mark", "1"},
                           {"parent grp1 house", "grp1"},
                           {"parent -w a_b_", "a_b_"},
                           {"ls -l \"grp1\" \"a_b_\"", "|house|grp1 |a_b_"},
                           {"select -r {}; ls -sl", "a_b_"},
                           {"delete house; objExists mark", "0"},
                           {"camera -n shot", "shot1 shotShape1"},
                           {"camera -n shot", "shot2 shotShape2"},
                           {"rename shot2 cam", "cam"},
                           {"listRelatives cam", "camShape"},
                           {"camera -e -fl 50 -o on -ff overscan -p 1 2 3 shotShape1; camera -q -fl shot1", "50"},
                           {"camera -q -p shot1", "1 2 3"},
                           {"camera -q -ff shot1", "overscan"},
                           {"camera -q -o shot1", "1"},
                           {"select -cl; select top front; select -tgl top side; ls -sl", "front side"},
                           {"select -d side; select -af persp; ls -sl", "persp front"},
                           {"select -hi persp; ls -sl", "persp perspShape"},
                           {"select shot1; delete; objExists shotShape1", "0"},
                       });
    expectErrors(host, {
                           {"createNode nonsense", "Unknown object type: nonsense"},
                           {"createNode transform -p noSuch", "No object matches name: noSuch"},
                           {"createNode transform -zz", "Invalid flag '-zz'"},
                           {"createNode", "No object was specified"},
                           {"ls -type nonsense", "Unknown object type: nonsense"},
                           {"select top noSuch", "No object matches name: noSuch"},
                           {"delete cam persp", "Cannot delete the read only node 'persp'."},
                           {"rename persp x", "Cannot rename a read only node."},
                           {"camera -e -fl 50 a_b_", "camera: Object 'a_b_' is not a camera."},
                           {"listRelatives noSuch", "No object matches name: noSuch"},
                           {"frobnicate", "Cannot find procedure \"frobnicate\"."},
                       });
    EXPECT_EQ(host.eval("objExists cam"), "1") << "a refused delete removes nothing";
    host.run("createNode transform -n p; createNode transform -n x -p p; createNode transform -n x;");
    EXPECT_EQ(host.error("delete x"), "More than one object matches name: x");
}

TEST(NodeCommands, ParentingAndMovingKeepWorldPlaces)
{
    ScriptHost host;
    host.run("createNode transform -n up; setAttr up.t 1 2 3; setAttr up.ry 90; setAttr up.s 2 2 2;"
             "createNode transform -n a; setAttr a.t 5 0 0; setAttr a.r 10 20 30;");
    const kernel::NodePtr node = host.session.scene.findOne("a");
    const kernel::Matrix4 before = node->worldMatrix();
    ASSERT_TRUE(host.run("parent a up"));
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(node->worldMatrix().m[i / 4][i % 4], before.m[i / 4][i % 4], 1e-9) << i;
    ASSERT_TRUE(host.run("move 7 8 9 a; move -r -y 1 a;"));
    EXPECT_NEAR(node->worldMatrix().m[3][0], 7, 1e-9);
    EXPECT_NEAR(node->worldMatrix().m[3][1], 9, 1e-9);
    EXPECT_NEAR(node->worldMatrix().m[3][2], 9, 1e-9);
    ASSERT_TRUE(host.run("move -ls 1 1 1 a; move -x -z 4 -5 up;"));
    EXPECT_EQ(host.eval("getAttr a.t"), "1 1 1");
    EXPECT_EQ(host.eval("getAttr up.t"), "4 2 -5");
    EXPECT_EQ(host.error("parent up a"), "Cannot parent an object to one of its own children.");
    EXPECT_EQ(host.error("move 1 2"), "Incorrect number of objects specified");
}

TEST(AttributeCommands, ValuesAreSetAndRead)
{
    ScriptHost host;
    host.run("createNode transform -n a; createNode camera -n cam -p a; createNode script -n s;");
    expectValues(
        host, {
                  {"setAttr a.t 1 -2.5 3; getAttr a.translate", "1 -2.5 3"},
                  {"setAttr a.t -type \"double3\" 4 5 6 ; getAttr a.ty", "5"},
                  {"setAttr \"a.t.tx\" -7; getAttr a.tx", "-7"},
                  {"setAttr a.v no; getAttr a.v", "0"},
                  {"setAttr a.v on; getAttr a.v", "1"},
                  {"setAttr a.ro 3; getAttr a.ro", "3"},
                  {"getAttr -as a.ro", "xzy"},
                  {"setAttr s.b -type \"string\" \"-x\"; getAttr s.b", "-x"},
                  {"setAttr s.b \"late\" -type \"string\"; getAttr s.b", "late"},
                  {"setAttr -type \"string\" s.b \"early\"; getAttr s.b", "early"},
                  {"setAttr s.b -type \"string\" (\"one \" + \"two\"); getAttr s.b", "one two"},
                  {"setAttr -k off -cb on a.tx; getAttr -k a.tx", "0"},
                  {"getAttr -cb a.tx", "1"},
                  {"setAttr -l on a.tx; getAttr -l a.tx", "1"},
                  {"getAttr -l a.t", "1"},
                  {"getAttr -se a.tx", "0"},
                  {"setAttr -l off a.tx 9; getAttr a.tx", "9"},
                  {"setAttr -l on a.tx 3; getAttr a.tx", "3"},
                  {"setAttr -c cam.fl 1; getAttr cam.fl", "2.5"},
                  {"getAttr -type a.t", "double3"},
                  {"getAttr -type a.tx", "doubleLinear"},
                  {"getAttr -type cam.ff", "enum"},
                  {"select a; getAttr .ty", "5"},
                  {"setAttr \":time1.o\" 6; currentTime -q", "6"},
                  {"setAttr defaultRenderGlobals.startFrame \"2sec\"; getAttr defaultRenderGlobals.startFrame", "48"},
              });
    expectErrors(
        host,
        {
            {"setAttr a.tx 1", "setAttr: The attribute 'a.translateX' is locked or connected and cannot be modified."},
            {"setAttr a.t 1 1 1",
             "setAttr: The attribute 'a.translateX' is locked or connected and cannot be modified."},
            {"setAttr a.noSuch 1", "setAttr: No object matches name: a.noSuch"},
            {"setAttr noSuch.tx 1", "setAttr: No object matches name: noSuch.tx"},
            {"setAttr a.ty", "setAttr: Error reading data element number 1: "},
            {"setAttr a.ty word", "setAttr: Error reading data element number 1: word"},
            {"setAttr a.r 1 2", "setAttr: Error reading data element number 3: "},
            {"setAttr a.r 1 2 3 4", "setAttr: Error reading data element number 4: 4"},
            {"setAttr cam.fl 1", "setAttr: Cannot set the attribute 'cam.focalLength' below its minimum value of 2.5."},
            {"setAttr cam.dgo 2",
             "setAttr: Cannot set the attribute 'cam.displayGateMaskOpacity' past its maximum value "
             "of 1."},
            {"setAttr s.b \"x\"",
             "setAttr: 's.before' is not a simple numeric attribute.  Its values must be set with a "
             "-type flag."},
            {"setAttr -q a.tx 1", "Invalid flag '-q'"},
            {"setAttr -l maybe a.tx", "Flag 'l' must be passed a boolean argument"},
            {"setAttr", "No object was specified"},
            {"getAttr a", "getAttr: No object matches name: a"},
        });
}

TEST(TimeCommands, TimeUnitsAndRanges)
{
    ScriptHost host;
    expectValues(host, {
                           {"currentTime -q", "1"},
                           {"currentTime 12", "12"},
                           {"currentTime \"1sec\"", "24"},
                           {"currentTime 2sec", "48"},
                           {"currentTime -e 5.5", "5.5"},
                           {"currentTime -u off -3", "-3"},
                           {"playbackOptions -q -min", "1"},
                           {"playbackOptions -q -max", "24"},
                           {"playbackOptions -min 5 -max 20; playbackOptions -q -min", "5"},
                           {"playbackOptions -min 30; playbackOptions -q -max", "31"},
                           {"playbackOptions -max 10; playbackOptions -q -min", "9"},
                           {"playbackOptions -ast 1 -aet 100 -min 10 -max 90; playbackOptions -q -aet", "100"},
                           {"playbackOptions -aet 50; playbackOptions -q -max", "50"},
                           {"playbackOptions -ast 200 -aet 300; playbackOptions -q -min", "200"},
                           {"playbackOptions -q -max", "200"},
                           {"playbackOptions -by 2 -l once -ps 0; playbackOptions -q -l", "once"},
                           {"playbackOptions -q -fps", "24"},
                           {"currentUnit -q -t", "film"},
                           {"currentTime 24; currentUnit -t pal; currentTime -q", "25"},
                           {"currentUnit -q -l", "cm"},
                           {"currentUnit -q -f -a", "degree"},
                           {"currentUnit -l centimeter -a degree -t film; currentTime -q", "24"},
                           {"timeControl -q -rangeArray anyName", "24 25"},
                           {"timeControl -q -rangeVisible $gPlayBackSlider", "0"},
                       });
    expectErrors(host,
                 {
                     {"currentUnit -t fortnight", "currentUnit: Unknown time unit 'fortnight'."},
                     {"currentUnit -l m", "currentUnit: The unit 'm' is not supported; centimeter is."},
                     {"currentTime someday", "Invalid time: someday"},
                     {"playbackOptions -by 1e-30", "playbackOptions: The step must be 0.001 or more."},
                     {"playbackOptions -min 3 -mps -1", "playbackOptions: -maxPlaybackSpeed must not be negative."},
                     {"playbackOptions -ps -1", "playbackOptions: -playbackSpeed must not be negative."},
                     {"playbackOptions -min x", "Flag 'min' must be passed a time argument"},
                 });
    host.session.scene.highlightSliderRange({10, 20});
    EXPECT_EQ(host.eval("timeControl -q -ra $gPlayBackSlider"), "10 20");
    EXPECT_EQ(host.eval("timeControl -q -rng x"), "\"10:20\"");
    EXPECT_EQ(host.eval("timeControl -q -rv x"), "1");
}

TEST(SessionCommands, OptionVariablesKeepTheirTypes)
{
    ScriptHost host;
    expectValues(host, {
                           {"optionVar -iv a 3 -sv b \"x\" -fv c 2; optionVar -q a", "3"},
                           {"optionVar -q \"b\"", "x"},
                           {"optionVar -ex a", "1"},
                           {"optionVar -ex z", "0"},
                           {"optionVar -q z", "0"},
                           {"optionVar -sv a \"now text\"; optionVar -q a", "now text"},
                           {"optionVar -sva l \"-p\" -sva l \"q\"; optionVar -q l", "-p q"},
                           {"optionVar -as l", "2"},
                           {"optionVar -as b", "1"},
                           {"optionVar -as z", "0"},
                           {"optionVar -rfa l 0; optionVar -q l", "q"},
                           {"optionVar -rfa l 9; optionVar -ca l; optionVar -as l", "0"},
                           {"optionVar -rm a -iv a 7; optionVar -q a", "7"},
                           {"optionVar -iva a 8; optionVar -q a", "7 8"},
                           {"optionVar -rm a -rm b; optionVar -list", "c l"},
                       });
}

TEST(SessionCommands, OptionVariablesSurviveTheSession)
{
    const std::string text = "quote \" backslash \\ line\nend \xC3\xA9";
    const std::string file = testing::TempDir() + "optionVars.mel";
    {
        ScriptHost host;
        host.session.prefsDir = testing::TempDir();
        host.session.optionVars = {
            {"n", 3}, {"f", 0.1}, {"s", text}, {"l", kernel::StringArray{"a", ""}}, {"i", kernel::IntArray{1, 2}}};
        mel::saveOptionVars(host.session);
    }
    ScriptHost host;
    host.session.prefsDir = testing::TempDir();
    mel::loadOptionVars(host.session);
    std::remove(file.c_str());
    EXPECT_EQ(host.errors, Texts());
    EXPECT_EQ(host.session.optionVars.at("n"), kernel::Value(3));
    EXPECT_EQ(host.session.optionVars.at("f"), kernel::Value(0.1));
    EXPECT_EQ(host.session.optionVars.at("s"), kernel::Value(text));
    EXPECT_EQ(host.session.optionVars.at("l"), kernel::Value(kernel::StringArray{"a", ""}));
    EXPECT_EQ(host.session.optionVars.at("i"), kernel::Value(kernel::IntArray{1, 2}));
    host.session.prefsDir = "/no/such/folder/";
    mel::saveOptionVars(host.session);
    EXPECT_EQ(host.warnings.size(), 1u);
}

TEST(SessionCommands, OneBadOptionVariableDoesNotCostTheOthers)
{
    const std::string file = testing::TempDir() + "optionVars.mel";
    std::ofstream(file) << "optionVar -iv \"a\" 1;\noptionVar -fv \"f\" inf inf;\noptionVar -sv \"b\" \"open;\n"
                           "optionVar -iv \"c\"\n  2;\n";
    ScriptHost host;
    host.session.prefsDir = testing::TempDir();
    mel::loadOptionVars(host.session);
    std::remove(file.c_str());
    EXPECT_EQ(host.session.optionVars, (std::map<std::string, kernel::Value>{{"a", 1}, {"c", 2}}));
    ASSERT_EQ(host.warnings.size(), 2u);
    EXPECT_NE(host.warnings[0].find("line 2 of " + file), std::string::npos) << host.warnings[0];
    EXPECT_NE(host.warnings[1].find("line 3 of " + file), std::string::npos) << host.warnings[1];

    for (const char* text : {"optionVar -iv a 5 -fv x (1e308 * 10)", "optionVar -fva x (-1e308 * 10)"})
        EXPECT_NE(host.error(text).find("The value of 'x' must be a finite number."), std::string::npos) << text;
    EXPECT_EQ(host.eval("optionVar -list"), "a c");
    EXPECT_EQ(host.eval("optionVar -q a"), "1") << "a refused command sets nothing";
}

TEST(DeferredCommands, TextsRunAtIdleInOrder)
{
    ScriptHost host;
    host.run("evalDeferred -lp \"print 6\"; evalDeferred -low \"print 5\"; evalDeferred(\"print 3\");"
             "evalDeferred \"evalDeferred -en \\\"print 7\\\"; noSuch; print 9\"; evalDeferred print 4;"
             "evalDeferred -en \"print 1\"; evalDeferred -en \"print 2\"; print 0;");
    EXPECT_EQ(host.printed, "0");
    EXPECT_EQ(host.eval("$waiting = `evalDeferred -list`; size($waiting);"), "7");
    EXPECT_EQ(host.eval("$waiting[0] + $waiting[2] + $waiting[6];"), "print 1print 3print 6");
    host.session.idle.runPass();
    EXPECT_EQ(host.printed, "0123456") << "an error does not stop the next one";
    EXPECT_EQ(host.eval("size(`evalDeferred -list`)"), "1") << "what a deferred text defers waits for another pass";
    host.session.idle.drain();
    EXPECT_EQ(host.printed, "01234567");
    EXPECT_EQ(host.errors, Texts{"Cannot find procedure \"noSuch\"."});
    host.run("evalDeferred \"createNode transform -n d\";");
    host.session.idle.drain();
    EXPECT_EQ(host.eval("undoInfo -q -un"), "createNode transform -n d");
}

TEST(FileCommand, SavesOpensAndGuardsChanges)
{
    const std::string stem = testing::TempDir() + "fileCommand";
    ScriptHost host;
    expectValues(host, {
                           {"file -q -sn", ""},
                           {"file -q -loc", "unknown"},
                           {"file -q -mf", "0"},
                           {"createNode transform -n kept; setAttr kept.tx 4; file -q -mf", "1"},
                       });
    expectErrors(host, {
                           {"file -new", "Unsaved changes"},
                           {"file -open \"/tmp/x.ma\"", "Unsaved changes"},
                           {"file -save", "file: The scene has no name yet; give it one with -rename."},
                           {"file -f -open \"/no/such.ma\"", "File not found: /no/such.ma"},
                           {"file -type obj -save", "file: Unsupported file type: obj"},
                       });
    EXPECT_EQ(host.eval("objExists kept"), "1");
    EXPECT_EQ(host.eval("file -rename -type mayaAscii \"" + stem + "\""), stem + ".ma");
    EXPECT_EQ(host.eval("file -save"), stem + ".ma");
    expectValues(host, {
                           {"file -q -mf", "0"},
                           {"file -q -sn -shn", "fileCommand.ma"},
                           {"file -new", "untitled"},
                           {"objExists kept", "0"},
                           {"undoInfo -q", "0"},
                       });
    EXPECT_EQ(host.eval("file -q -ex \"" + stem + ".ma\""), "1");
    EXPECT_EQ(host.eval("file -open \"" + stem + ".ma\""), stem + ".ma");
    ASSERT_FALSE(host.infos.empty());
    EXPECT_EQ(host.infos.back().substr(0, 14), "File read in  ");
    EXPECT_EQ(host.eval("getAttr kept.tx"), "4");
    EXPECT_EQ(host.eval("file -q -err"), "0");
    std::remove((stem + ".ma").c_str());
}

TEST(FileCommand, TheTypeIsTheOneAskedForOrThatOfTheFileOrOfTheName)
{
    const std::string stem = testing::TempDir() + "fileTypes";
    ScriptHost host;
    const auto formOf = [](const std::string& path) {
        std::ifstream in(path);
        std::string start(4, '\0');
        in.read(&start[0], 4);
        return start == "FOR8" ? "binary" : start == "//Ma" ? "text" : "none";
    };
    const std::string plain = stem, text = stem + ".ma", binary = stem + ".mb";
    const auto name = [](const std::string& path) { return "file -rename \"" + path + "\"; "; };
    EXPECT_EQ(host.eval("file -q -type"), "mayaBinary") << "a new scene";
    EXPECT_EQ(host.eval(name(plain) + "file -save"), binary);
    EXPECT_STREQ(formOf(binary), "binary");

    EXPECT_EQ(host.eval("file -f -new; " + name(text) + "file -q -type"), "mayaAscii") << "by its name";
    EXPECT_EQ(host.eval("file -save; file -type mayaBinary; file -save"), text);
    EXPECT_STREQ(formOf(text), "binary") << "by the type set last";

    EXPECT_EQ(host.eval("file -f -open \"" + text + "\"; file -q -type"), "mayaBinary") << "by its content";
    EXPECT_EQ(host.eval(name(stem + "2.ma") + "file -save"), stem + "2.ma");
    EXPECT_STREQ(formOf(stem + "2.ma"), "binary") << "as it was opened";
    EXPECT_EQ(host.eval("file -rename -type mayaAscii \"" + plain + "\"; file -save"), text);
    EXPECT_STREQ(formOf(text), "text");
    for (const std::string& path : {text, binary, stem + "2.ma"})
        std::remove(path.c_str());
}
