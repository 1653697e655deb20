#include "kernel/Scene.h"

#include "kernel/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace kernel;
using testing::ElementsAre;

namespace {

class SceneTest : public testing::Test {
protected:
    NodePtr make(const std::string& type, const std::string& name, const NodePtr& parent = nullptr)
    {
        const NodePtr node = scene.makeNode(*session.nodeTypes.find(type), name);
        scene.attach(node, parent.get());
        return node;
    }
    NodePtr transform(const std::string& name, const NodePtr& parent = nullptr)
    {
        return make("transform", name, parent);
    }
    void set(const NodePtr& node, const std::string& attribute, PlugValue value)
    {
        node->setValue(*node->attribute(attribute), std::move(value));
    }
    std::vector<std::string> namesOf(const std::string& query)
    {
        std::vector<std::string> names;
        for (const NodePtr& node : scene.find(query))
            names.push_back(scene.partialPath(*node));
        return names;
    }
    std::string failureOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const CommandError& error) {
            return error.what();
        }
        return "no failure";
    }

    Session session;
    Scene& scene = session.scene;
};

}  // namespace

TEST_F(SceneTest, AClashGetsTheNextFreeNumber)
{
    transform("foo");
    EXPECT_EQ(transform("foo")->name(), "foo1");
    EXPECT_EQ(transform("foo1")->name(), "foo2");
    EXPECT_EQ(transform("foo#")->name(), "foo3");
    EXPECT_EQ(transform("foo4294967296")->name(), "foo4294967296");
    EXPECT_EQ(transform("foo4294967296")->name(), "foo4");
    EXPECT_EQ(make("script", "foo")->name(), "foo5");
    EXPECT_EQ(transform("time1")->name(), "time2") << "names outside the DAG count for the DAG too";

    const NodePtr group = transform("group");
    EXPECT_EQ(transform("foo", group)->name(), "foo") << "other parents have their own names";
    EXPECT_EQ(transform("")->name(), "transform1");
    EXPECT_EQ(make("camera", "", group)->name(), "cameraShape1");
}

TEST_F(SceneTest, NumbersThatBecomeFreeAreGivenAgain)
{
    const NodePtr group = transform("group");
    std::vector<NodePtr> foos;
    for (int i = 0; i < 6; ++i)
        foos.push_back(transform("foo#"));
    const auto expectNext = [this](const std::string& name, const char* why) {
        EXPECT_EQ(transform("foo#")->name(), name) << why;
    };
    scene.detach(foos[1]);
    expectNext("foo2", "deleted");
    scene.rename(*foos[2], "bar");
    expectNext("foo3", "renamed");
    scene.setParent(foos[3], group.get());
    EXPECT_EQ(transform("foo5")->name(), "foo7") << "counted on from its own number";
    EXPECT_EQ(transform("foo1")->name(), "foo4") << "moved to another parent";
    transform("foo");
    EXPECT_EQ(transform("foo")->name(), "foo8") << "all below are taken";
    EXPECT_EQ(scene.rename(*foos[4], "foo#"), "foo5") << "its own number is free for a node";
    scene.restoreNames({{foos[2], "foo9"}});
    expectNext("foo10", "taken by a name given back");
    scene.detach(group);
    EXPECT_EQ(scene.findOne("foo4")->parent(), nullptr) << "only one is left";
}

TEST_F(SceneTest, TheDeepestNestingIsPlacedFoundAndTakenOut)
{
    constexpr int kDepth = 100000;
    NodePtr top = transform("n");
    Node* last = top.get();
    for (int i = 1; i < kDepth; ++i) {
        const NodePtr next = scene.makeNode(last->type(), "n" + std::to_string(i));
        scene.attach(next, last);
        last = next.get();
    }
    EXPECT_EQ(scene.findOne("n99999").get(), last);
    int depth = 0;
    scene.walkDag([&depth](Node& node) { return depth += node.name()[0] == 'n'; });
    EXPECT_EQ(depth, kDepth);
    scene.detach(top);
    EXPECT_EQ(scene.findOrNull("n99999"), nullptr);
    scene.attach(top);
    EXPECT_EQ(scene.findOne("n99999").get(), last);
    scene.reset();
    top.reset();
    EXPECT_EQ(scene.findOrNull("n"), nullptr);
}

