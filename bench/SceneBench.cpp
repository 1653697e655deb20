// Opening scenes: large drawings, and many nodes. A plain read of the same file's bytes stands beside each.

#include "PairedTiming.h"

#include "kernel/SceneFile.h"
#include "kernel/Session.h"
#include "mel/Builtins.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
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

std::size_t readPlainly(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string block(kMebibyte, '\0');
    std::size_t size = 0;
    while (in.read(&block[0], static_cast<std::streamsize>(block.size())) || in.gcount() > 0)
        size += static_cast<std::size_t>(in.gcount());
    return size;
}

/// The most memory the process ever had, in MiB.
double peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, 6, "VmHWM:") == 0)
            return std::atof(line.c_str() + 6) / 1024;
    }
    return 0;
}

/// Does something in a process of its own, so that its memory is not that of what came before.
void inOwnProcess(const std::function<void()>& work)
{
    std::cout.flush();
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        std::fflush(stdout);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

void measureOpening(const std::string& name, const std::string& path)
{
    const double size = static_cast<double>(std::filesystem::file_size(path)) / kMebibyte;
    readPlainly(path);
    const double plain = millisecondsOf([&] { readPlainly(path); });
    Bench bench;
    const double before = peakMemory();
    const double ours = millisecondsOf([&] { kernel::openScene(bench.session, path); });
    std::printf("%-36s %8.1f %10.0f %10.0f %9.2f %10.0f\n", name.c_str(), size, size / plain * 1000, size / ours * 1000,
                ours / 1000, peakMemory() - before);
}

}  // namespace

int main(int argc, char** argv)
{
    const bool quick = argc > 1 && std::string(argv[1]) == "--quick";
    const std::size_t drawingSize = quick ? 10 : 100;
    const struct {
        const char* name;
        std::function<void(Bench&)> fill;
    } scenes[] = {
        {"drawing of 1000 frames", [=](Bench& bench) { addDrawing(bench, drawingSize); }},
        {"40000 nodes side by side", addFlat},
        {"40000 nodes nested", addNested},
        {"20000 nodes with shapes of one name", addNamesakes},
    };
    std::printf("\nframes of %zu MiB packed; peak is what opening adds\n%-36s %8s %10s %10s %9s %10s\n", drawingSize,
                "opening", "MiB", "read MiB/s", "ours MiB/s", "seconds", "peak MiB");
    const std::string folder =
        std::filesystem::temp_directory_path().string() + "/scene-bench-" + std::to_string(::getpid());
    std::filesystem::create_directory(folder);
    for (const auto& scene : scenes) {
        for (const char* extension : {".ma", ".mb"}) {
            const std::string path = folder + "/scene" + extension;
            inOwnProcess([&] {
                Bench bench;
                scene.fill(bench);
                kernel::saveScene(bench.session, path);
            });
            inOwnProcess([&] { measureOpening(scene.name + std::string(", ") + extension, path); });
        }
    }
    std::filesystem::remove_all(folder);
    return 0;
}
