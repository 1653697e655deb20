#include "workbench/mel/SceneFolder.h"

#include <gtest/gtest.h>

namespace {

/// A host with a window's rules: jobs run.
class ScriptJobTest : public testing::Test {
protected:
    ScriptJobTest() { host.session.batch = false; }

    /// What jobs print in the idle moments after the text.
    std::string idleOutput(const std::string& text)
    {
        EXPECT_TRUE(host.run(text)) << text << ": " << host.errors.back();
        host.printed.clear();
        host.session.idle.drain();
        return host.printed;
    }

    ScriptHost host;
};

using ScriptJobOfAScene = SceneFolder;

TEST_F(ScriptJobOfAScene, StaysWhenItsSceneIsOpenedAndEndsWithIt)
{
    session.batch = false;
    write("a.ma", "createNode script -n \"sceneConfigurationScriptNode\";\n"
                  "\tsetAttr \".b\" -type \"string\" \"scriptJob -kws -e Undo second\";\n\tsetAttr \".st\" 6;\n");
    run("scriptJob -kws -e Undo first");
    ASSERT_TRUE(file("-f -open", "a.ma"));
    EXPECT_EQ(eval("scriptJob -lj"), "2: \"-event\" \"Undo\" \"second\"");
    run("file -f -new");
    EXPECT_EQ(eval("size(`scriptJob -lj`)"), "0");
}

}  // namespace

TEST_F(ScriptJobTest, RunsOnceAtIdleHoweverOftenItsEventCame)
{
    EXPECT_EQ(host.eval("scriptJob -ro on -e timeChanged \"print once\""), "1");
    EXPECT_EQ(host.eval("scriptJob -timeChange \"print time\""), "2");
    host.run("currentTime 3; currentTime 4;");
    EXPECT_EQ(host.printed, "");
    host.session.idle.drain();
    EXPECT_EQ(host.printed, "oncetime");
    EXPECT_EQ(idleOutput("currentTime 5;"), "time");
    EXPECT_EQ(host.eval("scriptJob -ex 1"), "0");
    EXPECT_EQ(host.eval("scriptJob -e SelectionChanged \"print(`ls -sl`)\""), "3");
    EXPECT_EQ(idleOutput("select -cl; select persp; select top;"), "top\n");
}

TEST_F(ScriptJobTest, IsNotDoneTwiceWhenAJobBeforeItCallsForItAgain)
{
    host.run("scriptJob -e Undo \"currentTime 7\"; scriptJob -e timeChanged \"print(`currentTime -q`)\";");
    EXPECT_EQ(idleOutput("createNode transform; currentTime 3; undo;"), "7");
    EXPECT_EQ(idleOutput("currentTime 4;"), "4") << "it hears of the next change";
}

TEST_F(ScriptJobTest, HearsOfConditionsWhenTheyChange)
{
    host.run("scriptJob -cf playingBack \"print stopped\"; scriptJob -ct playingBack \"print started\";"
             "scriptJob -cc playingBack \"print change\"; scriptJob -e timeChanged \"print time\";");
    EXPECT_EQ(idleOutput(""), "");
    EXPECT_EQ(idleOutput("play"), "startedchange") << "false is not the start";
    EXPECT_EQ(idleOutput("play; currentTime 9"), "") << "no change, and no events while it plays";
    EXPECT_EQ(idleOutput("play -state off"), "stoppedchange");
    EXPECT_EQ(idleOutput("play -wait"), "stoppedstartedchange") << "both edges came in one text";
}

TEST_F(ScriptJobTest, FollowsAttributesNodesAndOptionVariables)
{
    host.run("createNode transform -n a; createNode transform -n b;"
             "scriptJob -ac \"a.t\" \"print \\\"t \\\"\"; scriptJob -ac a.tx \"print \\\"tx \\\"\";"
             "scriptJob -nnc a \"print \\\"name \\\"\"; scriptJob -nd a \"print \\\"deleted \\\"\";"
             "scriptJob -ovc watched \"print \\\"var \\\"\"; scriptJob -ac time1.outTime \"print \\\"now \\\"\";");
    const struct {
        const char* text;
        const char* printed;
    } cases[] = {
        {"setAttr a.tx 2; setAttr a.tx 3", "t tx "},
        {"setAttr a.ty 2", "t "},
        {"setAttr a.rx 2; setAttr b.tx 2", ""},
        {"undo; undo; undo", "t tx "},
        {"setAttr a.t 1 2 3", "t tx "},
        {"move 4 0 0 a", "t tx "},
        {"rename b c", ""},
        {"rename a b", "name "},
        {"setAttr b.tx 5", "t tx "},
        {"delete c", ""},
        {"delete b", "deleted "},
        {"currentTime 4", "now "},
        {"optionVar -iv other 1", ""},
        {"optionVar -iv watched 1", "var "},
        {"optionVar -rm watched", "var "},
    };
    for (const auto& c : cases)
        EXPECT_EQ(idleOutput(c.text), c.printed) << c.text;
    host.run("file -new -f;");
    EXPECT_EQ(host.eval("scriptJob -lj"), "5: \"-optionVarChanged\" \"watched\" \"print \\\"var \\\"\"");
}

TEST_F(ScriptJobTest, AnIdleJobRunsAtEveryIdleInTurnWithDeferredTexts)
{
    host.run("evalDeferred \"print 1\"; scriptJob -ie \"print 2\"; evalDeferred \"print 3\";");
    host.session.idle.runPass();
    host.session.idle.runPass();
    EXPECT_EQ(host.printed, "1232");
    host.run("scriptJob -k 1;");
    host.session.idle.drain();
    EXPECT_EQ(host.printed, "1232");
    EXPECT_TRUE(host.session.idle.isEmpty());
}

