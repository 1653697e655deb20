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

#include <functional>
#include <iterator>

using support::LiveWorkbench;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";
const QPoint kLeg(50, 30);          // of a stroke that has two, in screen pixels
const qint64 kLongestWait = 20000;  // milliseconds
const unsigned long kBetweenQuestions = 20;

/// The layers, their keys and pictures as the scene holds them.
struct Drawing {
    QByteArray text;
    int ink = 0;  ///< pixels

    bool operator==(const Drawing& other) const { return text == other.text; }
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
    // The line it begins with names the camera that is current, which a press changes without a step.
    const int begin = scene.indexOf("\n\t\t", scene.indexOf("setAttr \".ld\""));
    Drawing drawing;
    drawing.text = begin < 0 ? QByteArray() : scene.mid(begin, scene.indexOf(';', begin) - begin);
    for (const QImage& picture : support::framePictures(drawing.text)) {
        drawing.ink += support::inkPixels(picture);
    }
    return drawing;
}

/// The program with a drawing that has one stroke from its file, and one step since.
class Stage {
public:
    Stage() : m_host(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"})
    {
        run("window -e -widthHeight 480 380 $gMainWindow");  // quick to paint
        run("camera -n shot; rename shot1 shot; lookThru modelPanel4 shot; tqLumisketchUtil -pencilTool");
        m_host.settle();
        run("tqLumisketchUtil -pencilOptions 10 100 0; tqLumisketchUtil -textOptions 40 100 \"DejaVu Sans\"");
        stroke(QPoint(0, -50));
        m_fromFile = drawing();
        QFile::copy(m_folder.filePath("now.ma"), path());
        reset("-pencilTool");
        m_before = drawing();
        m_window = focusedWindow();
        m_other.setGeometry(1000, 700, 120, 80);
        m_other.show();
    }

    LiveWorkbench& host() { return m_host; }
    QString path() const { return m_folder.filePath("base.ma"); }
    /// Runs a text that must not fail.
    QString run(const QString& text)
    {
        const QString answer = m_host.run(text);
        EXPECT_FALSE(answer.contains("Error")) << text.toStdString() << ": " << answer.toStdString();
        return answer;
    }

    /// The state every cell begins with. tool: a flag of the command that chooses it.
    void reset(const QString& tool)
    {
        run(QString("file -force -open \"%1\"; currentTime 1; lookThru modelPanel4 shot; tqLumisketchUtil %2;"
                    "tqLumisketchUtil -pencilOptions 10 100 0; tqLumisketchLayer -editOpacity 0.5 0 shot")
                .arg(path(), tool));
        m_host.settle();
        m_panel = "modelPanel4";
        m_hand = QPoint();
    }
    const Drawing& fromFile() const { return m_fromFile; }
    const Drawing& before() const { return m_before; }

    Drawing drawing()
    {
        const QString now = m_folder.filePath("now.ma");
        QFile::remove(now);
        m_host.run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(now));
        QFile file(now);
        return drawingOf(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }

    /// Where the hand works.
    QPoint centre() { return m_host.viewRect(m_panel).center() + m_hand; }
    void putHand(const QPoint& offset) { m_hand = offset; }
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

    void type(const QStringList& keys) { tool(QStringList("key") + keys); }
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
    void show() { tool({"windowmap", m_window}); }

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

    QTemporaryDir m_folder;
    LiveWorkbench m_host;
    QWidget m_other;
    QString m_window;
    QString m_panel = "modelPanel4";
    QPoint m_hand;
    Drawing m_fromFile;
    Drawing m_before;
};

/// What the hand does: a first half, which something may follow, and a second.
struct Gesture {
    const char* name;
    const char* tool;  ///< flag of the command that chooses it
    void (*begin)(Stage& stage);
    void (*finish)(Stage& stage);
};

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

enum Column { kStroke, kText, kDrag };
const Gesture kGestures[] = {
    {"stroke", "-pencilTool", holdStroke, finishStroke},
    {"text entry", "-textTool", beginText, finishText},
    {"size drag", "-pencilTool", beginDrag, finishDrag},
};

/// How much of what the hand did is there: nothing, what it did before it was interrupted, all of it. Impossible is
/// what the hand cannot do both.
enum Fate { kNone, kHalf, kAll, kImpossible };
const char* const kFateNames[] = {"none", "half", "all", ""};

/// What an interruption leaves of the drawing when the hand does nothing.
enum class Leaves { All, AStepLess, NothingUntilUndo, Nothing };

using Act = std::function<void(Stage&)>;

Act script(const char* text)
{
    return [text](Stage& stage) {
        stage.run(text);
        stage.host().settle();
    };
}

/// A change of the scene that is not among the steps to be undone.
Act quietly(const char* text)
{
    return [text](Stage& stage) {
        stage.run(QString("undoInfo -stateWithoutFlush off; %1; undoInfo -stateWithoutFlush on").arg(text));
        stage.host().settle();
    };
}

Act key(const char* chord)
{
    return [chord](Stage& stage) { stage.host().key(chord); };
}

void clickSlider(Stage& stage)
{
    stage.host().click(stage.host().controlRect("timeControl1").center());
}

void cancelNew(Stage& stage)
{
    stage.run("file -modified on");
    stage.host().key("ctrl+n");
    stage.host().key("Escape");
}

void open(Stage& stage)
{
    stage.run(QString("file -force -open \"%1\"").arg(stage.path()));
}

void showFourViewsAndOne(Stage& stage)
{
    stage.host().key("space");
    stage.host().key("space");
}

void focusElsewhereAndBack(Stage& stage)
{
    stage.loseFocus();
    stage.giveFocusBack();
}

/// A text is open until it is ended here, and a key that was let go elsewhere counts as held until it is let go here.
void giveFocusBack(Stage& stage)
{
    stage.giveFocusBack();
    stage.host().key("Escape");
    stage.host().key("b");
}

/// That the button was let go elsewhere shows when the pointer moves here again.
void showAgain(Stage& stage)
{
    stage.show();
    giveFocusBack(stage);
    stage.host().moveTo(stage.centre() + kLeg + QPoint(0, 1));
}

void hideAndShow(Stage& stage)
{
    stage.hide();
    stage.show();
    stage.giveFocusBack();
}

struct Interruption {
    const char* name;
    Act happen;
    Leaves leaves;
    Fate fates[3];          ///< of a stroke, a text entry, a size drag
    Act mend = nullptr;     ///< before the hand goes on with the next one
    Act prepare = nullptr;  ///< before it begins
};

const Act kDrawAgain = script("tqLumisketchUtil -draw");
const Act kPencilAgain = script("tqLumisketchUtil -pencilTool");
const Act kFirstFrame = quietly("play -state off; currentTime 1");
const Act kShotAgain = script("lookThru modelPanel4 shot");
const Act kSizeAgain = script("window -e -widthHeight 480 380 $gMainWindow");
const Act kDeferredDelete = script("evalDeferred \"delete lumisketch\"");
const Act kSmaller = quietly("setAttr shotShape.overscan 2");

const Interruption kInterruptions[] = {
    {"nothing", [](Stage&) {}, Leaves::All, {kAll, kAll, kAll}},
    {"another tool, by script", script("setToolTo $gSelect"), Leaves::All, {kHalf, kHalf, kHalf}, kDrawAgain},
    {"another tool, by key", key("q"), Leaves::All, {kHalf, kAll, kHalf}, kDrawAgain},
    {"the eraser", script("tqLumisketchUtil -eraserTool"), Leaves::All, {kHalf, kHalf, kHalf}, kPencilAgain},
    {"undo, by key", key("ctrl+z"), Leaves::AStepLess, {kAll, kImpossible, kAll}},
    {"undo, typed", key("ctrl+z"), Leaves::All, {kImpossible, kAll, kImpossible}},
    {"undo, by script", script("undo"), Leaves::AStepLess, {kAll, kAll, kAll}},
    {"another time, by key", key("alt+period"), Leaves::All, {kAll, kAll, kAll}, kFirstFrame},
    {"another time, by script", script("currentTime 5"), Leaves::All, {kAll, kAll, kAll}, kFirstFrame},
    {"another time, by slider", clickSlider, Leaves::All, {kImpossible, kAll, kImpossible}, kFirstFrame},
    {"playback", script("play -state on"), Leaves::All, {kAll, kAll, kAll}, kFirstFrame},
    {"node deleted", script("delete lumisketch"), Leaves::NothingUntilUndo, {kNone, kNone, kAll}},
    {"shape deleted", script("delete lumisketchShape"), Leaves::NothingUntilUndo, {kNone, kNone, kAll}},
    {"node deleted, idle", kDeferredDelete, Leaves::NothingUntilUndo, {kNone, kNone, kAll}},
    {"layer deleted", script("tqLumisketchLayer -delete 0 shot"), Leaves::NothingUntilUndo, {kNone, kNone, kAll}},
    {"frame deleted", script("tqLumisketchFrame -delete shot"), Leaves::NothingUntilUndo, {kNone, kNone, kAll}},
    {"camera deleted", script("delete shot"), Leaves::All, {kNone, kNone, kAll}},
    {"camera renamed", script("rename shot other"), Leaves::All, {kNone, kNone, kAll}},
    {"another camera", script("lookThru modelPanel4 front"), Leaves::All, {kAll, kAll, kAll}, kShotAgain},
    {"smaller picture", kSmaller, Leaves::All, {kAll, kAll, kAll}, quietly("setAttr shotShape.overscan 1")},
    {"New", script("file -force -new"), Leaves::Nothing, {kNone, kNone, kAll}},
    {"New by key, cancelled", cancelNew, Leaves::All, {kHalf, kHalf, kHalf}},
    {"Open", open, Leaves::AStepLess, {kNone, kNone, kAll}, kShotAgain},
    {"window resized", script("window -e -wh 540 420 $gMainWindow"), Leaves::All, {kAll, kAll, kAll}, kSizeAgain},
    {"four views and one", showFourViewsAndOne, Leaves::All, {kAll, kAll, kAll}},
    {"view destroyed",
     &Stage::closeFloatingView,
     Leaves::All,
     {kHalf, kHalf, kHalf},
     nullptr,
     &Stage::openFloatingView},
    {"focus lost, given back", focusElsewhereAndBack, Leaves::All, {kHalf, kAll, kHalf}},
    {"focus lost", &Stage::loseFocus, Leaves::All, {kHalf, kHalf, kHalf}, giveFocusBack},
    {"window hidden", &Stage::hide, Leaves::All, {kHalf, kHalf, kHalf}, showAgain},
    {"window hidden and shown", hideAndShow, Leaves::All, {kHalf, kAll, kHalf}},
    {"right button", &Stage::rightClick, Leaves::All, {kAll, kImpossible, kAll}},
};

/// What becomes of one gesture through one interruption.
class Trial {
public:
    Trial(Stage& stage, const Gesture& gesture, const Interruption& interruption)
        : m_stage(stage), m_gesture(gesture), m_leaves(interruption.leaves)
    {
        stage.reset(gesture.tool);
        if (interruption.prepare) {
            interruption.prepare(stage);
        }
        gesture.begin(stage);
        interruption.happen(stage);
        gesture.finish(stage);
        if (interruption.mend) {
            interruption.mend(stage);
        }
        m_after = stage.drawing();
    }

