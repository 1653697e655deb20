#include "workbench/mel/SceneFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class Import : public SceneFolder {};

const char kBall[] = "createNode transform -n \"ball\";\n"
                     "\tsetAttr \".t\" -type \"double3\" 1 2 3 ;\n"
                     "createNode locator -n \"ballShape\" -p \"ball\";\n"
                     "setAttr \"ball.ty\" 7;\n";

}  // namespace

TEST_F(Import, NamesTheSceneHasAlreadyGetTheFilesNameInFront)
{
    write("red-1.ma", kBall);
    run("createNode transform -n ball; createNode locator -n ballShape -p ball; select -cl");
    ASSERT_TRUE(file("-import", "red-1.ma"));
    EXPECT_EQ(eval("ls \"*ball*\""), "ball ballShape red_1_ball red_1_ballShape");
    EXPECT_EQ(eval("listRelatives -parent red_1_ballShape"), "red_1_ball");
    EXPECT_EQ(eval("getAttr red_1_ball.t"), "1 7 3") << "a file's statements mean the file's own nodes";
    EXPECT_EQ(eval("getAttr ball.t"), "0 0 0");
    EXPECT_EQ(eval("ls -sl"), "");
    ASSERT_TRUE(file("-import", "red-1.ma"));
    EXPECT_EQ(eval("getAttr red_1_ball1.ty"), "7");
    EXPECT_EQ(eval("listRelatives red_1_ball1"), "red_1_ballShape");
    ASSERT_TRUE(file("-import -renamingPrefix \"odd\"", "red-1.ma"));
    EXPECT_EQ(eval("getAttr odd_ball.ty"), "7");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(Import, NamesThatAreFreeStayAsTheyAre)
{
    write("a.ma", "createNode transform -n \"x\";\ncreateNode transform -n \"in\" -p \"x\";\n"
                  "createNode transform -n \"y\";\ncreateNode transform -n \"in\" -p \"y\";\n"
                  "setAttr \"x|in.tx\" 1;\nsetAttr \"|y|in.tx\" 2;\nparent \"|x|in\" \"y\";\n");
    ASSERT_TRUE(file("-import", "a.ma"));
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("listRelatives y"), "in in1");
    EXPECT_EQ(eval("getAttr \"y|in.tx\""), "2");
    EXPECT_EQ(eval("getAttr in1.tx"), "1");
}

TEST_F(Import, ANodeThatTheFileRenamesIsFoundByItsNewName)
{
    write("a.ma", std::string(kBall) + "rename \"ball\" \"globe\";\nsetAttr \"globe.tz\" 8;\n");
    run("createNode transform -n ball; createNode transform -n globe");
    ASSERT_TRUE(file("-import", "a.ma"));
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("getAttr a_globe.t"), "1 7 8");
    EXPECT_EQ(eval("getAttr ball.t"), "0 0 0");
}

TEST_F(Import, GoesUnderANamespaceOfItsOwnUnlessMerged)
{
    write("a.ma", kBall);
    EXPECT_EQ(eval("file -import -namespace \"red\" -returnNewNodes \"" + path("a.ma") + "\""),
              "red:ball red:ballShape");
    EXPECT_EQ(eval("getAttr red:ball.ty"), "7");
    EXPECT_EQ(eval("namespace -exists \":red\""), "1");
    ASSERT_TRUE(file("-import -namespace \"red\"", "a.ma"));
    EXPECT_EQ(eval("getAttr red1:ball.ty"), "7");
    ASSERT_TRUE(file("-import -namespace \"red\" -mergeNamespacesOnClash true", "a.ma"));
    EXPECT_EQ(eval("getAttr red:ball1.ty"), "7");
    run("createNode transform -n ball");
    EXPECT_EQ(eval("file -import -namespace \":\" -returnNewNodes \"" + path("a.ma") + "\""), "a_ball ballShape");
}

TEST_F(Import, UndoOfWhatWasDoneBeforeLeavesEveryNodeANameOfItsOwn)
{
    write("a.ma", "createNode transform -n \"ball\";\n");
    run("createNode transform -n ball");
    run("rename ball globe");
    ASSERT_TRUE(file("-import", "a.ma"));
    run("undo");
    EXPECT_EQ(eval("ls \"ball*\""), "ball1 ball");
    run("redo");
    EXPECT_EQ(eval("ls \"ball*\" globe"), "ball globe");
}

