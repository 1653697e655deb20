#pragma once

#include <maya/MObjectHandle.h>

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

class BaseNode;
class QInputMethodEvent;
class QInputMethodQueryEvent;
class QKeyEvent;
struct ActiveStroke;

/// The typing of a text whose place has been pressed, until it is committed. The text grows in the node's stroke, where
/// it is seen at every key.
class TextEntry {
public:
    /// view: gets the keyboard, and input methods with it, until close(). at: where the text begins there.
    void open(const BaseNode& node, const QString& camera, QWidget* view, const QPoint& at);
    void close();         ///< takes what is still being composed
    bool isOpen() const;  ///< false too when the stroke has gone

    // What is typed; nothing happens unless the entry is open.
    void press(const QKeyEvent& key);
    void compose(const QInputMethodEvent& event);
    void answer(QInputMethodQueryEvent& query) const;

private:
    ActiveStroke* stroke() const;
    void show(ActiveStroke& stroke);

    MObjectHandle m_node;
    QString m_camera;  // empty unless open
    QPointer<QWidget> m_view;
    bool m_viewComposed = false;  // input methods worked there before
    QPoint m_at;
};