    /// Ink of the gesture, in pixels.
    int gained() const { return isUntouched(m_after) ? 0 : m_after.ink - m_stage.fromFile().ink; }

    /// What is there is in the frame it was begun in, and one step; what is not has left everything as it was.
    void expectWholeSteps()
    {
        if (gained() > 0) {
            EXPECT_TRUE(m_after.keys() == without().keys());
            m_stage.run("undo");
            EXPECT_TRUE(isUntouched(m_stage.drawing()));
            m_stage.run("redo");
        } else if (m_leaves == Leaves::NothingUntilUndo) {
            EXPECT_TRUE(isUntouched(m_after));
            m_stage.run("undo");
            m_after = m_stage.before();
        } else {
            EXPECT_TRUE(isUntouched(m_after));
        }
        EXPECT_TRUE(m_stage.drawing() == m_after);
    }

    /// Ink of what is drawn next, with no more ado than a second try where there was nothing to draw on.
    int inkOfTheNext()
    {
        const Gesture& next = kGestures[&m_gesture == &kGestures[kText] ? kText : kStroke];
        const bool hasNode = m_stage.run("tqLumisketchNode -exists") == "1";
        m_stage.putHand(QPoint(40, 15));
        for (int round = 0; round < (hasNode ? 1 : 2); ++round) {
            next.begin(m_stage);
            next.finish(m_stage);
        }
        return m_stage.drawing().ink - m_after.ink;
    }

private:
    /// The drawing that had come about without the gesture, where there is one.
    const Drawing& without() const { return m_leaves == Leaves::All ? m_stage.before() : m_stage.fromFile(); }
    bool isUntouched(const Drawing& now) const
    {
        const bool isThere = m_leaves == Leaves::All || m_leaves == Leaves::AStepLess;
        return isThere ? now == without() : now.ink == 0;
    }

