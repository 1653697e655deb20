#include "kernel/Edits.h"
#include "support/HostFixture.h"
#include "workbench/api/SampleTypes.h"

#include <maya/MDagModifier.h>
#include <maya/MFnEnumAttribute.h>
#include <maya/MFnPluginData.h>
#include <maya/MObjectHandle.h>

#include <locale>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;

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

TEST_F(ModuleTypesTest, InheritsTheHostsAttributes)
{
    const MFnDependencyNode shape(createShape());
    for (const char* name : {"localPositionX", "lsz", "template", "visibility", "amount", "sampleList"})
        EXPECT_TRUE(shape.hasAttribute(name)) << name;
    EXPECT_FALSE(MPlug(shape.object(), SampleNode::localScaleY).isNull());
    EXPECT_EQ(MFnDependencyNode::classification("sampleNode"), "");
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

MStatus richInitialize()
{
    MFnNumericAttribute number;
    const MObject colour = number.createColor("tint", "tn");
    number.setDefault(0.25f, 0.5f, 0.75f);
    const MObject pair = number.create("pair", "pr", MFnNumericData::k2Int, 4);
    MFnEnumAttribute choice;
    const MObject mode = choice.create("mode", "md", 1);
    choice.addField("Off", 0);
    choice.addField("On", 1);
    const bool added = MPxNode::addAttribute(colour) && MPxNode::addAttribute(pair) && MPxNode::addAttribute(mode)
                    && !MPxNode::addAttribute(mode) && MPxNode::attributeAffects(pair, colour);
    return added ? MStatus::kSuccess : MStatus::kFailure;
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

TEST_F(ModuleTypesTest, CompoundAndEnumAttributesWork)
{
    ASSERT_TRUE(
        pluginSet().registerNode("rich", MTypeId(0x7020), SampleNode::create, richInitialize, MPxNode::kLocatorNode));
    const MObject top = MFnDagNode().create("rich");
    const MObject shape = MFnDagNode(top).child(0);
    EXPECT_EQ(plugOf(shape, "tintG").asFloat(), 0.5f);
    EXPECT_EQ(plugOf(shape, "tnb").parent().partialName(false, false, false, false, false, true), "tint");
    EXPECT_EQ(plugOf(shape, "pair1").asInt(), 4);
    EXPECT_EQ(plugOf(shape, "mode").asShort(), 1);
    EXPECT_FALSE(plugOf(shape, "mode").setInt(2));
}

TEST_F(ModuleTypesTest, TypedAttributesNeedTheirDataType)
{
    MFnTypedAttribute typed;
    MStatus status;
    EXPECT_TRUE(typed.create("other", "ot", MTypeId(0x7fff), MObject::kNullObj, &status).isNull());
    EXPECT_FALSE(status);
    EXPECT_FALSE(typed.create("text", "tx", MFnData::kString, MObject::kNullObj, &status).isNull());
    EXPECT_TRUE(status);
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

TEST_F(ModuleTypesTest, DataIsCopiedByItsCreatorAndCopy)
{
    auto* given = new SampleData;
    given->numbers = {1, 2.5};
    const MObject shape = createShape();
    plugOf(shape, "sampleList").setMPxData(given);
    const auto copy = api::dataOf(plugOf(shape, "sampleList").asMObject())->copy();
    const MObject copied = api::toObject(copy);
    const auto* object = dynamic_cast<const SampleData*>(MFnPluginData(copied).constData());
    ASSERT_NE(object, nullptr);
    EXPECT_NE(object, given);
    EXPECT_THAT(object->numbers, ElementsAre(1, 2.5));
}

/// Groups digits and writes a decimal comma.
class Grouping : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST_F(ModuleTypesTest, DataIsWrittenInTheClassicLocale)
{
    auto* given = new SampleData;
    given->name_ = "n";
    given->numbers = {12345.5};
    const MObject shape = createShape();
    plugOf(shape, "sampleList").setMPxData(given);
    std::ostringstream out;
    out.imbue(std::locale(std::locale::classic(), new Grouping));
    ASSERT_TRUE(api::dataOf(plugOf(shape, "sampleList").asMObject())->writeText(out));
    EXPECT_EQ(out.str(), "\"n\" 1 12345.5");
    out << 1000;
    EXPECT_THAT(out.str(), HasSubstr("1.000"));  // the stream's own locale is back
}

}  // namespace
