#include "workbench/mel/SceneFolder.h"

#include <cmath>

using testing::HasSubstr;
using testing::Not;

/// A host with a ball, whose shape is named after it.
class Animation : public SceneFolder {
protected:
    Animation() { makeBall(); }

    void makeBall()
    {
        run("createNode transform -n ball; createNode implicitSphere -n ballShape -p ball; select ball");
    }

    /// Values of an attribute at times, joined by blanks.
    std::string values(const std::string& plug, const std::vector<std::string>& times)
    {
        std::string text;
        for (const std::string& time : times) {
            EXPECT_TRUE(run("currentTime " + time));
            text += (text.empty() ? "" : " ") + eval("getAttr " + plug);
        }
        return text;
    }
};

TEST_F(Animation, KeyedAttributesFollowTheirCurve)
{
    EXPECT_EQ(eval("setKeyframe -at tx -t 1 -t 5 -v 2 ball"), "2");
    EXPECT_EQ(eval("setKeyframe -t 11 -v 8 ball.tx"), "1");
    EXPECT_EQ(eval("nodeType ball_translateX"), "animCurveTL");
    EXPECT_EQ(values("ball.tx", {"-4", "1", "3", "5", "8", "11", "50"}), "2 2 2 2 5 8 8");
    EXPECT_EQ(eval("getAttr -t 8 ball.tx"), "5") << "another time than the current one";
    EXPECT_EQ(eval("getAttr -t 8 ball.t"), "5 0 0");
    EXPECT_EQ(eval("getAttr -t 8 ball_translateX.output"), "5");
    EXPECT_EQ(session.scene.findOne("ball")->localMatrix().m[3][0], 8);
}

