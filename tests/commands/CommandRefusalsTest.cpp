#include "support/CommandFixture.h"
#include "support/TestView.h"

#include "commands/FrameCommand.h"
#include "commands/LayerCommand.h"
#include "commands/NodeCommand.h"
#include "commands/StrokeCommand.h"

namespace {

constexpr char kNode[] = "tqLumisketchNode ";
constexpr char kLayer[] = "tqLumisketchLayer ";
constexpr char kFrame[] = "tqLumisketchFrame ";
constexpr char kStroke[] = "tqLumisketchStroke ";

/// A flag with the kinds of its values: i for a number, u for one that is not negative, d for one with a fraction,
/// b for a truth, s for a text.
struct FlagForms {
    const char* command;
    const char* shortForm;
    const char* longForm;
    const char* values;
    int done;               ///< how many of its texts are done on the drawing; the others are refused
    const char* rest = "";  ///< what a caller writes beside it
    int doneWithoutDrawing = 0;
};

// -addLayer without a state and the layer command's -insert are not among them: they fail and leave a layer, as meant.
const FlagForms kFlags[] = {
    {kNode, "-ex", "-exists", "", 3, "", 3},
    {kNode, "-r", "-refresh", "", 3},
    {kNode, "-rg", "-refreshGhosting", "", 3},
    {kNode, "-l", "-layer", "", 0, "", 3},
    {kNode, "-c", "-camera", "s", 0, "-l", 8},
    {kNode, "-ln", "-layerName", "s", 0, "-l", 8},
    {kNode, "-ls", "-layerState", "u", 0, "-l", 5},
    {kNode, "-f", "-frame", "", 0, "-l", 3},
    {kLayer, "-act", "-active", "u", 3, "-e"},
    {kLayer, "-act", "-active", "u", 0},
    {kLayer, "-cnt", "-count", "", 6},
    {kLayer, "-add", "-addLayer", "", 6, "-ls 0"},
    {kLayer, "-del", "-delete", "u", 4},
    {kLayer, "-da", "-deleteAll", "", 6},
    {kLayer, "-mv", "-move", "ui", 19},
    {kLayer, "-mv", "-move", "ui", 19, "-nc top"},
    {kLayer, "-mva", "-moveAll", "s", 1},
    {kLayer, "-n", "-name", "s", 16, "-add -ls 0"},
    {kLayer, "-nc", "-newCamera", "s", 1, "-mv 0 0"},
    {kLayer, "-en", "-editName", "su", 19},
    {kLayer, "-qn", "-queryName", "u", 4},
    {kLayer, "-ev", "-editVis", "bu", 13},
    {kLayer, "-qv", "-queryVis", "u", 4},
    {kLayer, "-eo", "-editOpacity", "du", 22},
    {kLayer, "-qo", "-queryOpacity", "u", 4},
    {kLayer, "-es", "-editState", "uu", 10},
    {kLayer, "-qs", "-queryState", "u", 4},
    {kLayer, "-ls", "-layerState", "u", 10, "-add"},
    {kLayer, "-ifw", "-importFramewright", "ss", 76},
    {kFrame, "-ins", "-insert", "", 9},
    {kFrame, "-dup", "-duplicate", "", 6},
    {kFrame, "-del", "-delete", "", 9},
    {kFrame, "-cut", "-cutFrame", "", 9},
    {kFrame, "-cp", "-copy", "", 9},
    {kFrame, "-pst", "-paste", "", 9},
    {kFrame, "-clr", "-clear", "", 9},
    {kFrame, "-sf", "-stepForward", "", 9},
    {kFrame, "-sb", "-stepBack", "", 9},
    {kFrame, "-ret", "-retime", "i", 18},
    {kFrame, "-rel", "-relative", "", 9, "-ret 2"},
    {kFrame, "-mvn", "-moveToNext", "", 9, "-ret 2"},
    {kFrame, "-mv", "-move", "iii", 129},
    {kStroke, "-la", "-layerAdded", "i", 0},
    {kStroke, "-fa", "-frameAdded", "", 0},
};

using Texts = std::vector<std::string>;

/// What callers write for a value, good and bad.
Texts valuesOfKind(char kind)
{
    switch (kind) {
    case 's': return {"persp", "top", "nowhere", "box", "\"\"", "\"q\\\"b\\\\s\\nx\""};
    case 'b': return {"0", "off", "-1", "2147483647"};
    default: return {"0", "1", "-1", "2147483647", "-2147483648", "2147483648", "0.5", "x"};
    }
}

/// The flag with every combination of values, with each value missing, twice, and by both of its names.
Texts formsOf(const FlagForms& flag)
{
    Texts forms = {std::string(flag.shortForm)};
    Texts all = forms;
    for (const char* kind = flag.values; *kind; ++kind) {
        Texts longer;
        for (const std::string& form : forms) {
            for (const std::string& value : valuesOfKind(*kind)) {
                longer.push_back(form + " " + value);
            }
        }
        all.insert(all.end(), longer.begin(), longer.end());
        forms = longer;
    }
    all.push_back(forms.front() + " " + forms.back());
    all.push_back(flag.longForm + forms.front().substr(std::string(flag.shortForm).size()));
    return all;
}

/// Every form of a flag on every kind of camera.
Texts textsOf(const FlagForms& flag)
{
    const bool isLong = std::string(flag.values).size() > 2;  // enough of it on one camera
    const Texts cameras = flag.command == kNode ? Texts{""}
                        : isLong                ? Texts{" persp"}
                                                : Texts{" persp", " front", "", " nowhere", " box", " \"\""};
    Texts texts;
    for (const std::string& form : formsOf(flag)) {
        for (const std::string& camera : cameras) {
            texts.push_back(flag.command + (flag.rest + (" " + form)) + camera);
        }
    }
    return texts;
}

enum class Pending { Nothing, Stroke, PasteOnMadeFrame, PasteOnMadeLayer };

/// persp: A with frames 1, 2 and 4, B active; top: X. Neither has a frame at the scene's time 3. box is no camera.
class CommandRefusalsTest : public CommandFixture {
protected:
    CommandRefusalsTest()
    {
        addCommand(names::kNodeCommand, NodeCommand::creator, NodeCommand::newSyntax);
        addCommand(names::kLayerCommand, LayerCommand::creator, LayerCommand::newSyntax);
        addCommand(names::kFrameCommand, FrameCommand::creator, FrameCommand::newSyntax);
        addCommand(names::kStrokeCommand, StrokeCommand::creator, StrokeCommand::newSyntax);
        run("createNode transform -n box");
        goTo(3);
    }

