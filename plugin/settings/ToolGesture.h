#pragma once

#include <functional>

/// What the tool in use has under way, such as a stroke or a text that is typed. The commands that choose another tool
/// are not recorded, and nor is what happens in the course of them: whoever sends one has the gesture ended first, so
/// that what it leaves behind is a step of its own.
namespace toolGesture {

/// finish: ends what is under way, if anything is. Null when the tool is left.
void setFinish(std::function<void()> finish);
void finish();

}  // namespace toolGesture
