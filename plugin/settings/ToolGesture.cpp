#include "settings/ToolGesture.h"

#include <utility>

namespace toolGesture {

namespace {

std::function<void()> s_finish;

}  // namespace

void setFinish(std::function<void()> finish)
{
    s_finish = std::move(finish);
}

void finish()
{
    if (s_finish) {
        s_finish();
    }
}

}  // namespace toolGesture
