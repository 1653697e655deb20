#include "workbench/mel/SceneFolder.h"

class Duplicate : public SceneFolder {};

TEST_F(Duplicate, CopiesNodesWithAllBelowThem)
{
    run("createNode transform -n lots; createNode transform -n ball -p lots; createNode locator -n ballShape -p ball;"
        "setAttr ball.tx 3; setAttr -l on ball.ty; createNode transform -n child -p ball; select persp");
    EXPECT_EQ(eval("duplicate ball"), "ball1");
    EXPECT_EQ(eval("listRelatives lots"), "ball ball1");
    EXPECT_EQ(eval("listRelatives ball1"), "ballShape1 child");
    EXPECT_EQ(eval("getAttr ball1.tx"), "3");
    EXPECT_EQ(eval("getAttr -lock ball1.ty"), "1");
    EXPECT_EQ(eval("ls -sl"), "ball1");
    run("setAttr ball1.tx 4");
    EXPECT_EQ(eval("getAttr ball.tx"), "3");
    run("undo; undo");
    EXPECT_EQ(eval("listRelatives lots"), "ball");
    EXPECT_EQ(eval("ls -sl"), "persp");
    run("redo");
    EXPECT_EQ(eval("getAttr ball1.tx"), "3");
    EXPECT_EQ(eval("duplicate -name lot ball ball1 child"), "<error>") << "child is ambiguous now";
    EXPECT_EQ(eval("duplicate -name lot -returnRootsOnly \"|lots|ball\" \"|lots|ball|child\" lots"), "lot")
        << "what lies below another of them goes with it";
}

TEST_F(Duplicate, MakesNodesOfTheScenesOwn)
{
    EXPECT_EQ(eval("duplicate persp"), "persp1");
    EXPECT_EQ(eval("getAttr perspShape1.coi"), eval("getAttr perspShape.coi"));
    EXPECT_TRUE(run("rename persp1 mine; delete mine"));
    write("set.ma", "createNode transform -n \"house\";\n");
    file("-reference -namespace \"set\"", "set.ma");
    EXPECT_EQ(eval("duplicate set:house"), "house");
    EXPECT_EQ(eval("ls -referencedNodes"), "set:house");
    EXPECT_EQ(error("duplicate time1"), "Cannot duplicate the node 'time1'.");
    EXPECT_EQ(error("select -cl; duplicate"), "No object was specified");
}

TEST_F(Duplicate, CopiesTheDeepestNesting)
{
    constexpr int kDepth = 100000;
    kernel::Scene& scene = session.scene;
    kernel::NodePtr last;
    for (int i = 0; i < kDepth; ++i) {
        const kernel::NodePtr next =
            scene.makeNode(*session.nodeTypes.find("transform"), i == 0 ? "chain" : "n" + std::to_string(i));
        scene.attach(next, last.get());
        last = next;
    }
    const std::size_t before = scene.nodes().size();
    ASSERT_TRUE(run("duplicate chain"));
    EXPECT_EQ(scene.nodes().size(), before + kDepth);
    run("undo");
    EXPECT_EQ(scene.nodes().size(), before);
    run("delete chain");
    EXPECT_EQ(scene.nodes().size(), before - kDepth);
}
