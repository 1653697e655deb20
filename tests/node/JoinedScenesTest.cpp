// Drawings that come into a scene from other files, or are duplicated in it.

#include "support/NodeFixture.h"

#include "model/LayerListView.h"
#include "node/Callbacks.h"
#include "support/Drawings.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MFnPluginData.h>
#include <maya/MPlug.h>

#include <fstream>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct List : LayerListView {
    void clear() override { rows.clear(); }
    void addRow(const QString& camera, int, const QString& name, int, bool) override { rows << camera + ' ' + name; }
    void select(const QString&, int) override {}
    void refresh() override {}

    QStringList rows;
};

class JoinedScenes : public NodeFixture {
protected:
    JoinedScenes()
    {
        EXPECT_TRUE(callbacks::install([] {}));
        LayerManager::setLayerListView(&list);
    }
    ~JoinedScenes() override { callbacks::remove(); }

    std::string path(const char* name) const { return m_folder.filePath(name).toStdString(); }
    void addDrawing(const QString& layerName)
    {
        drawing().insertLayer("persp", -1, drawings::layer(layerName, {1, 5}));
    }
    bool save(const char* name) { return run("file -rename \"" + path(name) + "\"; file -save -type \"mayaAscii\""); }
    /// A file with a drawing of one layer; the scene is new after that.
    void writeDrawing(const char* name, const QString& layerName)
    {
        addDrawing(layerName);
        ASSERT_TRUE(save(name));
        ASSERT_TRUE(run("file -force -new"));
        list.rows.clear();
    }
    bool file(const std::string& flags, const char* name) { return run("file " + flags + " \"" + path(name) + "\""); }
    static std::string nameOf(const BaseNode* node)
    {
        return node ? MFnDependencyNode(node->thisMObject()).name().asChar() : "none";
    }
    static const MPxData* dataOf(const BaseNode& node)
    {
        const MObject value = MFnDependencyNode(node.thisMObject()).findPlug("layerData", false).asMObject();
        return MFnPluginData(value).data();
    }
    static QString shown(const BaseNode& node) { return describe(*node.layerManager()); }

    List list;

private:
    QTemporaryDir m_folder;
};

