#pragma once

#include <string>
#include <utility>
#include <vector>

namespace mel {

/// A regular expression of the script language: characters, ".", "[a-z]", "[^...]", "*", "+", "?" behind one of them
/// or behind "(...)", "^" and "$", "\" before a character that means itself. Matching follows every possibility side
/// by side, so that no pattern makes it go deep or takes exponential time.
class TextPattern {
public:
    /// Throws CommandError when the pattern is not complete.
    explicit TextPattern(const std::string& pattern);

    /// First place where it matches, as long as possible there: begin and end; {npos, npos} when there is none.
    std::pair<std::size_t, std::size_t> find(const std::string& text) const;

private:
    enum class Op : unsigned char { Set, Split, Jump, Start, End, Match };
    struct Step {
        Op op = Op::Match;
        std::size_t next = 0;   ///< where to go on
        std::size_t other = 0;  ///< Split: the second way
        std::vector<bool> set;  ///< Set: the 256 bytes it takes
    };
    class Compiler;

    void follow(std::size_t step, bool atStart, bool atEnd, std::vector<std::size_t>& steps,
                std::vector<bool>& seen) const;

    std::vector<Step> m_steps;
};

/// Whether a pattern with "*" and "?" fits the whole text.
bool matchesGlob(const std::string& pattern, const std::string& text);

}  // namespace mel
