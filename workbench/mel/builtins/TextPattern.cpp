#include "mel/builtins/TextPattern.h"

#include "kernel/Command.h"

namespace mel {

using kernel::CommandError;

/// Turns the pattern into steps. Each piece is written behind what stands already and leads on to the step after it;
/// a repetition is put round the piece just written.
class TextPattern::Compiler {
public:
    Compiler(const std::string& pattern, std::vector<Step>& steps) : m_pattern(pattern), m_steps(steps) {}

    void compile()
    {
        sequence(0);
        if (m_at < m_pattern.size())
            fail();
        add(Op::Match);
    }

private:
    [[noreturn]] void fail() const { throw CommandError("Invalid regular expression: " + m_pattern); }

    std::size_t add(Op op)
    {
        Step step;
        step.op = op;
        step.next = m_steps.size() + 1;
        m_steps.push_back(std::move(step));
        return m_steps.size() - 1;
    }

    void sequence(int depth)
    {
        constexpr int kDeepest = 100;
        if (depth > kDeepest)
            fail();
        while (m_at < m_pattern.size() && m_pattern[m_at] != ')') {
            const std::size_t first = m_steps.size();
            piece(depth);
            while (m_at < m_pattern.size() && isRepetition(m_pattern[m_at]))
                repeat(first, m_pattern[m_at++]);
        }
    }

    static bool isRepetition(char c) { return c == '*' || c == '+' || c == '?'; }

    void piece(int depth)
    {
        const char c = m_pattern[m_at++];
        switch (c) {
        case '^': add(Op::Start); return;
        case '$': add(Op::End); return;
        case '(':
            sequence(depth + 1);
            if (m_at >= m_pattern.size())
                fail();
            ++m_at;
            return;
        case '[': bracket(); return;
        case '.': m_steps[add(Op::Set)].set.assign(256, true); return;
        case '\\':
            if (m_at >= m_pattern.size())
                fail();
            character(escaped(m_pattern[m_at++]));
            return;
        default: character(c); return;
        }
    }

    static char escaped(char c) { return c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c; }

    void character(char c)
    {
        Step& step = m_steps[add(Op::Set)];
        step.set.assign(256, false);
        step.set[static_cast<unsigned char>(c)] = true;
    }

    void bracket()
    {
        std::vector<bool> set(256, false);
        const bool negated = m_at < m_pattern.size() && m_pattern[m_at] == '^';
        if (negated)
            ++m_at;
        for (bool first = true; m_at < m_pattern.size() && (first || m_pattern[m_at] != ']'); first = false) {
            const unsigned char low = bracketCharacter();
            unsigned char high = low;
            if (m_at + 1 < m_pattern.size() && m_pattern[m_at] == '-' && m_pattern[m_at + 1] != ']') {
                ++m_at;
                high = bracketCharacter();
            }
            for (int c = low; c <= high; ++c)
                set[std::size_t(c)] = true;
        }
        if (m_at >= m_pattern.size())
            fail();
        ++m_at;
        if (negated)
            set.flip();
        m_steps[add(Op::Set)].set = std::move(set);
    }

    unsigned char bracketCharacter()
    {
        char c = m_pattern[m_at++];
        if (c == '\\' && m_at < m_pattern.size())
            c = escaped(m_pattern[m_at++]);
        return static_cast<unsigned char>(c);
    }

    // The piece from `first` on moves one step back to make room for the choice in front of it.
    void repeat(std::size_t first, char kind)
    {
        Step split;
        split.op = Op::Split;
        m_steps.insert(m_steps.begin() + std::ptrdiff_t(first), split);
        for (std::size_t i = first + 1; i < m_steps.size(); ++i) {
            ++m_steps[i].next;
            if (m_steps[i].op == Op::Split)
                ++m_steps[i].other;
        }
        if (kind != '?') {
            const std::size_t back = add(Op::Jump);
            m_steps[back].next = first;
        }
        m_steps[first].next = first + 1;
        m_steps[first].other = m_steps.size();
        if (kind == '+') {
            // Once for sure: enter behind the choice, which is reached through the way back.
            m_steps[first].op = Op::Jump;
            m_steps.back().op = Op::Split;
            m_steps.back().next = first + 1;
            m_steps.back().other = m_steps.size();
        }
    }

    const std::string& m_pattern;
    std::vector<Step>& m_steps;
    std::size_t m_at = 0;
};

TextPattern::TextPattern(const std::string& pattern)
{
    constexpr std::size_t kLongest = 10000;
    if (pattern.size() > kLongest)
        throw CommandError("Invalid regular expression: it is too long.");
    Compiler(pattern, m_steps).compile();
}

// Adds the steps that take a byte, or end the match, and can be reached without taking one.
void TextPattern::follow(std::size_t start, bool atStart, bool atEnd, std::vector<std::size_t>& steps,
                         std::vector<bool>& seen) const
{
    std::vector<std::size_t> waiting = {start};
    while (!waiting.empty()) {
        const std::size_t at = waiting.back();
        waiting.pop_back();
        if (seen[at])
            continue;
        seen[at] = true;
        const Step& step = m_steps[at];
        switch (step.op) {
        case Op::Set:
        case Op::Match: steps.push_back(at); break;
        case Op::Split: waiting.push_back(step.other); [[fallthrough]];
        case Op::Jump: waiting.push_back(step.next); break;
        case Op::Start:
            if (atStart)
                waiting.push_back(step.next);
            break;
        case Op::End:
            if (atEnd)
                waiting.push_back(step.next);
            break;
        }
    }
}

std::pair<std::size_t, std::size_t> TextPattern::find(const std::string& text) const
{
    constexpr std::size_t kNone = std::string::npos;
    for (std::size_t begin = 0; begin <= text.size(); ++begin) {
        std::size_t end = kNone;
        std::vector<std::size_t> steps;
        std::vector<bool> seen(m_steps.size());
        follow(0, begin == 0, begin == text.size(), steps, seen);
        for (std::size_t at = begin; !steps.empty(); ++at) {
            std::vector<std::size_t> after;
            seen.assign(m_steps.size(), false);
            for (const std::size_t step : steps) {
                if (m_steps[step].op == Op::Match)
                    end = at;
                else if (at < text.size() && m_steps[step].set[static_cast<unsigned char>(text[at])])
                    follow(m_steps[step].next, false, at + 1 == text.size(), after, seen);
            }
            steps.swap(after);
        }
        if (end != kNone)
            return {begin, end};
    }
    return {kNone, kNone};
}

bool matchesGlob(const std::string& pattern, const std::string& text)
{
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t star = std::string::npos;
    std::size_t from = 0;
    while (t < text.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t]) && pattern[p] != '*') {
            ++p;
            ++t;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            from = t;
        } else if (star != std::string::npos) {
            // The last star takes one character more.
            p = star + 1;
            t = ++from;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

}  // namespace mel
