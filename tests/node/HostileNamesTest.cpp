// Scenes of which a hand or another program made more than the record can hold.

#include "support/NodeFixture.h"

#include <QFile>

namespace {

using HostileNamesTest = NodeFixture;

TEST_F(HostileNamesTest, AreCleanedWhenRead)
{
    const QString path = prefsDir() + "/hostile.ma";
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("//Maya ASCII 2019 scene\ncreateNode tqLumisketch;\nsetAttr \".ld\" -type \"tqLayerData\" 1 1 "
               "\"per\\tsp\" 1 \"per\\tsp\" 1 0 \"a\\\"b\\\\c\\nd\" 0 1 1 0;\n");
    file.close();
    const std::string open = "file -f -o \"" + path.toStdString() + "\"; ";
    ASSERT_TRUE(run(open));
    EXPECT_EQ(drawing().currentCamera(), "persp");
    EXPECT_EQ(drawing().layerName("persp", 0), "a'b/cd");
    const QString before = describeDrawing();
    EXPECT_TRUE(run("file -save; " + open));
    EXPECT_EQ(describeDrawing(), before);
}

}  // namespace
