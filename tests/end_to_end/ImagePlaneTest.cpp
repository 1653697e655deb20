// Image planes as a user makes them, with a real pointer and the file dialog.

#include "support/PointedMenu.h"
#include "support/QtPrint.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(ImagePlane, AFileOfASequenceChosenInTheDialogIsShownAsASequence)
{
    QTemporaryDir folder;
    QImage image(8, 8, QImage::Format_RGB32);
    for (const char* name : {"p.1.png", "p.2.png"}) {
        ASSERT_TRUE(image.save(folder.filePath(name)));
    }
    support::LiveWorkbench host(LUMISKETCH_BIN "/lumisketch-workbench", {"-noPlugin", "-prefs", folder.path()});
    ASSERT_TRUE(host.isRunning()) << host.output().toStdString();
    host.run(QString("file -rename \"%1\"").arg(folder.filePath("scene.ma")));  // the dialog opens beside it
    support::PointedMenu menu(host, "$gMainCreateMenu");
    ASSERT_TRUE(menu.choose({"Image Plane..."}));
    for (const char* key : {"p", "period", "1", "period", "p", "n", "g", "Return"}) {
        host.key(key);
    }
    EXPECT_EQ(host.run("imagePlane -q -fileName imagePlaneShape1"), folder.filePath("p.1.png"));
    EXPECT_EQ(host.run("getAttr imagePlaneShape1.useFrameExtension"), "1");
    EXPECT_EQ(host.output(), "");
}
