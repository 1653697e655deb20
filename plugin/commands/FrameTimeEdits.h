#pragma once

#include "commands/FrameEdit.h"
#include "commands/FrameLists.h"
#include "commands/Retiming.h"

#include <QList>

/// Goes to the next or the previous drawing of a camera's active layer, from the last on to the first and back.
class StepTime : public DrawingChange {
public:
    enum class Direction { Forward, Back };
    StepTime(const QString& camera, Direction direction);

protected:
    bool prepare(LayerManager& manager) override;
    bool changesAnything() const override { return false; }
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    const Direction m_direction;
    MTime m_from;
    MTime m_to;
};

/// Changes the gaps between the drawings of a span and goes to one of them.
class RetimeFrames : public FrameEdit {
public:
    RetimeFrames(const QString& camera, const FrameSpan& span, const Retiming& retiming);

protected:
    bool prepare(LayerManager& manager) override;
    bool prepareFor(const Layer& layer) override;
    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

private:
    const FrameSpan m_span;
    const Retiming m_retiming;
    QList<int> m_numbers;  // after the retiming
    int m_landing = 0;     // the frame number to go to
    Times m_oldTimes;      // of the same frames
    Times m_newTimes;
    MTime m_from;  // the scene's time before
    MTime m_to;
};

/// Moves the frames from one number to another, both included, by an offset.
class MoveFrames : public FrameEdit {
public:
    MoveFrames(const QString& camera, int offset, int first, int last);

protected:
    bool prepareFor(const Layer& layer) override;
    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

private:
    bool isObstructed(const Layer& layer) const;  // reported

    const int m_offset;
    const int m_first;
    const int m_last;
    QList<int> m_moving;
    Times m_oldTimes;  // of the frames moved
    Times m_newTimes;
};
