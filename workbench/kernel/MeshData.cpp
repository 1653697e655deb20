#include "kernel/MeshData.h"

#include "kernel/Arguments.h"
#include "kernel/BigEndian.h"
#include "kernel/ChunkId.h"
#include "kernel/Node.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <istream>
#include <iterator>
#include <ostream>
#include <string_view>

namespace kernel {

namespace {

constexpr ChunkId kMeshId = chunkId("MESH");

// --- text ----------------------------------------------------------------------------------------------------------
//
//   "v" COUNT x y z ...   "e" COUNT from to "hard"|"smooth" ...   "face" "l" COUNT edge ... "l" ...
//
// The parts may come in any order and several times. Normals ("vn") and texture places ("vt", and "lt" in faces) that
// others write are read past.

/// The arguments of a statement from some place on. After the first that does not fit everything fails.
class ArgumentReader {
public:
    ArgumentReader(const Arguments& args, unsigned& next) : m_args(args), m_next(next) {}

    bool isAtEnd() const { return m_next >= m_args.size(); }
    bool hasFailed() const { return m_hasFailed; }
    void fail() { m_hasFailed = true; }

    std::string word()
    {
        if (isAtEnd()) {
            fail();
            return {};
        }
        return toText(m_args.at(m_next++));
    }
    /// Takes the next argument when it is this word.
    bool takes(const char* word)
    {
        const bool isIt = !m_hasFailed && !isAtEnd() && toText(m_args.at(m_next)) == word;
        m_next += isIt ? 1 : 0;
        return isIt;
    }
    double number()
    {
        double result = 0;
        if (m_hasFailed || isAtEnd() || !toDouble(m_args.at(m_next), result)) {
            fail();
            return 0;
        }
        ++m_next;
        return result;
    }
    int whole()
    {
        const double result = number();
        if (!(result >= INT_MIN && result <= INT_MAX))
            fail();
        return m_hasFailed ? 0 : int(result);
    }
    /// A count of things that take so many arguments each: no more than there are arguments.
    std::size_t count(std::size_t argumentsEach)
    {
        const int result = whole();
        if (result < 0 || std::size_t(result) > (m_args.size() - m_next) / argumentsEach)
            fail();
        return m_hasFailed ? 0 : std::size_t(result);
    }

private:
    const Arguments& m_args;
    unsigned& m_next;
    bool m_hasFailed = false;
};

void readPoints(ArgumentReader& in, MeshData& mesh)
{
    for (std::size_t left = in.count(3); left > 0 && !in.hasFailed(); --left) {
        const double x = in.number(), y = in.number(), z = in.number();
        mesh.points.push_back({x, y, z});
    }
}

void readEdges(ArgumentReader& in, MeshData& mesh)
{
    for (std::size_t left = in.count(3); left > 0 && !in.hasFailed(); --left) {
        const int from = in.whole(), to = in.whole();
        const bool isSmooth = in.takes("smooth");
        if (!isSmooth && !in.takes("hard"))
            in.fail();
        mesh.edges.push_back({from, to, isSmooth});
    }
}

/// Rings of edges; texture places at their corners are read past.
void readFaces(ArgumentReader& in, MeshData& mesh)
{
    while (!in.hasFailed()) {
        const bool isRing = in.takes("l");
        if (!isRing && !in.takes("lt"))
            return;
        MeshData::Face face;
        for (std::size_t left = in.count(1); left > 0 && !in.hasFailed(); --left)
            face.push_back(in.whole());
        if (isRing)
            mesh.faces.push_back(std::move(face));
    }
}

void skipTriples(ArgumentReader& in, MeshData&)
{
    for (std::size_t left = in.count(3) * 3; left > 0 && !in.hasFailed(); --left)
        in.number();
}

void skipPairs(ArgumentReader& in, MeshData&)
{
    for (std::size_t left = in.count(2) * 2; left > 0 && !in.hasFailed(); --left)
        in.number();
}

const struct {
    const char* word;
    void (*read)(ArgumentReader& in, MeshData& mesh);
} kParts[] = {
    {"v", readPoints}, {"vn", skipTriples}, {"vt", skipPairs}, {"e", readEdges}, {"face", readFaces},
};

bool readPart(ArgumentReader& in, MeshData& mesh)
{
    for (const auto& part : kParts) {
        if (in.takes(part.word)) {
            part.read(in, mesh);
            return !in.hasFailed();
        }
    }
    return false;
}

// --- bytes ---------------------------------------------------------------------------------------------------------
//
// Big-endian: the number of points, edges and faces, then points (three doubles), edges (from, to, 1 for smooth) and
// faces (number of edges, edges); whole numbers have 32 bits.

void appendInt(std::string& out, std::size_t number)
{
    appendBigEndian(out, std::uint32_t(number), 4);
}

void appendDouble(std::string& out, double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof number);
    appendBigEndian(out, bits, sizeof number);
}

/// Numbers of a text of bytes; after its end they are 0 and it has failed.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : m_bytes(bytes) {}

