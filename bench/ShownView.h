#pragma once

#include "NodeStage.h"

#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QEventLoop>
#include <QSize>
#include <QWidget>

/// A view of the stage's camera in a window on the screen, which has been drawn once. Needs OpenGL.
class ShownView {
public:
    ShownView(NodeStage& stage, const QSize& size) : m_views(stage.session())
    {
        m_window.resize(size);
        m_view = m_views.add("modelPanel4", stage.camera(), &m_window);
        m_view->setGeometry(QRect(QPoint(), size));
        QEventLoop firstFrame;
        QObject::connect(m_view, SIGNAL(frameSwapped()), &firstFrame, SLOT(quit()));
        m_window.show();
        firstFrame.exec();
    }

    view::Viewport& operator*() const { return *m_view; }
    view::Viewport* operator->() const { return m_view; }

private:
    QWidget m_window;
    view::Viewports m_views;
    view::Viewport* m_view = nullptr;
};
