#include "contexts/TransformContextInputHandler.h"

#include "contexts/ContextMenu.h"
#include "contexts/TransformContext.h"
#include "settings/Preferences.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <maya/MQtUtil.h>

namespace {

struct MenuRow {
    const char* text;  ///< null for a separator
    const char* slot;
    bool needsClipboard;
};

const MenuRow kSeparator = {nullptr, nullptr, false};

const MenuRow kSelectingRows[] = {
    {"Transform", SLOT(Transform()), false},
    {"Transform Copy", SLOT(TransformCopy()), false},
    kSeparator,
    {"Cut", SLOT(Cut()), false},
    {"Copy", SLOT(Copy()), false},
    {"Paste", SLOT(Paste()), true},
    {"Paste and Transform", SLOT(PasteAndTransform()), true},
};

const MenuRow kTransformingRows[] = {
    {"Apply Transform", SLOT(Apply()), false},          {"Revert Transform", SLOT(Revert()), false},    kSeparator,
    {"Flip Horizontal", SLOT(FlipHorizontal()), false}, {"Flip Vertical", SLOT(FlipVertical()), false},
};

const MenuRow kLastRows[] = {
    kSeparator,
    {"Cancel", SLOT(Cancel()), false},
};

template <size_t count>
void addRows(QMenu& menu, const MenuRow (&rows)[count], QObject* receiver, bool hasClipboard)
{
    for (const MenuRow& row : rows) {
        if (row.text) {
            menu.addAction(QLatin1String(row.text), receiver, row.slot)
                ->setEnabled(hasClipboard || !row.needsClipboard);
        } else {
            menu.addSeparator();
        }
    }
}

}  // namespace

void TransformContextInputHandler::setUp()
{
    m_keys.clear();
    watchActiveView();
}

void TransformContextInputHandler::cleanUp()
{
    dismiss(m_menu);
    m_views.release();
}

void TransformContextInputHandler::watchActiveView()
{
    m_views.release();
    m_views.add(MQtUtil::mainWindow());
    // Queued: what floats is taken back only once the view is quite gone.
    if (QWidget* const view = m_views.addActive()) {
        connect(view, SIGNAL(destroyed()), this, SLOT(OnViewDestroyed()),
                Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    }
}

void TransformContextInputHandler::OnViewDestroyed()
{
    m_tool.viewDestroyed();
}

bool TransformContextInputHandler::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: m_keys.follow(static_cast<QKeyEvent&>(*event)); break;
    case QEvent::MouseMove:
        if (m_views.contains(watched) && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton) {
            m_tool.releaseLost();
        }
        break;
    case QEvent::WindowDeactivate: m_tool.releaseLost(); break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (m_views.contains(watched) && asksForMenu(static_cast<QMouseEvent&>(*event))) {
            openMenu(static_cast<QWidget&>(*watched), static_cast<QMouseEvent*>(event)->pos());
            return true;
        }
        break;
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

bool TransformContextInputHandler::asksForMenu(const QMouseEvent& event) const
{
    return asksForContextMenu(event) && !m_keys.sparesMenus() && Preferences::instance().transformToolContextMenu();
}

void TransformContextInputHandler::openMenu(QWidget& view, const QPoint& position)
{
    m_menuPosition = QPoint(position.x(), view.height() - position.y());
    auto* menu = new QMenu(&view);
    if (m_tool.isTransforming()) {
        addRows(*menu, kTransformingRows, this, false);
    } else {
        addRows(*menu, kSelectingRows, this, m_tool.canPaste());
    }
    addRows(*menu, kLastRows, this, false);
    m_menu = menu;
    popUpAtCursor(menu);
}

void TransformContextInputHandler::Transform()
{
    m_tool.transform(false);
}

void TransformContextInputHandler::TransformCopy()
{
    m_tool.transform(true);
}

void TransformContextInputHandler::FlipHorizontal()
{
    m_tool.flip(&RegionTransform::flipHorizontal);
}

void TransformContextInputHandler::FlipVertical()
{
    m_tool.flip(&RegionTransform::flipVertical);
}

void TransformContextInputHandler::Cut()
{
    m_tool.cut();
}

void TransformContextInputHandler::Copy()
{
    m_tool.copy();
}

void TransformContextInputHandler::Paste()
{
    m_tool.paste(m_menuPosition);
}

void TransformContextInputHandler::PasteAndTransform()
{
    m_tool.pasteAndTransform(m_menuPosition);
}

void TransformContextInputHandler::Apply()
{
    m_tool.completeAction();
}

void TransformContextInputHandler::Revert()
{
    m_tool.deleteAction();
}

void TransformContextInputHandler::Cancel()
{
    m_tool.abortAction();
}
