#include "kernel/ObjFile.h"

#include "kernel/Command.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kernel {

namespace {

/// One line as it is meant: continued lines joined, comment and end taken off.
class LineReader {
public:
    explicit LineReader(std::string_view text) : m_text(text) {}

    /// False when there are no more.
    bool next()
    {
        if (m_text.empty())
            return false;
        m_line.clear();
        m_number = m_nextNumber;
        while (takePart()) {
        }
        m_line.resize(std::min(m_line.find('#'), m_line.size()));
        return true;
    }
    /// The words of the line; what divides them are blanks.
    std::vector<std::string> words() const
    {
        std::vector<std::string> words;
        std::size_t start = 0;
        while ((start = m_line.find_first_not_of(kBlanks, start)) != std::string::npos) {
            const std::size_t end = std::min(m_line.find_first_of(kBlanks, start), m_line.size());
            words.push_back(m_line.substr(start, end - start));
            start = end;
        }
        return words;
    }
    [[noreturn]] void fail(const std::string& why) const
    {
        throw CommandError("line " + std::to_string(m_number) + ": " + why);
    }

private:
    static constexpr char kBlanks[] = " \t\v\f\r";

    /// Takes one line of the text; true when it goes on in the next.
    bool takePart()
    {
        const std::size_t end = std::min(m_text.find('\n'), m_text.size());
        std::string_view part = m_text.substr(0, end);
        m_text.remove_prefix(std::min(end + 1, m_text.size()));
        ++m_nextNumber;
        if (!part.empty() && part.back() == '\r')
            part.remove_suffix(1);
        const bool goesOn = !part.empty() && part.back() == '\\';
        m_line.append(part.substr(0, part.size() - (goesOn ? 1 : 0)));
        m_line += goesOn ? " " : "";
        return goesOn && !m_text.empty();
    }

    std::string_view m_text;
    std::string m_line;
    std::size_t m_number = 0;  ///< of the line's first part
    std::size_t m_nextNumber = 1;
};

struct Corner {
    int point;
    std::string normal;  ///< as the file says it; empty without one
};

struct Polygon {
    std::vector<Corner> corners;
    bool isSmooth;
};

/// Gathers the polygons of one object, whose points are some of the file's.
class ObjectBuilder {
public:
    explicit ObjectBuilder(std::string name) : m_object{std::move(name), std::make_shared<MeshData>()} {}

    bool isEmpty() const { return m_object.mesh->faces.empty(); }
    ObjObject take() { return std::move(m_object); }

    void add(const Polygon& polygon, const std::vector<Vector3>& points)
    {
        MeshData::Face face;
        for (std::size_t i = 0; i < polygon.corners.size(); ++i) {
            const int from = pointHere(polygon.corners[i].point, points);
            const int to = pointHere(polygon.corners[(i + 1) % polygon.corners.size()].point, points);
            face.push_back(edge(from, to, polygon.isSmooth));
        }
        m_object.mesh->faces.push_back(std::move(face));
    }

private:
    int pointHere(int inFile, const std::vector<Vector3>& points)
    {
        const auto added = m_points.emplace(inFile, int(m_object.mesh->points.size()));
        if (added.second)
            m_object.mesh->points.push_back(points[std::size_t(inFile)]);
        return added.first->second;
    }

    int edge(int from, int to, bool isSmooth)
    {
        std::vector<MeshData::Edge>& edges = m_object.mesh->edges;
        const auto added = m_edges.emplace(std::minmax(from, to), int(edges.size()));
        const int place = added.first->second;
        if (added.second)
            edges.push_back({from, to, isSmooth});
        MeshData::Edge& shared = edges[std::size_t(place)];
        shared.isSmooth = shared.isSmooth && isSmooth;
        return shared.from == from ? place : -(place + 1);
    }

    ObjObject m_object;
    std::map<int, int> m_points;  ///< by place in the file
    std::map<std::pair<int, int>, int> m_edges;
};

class ObjReader {
public:
    explicit ObjReader(std::string_view text) : m_lines(text) {}

    std::vector<ObjObject> read()
    {
        while (m_lines.next()) {
            const std::vector<std::string> words = m_lines.words();
            for (const auto& statement : kStatements) {
                if (!words.empty() && words[0] == statement.word)
                    (this->*statement.read)(words);
            }
        }
        finishObject({});
        return std::move(m_objects);
    }

private:
    using Words = std::vector<std::string>;
    static const struct Statement {
        const char* word;
        void (ObjReader::*read)(const Words& words);
    } kStatements[4];

    void readPoint(const Words& words)
    {
        double xyz[3] = {};
        for (std::size_t i = 0; i < 3; ++i) {
            if (i + 1 >= words.size() || !parseDouble(words[i + 1], xyz[i]))
                m_lines.fail("a point needs three numbers.");
        }
        m_points.push_back({xyz[0], xyz[1], xyz[2]});
    }

    void readObject(const Words& words) { finishObject(words.size() > 1 ? words[1] : std::string()); }

    void readSmoothing(const Words& words)
    {
        m_hasSmoothing = true;
        m_isSmooth = words.size() > 1 && words[1] != "off" && words[1] != "0";
    }

    void readFace(const Words& words)
    {
        if (words.size() < 4)
            m_lines.fail("a face needs three corners.");
        Polygon polygon{{}, m_isSmooth};
        for (std::size_t i = 1; i < words.size(); ++i)
            polygon.corners.push_back(corner(words[i]));
        if (!m_hasSmoothing)
            polygon.isSmooth = hasSeveralNormals(polygon);
        m_builder.add(polygon, m_points);
    }

    /// "point", "point/texture", "point//normal" or "point/texture/normal".
    Corner corner(const std::string& word) const
    {
        const std::size_t first = std::min(word.find('/'), word.size());
        const std::size_t second = word.find('/', std::min(first + 1, word.size()));
        int index = 0;
        if (!parseInt(word.substr(0, first), index) || index == 0)
            m_lines.fail("\"" + word + "\" is no corner of a face.");
        const long long count = static_cast<long long>(m_points.size());
        const long long place = index > 0 ? index - 1LL : count + index;
        if (place < 0 || place >= count)
            m_lines.fail("there is no point " + std::to_string(index) + ".");
        return {int(place), second == std::string::npos ? std::string() : word.substr(second + 1)};
    }

    static bool hasSeveralNormals(const Polygon& polygon)
    {
        const std::string& first = polygon.corners.front().normal;
        return std::any_of(polygon.corners.begin(), polygon.corners.end(),
                           [&first](const Corner& corner) { return corner.normal != first; });
    }

    /// name: of the next.
    void finishObject(std::string name)
    {
        if (!m_builder.isEmpty())
            m_objects.push_back(m_builder.take());
        m_builder = ObjectBuilder(std::move(name));
    }

    LineReader m_lines;
    std::vector<Vector3> m_points;
    ObjectBuilder m_builder{{}};
    std::vector<ObjObject> m_objects;
    bool m_hasSmoothing = false;
    bool m_isSmooth = false;
};

const ObjReader::Statement ObjReader::kStatements[] = {
    {"v", &ObjReader::readPoint},
    {"f", &ObjReader::readFace},
    {"o", &ObjReader::readObject},
    {"s", &ObjReader::readSmoothing},
};

}  // namespace

std::vector<ObjObject> readObj(std::string_view text)
{
    return ObjReader(text).read();
}

}  // namespace kernel
