#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mel {

/// Where something stands in a text; both count from 1, columns in bytes.
struct Position {
    std::size_t line = 1;
    std::size_t column = 1;
};

/// At most that many bytes of a text, cut between characters.
std::string_view beginning(std::string_view text, std::size_t longest);

/// A text handed to the interpreter, with the file it came from. Trees and procedures refer to it by byte offset.
class Source {
public:
    enum class Lines { Unnamed, Named };  ///< in the run-time messages of a text without a file

    /// fileName: empty for text that was typed or sent; it then goes unnamed in messages.
    Source(std::string text, std::string fileName, Lines lines = Lines::Unnamed)
        : m_owned(std::move(text)), m_text(m_owned), m_fileName(std::move(fileName)), m_lines(lines)
    {}
    /// Reads from a buffer that outlives the object: a scene may be large and is not copied.
    static Source borrowing(std::string_view text, std::string fileName);
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    std::string_view text() const { return m_text; }
    const std::string& fileName() const { return m_fileName; }

    Position position(std::size_t offset) const;
    /// The line an offset lies on, without its end and cut to a length that can be shown.
    std::string lineAt(std::size_t offset) const;
    /// `line 3: ` for run-time messages, of a file with `file: NAME ` in front; nothing when lines go unnamed.
    std::string messagePrefix(std::size_t offset) const;
    /// `line 3.7: ` with the file in front when there is one, for texts that could not be compiled.
    std::string syntaxPrefix(std::size_t offset) const;

private:
    struct Borrowed {};
    std::string filePrefix() const;
    Source(Borrowed, std::string_view text, std::string fileName) : m_text(text), m_fileName(std::move(fileName)) {}

    std::string m_owned;
    std::string_view m_text;
    std::string m_fileName;
    Lines m_lines = Lines::Unnamed;
    // As far as a position was asked for: a scene may be large, and parts of it no longer in memory.
    mutable std::vector<std::size_t> m_lineStarts{0};
    mutable std::size_t m_counted = 0;
};

}  // namespace mel
