#pragma once

#include "kernel/Value.h"

#include <QObject>

#include <functional>
#include <string>

namespace ui {

class UiObjects;

/// The script of a control, as a slot. It says nothing any more once the control has lost its name.
class ControlScript : public QObject {
    Q_OBJECT

public:
    /// values: what takes the place of #1, #2 and so on; may be null.
    ControlScript(UiObjects& ui, std::string script, std::function<kernel::DoubleArray()> values, QObject* control);

public slots:
    void Run();

private:
    UiObjects& m_ui;
    const std::string m_script;
    const std::function<kernel::DoubleArray()> m_values;
};

/// The script with #1, #2 and so on replaced by the values; a number beyond them is left alone.
std::string filledIn(const std::string& script, const kernel::DoubleArray& values);

}  // namespace ui
