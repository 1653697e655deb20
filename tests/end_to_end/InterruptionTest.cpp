// What the hand is in the middle of, and everything that can come between: real pointer, real keys, real windows.

#include "support/LiveWorkbench.h"
#include "support/QtPrint.h"
#include "support/SceneText.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QWidget>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <utility>

using support::LiveWorkbench;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";
const QPoint kLeg(50, 30);          // of a stroke that has two, in screen pixels
const QPoint kDown(0, 10);          // of a region's way, the first half
const qint64 kLongestWait = 20000;  // milliseconds
const unsigned long kBetweenQuestions = 20;

/// The layers, their keys and pictures as the scene holds them.
struct Drawing {
    QByteArray text;
    int ink = 0;     ///< pixels
    int lowest = 0;  ///< row with ink, of all pictures

    /// Without ink it does not matter what it is that is empty.
    bool operator==(const Drawing& other) const { return text == other.text || ink + other.ink == 0; }
    /// The text without its pictures.
    QByteArray keys() const
    {
        QString keys(text);
        keys.remove(QRegularExpression("\"89504e[0-9a-f]*\""));
        return keys.toLatin1();
    }
};

Drawing drawingOf(const QByteArray& scene)
{
    Drawing drawing;
    drawing.text = support::drawingText(scene);
    for (const QImage& picture : support::framePictures(drawing.text)) {
        for (int row = 0; row < picture.height(); ++row) {
            const int ink = support::inkPixels(picture.copy(0, row, picture.width(), 1));
            drawing.ink += ink;
            drawing.lowest = ink > 0 ? std::max(drawing.lowest, row) : drawing.lowest;
        }
    }
    return drawing;
}

