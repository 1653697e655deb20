#include "ui/ControlScript.h"

#include "ui/UiObjects.h"

namespace ui {

ControlScript::ControlScript(UiObjects& ui, std::string script, std::function<kernel::DoubleArray()> values,
                             QObject* parent)
    : QObject(parent), m_ui(ui), m_script(std::move(script)), m_values(std::move(values))
{}

void ControlScript::Run()
{
    // The script may delete the control and this with it.
    UiObjects& ui = m_ui;
    ui.runScript(m_values ? filledIn(m_script, m_values()) : m_script);
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