TEST_F(SceneTest, NamesAreMadeLegal)
{
    EXPECT_EQ(transform("a b\"c")->name(), "a_b_c");
    EXPECT_EQ(transform("2nd")->name(), "_2nd");
    EXPECT_EQ(transform("set::ball")->name(), "set:ball");
    EXPECT_TRUE(Scene::isLegalName("set:ball_2"));
    EXPECT_FALSE(Scene::isLegalName("set:2ball"));
    EXPECT_FALSE(Scene::isLegalName(""));
}

TEST_F(SceneTest, FindsNamesPathsAndPatterns)
{
    const NodePtr a = transform("a");
    const NodePtr b = transform("b");
    transform("arm", a);
    transform("arm", b);
    transform("ns:arm");
    EXPECT_THAT(namesOf("arm"), ElementsAre("a|arm", "b|arm"));
    EXPECT_THAT(namesOf("a|arm"), ElementsAre("a|arm"));
    EXPECT_THAT(namesOf("|arm"), ElementsAre());
    EXPECT_THAT(namesOf("|a|arm"), ElementsAre("a|arm"));
    EXPECT_THAT(namesOf("*|a?m"), ElementsAre("a|arm", "b|arm"));
    EXPECT_THAT(namesOf("*:arm"), ElementsAre("ns:arm"));
    EXPECT_THAT(namesOf("a*"), ElementsAre("a", "a|arm", "b|arm")) << "a pattern stays in its namespace";
    EXPECT_THAT(namesOf(":a"), ElementsAre("a"));
    EXPECT_THAT(namesOf(":time1"), ElementsAre("time1"));
    EXPECT_THAT(namesOf("|time1"), ElementsAre()) << "not in the DAG";
    EXPECT_THAT(namesOf(""), ElementsAre());
    EXPECT_THAT(namesOf("|"), ElementsAre());
}

TEST_F(SceneTest, ParentsMustBeAbleToHaveTheChild)
{
    const NodePtr a = transform("a");
    const NodePtr b = transform("b", a);
    const NodePtr shape = make("locator", "aShape", a);
    EXPECT_EQ(failureOf([&] { scene.setParent(a, b.get()); }), "Cannot parent an object to one of its own children.");
    EXPECT_NE(failureOf([&] { scene.setParent(b, shape.get()); }), "no failure");
    EXPECT_NE(failureOf([&] { make("script", "s", a); }), "no failure");
    const NodePtr loose = scene.makeNode(*session.nodeTypes.find("transform"), "loose");
    EXPECT_NE(failureOf([&] { scene.setParent(b, loose.get()); }), "no failure");
    EXPECT_THAT(a->children(), ElementsAre(b, shape)) << "a refusal changes nothing";
    scene.setParent(b, nullptr, 0);
    EXPECT_EQ(scene.roots().front(), b);
}

TEST_F(SceneTest, SelectionIsToldOnceWhenTheHostIsIdle)
{
    int told = 0;
    session.events.add("SelectionChanged", [&] { ++told; });
    session.commands.add("fails", [&](const ValueList&) -> Value {
        scene.setSelection({scene.findOne("persp"), scene.findOne("persp"), nullptr});
        throw CommandError("too late");
    });
    EXPECT_THROW(runCommand(session, "fails", {}), CommandError);
    scene.setSelection({scene.findOne("persp")});
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(session.events.condition("SomethingSelected")) << "who asks is told the truth at once";
    session.idle.drain();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(scene.selection().size(), 1u);
    scene.setSelection({});
    scene.setSelection({scene.findOne("persp")});
    session.idle.drain();
    EXPECT_EQ(told, 2) << "also when it ends as it was";
    scene.detach(scene.findOne("persp"));
    session.idle.drain();
    EXPECT_EQ(told, 3);
    EXPECT_FALSE(session.events.condition("SomethingSelected"));
}