/// The program with a drawing that has one stroke from its file, which all have in common, and one step since.
class Stage {
public:
    explicit Stage(const QString& file)
        : m_file(file), m_host(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"})
    {
        run("window -e -widthHeight 480 380 $gMainWindow");  // quick to paint
        run("camera -n shot; rename shot1 shot; lookThru modelPanel4 shot; tqLumisketchUtil -pencilTool");
        m_host.settle();
        run("tqLumisketchUtil -pencilOptions 10 100 0; tqLumisketchUtil -textOptions 40 100 \"DejaVu Sans\"");
        if (!QFile::exists(m_file)) {
            stroke(QPoint(0, -50));
            save(m_file);
        }
        m_window = focusedWindow();
        m_other.setGeometry(1000, 700, 120, 80);
        m_other.show();
    }

    LiveWorkbench& host() { return m_host; }
    const QString& file() const { return m_file; }
    /// Runs a text that must not fail.
    QString run(const QString& text)
    {
        const QString answer = m_host.run(text);
        EXPECT_FALSE(answer.contains("Error")) << text.toStdString() << ": " << answer.toStdString();
        return answer;
    }

    /// The state every cell begins with. tool: the text that chooses it; time: of the scene.
    void reset(const QString& tool, int time)
    {
        m_panel = "modelPanel4";
        m_hand = QPoint();
        m_tool = tool;
        m_time = time;
        run(QString("file -force -open \"%1\"; lookThru modelPanel4 shot").arg(m_file));
        goBackInTime();
        run("tqLumisketchUtil -pencilOptions 10 100 0");
        chooseToolAgain();
        run("tqLumisketchLayer -editOpacity 0.5 0 shot");
        m_host.settle();
        m_untouched = m_untouched.ink ? m_untouched : drawing();
    }
    /// The drawing then.
    const Drawing& untouched() const { return m_untouched; }
    void chooseToolAgain() { runUnrecorded(m_tool); }
    void goBackInTime() { runUnrecorded(QString("play -state off; currentTime %1").arg(m_time)); }
    /// Does not become a step that can be undone.
    void runUnrecorded(const QString& text)
    {
        run(QString("undoInfo -stateWithoutFlush off; %1; undoInfo -stateWithoutFlush on").arg(text));
        m_host.settle();
    }

    Drawing drawing()
    {
        QFile file(m_folder.filePath("now.ma"));
        file.remove();
        save(file.fileName());
        return drawingOf(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }

    /// Where the hand works.
    QPoint centre() { return m_host.viewRect(m_panel).center() + m_hand; }
    void putHand(const QPoint& offset) { m_hand = offset; }
    void save(const QString& path)
    {
        m_host.run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(path));
    }
    void stroke(const QPoint& offset)
    {
        const QPoint from = centre() + offset;
        m_host.hold(from - kLeg, from);
        m_host.moveTo(from + kLeg);
        m_host.letGo();
    }
    /// A view in a window of its own, in which the pointer works from now on.
    void openFloatingView()
    {
        run("window -widthHeight 420 320 -topLeftCorner 40 700 floatWindow; paneLayout floatPanes;"
            "modelPanel floatPanel; lookThru floatPanel shot; showWindow floatWindow");
        m_host.settle();
        m_panel = "floatPanel";
    }
    void closeFloatingView()
    {
        run("deleteUI floatWindow");
        m_panel = "modelPanel4";
    }

    /// Draws the outline of a region that holds all ink, and chooses from the menu that a right click in it opens.
    void select()
    {
        const QRect view = m_host.viewRect(m_panel);
        m_host.hold(view.topLeft() + QPoint(20, 10), view.bottomRight() - QPoint(20, 60));
        m_host.letGo();
    }
    void choose(const QString& entry)
    {
        m_host.rightClick(centre());
        m_host.click(m_host.menuEntryRect(entry).center());
    }
    bool showsOutline()
    {
        const QImage view = m_host.screenshot(m_host.viewRect(m_panel));
        const auto* const pixels = reinterpret_cast<const QRgb*>(view.constBits());
        return std::any_of(pixels, pixels + view.width() * view.height(),
                           [](QRgb c) { return qRed(c) > 150 && qGreen(c) < 60 && qBlue(c) < 60; });
    }

    void type(const QStringList& keys)
    {
        if (!keys.isEmpty()) {
            tool(QStringList("key") + keys);
        }
    }
    void keyDown(const QString& name) { tool({"keydown", name}); }
    void keyUp(const QString& name) { tool({"keyup", name}); }
    void rightClick() { tool({"click", "3"}); }
    void loseFocus()
    {
        tool({"windowfocus", QString::number(m_other.winId())});
        waitUntilActive(false);
    }
    void giveFocusBack()
    {
        tool({"windowfocus", m_window});
        waitUntilActive(true);
    }
    void hide()
    {
        tool({"windowunmap", m_window});
        waitUntilActive(false);
    }
    void show()
    {
        tool({"windowmap", m_window});
        giveFocusBack();
    }

private:
    /// The toolkit is slow to say so, in case the focus comes back.
    void waitUntilActive(bool active)
    {
        QElapsedTimer waited;
        waited.start();
        while (m_host.run("workbenchView -query -active -panel " + m_panel) != QString::number(active)) {
            ASSERT_TRUE(m_host.isRunning() && waited.elapsed() < kLongestWait);
            QThread::msleep(kBetweenQuestions);
        }
    }
    void tool(const QStringList& arguments)
    {
        QProcess::execute("xdotool", arguments);
        m_host.settle();
    }
    static QString focusedWindow()
    {
        QProcess process;
        process.start("xdotool", {"getwindowfocus"});
        process.waitForFinished();
        return QString(process.readAll()).trimmed();
    }

    const QString m_file;
    QTemporaryDir m_folder;
    LiveWorkbench m_host;
    QWidget m_other;
    QString m_window;
    QString m_panel = "modelPanel4";
    QPoint m_hand;
    QString m_tool;
    int m_time = 1;
    Drawing m_untouched;
};

/// What the hand does: a first half, which something may follow, a second, and what ends it once all is as it was.
struct Gesture {
    const char* name;
    const char* tool;  ///< the text that chooses it
    int Drawing::*measure;
    int time;  ///< of the scene
    void (*begin)(Stage& stage);
    void (*finish)(Stage& stage);
    QStringList end;  ///< keys
};

void rest(Stage&) {}

void point(Stage& stage)
{
    stage.host().moveTo(stage.centre());
}

void holdStroke(Stage& stage)
{
    const QPoint from = stage.centre();
    stage.host().hold(from - kLeg, from);
}

void finishStroke(Stage& stage)
{
    stage.host().moveTo(stage.centre() + kLeg);
    stage.host().letGo();
}

void beginText(Stage& stage)
{
    stage.host().click(stage.centre());
    stage.type({"shift+h", "i"});
}

void finishText(Stage& stage)
{
    stage.type({"l", "o", "Escape"});
}

void beginDrag(Stage& stage)
{
    stage.keyDown("b");
    stage.host().hold(stage.centre(), stage.centre() + QPoint(25, 0));
}

void finishDrag(Stage& stage)
{
    stage.host().moveTo(stage.centre() + QPoint(50, 0));
    stage.host().letGo();
    stage.keyUp("b");
}

void holdRegion(Stage& stage)
{
    stage.select();
    stage.host().key("Return");
    EXPECT_TRUE(stage.showsOutline());
    stage.host().hold(stage.centre(), stage.centre() + kDown);
}

/// In a view that has changed a drag goes on from where the pointer is when it moves again.
void finishRegion(Stage& stage)
{
    stage.host().moveTo(stage.centre() + kDown + QPoint(1, 0));
    stage.host().moveTo(stage.centre() + 2 * kDown);
    stage.host().letGo();
}

void moveRegion(Stage& stage)
{
    holdRegion(stage);
    finishRegion(stage);
}

/// Into a frame that has to be made for it.
void pasteRegion(Stage& stage)
{
    stage.runUnrecorded("currentTime 1");
    stage.select();
    stage.choose("Copy");
    stage.goBackInTime();
    stage.choose("Paste and Transform");
    EXPECT_TRUE(stage.showsOutline());
}

enum Column { kStroke, kText, kDrag, kRegion, kHeldRegion, kPaste, kColumns };
const char kPencil[] = "tqLumisketchUtil -pencilTool";
const char kTransform[] = "tqLumisketchUtil -transform";
// A key that was let go elsewhere counts as held until it is let go here. Where no region floats any more, the one that
// Enter takes up is taken back.
const QStringList kLetGo = {"b"}, kEndText = {"Escape"}, kPutDown = {"Return", "BackSpace"};
const Gesture kHandsOff = {"nothing", "setToolTo $gSelect", &Drawing::ink, 1, point, rest, {}};
const Gesture kGestures[kColumns] = {
    {"stroke", kPencil, &Drawing::ink, 1, holdStroke, finishStroke, {}},
    {"text entry", "tqLumisketchUtil -textTool", &Drawing::ink, 1, beginText, finishText, kEndText},
    {"size drag", kPencil, &Drawing::ink, 1, beginDrag, finishDrag, kLetGo},
    {"moved region", kTransform, &Drawing::lowest, 1, moveRegion, rest, kPutDown},
    {"region in mid-drag", kTransform, &Drawing::lowest, 1, holdRegion, finishRegion, kPutDown},
    {"pasted region", kTransform, &Drawing::ink, 7, pasteRegion, rest, kPutDown},
};

/// How much of what the hand did is there: nothing but what the interruption alone leaves, what the hand did before it
/// was interrupted, all of it; or it cannot do both.
const std::map<char, const char*> kFates = {{'-', "none"}, {'h', "half"}, {'a', "all"}, {' ', ""}};

using Act = std::function<void(Stage&)>;

Act script(const char* text)
{
    return [text](Stage& stage) {
        stage.run(text);
        stage.host().settle();
    };
}

Act key(const char* chord)
{
    return [chord](Stage& stage) { stage.host().key(chord); };
}

Act both(const Act& first, const Act& second)
{
    return [first, second](Stage& stage) {
        first(stage);
        second(stage);
    };
}

void clickSlider(Stage& stage)
{
    stage.host().click(stage.host().controlRect("timeControl1").center());
}

void save(Stage& stage)
{
    EXPECT_TRUE(stage.drawing() == stage.untouched()) << "not a part of what is under way is in the file";
}

void cancelNew(Stage& stage)
{
    stage.run("file -modified on");
    stage.host().key("ctrl+n");
    stage.host().key("Escape");
}

void open(Stage& stage)
{
    stage.run(QString("file -force -open \"%1\"").arg(stage.file()));
}

/// That the button was let go elsewhere shows when the pointer moves here again.
void showAgain(Stage& stage)
{
    stage.show();
    stage.host().moveTo(stage.centre() + kLeg + QPoint(0, 1));
}

struct Interruption {
    const char* name;
    Act happen;
    const char* fates;      ///< one for each column
    Act mend = nullptr;     ///< before the hand ends what it did
    Act prepare = nullptr;  ///< before it begins
};

const Act kEnterAtAnotherTime = both(script("currentTime 5"), key("Return"));
const Act kFourViewsAndOne = both(key("space"), key("space"));
const Act kFocusElsewhereAndBack = both(&Stage::loseFocus, &Stage::giveFocusBack);
const Act kHideAndShow = both(&Stage::hide, &Stage::show);
const Act kTimeAgain = &Stage::goBackInTime;
const Act kShotAgain = script("lookThru modelPanel4 shot");
const Act kSizeAgain = script("window -e -widthHeight 480 380 $gMainWindow");
const Act kDeferredDelete = script("evalDeferred \"delete lumisketch\"");
const Act kSmaller = [](Stage& stage) { stage.runUnrecorded("setAttr shotShape.overscan 2"); };
const Act kLarger = [](Stage& stage) { stage.runUnrecorded("setAttr shotShape.overscan 1"); };
const Act kToolAgain = &Stage::chooseToolAgain;
const Act kTwoLayers = script("tqLumisketchLayer -addLayer -name two shot");
const Act kTwoFrames = script("currentTime 5; tqLumisketchFrame -insert; currentTime 1");
const Act kUndo = script("undo");

const Interruption kInterruptions[] = {
    {"nothing", rest, "aaaaaa"},
    {"another tool, by script", script("setToolTo $gSelect"), "hhh---", kToolAgain},
    {"another tool, by key", key("q"), "hah---", kToolAgain},
    {"the eraser", script("tqLumisketchUtil -eraserTool"), "hhh---", kToolAgain},
    {"undo, by key", key("ctrl+z"), "a a---"},
    {"undo, typed", key("ctrl+z"), " a    ", nullptr, kUndo},
    {"undo, by script", script("undo"), "aaa---"},
    {"redo, by key", key("ctrl+y"), "a a---", nullptr, kUndo},
    {"redo, by script", script("redo"), "aaa---", nullptr, kUndo},
    {"Enter", key("Return"), "a aaha"},
    {"Backspace", key("BackSpace"), "a a---"},
    {"another time, by key", key("alt+period"), "aaaaaa", kTimeAgain},
    {"another time, by script", script("currentTime 5"), "aaaaaa", kTimeAgain},
    {"another time, by slider", clickSlider, " a a a", kTimeAgain},
    {"another time and Enter", kEnterAtAnotherTime, "a a---", kTimeAgain},
    {"the drawing before", script("tqLumisketchFrame -stepBack"), "aaaaaa", kTimeAgain, kTwoFrames},
    {"playback", script("play -state on"), "aaaaaa", kTimeAgain},
    {"saved", save, "aaaaaa"},
    {"node deleted", script("delete lumisketch"), "--a---"},
    {"shape deleted", script("delete lumisketchShape"), "--a---"},
    {"node deleted, idle", kDeferredDelete, "--a---"},
    {"layer deleted", script("tqLumisketchLayer -delete 0 shot"), "--a---"},
    {"layer added", script("tqLumisketchLayer -addLayer -layerState 0 shot"), "aaa---"},
    {"layer activated", script("tqLumisketchLayer -edit -active 1 shot"), "aaa---", nullptr, kTwoLayers},
    {"layer edited", script("tqLumisketchLayer -editOpacity 0.7 0 shot"), "aaa---"},
    {"frame deleted", script("tqLumisketchFrame -delete shot"), "--a---"},
    {"frames moved", script("tqLumisketchFrame -move 3 1 2 shot"), "--a---"},
    {"camera deleted", script("delete shot"), "--a---"},
    {"camera renamed", script("rename shot other"), "--a---"},
    {"another camera", script("lookThru modelPanel4 front"), "aaaaaa", kShotAgain},
    {"smaller picture", kSmaller, "aaaaaa", kLarger},
    {"New", script("file -force -new"), "--a---"},
    {"New by key, cancelled", cancelNew, "hhhaha"},
    {"Open", open, "--a---", kShotAgain},
    {"window resized", script("window -e -wh 540 420 $gMainWindow"), "aaaaaa", kSizeAgain},
    {"four views and one", kFourViewsAndOne, "aaaaaa"},
    {"view destroyed", &Stage::closeFloatingView, "hhh---", nullptr, &Stage::openFloatingView},
    {"focus lost, given back", kFocusElsewhereAndBack, "hahaha"},
    {"focus lost", &Stage::loseFocus, "hhhaha", &Stage::giveFocusBack},
    {"window hidden", &Stage::hide, "hhhaha", showAgain},
    {"window hidden and shown", kHideAndShow, "hahaha"},
    {"right button", &Stage::rightClick, "a a a "},
};

/// The drawing after an interruption, one undo later, and with that redone.
struct Outcome {
    explicit Outcome(Stage& stage) : after(stage.drawing())
    {
        stage.run("undo");
        undone = stage.drawing();
        stage.run("redo");
        redone = stage.drawing();
    }
    Drawing after;
    Drawing undone;
    Drawing redone;
};

/// What becomes of one gesture through one interruption.
class Trial {
public:
    Trial(Stage& stage, const Gesture& gesture, const Interruption& interruption)
        : m_stage(stage), m_gesture(gesture), m_alone(withoutHand(interruption)), m_with(perform(gesture, interruption))
    {}

