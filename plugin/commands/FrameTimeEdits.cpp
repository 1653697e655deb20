#include "commands/FrameTimeEdits.h"

#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/Rounding.h"

#include <maya/MAnimControl.h>

#include <algorithm>

namespace {

Times timesOf(const Layer& layer)
{
    Times times;
    for (int i = 0; i < layer.frameCount(); ++i) {
        times.push_back(layer.frameAt(i)->time());
    }
    return times;
}

// The times and not their numbers: a time that lies between two frames of the present unit is to stay there.
bool setTimes(Layer& layer, const Times& times, const MTime& sceneTime)
{
    if (layer.frameCount() != static_cast<int>(times.size())) {
        return false;
    }
    for (int i = 0; i < layer.frameCount(); ++i) {
        layer.frameAt(i)->setTime(times[static_cast<size_t>(i)]);
    }
    MAnimControl::setCurrentTime(sceneTime);
    return true;
}

// Moves frames from exact times to others; false, and none is moved, when one is missing.
bool shift(Layer& layer, const Times& from, const Times& to)
{
    Frames frames = layer.takeFramesAt(from);
    const bool areAllThere = frames.size() == from.size();
    for (size_t i = 0; areAllThere && i < frames.size(); ++i) {
        frames[i]->setTime(to[i]);
    }
    layer.restoreFrames(std::move(frames));
    return areAllThere;
}

}  // namespace

// StepTime ------------------------------------------------------------------------------------------------------------

StepTime::StepTime(const QString& camera, Direction direction) : m_camera(camera), m_direction(direction) {}

bool StepTime::prepare(LayerManager& manager)
{
    m_from = MAnimControl::currentTime();
    const bool forward = m_direction == Direction::Forward;
    const Frame* frame = forward ? manager.nextFrame(m_camera, true) : manager.previousFrame(m_camera, true);
    m_to = frame ? frame->time() : m_from;
    return m_to != m_from || !forward;  // only the step back succeeds without a frame to go to: it is meant
}

bool StepTime::apply(LayerManager&)
{
    m_from = MAnimControl::currentTime();
    MAnimControl::setCurrentTime(m_to);
    return true;
}

bool StepTime::revert(LayerManager&)
{
    MAnimControl::setCurrentTime(m_from);
    return true;
}

// RetimeFrames --------------------------------------------------------------------------------------------------------

RetimeFrames::RetimeFrames(const QString& camera, const FrameSpan& span, const Retiming& retiming)
    : FrameEdit(camera, nullptr), m_span(span), m_retiming(retiming)
{}

bool RetimeFrames::prepare(LayerManager& manager)
{
    return FrameEdit::prepare(manager) && !m_numbers.isEmpty();
}

bool RetimeFrames::prepareFor(const Layer& layer)
{
    const QList<int> numbers = layer.frameNumbers();
    if (numbers.isEmpty()) {
        return false;
    }
    const FrameSpan span = snappedSpan(numbers, m_span);
    m_numbers = retimedNumbers(numbers, span, m_retiming);
    if (m_numbers.isEmpty()) {
        messages::error(kFrameNumberOutOfRange);
        return false;
    }
    m_landing = m_numbers[landingIndex(numbers, span, m_retiming.moveToNext)];
    return true;
}

bool RetimeFrames::applyTo(Layer& layer)
{
    m_from = MAnimControl::currentTime();
    m_to = timeOfFrame(m_landing);
    m_oldTimes = timesOf(layer);
    layer.retime(m_numbers);
    m_newTimes = timesOf(layer);
    MAnimControl::setCurrentTime(m_to);
    return true;
}

bool RetimeFrames::reapplyTo(Layer& layer)
{
    return setTimes(layer, m_newTimes, m_to);
}

bool RetimeFrames::revertOn(Layer& layer)
{
    return setTimes(layer, m_oldTimes, m_from);
}

// MoveFrames ----------------------------------------------------------------------------------------------------------

MoveFrames::MoveFrames(const QString& camera, int offset, int first, int last)
    : FrameEdit(camera, nullptr), m_offset(offset), m_first(first), m_last(last)
{}

bool MoveFrames::prepareFor(const Layer& layer)
{
    m_moving = layer.frameNumbersBetween(m_first, m_last);
    m_moving.erase(std::unique(m_moving.begin(), m_moving.end()), m_moving.end());  // hidden frames stay
    return true;
}

bool MoveFrames::isObstructed(const Layer& layer) const
{
    if (m_moving.isEmpty()) {
        return false;
    }
    const QList<int> inTheWay = layer.frameNumbersBetween(truncated(double(m_moving.first()) + m_offset),
                                                          truncated(double(m_moving.last()) + m_offset));
    qint64 at = 0;
    const MoveObstacle obstacle = obstacleToMove(inTheWay, m_moving, m_offset, at);
    if (obstacle == MoveObstacle::None) {
        return false;
    }
    TimelineMarks::refreshInstalled();
    messages::error(obstacle == MoveObstacle::Range
                        ? QString(kFrameNumberOutOfRange)
                        : QString("Move Failed. A frame already exists at time %1").arg(at));
    return true;
}

bool MoveFrames::applyTo(Layer& layer)
{
    const std::vector<const Frame*> moving = layer.framesNumbered(m_moving);
    if (isObstructed(layer) || moving.size() != static_cast<size_t>(m_moving.size())) {
        return false;
    }
    m_oldTimes.clear();
    for (const Frame* frame : moving) {
        m_oldTimes.push_back(frame->time());
    }
    Frames frames = layer.takeFramesAt(m_oldTimes);
    for (const std::unique_ptr<Frame>& frame : frames) {
        frame->setFrameNumber(frame->frameNumber() + m_offset);
    }
    m_newTimes = timesOf(frames);
    layer.restoreFrames(std::move(frames));
    return true;
}

bool MoveFrames::reapplyTo(Layer& layer)
{
    return shift(layer, m_oldTimes, m_newTimes);
}

bool MoveFrames::revertOn(Layer& layer)
{
    return shift(layer, m_newTimes, m_oldTimes);
}
