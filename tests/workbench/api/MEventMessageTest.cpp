#include "api/Registration.h"
#include "support/HostFixture.h"

#include <maya/MAnimControl.h>
#include <maya/MConditionMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MFileIO.h>

namespace {

class MEventMessageTest : public HostFixture {};

void count(void* data)
{
    ++*static_cast<int*>(data);
}

struct SelfRemoving {
    MCallbackId id = 0;
    int calls = 0;
};

void removeSelf(void* data)
{
    auto& self = *static_cast<SelfRemoving*>(data);
    ++self.calls;
    EXPECT_EQ(MMessage::currentCallbackId(), self.id);
    EXPECT_TRUE(MMessage::removeCallback(self.id));
}

void note(bool state, void* data)
{
    static_cast<std::vector<bool>*>(data)->push_back(state);
}

}  // namespace

TEST_F(MEventMessageTest, CallsBackUntilItIsRemoved)
{
    int times = 0;
    MStatus status;
    MCallbackIdArray ids;
    ids.append(MEventMessage::addEventCallback("timeChanged", count, &times, &status));
    ASSERT_TRUE(status);
    ids.append(MEventMessage::addEventCallback("SelectionChanged", count, &times));
    ASSERT_TRUE(run("currentTime 7"));
    EXPECT_EQ(times, 1);
    ASSERT_TRUE(run("select -r persp; select -cl; select -r persp"));
    EXPECT_EQ(times, 2) << "one text is one change of selection";

    EXPECT_TRUE(MMessage::removeCallbacks(ids));
    EXPECT_EQ(ids.length(), 2u);
    EXPECT_FALSE(MMessage::removeCallback(ids[0]));
    ASSERT_TRUE(run("currentTime 8"));
    EXPECT_EQ(times, 2);
}

TEST_F(MEventMessageTest, RefusesUnknownEvents)
{
    int times = 0;
    MStatus status;
    EXPECT_EQ(MEventMessage::addEventCallback("timechanged", count, &times, &status), 0);
    EXPECT_FALSE(status);
    EXPECT_FALSE(MMessage::removeCallback(0));
    MMessage::currentCallbackId(&status);
    EXPECT_FALSE(status);

    MStringArray names;
    MEventMessage::getEventNames(names);
    for (const char* wanted :
         {"SelectionChanged", "timeChanged", "timeUnitChanged", "SceneOpened", "quitApplication", "Undo", "Redo"}) {
        EXPECT_TRUE(std::any_of(names.begin(), names.end(), [&](const MString& n) { return n == wanted; })) << wanted;
    }
}

TEST_F(MEventMessageTest, ACallbackMayRemoveItself)
{
    SelfRemoving self;
    self.id = MEventMessage::addEventCallback("timeChanged", removeSelf, &self);
    MAnimControl::setCurrentTime(MTime(3.0, MTime::uiUnit()));
    MAnimControl::setCurrentTime(MTime(4.0, MTime::uiUnit()));
    EXPECT_EQ(self.calls, 1);
}

TEST_F(MEventMessageTest, ReportsBothEdgesOfACondition)
{
    std::vector<bool> states;
    const MCallbackId id = MConditionMessage::addConditionCallback("playingBack", note, &states);
    ASSERT_NE(id, 0);
    EXPECT_FALSE(MAnimControl::isPlaying());
    session().events.setCondition("playingBack", true);
    EXPECT_TRUE(MAnimControl::isPlaying());
    session().events.setCondition("playingBack", false);
    EXPECT_TRUE(MMessage::removeCallback(id));
    session().events.setCondition("playingBack", true);
    EXPECT_EQ(states, (std::vector<bool>{true, false}));
    EXPECT_EQ(MConditionMessage::addConditionCallback("dreaming", note, &states), 0);
}

TEST_F(MEventMessageTest, DropsWhatAModuleLeftBehind)
{
    int times = 0;
    std::vector<bool> states;
    {
        const api::ModuleScope module("careless");
        MEventMessage::addEventCallback("timeChanged", count, &times);
        MConditionMessage::addConditionCallback("playingBack", note, &states);
    }
    const MCallbackId ours = MEventMessage::addEventCallback("timeChanged", count, &times);
    EXPECT_EQ(api::dropLeftoversOf(session(), "careless"), std::vector<std::string>{"2 callbacks"});
    MAnimControl::setCurrentTime(MTime(5.0, MTime::uiUnit()));
    session().events.setCondition("playingBack", true);
    EXPECT_EQ(times, 1);
    EXPECT_TRUE(states.empty());
    MMessage::removeCallback(ours);
}

TEST_F(MEventMessageTest, AnimationControlSpeaksInTheUiUnit)
{
    session().scene.setTimeUnit(kernel::TimeUnit::PalFrame);
    MAnimControl::setCurrentTime(MTime(2.0, MTime::kSeconds));
    EXPECT_EQ(MAnimControl::currentTime().unit(), MTime::kPALFrame);
    EXPECT_EQ(MAnimControl::currentTime().value(), 50.0);
    EXPECT_TRUE(MAnimControl::setMinMaxTime(MTime(5.0, MTime::kPALFrame), MTime(9.0, MTime::kPALFrame)));
    EXPECT_TRUE(MAnimControl::setMinTime(MTime(12.0, MTime::kPALFrame)));
    EXPECT_EQ(MAnimControl::minTime().value(), 12.0);
    EXPECT_EQ(MAnimControl::maxTime().value(), 12.0);
    EXPECT_FALSE(MAnimControl::setMinMaxTime(MTime(5.0, MTime::kPALFrame), MTime(4.0, MTime::kPALFrame)));
}

TEST_F(MEventMessageTest, FileStateFollowsWhatTheHostDoes)
{
    EXPECT_FALSE(MFileIO::isReadingFile());
    {
        const kernel::Scene::Activity activity(session().scene, kernel::FileActivity::Import);
        EXPECT_TRUE(MFileIO::isReadingFile());
        EXPECT_TRUE(MFileIO::isImportingFile());
        EXPECT_FALSE(MFileIO::isOpeningFile());
        const kernel::Scene::Activity inner(session().scene, kernel::FileActivity::Reference);
        EXPECT_TRUE(MFileIO::isReferencingFile());
    }
    EXPECT_FALSE(MFileIO::isReadingFile());

    session().scene.setModified();
    EXPECT_FALSE(MFileIO::newFile());
    EXPECT_EQ(errors(), std::vector<std::string>{"Unsaved changes"});
    EXPECT_TRUE(MFileIO::newFile(true));
    EXPECT_FALSE(MFileIO::open("/nowhere/at/all.ma", nullptr, true));
}