    /// What the gesture added: pixels of ink, or rows that the ink was moved by.
    int gained() const { return m_with.after.*m_gesture.measure - m_alone.after.*m_gesture.measure; }

    /// What is there is in the frame it was begun in, and one step; what is not has left everything as it was.
    void expectWholeSteps()
    {
        if (gained() == 0) {
            EXPECT_TRUE(m_with.after == m_alone.after);
            EXPECT_TRUE(m_with.undone == m_alone.undone);
            EXPECT_TRUE(m_with.redone == m_alone.redone);
        } else {
            // What is done while the button is held is one step with what the button does.
            EXPECT_TRUE(m_with.undone == m_alone.after || m_with.undone == m_alone.undone);
            EXPECT_EQ(m_with.after.keys() == m_alone.after.keys(), m_gesture.begin != pasteRegion);
            EXPECT_TRUE(m_with.redone == m_with.after);
        }
    }

    /// What the next gesture adds, with no more ado than a second try where there was nothing to draw on.
    int gainOfTheNext()
    {
        if (gained() == 0) {
            m_stage.run("undo; if (`objExists shot`) lookThru modelPanel4 shot");  // what was deleted is there again
        }
        m_stage.putHand(QPoint(40, 15));
        const Drawing before = m_stage.drawing();
        const bool isRegion = &m_gesture >= &kGestures[kRegion] && before.ink > 0;
        const bool isText = &m_gesture == &kGestures[kText];
        const Gesture& next = kGestures[isRegion ? kRegion : isText ? kText : kStroke];
        if (before.ink == 0) {
            m_stage.run(next.tool);
        }
        const bool hasNode = m_stage.run("tqLumisketchNode -exists") == "1";
        for (int round = 0; round < (hasNode ? 1 : 2); ++round) {
            next.begin(m_stage);
            next.finish(m_stage);
        }
        m_stage.type(next.end);
        return m_stage.drawing().*next.measure - before.*next.measure;
    }

private:
    /// The same for all gestures of one time, for it is the same drawing.
    const Outcome& withoutHand(const Interruption& interruption)
    {
        static std::map<std::pair<const Interruption*, int>, Outcome> s_known;
        const std::pair<const Interruption*, int> which(&interruption, m_gesture.time);
        const auto known = s_known.find(which);
        return (known != s_known.end() ? known : s_known.emplace(which, perform(kHandsOff, interruption)).first)
            ->second;
    }
    Outcome perform(const Gesture& gesture, const Interruption& interruption)
    {
        m_stage.reset(gesture.tool, m_gesture.time);
        if (interruption.prepare) {
            interruption.prepare(m_stage);
        }
        gesture.begin(m_stage);
        interruption.happen(m_stage);
        gesture.finish(m_stage);
        if (interruption.mend) {
            interruption.mend(m_stage);
        }
        m_stage.type(gesture.end);
        EXPECT_FALSE(m_stage.showsOutline());
        return Outcome(m_stage);
    }