TEST_F(Import, LeavesWhatIsTheScenesOwnAlone)
{
    write("a.ma", "requires \"absentPlugin\" \"1.0\";\ncurrentUnit -l centimeter -a degree -t pal;\n"
                  "fileInfo \"mood\" \"red\";\n"
                  "createNode transform -s -n \"persp\";\n\tsetAttr \".t\" -type \"double3\" 9 9 9 ;\n"
                  "createNode camera -s -n \"perspShape\" -p \"persp\";\n\tsetAttr \".fl\" 99;\n"
                  "createNode locator -n \"mark\" -p \"persp\";\n"
                  "createNode renderGlobals -n \"rg\";\n\tsetAttr \".fs\" 25;\n"
                  "createNode script -n \"sceneConfigurationScriptNode\";\n"
                  "\tsetAttr \".b\" -type \"string\" \"playbackOptions -min 3 -max 4\";\n\tsetAttr \".st\" 6;\n"
                  "select -ne :time1;\n\tsetAttr \".o\" 33;\n"
                  "select -ne :defaultResolution;\n\tsetAttr \".w\" 33;\n"
                  "select -ne :hardwareRenderGlobals;\n\tsetAttr \".hwcc\" 33;\n"
                  "setAttr \"persp.ty\" 99;\n");
    run("currentTime 5; createNode renderGlobals -n own; setAttr own.fs 7.3; select own; flushUndo; undoInfo -st on");
    run("createNode transform -n step");
    session.scene.setModified(false);
    ASSERT_TRUE(file("-import", "a.ma"));
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("currentUnit -q -time"), "film");
    EXPECT_EQ(eval("getAttr rg.fs"), "24") << "the 25th frame of 25 a second";
    EXPECT_EQ(eval("getAttr own.fs"), "7.3");
    EXPECT_EQ(eval("currentTime -q"), "5");
    EXPECT_EQ(eval("playbackOptions -q -min"), "1");
    EXPECT_EQ(eval("getAttr defaultResolution.w"), "960");
    EXPECT_EQ(eval("getAttr persp.t"), "28 21 28");
    EXPECT_EQ(eval("getAttr perspShape.fl"), "35");
    EXPECT_EQ(eval("listRelatives -parent mark"), "persp");
    EXPECT_EQ(eval("objExists \"*sceneConfiguration*\""), "0");
    EXPECT_EQ(eval("ls -sl"), "step");
    EXPECT_TRUE(session.scene.isModified());
    EXPECT_EQ(session.undo.undoName(), "createNode transform -n step") << "what was done before can be undone";
    saveAs("b.ma");
    EXPECT_THAT(content("b.ma"), HasSubstr("requires \"absentPlugin\""));
    EXPECT_THAT(content("b.ma"), Not(HasSubstr("mood")));
    EXPECT_THAT(content("b.ma"), Not(HasSubstr("hwcc")));
}

TEST_F(Import, LinksThatAreKeptMeanTheNewNames)
{
    write("a.ma", "createNode transform -n \"ball\";\ncreateNode transform -n \"free\";\n"
                  "connectAttr \"ball.tx\" \"free.tx\" -na;\n");
    run("createNode transform -n ball");
    ASSERT_TRUE(file("-import", "a.ma"));
    saveAs("b.ma");
    EXPECT_THAT(content("b.ma"), HasSubstr("\nconnectAttr \"|a_ball.tx\" \"|free.tx\" -na;\n"));
}

TEST_F(Import, ReportsErrorsAndKeepsWhatCouldBeRead)
{
    write("a.ma", "createNode transform -n \"good\";\n\tsetAttr \".nothing\" 1;\n");
    ASSERT_TRUE(file("-import", "a.ma"));
    EXPECT_THAT(errors, ElementsAre(HasSubstr("a.ma line 3: setAttr: No object matches name: good.nothing")));
    EXPECT_EQ(eval("objExists good"), "1");
    EXPECT_EQ(error("file -import \"" + path("none.ma") + "\""), "File not found: " + path("none.ma"));
    std::ofstream(path("text.ma")) << "hello";
    EXPECT_THAT(error("file -import \"" + path("text.ma") + "\""), HasSubstr("is not a Maya scene"));
    EXPECT_FALSE(session.scene.isBusyWithFile());
}
