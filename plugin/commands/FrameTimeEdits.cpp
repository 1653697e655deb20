#include "commands/FrameTimeEdits.h"

#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"

#include <maya/MAnimControl.h>

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
    m_oldTimes.clear();
    for (int i = 0; i < layer.frameCount(); ++i) {
        m_oldTimes.push_back(layer.frameAt(i)->time());
    }
    layer.retime(m_numbers);
    MAnimControl::setCurrentTime(timeOfFrame(m_landing));
    return true;
}

// The times and not their numbers: a time that lies between two frames of the present unit is to stay there.
bool RetimeFrames::revertOn(Layer& layer)
{
    if (layer.frameCount() != static_cast<int>(m_oldTimes.size())) {
        return false;
    }
    for (int i = 0; i < layer.frameCount(); ++i) {
        layer.frameAt(i)->setTime(m_oldTimes[static_cast<size_t>(i)]);
    }
    MAnimControl::setCurrentTime(m_from);
    return true;
}

// MoveFrames ----------------------------------------------------------------------------------------------------------

MoveFrames::MoveFrames(const QString& camera, int offset, int first, int last)
    : FrameEdit(camera, nullptr), m_offset(offset), m_first(first), m_last(last)
{}

bool MoveFrames::prepareFor(const Layer& layer)
{
    m_moving = numbersToMove(layer.frameNumbers(), m_first, m_last);
    return true;
}

bool MoveFrames::isObstructed(const Layer& layer) const
{
    qint64 at = 0;
    const MoveObstacle obstacle = obstacleToMove(layer.frameNumbers(), m_moving, m_offset, at);
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

bool MoveFrames::revertOn(Layer& layer)
{
    Frames frames = layer.takeFramesAt(m_newTimes);
    const bool areAllThere = frames.size() == m_oldTimes.size();
    for (size_t i = 0; areAllThere && i < frames.size(); ++i) {
        frames[i]->setTime(m_oldTimes[i]);
    }
    layer.restoreFrames(std::move(frames));
    return areAllThere;
}
