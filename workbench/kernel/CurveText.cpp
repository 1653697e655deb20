#include "kernel/CurveText.h"

#include "kernel/Command.h"
#include "kernel/Keying.h"
#include "kernel/Scene.h"
#include "kernel/SceneText.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace kernel {

namespace {

/// Statements pass this column only with a token that is longer by itself.
constexpr std::size_t kLineLength = 100;

enum class Content { Keys, InTangents, OutTangents, Kept };

struct KeyAttribute {
    const char* longName;
    const char* shortName;
    Content content;
};
const KeyAttribute kKeyAttributes[] = {
    {"keyTimeValue", "ktv", Content::Keys},
    {"keyTanInType", "kit", Content::InTangents},
    {"keyTanOutType", "kot", Content::OutTangents},
    {"keyTanInX", "kix", Content::Kept},
    {"keyTanInY", "kiy", Content::Kept},
    {"keyTanOutX", "kox", Content::Kept},
    {"keyTanOutY", "koy", Content::Kept},
    {"keyTanLocked", "ktl", Content::Kept},
    {"keyWeightLocked", "kwl", Content::Kept},
    {"keyBreakdown", "kbd", Content::Kept},
};

const KeyAttribute* keyAttribute(const std::string& name)
{
    for (const KeyAttribute& row : kKeyAttributes) {
        if (name == row.longName || name == row.shortName)
            return &row;
    }
    return nullptr;
}

/// Elements of a plug, both ends included.
struct Elements {
    std::string attribute;
    int first = 0;
    int last = 0;
};

/// Takes ".ktv[0:3]" or ".ktv[2]" apart; false for anything else.
bool parseElements(const std::string& plug, Elements& elements)
{
    const std::size_t open = plug.find('[');
    if (open == std::string::npos || plug.back() != ']')
        return false;
    elements.attribute = plug.substr(1, open - 1);
    const std::string inside = plug.substr(open + 1, plug.size() - open - 2);
    const std::size_t colon = inside.find(':');
    if (!parseInt(inside.substr(0, colon), elements.first))
        return false;
    elements.last = elements.first;
    if (colon != std::string::npos && !parseInt(inside.substr(colon + 1), elements.last))
        return false;
    return elements.first >= 0 && elements.last >= elements.first;
}

/// What keys have of which a scene does not say it.
int usualTangent(const Node& node)
{
    const int tangent = static_cast<int>(node.number("tangentType"));
    return tangent > 0 ? tangent : kLinearTangent;
}

/// `setAttr -s 2 ".ktv[0:1]"  1 0 24 1;`
void writeElements(std::ostream& out, const char* attribute, std::size_t count, const std::vector<std::string>& values)
{
    std::string line = "\tsetAttr";
    if (count > 1)
        line += " -s " + std::to_string(count);
    line += std::string(" \".") + attribute + "[0";
    if (count > 1)
        line += ':' + std::to_string(count - 1);
    line += "]\" ";
    out << line;
    std::size_t column = line.size();
    for (const std::string& value : values) {
        const bool wraps = column + value.size() > kLineLength;
        out << (wraps ? "\n\t\t" : " ") << value;
        column = (wraps ? 2 : column + 1) + value.size();
    }
    out << ";\n";
}

void writeTangents(std::ostream& out, const char* attribute, const std::vector<CurveKey>& keys, int CurveKey::*tangent,
                   int usual)
{
    std::vector<std::string> texts;
    bool isUsual = true;
    for (const CurveKey& key : keys) {
        isUsual = isUsual && key.*tangent == usual;
        texts.push_back(std::to_string(key.*tangent));
    }
    if (!isUsual)
        writeElements(out, attribute, keys.size(), texts);
}

/// Does what connectionStatement() says; false when that is not possible, or it is another statement.
bool connectBy(const Scene& scene, const std::string& statement)
{
    std::vector<std::string> parts;  // those in quotes are every other one
    std::size_t start = 0;
    for (std::size_t end = 0; (end = statement.find('"', start)) != std::string::npos; start = end + 1)
        parts.push_back(statement.substr(start, end - start));
    if (parts.size() != 4 || parts[0] != "connectAttr ")
        return false;
    const Plug source = findPlug(scene, parts[1]);
    const Plug driven = findPlug(scene, parts[3]);
    if (!isCurveOutput(source) || !driven.node || !canBeAnimated(*driven.node, *driven.attribute)
        || driven.node->isAnimated(*driven.attribute))
        return false;
    driven.node->setCurve(driven.attribute, source.node);
    return true;
}

/// The elements a setAttr gives a curve, put into its keys.
class KeyReading {
public:
    KeyReading(const Scene& scene, Node& node, const ValueList& values) : m_scene(scene), m_node(node), m_values(values)
    {}

    void readKeys(const Elements& elements) const
    {
        expectValues(elements, 2);
        if (static_cast<std::size_t>(elements.first) != m_node.curve()->keys().size())
            fail("key number " + std::to_string(elements.first) + " does not follow the last one.");
        const int tangent = usualTangent(m_node);
        std::vector<CurveKey> keys;
        for (std::size_t i = 0; i < m_values.size(); i += 2) {
            const double ticks = Time{number(i), m_scene.timeUnit()}.ticks();
            if (!std::isfinite(ticks))
                fail("the time " + toText(m_values[i]) + " is out of range.");
            keys.push_back({ticks, number(i + 1), tangent, tangent});
        }
        bool isInOrder = false;
        m_node.changeCurve([&](AnimCurve& curve) { isInOrder = curve.append(keys); });
        if (!isInOrder)
            fail("their times do not ascend.");
    }

