// The program without a window or a display, as scripts and render machines use it.

#include "support/BatchFixture.h"
#include "support/SceneText.h"

namespace {

using Batch = BatchFixture;

TEST_F(Batch, CreatesNodeLayerAndFrameWithoutADisplay)
{
    const Outcome result =
        command("tqLumisketchNode -l -c persp -ln Ink -ls 0 -f; print (`tqLumisketchNode -ex` + \" \" + "
                "`tqLumisketchNode -q -c` + \"\\n\"); "
                + save("a.ma"));
    EXPECT_EQ(result.status, 0) << result.output.toStdString();
    EXPECT_TRUE(result.output.contains("1 persp")) << result.output.toStdString();
    const QByteArray scene = read("a.ma");
    EXPECT_TRUE(scene.contains("\"Ink\" 1 1 1 0")) << scene.right(2000).toStdString();
    EXPECT_EQ(support::framePictures(scene).size(), 1);
}

TEST_F(Batch, ASceneWithDrawingsIsTheSameAfterReopeningAndASecondSaveIsByteIdentical)
{
    ASSERT_EQ(command("tqLumisketchNode -l -c persp -ln \"Ünder Zeichnung\" -ls 1 -f; " + save("a.ma")).status, 0);
    const QByteArray first = read("a.ma");
    ASSERT_FALSE(first.isEmpty());
    const Outcome again = run({"-file", path("a.ma"), "-command", "file -save"});
    EXPECT_EQ(again.status, 0) << again.output.toStdString();
    EXPECT_EQ(read("a.ma"), first);
}

TEST_F(Batch, FailuresGiveAMessageAndExitStatusOne)
{
    write("other.ma", "%PDF-1.4 not a scene");
    write("script.mel", "print \"before\\n\";\nnoSuchCommand;\nprint \"after\\n\";\n");
    const struct {
        QStringList arguments;
        const char* message;
    } cases[] = {
        {{"-command", "noSuchCommand"}, "Cannot find procedure \"noSuchCommand\""},
        {{"-script", path("script.mel")}, "line 2"},
        {{"-script", path("missing.mel")}, "missing.mel"},
        {{"-file", path("missing.ma")}, "missing.ma"},
        {{"-file", path("other.ma")}, "other.ma"},
        {{"-command", "tqLumisketchNode -e"}, "[Lumisketch2] Invalid edit parameter"},
        {{"-noPlugin", "-command", "loadPlugin \"" + path("other.ma") + "\""}, "other.ma"},
        {{"-command", "file -rename \"/nowhere/at/all.ma\"; file -save -type \"mayaAscii\""}, "/nowhere/at/all.ma"},
    };
    for (const auto& c : cases) {
        const Outcome result = run(c.arguments);
        EXPECT_EQ(result.status, 1) << c.arguments.join(' ').toStdString() << "\n" << result.output.toStdString();
        EXPECT_TRUE(result.output.contains(c.message)) << result.output.toStdString();
    }
    EXPECT_FALSE(run({"-script", path("script.mel")}).output.contains("after"));
}

TEST_F(Batch, ADamagedSceneKeepsWhatCouldBeRead)
{
    ASSERT_EQ(command("tqLumisketchNode -l -c persp -ln Ink -ls 0 -f; createNode transform -n keepMe; " + save("a.ma"))
                  .status,
              0);
    const QByteArray whole = read("a.ma");

    QByteArray foreign = whole;
    foreign.replace("createNode transform -n \"keepMe\";",
                    "createNode mysteryNode -n \"mystery\";\n\tsetAttr \".q\" 5;\ncreateNode transform -n \"keepMe\";");
    foreign.replace("currentUnit -l", "currentUnit -zz 3 -l");
    write("foreign.ma", foreign);
    const Outcome result =
        run({"-file", path("foreign.ma"), "-command",
             "print (`objExists keepMe` + \"/\" + `objExists mystery` + \"/\" + `tqLumisketchNode -ex`); file -save"});
    EXPECT_TRUE(result.output.contains("1/1/1")) << result.output.toStdString();
    EXPECT_TRUE(result.output.contains("mysteryNode")) << result.output.toStdString();
    EXPECT_TRUE(result.output.contains("-zz") || result.output.contains("'zz'")) << result.output.toStdString();
    EXPECT_TRUE(result.output.contains("foreign.ma")) << result.output.toStdString();
    EXPECT_TRUE(read("foreign.ma").contains("createNode mysteryNode -n \"mystery\""));
    EXPECT_TRUE(read("foreign.ma").contains("setAttr \".q\" 5"));

    // Cut anywhere: never a crash, and always a word about it.
    for (int percent = 5; percent < 100; percent += 19) {
        write("cut.ma", whole.left(whole.size() * percent / 100));
        const Outcome cut = run({"-file", path("cut.ma"), "-command", "print \"alive\""});
        EXPECT_TRUE(cut.output.contains("alive")) << percent << "%: " << cut.output.toStdString();
    }
}

TEST_F(Batch, TheModuleLoadsAndUnloadsAgainAndAgain)
{
    const Outcome result =
        run({"-noPlugin", "-command",
             "for ($i = 0; $i < 10; $i++) { loadPlugin \"lumisketch2\"; tqLumisketchNode -l -c persp -ls 0 -f; "
             "file -f -new; flushUndo; unloadPlugin \"lumisketch2\"; } print \"ten times\";"});
    EXPECT_EQ(result.status, 0) << result.output.toStdString();
    EXPECT_TRUE(result.output.contains("ten times")) << result.output.toStdString();
}

}  // namespace
