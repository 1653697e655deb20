#include "commands/RandomSessionsGenerator.h"

#include "support/Dice.h"

#include <QRegularExpression>
#include <QStringList>

#include <functional>
#include <numeric>

namespace {

using Words = std::vector<std::string>;

// Left out, because undo is not meant to bring it back: a layer inserted with -ins, or added without a state, stays
// although the command fails and leaves no step; the node's own creation is redone as an empty node.
const std::vector<LineMode> kModes = {
    // The strokes and the floating region, see SketchCommand.
    {34, LineKind::Step, "sketch %d %c %z %x %x %m %m"},
    {4, LineKind::Step, "sketch 3 %c 24 %x %x 0 0"},
    {5, LineKind::Step, "sketch 8 %c 1 %x %x %m %m"},
    {3, LineKind::Step, "sketch 8 %c 2 %x %x %m %m"},
    // Layers
    {9, LineKind::Step, "tqLumisketchLayer -add -n \"%n\" -ls %s %c"},
    {4, LineKind::Step, "tqLumisketchLayer -del %i %c"},
    {1, LineKind::Step, "tqLumisketchLayer -da %c"},
    {4, LineKind::Step, "tqLumisketchLayer -mv %i %p %c"},
    {6, LineKind::Step, "tqLumisketchLayer -mv %i %p -nc %c %c"},
    {2, LineKind::Step, "tqLumisketchLayer -mva %c %c"},
    {9, LineKind::Step, "tqLumisketchLayer -e -act %i %c"},
    {3, LineKind::Step, "tqLumisketchLayer -en \"%n\" %i %c"},
    {3, LineKind::Step, "tqLumisketchLayer -ev %v %i %c"},
    {3, LineKind::Step, "tqLumisketchLayer -eo %o %i %c"},
    {5, LineKind::Step, "tqLumisketchLayer -es %s %i %c"},
    {1, LineKind::Step, "tqLumisketchLayer -ifw a b %c"},
    // Frames
    {6, LineKind::Step, "tqLumisketchFrame -ins %c"},
    {2, LineKind::Step, "tqLumisketchFrame -ins"},
    {10, LineKind::Step, "tqLumisketchFrame -dup %c"},
    {3, LineKind::Step, "tqLumisketchFrame -del %c"},
    {3, LineKind::Step, "tqLumisketchFrame -cut %c"},
    {4, LineKind::Passing, "tqLumisketchFrame -cp %c"},
    {8, LineKind::Step, "tqLumisketchFrame -pst %c"},
    {4, LineKind::Step, "tqLumisketchFrame -clr %c"},
    {4, LineKind::Step, "tqLumisketchFrame -sf"},
    {4, LineKind::Step, "tqLumisketchFrame -sb"},
    {3, LineKind::Step, "tqLumisketchFrame -retime %r"},
    {2, LineKind::Step, "tqLumisketchFrame -retime %r -relative"},
    {2, LineKind::Step, "tqLumisketchFrame -retime %r -moveToNext"},
    {7, LineKind::Step, "tqLumisketchFrame -move %m %f 24"},
    {3, LineKind::Step, "tqLumisketchFrame -move %m %f %f %c"},
    // The host
    {14, LineKind::Step, "currentTime %f"},
    {2, LineKind::Step, "currentTime %f.4"},
    {3, LineKind::Step, "currentUnit -time %u"},
    {1, LineKind::Step, "playbackOptions -min %f -max 30"},
    {8, LineKind::Passing, "highlight %f %e"},
    {2, LineKind::Step, "select -r persp top"},
    {2, LineKind::Step, "select -cl"},
    {2, LineKind::Step, "camera -n shot"},
    {2, LineKind::Step, "rename shot1 shot"},
    {1, LineKind::Step, "rename take shot"},
    {1, LineKind::Step, "rename shot take"},
    {3, LineKind::Step, "delete shot"},
    // Questions
    {1, LineKind::Passing, "tqLumisketchNode -ex"},
    {1, LineKind::Passing, "tqLumisketchNode -r"},
    {1, LineKind::Passing, "tqLumisketchNode -rg"},
    {1, LineKind::Passing, "tqLumisketchNode -q -c"},
    {1, LineKind::Passing, "tqLumisketchLayer -cnt %c"},
    {1, LineKind::Passing, "tqLumisketchLayer -q -act %c"},
    {1, LineKind::Passing, "tqLumisketchLayer -qn %i %c"},
    {1, LineKind::Passing, "tqLumisketchLayer -qv %i %c"},
    {1, LineKind::Passing, "tqLumisketchLayer -qo %i %c"},
    {1, LineKind::Passing, "tqLumisketchLayer -qs %i %c"},
    // Refusals
    {1, LineKind::Refused, "tqLumisketchNode"},
    {1, LineKind::Refused, "tqLumisketchNode -e -ex"},
    {1, LineKind::Refused, "tqLumisketchLayer %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -add -ls 0 nowhere"},
    {1, LineKind::Refused, "tqLumisketchLayer -e -act 99 %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -del 99 %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -mv 99 0 %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -mv %i 0 -nc nowhere %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -mva nowhere %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -mva persp persp"},
    {1, LineKind::Refused, "tqLumisketchLayer -es 7 %i %c"},
    {1, LineKind::Refused, "tqLumisketchLayer -en x 99 %c"},
    {1, LineKind::Refused, "tqLumisketchFrame %c"},
    {1, LineKind::Refused, "tqLumisketchFrame -ins nowhere"},
    {1, LineKind::Refused, "tqLumisketchFrame -move 0 1 9"},
    {1, LineKind::Refused, "tqLumisketchStroke %c"},
    {1, LineKind::Refused, "tqLumisketchStroke -la 0 -fa %c"},
};

// What stands for an argument: one of the words, those that are there twice twice as often.
const struct {
    char letter;
    Words words;
} kWords[] = {
    {'c', {"persp", "persp", "persp", "persp", "top", "top", "side", "shot", "take"}},
    {'d', {"0", "0", "1", "1", "2", "4", "7"}},
    {'i', {"0", "0", "0", "1", "1", "2", "3"}},
    {'n', {"Ink", "Paint", "Layer", "Layer 1", "", "a\\\\\\\"b", "\\t"}},
    {'o', {"0", "0.25", "0.5", "1", "1.5", "-1"}},
    {'p', {"-1", "0", "1", "2", "99"}},
    {'s', {"0", "0", "0", "0", "0", "0", "1", "1", "2"}},
    {'u', {"film", "film", "ntsc", "pal", "game", "2fps", "show"}},
    {'v', {"0", "1", "1", "1"}},
};

const struct {
    char letter;
    int first;
    int last;
} kRanges[] = {{'e', 1, 30}, {'f', -3, 24}, {'m', -9, 9}, {'r', -4, 7}, {'x', -10, 1030}, {'z', 1, 12}};

std::string argument(char letter, Dice& dice)
{
    for (const auto& row : kWords) {
        if (row.letter == letter) {
            return row.words[static_cast<size_t>(dice.between(0, static_cast<int>(row.words.size()) - 1))];
        }
    }
    for (const auto& row : kRanges) {
        if (row.letter == letter) {
            return std::to_string(dice.between(row.first, row.last));
        }
    }
    return {};
}

std::string filled(const char* text, const std::function<std::string(char)>& argument)
{
    std::string line;
    for (const char* at = text; *at; ++at) {
        line += *at == '%' ? argument(*++at) : std::string(1, *at);
    }
    return line;
}

const LineMode& pickedMode(Dice& dice)
{
    static const int kTotal = std::accumulate(kModes.begin(), kModes.end(), 0,
                                              [](int sum, const LineMode& mode) { return sum + mode.weight; });
    int left = dice.between(1, kTotal);
    auto mode = kModes.begin();
    while ((left -= mode->weight) > 0) {
        ++mode;
    }
    return *mode;
}

// With a frame number: while the scene is elsewhere.
void addBurst(Words& lines, Dice& dice)
{
    const int undone = dice.between(1, 8);
    const int redone = dice.between(0, undone + 1);
    for (int i = 0; i < undone + redone; ++i) {
        const std::string line = i < undone ? "undo" : "redo";
        lines.push_back(dice.oneIn(3) ? line + " " + argument('f', dice) : line);
    }
}

std::string patternOf(char letter)
{
    QStringList words;
    for (const auto& row : kWords) {
        for (const std::string& word : row.letter == letter ? row.words : Words()) {
            words << QRegularExpression::escape(QString::fromStdString(word));
        }
    }
    return words.isEmpty() ? "-?\\d+" : "(?:" + words.join('|').toStdString() + ")";
}

}  // namespace

const std::vector<LineMode>& lineModes()
{
    return kModes;
}

int lineModeOf(const std::string& line)
{
    static std::vector<QRegularExpression> patterns;
    for (size_t i = patterns.size(); i < kModes.size(); ++i) {
        patterns.emplace_back(QString::fromStdString("\\A" + filled(kModes[i].text, patternOf) + "\\z"));
    }
    const QString text = QString::fromStdString(line);
    const auto isMade = [&text](const QRegularExpression& pattern) { return pattern.match(text).hasMatch(); };
    return static_cast<int>(patterns.rend() - std::find_if(patterns.rbegin(), patterns.rend(), isMade)) - 1;
}

std::vector<std::string> generateSession(unsigned seed, int lines)
{
    Dice dice(seed);
    Words session;
    while (static_cast<int>(session.size()) < lines) {
        if (dice.oneIn(20)) {
            addBurst(session, dice);
        } else {
            session.push_back(filled(pickedMode(dice).text, [&dice](char letter) { return argument(letter, dice); }));
        }
    }
    session.resize(static_cast<size_t>(lines));
    return session;
}
