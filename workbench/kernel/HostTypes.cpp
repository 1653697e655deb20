#include "kernel/HostTypes.h"

#include "kernel/ChunkId.h"
#include "kernel/NodeType.h"

namespace kernel {

namespace {

/// Traits of an attribute beside its value.
enum Trait : unsigned { kPlain = 0, kKeyable = 1, kHidden = 2, kUnstored = 4, kReadOnly = 8, kChannelBox = 16 };

/// The children of a compound stand right behind it and name it in `parent`.
struct Row {
    const char* longName;
    const char* shortName;
    ValueKind kind;
    double defaultNumber = 0;
    unsigned traits = kPlain;
    const char* parent = nullptr;
    std::optional<double> minimum = std::nullopt;
    std::optional<double> maximum = std::nullopt;
    const char* text = nullptr;  ///< an enum's names divided by colons, a string's default, a type of data
};
using Rows = std::vector<Row>;

constexpr auto kBool = ValueKind::Bool;
constexpr auto kInt = ValueKind::Int;
constexpr auto kEnum = ValueKind::Enum;
constexpr auto kFloat = ValueKind::Float;
constexpr auto kDouble = ValueKind::Double;
constexpr auto kDistance = ValueKind::Distance;
constexpr auto kAngle = ValueKind::Angle;
constexpr auto kTime = ValueKind::Time;
constexpr auto kString = ValueKind::String;
constexpr auto kCompound = ValueKind::Compound;
constexpr auto kMessage = ValueKind::Message;
constexpr auto kCustom = ValueKind::Custom;

std::vector<std::string> dividedAtColons(const std::string& text)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t colon = 0; (colon = text.find(':', start)) != std::string::npos; start = colon + 1)
        parts.push_back(text.substr(start, colon - start));
    parts.push_back(text.substr(start));
    return parts;
}

AttributePtr attributeOf(const Row& row)
{
    auto spec = std::make_shared<AttributeSpec>();
    spec->longName = row.longName;
    spec->shortName = row.shortName;
    spec->kind = row.kind;
    spec->defaultNumber = row.defaultNumber;
    spec->minimum = row.minimum;
    spec->maximum = row.maximum;
    spec->parent = row.parent ? row.parent : "";
    spec->writable = !(row.traits & kReadOnly);
    spec->storable = !(row.traits & (kUnstored | kReadOnly));
    spec->hidden = (row.traits & kHidden) != 0;
    spec->keyable = (row.traits & kKeyable) != 0;
    spec->channelBox = (row.traits & kChannelBox) != 0;
    if (row.kind == kEnum)
        spec->enumNames = dividedAtColons(row.text);
    else if (row.kind == kCustom)
        spec->customType = row.text;
    else if (row.text)
        spec->defaultText = row.text;
    return spec;
}

std::vector<AttributePtr> attributesOf(const Rows& rows)
{
    std::vector<AttributePtr> attributes;
    AttributePtr compound;
    for (const Row& row : rows) {
        const AttributePtr attribute = attributeOf(row);
        if (row.kind == kCompound)
            compound = attribute;
        else if (row.parent)
            compound->children.push_back(attribute->longName);
        attributes.push_back(attribute);
    }
    return attributes;
}

/// A compound of three numbers with the ending X, Y and Z, as most of a transform's are.
struct Triple {
    const char* longName;
    const char* shortName;
    ValueKind kind;
    double defaultNumber;
    unsigned traits;
};

std::vector<AttributePtr> attributesOf(const std::vector<Triple>& triples)
{
    std::vector<AttributePtr> attributes;
    for (const Triple& triple : triples) {
        const AttributePtr compound = attributeOf({triple.longName, triple.shortName, kCompound, 0, triple.traits});
        attributes.push_back(compound);
        for (const char* axis : {"X", "Y", "Z"}) {
            const std::string longName = std::string(triple.longName) + axis;
            const std::string shortName = std::string(triple.shortName) + static_cast<char>(*axis - 'A' + 'a');
            attributes.push_back(attributeOf({longName.c_str(), shortName.c_str(), triple.kind, triple.defaultNumber,
                                              triple.traits, triple.longName}));
            compound->children.push_back(longName);
        }
    }
    return attributes;
}

const Rows kDependNode = {
    {"message", "msg", kMessage, 0, kUnstored | kHidden},
    {"caching", "cch", kBool, 0, kHidden},
    {"isHistoricallyInteresting", "ihi", kInt, 2, kHidden, nullptr, 0.0, 2.0},
    {"nodeState",
     "nds",
     kEnum,
     0,
     kPlain,
     nullptr,
     {},
     {},
     "Normal:HasNoEffect:Blocking:Waiting-Normal:Waiting-HasNoEffect:Waiting-Blocking"},
    {"frozen", "fzn", kBool},
};

const Rows kDagNode = {
    {"visibility", "v", kBool, 1, kKeyable},
    {"intermediateObject", "io", kBool},
    {"template", "tmp", kBool},
    {"ghosting", "gh", kBool},
    {"useObjectColor", "uoc", kInt, 0, kPlain, nullptr, 0.0, 2.0},
    {"objectColor", "oc", kInt, 0, kPlain, nullptr, 0.0, 7.0},
    {"overrideEnabled", "ove", kBool},
    {"overrideDisplayType", "ovdt", kEnum, 0, kPlain, nullptr, {}, {}, "Normal:Template:Reference"},
    {"overrideColor", "ovc", kInt, 0, kPlain, nullptr, 0.0, 31.0},
    {"lodVisibility", "lodv", kBool, 1},
    {"hiddenInOutliner", "hio", kBool},
};

const std::vector<Triple> kTransformTriples = {
    {"translate", "t", kDistance, 0, kKeyable},
    {"rotate", "r", kAngle, 0, kKeyable},
    {"scale", "s", kDouble, 1, kKeyable},
    {"rotatePivot", "rp", kDistance, 0, kPlain},
    {"rotatePivotTranslate", "rpt", kDistance, 0, kPlain},
    {"scalePivot", "sp", kDistance, 0, kPlain},
    {"scalePivotTranslate", "spt", kDistance, 0, kPlain},
    {"rotateAxis", "ra", kAngle, 0, kPlain},
};

const Rows kTransform = {
    {"shear", "sh", kCompound},
    {"shearXY", "shxy", kDouble, 0, kPlain, "shear"},
    {"shearXZ", "shxz", kDouble, 0, kPlain, "shear"},
    {"shearYZ", "shyz", kDouble, 0, kPlain, "shear"},
    {"rotateOrder", "ro", kEnum, 0, kPlain, nullptr, {}, {}, "xyz:yzx:zxy:xzy:yxz:zyx"},
    {"inheritsTransform", "it", kBool, 1},
    {"displayHandle", "dh", kBool},
    {"displayLocalAxis", "dla", kBool},
};

// Apertures and pans are inches, the focal length millimetres, distances centimetres.
const Rows kCamera = {
    {"renderable", "rnd", kBool, 1},
    {"cameraAperture", "cap", kCompound},
    {"horizontalFilmAperture", "hfa", kDouble, 1.41732, kKeyable, "cameraAperture", 0.0001, 15.0},
    {"verticalFilmAperture", "vfa", kDouble, 0.94488, kKeyable, "cameraAperture", 0.0001, 15.0},
    {"lensSqueezeRatio", "lsr", kDouble, 1, kKeyable, nullptr, 0.0001},
    {"filmOffset", "fio", kCompound},
    {"horizontalFilmOffset", "hfo", kDouble, 0, kKeyable, "filmOffset"},
    {"verticalFilmOffset", "vfo", kDouble, 0, kKeyable, "filmOffset"},
    {"filmFit", "ff", kEnum, 0, kPlain, nullptr, {}, {}, "fill:horizontal:vertical:overscan"},
    {"filmFitOffset", "ffo", kDouble},
    {"panZoomEnabled", "pze", kBool},
    {"renderPanZoom", "rpz", kBool},
    {"pan", "pn", kCompound},
    {"horizontalPan", "hpn", kDouble, 0, kPlain, "pan"},
    {"verticalPan", "vpn", kDouble, 0, kPlain, "pan"},
    {"zoom", "zom", kDouble, 1, kPlain, nullptr, 0.0001},
    {"overscan", "ovr", kDouble, 1, kPlain, nullptr, 0.0001},
    {"preScale", "psc", kDouble, 1},
    {"postScale", "ptsc", kDouble, 1},
    {"cameraScale", "cs", kDouble, 1, kKeyable, nullptr, 0.0001},
    {"focalLength", "fl", kDouble, 35, kKeyable, nullptr, 2.5, 100000.0},
    {"fStop", "fs", kDouble, 5.6, kKeyable, nullptr, 0.0},
    {"focusDistance", "fd", kDistance, 5, kKeyable},
    {"shutterAngle", "sa", kAngle, 144, kKeyable},
    {"centerOfInterest", "coi", kDistance, 5, kKeyable},
    {"nearClipPlane", "ncp", kDistance, 0.1, kKeyable, nullptr, 0.000001},
    {"farClipPlane", "fcp", kDistance, 10000, kKeyable, nullptr, 0.000001},
    {"orthographic", "o", kBool},
    {"orthographicWidth", "ow", kDistance, 10, kPlain, nullptr, 0.000001},
    {"homeCommand", "hc", kString, 0, kPlain, nullptr, {}, {}, "viewSet -p %camera"},
    {"imageName", "imn", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"depthName", "den", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"maskName", "man", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"tumblePivot", "tp", kCompound},
    {"tumblePivotX", "tpx", kDistance, 0, kPlain, "tumblePivot"},
    {"tumblePivotY", "tpy", kDistance, 0, kPlain, "tumblePivot"},
    {"tumblePivotZ", "tpz", kDistance, 0, kPlain, "tumblePivot"},
    {"usePivotAsLocalSpace", "upl", kBool},
    {"locatorScale", "lls", kDouble, 1, kPlain, nullptr, 0.0},
    {"journalCommand", "jc", kBool},
    {"displayGateMask", "dgm", kBool},
    {"displayGateMaskOpacity", "dgo", kFloat, 0.7, kPlain, nullptr, 0.0, 1.0},
    {"displayFilmGate", "dfg", kBool},
    {"displayResolution", "dr", kBool},
    {"displaySafeAction", "dsa", kBool},
    {"displaySafeTitle", "dst", kBool},
    {"displayFieldChart", "dfc", kBool},
    {"displayFilmPivot", "dfp", kBool},
    {"displayFilmOrigin", "dfo", kBool},
    {"image", "i", kBool, 1},
    {"depth", "d", kBool},
    {"mask", "m", kBool, 1},
};

const std::vector<Triple> kLocator = {
    {"localPosition", "lp", kDistance, 0, kKeyable},
    {"localScale", "ls", kDistance, 1, kKeyable},
};

const Rows kImplicitBox = {
    {"sizeX", "sx", kDistance, 1, kKeyable, nullptr, 0.0},
    {"sizeY", "sy", kDistance, 1, kKeyable, nullptr, 0.0},
    {"sizeZ", "sz", kDistance, 1, kKeyable, nullptr, 0.0},
};

const Rows kImplicitSphere = {{"radius", "rad", kDistance, 1, kKeyable, nullptr, 0.0}};

const Rows kImplicitCone = {
    {"radius", "rad", kDistance, 1, kKeyable, nullptr, 0.0},
    {"height", "h", kDistance, 2, kKeyable, nullptr, 0.0},
};

const Rows kMesh = {{"inMesh", "i", kCustom, 0, kHidden, nullptr, {}, {}, "mesh"}};

// A picture on the film back of the camera it stands under: sizes and offsets are inches there. A number in the file's
// name follows the current time, or a frame extension that is animated, moved by the frame offset, when the frame
// extension is used. Kept for the scenes that hold them, without effect here: depth, frames in, out and to cache, and
// being shown by the current camera only, as every plane is.
const Rows kImagePlane = {
    {"imageName", "imn", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"useFrameExtension", "ufe", kBool},
    {"frameExtension", "fe", kInt, 1, kKeyable},
    {"frameOffset", "fo", kInt, 0, kKeyable},
    {"frameIn", "fin", kInt},
    {"frameOut", "fot", kInt},
    {"frameCache", "fc", kInt, 50, kPlain, nullptr, 0.0},
    {"displayMode", "dm", kEnum, 3, kPlain, nullptr, {}, {}, "None:Outline:RGB:RGBA"},
    {"alphaGain", "ag", kDouble, 1, kKeyable, nullptr, 0.0, 1.0},
    {"depth", "d", kDistance, 100, kKeyable, nullptr, 0.0},
    {"displayOnlyIfCurrent", "dic", kBool},
    {"fit", "f", kEnum, 1, kPlain, nullptr, {}, {}, "Fill:Best:Horizontal:Vertical:To Size"},
    {"size", "s", kCompound},
    {"sizeX", "sx", kDouble, 1.41732, kKeyable, "size", 0.0},
    {"sizeY", "sy", kDouble, 0.94488, kKeyable, "size", 0.0},
    {"offset", "of", kCompound},
    {"offsetX", "ox", kDouble, 0, kKeyable, "offset"},
    {"offsetY", "oy", kDouble, 0, kKeyable, "offset"},
};

const Rows kTimeNode = {
    {"outTime", "o", kTime, 0, kKeyable},
    {"unwarpedTime", "unw", kTime},
    {"enableTimewarp", "etw", kBool},
};

const Rows kRenderGlobals = {
    {"currentRenderer", "ren", kString, 0, kPlain, nullptr, {}, {}, "mayaSoftware"},
    {"imageFormat", "outf", kInt, 7},
    {"imageFilePrefix", "ifp", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"animation", "an", kBool},
    {"animationRange", "ar", kEnum, 0, kPlain, nullptr, {}, {}, "renderGlobals:timeSlider"},
    {"startFrame", "fs", kTime, 1},
    {"endFrame", "ef", kTime, 10},
    {"byFrameStep", "bfs", kFloat, 1},
    {"extensionPadding", "ep", kInt, 1},
};

const Rows kResolution = {
    {"width", "w", kInt, 960, kPlain, nullptr, 1.0},
    {"height", "h", kInt, 540, kPlain, nullptr, 1.0},
    {"pixelAspect", "pa", kFloat, 1, kPlain, nullptr, 0.001},
    {"deviceAspectRatio", "dar", kFloat, 1.7779999971389771, kPlain, nullptr, 0.001},
    {"dotsPerInch", "dpi", kFloat, 72, kPlain, nullptr, 0.001},
    {"lockDeviceAspectRatio", "ldar", kBool},
};

const Rows kScript = {
    {"before", "b", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"after", "a", kString, 0, kPlain, nullptr, {}, {}, ""},
    {"scriptType",
     "st",
     kEnum,
     0,
     kPlain,
     nullptr,
     {},
     {},
     "Demand:Open/Close:GUI Open/Close:UI Configuration:Software Render:Software Frame Render:Scene Configuration:"
     "Time Changed"},
    {"sourceType", "stp", kEnum, 0, kPlain, nullptr, {}, {}, "MEL:Python"},
    {"ignoreReferenceEdits", "ire", kBool},
};

// The keys themselves are no attributes. A tangent type counts for keys of which a scene does not say theirs.
const Rows kAnimCurve = {
    {"tangentType", "tan", kInt},
    {"weightedTangents", "wgt", kBool, 1},
    {"preInfinity", "pre", kInt, 0, kPlain, nullptr, 0.0, 5.0},
    {"postInfinity", "pst", kInt, 0, kPlain, nullptr, 0.0, 5.0},
};

struct CurveType {
    const char* name;
    ChunkId id;
    ValueKind output;
};
const CurveType kCurveTypes[] = {
    {"animCurveTL", chunkId("PCTL"), kDistance},
    {"animCurveTA", chunkId("PCTA"), kAngle},
    {"animCurveTU", chunkId("PCTU"), kDouble},
    {"animCurveTT", chunkId("PCTT"), kTime},
};

void add(NodeTypes& types, const char* name, const char* base, NodeRole role, ChunkId id,
         std::vector<AttributePtr> attributes)
{
    NodeType type;
    type.name = name;
    type.base = base ? types.find(base) : nullptr;
    type.role = role;
    type.id = id;
    type.attributes = std::move(attributes);
    types.add(std::move(type));
}

}  // namespace

void addHostTypes(NodeTypes& types)
{
    const auto dependency = NodeRole::Dependency;
    add(types, "dependNode", nullptr, dependency, chunkId("NODE"), attributesOf(kDependNode));
    add(types, "dagNode", "dependNode", NodeRole::Dag, chunkId("DAGN"), attributesOf(kDagNode));

    std::vector<AttributePtr> transform = attributesOf(kTransformTriples);
    const std::vector<AttributePtr> more = attributesOf(kTransform);
    transform.insert(transform.end(), more.begin(), more.end());
    add(types, "transform", "dagNode", NodeRole::Transform, chunkId("XFRM"), transform);

    add(types, "shape", "dagNode", NodeRole::Shape, chunkId("SHAP"), {});
    add(types, "camera", "shape", NodeRole::Camera, chunkId("DCAM"), attributesOf(kCamera));
    add(types, "locator", "shape", NodeRole::Locator, chunkId("LOCT"), attributesOf(kLocator));
    add(types, "implicitBox", "shape", NodeRole::Shape, chunkId("IBOX"), attributesOf(kImplicitBox));
    add(types, "implicitSphere", "shape", NodeRole::Shape, chunkId("ISPH"), attributesOf(kImplicitSphere));
    add(types, "implicitCone", "shape", NodeRole::Shape, chunkId("ICON"), attributesOf(kImplicitCone));

    add(types, "mesh", "shape", NodeRole::Shape, chunkId("DMSH"), attributesOf(kMesh));
    add(types, "imagePlane", "shape", NodeRole::Shape, chunkId("IMGP"), attributesOf(kImagePlane));

    add(types, "time", "dependNode", dependency, chunkId("TIME"), attributesOf(kTimeNode));
    add(types, "renderGlobals", "dependNode", dependency, chunkId("RNGL"), attributesOf(kRenderGlobals));
    add(types, "resolution", "dependNode", dependency, chunkId("RESL"), attributesOf(kResolution));
    add(types, "script", "dependNode", dependency, chunkId("SCRP"), attributesOf(kScript));

    add(types, "animCurve", "dependNode", dependency, chunkId("PCRV"), attributesOf(kAnimCurve));
    for (const CurveType& curve : kCurveTypes)
        add(types, curve.name, "animCurve", dependency, curve.id,
            attributesOf(Rows{{"output", "o", curve.output, 0, kReadOnly}}));

    add(types, "reference", "dependNode", dependency, chunkId("REFN"), {});

    // What a node of a missing module is kept as, by its place in the graph.
    add(types, "unknown", "dependNode", dependency, chunkId("UNKN"), {});
    add(types, "unknownDag", "shape", NodeRole::Shape, chunkId("UNKD"), {});
    add(types, "unknownTransform", "transform", NodeRole::Transform, chunkId("UNKT"), {});
}

}  // namespace kernel