    void draw()
    {
        keyed("persp", "A", {1, 2, 4});
        keyed("persp", "B", {1, 2, 4});
        keyed("top", "X", {1});
        drawing().setActiveLayer("persp", 1, true);
        goTo(4);
        run("tqLumisketchFrame -cp");
        goTo(3);
        run("select box");
    }

    void begin(Pending pending)
    {
        if (pending == Pending::Stroke) {
            ASSERT_NE(drawing().beginStroke("persp", false), nullptr);
        } else if (pending != Pending::Nothing) {
            floatPaste(pending == Pending::PasteOnMadeFrame ? "persp" : "front");
        }
    }
    void giveUp()
    {
        if (BaseNode::masterNode()) {
            node().withdrawMadeStroke();
            drawing().dropStroke();
        }
    }

    /// All that a command could change but the clipboard; pictures and layers by their identity.
    QString scene()
    {
        QStringList lines = {QString::fromStdString(kernel::toText(evaluate("ls"))),
                             QString::fromStdString(kernel::toText(evaluate("ls -sl"))),
                             QString::number(MAnimControl::currentTime().value())};
        const BaseNode* master = BaseNode::masterNode();
        const std::shared_ptr<LayerManager> manager = master ? master->layerManager() : nullptr;
        for (const QString& camera : manager ? manager->cameras() : QStringList()) {
            for (int i = 0; i < manager->layerCount(camera); ++i) {
                lines << camera + describeLayer(*manager->layer(camera, i));
            }
            lines << (manager->stroke(camera) ? "stroke" : "");
        }
        if (manager) {
            lines << manager->currentCamera() << manager->previousCamera();
        }
        return lines.join("\n");
    }
    QString clipboard()
    {
        QString numbers;
        if (BaseNode* master = BaseNode::masterNode()) {
            for (const std::unique_ptr<Frame>& frame : master->frameClipboard()) {
                numbers += QString("%1:%2 ").arg(frame->frameNumber()).arg(frame->picture().id());
            }
        }
        return numbers;
    }
    std::vector<std::string> ownErrors() const
    {
        std::vector<std::string> own;
        for (const std::string& error : errors()) {
            if (error.find("[Lumisketch2] ") == 0) {
                own.push_back(error.substr(14));
            }
        }
        return own;
    }

