#include "api/DrawList.h"
#include "api/Handles.h"
#include "api/Registration.h"
#include "support/HostFixture.h"

#include <maya/MDrawRegistry.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MViewport2Renderer.h>

using testing::ElementsAre;

namespace {

const char kClassification[] = "drawdb/geometry/dot";

std::vector<std::string>& journal()
{
    static std::vector<std::string> entries;
    return entries;
}

class DotData : public MUserData {
public:
    explicit DotData(bool once) : MUserData(once) {}
    ~DotData() override { journal().push_back("data deleted"); }
    int uses = 0;
};

/// Draws a dot; what it gives from prepareForDraw depends on the mode.
class Dot : public MHWRender::MPxDrawOverride {
public:
    enum Mode { Keep, Fresh, Once, Nothing };
    static Mode s_mode;
    static MHWRender::DrawAPI s_api;

    static MHWRender::MPxDrawOverride* creator(const MObject& object) { return new Dot(object); }
    explicit Dot(const MObject& object) : MPxDrawOverride(object, nullptr) { journal().push_back("made"); }
    ~Dot() override { journal().push_back("deleted"); }

    MHWRender::DrawAPI supportedDrawAPIs() const override { return s_api; }
    bool hasUIDrawables() const override { return true; }
    MUserData* prepareForDraw(const MDagPath& path, const MDagPath& camera, const MHWRender::MFrameContext& frame,
                              MUserData* old) override
    {
        EXPECT_TRUE(path.isValid());
        EXPECT_EQ(camera.fullPathName(), MString("|persp|perspShape"));
        EXPECT_EQ(frame.getCurrentCameraPath(), camera);
        if (s_mode == Nothing)
            return nullptr;
        auto* data = s_mode == Keep ? dynamic_cast<DotData*>(old) : nullptr;
        if (!data)
            data = new DotData(s_mode == Once);
        ++data->uses;
        return data;
    }
    void addUIDrawables(const MDagPath& path, MHWRender::MUIDrawManager& draw, const MHWRender::MFrameContext&,
                        const MUserData* data) override
    {
        const auto* dot = dynamic_cast<const DotData*>(data);
        journal().push_back(std::string(path.partialPathName().asUTF8()) + " use "
                            + (dot ? std::to_string(dot->uses) : "none"));
        draw.beginDrawable();
        draw.circle2d(MPoint(1, 1), 1, true);
        draw.line(MPoint(0, 0, 0), MPoint(1, 0, 0));
        draw.endDrawable();
    }
};

Dot::Mode Dot::s_mode = Dot::Keep;
MHWRender::DrawAPI Dot::s_api = MHWRender::kAllDevices;

class DrawOverrideTest : public HostFixture {
protected:
    DrawOverrideTest()
    {
        journal().clear();
        Dot::s_mode = Dot::Keep;
        Dot::s_api = MHWRender::kAllDevices;
        kernel::NodeType type;
        type.name = "dotShape";
        type.base = session().nodeTypes.find("locator");
        type.role = kernel::NodeRole::Locator;
        type.id = 0x7f001;
        type.classification = std::string("drawdb/light:") + kClassification;
        session().nodeTypes.add(type);
        const api::ModuleScope module("dots");
        EXPECT_TRUE(MHWRender::MDrawRegistry::registerDrawOverrideCreator(kClassification, "dots", Dot::creator));
    }
    ~DrawOverrideTest() override { MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(kClassification, "dots"); }

    std::vector<api::DrawItem> draw()
    {
        api::FrameState frame;
        frame.camera = session().scene.findOne("perspShape");
        frame.width = 100;
        frame.height = 100;
        api::DrawList list;
        api::drawOverrides(frame, list);
        return list.items;
    }
};

}  // namespace

