#include "kernel/Events.h"

#include "kernel/IdleQueue.h"
#include "kernel/Session.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace kernel;

TEST(Events, AnEventCausedByItsOwnDeliveryComesAfterIt)
{
    Events events;
    std::string log;
    int raises = 2;
    events.add("timeChanged", [&] {
        log += '(';
        if (raises-- > 0)
            events.raise("timeChanged");
        log += ')';
    });
    events.add("timeChanged", [&] { log += '.'; });
    events.raise("timeChanged");
    EXPECT_EQ(log, "().().().");
}

TEST(Events, ACallbackThatAlwaysRaisesItsEventDoesNotHangTheHost)
{
    Events events;
    int count = 0;
    events.add("Undo", [&] {
        ++count;
        events.raise("Undo");
    });
    events.raise("Undo");
    EXPECT_GT(count, 1);
    const int after = count;
    events.raise("Undo");
    EXPECT_GT(count, after) << "the event still works";
}

TEST(Events, CallbacksMayGoWhileTheEventIsDelivered)
{
    Events events;
    std::string log;
    unsigned second = 0;
    unsigned first = events.add("idle", [&] {
        log += 'a';
        events.remove(first);
        events.remove(second);
        events.add("idle", [&] { log += 'c'; });
    });
    second = events.add(
        "idle", [&] { log += 'b'; }, "wobblePlugin");
    events.raise("idle");
    EXPECT_EQ(log, "a") << "neither the removed nor the new one is called this time";
    events.raise("idle");
    EXPECT_EQ(log, "ac");
    events.add(
        "idle", [] {}, "wobblePlugin");
    EXPECT_EQ(events.removeOf("wobblePlugin"), 1u);
}

TEST(Events, EveryWatcherHearsOfTheChangesInTheirOrder)
{
    Events events;
    std::string log;
    events.watch("playingBack", [&](bool on) {
        if (on)
            events.setCondition("playingBack", false);
    });
    events.watch("playingBack", [&](bool on) { log += on ? '1' : '0'; });
    events.setCondition("playingBack", true);
    EXPECT_EQ(log, "10") << "the last that is heard is how it is";
    int told = 0;
    events.watch("busy", [&](bool on) {
        ++told;
        events.setCondition("busy", !on);
    });
    events.setCondition("busy", true);
    EXPECT_LT(told, 1000) << "two that never agree do not hang the host";
    const int before = told;
    events.setCondition("busy", !events.condition("busy"));
    EXPECT_GT(told, before);
}

TEST(IdleQueue, AnEndlessChainOfEntriesEndsAtTheLimit)
{
    IdleQueue queue;
    int count = 0;
    std::function<void()> again = [&] {
        ++count;
        queue.post(again);
    };
    queue.post(again);
    queue.drain(5);
    EXPECT_EQ(count, 5);
}

TEST(IdleQueue, AFailingEntryIsReportedAndDoesNotStopTheNext)
{
    Session session;
    std::vector<std::string> said;
    session.output.addListener([&](Severity, const std::string& text) { said.push_back(text); });
    session.idle.post([] { throw CommandError("first"); });
    session.idle.post([] { throw CommandError(""); });  // has been reported already
    session.idle.post([] { throw std::runtime_error("third"); });
    session.idle.post([&] { said.push_back("fourth ran"); });
    session.idle.drain();
    EXPECT_EQ(said, (std::vector<std::string>{"first", "third", "fourth ran"}));
}

TEST(IdleQueue, TakesWorkFromAnyThreadAndWakesOnce)
{
    IdleQueue queue;
    std::atomic<int> wakes{0};
    queue.setWake([&] { ++wakes; });
    int ran = 0;
    std::thread other([&] {
        for (int i = 0; i < 100; ++i)
            queue.post([&] { ++ran; });
    });
    other.join();
    EXPECT_EQ(wakes, 1);
    queue.drain();
    EXPECT_EQ(ran, 100);
    queue.post([] {});
    EXPECT_EQ(wakes, 2);
}
