#include "support/NodeFixture.h"

#include <maya/MFileIO.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BaseNodeTest : public NodeFixture {
protected:
    BaseNode* make()
    {
        run("createNode tqLumisketch");
        const std::vector<BaseNode*> nodes = BaseNode::allNodes();
        return nodes.empty() ? nullptr : nodes.back();
    }
    /// As a node comes from a scene file.
    BaseNode* makeWhile(kernel::FileActivity activity)
    {
        const kernel::Scene::Activity guard(session().scene, activity);
        return make();
    }
    std::string nameOf(const MObject& node) { return MFnDependencyNode(node).name().asChar(); }
    std::string nameOf(BaseNode* node) { return nameOf(node->thisMObject()); }
};

TEST_F(BaseNodeTest, OnlyTheFirstNodeOfASceneIsMaster)
{
    EXPECT_EQ(BaseNode::masterNode(), nullptr);
    BaseNode* first = make();
    BaseNode* second = make();
    ASSERT_NE(first, second);
    EXPECT_TRUE(first->isMaster());
    EXPECT_FALSE(second->isMaster());
    EXPECT_EQ(BaseNode::masterNode(), first);
    EXPECT_EQ(BaseNode::allNodes().size(), 2u);
}

TEST_F(BaseNodeTest, ANodeFromAFileMakesNoDrawingOfItsOwn)
{
    for (auto activity : {kernel::FileActivity::Open, kernel::FileActivity::Import, kernel::FileActivity::Reference}) {
        BaseNode* node = makeWhile(activity);
        ASSERT_NE(node, nullptr);
        EXPECT_FALSE(node->isMaster());
        EXPECT_EQ(node->compositeImage("persp"), nullptr);
        EXPECT_THAT(errors(), IsEmpty()) << "what every refresh asks is asked silently";
        EXPECT_EQ(node->layerManager(), nullptr);
        EXPECT_THAT(errors(), ElementsAre("[Lumisketch2] Failed to get layer data plug as object"));
        forgetLines();
    }
    EXPECT_TRUE(make()->isMaster());
}

TEST_F(BaseNodeTest, ADeletedNodeIsNotFoundUntilUndoBringsItBack)
{
    BaseNode* node = make();
    MObjectHandle handle(node->thisMObject());
    run("delete " + nameOf(node));
    EXPECT_EQ(BaseNode::masterNode(), nullptr);
    EXPECT_EQ(BaseNode::fromHandle(handle), nullptr);
    run("undo");
    EXPECT_EQ(BaseNode::masterNode(), node);
    EXPECT_EQ(BaseNode::fromHandle(handle), node);
}

TEST_F(BaseNodeTest, AmongSeveralMastersTheFirstInTheHierarchyCounts)
{
    BaseNode* first = make();
    BaseNode* second = make();
    second->layerManager()->setMaster(true);
    EXPECT_EQ(BaseNode::masterNode(), first);
    MObject transform = MFnDagNode(first->thisMObject()).parent(0);
    run("createNode transform -n below");  // the new root comes last
    ASSERT_TRUE(run("parent " + nameOf(transform) + " below"));
    EXPECT_EQ(BaseNode::masterNode(), second);
}

TEST_F(BaseNodeTest, NothingOfTheLocatorCanBeMovedAndTheNodeIsATemplate)
{
    const MFnDependencyNode node(make()->thisMObject());
    for (const char* name :
         {"localPositionX", "localPositionY", "localPositionZ", "localScaleX", "localScaleY", "localScaleZ"}) {
        MPlug plug = node.findPlug(name, false);
        ASSERT_FALSE(plug.isNull()) << name;
        EXPECT_TRUE(plug.isLocked()) << name;
        EXPECT_FALSE(plug.isKeyable()) << name;
        EXPECT_FALSE(plug.isChannelBoxFlagSet()) << name;
    }
    EXPECT_TRUE(node.findPlug("template", false).asBool());
}

TEST_F(BaseNodeTest, OpacityStaysWithinItsRange)
{
    BaseNode* node = make();
    EXPECT_FLOAT_EQ(node->opacity(), 1.0f);
    run("setAttr " + nameOf(node) + ".opacity 0.25");
    EXPECT_FLOAT_EQ(node->opacity(), 0.25f);
}

TEST_F(BaseNodeTest, SavedAndOpenedTheDrawingAndItsMasterMarkAreTheSame)
{
    make();
    drawing().insertLayer("persp", -1, "Ink");
    drawing().addFrame("persp", timeOfFrame(4));
    const QString before = describeDrawing();
    const MString file = toMString(prefsDir() + "/scene.ma");
    ASSERT_TRUE(MFileIO::saveAs(file, "mayaAscii", true));
    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_EQ(BaseNode::masterNode(), nullptr);
    ASSERT_TRUE(MFileIO::open(file, "mayaAscii", true));
    ASSERT_NE(BaseNode::masterNode(), nullptr);
    EXPECT_EQ(describeDrawing(), before);
    EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace
