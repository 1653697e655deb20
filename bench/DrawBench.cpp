// Refreshes of a view that shows a drawing. Sending a picture of the canvas's size to the graphics system, bare, stands
// beside each. Needs a display with OpenGL.

#include "Figure.h"
#include "NodeStage.h"
#include "PairedTiming.h"
#include "Require.h"
#include "ShownView.h"

#include <QApplication>
#include <QOpenGLFunctions>

namespace {

/// A small view, so that what is measured is not the filling of pixels, and a drawing of three layers in it.
class Stage {
public:
    Stage()
    {
        for (unsigned seed = 1; seed <= 3; ++seed) {
            drawing().insertLayer("persp", -1, "Figure");
            drawing().setActiveLayer("persp", int(seed) - 1, true);
            drawing().addFrameAtCurrentTime("persp");
            drawing().activeLayer("persp")->setCurrentImage(Figure(seed).drawn());
        }
        m_view->makeCurrent();
        glGenTextures(1, &m_texture);
        glBindTexture(GL_TEXTURE_2D, m_texture);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, kCanvasSize, kCanvasSize, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    }

    void refresh(bool legacy)
    {
        m_view->setLegacy(legacy);
        m_view->grabFramebuffer();  // unlike a repaint it never waits for the screen
        require(!drawing().needsRedraw("persp"), "the view was drawn");
        m_view->makeCurrent();
        glFinish();
    }
    void change() { drawing().markForRedraw("persp"); }
    void compose() { drawing().composite("persp"); }
    /// Sends a picture, and is back when it has arrived.
    void upload()
    {
        m_view->makeCurrent();
        glBindTexture(GL_TEXTURE_2D, m_texture);
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, kCanvasSize, kCanvasSize, GL_RGBA, GL_UNSIGNED_BYTE,
                        m_sheets[m_turn ^= 1].constBits());
        glFinish();
    }

private:
    LayerManager& drawing() { return m_stage.drawing(); }

    NodeStage m_stage;
    ShownView m_view{m_stage, QSize(64, 36)};
    unsigned m_texture = 0;
    QImage m_sheets[2] = {Figure(4).drawn(), Figure(5).drawn()};
    int m_turn = 0;
};

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (QGuiApplication::platformName() == "offscreen") {
        std::printf("\nRefreshes of a view: no OpenGL on this platform\n");
        return 0;
    }
    const BenchArguments arguments(argc, argv);
    Stage stage;
    const auto timed = [](const auto& work) { return [work] { return millisecondsOf(work); }; };
    const auto uploaded = timed([&] { stage.upload(); });
    const auto composedAndUploaded = timed([&] {
        stage.change();
        stage.compose();
        stage.upload();
    });
    const PairedTiming timing("A refresh of a view (plain: the bare work)", arguments);
    for (const bool legacy : {false, true}) {
        const std::string renderer = legacy ? ", legacy viewport" : ", Viewport 2.0";
        timing.row("nothing changed: one upload" + renderer, 0, uploaded,
                   timed([&stage, legacy] { stage.refresh(legacy); }));
        timing.row("drawing changed: composite and upload" + renderer, 0, composedAndUploaded, timed([&stage, legacy] {
                       stage.change();
                       stage.refresh(legacy);
                   }));
    }
    return 0;
}
