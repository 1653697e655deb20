#include "app/PlaybackRunner.h"
#include "support/WindowFixture.h"
#include "view/Viewport.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace {

/// Lets a window wait for each of its paints, as a busy display does.
class SlowDisplay : public QObject {
public:
    explicit SlowDisplay(QWidget& window) : m_window(window) { window.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::UpdateRequest || ++m_asked % 4 == 0) {
            return false;
        }
        QTimer::singleShot(1, &m_window,
                           [this] { QCoreApplication::postEvent(&m_window, new QEvent(QEvent::UpdateRequest)); });
        return true;
    }

private:
    QWidget& m_window;
    int m_asked = 0;
};

class PaintCounter : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override
    {
        *count += event->type() == QEvent::Paint;
        return false;
    }

    const std::shared_ptr<int> count = std::make_shared<int>(0);
};

class PlaybackPaintTest : public WindowFixture {
protected:
    PlaybackPaintTest()
    {
        view = views->add("modelPanel4", session().scene.findOrNull("perspShape"), &window);
        window.setCentralWidget(view);
        window.resize(200, 150);
        window.show();
        turnUntil([this] { return window.windowHandle()->isExposed(); });
        run("playbackOptions -min 1 -max 12 -loop once -playbackSpeed 0; currentTime 1");
        session().events.add("timeChanged", [this] { log += 't'; });
    }

    template <class Condition>
    static void turnUntil(Condition isMet)
    {
        const QDeadlineTimer patience(20000);
        QTimer wake;
        wake.start(500);
        while (!isMet() && !patience.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        }
    }
    void playToTheEnd()
    {
        run("play");
        turnUntil([this] { return !session().playback.isPlaying(); });
    }
    /// How often the widget is painted from now on.
    static std::shared_ptr<int> countPaints(QWidget& widget)
    {
        auto* const counter = new PaintCounter(&widget);
        widget.installEventFilter(counter);
        return counter->count;
    }
    QImage onScreen()
    {
        QCoreApplication::processEvents();
        return QGuiApplication::primaryScreen()->grabWindow(window.winId()).toImage();
    }
    long framesTaken() const { return long(std::count(log.begin(), log.end(), 't')); }

    view::Viewport* view = nullptr;
    std::string log;  ///< "t" for a change of time, "p" for a paint
};

}  // namespace

TEST_F(PlaybackPaintTest, NoFrameIsTakenBeforeTheOneBeforeIsOnTheScreen)
{
    const app::PlaybackRunner runner(session(), views.get());
    SlowDisplay slow(window);
    QObject::connect(view, &QOpenGLWidget::frameSwapped, &window, [this] { log += 'p'; });
    playToTheEnd();
    EXPECT_EQ(framesTaken(), 11);
    EXPECT_EQ(log.find("tt"), std::string::npos) << log;
}

TEST_F(PlaybackPaintTest, AWindowOutOfSightPlaysOn)
{
    const app::PlaybackRunner runner(session(), views.get());
    window.hide();
    playToTheEnd();
    EXPECT_EQ(framesTaken(), 11);
}

TEST_F(PlaybackPaintTest, OnlyTheActiveViewFollowsUnlessAllAreAskedFor)
{
    const app::PlaybackRunner runner(session(), views.get());
    view::Viewport* const other = views->add("modelPanel1", session().scene.findOrNull("topShape"), &window);
    other->resize(80, 60);
    other->show();
    views->setActive(view);
    QCoreApplication::processEvents();
    const auto active = countPaints(*view), idle = countPaints(*other);
    playToTheEnd();
    turnUntil([&] { return *idle > 0; });
    EXPECT_GE(*active, 11);
    EXPECT_EQ(*idle, 1) << "when playback has ended";
    run("playbackOptions -view all");
    playToTheEnd();
    EXPECT_GE(*idle, 11);
}

TEST_F(PlaybackPaintTest, APictureThatStandsIsAsSmoothAfterPlaybackAsBefore)
{
    const app::PlaybackRunner runner(session(), views.get());
    run("createNode implicitSphere; currentTime 12; refresh");
    const QImage before = onScreen();
    run("currentTime 1");
    const auto paints = countPaints(*view);
    playToTheEnd();
    EXPECT_EQ(session().scene.currentTime().value, 12);
    turnUntil([&] { return *paints >= 12; });
    EXPECT_EQ(onScreen(), before);
}
