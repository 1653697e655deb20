// Reading script files: procedures of ordinary length, as tool menus consist of. A plain read of the same file's bytes
// stands beside.

#include "PairedTiming.h"
#include "Require.h"

#include "mel/Parser.h"
#include "mel/Resolver.h"
#include "mel/Source.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

constexpr double kMegabyte = 1e6;
constexpr double kRequired = 20;  // MB/s

/// What a file repeats; # becomes a number.
struct Content {
    const char* name;
    const char* piece;
};

const Content kContents[] = {
    {"procedures", R"(
// Puts the chosen cameras in order and says how many there were.
global proc int arrangeCameras#(string $cameras[], float $gap, int $keepHeights)
{
    global string $gArrangeLayout#;
    string $chosen[] = `ls -sl -type camera`;
    int $count = size($chosen);
    if ($count == 0) {
        warning "Nothing is selected; all cameras of the list are taken.";
        $chosen = $cameras;
        $count = size($chosen);
    }
    float $place = 0.5 * $gap;
    for ($i = 0; $i < $count; $i++) {
        string $parents[] = `listRelatives -parent -fullPath $chosen[$i]`;
        if (!size($parents) || startsWith($parents[0], "|locked"))
            continue;
        float $height = $keepHeights ? `getAttr ($parents[0] + ".ty")` : 0.0;
        move -absolute $place $height (-2 * $gap) $parents[0];
        setAttr -lock on ($parents[0] + ".translateX");
        $place += $gap;   /* the next one stands beside it */
    }
    switch ($count % 3) {
    case 0: print("Three by three\n"); break;
    case 1: print("One is left over\n"); break;
    default: print("Two are left over\n");
    }
    return $count;
}
)"},
    {"menus", R"(
global proc buildToolMenu#(string $parent)
{
    global string $gMainWindow;
    string $menu = `menu -label "Tools #" -parent $gMainWindow -tearOff true`;
    menuItem -label "New layer" -annotation "Adds an empty layer" -command "toolLayer -create -name \"layer#\"" newItem#;
    menuItem -label "Show" -checkBox (`optionVar -exists "toolShow#"` && `optionVar -q "toolShow#"`)
        -command "optionVar -iv toolShow# #1; refresh -f;";
    menuItem -divider true;
    menuItem -subMenu true -label "More";
    menuItem -label "Every second" -enable ($parent != "") -command ("toolSkip -step 2 " + $parent);
    setParent -menu ..;
}
)"},
};

std::string repeated(const Content& content, std::size_t bytes)
{
    std::string text;
    for (int number = 1; text.size() < bytes; ++number) {
        for (const char* c = content.piece; *c; ++c)
            text += *c == '#' ? std::to_string(number) : std::string(1, *c);
    }
    return text;
}

std::string readWhole(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

/// Milliseconds from the text to a tree that can run. That it goes again afterwards does not count.
double compiling(const std::string& text)
{
    std::shared_ptr<mel::Unit> unit;
    const double taken = millisecondsOf([&] {
        unit = mel::Parser(std::make_shared<const mel::Source>(text, std::string())).parse();
        mel::Resolver([](const std::string&) { return nullptr; }).resolve(*unit);
    });
    require(!unit->statements.empty(), "the script has statements");
    return taken;
}

double readingPlainly(const std::string& path, const std::string& expected)
{
    std::string text;
    const double taken = millisecondsOf([&] { text = readWhole(path); });
    require(text == expected, "the file is read whole");
    return taken;
}

/// MB/s of the best of several rounds: what else the machine does only ever takes time.
template <class Round>
double speed(std::size_t bytes, int rounds, Round round)
{
    double best = round();
    for (int i = 1; i < rounds; ++i)
        best = std::min(best, round());
    return static_cast<double>(bytes) / kMegabyte / best * 1000;
}

void measure(const Content& content, const std::string& path, const BenchArguments& arguments)
{
    const std::string text = repeated(content, arguments.quick ? 1'000'000 : 5'000'000);
    std::ofstream(path, std::ios::binary) << text;
    const int rounds = arguments.quick ? 3 : 9;
    const double plain = speed(text.size(), rounds, [&] { return readingPlainly(path, text); });
    const double ours = speed(text.size(), rounds, [&] { return compiling(text); });
    std::printf("%-44s %8.1f %10.0f %10.1f %10.0f  %s\n", content.name, static_cast<double>(text.size()) / kMegabyte,
                plain, ours, kRequired, ours >= kRequired ? "reached" : "MISSED");
}

}  // namespace

int main(int argc, char** argv)
{
    const BenchArguments arguments(argc, argv);
    std::printf("\n%-44s %8s %10s %10s %10s\n", "reading scripts", "MB", "read MB/s", "ours MB/s", "required");
    const std::string path =
        std::filesystem::temp_directory_path().string() + "/script-bench-" + std::to_string(::getpid()) + ".mel";
    for (const Content& content : kContents) {
        if (arguments.isWanted(content.name))
            measure(content, path, arguments);
    }
    std::filesystem::remove(path);
    return 0;
}
