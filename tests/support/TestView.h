#pragma once

#include "api/Views.h"
#include "kernel/Session.h"

#include <QWidget>

#include <functional>
#include <memory>

/// A host window with views that draw nothing: plain widgets of a given size.
class TestView : public api::View {
public:
    TestView(const char* camera, int width, int height) : m_camera(camera)
    {
        m_widget->setGeometry(40, 60, width, height);
    }

    std::string panelName() const override { return m_camera + "Panel"; }
    QWidget* widget() override { return m_widget.get(); }
    kernel::NodePtr camera() const override { return kernel::Session::current().scene.findOrNull(m_camera + "Shape"); }
    void setCamera(const kernel::NodePtr&) override {}
    int portWidth() const override { return m_widget->width() * pixelRatio; }
    int portHeight() const override { return m_widget->height() * pixelRatio; }
    bool isLegacy() const override { return legacy; }
    api::ViewMatrices matrices() const override { return projection; }
    void refresh(bool) override
    {
        ++refreshes;
        draw();
    }
    void scheduleRefresh() override
    {
        ++scheduled;
        draw();
    }
    void beginXorDrawing(float, const float[4]) override { ++invertedOutlines; }
    void endXorDrawing() override {}
    void destroyWidget() { m_widget.reset(); }  ///< another view must be active then

    int pixelRatio = 1;  ///< port pixels for each of the widget's
    api::ViewMatrices projection;
    bool legacy = false;
    std::function<void()> draw = [] {};  ///< also for a refresh that is scheduled: it may come before anything else
    int refreshes = 0;
    int scheduled = 0;
    int invertedOutlines = 0;

private:
    const std::string m_camera;
    std::unique_ptr<QWidget> m_widget = std::make_unique<QWidget>();
};

class TestViews : public api::ViewHost {
public:
    TestViews() { api::installViewHost(this); }
    ~TestViews() override { api::installViewHost(nullptr); }

    std::vector<api::View*> views() const override { return {&m_persp, &m_top}; }
    api::View* activeView() const override { return m_active; }

    TestView& persp() { return m_persp; }
    TestView& top() { return m_top; }
    void activate(TestView& view) { m_active = &view; }

private:
    mutable TestView m_persp{"persp", 512, 512};
    mutable TestView m_top{"top", 1024, 512};
    TestView* m_active = &m_persp;
};
