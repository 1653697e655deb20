// What the scene's scripts and files see of drawing nodes: which one is the primary, what of a node can be changed.

#include "support/Drawings.h"
#include "support/NodeFixture.h"

#include <maya/MFnDependencyNode.h>

namespace {

using testing::IsEmpty;
using testing::SizeIs;

class NodeRules : public NodeFixture {
protected:
    std::string path(const char* name) const { return prefsDir().toStdString() + "/" + name; }
    bool save(const char* name, const char* type = "mayaAscii")
    {
        return run("file -rename \"" + path(name) + "\"; file -type \"" + type + "\"; file -save");
    }
    bool file(const std::string& flags, const char* name) { return run("file " + flags + " \"" + path(name) + "\""); }
    bool make(const std::string& name)
    {
        return run("createNode transform -n " + name + "; createNode tqLumisketch -n " + name + "Shape -p " + name);
    }
    std::string value(const std::string& text) { return kernel::toText(evaluate(text)); }

    static std::string nameOf(const BaseNode& node) { return MFnDependencyNode(node.thisMObject()).name().asChar(); }
    /// The scene's drawing nodes in order of their names: one that says it is the primary has a star, the one that is
    /// used as such two, one without a drawing a dash.
    static std::string nodes()
    {
        std::map<std::string, std::string> marks;
        for (const BaseNode* node : BaseNode::allNodes()) {
            marks[nameOf(*node)] = !node->layerManagerIfAny()     ? "-"
                                 : node == BaseNode::masterNode() ? "**"
                                 : node->isMaster()               ? "*"
                                                                  : "";
        }
        std::string text;
        for (const auto& entry : marks) {
            text += (text.empty() ? "" : " ") + entry.first + entry.second;
        }
        return text;
    }
    /// The layers of the node that is used; what tells one file's drawing from another's.
    QString usedLayer() { return BaseNode::masterNode() ? drawing().layerName("persp", 0) : QString(); }

