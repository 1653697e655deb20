#include "mel/Source.h"

#include <algorithm>

namespace mel {

std::string_view beginning(std::string_view text, std::size_t longest)
{
    std::size_t end = std::min(text.size(), longest);
    while (end < text.size() && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return text.substr(0, end);
}

namespace {

constexpr std::size_t kShownLineLength = 200;

}  // namespace

Source Source::borrowing(std::string_view text, std::string fileName)
{
    return Source(Borrowed(), text, std::move(fileName));
}

Position Source::position(std::size_t offset) const
{
    const std::string_view before = m_text.substr(0, offset);
    while (m_counted < before.size()) {
        const std::size_t lineEnd = before.find('\n', m_counted);
        m_counted = std::min(lineEnd, before.size() - 1) + 1;
        if (lineEnd != std::string_view::npos)
            m_lineStarts.push_back(m_counted);
    }
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    return {std::size_t(after - m_lineStarts.begin()), offset - *(after - 1) + 1};
}

std::string Source::lineAt(std::size_t offset) const
{
    const std::size_t start = offset + 1 - position(offset).column;
    std::size_t end = std::min(m_text.find('\n', start), m_text.size());
    if (end > start && m_text[end - 1] == '\r')
        --end;
    if (end - start <= kShownLineLength)
        return std::string(m_text.substr(start, end - start));
    const std::size_t first = offset - start > kShownLineLength / 2 ? offset - kShownLineLength / 2 : start;
    return std::string(m_text.substr(first, std::min(kShownLineLength, end - first)));
}

std::string Source::messagePrefix(std::size_t offset) const
{
    if (m_fileName.empty() && m_lines == Lines::Unnamed)
        return {};
    return filePrefix() + "line " + std::to_string(position(offset).line) + ": ";
}

std::string Source::syntaxPrefix(std::size_t offset) const
{
    const Position at = position(offset);
    return filePrefix() + "line " + std::to_string(at.line) + "." + std::to_string(at.column) + ": ";
}

std::string Source::filePrefix() const
{
    return m_fileName.empty() ? std::string() : "file: " + m_fileName + " ";
}

}  // namespace mel
