#include "app/MessageText.h"

namespace app {

QString messageText(kernel::Severity severity, const QString& text)
{
    switch (severity) {
    case kernel::Severity::Result: return "Result: " + text;
    case kernel::Severity::Warning: return "Warning: " + text;
    case kernel::Severity::Error: return "Error: " + text;
    default: return text;
    }
}

}  // namespace app