    bool hasFailed() const { return m_hasFailed; }
    bool isAtEnd() const { return m_bytes.empty(); }
    int whole() { return int(std::uint32_t(taken(4))); }
    double number()
    {
        const std::uint64_t bits = taken(sizeof(double));
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }
    /// A count of things of so many bytes each at least: no more than there are bytes.
    std::size_t count(std::size_t bytesEach)
    {
        const int result = whole();
        m_hasFailed = m_hasFailed || result < 0 || std::size_t(result) > m_bytes.size() / bytesEach;
        return m_hasFailed ? 0 : std::size_t(result);
    }

private:
    std::uint64_t taken(std::size_t size)
    {
        if (m_hasFailed || m_bytes.size() < size) {
            m_hasFailed = true;
            return 0;
        }
        const std::uint64_t bits = bigEndian(m_bytes.substr(0, size));
        m_bytes.remove_prefix(size);
        return bits;
    }

    std::string_view m_bytes;
    bool m_hasFailed = false;
};

}  // namespace

// --- content -------------------------------------------------------------------------------------------------------

bool MeshData::isEdge(int edge) const
{
    const long long place = edge >= 0 ? edge : -(edge + 1LL);
    return place < static_cast<long long>(edges.size());
}

bool MeshData::isWhole() const
{
    const auto isPoint = [this](int place) { return place >= 0 && std::size_t(place) < points.size(); };
    const bool arePoints = std::all_of(points.begin(), points.end(), [](const Vector3& p) {
        return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
    });
    const bool areEdges = std::all_of(edges.begin(), edges.end(),
                                      [&](const Edge& edge) { return isPoint(edge.from) && isPoint(edge.to); });
    const auto isRing = [this](const Face& face) {
        if (face.size() < 3 || !std::all_of(face.begin(), face.end(), [this](int edge) { return isEdge(edge); }))
            return false;
        for (std::size_t i = 0; i < face.size(); ++i) {
            if (end(face[i]) != start(face[(i + 1) % face.size()]))
                return false;
        }
        return true;
    };
    return arePoints && areEdges && std::all_of(faces.begin(), faces.end(), isRing);
}

std::vector<int> MeshData::corners(const Face& face) const
{
    std::vector<int> corners;
    corners.reserve(face.size());
    for (const int edge : face)
        corners.push_back(start(edge));
    return corners;
}

std::uint32_t MeshData::typeId() const
{
    return kMeshId;
}

std::shared_ptr<CustomData> MeshData::copy() const
{
    return std::make_shared<MeshData>(*this);
}

// --- text ----------------------------------------------------------------------------------------------------------

bool MeshData::writeText(std::ostream& out)
{
    out << "\n\t\t\"v\" " << points.size();
    for (const Vector3& p : points)
        out << "\n\t\t" << exactNumberText(p.x) << ' ' << exactNumberText(p.y) << ' ' << exactNumberText(p.z);
    out << "\n\t\t\"e\" " << edges.size();
    for (const Edge& edge : edges)
        out << "\n\t\t" << edge.from << ' ' << edge.to << (edge.isSmooth ? " \"smooth\"" : " \"hard\"");
    for (const Face& face : faces) {
        out << "\n\t\t\"face\" \"l\" " << face.size();
        for (const int edge : face)
            out << ' ' << edge;
    }
    out << ' ';
    return bool(out);
}

bool MeshData::readText(const Arguments& args, unsigned& next)
{
    ArgumentReader in(args, next);
    while (!in.isAtEnd()) {
        if (!readPart(in, *this))
            return false;
    }
    return isWhole();
}

// --- bytes ---------------------------------------------------------------------------------------------------------

bool MeshData::writeBinary(std::ostream& out)
{
    std::string bytes;
    for (const std::size_t count : {points.size(), edges.size(), faces.size()})
        appendInt(bytes, count);
    for (const Vector3& p : points) {
        for (const double number : {p.x, p.y, p.z})
            appendDouble(bytes, number);
    }
    for (const Edge& edge : edges) {
        for (const int number : {edge.from, edge.to, int(edge.isSmooth)})
            appendInt(bytes, std::size_t(number));
    }
    for (const Face& face : faces) {
        appendInt(bytes, face.size());
        for (const int edge : face)
            appendBigEndian(bytes, std::uint32_t(edge), 4);
    }
    out.write(bytes.data(), std::streamsize(bytes.size()));
    return bool(out);
}

bool MeshData::readBinary(std::istream& in, unsigned length)
{
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    bytes.resize(std::min<std::size_t>(bytes.size(), length));
    ByteReader reader(bytes);
    points.resize(reader.count(24));
    edges.resize(reader.count(12));
    faces.resize(reader.count(4));
    for (Vector3& p : points) {
        p.x = reader.number();
        p.y = reader.number();
        p.z = reader.number();
    }
    for (Edge& edge : edges) {
        edge.from = reader.whole();
        edge.to = reader.whole();
        edge.isSmooth = reader.whole() != 0;
    }
    for (Face& face : faces) {
        face.resize(reader.count(4));
        for (int& edge : face)
            edge = reader.whole();
    }
    return !reader.hasFailed() && reader.isAtEnd() && isWhole();
}

// -------------------------------------------------------------------------------------------------------------------

std::shared_ptr<const MeshData> meshDataOf(const Node& node)
{
    const AttributePtr attribute = node.type().isA("mesh") ? node.attribute("inMesh") : nullptr;
    if (!attribute)
        return nullptr;
    const PlugValue value = node.value(*attribute);
    const auto* const held = std::get_if<std::shared_ptr<CustomData>>(&value);
    return held ? std::dynamic_pointer_cast<const MeshData>(*held) : nullptr;
}

void addHostDataTypes(DataTypes& types)
{
    types.add({"mesh", kMeshId, [] { return std::make_shared<MeshData>(); }, {}});
}

}  // namespace kernel
