#include "kernel/Session.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace kernel;

namespace {

/// Notes in a shared log what happens to it.
class Noted : public Command {
public:
    Noted(std::string& log, char name, bool failing = false) : m_log(log), m_name(name), m_failing(failing) {}
    ~Noted() override { m_log += std::string("~") + m_name; }
    Value run(const ValueList&) override { return {}; }
    bool isUndoable() const override { return true; }
    bool undo() override
    {
        m_log += std::string("-") + m_name;
        if (m_failing)
            throw CommandError("no way back");
        return true;
    }
    bool redo() override
    {
        m_log += std::string("+") + m_name;
        return !m_failing;
    }

private:
    std::string& m_log;
    const char m_name;
    const bool m_failing;
};

class UndoQueueTest : public testing::Test {
public:
    void record(char name, bool failing = false) { queue().record(std::make_unique<Noted>(log, name, failing)); }

protected:
    UndoQueue& queue() { return session.undo; }
    std::string taken() { return std::exchange(log, {}); }

    std::string log;  // outlives the queue
    Session session;
};

}  // namespace

TEST_F(UndoQueueTest, ANewStepEmptiesTheRedoSide)
{
    record('a');
    queue().undo();
    EXPECT_TRUE(session.events.condition("RedoAvailable"));
    record('b');
    EXPECT_EQ(taken(), "-a~a");
    EXPECT_FALSE(queue().redo());
    EXPECT_TRUE(session.events.condition("UndoAvailable"));
    EXPECT_FALSE(session.events.condition("RedoAvailable"));
}

TEST_F(UndoQueueTest, NothingIsRecordedWhileSuspendedOffOrUndoing)
{
    {
        const UndoQueue::Suspend suspend(queue());
        record('a');
    }
    queue().setEnabledWithoutFlush(false);
    record('b');
    EXPECT_EQ(taken(), "~a~b");
    queue().setEnabledWithoutFlush(true);
    record('c');
    EXPECT_EQ(queue().count(), 1u);
    queue().setEnabled(false);
    EXPECT_EQ(taken(), "~c");

    struct Nested : Command {
        explicit Nested(UndoQueueTest& test) : test(test) {}
        Value run(const ValueList&) override { return {}; }
        bool undo() override
        {
            static_cast<Nested&>(*this).again();
            return true;
        }
        void again()
        {
            EXPECT_FALSE(Session::current().undo.undo()) << "undo does not nest";
            Session::current().undo.record(std::make_unique<Nested>(test));
        }
        UndoQueueTest& test;
    };
    queue().setEnabled(true);
    queue().record(std::make_unique<Nested>(*this));
    EXPECT_TRUE(queue().undo());
    EXPECT_EQ(queue().count(), 0u);
}

TEST_F(UndoQueueTest, ADestructorMayRecordAgain)
{
    struct Returning : Noted {
        Returning(UndoQueueTest& test, std::string& log) : Noted(log, 'r'), test(test) {}
        ~Returning() override { test.record('n'); }
        UndoQueueTest& test;
    };
    queue().record(std::make_unique<Returning>(*this, log));
    queue().undo();
    record('a');
    EXPECT_EQ(taken(), "-r~r");
    EXPECT_EQ(queue().count(), 2u) << "what emptied the redo side, and what that brought";
    queue().flush();
    queue().setLength(1);
    queue().record(std::make_unique<Returning>(*this, log));
    taken();
    record('a');
    EXPECT_EQ(taken(), "~a~r") << "what came last stays";
    EXPECT_EQ(queue().count(), 1u);
}

TEST_F(UndoQueueTest, WhatIsRedoneComesAfterTheStepThatWasReopened)
{
    record('a');
    record('b');
    queue().undo();
    queue().reopenLastChunk();
    EXPECT_TRUE(queue().redo());
    queue().closeChunk();
    taken();
    queue().undo();
    EXPECT_EQ(taken(), "-b");
}

TEST_F(UndoQueueTest, AChunkWithoutANameTakesThatOfTheNext)
{
    queue().openChunk({});
    queue().openChunk("text");
    record('a');
    queue().closeChunk();
    queue().openChunk("more");
    queue().closeChunk();
    queue().closeChunk();
    EXPECT_EQ(queue().undoName(), "text");
}

TEST_F(UndoQueueTest, AnUnexpectedErrorInsideUndoDropsTheStepOnly)
{
    struct Broken : Noted {
        using Noted::Noted;
        bool undo() override { throw std::runtime_error("broken"); }
    };
    std::vector<std::string> said;
    session.output.addListener([&](Severity, const std::string& text) { said.push_back(text); });
    record('a');
    queue().record(std::make_unique<Broken>(log, 'b'));
    EXPECT_FALSE(queue().undo());
    EXPECT_EQ(said, (std::vector<std::string>{"broken", "The step could not be undone and was dropped: "}));
    EXPECT_TRUE(queue().undo());
    EXPECT_EQ(taken(), "~b-a");
}

TEST_F(UndoQueueTest, AStepThatFailsHalfWayIsReportedAndDropped)
{
    std::vector<std::string> errors;
    session.output.addListener([&](Severity, const std::string& text) { errors.push_back(text); });
    record('a');
    queue().openChunk("half");
    record('b');
    record('c', true);
    record('d');
    queue().closeChunk();
    EXPECT_FALSE(queue().undo());
    EXPECT_EQ(taken(), "-d-c~b~c~d");
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0], "no way back");
    EXPECT_NE(errors[1].find("half"), std::string::npos);
    EXPECT_FALSE(queue().canRedo());
    EXPECT_TRUE(queue().undo()) << "what came before is still there";
}

TEST_F(UndoQueueTest, FlushReachesTheOpenChunk)
{
    record('a');
    queue().undo();
    record('b');
    queue().openChunk("script");
    record('c');
    queue().tagNextRecord("wobblePlugin");
    record('d');
    EXPECT_TRUE(queue().holdsCommandsOf("wobblePlugin"));
    queue().flush();
    EXPECT_FALSE(queue().holdsCommandsOf("wobblePlugin"));
    queue().closeChunk();
    EXPECT_EQ(queue().count(), 0u);
    record('e');
    EXPECT_FALSE(queue().holdsCommandsOf("wobblePlugin")) << "the tag is for one record";
}