TEST_F(SceneTest, ValuesFitTheirAttribute)
{
    const NodePtr camera = scene.findOne("perspShape");
    set(camera, "filmFit", 2.9);
    EXPECT_EQ(camera->number("ff"), 2);
    set(camera, "orthographic", 5.0);
    EXPECT_EQ(camera->number("o"), 1);
    set(camera, "displayGateMaskOpacity", 0.1);
    EXPECT_EQ(camera->number("dgo"), static_cast<double>(0.1f));
    set(camera, "focalLength", std::string("50"));
    set(camera, "focalLength", std::nan(""));
    EXPECT_EQ(camera->number("fl"), 35) << "neither text nor a hole is a number";
    set(camera, "overscan", 1e300);
    set(camera, "displayGateMaskOpacity", 1e300);
    EXPECT_TRUE(std::isfinite(camera->number("dgo")));
}

TEST_F(SceneTest, OnlyWhatIsSavedMakesTheSceneModified)
{
    int redraws = 0;
    scene.setTouchListener([&] { ++redraws; });
    set(scene.findOne("persp"), "translateX", 3.0);
    scene.setCurrentTime(Time{5, TimeUnit::Film});
    scene.setSelection({scene.findOne("persp")});
    EXPECT_FALSE(scene.isModified());
    EXPECT_EQ(redraws, 3);
    {
        const Scene::Activity reading(scene, FileActivity::Open);
        transform("read");
    }
    EXPECT_FALSE(scene.isModified());
    set(scene.findOne("read"), "translateX", 3.0);
    EXPECT_TRUE(scene.isModified());
    scene.reset();
    EXPECT_FALSE(scene.isModified());
    set(scene.findOne("defaultResolution"), "width", 640.0);
    EXPECT_TRUE(scene.isModified()) << "the file holds the default nodes' settings";
}

TEST_F(SceneTest, TransformsTurnInTheirOrderAboutTheirPivot)
{
    const auto at = [&](const NodePtr& node) { return transformPoint({1, 0, 0}, node->worldMatrix()); };
    const auto expectAt = [&](const NodePtr& node, const Vector3& p) {
        const Vector3 q = at(node);
        EXPECT_NEAR(q.x, p.x, 1e-12);
        EXPECT_NEAR(q.y, p.y, 1e-12);
        EXPECT_NEAR(q.z, p.z, 1e-12);
    };
    const NodePtr a = transform("a");
    set(a, "rotateZ", 90.0);
    expectAt(a, {0, 1, 0});
    set(a, "rotateX", 90.0);
    expectAt(a, {0, 1, 0});  // xyz: about x first, which leaves the point
    set(a, "rotateOrder", 5.0);
    expectAt(a, {0, 0, 1});  // zyx: about z first
    set(a, "scaleX", 2.0);
    set(a, "translateY", 10.0);
    expectAt(a, {0, 10, 2});

    const NodePtr b = transform("b", a);
    set(b, "rotatePivotX", 1.0);
    set(b, "rotateY", 45.0);
    expectAt(b, {0, 10, 2});  // the pivot itself does not move
    const Matrix4 m = b->worldMatrix();
    const Matrix4 same = m * inverse(m);
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(same.m[i / 4][i % 4], i % 5 == 0 ? 1 : 0, 1e-12);
}

TEST_F(SceneTest, AChangeOfUnitKeepsTheInstants)
{
    scene.setCurrentTime(Time{48, TimeUnit::Film});
    scene.setPlaybackRange({24, 96});
    scene.highlightSliderRange({24, 48});
    const NodePtr globals = scene.findOne("defaultRenderGlobals");
    set(globals, "endFrame", 96.0);
    double seen = 0;
    session.events.add("timeUnitChanged", [&] { seen = scene.playbackRange().last; });
    scene.setTimeUnit(TimeUnit::PalFrame);
    EXPECT_EQ(seen, 100);
    EXPECT_EQ(scene.currentTime().value, 50);
    EXPECT_EQ(scene.sliderRange().first, 25);
    EXPECT_EQ(globals->number("ef"), 100);
    EXPECT_EQ(scene.findOne("time1")->number("o"), 50);
    scene.setTimeUnit(TimeUnit::Invalid);
    EXPECT_EQ(scene.timeUnit(), TimeUnit::PalFrame);
}
