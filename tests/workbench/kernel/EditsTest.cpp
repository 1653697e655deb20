#include "kernel/Edits.h"

#include "kernel/SceneFile.h"
#include "kernel/Session.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace kernel;

namespace {

class EditsTest : public testing::Test {
protected:
    EditsTest()
    {
        group = add("transform", "group");
        ball = add("transform", "ball", group);
        shape = add("implicitSphere", "ballShape", ball);
        scene.setSelection({shape});
    }

    NodePtr add(const std::string& type, const std::string& name, const NodePtr& parent = nullptr)
    {
        const NodePtr node = scene.makeNode(*session.nodeTypes.find(type), name);
        scene.attach(node, parent.get());
        return node;
    }

    std::string described() const
    {
        std::ostringstream text;
        writeSceneText(session_(), text, "x.ma");
        for (const NodePtr& node : scene.selection())
            text << "selected " << scene.fullPath(*node) << '\n';
        text << scene.currentTime().ticks();
        return text.str();
    }

    /// Redone, undone and redone again the scene is each time what it was.
    void expectReversible(EditPtr edit)
    {
        const std::string before = described();
        edit->redo(scene);
        const std::string after = described();
        EXPECT_NE(before, after);
        edit->undo(scene);
        EXPECT_EQ(described(), before);
        edit->redo(scene);
        EXPECT_EQ(described(), after);
        edit->undo(scene);
        EXPECT_EQ(described(), before);
    }

    void expectRefused(EditPtr edit, const std::string& reason)
    {
        const std::string before = described();
        try {
            edit->redo(scene);
            ADD_FAILURE() << "not refused: " << reason;
        } catch (const CommandError& error) {
            EXPECT_EQ(error.what(), reason);
        }
        EXPECT_EQ(described(), before);
    }

    Session& session_() const { return const_cast<Session&>(session); }

    Session session;
    Scene& scene = session.scene;
    NodePtr group;
    NodePtr ball;
    NodePtr shape;
};

}  // namespace

TEST_F(EditsTest, EveryEditIsReversible)
{
    add("transform", "last");
    const auto fresh = [&](const char* name) { return scene.makeNode(*session.nodeTypes.find("transform"), name); };
    PlugFlags locked;
    locked.locked = true;
    expectReversible(createNodeEdit(fresh("ball"), nullptr));
    expectReversible(createNodeEdit(fresh("ball"), group));
    expectReversible(deleteNodesEdit({ball}));
    expectReversible(deleteNodesEdit({shape, group, ball}));
    expectReversible(renameNodeEdit(ball, "pea2"));
    expectReversible(parentNodeEdit(ball, nullptr));
    expectReversible(setValueEdit(ball, ball->attribute("tx"), 3.5));
    expectReversible(setFlagsEdit(ball, ball->attribute("tx"), locked));
    expectReversible(setSelectionEdit({ball, group}));
    expectReversible(setTimeEdit(Time{3, TimeUnit::Seconds}));
}

TEST_F(EditsTest, ANodeThatTookAnotherNameUnderItsParentGetsItsOwnBack)
{
    add("transform", "ball");
    expectReversible(parentNodeEdit(ball, nullptr));
    EXPECT_EQ(ball->name(), "ball");
}

TEST_F(EditsTest, ReadOnlyNodesStay)
{
    const NodePtr persp = scene.findOne("persp");
    expectRefused(deleteNodesEdit({ball, persp}), "Cannot delete the read only node 'persp'.");
    expectRefused(deleteNodesEdit({scene.findOne("time1")}), "Cannot delete the read only node 'time1'.");
    expectRefused(renameNodeEdit(persp, "mine"), "Cannot rename a read only node.");
    scene.setParent(persp, group.get());
    expectRefused(deleteNodesEdit({group}), "Cannot delete the read only node 'persp'.");
}

TEST_F(EditsTest, LockedAndOutOfRangeValuesAreRefused)
{
    PlugFlags locked;
    locked.locked = true;
    ball->setFlags(*ball->attribute("rotate"), locked);
    ball->setFlags(*ball->attribute("tx"), locked);
    expectRefused(setValueEdit(ball, ball->attribute("tx"), 1.0),
                  "The attribute 'ball.translateX' is locked or connected and cannot be modified.");
    expectRefused(setValueEdit(ball, ball->attribute("rx"), 1.0),
                  "The attribute 'ball.rotateX' is locked or connected and cannot be modified.");
    const NodePtr camera = scene.findOne("perspShape");
    expectRefused(setValueEdit(camera, camera->attribute("hfa"), 16.0),
                  "Cannot set the attribute 'perspShape.horizontalFilmAperture' past its maximum value of 15.");
    expectRefused(setValueEdit(camera, camera->attribute("fl"), 1.0),
                  "Cannot set the attribute 'perspShape.focalLength' below its minimum value of 2.5.");
}

TEST_F(EditsTest, UndoReachesAValueThatWasLockedLater)
{
    const EditPtr edit = setValueEdit(ball, ball->attribute("tx"), 1.0);
    edit->redo(scene);
    PlugFlags locked;
    locked.locked = true;
    ball->setFlags(*ball->attribute("tx"), locked);
    edit->undo(scene);
    EXPECT_EQ(ball->number("tx"), 0);
}

TEST_F(EditsTest, AListThatFailsTakesBackWhatItDid)
{
    auto list = std::make_unique<EditList>();
    list->add(setValueEdit(ball, ball->attribute("tx"), 1.0));
    list->add(deleteNodesEdit({ball}));
    list->add(renameNodeEdit(scene.findOne("persp"), "mine"));
    expectRefused(std::move(list), "Cannot rename a read only node.");

    auto good = std::make_unique<EditList>();
    good->add(setValueEdit(ball, ball->attribute("tx"), 1.0));
    good->add(setValueEdit(ball, ball->attribute("tx"), 2.0));
    expectReversible(std::move(good));
}
