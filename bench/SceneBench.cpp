// Opening scenes: large drawings, and many nodes. A plain read of the same file's bytes stands beside each.

#include "PairedTiming.h"
#include "Require.h"

#include "kernel/SceneFile.h"
#include "kernel/Session.h"
#include "mel/Builtins.h"
#include "support/ResidentMemory.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <istream>
#include <ostream>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::size_t kMebibyte = 1 << 20;
constexpr int kFrames = 1000;
constexpr int kNodes = 40000;

/// A drawing as a module holds it: packed frames, which text holds in hexadecimal.
class Drawing : public kernel::CustomData {
public:
    std::string typeName() const override { return "drawingData"; }
    std::uint32_t typeId() const override { return 1; }

    bool writeText(std::ostream& out) override
    {
        out << frames.size();
        for (const std::string& frame : frames)
            out << " \"" << hex(frame) << '"';
        return out.good();
    }

    bool readText(const kernel::Arguments& args, unsigned& next) override
    {
        for (++next; next < args.size(); ++next)
            frames.push_back(fromHex(std::get<std::string>(args.at(next))));
        return true;
    }

    bool writeBinary(std::ostream& out) override
    {
        for (const std::string& frame : frames)
            out << frame.size() << ' ' << frame;
        return out.good();
    }

    bool readBinary(std::istream& in, unsigned) override
    {
        for (std::size_t size = 0; in >> size;) {
            frames.emplace_back(size, '\0');
            in.get();
            in.read(&frames.back()[0], static_cast<std::streamsize>(size));
        }
        return in.eof();
    }

    std::shared_ptr<kernel::CustomData> copy() const override { return std::make_shared<Drawing>(*this); }

    std::vector<std::string> frames;

private:
    static std::string hex(const std::string& bytes)
    {
        std::string text;
        text.reserve(bytes.size() * 2);
        for (const char byte : bytes) {
            text += "0123456789abcdef"[static_cast<unsigned char>(byte) >> 4];
            text += "0123456789abcdef"[byte & 15];
        }
        return text;
    }

    static std::string fromHex(const std::string& text)
    {
        const auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
        std::string bytes(text.size() / 2, '\0');
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(digit(text[2 * i]) << 4 | digit(text[2 * i + 1]));
        return bytes;
    }
};

void addDrawingType(kernel::Session& session)
{
    kernel::DataType data;
    data.name = "drawingData";
    data.id = 1;
    data.make = [] { return std::make_shared<Drawing>(); };
    session.dataTypes.add(data);
    const auto attribute = std::make_shared<kernel::AttributeSpec>();
    attribute->longName = attribute->shortName = "frames";
    attribute->kind = kernel::ValueKind::Custom;
    attribute->customType = data.name;
    kernel::NodeType type;
    type.name = "drawing";
    type.base = session.nodeTypes.find("locator");
    type.role = kernel::NodeRole::Locator;
    type.id = 2;
    type.attributes.push_back(attribute);
    session.nodeTypes.add(type);
}

/// A host without a window that knows drawings.
struct Bench {
    Bench()
    {
        mel::installScriptLanguage(session);
        addDrawingType(session);
    }

    kernel::NodePtr add(const char* type, const std::string& name, kernel::Node* parent = nullptr)
    {
        const kernel::NodePtr node = session.scene.makeNode(*session.nodeTypes.find(type), name);
        session.scene.attach(node, parent);
        return node;
    }

    kernel::Session session;
};

// Frames of bytes that look random; their sizes come to the given number of mebibytes.
void addDrawing(Bench& bench, std::size_t mebibytes)
{
    const auto drawing = std::make_shared<Drawing>();
    unsigned state = 1;
    for (int i = 0; i < kFrames; ++i) {
        drawing->frames.emplace_back(mebibytes * kMebibyte / kFrames, '\0');
        for (char& byte : drawing->frames.back())
            byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    }
    const kernel::NodePtr node = bench.add("drawing", "drawingShape", bench.add("transform", "drawing").get());
    node->setValue(*node->attribute("frames"), std::shared_ptr<kernel::CustomData>(drawing));
}

void addFlat(Bench& bench)
{
    for (int i = 0; i < kNodes; ++i)
        bench.add("transform", "node#");
}

void addNested(Bench& bench)
{
    kernel::Node* last = nullptr;
    for (int i = 0; i < kNodes; ++i)
        last = bench.add("transform", "node#", last).get();
}

void addNamesakes(Bench& bench)
{
    for (int i = 0; i < kNodes / 2; ++i)
        bench.add("locator", "shape", bench.add("transform", "node#").get());
}