    Stage& m_stage;
    const Gesture& m_gesture;
    const Outcome& m_alone;
    const Outcome m_with;
};

/// Half a size drag is two fifths of it, half a stroke the half; where exactly a stroke ends differs a little.
char fateOf(int done, int all)
{
    return done == 0 ? '-' : done < all * 0.7 ? 'h' : 'a';
}

class Interruptions : public testing::TestWithParam<Column> {
protected:
    /// What happened, as a table in the file that the environment names, if it names one.
    static void TearDownTestSuite()
    {
        QFile table(qEnvironmentVariable("LUMISKETCH_INTERRUPTIONS"));
        if (table.fileName().isEmpty() || !table.open(QIODevice::WriteOnly)) {
            return;
        }
        table.write("Left of what the hand did, as one step if anything is; the tool worked on each time.\n\n"
                    "| what came between |");
        for (const Gesture& gesture : kGestures) {
            table.write(QByteArray(" ") + gesture.name + " |");
        }
        table.write("\n|---" + QByteArray("|---").repeated(kColumns) + "|\n");
        for (const Interruption& interruption : kInterruptions) {
            QString line = QString("| %1 |").arg(interruption.name);
            for (const char fate : s_happened[&interruption - kInterruptions]) {
                line += QString(" %1 |").arg(kFates.at(fate));
            }
            table.write((line + '\n').toUtf8());
        }
    }