    void expectFixed(const std::string& shape)
    {
        SCOPED_TRACE(shape);
        for (const char* name :
             {"localPositionX", "localPositionY", "localPositionZ", "localScaleX", "localScaleY", "localScaleZ"}) {
            const std::string plug = shape + "." + name;
            const std::string before = value("getAttr " + plug);
            EXPECT_EQ(value("getAttr -lock " + plug), "1") << name;
            EXPECT_EQ(value("getAttr -keyable " + plug), "0") << name;
            EXPECT_EQ(value("getAttr -channelBox " + plug), "0") << name;
            EXPECT_FALSE(run("setAttr " + plug + " 5")) << name;
            EXPECT_EQ(value("getAttr " + plug), before) << name;
        }
        EXPECT_EQ(value("getAttr " + shape + ".template"), "1");
        EXPECT_EQ(value("getAttr -keyable " + shape + ".layerData"), "0");
        EXPECT_EQ(value("getAttr -channelBox " + shape + ".layerData"), "0");
        EXPECT_EQ(value("getAttr -keyable " + shape + ".opacity"), "1");
    }
};

TEST_F(NodeRules, TheFirstNodeThatIsMadeIsThePrimaryOneAndNoOtherTakesItsPlace)
{
    const struct {
        const char* text;
        const char* nodes;
    } steps[] = {
        {"", ""},
        {"createNode transform -n A; createNode tqLumisketch -n AShape -p A", "AShape**"},
        {"createNode transform -n B; createNode tqLumisketch -n BShape -p B", "AShape** BShape"},
        {"rename AShape CShape; rename CShape AShape", "AShape** BShape"},
        {"parent A B", "AShape** BShape"},
        {"undo", "AShape** BShape"},
        {"delete B", "AShape**"},
        {"undo", "AShape** BShape"},
        {"delete A", "BShape"},
        {"undo", "AShape** BShape"},
        {"redo", "BShape"},
        {"createNode transform -n C; createNode tqLumisketch -n CShape -p C", "BShape CShape**"},
        {"undo; undo; undo", "AShape** BShape"},
        {"duplicate -n D A", "AShape** BShape DShape*"},
        {"createNode transform -n last; parent A last", "AShape* BShape DShape**"},
        {"undo", "AShape** BShape DShape*"},
        {"delete A", "BShape DShape**"},
        {"undo; undo", "AShape** BShape"},
        {"file -force -new", ""},
    };
    for (const auto& step : steps) {
        run(step.text);
        EXPECT_EQ(nodes(), step.nodes) << step.text;
    }
}

TEST_F(NodeRules, WhatAFileBringsTakesItsDrawingAndItsPlaceFromTheFile)
{
    make("Theirs");
    drawing().insertLayer("persp", -1, drawings::layer("theirs", {1}));
    make("Second");
    ASSERT_TRUE(save("theirs.ma"));
    ASSERT_TRUE(save("theirs.mb", "mayaBinary"));
    run("file -force -new");
    make("Mine");
    drawing().insertLayer("persp", -1, drawings::layer("mine", {1}));
    ASSERT_TRUE(save("mine.ma"));

    for (const char* theirs : {"theirs.ma", "theirs.mb"}) {
        const struct {
            const char* flags;
            const char* intoNew;
            const char* newLayer;
            const char* intoMine;
            const char* usedLayer;
        } cases[] = {
            {"-force -open", "SecondShape TheirsShape**", "theirs", "SecondShape TheirsShape**", "theirs"},
            {"-import", "SecondShape TheirsShape**", "theirs", "MineShape** SecondShape TheirsShape*", "mine"},
            {"-reference -namespace ref", "ref:SecondShape ref:TheirsShape", "",
             "MineShape** ref:SecondShape ref:TheirsShape", "mine"},
        };
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(c.flags) + " " + theirs);
            run("file -force -new");
            ASSERT_TRUE(file(c.flags, theirs));
            EXPECT_EQ(nodes(), c.intoNew);
            EXPECT_EQ(usedLayer(), c.newLayer);
            ASSERT_TRUE(file("-force -open", "mine.ma"));
            ASSERT_TRUE(file(c.flags, theirs));
            EXPECT_EQ(nodes(), c.intoMine);
            EXPECT_EQ(usedLayer(), c.usedLayer);

            ASSERT_TRUE(save("joined.ma"));
            ASSERT_TRUE(file("-force -open", "joined.ma"));
            EXPECT_EQ(nodes(), c.intoMine) << "saved and opened";
            EXPECT_EQ(usedLayer(), c.usedLayer) << "saved and opened";
        }
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(NodeRules, AReferenceThatGoesLeavesThePrimaryNodeAndOneThatIsMadeThenIsPrimary)
{
    make("Theirs");
    ASSERT_TRUE(save("theirs.ma"));
    run("file -force -new");
    ASSERT_TRUE(file("-reference -namespace ref", "theirs.ma"));
    EXPECT_EQ(nodes(), "ref:TheirsShape");
    make("Mine");
    EXPECT_EQ(nodes(), "MineShape** ref:TheirsShape");
    ASSERT_TRUE(file("-removeReference", "theirs.ma"));
    EXPECT_EQ(nodes(), "MineShape**");
}

TEST_F(NodeRules, NothingOfANodeCanBeMovedHoweverItCameIntoTheScene)
{
    make("Ink");
    expectFixed("InkShape");
    ASSERT_TRUE(save("ink.ma"));
    ASSERT_TRUE(save("ink.mb", "mayaBinary"));
    for (const char* name : {"ink.ma", "ink.mb"}) {
        ASSERT_TRUE(file("-force -open", name));
        expectFixed("InkShape");
        run("file -force -new");
        ASSERT_TRUE(file("-import", name));
        expectFixed("InkShape");
        run("file -force -new");
        ASSERT_TRUE(file("-reference -namespace ref", name));
        expectFixed("ref:InkShape");
    }
    ASSERT_TRUE(file("-force -open", "ink.ma"));
    ASSERT_TRUE(run("duplicate -n Copy Ink"));
    expectFixed("CopyShape");
    ASSERT_TRUE(run("delete Ink"));
    ASSERT_TRUE(run("undo"));
    expectFixed("InkShape");
}

TEST_F(NodeRules, OpacityIsKeptWithinItsRangeAndStored)
{
    make("Ink");
    EXPECT_EQ(value("getAttr InkShape.opacity"), "1");
    for (const char* outside : {"2", "-0.1"}) {
        forgetLines();
        EXPECT_FALSE(run(std::string("setAttr InkShape.opacity ") + outside));
        EXPECT_THAT(errors(), SizeIs(1));
        EXPECT_EQ(value("getAttr InkShape.opacity"), "1");
    }
    for (const char* inside : {"0", "1", "0.25"}) {
        EXPECT_TRUE(run(std::string("setAttr InkShape.opacity ") + inside));
        EXPECT_EQ(value("getAttr InkShape.opacity"), inside);
    }
    EXPECT_FLOAT_EQ(node().opacity(), 0.25f);
    run("undo");
    EXPECT_EQ(value("getAttr InkShape.opacity"), "1");
    run("redo");
    ASSERT_TRUE(save("ink.ma"));
    ASSERT_TRUE(save("ink.mb", "mayaBinary"));
    for (const char* name : {"ink.ma", "ink.mb"}) {
        for (const char* flags : {"-force -open", "-import"}) {
            run("file -force -new");
            ASSERT_TRUE(file(flags, name));
            EXPECT_EQ(value("getAttr InkShape.opacity"), "0.25") << flags << name;
        }
    }
    ASSERT_TRUE(run("duplicate -n Copy Ink"));
    EXPECT_EQ(value("getAttr CopyShape.opacity"), "0.25");
}

TEST_F(NodeRules, ANodeKeepsItsDrawingWhenItIsRenamedOrMovedInTheHierarchy)
{
    make("Ink");
    drawing().insertLayer("persp", -1, drawings::layer("Rough", {1, 5}));
    const QString before = describeDrawing();
    ASSERT_TRUE(run("rename Ink Sketch; createNode transform -n set; parent Sketch set"));
    EXPECT_EQ(nodes(), "SketchShape**");
    EXPECT_EQ(describeDrawing(), before);
    ASSERT_TRUE(save("set.ma"));
    ASSERT_TRUE(file("-force -open", "set.ma"));
    EXPECT_EQ(nodes(), "SketchShape**");
    EXPECT_EQ(describeDrawing(), before);
    EXPECT_EQ(value("listRelatives -parent Sketch"), "set");
    ASSERT_TRUE(run("delete set"));
    EXPECT_EQ(nodes(), "");
    run("undo");
    EXPECT_EQ(describeDrawing(), before);
}

}  // namespace
