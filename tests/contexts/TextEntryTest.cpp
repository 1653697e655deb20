#include "support/ToolFixture.h"

#include "contexts/DrawContextCommand.h"
#include "contexts/ThreadManager.h"
#include "contexts/TypedText.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <functional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString typed(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    return typedText(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
}

TEST(TypedText, OnlyWhatCanBeReadIsTyped)
{
    EXPECT_EQ(typed(Qt::Key_A, Qt::ShiftModifier, "A"), "A");
    EXPECT_EQ(typed(Qt::Key_Return, Qt::NoModifier, "\r"), "\n");
    EXPECT_EQ(typed(Qt::Key_Enter, Qt::KeypadModifier, "\r"), "\n");
    EXPECT_EQ(typed(Qt::Key_unknown, Qt::NoModifier, QString::fromUtf8("😀é")), QString::fromUtf8("😀é"));
    EXPECT_EQ(typed(Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, "@"), "@") << "AltGr";
    EXPECT_EQ(typed(Qt::Key_Z, Qt::ControlModifier, "\x1a"), "");
    EXPECT_EQ(typed(Qt::Key_1, Qt::ControlModifier, "1"), "");
    EXPECT_EQ(typed(Qt::Key_Delete, Qt::NoModifier, "\x7f"), "");
    EXPECT_EQ(typed(Qt::Key_Tab, Qt::NoModifier, "\t"), "");
    EXPECT_EQ(typed(Qt::Key_Shift, Qt::ShiftModifier, QString()), "");
    EXPECT_EQ(typed(Qt::Key_unknown, Qt::NoModifier, QString(QChar(0xd83d))), QString(QChar(0xd83d)))
        << "the other half comes with the next key";
}

TEST(TypedText, BackspaceTakesACharacterAsAReaderCountsThem)
{
    const char* const lasts[] = {"b", "😀", "e\xcc\x81", "\n", "각"};
    for (const char* last : lasts) {
        QString text = "a" + QString::fromUtf8(last);
        removeLastCharacter(text);
        EXPECT_EQ(text, "a") << last;
    }
    QString none;
    removeLastCharacter(none);
    EXPECT_EQ(none, "");
}

/// The text tool, its view in a window with keyboard focus to give.
class TextEntryTest : public ToolFixture {
protected:
    TextEntryTest()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator));
        Preferences::instance().setActiveTool(ToolType::Text);
        run("tqLmDrawCtx drawTool; setToolTo drawTool");
        QCursor::setPos(view().mapToGlobal(QPoint(100, 100)));
    }
    ~TextEntryTest() override
    {
        run("setToolTo selectSuperContext");
        ThreadManager::destroy();
    }

    QWidget& view() { return *views.persp().widget(); }
    /// The window system takes its time to show a window, and one that is not shown gets no keyboard.
    bool isGivenTheKeyboard()
    {
        QWidget& window = *view().window();
        window.show();
        for (QDeadlineTimer soon(20000); !window.isActiveWindow() && !soon.hasExpired();) {
            window.activateWindow();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        return window.isActiveWindow();
    }
    void startTyping()
    {
        press();
        release();
    }
    /// Whether nobody but the tool gets the event.
    bool send(QEvent& event)
    {
        event.ignore();
        QCoreApplication::sendEvent(&view(), &event);
        return event.isAccepted();
    }
    using ToolFixture::send;
    bool key(int key, const QString& text = QString(), Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             QEvent::Type type = QEvent::KeyPress)
    {
        QKeyEvent event(type, key, modifiers, text);
        return send(event);
    }
    void type(const QString& text)
    {
        for (const QChar c : text) {
            key(c.toUpper().unicode(), c);
        }
    }
    void clickView()
    {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(50, 50), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&view(), &event);
    }
    QString text()
    {
        const ActiveStroke* stroke = drawing().stroke("persp");
        return stroke ? stroke->text : QString("gone");
    }
};

TEST_F(TextEntryTest, KeysGoToTheTextUntilEscapeCommitsIt)
{
    startTyping();
    ASSERT_THAT(commits, IsEmpty());
    const int scheduledBefore = views.persp().scheduled;
    type("hB");
    key(Qt::Key_Return, "\r");
    type("m");
    EXPECT_EQ(text(), "hB\nm");
    EXPECT_EQ(views.persp().scheduled, scheduledBefore + 4);
    key(Qt::Key_Backspace, "\b");
    key(Qt::Key_Backspace, "\b");
    EXPECT_EQ(text(), "hB");
    key(Qt::Key_Escape, "\x1b");
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp"));
    EXPECT_NE(pixels("persp"), pixels::hash(Frame(timeOfFrame(0)).image()));
    EXPECT_FALSE(key(Qt::Key_X, "x")) << "the keys are the host's again";
}