    Stage& m_stage;
    const Gesture& m_gesture;
    const Leaves m_leaves;
    Drawing m_after;
};

/// Half a size drag is two fifths of it, half a stroke the half; where exactly a stroke ends differs a little.
Fate fateOf(int done, int all)
{
    return done == 0 ? kNone : done < all * 0.7 ? kHalf : kAll;
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
                    "| what came between | stroke | text entry | size drag |\n|---|---|---|---|\n");
        for (const Interruption& interruption : kInterruptions) {
            QString line = QString("| %1 |").arg(interruption.name);
            for (const Fate fate : s_happened[&interruption - kInterruptions]) {
                line += QString(" %1 |").arg(kFateNames[fate]);
            }
            table.write((line + '\n').toUtf8());
        }
    }

    static Fate s_happened[std::size(kInterruptions)][3];
};

Fate Interruptions::s_happened[std::size(kInterruptions)][3];

}  // namespace

TEST_P(Interruptions, LeaveWhatTheTableSaysAndAToolThatWorks)
{
    Stage stage;
    const Column column = GetParam();
    const Gesture& gesture = kGestures[column];
    int all = 0;  // of the ink, when nothing comes between
    for (const Interruption& interruption : kInterruptions) {
        Fate& fate = s_happened[&interruption - kInterruptions][column];
        fate = interruption.fates[column];
        if (fate == kImpossible) {
            continue;
        }
        SCOPED_TRACE(std::string(interruption.name) + " during a " + gesture.name);
        const int messages = stage.host().output().count("Error: ");
        Trial trial(stage, gesture, interruption);
        const int gained = trial.gained();
        trial.expectWholeSteps();
        const int next = trial.inkOfTheNext();
        EXPECT_GT(next, 0) << "the tool works on";
        EXPECT_LE(stage.host().output().count("Error: "), messages + 1) << "it is said once";
        // A size shows in what is drawn with it.
        const int done = column == kDrag ? next - stage.fromFile().ink : gained;
        all = all ? all : done;
        fate = fateOf(done, all);
        EXPECT_STREQ(kFateNames[fate], kFateNames[interruption.fates[column]]);
        ASSERT_TRUE(stage.host().isRunning()) << stage.host().output().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(OfA, Interruptions, testing::Values(kStroke, kText, kDrag),
                         [](const testing::TestParamInfo<Column>& info) {
                             return QString(kGestures[info.param].name).remove(' ').toStdString();
                         });
