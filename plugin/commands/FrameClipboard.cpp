#include "commands/FrameClipboard.h"

#include "commands/Retiming.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"

void copyToClipboard(BaseNode& node, const QString& camera, const FrameSpan& span)
{
    node.frameClipboard().clear();
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    const Layer* layer = manager ? manager->activeLayer(camera) : nullptr;
    if (!layer) {
        return;
    }
    for (int i = 0; i < layer->frameCount(); ++i) {
        const int frameNumber = layer->frameAt(i)->frameNumber();
        const bool isFound = layer->frameNumbered(frameNumber) == layer->frameAt(i);
        if (frameNumber >= span.first && frameNumber < span.end && isFound) {
            std::unique_ptr<Frame> copy(new Frame(*layer->frameAt(i)));
            copy->setFrameNumber(static_cast<int>(qint64(frameNumber) - span.first));
            node.frameClipboard().push_back(std::move(copy));
        }
    }
}

bool copyFromClipboard(BaseNode& node, int start, std::vector<std::unique_ptr<Frame>>& frames)
{
    for (const std::unique_ptr<Frame>& kept : node.frameClipboard()) {
        const qint64 frameNumber = qint64(kept->frameNumber()) + start;
        if (!isFrameNumber(frameNumber)) {
            frames.clear();
            return false;
        }
        if (frames.empty() || frames.back()->frameNumber() != frameNumber) {
            std::unique_ptr<Frame> copy(new Frame(*kept));
            copy->setFrameNumber(static_cast<int>(frameNumber));
            frames.push_back(std::move(copy));
        }
    }
    return true;
}