TEST_F(DrawOverrideTest, EachNodeHasAnOverrideAndDataThatLastBetweenFrames)
{
    ASSERT_TRUE(run("createNode transform -n t; createNode dotShape -n a -p t; createNode dotShape -n b -p t"));
    EXPECT_EQ(draw().size(), 4u);
    EXPECT_EQ(draw().size(), 4u);
    EXPECT_THAT(journal(), ElementsAre("made", "a use 1", "made", "b use 1", "a use 2", "b use 2"));

    journal().clear();
    ASSERT_TRUE(run("delete b"));
    draw();
    EXPECT_THAT(journal(), ElementsAre("deleted", "data deleted", "a use 3"));

    journal().clear();
    ASSERT_TRUE(run("undo"));
    draw();
    EXPECT_THAT(journal(), ElementsAre("a use 4", "made", "b use 1"));
}

TEST_F(DrawOverrideTest, ReplacedAndOneFrameDataIsDeletedByTheHost)
{
    ASSERT_TRUE(run("createNode dotShape -n a"));
    Dot::s_mode = Dot::Fresh;
    draw();
    draw();
    EXPECT_THAT(journal(), ElementsAre("made", "a use 1", "data deleted", "a use 1"));

    journal().clear();
    Dot::s_mode = Dot::Once;
    draw();
    draw();
    EXPECT_THAT(journal(), ElementsAre("data deleted", "a use 1", "data deleted", "a use 1", "data deleted"));

    journal().clear();
    Dot::s_mode = Dot::Nothing;
    draw();
    EXPECT_THAT(journal(), ElementsAre("a use none"));
}

TEST_F(DrawOverrideTest, WhatIsHiddenIsNotDrawn)
{
    ASSERT_TRUE(run("createNode transform -n t; createNode dotShape -n a -p t; setAttr t.visibility 0"));
    EXPECT_TRUE(draw().empty());
    ASSERT_TRUE(run("setAttr t.visibility 1"));
    EXPECT_FALSE(draw().empty());
}

TEST_F(DrawOverrideTest, ThreeDimensionalDrawingIsInTheNodesSpace)
{
    ASSERT_TRUE(run("createNode transform -n t; createNode dotShape -n a -p t; setAttr t.translateX 5"));
    const auto items = draw();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_TRUE(items[0].is2d);
    EXPECT_FALSE(items[1].is2d);
    EXPECT_EQ(items[1].world.m[3][0], 5.0);
}

TEST_F(DrawOverrideTest, AnotherGraphicsInterfaceDrawsNothingAndSaysSoOnce)
{
    Dot::s_api = MHWRender::kDirectX11;
    ASSERT_TRUE(run("createNode dotShape -n a"));
    EXPECT_TRUE(draw().empty());
    EXPECT_TRUE(draw().empty());
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_THAT(errors()[0], testing::StartsWith("Failed to create evaluator for drawdb/geometry/dot"));
}

TEST_F(DrawOverrideTest, AskingForANewPictureDoesNotChangeTheScene)
{
    int redraws = 0;
    session().scene.setTouchListener([&redraws] { ++redraws; });
    MHWRender::MRenderer::setGeometryDrawDirty(api::toObject(session().scene.findOne("persp")));
    EXPECT_EQ(redraws, 1);
    EXPECT_FALSE(session().scene.isModified());
    session().scene.setTouchListener(nullptr);
}

TEST_F(DrawOverrideTest, GoesWithItsCreator)
{
    using MHWRender::MDrawRegistry;
    EXPECT_FALSE(MDrawRegistry::registerDrawOverrideCreator(kClassification, "dots", Dot::creator));
    EXPECT_FALSE(MDrawRegistry::registerDrawOverrideCreator("geometry/dot", "dots", Dot::creator));
    ASSERT_TRUE(run("createNode dotShape -n a"));
    draw();
    EXPECT_THAT(api::drawOverridesOf("dots"), ElementsAre(kClassification));
    journal().clear();
    EXPECT_TRUE(MDrawRegistry::deregisterDrawOverrideCreator(kClassification, "dots"));
    EXPECT_THAT(journal(), ElementsAre("deleted", "data deleted"));
    EXPECT_TRUE(draw().empty());
    EXPECT_FALSE(MDrawRegistry::deregisterDrawOverrideCreator(kClassification, "dots"));
}
