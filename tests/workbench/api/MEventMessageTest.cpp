#include "api/Registration.h"
#include "support/HostFixture.h"

#include <maya/MAnimControl.h>
#include <maya/MConditionMessage.h>
#include <maya/MEventMessage.h>

namespace {

class MEventMessageTest : public HostFixture {};

void count(void* data)
{
    ++*static_cast<int*>(data);
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