    /// A text that fails has said at most one thing and changed nothing; one that succeeds is at most one step, whose
    /// undo gives everything back and whose redo does the same again. Gives whether it succeeded.
    bool expectAllOrNothing(const std::string& text, Pending pending)
    {
        SCOPED_TRACE(text + ", pending " + std::to_string(int(pending)));
        goTo(pending == Pending::Stroke ? 4 : 3);
        const QString base = scene();
        const bool hadDrawing = BaseNode::masterNode();
        begin(pending);
        const QString before = scene();
        const QString clipboardBefore = clipboard();
        const unsigned steps = session().undo.count();
        forgetLines();
        const bool succeeded = run(text);
        const unsigned made = session().undo.count() - steps;
        EXPECT_LE(ownErrors().size(), succeeded ? 0u : 1u);
        EXPECT_LE(made, succeeded ? 1u : 0u);
        if (!succeeded) {
            EXPECT_EQ(scene(), before);
            EXPECT_EQ(clipboard(), clipboardBefore);
        } else if (made == 1) {
            const QString after = scene();
            const bool pasteGoesOn = hadDrawing && pending != Pending::Stroke && drawing().hasStroke();
            EXPECT_TRUE(run("undo") && run("redo"));
            if (hadDrawing && !pasteGoesOn) {  // a new drawing comes back empty, as meant, and a paste not at all
                EXPECT_EQ(scene(), after);
            }
            EXPECT_TRUE(run("undo"));
        }
        giveUp();
        EXPECT_EQ(scene(), base);
        return succeeded;
    }

    struct Said {
        const char* command;
        const char* arguments;
        const char* message;  ///< null when the plug-in fails silently
    };
    void expectSaid(const std::vector<Said>& cases)
    {
        for (const Said& c : cases) {
            const std::string text = std::string(c.command) + c.arguments;
            EXPECT_FALSE(expectAllOrNothing(text, Pending::Nothing)) << text;
            EXPECT_EQ(ownErrors(), c.message ? Texts{c.message} : Texts()) << text;
        }
    }

