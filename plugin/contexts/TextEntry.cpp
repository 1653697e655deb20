#include "contexts/TextEntry.h"

#include "contexts/TypedText.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>

void TextEntry::open(const BaseNode& node, const QString& camera, QWidget* view, const QPoint& at)
{
    m_node = node.thisMObject();
    m_camera = camera;
    m_view = view;
    m_at = at;
    if (view) {
        m_viewComposed = view->testAttribute(Qt::WA_InputMethodEnabled);
        view->setAttribute(Qt::WA_InputMethodEnabled);
        view->setFocus(Qt::MouseFocusReason);
    }
}

void TextEntry::close()
{
    if (isOpen()) {
        QGuiApplication::inputMethod()->commit();  // what is still being composed
    }
    if (m_view) {
        m_view->setAttribute(Qt::WA_InputMethodEnabled, m_viewComposed);
    }
    m_view.clear();
    m_camera.clear();
}

bool TextEntry::isOpen() const
{
    return stroke() != nullptr;
}

ActiveStroke* TextEntry::stroke() const
{
    const BaseNode* node = m_camera.isEmpty() ? nullptr : BaseNode::fromHandle(m_node);
    const std::shared_ptr<LayerManager> manager = node ? node->layerManagerIfAny() : nullptr;
    return manager ? manager->stroke(m_camera) : nullptr;
}

void TextEntry::press(const QKeyEvent& key)
{
    ActiveStroke* const typed = stroke();
    if (!typed) {
        return;
    }
    if (key.key() == Qt::Key_Backspace) {
        removeLastCharacter(typed->text);
    } else {
        typed->text += typedText(key);
    }
    show(*typed);
}

void TextEntry::compose(const QInputMethodEvent& event)
{
    ActiveStroke* const typed = stroke();
    if (typed && addComposed(typed->text, event)) {
        show(*typed);
    }
}

void TextEntry::show(ActiveStroke& stroke)
{
    stroke.changed = true;
    BaseNode::fromHandle(m_node)->scheduleRedraw();  // keys may come faster than the views are drawn
}

void TextEntry::answer(QInputMethodQueryEvent& query) const
{
    const ActiveStroke* const typed = stroke();
    const QString text = typed ? typed->text : QString();
    query.setValue(Qt::ImEnabled, typed != nullptr);
    query.setValue(Qt::ImHints, int(Qt::ImhMultiLine));
    query.setValue(Qt::ImCursorRectangle, QRect(m_at, QSize(1, 1)));
    query.setValue(Qt::ImSurroundingText, text);
    query.setValue(Qt::ImCursorPosition, text.size());
    query.setValue(Qt::ImAnchorPosition, text.size());
}
