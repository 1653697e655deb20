#include "support/CommandFixture.h"

#include "commands/LayerCommand.h"
#include "model/LayerListView.h"

#include <maya/MEventMessage.h>

namespace {

using kernel::Value;
using testing::IsEmpty;

/// persp: A, B, C with C active; top: X, Y with Y active. persp is current.
class LayerCommandTest : public CommandFixture {
protected:
    LayerCommandTest()
    {
        addCommand(names::kLayerCommand, LayerCommand::creator, LayerCommand::newSyntax);
        keyed("persp", "A", {1});
        keyed("persp", "B", {1, 5});
        keyed("persp", "C", {});
        keyed("top", "X", {2});
        keyed("top", "Y", {3});
        drawing().setActiveLayer("top", 1, true);
        drawing().setActiveLayer("persp", 2, true);
    }

    static std::string layer(const std::string& arguments) { return "tqLumisketchLayer " + arguments; }
    /// The layers of the drawing without persp's layer Z, whatever their order.
    QStringList layersWithoutZ()
    {
        const int index = stack("persp").remove('*').split(' ').indexOf("Z");
        std::unique_ptr<Layer> taken = drawing().takeLayer("persp", index);
        QStringList layers = describeDrawing().split('\n');
        layers.sort();
        drawing().insertLayer("persp", index, std::move(taken));
        return layers;
    }
};

TEST_F(LayerCommandTest, LayersAreWhereTheCommandPutsThem)
{
    const Value nothing;
    const struct {
        const char* arguments;
        Value result;
        const char* persp;
        const char* top;
        const char* front;
        const char* current;
    } cases[] = {
        {"-add -n Ink -ls 1 persp", 3, "A B C Ink*", "X Y*", "", "persp"},
        {"-add -n Ink -ls 0 top", 2, "A B C*", "X Y Ink*", "", "top"},
        {"-addLayer -layerState 2 front", 0, "A B C*", "X Y*", "Layer*", "front"},
        {"-del 0 persp", nothing, "B C*", "X Y*", "", "persp"},
        {"-delete 2 persp", nothing, "A B*", "X Y*", "", "persp"},
        {"-del 0 top", nothing, "A B C*", "Y*", "", "persp"},
        {"-del 1 top", nothing, "A B C*", "X*", "", "persp"},
        {"-da persp", nothing, "", "X Y*", "", "persp"},
        {"-deleteAll top", nothing, "A B C*", "", "", "persp"},
        {"-mv 0 2 persp", 2, "B C* A", "X Y*", "", "persp"},
        {"-move 2 0 persp", 0, "C* A B", "X Y*", "", "persp"},
        {"-mv 0 99 persp", 2, "B C* A", "X Y*", "", "persp"},
        {"-mv 2 -5 persp", 0, "C* A B", "X Y*", "", "persp"},
        {"-mv 1 2147483647 persp", 2, "A C* B", "X Y*", "", "persp"},
        {"-nc top -mv 0 -1 persp", 2, "B C*", "X Y* A", "", "persp"},
        {"-newCamera top -move 2 0 persp", 0, "A B*", "C* X Y", "", "top"},  // the current camera's active layer
        {"-nc persp -mv 1 1 top", 1, "A Y B C*", "X*", "", "persp"},         // another camera's
        {"-mva top persp", nothing, "", "X Y A B C*", "", "top"},
        {"-moveAll persp top", nothing, "A B C* X Y", "", "", "persp"},
        {"-mva front persp", nothing, "", "X Y*", "A B C*", "front"},
        {"-e -act 0 persp", 0, "A* B C", "X Y*", "", "persp"},
        {"-edit -active 0 top", 0, "A B C*", "X* Y", "", "top"},
        {"-e -act 1 top", 1, "A B C*", "X Y*", "", "top"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.arguments);
        EXPECT_EQ(evaluate(layer(c.arguments)), c.result);
        EXPECT_EQ(stack("persp"), c.persp);
        EXPECT_EQ(stack("top"), c.top);
        EXPECT_EQ(stack("front"), c.front);
        EXPECT_EQ(drawing().currentCamera(), c.current);
        run("undo");
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LayerCommandTest, AnAdditionWithoutStateAndAnInsertionLeaveTheLayerAndFail)
{
    const struct {
        const char* flags;
        const char* stack;
    } cases[] = {
        {"-add -n Z persp", "A B C* Z"},
        {"-ins 0 -n Z -ls 1 persp", "Z A B C*"},
        {"-insert 2 -n Z persp", "A B Z C*"},
        {"-ins -1 -n Z persp", "A B C* Z"},
        {"-ins 2147483647 -n Z persp", "A B C* Z"},
    };
    for (const auto& c : cases) {
        const unsigned steps = session().undo.count();
        EXPECT_FALSE(run(layer(c.flags))) << c.flags;
        EXPECT_EQ(stack("persp"), c.stack) << c.flags;
        EXPECT_EQ(session().undo.count(), steps) << c.flags;
        drawing().takeLayer("persp", stack("persp").split(' ').indexOf("Z"));
    }
}

TEST_F(LayerCommandTest, StepsFindTheirLayersAgainWhenOneWasInsertedWithoutAStep)
{
    for (const char* arguments :
         {"-add -n D -ls 0 persp", "-del 1 persp", "-da persp", "-mv 0 2 persp", "-nc top -mv 0 0 persp",
          "-nc persp -mv 1 1 top", "-mva top persp", "-mva persp top", "-en Sky 1 persp", "-ev 0 0 persp",
          "-eo 0.5 2 persp", "-es 1 1 persp", "-e -act 0 persp"}) {
        const QStringList before = layersWithoutZ();
        ASSERT_TRUE(run(layer(arguments))) << arguments;
        const QStringList after = layersWithoutZ();
        EXPECT_FALSE(run(layer("-ins 0 -n Z persp")));
        for (int round = 0; round < 2; ++round) {
            run("undo");
            EXPECT_EQ(layersWithoutZ(), before) << arguments;
            run("redo");
            EXPECT_EQ(layersWithoutZ(), after) << arguments;
        }
        run("undo");
        drawing().takeLayer("persp", stack("persp").split(' ').indexOf("Z"));
    }
}

TEST_F(LayerCommandTest, UndoLeavesTheUserWhereHeHasGoneSince)
{
    keyed("side", "S", {});
    for (const char* arguments : {"-add -ls 0 top", "-add -ls 0 persp", "-del 0 top", "-del 2 persp", "-da top",
                                  "-nc top -mv 2 0 persp", "-nc persp -mv 0 0 top", "-e -act 0 top"}) {
        drawing().setCurrentCamera("persp");
        run(layer(arguments));
        drawing().setCurrentCamera("side");
        run("undo");
        EXPECT_EQ(drawing().currentCamera(), "side") << arguments;
        EXPECT_EQ(stack("top") + ", " + stack("persp"), "X Y*, A B C*") << arguments;
    }
}

TEST_F(LayerCommandTest, TheListIsPublishedOnceForEachStep)
{
    struct Rows : LayerListView {
        void clear() override { ++builds; }
        void addRow(const QString&, int, const QString&, int, bool) override {}
        void select(const QString&, int) override {}
        void refresh() override {}
        int builds = 0;
    } rows;
    LayerManager::setLayerListView(&rows);
    for (const char* arguments : {"-add -ls 0 top", "-da persp", "-mva top persp", "-mv 0 1 persp", "-es 2 0 top"}) {
        for (const std::string& text : {layer(arguments), std::string("undo"), std::string("redo")}) {
            rows.builds = 0;
            EXPECT_TRUE(run(text));
            EXPECT_EQ(rows.builds, 1) << text << " of " << arguments;
        }
        run("undo");
    }
    LayerManager::setLayerListView(nullptr);
}

TEST_F(LayerCommandTest, ADeletedLayerComesBackAsTheScenesTimeIsByThen)
{
    drawing().updateCurrentFrames(1, false);
    run(layer("-del 1 persp"));
    goTo(7);
    run("undo");
    EXPECT_EQ(drawing().layer("persp", 1)->currentFrame()->frameNumber(), 5);
}

TEST_F(LayerCommandTest, ALayerIsMadeActiveAgainThoughAClickIntoItsViewHasDoneSoMeanwhile)
{
    run(layer("-e -act 1 top"));
    run("undo");
    drawing().setCurrentCamera("top");
    EXPECT_TRUE(run("redo"));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LayerCommandTest, WhatIsSetCanBeAskedFor)
{
    const struct {
        const char* edit;
        const char* query;
        Value value;
    } cases[] = {
        {"-add -ls 2 persp", "-qs 3 persp", 2},
        {"-add -ls 7 persp", "-qs 3 persp", 0},
        {"-add -ls 0 -n A persp", "-qn 3 persp", std::string("Layer 1")},  // a taken name
        {"-add -ls 0 -n \"q\\\"b\\\\s\\nx\" persp", "-qn 3 persp", std::string("q'b/sx")},
        {"-del 0 persp", "-cnt persp", 2},
        {"-da persp", "-count persp", 0},
        {"-e -active 1 persp", "-q -act persp", 1},
        {"-da persp", "-q -active persp", -1},
        {"-en Sky 0 persp", "-qn 0 persp", std::string("Sky")},
        {"-editName B 0 persp", "-queryName 0 persp", std::string("Layer 1")},
        {"-en \"a\\\"b\\\\c\" 0 persp", "-qn 0 persp", std::string("a'b/c")},
        {"-en \"\" 0 persp", "-qn 0 persp", std::string("Layer")},
        {"-ev 0 1 persp", "-qv 1 persp", 0},
        {"-editVis off 1 persp", "-queryVis 1 persp", 0},
        {"-eo 0.25 2 persp", "-qo 2 persp", 0.25},
        {"-eo 0.25 2 persp", "-qo 1 persp", 1.0},
        {"-editOpacity -3 1 top", "-queryOpacity 1 top", 0.0},
        {"-es 2 0 top", "-qs 0 top", 2},
        {"-editState 1 2 persp", "-queryState 2 persp", 1},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(run(layer(c.edit))) << c.edit;
        EXPECT_EQ(evaluate(layer(c.query)), c.value) << c.edit;
        run("undo");
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LayerCommandTest, UndoOfARenamingGivesBackNamesThatCouldNotBeTyped)
{
    drawing().layer("persp", 0)->setName("Twin");
    drawing().layer("top", 0)->setName("Twin");
    drawing().layer("persp", 1)->setName("tab\t\"quote\"");
    for (const char* edit : {"-en Sky 0 persp", "-en C 0 top", "-en Twin 1 persp"}) {
        runAndRewind(layer(edit));
        run("undo");
    }
}

TEST_F(LayerCommandTest, UndoLeavesTheCurrentCameraThatWasThereThoughItHasNoLayers)
{
    drawing().setCurrentCamera("side");
    drawing().setCurrentCamera("front");
    for (const char* arguments : {"-add -ls 0 persp", "-e -act 0 top", "-da persp", "-nc top -mv 0 -1 persp",
                                  "-nc side -mv 0 -1 persp", "-mva front persp"}) {
        run(layer(arguments));
        run("undo");
        EXPECT_EQ(drawing().currentCamera(), "front") << arguments;
        EXPECT_EQ(drawing().previousCamera(), "side") << arguments;
    }
    for (const char* only : {"-del 0 persp", "-nc top -mv 0 -1 persp", "-mva side persp"}) {
        run("file -f -new");
        keyed("persp", "A", {1});
        drawing().setCurrentCamera("front");
        run(layer(only));
        run("undo");
        EXPECT_EQ(stack("persp"), "A*") << only;
        EXPECT_EQ(drawing().currentCamera(), "front") << only;
    }
}

TEST_F(LayerCommandTest, TheFirstModeInOrderOfPrecedenceIsTaken)
{
    EXPECT_EQ(evaluate(layer("-qs 0 -qn 0 -es 1 0 -cnt -da persp")), Value(3));
    EXPECT_EQ(evaluate(layer("-qs 0 -qo 0 -qn 0 persp")), Value(std::string("A")));
    EXPECT_EQ(evaluate(layer("-qn 0 -qn 1 persp")), Value(std::string("B"))) << "the last of a doubled flag";
    EXPECT_EQ(evaluate(layer("-cnt top persp")), Value(2)) << "the first camera";
    EXPECT_EQ(evaluate(layer("-da -del 1 -mv 0 1 persp")), Value());
    EXPECT_EQ(stack("persp"), "A C*");
}

TEST_F(LayerCommandTest, EveryChangeAndItsUndoTellTheMarksAndChangeTheSelectionForAMoment)
{
    struct Marks : TimelineMarks {
        bool update() override { return false; }
        void refresh() override { ++refreshes; }
        int refreshes = 0;
    } marks;
    TimelineMarks::install(&marks);
    int selections = 0;
    const MCallbackId callback = MEventMessage::addEventCallback(
        "SelectionChanged", [](void* count) { ++*static_cast<int*>(count); }, &selections);
    for (const char* selected : {"select -cl", "select top"}) {
        run(selected);
        for (const char* arguments : {"-add -ls 0 persp", "-ev 0 0 persp", "-mv 0 1 persp", "-da persp"}) {
            for (const std::string& text : {layer(arguments), std::string("undo")}) {
                marks.refreshes = 0;
                selections = 0;
                run(text);
                EXPECT_EQ(marks.refreshes, 1) << text << " of " << arguments;
                EXPECT_GT(selections, 0) << text << " of " << arguments;
            }
        }
    }
    EXPECT_EQ(evaluate("ls -sl"), Value(kernel::StringArray{"top"}));
    MMessage::removeCallback(callback);
}

}  // namespace
