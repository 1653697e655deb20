#include "app/ScriptEditor.h"

#include "support/QtPrint.h"
#include "workbench/app/WindowSession.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QToolButton>

namespace {

class ScriptEditor : public testing::Test {
protected:
    ScriptEditor() { start(); }

    /// Ends the run that goes on and starts the next.
    void start()
    {
        m_run.reset();
        m_run = std::make_unique<WindowSession>(m_prefs.path());
    }
    kernel::Session& session() { return m_run->host->session(); }
    std::string value(const std::string& text) { return m_run->value(text); }
    template <typename Widget>
    Widget* part(const char* name)
    {
        return m_run->window->findChild<Widget*>(name);
    }
    QWidget* editor() { return part<QWidget>("scriptEditor"); }
    QPlainTextEdit* input() { return part<QPlainTextEdit>("scriptInput"); }
    QLineEdit* field() { return part<QLineEdit>("commandField"); }
    void open()
    {
        part<QToolButton>("scriptEditorButton")->click();
        turnEventLoop();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { pressKey(input(), key, modifiers); }
    void run()
    {
        press(Qt::Key_Return, Qt::ControlModifier);
        m_run->finishIdleWork();
    }
    void select(const QString& text)
    {
        input()->moveCursor(QTextCursor::Start);
        ASSERT_TRUE(input()->find(text));
    }
    QString journal() { return part<QPlainTextEdit>("scriptJournal")->toPlainText(); }

    QTemporaryDir m_prefs;
    std::vector<std::string> warnings;
    std::unique_ptr<WindowSession> m_run;
};

}  // namespace

TEST_F(ScriptEditor, RunsTheTextOrTheSelectionAsOneStep)
{
    open();
    type(input(), "createNode transform -n one;\ncreateNode transform -n two;");
    EXPECT_EQ(value("objExists one"), "0") << "not before it is asked to";
    run();
    EXPECT_EQ(value("objExists one"), "1");
    EXPECT_TRUE(journal().endsWith("ScriptEditor\ncreateNode transform -n one;\ncreateNode transform -n two;\n"
                                   "// Result: two //\n"))
        << journal().toStdString();
    value("undo");
    EXPECT_EQ(value("objExists one"), "0");
    EXPECT_EQ(value("objExists two"), "0");

    select("createNode transform -n two;");
    run();
    EXPECT_EQ(value("objExists one"), "0");
    EXPECT_EQ(value("objExists two"), "1");
    EXPECT_EQ(input()->toPlainText(), "createNode transform -n one;\ncreateNode transform -n two;") << "it stays";
    input()->selectAll();
    type(input(), " \n ");
    const QString before = journal();
    run();
    EXPECT_EQ(journal(), before) << "nothing to run";
}

TEST_F(ScriptEditor, ErrorsNameTheLineOfWhatWasRun)
{
    open();
    type(input(), "\n\nint $n = ;\n");
    run();
    EXPECT_TRUE(journal().contains("// Error: line 3.")) << journal().toStdString();
    input()->setPlainText("proc fail() {\n  catch(`select none`);\n  error \"no\";\n}\n// not this line\nfail;");
    run();
    EXPECT_TRUE(journal().contains("// Error: line 2: No object matches name: none //")) << journal().toStdString();
    EXPECT_TRUE(journal().endsWith("// Error: line 3: no //\n")) << journal().toStdString();
}

TEST_F(ScriptEditor, HandsTheKeysItHasNoUseForToTheMainWindow)
{
    open();
    QApplication::setActiveWindow(editor());
    value("createNode transform -n thing");
    input()->setFocus();
    type(input(), "we");
    press(Qt::Key_Escape);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(input()->toPlainText(), "") << "the input's own";
    for (const Qt::KeyboardModifiers shift : {Qt::NoModifier, Qt::ShiftModifier}) {
        press(shift ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier | shift);
        EXPECT_EQ(input()->toPlainText(), "we") << "so too redo, with either key";
        press(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(value("objExists thing"), "1");
    EXPECT_EQ(value("currentCtx"), "selectSuperContext");

    auto* const read = part<QPlainTextEdit>("scriptJournal");
    read->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), read);
    pressKey(read, Qt::Key_W, Qt::NoModifier, "w");
    pressKey(read, Qt::Key_Delete);
    EXPECT_EQ(value("currentCtx"), "selectSuperContext");
    EXPECT_EQ(value("objExists thing"), "1") << "what is typed where nothing can be written does nothing";
    pressKey(read, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(value("objExists thing"), "0") << "chords are the main window's";
}

TEST_F(ScriptEditor, TypingGoesOnWhileAScriptRuns)
{
    open();
    bool isFirst = true;
    session().commands.add("meanwhile", [&](const kernel::ValueList&) {
        if (isFirst) {
            isFirst = false;
            input()->moveCursor(QTextCursor::End);
            type(input(), "; createNode transform -n second");
            press(Qt::Key_Return, Qt::ControlModifier);
            turnEventLoop();
            EXPECT_EQ(session().scene.findOrNull("second"), nullptr) << "one script after the other";
        }
        return kernel::Value();
    });
    type(input(), "meanwhile; createNode transform -n first");
    run();
    EXPECT_EQ(input()->toPlainText(), "meanwhile; createNode transform -n first; createNode transform -n second");
    EXPECT_EQ(value("ls -type transform first second \"first*\""), "first second first1");
}

TEST_F(ScriptEditor, AScriptMayCloseOrDeleteTheWindowItWasRunFrom)
{
    open();
    session().commands.add("closeEditor", [this](const kernel::ValueList&) {
        editor()->close();
        return kernel::Value();
    });
    session().commands.add("deleteEditor", [this](const kernel::ValueList&) {
        delete editor();
        return kernel::Value();
    });
    type(input(), "closeEditor; createNode transform -n afterClose");
    run();
    EXPECT_FALSE(editor()->isVisible());
    EXPECT_EQ(value("objExists afterClose"), "1");
    open();
    EXPECT_TRUE(editor()->isVisible());
    input()->selectAll();
    type(input(), "deleteEditor; createNode transform -n afterDelete");
    run();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(value("objExists afterDelete"), "1");
    open();
    EXPECT_EQ(input()->toPlainText(), "deleteEditor; createNode transform -n afterDelete");
    EXPECT_TRUE(journal().contains("closeEditor; createNode"));
}

TEST_F(ScriptEditor, KeepsTextHistoryAndJournalForTheNextRun)
{
    type(field(), "noSuchCommand\n");
    open();
    type(input(), "print \"a\";\n// two lines");
    run();
    type(input(), "\nnot run yet");
    auto* const splitter = editor()->findChild<QSplitter*>();
    editor()->resize(700, 500);
    turnEventLoop();
    splitter->setSizes({300, 100});
    const QList<int> sizes = splitter->sizes();

    start();
    pressKey(field(), Qt::Key_Up);
    EXPECT_EQ(field()->text(), "noSuchCommand");
    open();
    EXPECT_EQ(input()->toPlainText(), "print \"a\";\n// two lines\nnot run yet");
    EXPECT_TRUE(journal().startsWith("noSuchCommand\n// Error: Cannot find procedure \"noSuchCommand\". //\n"))
        << journal().toStdString();
    EXPECT_EQ(editor()->size(), QSize(700, 500));
    EXPECT_EQ(editor()->findChild<QSplitter*>()->sizes(), sizes);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(input()->toPlainText(), "print \"a\";\n// two lines");
}

TEST_F(ScriptEditor, WhatCannotBeKeptIsAWarning)
{
    session().output.addListener([&](kernel::Severity severity, const std::string& text) {
        if (severity == kernel::Severity::Warning) {
            warnings.push_back(text);
        }
    });
    open();
    type(input(), "print 1");
    session().prefsDir = m_prefs.filePath("not/there/").toStdString();
    run();
    EXPECT_THAT(warnings, testing::ElementsAre(testing::HasSubstr("scriptInput.txt\" could not be written")));
    warnings.clear();
    input()->setPlainText((QString(199, 'x') + '\n').repeated(6000));
    select("x");
    run();
    EXPECT_THAT(warnings, testing::ElementsAre(testing::HasSubstr("too long to be kept")));
}
