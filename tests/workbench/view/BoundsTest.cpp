#include "view/Bounds.h"

#include "kernel/Session.h"

#include <gtest/gtest.h>

namespace {

class Bounds : public testing::Test {
protected:
    /// A node of a type under another one (null: the world).
    kernel::NodePtr add(const char* type, const char* name, const kernel::NodePtr& parent = nullptr)
    {
        const kernel::NodePtr node = session.scene.makeNode(*session.nodeTypes.find(type), name);
        session.scene.attach(node, parent.get());
        return node;
    }
    static void set(const kernel::NodePtr& node, const char* attribute, double number)
    {
        node->setValue(*node->attribute(attribute), number);
    }

    kernel::Session session;
};

}  // namespace

TEST_F(Bounds, HoldsTheVisibleSurfacesBelowANode)
{
    const kernel::NodePtr group = add("transform", "group");
    const kernel::NodePtr left = add("transform", "left", group);
    add("implicitBox", "leftShape", left);
    const kernel::NodePtr right = add("transform", "right", group);
    add("implicitBox", "rightShape", right);
    set(left, "translateX", -5);
    set(right, "translateX", 3);
    set(right, "scaleY", 4);
    set(group, "translateZ", 10);

    std::optional<view::Box> box = view::boxAround({group}, {}, false);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->low, (kernel::Vector3{-5.5, -2, 9.5}));
    EXPECT_EQ(box->high, (kernel::Vector3{3.5, 2, 10.5}));
    set(right, "visibility", 0);
    box = view::boxAround({group}, kernel::inverse(left->worldMatrix()), false);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->low, (kernel::Vector3{-0.5, -0.5, -0.5})) << "in the space asked for";
    EXPECT_EQ(box->high, (kernel::Vector3{0.5, 0.5, 0.5}));
}
