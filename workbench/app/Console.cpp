#include "app/Console.h"

namespace app {

namespace {

const char* prefixOf(kernel::Severity severity)
{
    switch (severity) {
    case kernel::Severity::Warning: return "Warning: ";
    case kernel::Severity::Error: return "Error: ";
    default: return "";
    }
}

}  // namespace

Console::Console(kernel::Output& output, std::FILE* stream, Shown shown)
    : m_output(output), m_stream(stream), m_shown(shown)
{
    m_listener =
        m_output.addListener([this](kernel::Severity severity, const std::string& text) { write(severity, text); });
}

Console::~Console()
{
    m_output.removeListener(m_listener);
}

void Console::write(kernel::Severity severity, const std::string& text)
{
    const bool isProblem = severity == kernel::Severity::Warning || severity == kernel::Severity::Error;
    if (severity == kernel::Severity::Echo || (m_shown == Shown::Problems && !isProblem)) {
        return;
    }
    if (severity == kernel::Severity::Plain) {  // print: its line ends are its own
        std::fwrite(text.data(), 1, text.size(), m_stream);
        m_atLineStart = text.empty() ? m_atLineStart : text.back() == '\n';
    } else {
        std::fprintf(m_stream, "%s%s%s\n", m_atLineStart ? "" : "\n", prefixOf(severity), text.c_str());
        m_atLineStart = true;
    }
    std::fflush(m_stream);
}

}  // namespace app
