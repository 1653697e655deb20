// What it costs to save and load a drawing in both of its forms, in time and in memory, and what the hexadecimal digits
// of the text form have to do with it.

#include "Figure.h"
#include "PairedTiming.h"

#include "app/Host.h"
#include "model/BaseNodeLayerData.h"
#include "model/CpuFeatures.h"
#include "model/FrameNumber.h"
#include "model/Hex.h"
#include "model/PngCodec.h"

#include <maya/MArgList.h>

#include <QApplication>
#include <QTemporaryDir>

#include <fstream>
#include <iomanip>
#include <map>
#include <memory>
#include <sstream>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

const QString kCamera = "persp";

enum class Form { Binary, Text };

// Drawings ------------------------------------------------------------------------------------------------------------

// Shaded and line drawings in turns. Each is made once; the bytes are the caller's own.
QByteArray drawnPng(unsigned seed)
{
    static std::map<unsigned, QByteArray> made;
    QByteArray& png = made[seed];
    if (png.isEmpty()) {
        Figure figure(seed);
        png = encodePng(seed % 2 == 0 ? figure.lines() : figure.drawn());
    }
    return QByteArray(png.constData(), png.size());
}

// Frames are packed, as they are when they have been loaded. There are 60 different drawings.
std::shared_ptr<LayerManager> drawing(int layers, int framesPerLayer)
{
    auto made = std::make_shared<LayerManager>();
    for (int i = 0; i < layers; ++i) {
        auto layer = std::make_unique<Layer>();
        for (int key = 1; key <= framesPerLayer; ++key) {
            auto frame = std::make_unique<Frame>(timeOfFrame(key));
            frame->setPicture(Picture::fromPng(drawnPng(static_cast<unsigned>(i + layers * key) % 60)));
            layer->insertFrame(std::move(frame));
        }
        made->insertLayer(kCamera, -1, std::move(layer));
    }
    return made;
}

std::vector<QByteArray> pngsOf(const LayerManager& drawing)
{
    std::vector<QByteArray> pngs;
    for (int i = 0; i < drawing.layerCount(kCamera); ++i) {
        const Layer& layer = *drawing.layer(kCamera, i);
        for (int f = 0; f < layer.frameCount(); ++f) {
            pngs.push_back(layer.frameAt(f)->png());
        }
    }
    return pngs;
}

// Records -------------------------------------------------------------------------------------------------------------

void write(std::ostream& out, const std::shared_ptr<LayerManager>& drawing, Form form)
{
    BaseNodeLayerData data;
    data.setLayerManager(drawing);
    form == Form::Binary ? data.writeBinary(out) : data.writeASCII(out);
}

std::string recordOf(const std::shared_ptr<LayerManager>& drawing, Form form)
{
    std::ostringstream out;
    write(out, drawing, form);
    return out.str();
}

// The arguments as the host makes them of a scene file's text.
MArgList argumentsOf(const std::string& record)
{
    MArgList list;
    std::istringstream in(record);
    while (in >> std::ws && in.peek() != std::char_traits<char>::eof()) {
        const bool isText = in.peek() == '"';
        std::string token;
        in >> std::quoted(token);
        isText ? list.addArg(MString(token.c_str())) : list.addArg(std::stod(token));
    }
    return list;
}

// Time ----------------------------------------------------------------------------------------------------------------

// What the work writes into a file that is empty and open.
template <class Work>
PairedTiming::Side writing(const std::string& path, Work work)
{
    return [path, work] {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        return millisecondsOf([&] {
            work(out);
            out.flush();
        });
    };
}

void measureSaving(const PairedTiming& timing, const std::shared_ptr<LayerManager>& drawing, const std::string& path)
{
    const struct {
        const char* name;
        Form form;
        double allowed;
    } rows[] = {{"save 5 x 60 frames as binary, against writing it", Form::Binary, 1.5},
                {"save 5 x 60 frames as text, against writing it", Form::Text, 3}};
    for (const auto& r : rows) {
        const std::string record = recordOf(drawing, r.form);
        timing.rowWithin(r.name, r.allowed,
                         writing(path,
                                 [&record](std::ostream& out) {
                                     out.write(record.data(), static_cast<std::streamsize>(record.size()));
                                 }),
                         writing(path, [&drawing, form = r.form](std::ostream& out) { write(out, drawing, form); }));
    }
}