    void readTangents(const Elements& elements, bool areIn) const
    {
        expectValues(elements, 1);
        if (static_cast<std::size_t>(elements.last) >= m_node.curve()->keys().size())
            fail("there is no key number " + std::to_string(elements.last) + '.');
        std::vector<int> tangents(m_values.size());
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            if (!toInt(m_values[i], tangents[i]) || tangents[i] < 0)
                fail("'" + toText(m_values[i]) + "' is no type of tangent.");
        }
        m_node.changeCurve([&](AnimCurve& curve) {
            for (std::size_t i = 0; i < tangents.size(); ++i) {
                const std::size_t index = static_cast<std::size_t>(elements.first) + i;
                const CurveKey key = curve.keys()[index];
                curve.setTangents(index, areIn ? tangents[i] : key.inTangent, areIn ? key.outTangent : tangents[i]);
            }
        });
    }

private:
    [[noreturn]] void fail(const std::string& why) const
    {
        throw CommandError("The keys of '" + m_node.name() + "' cannot be read: " + why);
    }

    void expectValues(const Elements& elements, std::size_t each) const
    {
        const std::size_t count = static_cast<std::size_t>(elements.last - elements.first) + 1;
        if (m_values.size() / each != count || m_values.size() % each != 0)
            fail(std::to_string(count * each) + " values are needed, " + std::to_string(m_values.size())
                 + " are there.");
    }

    double number(std::size_t place) const
    {
        double number = 0;
        if (!toDouble(m_values[place], number) || !std::isfinite(number))
            fail("'" + toText(m_values[place]) + "' is no number.");
        return number;
    }

    const Scene& m_scene;
    Node& m_node;
    const ValueList& m_values;
};

}  // namespace

void writeKeys(std::ostream& out, const Scene& scene, const Node& node)
{
    const AnimCurve* const curve = node.curve();
    if (!curve || curve->isEmpty())
        return;
    std::vector<std::string> texts;
    for (const CurveKey& key : curve->keys()) {
        texts.push_back(exactNumberText(key.ticks / ticksPerUnit(scene.timeUnit())));
        texts.push_back(exactNumberText(key.value));
    }
    writeElements(out, "ktv", curve->keys().size(), texts);
    const int usual = usualTangent(node);
    writeTangents(out, "kit", curve->keys(), &CurveKey::inTangent, usual);
    writeTangents(out, "kot", curve->keys(), &CurveKey::outTangent, usual);
    for (const std::string& statement : curve->statements)
        out << '\t' << trimmedStatement(statement) << '\n';
}

bool isKeyAttribute(const std::string& attribute)
{
    return keyAttribute(attribute) != nullptr;
}

void readKeys(const Scene& scene, Node& node, const std::string& plug, const ValueList& values,
              const std::string& statement)
{
    Elements elements;
    const KeyAttribute* const attribute = parseElements(plug, elements) ? keyAttribute(elements.attribute) : nullptr;
    if (!attribute)
        throw CommandError("No object matches name: " + node.name() + plug);
    const KeyReading reading(scene, node, values);
    switch (attribute->content) {
    case Content::Keys: return reading.readKeys(elements);
    case Content::InTangents: return reading.readTangents(elements, true);
    case Content::OutTangents: return reading.readTangents(elements, false);
    case Content::Kept: node.changeCurve([&](AnimCurve& curve) { curve.statements.push_back(statement); });
    }
}

Plug findPlug(const Scene& scene, const std::string& name)
{
    try {
        const auto found = scene.findPlug(name);
        return {found.first, found.second};
    } catch (const CommandError&) {
        return {};
    }
}

std::string connectionStatement(const Scene& scene, const Plug& driven)
{
    const Node& curve = *driven.node->curveOf(*driven.attribute);
    return "connectAttr " + quotedText(scene.partialPath(curve) + ".o") + ' '
         + quotedText(scene.partialPath(*driven.node) + '.' + driven.attribute->shortName) + ';';
}

void connectKept(Scene& scene)
{
    std::vector<std::string>& kept = scene.keptStatements;
    kept.erase(std::remove_if(kept.begin(), kept.end(),
                              [&scene](const std::string& statement) { return connectBy(scene, statement); }),
               kept.end());
}

std::vector<std::string> connectionStatements(const Scene& scene)
{
    std::vector<std::string> statements;
    for (const NodePtr& node : scene.nodes()) {
        for (const AttributePtr& attribute : node->animatedAttributes()) {
            if (!node->referenced || !node->curveOf(*attribute)->referenced)
                statements.push_back(connectionStatement(scene, {node, attribute}));
        }
    }
    // Nodes come back in another order than they were made: a scene read and written again says the same.
    std::sort(statements.begin(), statements.end());
    return statements;
}

}  // namespace kernel
