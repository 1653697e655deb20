// A drawing that fades, keyed by a script as animators' scripts do it.

#include "support/BatchFixture.h"

namespace {

using AnimatedDrawing = BatchFixture;

TEST_F(AnimatedDrawing, KeepsItsKeyedOpacityInBothFormsAndPlaysIt)
{
    const QString plug = "string $d[] = `ls -type tqLumisketch`; string $plug = $d[0] + \".opacity\"; ";
    for (const char* const type : {"mayaAscii", "mayaBinary"}) {
        const QString name = QString("fade.%1").arg(type);
        const Outcome made = command("tqLumisketchNode -l -c persp -ln Ink -ls 0 -f; " + plug
                                     + "setKeyframe -t 1 -v 0 $plug; setKeyframe -t 11 -v 1 $plug; "
                                       "playbackOptions -min 1 -max 9; "
                                     + save(name, type));
        ASSERT_EQ(made.status, 0) << made.output.toStdString();
        const Outcome shown = run({"-file", path(name), "-command",
                                   plug
                                       + "currentTime 6; print (\"half \" + `getAttr $plug` + \"\\n\"); play -wait; "
                                         "print (`currentTime -q` + \" played \" + `getAttr $plug` + \"\\n\"); "
                                         "setAttr $plug 0.25; setKeyframe $plug; currentTime 1; currentTime 9; "
                                         "print (\"keyed \" + `getAttr $plug` + \"\\n\")"});
        EXPECT_EQ(shown.status, 0) << type;
        for (const char* const line : {"half 0.5", "9 played 0.8", "keyed 0.25"}) {
            EXPECT_TRUE(shown.output.contains(line)) << type << "\n" << shown.output.toStdString();
        }
    }
}

}  // namespace