TEST_F(TextEntryTest, EveryKeyIsClaimedFromTheHostsShortcutsButTheBackslash)
{
    startTyping();
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        EXPECT_TRUE(key(Qt::Key_Z, "\x1a", Qt::ControlModifier, type)) << type;
        EXPECT_TRUE(key(Qt::Key_Shift, QString(), Qt::ShiftModifier, type)) << type;
        EXPECT_FALSE(key(Qt::Key_Backslash, "\\", Qt::NoModifier, type)) << type;
    }
    EXPECT_EQ(text(), "");
}

TEST_F(TextEntryTest, WhatAnInputMethodComposesIsTyped)
{
    const auto compose = [this](const QString& commit, int start = 0, int length = 0) {
        QInputMethodEvent event;
        event.setCommitString(commit, start, length);
        return send(event);
    };
    EXPECT_FALSE(view().testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(compose("x"));
    startTyping();
    EXPECT_TRUE(view().testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_TRUE(compose(QString::fromUtf8("ê語")));
    EXPECT_TRUE(compose("go", -1, 1));
    EXPECT_EQ(text(), QString::fromUtf8("êgo"));
    QInputMethodQueryEvent query(Qt::ImEnabled | Qt::ImSurroundingText | Qt::ImCursorPosition);
    EXPECT_TRUE(send(query));
    EXPECT_TRUE(query.value(Qt::ImEnabled).toBool());
    EXPECT_EQ(query.value(Qt::ImSurroundingText).toString(), text());
    EXPECT_EQ(query.value(Qt::ImCursorPosition).toInt(), 3);
    key(Qt::Key_Escape);
    EXPECT_FALSE(view().testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_F(TextEntryTest, APressInAViewOrLeavingTheToolCommitsATextAlsoAnEmptyOne)
{
    startTyping();
    clickView();
    EXPECT_EQ(commits.size(), 1u);
    startTyping();
    type("a");
    press();
    EXPECT_EQ(commits.size(), 2u) << "a press that no view has seen";
    release();
    run("setToolTo selectSuperContext");
    EXPECT_EQ(commits.size(), 3u);
    clickView();
    EXPECT_EQ(commits.size(), 3u);
}

TEST_F(TextEntryTest, WhatIsLeftOfAPressWhoseReleaseWasLostDoesNotEndTheText)
{
    press();
    QEvent leaving(QEvent::WindowDeactivate);
    send(leaving);
    type("a");
    send(api::ToolEvent::Kind::Drag);
    release();
    type("b");
    EXPECT_EQ(text(), "ab");
    EXPECT_THAT(commits, IsEmpty());
}

/// Has a word under way, which the toolkit hands over when the view stops to take such.
class Composing : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::InputMethodQuery && !m_isHandedOver
            && !static_cast<QWidget*>(watched)->testAttribute(Qt::WA_InputMethodEnabled)) {
            m_isHandedOver = true;
            QInputMethodEvent word;
            word.setCommitString("word");
            QCoreApplication::sendEvent(watched, &word);
        }
        return false;
    }

private:
    bool m_isHandedOver = false;
};

TEST_F(TextEntryTest, WhatIsStillBeingComposedBelongsToTheTextHoweverItEnds)
{
    ASSERT_TRUE(isGivenTheKeyboard());
    std::vector<QString> committed;
    session().commands.remove(names::kStrokeCommand);
    session().commands.add(names::kStrokeCommand, [&](const kernel::ValueList& args) {
        committed.push_back(text());
        return commit(args);
    });
    const std::function<void()> ends[] = {
        [this] { key(Qt::Key_Escape); },
        [this] { press(); },
        [this] { run("setToolTo selectSuperContext"); },
    };
    for (const auto& end : ends) {
        run("setToolTo drawTool");
        startTyping();
        ASSERT_TRUE(view().hasFocus());
        type("a");
        Composing composing;
        view().installEventFilter(&composing);
        end();
        view().removeEventFilter(&composing);
        release();
    }
    run("setToolTo selectSuperContext");
    EXPECT_THAT(committed, ElementsAre("aword", "aword", "", "aword"));
}

TEST_F(TextEntryTest, ATextWhoseStrokeIsGoneLetsTheKeysPass)
{
    startTyping();
    drawing().dropStroke();
    EXPECT_FALSE(key(Qt::Key_A, "a"));
    EXPECT_FALSE(key(Qt::Key_Z, "\x1a", Qt::ControlModifier, QEvent::ShortcutOverride));
    key(Qt::Key_Escape);
    startTyping();
    type("b");
    EXPECT_EQ(text(), "b");
    run("file -f -new");
    EXPECT_FALSE(key(Qt::Key_A, "a"));
    EXPECT_FALSE(view().testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace
