// What it costs to save and load a drawing in both of its forms, in time and in memory, and what the hexadecimal digits
// of the text form have to do with it.

#include "Figure.h"
#include "PairedTiming.h"
#include "Require.h"

#include "app/Host.h"
#include "model/BaseNodeLayerData.h"
#include "model/CpuFeatures.h"
#include "model/FrameNumber.h"
#include "model/Hex.h"
#include "model/PngCodec.h"
#include "support/ResidentMemory.h"

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

struct Shape {
    int layers;
    int framesPerLayer;
};
constexpr Shape kScene = {5, 60};
constexpr Shape kThousand = {1, 1000};

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
std::shared_ptr<LayerManager> drawing(Shape shape)
{
    auto made = std::make_shared<LayerManager>();
    for (int i = 0; i < shape.layers; ++i) {
        auto layer = std::make_unique<Layer>();
        for (int key = 1; key <= shape.framesPerLayer; ++key) {
            auto frame = std::make_unique<Frame>(timeOfFrame(key));
            frame->setPicture(Picture::fromPng(drawnPng(static_cast<unsigned>(i + shape.layers * key) % 60)));
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

bool hasShape(const LayerManager& drawing, Shape shape)
{
    bool holds = drawing.layerCount(kCamera) == shape.layers;
    for (int i = 0; holds && i < shape.layers; ++i) {
        holds = drawing.layer(kCamera, i)->frameCount() == shape.framesPerLayer;
    }
    return holds;
}

// Records -------------------------------------------------------------------------------------------------------------

constexpr char kIsSaved[] = "the whole record is written";
constexpr char kIsLoaded[] = "every layer and frame of the record is read";

// Tells whether all of it arrived.
bool write(std::ostream& out, const std::shared_ptr<LayerManager>& drawing, Form form)
{
    BaseNodeLayerData data;
    data.setLayerManager(drawing);
    const MStatus status = form == Form::Binary ? data.writeBinary(out) : data.writeASCII(out);
    return status && out.flush();
}

void save(const std::string& path, const std::shared_ptr<LayerManager>& drawing, Form form)
{
    std::ofstream out(path, std::ios::binary);
    require(write(out, drawing, form), kIsSaved);
}

std::string recordOf(const std::shared_ptr<LayerManager>& drawing, Form form)
{
    std::ostringstream out;
    require(write(out, drawing, form), kIsSaved);
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

MStatus load(BaseNodeLayerData& data, const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return data.readBinary(in, 1);
}

MStatus load(BaseNodeLayerData& data, const MArgList& arguments)
{
    unsigned next = 0;
    return data.readASCII(arguments, next);
}

// Time ----------------------------------------------------------------------------------------------------------------

// What the work writes into a file that is empty and open; the work tells whether all of it arrived.
template <class Work>
PairedTiming::Side writing(const std::string& path, Work work)
{
    return [path, work] {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        bool isWritten = false;
        const double time = millisecondsOf([&] { isWritten = work(out); });
        require(isWritten, kIsSaved);
        return time;
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
        timing.rowWithin(
            r.name, r.allowed,
            writing(path,
                    [&record](std::ostream& out) {
                        out.write(record.data(), static_cast<std::streamsize>(record.size()));
                        return bool(out.flush());
                    }),
            writing(path, [&drawing, form = r.form](std::ostream& out) { return write(out, drawing, form); }));
    }
}

// What loading the usual scene takes, from a file or from arguments.
template <class Source>
PairedTiming::Side loading(const Source& source)
{
    return [&source] {
        BaseNodeLayerData data;
        MStatus status;
        const double time = millisecondsOf([&] { status = load(data, source); });
        require(status && hasShape(*data.layerManager(), kScene), kIsLoaded);
        return time;
    };
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
    save(path, drawing, Form::Binary);
    timing.rowWithin("load 5 x 60 frames, binary, against decoding", 1.3, decodeEach, loading(path));
    const MArgList arguments = argumentsOf(recordOf(drawing, Form::Text));
    timing.rowWithin("load 5 x 60 frames, text, against decoding", 1.3, decodeEach, loading(arguments));
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

qint64 trimmedResidentBytes()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    return residentBytes();
}

// Runs the work and tells the highest that resident memory rose meanwhile. Allowed is a share of what is resident
// before, and bytes beside it.
template <class Work>
void measureRise(const char* name, double allowedShare, double allowedBytes, Work work)
{
    const double before = trimmedResidentBytes();
    forgetHighestResident();
    work();
    const double highest = highestResidentBytes();
    require(before > 0 && highest > 0, "the system tells of memory");
    const double allowed = allowedShare * before + allowedBytes;
    std::printf("%-52s %11.1f %11.1f %9.1f %9.1f  %s\n", name, before / kMebibyte, highest / kMebibyte,
                (highest - before) / kMebibyte, allowed / kMebibyte,
                highest - before <= allowed ? "reached" : "MISSED");
    std::fflush(stdout);
}

void measureSavingMemory(const char* name, Form form, const std::string& path)
{
    const std::shared_ptr<LayerManager> thousand = drawing(kThousand);
    measureRise(name, 0.1, 0, [&] { save(path, thousand, form); });
}

// The file or the host's arguments are there before; the drawing they are made of is gone by then.
void measureOpeningMemory(const char* name, Form form, const std::string& path)
{
    std::shared_ptr<LayerManager> thousand = drawing(kThousand);
    double allowed = 256 * kMebibyte;
    for (const QByteArray& png : pngsOf(*thousand)) {
        allowed += png.size();
    }
    MArgList arguments;
    if (form == Form::Text) {
        arguments = argumentsOf(recordOf(thousand, form));
    } else {
        save(path, thousand, form);
    }
    thousand.reset();
    BaseNodeLayerData data;
    MStatus status;
    measureRise(name, 0, allowed, [&] { status = form == Form::Text ? load(data, arguments) : load(data, path); });
    require(status && hasShape(*data.layerManager(), kThousand), kIsLoaded);
}

void measureMemory(const BenchArguments& arguments, const std::string& path)
{
    const struct {
        const char* name;
        void (*measure)(const char* name, Form form, const std::string& path);
        Form form;
    } rows[] = {{"memory to save 1000 packed frames, text", measureSavingMemory, Form::Text},
                {"memory to save 1000 packed frames, binary", measureSavingMemory, Form::Binary},
                {"memory to open 1000 frames, binary", measureOpeningMemory, Form::Binary},
                {"memory to open 1000 frames, text, beside arguments", measureOpeningMemory, Form::Text}};
    std::printf("\n%-52s %11s %11s %9s %9s\n", "memory, MiB", "before", "highest", "rise", "allowed");
    for (const auto& r : rows) {
        if (arguments.isWanted(r.name)) {
            r.measure(r.name, r.form, path);
        }
    }
}

}  // namespace

int main(int argc, char** argv)
{
    static const QTemporaryDir folder;  // goes even where a requirement ends the program
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());  // or the platform warns
    }
    QApplication application(argc, argv);
    app::HostOptions options;
    options.prefsDir = folder.path().toStdString();
    app::Host host(options);
    const std::string path = folder.filePath("record").toStdString();
    const BenchArguments arguments(argc, argv);
    const PairedTiming timing("records", arguments);
    measureHex(timing);
    {
        const std::shared_ptr<LayerManager> scene = drawing(kScene);
        measureSaving(timing, scene, path);
        measureLoading(timing, scene, path);
    }
    measureMemory(arguments, path);
    return 0;
}
