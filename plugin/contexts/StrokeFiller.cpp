#include "contexts/StrokeFiller.h"

#include <cstddef>

namespace {

const size_t kClick = 2;   // points that always stay
const int kSamePlace = 3;  // canvas pixels; an event's position and the pointer's are rounded differently

/// A shape is spanned by two points: where the pointer went down, and where it is now.
void spanShape(QVector<StrokePoint>& points, const StrokePoint& point)
{
    if (points.size() < 2) {
        points.prepend(point);
    } else {
        points[1] = point;
    }
}

void addPoint(ActiveStroke& stroke, const StrokePoint& point)
{
    if (isFreehand(stroke.tool)) {
        stroke.points.append(point);
    } else if (isShape(stroke.tool)) {
        spanShape(stroke.points, point);
    } else if (stroke.tool == ToolType::Text) {
        stroke.points = {point};
    }
}

}  // namespace

void StrokeFiller::clear()
{
    m_smoother.clear();
    m_points.clear();
}

bool StrokeFiller::add(ActiveStroke& stroke, const StrokePoint& sample, SampleTime time)
{
    StrokePoint point = sample;
    if (isFreehand(stroke.tool) && !smooth(point)) {
        return false;
    }
    m_points.push_back({sample, point, time});
    addPoint(stroke, point);
    stroke.changed = true;
    return true;
}

bool StrokeFiller::smooth(StrokePoint& point)
{
    StrokeSmoother::Sample smoothed = {point.position.x(), point.position.y(), point.opacity};
    const bool accepted = m_smoother.accept(smoothed, point.width);
    point.position = QPoint(smoothed.x, smoothed.y);
    point.opacity = smoothed.opacity;
    return accepted;
}

void StrokeFiller::endAt(const QPoint& place, SampleTime time, ActiveStroke& stroke)
{
    if (m_points.empty() || m_points.back().time > time) {
        return;
    }
    StrokePoint last = m_points.back().sample;
    if ((place - last.position).manhattanLength() > kSamePlace) {
        last.position = place;
        add(stroke, last, time);
    }
}

void StrokeFiller::cutAfter(SampleTime end, ActiveStroke& stroke)
{
    size_t kept = m_points.size();
    while (kept > kClick && m_points[kept - 1].time > end) {
        --kept;
    }
    if (kept == m_points.size()) {
        return;
    }
    m_points.erase(m_points.begin() + std::ptrdiff_t(kept), m_points.end());
    m_smoother.clear();
    for (const TimedPoint& timed : m_points) {
        StrokePoint again = timed.sample;
        smooth(again);
    }
    refill(stroke);
}

void StrokeFiller::weigh(float pressure, ActiveStroke& stroke)
{
    m_smoother.weigh(pressure);
    for (TimedPoint& timed : m_points) {
        timed.sample.opacity *= pressure;
        timed.point.opacity *= pressure;
    }
    refill(stroke);
}

void StrokeFiller::remake(const SamplingOptions& options, ActiveStroke& stroke)
{
    m_smoother.setOpacity(options.opacity);
    for (TimedPoint& timed : m_points) {
        timed.point = {options.width, options.opacity, options.hardness, timed.point.position};
    }
    refill(stroke);
}

void StrokeFiller::refill(ActiveStroke& stroke)
{
    stroke.points.clear();
    for (const TimedPoint& timed : m_points) {
        addPoint(stroke, timed.point);
    }
    stroke.drawAnew = true;
    stroke.changed = true;
}
