#pragma once

#include "commands/DrawingChange.h"
#include "model/Layer.h"
#include "settings/FrameSpan.h"

#include <maya/MTime.h>

#include <QString>

#include <functional>
#include <vector>

/// A change of the frames of one layer: the one that was active when the edit ran first. On a camera that had no
/// active layer it changes nothing.
class FrameEdit : public DrawingChange {
protected:
    /// whenLocked: what is said of a locked layer, which is then left alone; null when that makes no difference.
    FrameEdit(const QString& camera, const char* whenLocked);

    bool prepare(LayerManager& manager) override;
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;
    /// prepare() for the layer itself; not called without one.
    virtual bool prepareFor(const Layer& layer);
    virtual bool applyTo(Layer& layer) = 0;
    virtual bool revertOn(Layer& layer) = 0;

    const QString& camera() const { return m_camera; }
    void setLayerIndex(int index) { m_layerIndex = index; }

private:
    bool run(LayerManager& manager, bool (FrameEdit::*step)(Layer&));

    const QString m_camera;
    const char* const m_whenLocked;
    int m_layerIndex = -1;
};

using Times = std::vector<MTime>;  ///< ascending

/// Said when a span holds more frames than may be made at once: a range typed by accident must not cost the drawing.
constexpr char kTooManyFrames[] = "Cannot add more than 1000000 frames at a time";
bool areTooMany(const FrameSpan& span);

Times timesOf(const Frames& frames);
/// Takes frames out, packed and in their order.
Frames takePacked(Layer& layer, const std::function<bool(const Frame&)>& isTaken);
/// The same for the frames at exactly these times: what an edit put there, whatever the time unit is by now.
Frames takeAt(Layer& layer, const Times& times);
/// Puts blank frames at numbers that no frame has, ascending; gives their times.
Times addBlank(Layer& layer, const QList<int>& frameNumbers);
/// The same at all numbers of a span that no frame has.
Times addMissing(Layer& layer, const FrameSpan& span);
