#include "support/NodeFixture.h"

#include "model/LayerListView.h"
#include "node/Callbacks.h"

#include <maya/MFileIO.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>

namespace {

using testing::ElementsAre;

struct Marks : TimelineMarks {
    bool update() override
    {
        ++updates;
        return changed;
    }
    void refresh() override { ++refreshes; }

    bool changed = false;
    int updates = 0;
    int refreshes = 0;
};

struct List : LayerListView {
    void clear() override { rows.clear(); }
    void addRow(const QString& camera, int, const QString& name, int, bool) override { rows << camera + ' ' + name; }
    void select(const QString&, int) override {}
    void refresh() override { ++refreshes; }

    QStringList rows;
    int refreshes = 0;
};

class CallbacksTest : public NodeFixture {
protected:
    CallbacksTest()
    {
        EXPECT_TRUE(callbacks::install([] {}));
        TimelineMarks::install(&marks);
        LayerManager::setLayerListView(&list);
    }
    /// From here on only what follows counts.
    void startCounting()
    {
        host().drainIdle();
        list.rows.clear();
        marks.updates = marks.refreshes = list.refreshes = 0;
    }
    ~CallbacksTest() override { callbacks::remove(); }

    void shareDrawingWithASecondNode()
    {
        const auto dataOf = [](BaseNode& holder) {
            return MFnDependencyNode(holder.thisMObject()).findPlug("layerData", false);
        };
        BaseNode& first = node();
        ASSERT_TRUE(run("createNode tqLumisketch"));
        for (BaseNode* other : BaseNode::allNodes()) {
            if (other != &first) {
                ASSERT_TRUE(dataOf(*other).setMObject(dataOf(first).asMObject()));
                ASSERT_EQ(other->layerManager(), first.layerManager());
            }
        }
    }

    Marks marks;
    List list;
};

TEST_F(CallbacksTest, AChangeOfTimeShowsEveryNodesFrames)
{
    drawing().insertLayer("persp", -1, "Ink");
    drawing().addFrame("persp", timeOfFrame(1));
    drawing().addFrame("persp", timeOfFrame(10));
    startCounting();
    run("currentTime 10");
    EXPECT_EQ(drawing().activeLayer("persp")->currentFrameIndex(), 1);
    EXPECT_EQ(marks.updates, 1);
    EXPECT_EQ(marks.refreshes, 0);

    // Marks that moved with the time are shown anew; the layer under edit keeps its frame.
    marks.changed = true;
    run("currentTime 5");
    EXPECT_EQ(marks.refreshes, 1);
    EXPECT_EQ(drawing().activeLayer("persp")->currentFrameIndex(), 1);
}

TEST_F(CallbacksTest, UndoAndRedoRefreshMarksAndPanelWithOrWithoutADrawing)
{
    run("setAttr perspShape.overscan 1.2");
    startCounting();
    run("undo");
    run("redo");
    EXPECT_EQ(marks.refreshes, 2);
    EXPECT_EQ(list.refreshes, 2);

    drawing().insertLayer("persp", -1, "Ink");
    run("setAttr perspShape.overscan 1.4");
    startCounting();
    run("undo");
    EXPECT_EQ(marks.refreshes, 1);
    EXPECT_EQ(list.rows, QStringList{"persp Ink"});
}

TEST_F(CallbacksTest, AChangeOfSelectionOrTimeUnitRefreshesTheMarks)
{
    startCounting();
    run("select -r persp");
    host().drainIdle();
    EXPECT_EQ(marks.refreshes, 1);
    EXPECT_EQ(list.refreshes, 1) << "without a drawing the list is to show that there is none";
    run("currentUnit -t pal");
    EXPECT_EQ(marks.refreshes, 2);
}

TEST_F(CallbacksTest, AUnitInWhichFramesShareANumberIsWarnedOfOnceAndUndoGivesTheNumbersBack)
{
    const auto addLayer = [this](const char* name, const QList<int>& numbers) {
        drawing().setActiveLayer("persp", drawing().insertLayer("persp", -1, name), true);
        for (const int number : numbers) {
            drawing().addFrame("persp", timeOfFrame(number));
        }
    };
    addLayer("Sparse", {8, 16});
    addLayer("Ink", {8, 9, 10, 11});
    addLayer("Rough", {8, 9});
    const QString before = describeDrawing();
    shareDrawingWithASecondNode();
    forgetLines();
    run("currentUnit -t game");
    EXPECT_THAT(warnings(), ElementsAre("[Lumisketch2] In this time unit some frames are hidden behind an earlier one "
                                        "of the same number: Ink (2), Rough (1)"));
    forgetLines();
    run("undo");
    EXPECT_EQ(describeDrawing(), before);
    run("currentUnit -t ntscf");
    EXPECT_THAT(warnings(), ElementsAre());
}

TEST_F(CallbacksTest, AnOpenedSceneIsPublishedAtItsTime)
{
    drawing().insertLayer("persp", -1, "Ink");
    drawing().addFrame("persp", timeOfFrame(1));
    drawing().addFrame("persp", timeOfFrame(10));
    run("currentTime 10");
    const MString file = toMString(prefsDir() + "/scene.ma");
    ASSERT_TRUE(MFileIO::saveAs(file, "mayaAscii", true));
    run("file -new -force");
    startCounting();
    ASSERT_TRUE(MFileIO::open(file, "mayaAscii", true));
    host().drainIdle();
    EXPECT_EQ(list.rows, QStringList{"persp Ink"});
    EXPECT_GE(marks.refreshes, 1);
    EXPECT_EQ(drawing().activeLayer("persp")->currentFrameIndex(), frameNumberOf(MAnimControl::currentTime()) >= 10);
}

}  // namespace