bool hasDrawing(Bench& bench, std::size_t mebibytes)
{
    const auto [node, frames] = bench.session.scene.findPlug("drawingShape.frames");
    const kernel::PlugValue value = node->value(*frames);
    const auto* data = std::get_if<std::shared_ptr<kernel::CustomData>>(&value);
    const auto* drawing = data ? dynamic_cast<const Drawing*>(data->get()) : nullptr;
    return drawing && drawing->frames.size() == kFrames
        && std::all_of(drawing->frames.begin(), drawing->frames.end(), [mebibytes](const std::string& frame) {
               return frame.size() == mebibytes * kMebibyte / kFrames;
           });
}

/// What a scene is filled with, and whether it is there again when the scene is opened.
struct Content {
    std::string name;
    std::vector<const char*> extensions;  ///< of the file forms it is saved in
    std::function<void(Bench&)> fill;
    std::function<bool(Bench&)> isThere;
};

Content drawingOf(std::size_t mebibytes, const std::string& name, const std::vector<const char*>& extensions)
{
    return {name, extensions, [mebibytes](Bench& bench) { addDrawing(bench, mebibytes); },
            [mebibytes](Bench& bench) { return hasDrawing(bench, mebibytes); }};
}

Content nodes(const std::string& name, void (*fill)(Bench&), const char* pattern, std::size_t count)
{
    return {
        name, {".ma", ".mb"}, fill, [=](Bench& bench) { return bench.session.scene.find(pattern).size() == count; }};
}

std::size_t readPlainly(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string block(kMebibyte, '\0');
    std::size_t size = 0;
    while (in.read(&block[0], static_cast<std::streamsize>(block.size())) || in.gcount() > 0)
        size += static_cast<std::size_t>(in.gcount());
    return size;
}

/// Does something in a process of its own, so that its memory is not that of what came before. Tells whether it ended
/// well.
bool inOwnProcess(const std::function<void()>& work)
{
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            work();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            ::_exit(1);
        }
        std::fflush(stdout);
        ::_exit(0);
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

void measureOpening(const std::string& name, const std::string& path, const Content& content)
{
    const std::size_t bytes = std::filesystem::file_size(path);
    require(readPlainly(path) == bytes, "the file is read whole");
    const double plain = millisecondsOf([&] { readPlainly(path); });
    Bench bench;
    const double before = highestResidentBytes();
    const double ours = millisecondsOf([&] { kernel::openScene(bench.session, path); });
    const double peak = (highestResidentBytes() - before) / kMebibyte;
    require(!bench.session.scene.wasReadWithErrors() && content.isThere(bench), "the scene is opened whole");
    const double size = static_cast<double>(bytes) / kMebibyte;
    std::printf("%-44s %8.1f %10.0f %10.0f %9.2f %10.0f\n", name.c_str(), size, size / plain * 1000, size / ours * 1000,
                ours / 1000, peak);
}

// Saves in one process and opens in another.
bool measureScene(const std::string& name, const std::string& path, const Content& content)
{
    return inOwnProcess([&] {
               Bench bench;
               content.fill(bench);
               kernel::saveScene(bench.session, path);
           })
        && inOwnProcess([&] { measureOpening(name, path, content); });
}

// Text takes two digits for a byte.
std::vector<Content> contents(std::size_t mebibytes)
{
    const std::string size = std::to_string(mebibytes) + " MiB";
    return {drawingOf(mebibytes / 2, size + " of text", {".ma"}),
            drawingOf(mebibytes, "drawing of 1000 frames, " + size, {".ma", ".mb"}),
            nodes("40000 nodes side by side", addFlat, "node*", kNodes),
            nodes("40000 nodes nested", addNested, "node*", kNodes),
            nodes("20000 nodes with shapes of one name", addNamesakes, "shape", kNodes / 2)};
}

}  // namespace

int main(int argc, char** argv)
{
    const BenchArguments arguments(argc, argv);
    std::printf("\n%-44s %8s %10s %10s %9s %10s\n", "opening; peak is what it adds", "MiB", "read MiB/s", "ours MiB/s",
                "seconds", "peak MiB");
    const std::string folder =
        std::filesystem::temp_directory_path().string() + "/scene-bench-" + std::to_string(::getpid());
    std::filesystem::create_directory(folder);
    bool endedWell = true;
    for (const Content& content : contents(arguments.quick ? 10 : 100)) {
        for (const std::string extension : content.extensions) {
            const std::string name = content.name + ", " + extension;
            if (arguments.isWanted(name) && !measureScene(name, folder + "/scene" + extension, content)) {
                std::fprintf(stderr, "Not measured: %s\n", name.c_str());
                endedWell = false;
            }
        }
    }
    std::filesystem::remove_all(folder);
    return endedWell ? 0 : 1;
}