TEST_F(Animation, CurvesSuitTheKindOfTheirAttribute)
{
    const struct {
        const char *plug, *type;
    } cases[] = {
        {"ball.tx", "animCurveTL"},         {"ball.ry", "animCurveTA"},
        {"ball.sz", "animCurveTU"},         {"ball.v", "animCurveTU"},
        {"perspShape.zoom", "animCurveTU"}, {"defaultRenderGlobals.startFrame", "animCurveTT"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(eval(std::string("setKeyframe ") + c.plug), "1") << c.plug;
        EXPECT_EQ(eval(std::string("listConnections -type ") + c.type + ' ' + c.plug).empty(), false) << c.plug;
    }
    EXPECT_EQ(error("setKeyframe time1.outTime"), "The attribute 'time1.outTime' cannot be animated.");
    EXPECT_EQ(error("setKeyframe perspShape.imageName"), "The attribute 'perspShape.imageName' cannot be animated.");
    EXPECT_EQ(error("setKeyframe ball_translateX.output"),
              "The attribute 'ball_translateX.output' cannot be animated.");
}

TEST_F(Animation, WhatHasNothingBetweenItsValuesIsKeyedInSteps)
{
    run("setKeyframe -t 1 -v 0 ball.v ball.ro; setKeyframe -t 11 -v 4 ball.v ball.ro");
    EXPECT_EQ(values("ball.v", {"1", "10", "11"}), "0 0 1");
    EXPECT_EQ(values("ball.ro", {"1", "10", "11"}), "0 0 4");
    run("setKeyframe -ott step -t 1 -v 0 ball.tx; setKeyframe -itt linear -t 11 -v 4 ball.tx");
    EXPECT_EQ(values("ball.tx", {"1", "10", "11"}), "0 0 4");
    run("keyTangent -ott linear -t \":5\" ball.ro ball.tx");
    EXPECT_EQ(values("ball.tx", {"6"}), "2");
    EXPECT_EQ(values("ball.ro", {"5", "6"}), "2 2") << "the next whole number";
}

TEST_F(Animation, KeysTheKeyableAttributesOfTheSelectionThatAreNotLocked)
{
    run("setAttr -l on ball.ty; setAttr -k off ball.tz; setAttr -l on ball.r");
    EXPECT_EQ(eval("setKeyframe"), "7") << "tx, three of scale, two of visibility, and the radius";
    EXPECT_EQ(eval("listConnections ball.ty ball.tz ball.r"), "");
    EXPECT_EQ(eval("setKeyframe -shape 0"), "5");
    EXPECT_EQ(error("setKeyframe ball.ty"),
              "The attribute 'ball.translateY' is locked or connected and cannot be modified.");
    EXPECT_EQ(error("setKeyframe -at rx ball"),
              "The attribute 'ball.rotateX' is locked or connected and cannot be modified.");
    EXPECT_EQ(error("setKeyframe -at nothing"), "No object matches name: ball.nothing");
    EXPECT_EQ(error("select -cl; setKeyframe"), "No object was specified");
    EXPECT_EQ(error("setKeyframe -ott auto ball.tx"), "The tangent type 'auto' is not supported; linear and step are.");
}

TEST_F(Animation, CompoundsAreKeyedByTheirChildren)
{
    EXPECT_EQ(eval("setKeyframe -at translate"), "3");
    EXPECT_EQ(eval("size(`listConnections ball.t`)"), "3");
    run("setKeyframe -t 9 -v 6 ball.ty");
    run("delete ball_translateY; setAttr ball.ty 7");
    saveAs("a.ma");
    EXPECT_THAT(content("a.ma"), HasSubstr("setAttr \".ty\" 7;"));
}

TEST_F(Animation, AKeyedAttributeCanBeSetUntilTimeChanges)
{
    run("setKeyframe -t 1 -v 0 ball.tx; setKeyframe -t 11 -v 10 ball.tx; currentTime 6");
    run("setAttr ball.tx 9");
    EXPECT_EQ(eval("getAttr ball.tx"), "9");
    run("undo");
    EXPECT_EQ(eval("getAttr ball.tx"), "5");
    run("redo; currentTime 7; currentTime 6");
    EXPECT_EQ(eval("getAttr ball.tx"), "5");
    run("setAttr ball.tx 9");
    run("currentUnit -t pal");
    run("undo");
    EXPECT_EQ(eval("getAttr ball.tx"), "9") << "the same instant in another unit and back";
    run("setKeyframe");
    EXPECT_EQ(values("ball.tx", {"1", "6", "11"}), "0 9 10") << "what is set can be keyed";
}

TEST_F(Animation, KeysOfALockedAttributeStayAsTheyAre)
{
    run("setKeyframe -t 1 -t 9 -v 2 ball.tx ball.ty; connectAttr ball_translateX.o ball.tz; setAttr -l on ball.tx");
    for (const char* text : {"cutKey ball.tx", "cutKey -t 1 -at tx ball", "cutKey ball_translateX",
                             "keyframe -e -vc 5 ball.tx", "keyTangent -ott step ball.tx",
                             "disconnectAttr ball_translateX.o ball.tx", "setKeyframe -t 1 -v 5 ball.tz"}) {
        errors.clear();
        EXPECT_EQ(error(text), "The attribute 'ball.translateX' is locked or connected and cannot be modified.")
            << text;
    }
    EXPECT_EQ(eval("keyframe -q -vc ball.tx"), "2 2");
    run("disconnectAttr ball_translateX.o ball.tz");
    EXPECT_EQ(eval("cutKey ball"), "2") << "of a whole node they are passed over";
    EXPECT_EQ(eval("keyframe -q -tc ball"), "1 9");
    EXPECT_EQ(eval("listConnections ball"), "ball_translateX");
}

TEST_F(Animation, AShapeSelectedWithItsTransformIsKeyedOnce)
{
    const std::string keys = eval("select ball; setKeyframe");
    EXPECT_EQ(eval("select ball ballShape; setKeyframe"), keys);
    EXPECT_EQ(eval("select ballShape ball; setKeyframe"), keys);
}

TEST_F(Animation, TheLastKeyTakesItsCurveAlongInOneStep)
{
    run("setKeyframe -t 1 -v 4 ball.tx; setKeyframe -t 5 -v 8 ball.tx; currentTime 3");
    EXPECT_EQ(eval("cutKey -clear -t \"1:4\" ball.tx"), "1");
    EXPECT_EQ(eval("objExists ball_translateX"), "1");
    EXPECT_EQ(eval("cutKey ball"), "1");
    EXPECT_EQ(eval("objExists ball_translateX"), "0");
    EXPECT_EQ(eval("getAttr ball.tx"), "8") << "the value it had";
    run("undo");
    EXPECT_EQ(eval("objExists ball_translateX"), "1");
    EXPECT_EQ(eval("keyframe -q -tc ball.tx"), "5");
    EXPECT_EQ(eval("cutKey -t 3 ball"), "0");
}

TEST_F(Animation, CurvesGoWithTheNodeTheyDrive)
{
    run("createNode transform -n other; setKeyframe -v 3 ball.tx ballShape.radius other.tx;"
        "setKeyframe -v 4 ball.ty; connectAttr ball_translateY.o other.ty");
    run("delete ball");
    EXPECT_EQ(eval("ls -type animCurve"), "other_translateX ball_translateY") << "one drives another node too";
    run("undo");
    EXPECT_EQ(eval("getAttr ball.t"), "3 4 0");
    EXPECT_EQ(eval("listConnections ball_translateY"), "ball other");
    run("delete ball_translateY");
    EXPECT_EQ(eval("getAttr other.ty"), "4");
    EXPECT_EQ(eval("listConnections other.ty"), "");
}

TEST_F(Animation, GoingToATimeIsUndoneAndRedoneExactly)
{
    run("setKeyframe -at tx -t 1 -v 0 ball; setKeyframe -at tx -t 11 -v 10 ball; currentTime 6; setAttr ball.tx 99");
    run("currentTime 8");
    EXPECT_EQ(eval("getAttr ball.tx"), "7");
    session.scene.setCurrentTime({3, session.scene.timeUnit()});  // as playback does
    run("undo");
    EXPECT_EQ(eval("currentTime -q; getAttr ball.tx"), "99");
    run("redo");
    EXPECT_EQ(eval("currentTime -q"), "8");
    EXPECT_EQ(eval("getAttr ball.tx"), "7");
}

TEST_F(Animation, KeysAreAskedForAndMoved)
{
    run("setKeyframe -t 1 -t 5 -t 9 -v 2 ball.tx; setKeyframe -t 5 -v 4 ball.ty");
    EXPECT_EQ(eval("keyframe -q -kc ball"), "4");
    EXPECT_EQ(eval("keyframe -q -tc -at tx"), "1 5 9") << "of the selection";
    EXPECT_EQ(eval("keyframe -q -tc -t \"2:\" ball.tx"), "5 9");
    EXPECT_EQ(eval("keyframe -q -tc -t \":2\" -t 9 ball.tx"), "1 9");
    EXPECT_EQ(eval("keyframe -q -vc -t 5 ball"), "2 4");
    EXPECT_EQ(eval("keyframe -e -r -tc 4 -vc 1 -t \"1:5\" ball.tx"), "2");
    EXPECT_EQ(eval("keyframe -q -tc ball.tx"), "5 9") << "a moved key takes the place of one that is there";
    EXPECT_EQ(eval("keyframe -q -vc ball.tx"), "3 3");
    EXPECT_EQ(error("keyframe -e -tc 4 ball.tx"), "Only one key of 'ball_translateX' can be moved to a time.");
    EXPECT_EQ(error("keyframe -e ball.tx"), "Nothing to change was specified");
    EXPECT_EQ(error("keyframe -q -tc -t \"a:b\" ball.tx"), "Invalid time: a");
    EXPECT_EQ(eval("keyTangent -q -itt -ott ball.ty"), "linear linear");
}

TEST_F(Animation, KeysAreFoundFromTheCurrentTime)
{
    run("setKeyframe -t 4 -t 8 ball.tx; setKeyframe -t 6 ballShape.radius; currentTime 6");
    EXPECT_EQ(eval("findKeyframe -which next"), "8");
    EXPECT_EQ(eval("findKeyframe -which previous"), "4");
    EXPECT_EQ(eval("findKeyframe -which first -at radius"), "6");
    EXPECT_EQ(eval("findKeyframe -which last"), "8");
    EXPECT_EQ(eval("findKeyframe -t 8 -which next"), "4") << "behind the last comes the first";
    EXPECT_EQ(eval("findKeyframe -t 4 -which previous"), "8");
    EXPECT_EQ(eval("findKeyframe persp"), "6") << "without keys it is where it is";
    EXPECT_EQ(eval("select -cl; findKeyframe"), "6");
    run("select ball");
    EXPECT_EQ(error("findKeyframe -which odd"), "Unknown key 'odd'; next, previous, first and last are known.");
}

TEST_F(Animation, ConnectionsAreMadeListedAndBroken)
{
    run("setKeyframe -v 5 ball.tx");
    EXPECT_EQ(eval("isConnected ball_translateX.output ball.tx"), "1");
    EXPECT_EQ(eval("isConnected ball_translateX.output ball.ty"), "0");
    EXPECT_EQ(eval("connectAttr ball_translateX.o ball.ty"), "Connected ball_translateX.output to ball.translateY.");
    EXPECT_EQ(eval("getAttr ball.ty"), "5");
    EXPECT_EQ(eval("listConnections -p 1 ball_translateX"), "ball.translateX ball.translateY");
    EXPECT_EQ(eval("listConnections -s 0 ball"), "");
    EXPECT_EQ(eval("listConnections -c 1 -p 1 ball.ty"), "ball.translateY ball_translateX.output");
    EXPECT_EQ(eval("disconnectAttr ball_translateX.o ball.ty"),
              "Disconnected ball_translateX.output from ball.translateY.");
    EXPECT_EQ(eval("getAttr ball.ty"), "5");
    run("setKeyframe -v 6 ball.tz; setAttr -l on ball.ry");
    EXPECT_EQ(error("connectAttr ball_translateX.o ball.tz"),
              "'ball.translateZ' already has an incoming connection from 'ball_translateZ.output'.");
    EXPECT_EQ(error("connectAttr -f ball_translateX.o ball.ry"),
              "The attribute 'ball.rotateY' is locked or connected and cannot be modified.");
    EXPECT_EQ(error("connectAttr ball.tx ball.ty"), "'ball.translateX' is not the output of an animation curve.");
    EXPECT_EQ(error("disconnectAttr ball_translateX.o ball.ty"),
              "There is no connection from 'ball_translateX.output' to 'ball.translateY' to disconnect.");
    EXPECT_EQ(eval("connectAttr -f ball_translateX.o ball.tz; getAttr ball.tz"), "5");
}

TEST_F(Animation, KeysStayAtTheirInstantWhenTheTimeUnitChanges)
{
    run("setKeyframe -t 0 -t 24 -v 1 ball.tx; setKeyframe -t 12 -v 48 defaultRenderGlobals.startFrame");
    run("currentUnit -t pal");
    EXPECT_EQ(eval("keyframe -q -tc ball.tx"), "0 25");
    EXPECT_EQ(eval("getAttr defaultRenderGlobals.startFrame"), "50");
    run("undo");
    EXPECT_EQ(eval("keyframe -q -tc ball.tx"), "0 24");
    EXPECT_EQ(eval("keyframe -q -vc defaultRenderGlobals"), "48");
}

TEST_F(Animation, UndoGivesATimeItsDefaultBackInWhateverUnit)
{
    for (const char* text : {"setKeyframe -t 4 -v 27 ", "setAttr defaultRenderGlobals.startFrame 27; setKeyframe "}) {
        run("currentUnit -t ntsc");
        const std::string first = eval("getAttr defaultRenderGlobals.startFrame");
        run(text + std::string("defaultRenderGlobals.startFrame"));
        run("undo");
        EXPECT_EQ(eval("getAttr defaultRenderGlobals.startFrame"), first) << text;
        run("undo");
        EXPECT_EQ(eval("getAttr defaultRenderGlobals.startFrame"), "1") << text;
    }
}

TEST_F(Animation, TellsOfAnimatedAttributesWhenTimeChangesButNotDuringPlayback)
{
    session.batch = false;
    run("setKeyframe -t 1 -v 0 ball.tx; setKeyframe -t 9 -v 8 ball.tx; playbackOptions -min 1 -max 9;"
        "scriptJob -attributeChange ball.tx \"print `getAttr ball.tx`\"");
    session.idle.drain();
    EXPECT_EQ(printed, "");
    run("currentTime 4");
    session.idle.drain();
    EXPECT_EQ(printed, "3");
    session.playback.start();
    for (int frame = 0; frame < 3; ++frame) {
        session.playback.advance();
        session.idle.drain();
    }
    EXPECT_EQ(printed, "3");
    session.playback.stop();
    session.idle.drain();
    EXPECT_EQ(printed, "36") << "once it has come to rest";
}

// --- scene files -----------------------------------------------------------------------------------------------------

class AnimationFiles : public Animation {
protected:
    /// Keys of all sorts, saved and opened again in a form.
    void saveAndOpen(const std::string& name, const std::string& type)
    {
        run("setKeyframe -t 1 -v 0.1 ball.tx; setKeyframe -ott step -t 7.25 -v -3 ball.tx; setKeyframe -t 24 -v 1e-7 "
            "ball.tx; setKeyframe -t 10 -v 1 ball.v; setKeyframe -t 5 -v 3 perspShape.zoom; setAttr ball.ty 4");
        ASSERT_TRUE(run("file -rename \"" + path(name) + "\"; file -save -type " + type)) << errors.back();
        ASSERT_TRUE(run("file -f -o \"" + path(name) + "\"")) << errors.back();
    }
};

TEST_F(AnimationFiles, BothFormsKeepEveryKey)
{
    for (const auto& form : {std::make_pair("a.ma", "mayaAscii"), std::make_pair("a.mb", "mayaBinary")}) {
        run("file -f -new");
        makeBall();
        saveAndOpen(form.first, form.second);
        EXPECT_EQ(eval("keyframe -q -tc ball.tx"), "1 7.25 24") << form.second;
        EXPECT_EQ(eval("keyframe -q -vc ball.tx"), "0.1 -3 1e-07") << form.second;
        EXPECT_EQ(eval("keyTangent -q -ott ball.tx"), "linear step linear") << form.second;
        EXPECT_EQ(eval("keyTangent -q -ott ball.v"), "step") << form.second;
        EXPECT_EQ(eval("getAttr perspShape.zoom"), "3") << form.second;
        EXPECT_EQ(eval("getAttr ball.ty"), "4") << form.second;
        EXPECT_EQ(values("ball.tx", {"8", "24"}), "-3 1e-07") << form.second;
        saveAs("again.ma");
        const std::string once = content("again.ma");
        run("file -f -o \"" + path("again.ma") + "\"");
        saveAs("again.ma");
        EXPECT_EQ(content("again.ma"), once) << form.second;
    }
}

TEST_F(AnimationFiles, AreWrittenInTheHostsForm)
{
    run("setKeyframe -ott step -t 1 -v 1 -t 24 ball.sx; setKeyframe -t 3 -v 2 ball.tx;"
        "int $i; for ($i = 0; $i < 40; $i++) setKeyframe -t (1000 + $i) -v ($i + 0.5) ball.sy");
    saveAs("a.ma");
    EXPECT_THAT(content("a.ma"), HasSubstr("createNode animCurveTU -n \"ball_scaleX\";\n"));
    EXPECT_THAT(content("a.ma"), HasSubstr("\tsetAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n"
                                           "\tsetAttr -s 2 \".ktv[0:1]\"  1 1 24 1;\n"
                                           "\tsetAttr -s 2 \".kot[0:1]\"  5 5;\n"));
    EXPECT_THAT(content("a.ma"), HasSubstr("\tsetAttr \".ktv[0]\"  3 2;\n"));
    EXPECT_THAT(content("a.ma"), HasSubstr("connectAttr \"ball_scaleX.o\" \"ball.sx\";\n"));
    std::istringstream lines(content("a.ma"));
    std::size_t longest = 0;
    for (std::string line; std::getline(lines, line);)
        longest = std::max(longest, line.size());
    EXPECT_LE(longest, 101u);
}

TEST_F(AnimationFiles, ReadWhatOtherHostsWrite)
{
    write("a.ma", "currentUnit -l centimeter -a degree -t pal;\n"
                  "createNode transform -n \"box\";\n\tsetAttr -l on \".tx\";\n"
                  "createNode animCurveTL -n \"box_translateX\";\n"
                  "\tsetAttr \".tan\" 18;\n\tsetAttr \".wgt\" no;\n"
                  "\tsetAttr -s 3 \".ktv[0:2]\"  0 1 25 2 50 3;\n"
                  "\tsetAttr -s 3 \".kit[1:2]\"  1 5;\n"
                  "\tsetAttr -s 3 \".kot[0:2]\"  18 5 18;\n"
                  "\tsetAttr -s 3 \".kix[1:2]\"  0.5 0.25;\n"
                  "\tsetAttr \".pst\" 3;\n"
                  "connectAttr \"box_translateX.o\" \"box.tx\";\n"
                  "connectAttr \"box_translateX.o\" \"absent.tx\";\n"
                  "connectAttr \"box.msg\" \"other.in\" -na;\n");
    ASSERT_TRUE(run("file -f -o \"" + path("a.ma") + "\"")) << errors.back();
    EXPECT_EQ(values("box.tx", {"0", "12.5", "40", "60"}), "1 1.5 2 3");
    EXPECT_EQ(eval("keyTangent -q -itt -ott box.tx"), "auto auto fixed step step auto");
    saveAs("b.ma");
    for (const char* kept : {"setAttr \".tan\" 18;", "\".ktv[0:2]\"  0 1 25 2 50 3;", "\".kit[0:2]\"  18 1 5;",
                             "\".kot[0:2]\"  18 5 18;", "\tsetAttr -s 3 \".kix[1:2]\"  0.5 0.25;\n",
                             "setAttr \".pst\" 3;", "connectAttr \"box_translateX.o\" \"box.tx\";",
                             "connectAttr \"box_translateX.o\" \"absent.tx\";", "connectAttr \"box.msg\" \"other.in\""})
        EXPECT_THAT(content("b.ma"), HasSubstr(kept));
    run("setAttr -l off box.tx; setKeyframe -t 3 -at ty box; keyframe -e -vc 5 -t 25 box_translateX");
    saveAs("c.ma");
    EXPECT_THAT(content("c.ma"), Not(HasSubstr("kix"))) << "slopes of other keys";
}

TEST_F(AnimationFiles, ABadStatementGivesOneErrorAndLosesNothing)
{
    const char* const statements[] = {"setAttr -s 2 \".ktv[0:1]\"  1 1 24;",
                                      "setAttr -s 2 \".ktv[0:1]\"  5 1 4 2;",
                                      "setAttr -s 2 \".ktv[0:1]\"  5 1 5 2;",
                                      "setAttr \".ktv[0]\"  nan 1;",
                                      "setAttr \".ktv[0]\"  1e308 1;",
                                      "setAttr \".ktv[7]\"  1 1;",
                                      "setAttr \".ktv[0:2000000000]\"  1 1;",
                                      "setAttr \".ktv[1:0]\"  1 1;",
                                      "setAttr \".ktv[-1]\"  1 1;",
                                      "setAttr \".ktv[99999999999]\"  1 1;",
                                      "setAttr \".ktv\"  1 1;",
                                      "setAttr \".ktv[0].kt\"  1;",
                                      "setAttr \".kot[0]\"  5;",
                                      "setAttr \".ktv[0]\";",
                                      "setAttr \".ktv[\"  1 1;",
                                      "setAttr \".ktv[0:x]\"  1 1;"};
    for (const std::string statement : statements) {
        write("bad.ma", "createNode transform -n \"box\";\ncreateNode animCurveTL -n \"box_translateX\";\n\t"
                            + statement
                            + "\ncreateNode transform -n \"after\";\nconnectAttr \"box_translateX.o\" \"box.tx\";\n");
        errors.clear();
        run("file -f -o \"" + path("bad.ma") + "\"");
        EXPECT_EQ(errors.size(), 1u) << statement;
        EXPECT_EQ(eval("objExists after"), "1") << statement;
        EXPECT_EQ(eval("setAttr box.tx 3; getAttr box.tx"), "3") << statement << " drives nothing";
        saveAs("kept.ma");
        EXPECT_THAT(content("kept.ma"), HasSubstr(statement));
    }
    write("twice.ma",
          "createNode transform -n \"box\";\n"
          "createNode animCurveTL -n \"one\";\n\tsetAttr \".ktv[0]\"  1 1;\n\tsetAttr \".kot[0]\"  linear;\n"
          "createNode animCurveTL -n \"two\";\n\tsetAttr \".ktv[0]\"  1 2;\n"
          "connectAttr \"one.o\" \"box.tx\";\nconnectAttr \"two.o\" \"box.tx\";\n"
          "connectAttr -f \"two.o\" \"box.ty\";\nconnectAttr \"one.o\" \"two.o\";\nconnectAttr;\n");
    errors.clear();
    run("file -f -o \"" + path("twice.ma") + "\"");
    EXPECT_EQ(errors.size(), 2u);
    EXPECT_EQ(eval("getAttr box.t"), "1 2 0");
}

TEST_F(AnimationFiles, LinksToWhatIsNotThereAreKeptAndDriveNothingElse)
{
    write("a.ma", "createNode transform -n \"box\";\ncreateNode animCurveTU -n \"c\";\n\tsetAttr \".ktv[0]\"  1 0.5;\n"
                  "connectAttr \"c.o\" \"box.w[0].v\";\nconnectAttr \"c.o\" \"box.r.tx\";\n"
                  "connectAttr \"c.o\" \"box\";\nconnectAttr \"c.o\" \"box.t.ty\";\n");
    ASSERT_TRUE(run("file -f -o \"" + path("a.ma") + "\"")) << errors.back();
    EXPECT_EQ(eval("listConnections -p 1 c"), "box.translateY");
    saveAs("b.ma");
    for (const char* kept : {"\"box.w[0].v\"", "\"box.r.tx\"", "\"c.o\" \"box\""})
        EXPECT_THAT(content("b.ma"), HasSubstr(kept));
}

TEST_F(AnimationFiles, ImportedCurvesDriveTheImportedNodesAtTheirInstants)
{
    run("setKeyframe -t 24 -v 1 ball.tx");
    write("in.ma", "currentUnit -t pal;\ncreateNode transform -n \"ball\";\ncreateNode animCurveTL -n "
                   "\"ball_translateX\";\n\tsetAttr -s 2 \".ktv[0:1]\"  0 5 25 7;\n"
                   "connectAttr \"ball_translateX.o\" \"ball.tx\";\n");
    ASSERT_TRUE(run("file -i -namespace \"n\" \"" + path("in.ma") + "\"")) << errors.back();
    EXPECT_EQ(eval("keyframe -q -tc \"n:ball.tx\""), "0 24");
    EXPECT_EQ(eval("getAttr ball.tx"), "1");
    ASSERT_TRUE(run("file -i -renamingPrefix \"p\" \"" + path("in.ma") + "\"")) << errors.back();
    EXPECT_EQ(eval("listConnections p_ball"), "p_ball_translateX");
    EXPECT_EQ(eval("listConnections ball"), "ball_translateX");
}

TEST_F(AnimationFiles, CurvesOfAReferencedFileWorkAndStayItsOwn)
{
    write("set.ma", "createNode transform -n \"door\";\ncreateNode animCurveTA -n \"door_rotateY\";\n"
                    "\tsetAttr -s 2 \".ktv[0:1]\"  1 0 11 90;\nconnectAttr \"door_rotateY.o\" \"door.ry\";\n");
    ASSERT_TRUE(file("-reference -namespace \"set\"", "set.ma"));
    EXPECT_EQ(values("\"set:door.ry\"", {"1", "6", "11"}), "0 45 90");
    const std::string refused = "The keys of 'set:door_rotateY' belong to a referenced file and cannot be changed.";
    EXPECT_EQ(error("setKeyframe \"set:door.ry\""), refused);
    EXPECT_EQ(error("cutKey \"set:door\""), refused);
    EXPECT_EQ(error("disconnectAttr \"set:door_rotateY.o\" \"set:door.ry\""),
              "What drives 'set:door.rotateY' belongs to a referenced file and cannot be changed.");
    run("currentTime 6; setKeyframe -t 1 -v 3 \"set:door.tx\"");
    saveAs("shot.ma");
    EXPECT_THAT(content("shot.ma"), Not(HasSubstr("rotateY")));
    EXPECT_THAT(content("shot.ma"), HasSubstr("connectAttr \"door_translateX.o\" \"set:door.tx\";\n"));
    ASSERT_TRUE(run("file -f -o \"" + path("shot.ma") + "\"")) << errors.back();
    EXPECT_EQ(eval("getAttr \"set:door.tx\""), "3");
    EXPECT_EQ(eval("getAttr \"set:door.ry\""), "45");
}

TEST_F(AnimationFiles, CurvesWaitForTheNodesOfADeferredReference)
{
    write("set.ma", "createNode transform -n \"door\";\n");
    ASSERT_TRUE(file("-reference -namespace \"set\"", "set.ma"));
    run("setKeyframe -t 1 -v 3 \"set:door.tx\"");
    saveAs("shot.ma");
    std::string text = content("shot.ma");
    for (std::size_t at = 0; (at = text.find("file -r ", at)) != std::string::npos; at += 8)
        text.insert(at + 8, "-dr 1 ");
    write("deferred.ma", text);
    ASSERT_TRUE(run("file -f -o \"" + path("deferred.ma") + "\"")) << errors.back();
    EXPECT_EQ(eval("objExists \"set:door\""), "0");
    saveAs("still.ma");
    EXPECT_THAT(content("still.ma"), HasSubstr("connectAttr \"door_translateX.o\" \"set:door.tx\";\n"));
    ASSERT_TRUE(run("file -loadReference \"setRN\"")) << errors.back();
    EXPECT_EQ(eval("getAttr \"set:door.tx\""), "3");
    saveAs("loaded.ma");
    EXPECT_THAT(content("loaded.ma"), HasSubstr("connectAttr \"door_translateX.o\" \"set:door.tx\";\n"));
    EXPECT_EQ(eval("cutKey \"set:door\""), "1");
    saveAs("cut.ma");
    EXPECT_THAT(content("cut.ma"), Not(HasSubstr("connectAttr")));
}