TEST_F(ScriptJobTest, MayEndItselfAndOthersAndFail)
{
    host.run("scriptJob -e Undo \"scriptJob -k 1; scriptJob -k 2; print first; scriptJob -kws -e Undo noSuch\";"
             "scriptJob -e Undo \"print second\"; scriptJob -e Undo \"noSuch; print no\";"
             "scriptJob -e Undo \"print last\";");
    host.run("createNode transform;");
    EXPECT_EQ(idleOutput("undo"), "firstlast");
    EXPECT_EQ(host.errors, std::vector<std::string>{"Cannot find procedure \"noSuch\"."});
    EXPECT_EQ(host.eval("scriptJob -ex 5"), "1");
    host.run("file -new -f;");
    EXPECT_EQ(host.eval("scriptJob -ex 5"), "0") << "ended with the scene";
    EXPECT_EQ(host.eval("scriptJob -ex 4"), "1");
}

TEST_F(ScriptJobTest, LivesAsLongAsItsFlagsSay)
{
    host.run("scriptJob -e Undo one; scriptJob -pro -ro on -e Undo \"say \\\"two\\\"\"; scriptJob -per -ie three;");
    EXPECT_EQ(host.eval("scriptJob -lj"), "1: \"-event\" \"Undo\" \"one\" "
                                          "2: \"-protected\" \"-runOnce\" \"-event\" \"Undo\" \"say \\\"two\\\"\" "
                                          "3: \"-permanent\" \"-idleEvent\" \"three\"");
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"scriptJob -k 99", "scriptJob: There is no job number 99."},
        {"scriptJob -k 2", "scriptJob: Job number 2 is protected."},
        {"scriptJob -f -k 3", "scriptJob: Job number 3 is permanent."},
        {"scriptJob -e nonsense x", "scriptJob: Unknown event: nonsense"},
        {"scriptJob -cf nonsense x", "scriptJob: Unknown condition: nonsense"},
        {"scriptJob -nd nonsense x", "No object matches name: nonsense"},
        {"scriptJob -per -kws -e Undo x", "scriptJob: A permanent job cannot end with the scene."},
        {"scriptJob -e Undo x -cf busy y", "scriptJob: A job has one trigger only."},
        {"scriptJob -ro on", "scriptJob: No event or condition was named."},
        {"scriptJob -uid button1 x", "scriptJob: -uiDeleted is not supported; a job cannot follow a part of a window."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(host.error(c.text), c.error) << c.text;
    EXPECT_EQ(host.eval("scriptJob -ka; scriptJob -ex 1"), "0");
    EXPECT_EQ(host.eval("scriptJob -ex 2"), "1");
    EXPECT_EQ(host.eval("scriptJob -ka -f; scriptJob -ex 2"), "0");
    EXPECT_EQ(host.eval("scriptJob -ex 3"), "1");
    EXPECT_EQ(host.eval("scriptJob -e Undo x"), "4") << "numbers are not used again";
}

TEST_F(ScriptJobTest, IsAStepOfItsOwnUnlessItJoinsTheOneBefore)
{
    host.run("scriptJob -ro on -e timeChanged \"createNode transform -n mine\";"
             "scriptJob -cu on -e timeChanged \"createNode transform -n ours\";");
    host.run("currentTime 5;");
    host.session.idle.drain();
    EXPECT_EQ(host.eval("undoInfo -q"), "2");
    host.run("undo");
    EXPECT_EQ(host.eval("size(`ls mine ours`)"), "0");
    EXPECT_EQ(host.eval("currentTime -q"), "5");
}

TEST_F(ScriptJobTest, NeverRunsInBatch)
{
    host.session.batch = true;
    EXPECT_EQ(host.eval("scriptJob -cc \"UndoAvailable\" \"print ran\""), "1");
    EXPECT_EQ(host.eval("scriptJob -ie \"print ran\""), "2");
    EXPECT_EQ(idleOutput("createNode transform;"), "");
}

TEST_F(ScriptJobTest, ConditionsOfScriptsFollowWhatTheyDependOn)
{
    host.run("$gCold = 1;");
    EXPECT_EQ(host.eval("condition -s \"$gCold\" -d timeChanged -d playingBack -i cold"), "cold");
    EXPECT_EQ(host.eval("isTrue cold"), "1") << "asked at once";
    host.run("scriptJob -cf cold \"print warm\"; $gCold = 0;");
    EXPECT_EQ(host.eval("isTrue cold"), "1") << "nothing it depends on has happened";
    EXPECT_EQ(idleOutput("currentTime 3; currentTime 4"), "warm");
    EXPECT_EQ(host.eval("condition -q -st cold"), "0");
    EXPECT_EQ(idleOutput("$gCold = 1; play"), "");
    EXPECT_EQ(host.eval("isTrue cold"), "1");
    EXPECT_EQ(idleOutput("condition -e -st off cold"), "warm");

    host.run("condition -s \"condition -del brief; 1\" -d timeChanged brief;");
    EXPECT_EQ(idleOutput("currentTime 9"), "");
    EXPECT_EQ(host.error("isTrue brief"), "isTrue: Unknown condition: brief") << "its own script removed it";

    EXPECT_EQ(host.error("condition cold"), "Object's name 'cold' is not unique.");
    EXPECT_EQ(host.error("condition -d nonsense x"), "condition: Unknown event or condition: nonsense");
    EXPECT_EQ(host.error("condition -e -st on playingBack"),
              "condition: 'playingBack' is the host's own and cannot be changed.");
    EXPECT_EQ(host.error("condition -del cold; isTrue cold"), "isTrue: Unknown condition: cold");
    EXPECT_EQ(idleOutput("play -st off"), "");
}
