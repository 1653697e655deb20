#pragma once

#include <string>
#include <vector>

/// What a line of a session does to the undo queue.
enum class LineKind {
    Step,     ///< leaves one step when it succeeds
    Passing,  ///< succeeds without a step: questions, copies, what is no part of the drawing
    Refused   ///< never succeeds
};

/// One thing that a session may do, over and over with other arguments.
struct LineMode {
    int weight;  ///< how often it comes, compared with the others
    LineKind kind;
    const char* text;  ///< script; a "%" and a letter stand for an argument
};

const std::vector<LineMode>& lineModes();

/// Where the line's mode is in lineModes(), the last where several might have made it; -1 for an undo, a redo and
/// whatever no mode makes.
int lineModeOf(const std::string& line);

/// As many lines of script, the same for the same seed on every machine. Undo and redo come in bursts among them.
std::vector<std::string> generateSession(unsigned seed, int lines);
