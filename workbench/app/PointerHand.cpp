#include "app/PointerHand.h"

#include "view/Viewport.h"

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <QMouseEvent>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <cmath>

namespace app {

namespace {

constexpr double kStep = 4;         // px from one place to the next
constexpr int kRest = 30;           // ms the hand rests at the end, so that a tool that samples sees it
constexpr int kDragPeriod = 16;     // ms between two events of the drag
constexpr int kMostUnintended = 4;  // px that rounding, or a knock at the table, moves the pointer by

struct Place {
    QPoint at;
    double along;  // in points of the way
};

/// The way through the points (a Catmull-Rom spline), about kStep apart.
QVector<Place> wayThrough(const QVector<QPointF>& points)
{
    const int last = points.size() - 1;
    const auto at = [&](int i) { return points[std::min(std::max(i, 0), last)]; };
    QVector<Place> way;
    for (int i = 0; i < last; ++i) {
        const QPointF before = at(i - 1), from = at(i), to = at(i + 1), after = at(i + 2);
        const int steps = std::max(1, int(std::hypot(to.x() - from.x(), to.y() - from.y()) / kStep));
        for (int s = 0; s < steps; ++s) {
            const double t = double(s) / steps;
            const QPointF linear = (to - before) * t;
            const QPointF square = (2 * before - 5 * from + 4 * to - after) * t * t;
            const QPointF cube = (after - before + 3 * (from - to)) * t * t * t;
            way.append({(0.5 * (2 * from + linear + square + cube)).toPoint(), i + t});
        }
    }
    way.append({points[last].toPoint(), double(last)});
    return way;
}

bool isPointerAt(const QPoint& place)
{
    return (QCursor::pos() - place).manhattanLength() <= kMostUnintended;
}

/// Takes the pointer along on a thread of its own, so that it keeps its pace while the program paints.
class PointerWalk : public QThread {
public:
    /// places: on the screen; the pointer is at the first one.
    PointerWalk(QVector<Place> places, int pace) : m_places(std::move(places)), m_pace(pace) {}
    bool isTaken() const { return m_isTaken; }
    double along() const { return m_along; }

protected:
    void run() override
    {
        for (int i = 1; i < m_places.size() && !isInterruptionRequested(); ++i) {
            msleep(m_pace);
            if (!isPointerAt(m_places[i - 1].at)) {
                m_isTaken = true;
                return;
            }
            QCursor::setPos(m_places[i].at);
            m_along = m_places[i].along;
        }
        msleep(kRest);
    }

private:
    const QVector<Place> m_places;
    const unsigned long m_pace;  // ms
    std::atomic<double> m_along{0};
    std::atomic<bool> m_isTaken{false};
};

}  // namespace

PointerHand::End PointerHand::draw(const QVector<QPointF>& through, int pace)
{
    QVector<Place> way = wayThrough(through);
    const QRect bounds = m_view->rect();
    for (Place& place : way) {
        // A curve swings wider than its points, and beyond the edge of the screen no pointer follows it.
        place.at = m_view->mapToGlobal(
            {qBound(bounds.left(), place.at.x(), bounds.right()), qBound(bounds.top(), place.at.y(), bounds.bottom())});
    }
    QCursor::setPos(way.first().at);
    if (!isPointerAt(way.first().at)) {
        return End::Immovable;
    }
    PointerWalk walk(way, pace);
    const auto tellOf = [&](QEvent::Type type) {
        if (m_view) {
            tell(type, QCursor::pos(), walk.along());
        }
    };
    tellOf(QEvent::MouseButtonPress);
    QEventLoop loop;
    QTimer drags;
    QObject::connect(&walk, &QThread::finished, &loop, &QEventLoop::quit);
    QObject::connect(&drags, &QTimer::timeout, &loop, [&] { tellOf(QEvent::MouseMove); });
    walk.start();
    drags.start(kDragPeriod);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    walk.requestInterruption();  // when the loop ended because the program does
    walk.wait();
    tellOf(QEvent::MouseButtonRelease);
    return m_view && !walk.isTaken() ? End::Released : End::Taken;
}

void PointerHand::tell(QEvent::Type type, const QPoint& at, double)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, m_view->mapFromGlobal(at), at, button, held, Qt::NoModifier);
    QApplication::sendEvent(m_view, &event);
}

}  // namespace app
