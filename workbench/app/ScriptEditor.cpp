#include "app/ScriptEditor.h"

#include "app/Journal.h"
#include "app/JournalView.h"
#include "app/ScriptInput.h"
#include "ui/LayoutWidget.h"
#include "ui/UiObjects.h"

#include <QHBoxLayout>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

namespace app {

namespace {

constexpr QSize kUsualSize(760, 560);
const char kSizesVariable[] = "workbenchScriptEditorSizes";  // width, height, journal, input

}  // namespace

ScriptEditor::ScriptEditor(ui::UiObjects& ui, Journal& journal, QTextDocument* input, const CommandHistory& history)
    : ui::ScriptWindow(ui), m_session(ui.session()), m_journal(journal), m_splitter(new QSplitter(Qt::Vertical)),
      m_input(new ScriptInput(input, history))
{
    setObjectName("scriptEditor");
    setWindowTitle(tr("Script Editor"));
    setRetained(true);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(4);
    m_splitter->addWidget(new JournalView(journal.document()));
    m_splitter->addWidget(m_input);
    auto* const whole = new QWidget;
    auto* const layout = new QVBoxLayout(whole);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(4);
    layout->addWidget(makeButtons());
    layout->addWidget(m_splitter, 1);
    content().place(whole);
    connect(m_input, SIGNAL(RunAsked(QString)), this, SLOT(Relay(QString)));
    setFocusProxy(m_input);
    recallSizes();
    const QSize around = (parentWidget()->size() - size()) / 2;
    move(parentWidget()->pos() + QPoint(qMax(0, around.width()), qMax(0, around.height())));
}

void ScriptEditor::closeEvent(QCloseEvent* event)
{
    ui::ScriptWindow::closeEvent(event);
    // The keyboard goes back to the main window, which without a window manager nobody else sees to.
    parentWidget()->activateWindow();
}

QWidget* ScriptEditor::makeButtons()
{
    const struct {
        QString text;
        QString toolTip;
        QObject* receiver;
        const char* slot;
    } buttons[] = {
        {tr("Run"), tr("Run the selection, or everything (Ctrl+Enter)"), m_input, SLOT(AskForRun())},
        {tr("Clear History"), tr("Empty the journal above"), this, SLOT(ClearJournal())},
        {tr("Clear Input"), tr("Empty the input below; Ctrl+Z brings it back"), this, SLOT(ClearInput())},
    };
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    for (const auto& b : buttons) {
        auto* const button = new QToolButton;
        button->setText(b.text);
        button->setToolTip(b.toolTip);
        button->setFocusPolicy(Qt::NoFocus);  // the input keeps the keyboard
        button->setMinimumHeight(22);
        connect(button, SIGNAL(clicked()), b.receiver, b.slot);
        layout->addWidget(button);
    }
    layout->addStretch(1);
    return row;
}

void ScriptEditor::Relay(const QString& text)
{
    if (!text.trimmed().isEmpty()) {
        emit RunAsked(text);
    }
}

void ScriptEditor::ClearJournal()
{
    m_journal.clear();
}

void ScriptEditor::ClearInput()
{
    m_input->replaceText({});
}

void ScriptEditor::recallSizes()
{
    resize(kUsualSize);
    const auto kept = m_session.optionVars.find(kSizesVariable);
    const auto* const sizes =
        kept == m_session.optionVars.end() ? nullptr : std::get_if<kernel::IntArray>(&kept->second);
    if (sizes && sizes->size() == 4) {
        resize((*sizes)[0], (*sizes)[1]);
        m_splitter->setSizes({(*sizes)[2], (*sizes)[3]});
    }
}

void ScriptEditor::rememberSizes()
{
    const QList<int> parts = m_splitter->sizes();
    m_session.optionVars[kSizesVariable] = kernel::IntArray{width(), height(), parts.value(0), parts.value(1)};
    m_session.tellOptionVarChanged(kSizesVariable);
}

}  // namespace app
