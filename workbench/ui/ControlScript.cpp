#include "ui/ControlScript.h"

#include "ui/UiObjects.h"

namespace ui {

ControlScript::ControlScript(UiObjects& ui, std::string script, std::function<kernel::DoubleArray()> values,
                             QObject* control)
    : QObject(control), m_ui(ui), m_script(std::move(script)), m_values(std::move(values))
{}

void ControlScript::Run()
{
    // A control that was deleted by script may live on until the event it is in is over.
    if (!m_ui.of(parent())) {
        return;
    }
    m_ui.runScript(m_values ? filledIn(m_script, m_values()) : m_script);
}

std::string filledIn(const std::string& script, const kernel::DoubleArray& values)
{
    std::string filled;
    for (std::size_t i = 0; i < script.size(); ++i) {
        const int number = script[i] == '#' && i + 1 < script.size() ? script[i + 1] - '0' : 0;
        if (number >= 1 && number <= int(values.size()) && number <= 9) {
            filled += kernel::exactNumberText(values[std::size_t(number) - 1]);
            ++i;
        } else {
            filled += script[i];
        }
    }
    return filled;
}

}  // namespace ui
