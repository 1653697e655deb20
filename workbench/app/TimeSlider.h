#pragma once

#include "app/TimeScale.h"
#include "kernel/Session.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace app {

/// The playback range as a row of frames. The left button sets the current time; with Shift it highlights frames, which
/// can then be moved, or stretched at either end, by dragging. A double click highlights all of them, a click beside
/// them none, and so does a range that shows none of them. The lower third has marks of the selection's keys, and is
/// left to widgets laid over this one: see TimeScale.
class TimeSlider : public QWidget {
    Q_OBJECT

public:
    /// run: executes a text as a user's action. A drag is one, when it ends.
    TimeSlider(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent = nullptr);
    ~TimeSlider() override;

    QSize sizeHint() const override;

public slots:
    /// To be called when the scene changed: looks for keys when the event loop turns next, and not while it plays.
    void ScheduleKeys();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private slots:
    void FollowKeys();

private:
    enum class Drag { Scrub, Highlight, MoveBlock, BlockStart, BlockEnd };

    TimeScale scale() const { return {m_session.scene.playbackRange(), width()}; }
    Drag dragAt(const QPointF& at, Qt::KeyboardModifiers modifiers) const;
    void dragTo(int frameNumber);
    void endDrag();
    void followRange();
    void showTime();
    QRect markerRect() const;
    void drawFrames(QPainter& painter, const QRect& shown) const;
    void drawBlock(QPainter& painter) const;
    void drawKeys(QPainter& painter) const;
    void drawMarker(QPainter& painter) const;

    kernel::Session& m_session;
    const std::function<bool(const std::string&)> m_run;
    std::vector<unsigned> m_callbacks;
    QTimer m_keysTimer;
    std::vector<double> m_keys;  ///< of the selection, in ticks; ascending
    std::optional<Drag> m_drag;
    int m_pressedAt = 0;                   ///< frame number
    kernel::Scene::Range m_blockBefore{};  ///< what was highlighted when the drag began
    double m_timeBefore = 0;               ///< of the drag
    QRect m_marker;                        ///< where the current time was shown last
};

}  // namespace app
