#pragma once

#include <functional>

/// What the tool in use has under way, such as a stroke, a text that is typed or a region that floats, and what becomes
/// of it when something else happens meanwhile.
namespace toolGesture {

/// How the tool in use answers; what it leaves out it need not hear of.
struct Answers {
    std::function<void()> finish;          ///< ends what is under way, if anything is
    std::function<void()> takeBack;        ///< undoes what is not yet a step, if there is anything
    std::function<void()> drawingChanged;  ///< by a command, whose changes stay
    std::function<void()> timeChanged;
};
void setAnswers(Answers answers);  ///< of the tool that is entered; none when it is left

/// The commands that choose another tool are not recorded, and nor is what happens in the course of them: whoever sends
/// one has the gesture ended first, so that what it leaves behind is a step of its own.
void finish();
/// A step that is undone or redone must find the drawing as the step before left it.
void takeBack();
void drawingChanged();
void timeChanged();

}  // namespace toolGesture
