#include "kernel/Edits.h"
#include "support/HostFixture.h"
#include "workbench/api/SampleTypes.h"

#include <maya/MDagModifier.h>
#include <maya/MFnPluginData.h>
#include <maya/MObjectHandle.h>

#include <locale>

using testing::ElementsAre;

namespace {

class ModuleTypesTest : public SampleTypes {};

TEST_F(ModuleTypesTest, TheObjectMeetsItsNodeInPostConstructor)
{
    const MObject shape = createShape("thing");
    SampleNode* object = sampleOf(shape);
    ASSERT_NE(object, nullptr);
    EXPECT_FALSE(object->hadNodeInConstructor);
    EXPECT_NE(object->nameAtPostConstructor, "");
    EXPECT_EQ(object->thisMObject(), shape);
    EXPECT_EQ(object->name(), "thingShape");
    EXPECT_EQ(object->typeName(), "sampleNode");
    EXPECT_EQ(object->typeId(), MTypeId(SampleNode::kId));
    // Nodes of the host's own have none.
    EXPECT_EQ(MFnDependencyNode(MFnDagNode(shape).parent(0)).userNode(), nullptr);
}

TEST_F(ModuleTypesTest, TheObjectLivesAsLongAsAnyoneHoldsTheNode)
{
    const MObject shape = createShape();
    auto held = kernel::deleteNodesEdit({api::nodeOf(MFnDagNode(shape).parent(0))});
    held->redo(session.scene);
    EXPECT_EQ(SampleNode::s_living, 1);
    held.reset();
    EXPECT_EQ(SampleNode::s_living, 0);
    createShape();
    session.scene.reset();
    EXPECT_EQ(SampleNode::s_living, 0);
}

MStatus failingInitialize()
{
    return MStatus::kFailure;
}

MStatus clashingInitialize()
{
    MFnNumericAttribute number;
    return MPxNode::addAttribute(number.create("elsewhere", "v", MFnNumericData::kInt));
}

TEST_F(ModuleTypesTest, RefusesTakenNamesIdsAndFailedInitialisation)
{
    MFnPlugin plugin = pluginSet();
    const auto registered = [&](const char* name, unsigned id, MInitializeFunction initialize = nullptr) {
        return bool(plugin.registerNode(name, MTypeId(id), SampleNode::create, initialize, MPxNode::kLocatorNode));
    };
    EXPECT_FALSE(registered("sampleNode", 0x7010));
    EXPECT_FALSE(registered("another", SampleNode::kId));
    EXPECT_FALSE(registered("camera", 0x7010));
    EXPECT_FALSE(registered("another", 0x7010, failingInitialize));
    EXPECT_FALSE(registered("another", 0x7010, clashingInitialize));  // "v" is visibility's short name
    EXPECT_FALSE(MFnPlugin::isNodeRegistered("another"));
    EXPECT_FALSE(plugin.registerNode("skin", MTypeId(0x7011), SampleNode::create, nullptr, MPxNode::kSkinCluster));
    EXPECT_FALSE(plugin.registerData("sampleData", MTypeId(0x7012), SampleData::create));
    EXPECT_FALSE(plugin.registerData("moreData", MTypeId(SampleData::kId), SampleData::create));
    EXPECT_FALSE(MPxNode::addAttribute(SampleNode::s_amount));  // not while a type is being registered
    EXPECT_THAT(module->nodeTypes, ElementsAre("sampleNode"));
}

TEST_F(ModuleTypesTest, NothingOfAModuleLivesOnWithoutItsTypes)
{
    const MObject shape = createShape();
    plugOf(shape, "sampleList").setMPxData(new SampleData);
    const MObject data = plugOf(shape, "sampleList").asMObject();
    const MObject deleted = createShape("deleted");
    const auto undoStep = kernel::deleteNodesEdit({api::nodeOf(deleted)});
    undoStep->redo(session.scene);
    MDagModifier queued;
    queued.createNode("sampleNode");
    EXPECT_EQ(SampleNode::s_living, 3);

    MFnPlugin plugin = pluginSet();
    ASSERT_TRUE(plugin.deregisterNode(MTypeId(SampleNode::kId)));
    EXPECT_EQ(SampleNode::s_living, 0);
    EXPECT_EQ(MFnDependencyNode(shape).userNode(), nullptr);
    EXPECT_EQ(MFnDependencyNode(shape).typeName(), "sampleNode");  // what it was read or made as
    EXPECT_TRUE(MObjectHandle(shape).isValid());

    ASSERT_TRUE(plugin.deregisterData(MTypeId(SampleData::kId)));
    EXPECT_EQ(SampleData::s_living, 0);
    MStatus status;
    EXPECT_EQ(MFnPluginData(data).constData(&status), nullptr);  // the handle is all that is left
    EXPECT_FALSE(status);
    EXPECT_FALSE(plugin.deregisterNode(MTypeId(SampleNode::kId)));
    EXPECT_FALSE(plugin.deregisterData(MTypeId(SampleData::kId)));
    EXPECT_TRUE(module->nodeTypes.empty());
}

}  // namespace
