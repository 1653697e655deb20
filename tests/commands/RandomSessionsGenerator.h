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

struct GeneratedLine {
    std::string text;
    int mode;  ///< in lineModes(); -1 for an undo or a redo
};

/// As many lines of script, the same for the same seed on every machine. Undo and redo come in bursts among them.
std::vector<GeneratedLine> generateSession(unsigned seed, int lines);