    static char s_happened[std::size(kInterruptions)][kColumns];
};

char Interruptions::s_happened[std::size(kInterruptions)][kColumns];

}  // namespace

TEST_P(Interruptions, LeaveWhatTheTableSaysAndAToolThatWorks)
{
    static const QTemporaryDir s_folder;
    Stage stage(s_folder.filePath("base.ma"));
    const Column column = GetParam();
    const Gesture& gesture = kGestures[column];
    int all = 0;  // of it, when nothing comes between
    for (const Interruption& interruption : kInterruptions) {
        char& fate = s_happened[&interruption - kInterruptions][column];
        const char expected = interruption.fates[column];
        fate = expected;
        if (expected == ' ') {
            continue;
        }
        SCOPED_TRACE(std::string(interruption.name) + " during a " + gesture.name);
        const int messages = stage.host().output().count("Error: ");
        Trial trial(stage, gesture, interruption);
        trial.expectWholeSteps();
        const int next = trial.gainOfTheNext();
        EXPECT_GT(next, 0) << "the tool works on";
        EXPECT_LE(stage.host().output().count("Error: "), messages + 1) << "it is said once";
        // A size shows in what is drawn with it.
        const int done = column == kDrag ? next - stage.untouched().ink : trial.gained();
        all = all ? all : done;
        fate = fateOf(done, all);
        EXPECT_STREQ(kFates.at(fate), kFates.at(expected)) << done << " of " << all;
        ASSERT_TRUE(stage.host().isRunning()) << stage.host().output().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(OfA, Interruptions, testing::Values(kStroke, kText, kDrag, kRegion, kHeldRegion, kPaste),
                         [](const testing::TestParamInfo<Column>& info) {
                             return QString(kGestures[info.param].name).remove(QRegularExpression("\\W")).toStdString();
                         });
