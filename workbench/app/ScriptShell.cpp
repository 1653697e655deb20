#include "app/ScriptShell.h"

#include "app/ScriptEditor.h"
#include "app/ScriptHighlighter.h"
#include "kernel/Syntax.h"
#include "mel/Interpreter.h"
#include "ui/UiObjects.h"

#include <QPainter>
#include <QPlainTextDocumentLayout>
#include <QToolButton>

namespace app {

namespace {

constexpr int kMostJournal = 256 << 10;
constexpr int kMostHistory = 256 << 10;
constexpr int kLongestInput = 1 << 20;  // characters
constexpr int kMostInput = 4 * kLongestInput;
const char kJournalFile[] = "scriptJournal.txt";
const char kHistoryFile[] = "scriptHistory.txt";
const char kInputFile[] = "scriptInput.txt";
constexpr char kScript = 's';  // mark of a text that was run or written

bool isCommand(kernel::Session& session, const std::string& name)
{
    mel::Interpreter& interpreter = mel::Interpreter::of(session);
    return session.commands.find(name) || interpreter.functions().count(name)
        || interpreter.findProcedure(name, nullptr);
}

/// A command line in a window, drawn on a grid of 24.
QIcon editorIcon(const QColor& colour, qreal pixelRatio)
{
    constexpr int kSize = 16;
    QPixmap picture(QSize(kSize, kSize) * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kSize / 24.0, kSize / 24.0);
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRoundedRect(QRectF(2, 4, 20, 16), 2, 2);
    painter.drawPolyline(QPolygonF({QPointF(6, 9), QPointF(9.5, 12), QPointF(6, 15)}));
    painter.drawLine(QPointF(12, 15), QPointF(17, 15));
    return picture;
}

}  // namespace

ScriptShell::ScriptShell(ui::UiObjects& ui) : m_ui(ui), m_session(ui.session()), m_journal(m_session.output)
{
    m_input.setDocumentLayout(new QPlainTextDocumentLayout(&m_input));
    m_highlighter =
        new ScriptHighlighter(&m_input, [this](const std::string& name) { return isCommand(m_session, name); });
    load();
    m_session.commands.add("ScriptEditor", [this](const kernel::ValueList& args) -> kernel::Value {
        kernel::parsedOrThrow(kernel::Syntax(), args, "ScriptEditor");
        showEditor();
        return {};
    });
    m_callback = m_session.events.add("quitApplication", [this] { save(); });
}

ScriptShell::~ScriptShell()
{
    m_session.events.remove(m_callback);
    m_session.commands.remove("ScriptEditor");
    delete m_editor.data();  // before the documents it shows
}

QToolButton* ScriptShell::makeButton()
{
    auto* const button = new QToolButton;
    button->setObjectName("scriptEditorButton");
    button->setIcon(editorIcon(button->palette().color(QPalette::ButtonText), m_ui.mainWindow()->devicePixelRatioF()));
    button->setToolTip(tr("Script editor"));
    button->setFixedSize(24, 22);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, SIGNAL(clicked()), this, SLOT(OpenEditor()));
    return button;
}

void ScriptShell::OpenEditor()
{
    m_ui.runScript("ScriptEditor", ui::Echo::Yes);
}

void ScriptShell::showEditor()
{
    if (!m_editor) {
        m_editor = new ScriptEditor(m_ui, m_journal, &m_input, m_history);
        connect(m_editor, SIGNAL(RunAsked(QString)), this, SLOT(RunSoon(QString)));
    }
    m_highlighter->rehighlight();  // modules that were loaded since have commands
    m_editor->setWindowState(m_editor->windowState() & ~Qt::WindowMinimized);
    m_editor->present();
    m_editor->setFocus();
}

void ScriptShell::RunSoon(const QString& text)
{
    m_history.add(text);
    saveInput();  // what is run may end the program
    // Not from within the key press: the script may delete the window, and one that runs now comes to its end first.
    m_session.idle.post([shell = QPointer<ScriptShell>(this), script = text.toStdString()] {
        if (shell) {
            shell->runNow(script);
        }
    });
}

void ScriptShell::runNow(const std::string& text)
{
    mel::Interpreter::of(m_session).executeWritten(text);
    m_highlighter->rehighlight();  // it may have defined procedures
    emit Ran();
}

// --- from run to run -----------------------------------------------------------------------------------------------

void ScriptShell::load()
{
    m_journal.restore(readKeptTexts(m_session.prefsDir + kJournalFile, kMostJournal));
    for (const KeptText& kept : readKeptTexts(m_session.prefsDir + kHistoryFile, kMostHistory)) {
        m_history.add(kept.text);
    }
    const QVector<KeptText> input = readKeptTexts(m_session.prefsDir + kInputFile, kMostInput);
    if (!input.isEmpty()) {
        m_input.setPlainText(input.last().text);
    }
    m_savedRevision = m_input.revision();
}

void ScriptShell::save()
{
    QVector<KeptText> history;
    for (const QString& text : m_history.texts()) {
        history.append({kScript, text});
    }
    if (m_editor) {
        m_editor->rememberSizes();
    }
    write(kHistoryFile, history, kMostHistory);
    saveInput();
    write(kJournalFile, m_journal.lastLines(kMostJournal), kMostJournal);
}

void ScriptShell::saveInput()
{
    if (m_input.revision() == m_savedRevision) {
        return;
    }
    const int revision = m_input.revision();
    if (m_input.characterCount() > kLongestInput) {
        m_session.output.warning("The text in the script editor is too long to be kept for the next run.");
        m_savedRevision = revision;
    } else if (write(kInputFile, {{kScript, m_input.toPlainText()}}, kMostInput)) {
        m_savedRevision = revision;
    }
}

bool ScriptShell::write(const char* file, const QVector<KeptText>& texts, int mostBytes)
{
    try {
        writeKeptTexts(m_session.prefsDir + file, texts, mostBytes);
        return true;
    } catch (const kernel::CommandError& error) {
        m_session.output.warning(error.what());
        return false;
    }
}

}  // namespace app
