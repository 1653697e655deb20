#include "settings/ToolGesture.h"

#include <utility>

namespace toolGesture {

namespace {

Answers s_answers;

void ask(const std::function<void()>& answer)
{
    if (answer) {
        answer();
    }
}

}  // namespace

void setAnswers(Answers answers)
{
    s_answers = std::move(answers);
}

void finish()
{
    ask(s_answers.finish);
}

void takeBack()
{
    ask(s_answers.takeBack);
}

void drawingChanged()
{
    ask(s_answers.drawingChanged);
}

void timeChanged()
{
    ask(s_answers.timeChanged);
}

}  // namespace toolGesture
