#pragma once

#include "settings/FrameSpan.h"

#include <QString>

#include <memory>
#include <vector>

class BaseNode;
class Frame;

/// Puts copies of the active layer's frames in a span into the node's clipboard, in place of what it held.
void copyToClipboard(BaseNode& node, const QString& camera, const FrameSpan& span);

/// Copies of the clipboard's frames as they would lie with their span starting at a frame number; of two that would
/// get the same number only the first. Empty, and false, when one would leave the range of frame numbers.
bool copyFromClipboard(BaseNode& node, int start, std::vector<std::unique_ptr<Frame>>& frames);