void measureLoading(const PairedTiming& timing, const std::shared_ptr<LayerManager>& drawing, const std::string& path)
{
    const std::vector<QByteArray> pngs = pngsOf(*drawing);
    const auto decodeEach = [&pngs] {
        return millisecondsOf([&pngs] {
            for (const QByteArray& png : pngs) {
                decodePng(png);
            }
        });
    };
    std::ofstream(path, std::ios::binary) << recordOf(drawing, Form::Binary);
    timing.rowWithin("load 5 x 60 frames, binary, against decoding", 1.3, decodeEach, [&path] {
        BaseNodeLayerData data;
        std::ifstream in(path, std::ios::binary);
        return millisecondsOf([&] { data.readBinary(in, 1); });
    });
    const MArgList arguments = argumentsOf(recordOf(drawing, Form::Text));
    timing.rowWithin("load 5 x 60 frames, text, against decoding", 1.3, decodeEach, [&arguments] {
        BaseNodeLayerData data;
        unsigned next = 0;
        return millisecondsOf([&] { data.readASCII(arguments, next); });
    });
}

// The bytes that the work gives.
template <class Work>
PairedTiming::Side making(Work work)
{
    return [work] { return millisecondsOf([&work] { const QByteArray made = work(); }); };
}

void measureHex(const PairedTiming& timing)
{
    const QByteArray bytes = drawnPng(1);
    const QByteArray digits = bytes.toHex();
    for (const bool wide : {true, false}) {
        allowAvx2(wide);
        const std::string loops = wide ? "" : ", portable loops";
        timing.row("digits of a picture's bytes" + loops, wide ? 4 : 0, making([&bytes] { return bytes.toHex(); }),
                   making([&bytes] {
                       QByteArray text(2 * bytes.size(), Qt::Uninitialized);
                       encodeHex(text.data(), bytes.constData(), bytes.size());
                       return text;
                   }));
        timing.row("a picture's bytes of their digits" + loops, wide ? 7 : 0,
                   making([&digits] { return QByteArray::fromHex(digits); }),
                   making([&digits] { return decodeHex(digits.constData(), digits.size()); }));
    }
    allowAvx2(true);
}

// Memory --------------------------------------------------------------------------------------------------------------

constexpr double kMebibyte = 1 << 20;

// A line of the process's status, in bytes; 0 where there is none.
double statusBytes(const std::string& wanted)
{
    std::ifstream status("/proc/self/status");
    std::string name;
    double kibibytes = 0;
    while (status >> name && name != wanted) {
        status.ignore(1000, '\n');
    }
    status >> kibibytes;
    return kibibytes * 1024;
}

double residentBytes()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    return statusBytes("VmRSS:");
}

struct MemoryRow {
    const char* name;
    double allowedShare;  ///< of what is resident before
    double allowedBytes;
};

// Runs the work and tells the highest that resident memory rose meanwhile.
template <class Work>
void measureRise(const MemoryRow& row, Work work)
{
    const double before = residentBytes();
    std::ofstream("/proc/self/clear_refs") << 5;  // the highest is from now on
    work();
    const double rise = statusBytes("VmHWM:") - before;
    const double allowed = row.allowedShare * before + row.allowedBytes;
    std::printf("%-52s %11.1f %11.1f %9.1f %9.1f  %s\n", row.name, before / kMebibyte, (before + rise) / kMebibyte,
                rise / kMebibyte, allowed / kMebibyte, rise <= allowed ? "reached" : "MISSED");
    std::fflush(stdout);
}

void measureMemory(const std::string& path)
{
    std::printf("\n%-52s %11s %11s %9s %9s\n", "memory, MiB", "before", "highest", "rise", "allowed");
    std::shared_ptr<LayerManager> thousand = drawing(1, 1000);
    double packed = 0;
    for (const QByteArray& png : pngsOf(*thousand)) {
        packed += png.size();
    }
    for (const Form form : {Form::Text, Form::Binary}) {
        const bool isText = form == Form::Text;
        measureRise({isText ? "save 1000 packed frames, text" : "save 1000 packed frames, binary", 0.1, 0}, [&] {
            std::ofstream out(path, std::ios::binary);
            write(out, thousand, form);
        });
    }
    const double allowed = packed + 256 * kMebibyte;
    MArgList arguments = argumentsOf(recordOf(thousand, Form::Text));
    thousand.reset();
    {
        BaseNodeLayerData data;
        measureRise({"open 1000 frames, binary", 0, allowed}, [&] {
            std::ifstream in(path, std::ios::binary);
            data.readBinary(in, 1);
        });
    }
    BaseNodeLayerData data;
    measureRise({"open 1000 frames, text, beside the host's arguments", 0, allowed}, [&] {
        unsigned next = 0;
        data.readASCII(arguments, next);
    });
}

}  // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir folder;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());  // or the platform warns
    }
    QApplication application(argc, argv);
    app::HostOptions options;
    options.prefsDir = folder.path().toStdString();
    app::Host host(options);
    const std::string path = folder.filePath("record").toStdString();
    const PairedTiming timing("records", argc, argv);
    measureHex(timing);
    {
        const std::shared_ptr<LayerManager> scene = drawing(5, 60);
        measureSaving(timing, scene, path);
        measureLoading(timing, scene, path);
    }
    if (timing.isWanted("memory")) {
        measureMemory(path);
    }
    return 0;
}