    TestViews m_views;

private:
    static QString describeLayer(const Layer& layer)
    {
        QStringList parts = {QString::number(layer.id()),
                             layer.name(),
                             QString::number(layer.isActive()),
                             QString::number(layer.isVisible()),
                             QString::number(double(layer.opacity())),
                             QString::number(layer.state()),
                             QString::number(layer.currentFrameIndex())};
        for (int i = 0; i < layer.frameCount(); ++i) {
            const Frame& frame = *layer.frameAt(i);
            parts << QString("%1:%2").arg(frame.frameNumber()).arg(frame.picture().id());
        }
        return parts.join(" ");
    }
};

TEST_F(CommandRefusalsTest, WhateverIsTypedIsDoneAndUndoneAsAWholeOrNotDoneAtAll)
{
    for (const bool drawn : {false, true}) {
        if (drawn) {
            draw();
        }
        for (const FlagForms& flag : kFlags) {
            std::string done;
            int count = 0;
            for (const std::string& text : textsOf(flag)) {
                if (expectAllOrNothing(text, Pending::Nothing)) {
                    done += text + "\n";
                    ++count;
                }
            }
            EXPECT_EQ(count, drawn ? flag.done : flag.doneWithoutDrawing) << "done:\n" << done;
        }
    }
}

TEST_F(CommandRefusalsTest, DuringAStrokeWhatFailsLeavesTheStrokeAndWhatWasMadeForIt)
{
    draw();
    const struct {
        const char* text;
        const char* done;  // with each of what may be pending: + when it is done, - when it is refused
    } rows[] = {
        {"tqLumisketchNode", "---"},
        {"tqLumisketchNode -e", "---"},
        {"tqLumisketchLayer -e -act 1 persp", "---"},
        {"tqLumisketchLayer -e -act 9 persp", "---"},
        {"tqLumisketchLayer -del 9 persp", "---"},
        {"tqLumisketchLayer -mv 9 0 persp", "---"},
        {"tqLumisketchLayer -nc nowhere -mv 0 0 persp", "---"},
        {"tqLumisketchLayer -mva nowhere persp", "---"},
        {"tqLumisketchLayer -en Sky 9 persp", "---"},
        {"tqLumisketchLayer -en Sky 0 front", "---"},
        {"tqLumisketchLayer -es 7 0 persp", "---"},
        {"tqLumisketchLayer -add -ls 0 persp", "+++"},
        {"tqLumisketchLayer -da persp", "+++"},
        {"tqLumisketchLayer -mva top persp", "+++"},
        {"tqLumisketchFrame -ins", "+++"},
        {"tqLumisketchFrame -del", "+++"},
        {"tqLumisketchFrame -cut", "+++"},
        {"tqLumisketchFrame -pst", "+++"},
        {"tqLumisketchFrame -clr", "+++"},
        {"tqLumisketchFrame -dup", "-++"},
        {"tqLumisketchFrame -dup front", "---"},
        {"tqLumisketchFrame -retime 2147483647", "+--"},
        {"tqLumisketchFrame -mv 2 2 2", "---"},
        {"tqLumisketchFrame -mv 1 1 1", "---"},
        {"tqLumisketchFrame -sf", "+++"},
        {"tqLumisketchStroke top", "---"},
        {"tqLumisketchStroke nowhere", "---"},
    };
    for (const auto& row : rows) {
        std::string done;
        for (const Pending pending : {Pending::Stroke, Pending::PasteOnMadeFrame, Pending::PasteOnMadeLayer}) {
            done += expectAllOrNothing(row.text, pending) ? '+' : '-';
        }
        EXPECT_EQ(done, row.done) << row.text;
    }
}

TEST_F(CommandRefusalsTest, ALayerMadeForAFloatingPasteIsNotEditedUntilThePasteIsApplied)
{
    draw();
    drawing().setCurrentCamera("front");
    constexpr char kApplyFirst[] = "Apply or cancel the pasted region first";
    const struct {
        const char* arguments;
        const char* message;  // null when the plug-in fails silently
    } cases[] = {
        {"-e -act 0 front", nullptr},  // it is so already
        {"-en Sky 0 front", kApplyFirst},       {"-ev 0 0 front", kApplyFirst},
        {"-eo 0.5 0 front", kApplyFirst},       {"-es 1 0 front", kApplyFirst},
        {"-del 0 front", kApplyFirst},          {"-mv 0 1 front", kApplyFirst},
        {"-nc top -mv 0 0 front", kApplyFirst}, {"-ev 0 1 front", "Layer does not exist for camera (index): front (1)"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(expectAllOrNothing(kLayer + std::string(c.arguments), Pending::PasteOnMadeLayer)) << c.arguments;
        EXPECT_EQ(ownErrors(), c.message ? Texts{c.message} : Texts()) << c.arguments;
    }
    drawing().setCurrentCamera("persp");
    EXPECT_FALSE(expectAllOrNothing("tqLumisketchLayer -e -act 0 front", Pending::PasteOnMadeLayer));
    EXPECT_EQ(ownErrors(), Texts{kApplyFirst});
}

TEST_F(CommandRefusalsTest, SaysWhatIsWrong)
{
    draw();
    expectSaid({
        {kNode, "", "Node already exists"},
        {kNode, "-l -c persp", "Node already exists"},
        {kNode, "-e -l", "Invalid edit parameter"},
        {kNode, "-e -ex", "Invalid edit parameter"},
        {kNode, "-q -ex", "Invalid query parameter"},
        {kNode, "-q", "Invalid query parameter"},
        {kNode, "-noSuchFlag", nullptr},
        {kLayer, "-cnt", "Camera not specified"},
        {kLayer, "-add -ls 0", "Camera not specified"},
        {kLayer, "-cnt nowhere", "Camera does not exist: nowhere"},
        {kLayer, "-cnt box", "Camera does not exist: box"},
        {kLayer, "-cnt Persp", "Camera does not exist: Persp"},
        {kLayer, "-cnt \"\"", "Camera does not exist: "},
        {kLayer, "-e persp", "Invalid edit parameter"},
        {kLayer, "-e -en Sky 0 persp", "Invalid edit parameter"},
        {kLayer, "-e -act 2 persp", "Invalid layer index: 2"},
        {kLayer, "-e -act 0 front", "Invalid layer index: 0"},
        {kLayer, "-e -act 1 persp", nullptr},  // it is so already
        {kLayer, "-q -cnt persp", "Invalid query parameter"},
        {kLayer, "persp", "Invalid command parameters"},
        {kLayer, "-n Sky persp", "Invalid command parameters"},
        {kLayer, "-act 0 persp", "Invalid command parameters"},
        {kLayer, "-del 2 persp", nullptr},
        {kLayer, "-del -1 persp", nullptr},
        {kLayer, "-mv 2 0 persp", "Invalid layer: persp (2)"},
        {kLayer, "-nc top -mv 2 0 persp", "Invalid layer: persp (2)"},
        {kLayer, "-nc nowhere -mv 0 0 persp", "Camera does not exist: nowhere"},
        {kLayer, "-nc persp -mv 0 2 persp", nullptr},
        {kLayer, "-mva persp persp", nullptr},
        {kLayer, "-mva top front", nullptr},
        {kLayer, "-mva box persp", "Camera does not exist: box"},
        {kLayer, "-en Sky 2 persp", "Layer does not exist for camera (index): persp (2)"},
        {kLayer, "-qn 2 persp", "Layer does not exist for camera (index): persp (2)"},
        {kLayer, "-ev 1 4 top", "Layer does not exist for camera (index): top (4)"},
        {kLayer, "-qv 4 top", "Layer does not exist for camera (index): top (4)"},
        {kLayer, "-eo 0.5 2147483647 persp", "Layer does not exist for camera (index): persp (2147483647)"},
        {kLayer, "-qo 0 front", "Layer does not exist for camera (index): front (0)"},
        {kLayer, "-es 1 9 persp", "Layer does not exist for camera (index): persp (1)"},  // the state for the index
        {kLayer, "-qs 9 persp", "Layer does not exist for camera (index): persp (9)"},
        {kLayer, "-es 5 0 persp", "Invalid state value: 5"},
        {kLayer, "-es 3 9 persp", "Invalid state value: 3"},
        {kFrame, "-ins nowhere", "Camera does not exist: nowhere"},
        {kFrame, "-sf box", "Camera does not exist: box"},
        {kFrame, "-retime 2 nowhere", "Camera does not exist: nowhere"},
        {kFrame, "-move 2 1 2", "Move Failed. A frame already exists at time 4"},
        {kFrame, "-move -1 2 2", "Move Failed. A frame already exists at time 1"},
        {kFrame, "-move 0 1 3", nullptr},
        {kFrame, "-move 2147483647 1 2", "Frame number out of range"},
        {kFrame, "-retime 2147483647", "Frame number out of range"},
        {kFrame, "-retime 2147483647 -relative", "Frame number out of range"},
        {kFrame, "", nullptr},
        {kFrame, "-relative -moveToNext", nullptr},
        {kFrame, "-dup front", nullptr},
        {kFrame, "-e -ins", nullptr},
        {kFrame, "-q -ins", nullptr},
        {kStroke, "", "Camera not specified"},
        {kStroke, "nowhere", "Camera does not exist: nowhere"},
        {kStroke, "persp", nullptr},
        {kStroke, "-fa persp", nullptr},
    });
}

TEST_F(CommandRefusalsTest, SaysWhatIsMissingInASceneWithoutADrawing)
{
    expectSaid({
        {kNode, "-q -c", nullptr},
        {kNode, "-refresh", nullptr},
        {kNode, "-rg", nullptr},
        {kLayer, "-add -ls 1 persp", "Failed to add layer. Node does not exist."},
        {kLayer, "-ins 0 persp", "Failed to insert layer. Node does not exist."},
        {kLayer, "-cnt persp", "Node not found"},
        {kLayer, "-e -act 0 persp", "Node not found"},
        {kLayer, "-ifw a b persp", "Node not found"},
        {kLayer, "persp", "Node not found"},
        {kLayer, "-cnt nowhere", "Camera does not exist: nowhere"},
        {kFrame, "-ins", "Failed to insert key. Node does not exist."},
        {kFrame, "-cp", "Node not found"},
        {kFrame, "-sf", "Node not found"},
        {kFrame, "-mv 1 1 1", "Node not found"},
        {kFrame, "", "Node not found"},
        {kStroke, "", "Camera not specified"},
        {kStroke, "nowhere", "Camera does not exist: nowhere"},
        {kStroke, "persp", nullptr},
    });
}

TEST_F(CommandRefusalsTest, ARangeTypedByAccidentIsRefusedAndCopiesKeepTheirNumbers)
{
    session().scene.highlightSliderRange({1, 400000000});
    constexpr char kTooMany[] = "Cannot add more than 1000000 frames at a time";
    constexpr char kTooFar[] = "Frame number out of range";
    expectSaid({{kNode, "-l -c persp -f", kTooMany}});
    draw();
    session().scene.highlightSliderRange({-2000000000, 2000000000});
    expectSaid({{kFrame, "-ins", kTooMany}, {kFrame, "-ins front", kTooMany}});
    for (const char* text : {"tqLumisketchFrame -pst", "tqLumisketchFrame -del", "tqLumisketchFrame -clr"}) {
        EXPECT_TRUE(expectAllOrNothing(text, Pending::Nothing)) << text;
    }
    drawing().activeLayer("persp")->addFrame(timeOfFrame(1000000000));  // 3000000000 from the span's start
    expectSaid({{kFrame, "-cp", kTooFar}, {kFrame, "-cut", kTooFar}});
    session().scene.highlightSliderRange({1, 5});
    ASSERT_TRUE(run("tqLumisketchFrame -cp"));
    session().scene.highlightSliderRange({2147483646, 2147483647});
    expectSaid({{kFrame, "-pst", kTooFar}});
}

}  // namespace