TEST_F(JoinedScenes, AReferencedDrawingIsShownAndFollowsTheTime)
{
    writeDrawing("ref.ma", "Theirs");
    ASSERT_TRUE(file("-reference -namespace \"ref\"", "ref.ma"));
    ASSERT_EQ(BaseNode::allNodes().size(), 1u);
    BaseNode& theirs = *BaseNode::allNodes().front();
    EXPECT_FALSE(theirs.isMaster());
    EXPECT_TRUE(MFnDependencyNode(theirs.thisMObject()).isFromReferencedFile());
    EXPECT_EQ(BaseNode::masterNode(), nullptr);
    EXPECT_THAT(list.rows, IsEmpty());
    for (const int time : {1, 5, 9}) {
        run("currentTime " + std::to_string(time));
        EXPECT_EQ(theirs.layerManager()->activeLayer("persp")->currentFrame()->frameNumber(), time < 5 ? 1 : 5);
        EXPECT_NE(theirs.compositeImage("persp"), nullptr);
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(JoinedScenes, AReferencedDrawingIsShownOnTheCameraReferencedWithIt)
{
    run("camera -n shot; rename shot1 shotCam");
    drawing().insertLayer("shotCam", -1, drawings::layer("Ink", {1}));
    ASSERT_TRUE(save("layout.ma"));
    ASSERT_TRUE(run("file -force -new; camera -n shot; rename shot1 shotCam"));
    ASSERT_TRUE(file("-reference -namespace \"set\"", "layout.ma"));
    BaseNode& theirs = *BaseNode::allNodes().front();
    goTo(1);
    const QImage* picture = theirs.compositeImage("set:shotCam");
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(pixels::hash(*picture), pixels::hash(*theirs.layerManager()->composite("shotCam")));
    EXPECT_EQ(theirs.compositeImage("other:shotCam"), nullptr);
    EXPECT_EQ(theirs.compositeImage("set:persp"), nullptr);
}

TEST_F(JoinedScenes, TheScenesOwnDrawingIsTheOneThatIsEditedAndSaved)
{
    writeDrawing("ref.ma", "Theirs");
    ASSERT_TRUE(file("-reference -namespace \"ref\"", "ref.ma"));
    const BaseNode* theirs = BaseNode::allNodes().front();
    const QString before = shown(*theirs);
    addDrawing("Mine");
    EXPECT_NE(BaseNode::masterNode(), theirs);
    EXPECT_THAT(list.rows, ElementsAre("persp Mine"));
    EXPECT_EQ(shown(*theirs), before);
    const QString mine = describeDrawing();

    ASSERT_TRUE(save("shot.ma"));
    ASSERT_TRUE(file("-force -open", "shot.ma"));
    EXPECT_THAT(errors(), IsEmpty());
    ASSERT_EQ(BaseNode::allNodes().size(), 2u);
    EXPECT_FALSE(MFnDependencyNode(BaseNode::masterNode()->thisMObject()).isFromReferencedFile());
    EXPECT_EQ(describeDrawing(), mine);
    EXPECT_EQ(shown(*BaseNode::allNodes().front()), before);
    EXPECT_THAT(list.rows, ElementsAre("persp Mine"));
}

TEST_F(JoinedScenes, FramesOfAnImportKeepTheirInstants)
{
    run("currentUnit -time pal");
    addDrawing("Theirs");
    drawing().addFrame("persp", timeOfFrame(26));  // one second after the first frame of pal
    ASSERT_TRUE(save("pal.ma"));
    ASSERT_TRUE(run("file -force -new; currentUnit -time ntsc"));
    ASSERT_TRUE(file("-import", "pal.ma"));
    const Layer& layer = *drawing().layer("persp", 0);
    EXPECT_EQ(layer.frameAt(2)->time(), MTime(26, MTime::kPALFrame));
    EXPECT_EQ(MTime::uiUnit(), MTime::kNTSCFrame);
}

TEST_F(JoinedScenes, ANodeWhoseDrawingCouldNotBeReadStandsInNobodysWay)
{
    std::ofstream(path("broken.ma")) << "//Maya ASCII 2019 scene\n"
                                        "createNode transform -n \"lumisketch\";\n"
                                        "createNode tqLumisketch -n \"lumisketchShape\" -p \"lumisketch\";\n"
                                        "\tsetAttr \".ld\" -type \"tqLayerData\" -1;\n";
    ASSERT_TRUE(file("-open", "broken.ma"));
    EXPECT_THAT(errors(), Contains(HasSubstr("Invalid version")));
    forgetLines();
    BaseNode& broken = *BaseNode::allNodes().front();
    EXPECT_EQ(broken.layerManager(), nullptr);
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("Failed to get layer data plug as object")));
    forgetLines();
    EXPECT_TRUE(run("currentTime 5; currentUnit -t pal; select lumisketch; duplicate; undo"));
    EXPECT_EQ(broken.compositeImage("persp"), nullptr);
    EXPECT_THAT(errors(), IsEmpty());
    addDrawing("Mine");
    EXPECT_NE(BaseNode::masterNode(), &broken);
    EXPECT_TRUE(save("mended.ma"));
}

TEST_F(JoinedScenes, ADuplicateSharesItsDrawingUntilItIsSaved)
{
    addDrawing("Mine");
    const std::string shape = nameOf(BaseNode::masterNode());
    ASSERT_TRUE(run("duplicate `listRelatives -parent " + shape + "`"));
    ASSERT_EQ(BaseNode::allNodes().size(), 2u);
    BaseNode& original = *BaseNode::allNodes()[0];
    BaseNode& copy = *BaseNode::allNodes()[1];
    EXPECT_EQ(nameOf(BaseNode::masterNode()), shape);
    EXPECT_EQ(copy.layerManager(), original.layerManager());
    EXPECT_NE(dataOf(copy), dataOf(original));
    drawing().addFrame("persp", timeOfFrame(9));
    EXPECT_EQ(copy.layerManager()->layer("persp", 0)->frameCount(), 3);

    ASSERT_TRUE(save("shot.ma"));
    ASSERT_TRUE(file("-force -open", "shot.ma"));
    ASSERT_EQ(BaseNode::allNodes().size(), 2u);
    EXPECT_NE(BaseNode::allNodes()[0]->layerManager(), BaseNode::allNodes()[1]->layerManager());
    EXPECT_EQ(shown(*BaseNode::allNodes()[0]), shown(*BaseNode::allNodes()[1]));
}

}  // namespace
