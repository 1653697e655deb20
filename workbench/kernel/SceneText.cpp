#include "kernel/SceneText.h"

#include "kernel/Command.h"
#include "kernel/Scene.h"

#include <algorithm>
#include <ios>
#include <locale>
#include <ostream>

namespace kernel {

namespace {

/// Lines of a text are gathered into pieces of a long string of at least this many characters ...
constexpr std::size_t kPieceLength = 80;
/// ... and more for a very long one: the pieces become one expression, which should not grow without end.
constexpr std::size_t kMostPieces = 200;

/// A module's data is written with a stream in its original state, whatever was done to it before.
class FreshFormat {
public:
    explicit FreshFormat(std::ostream& out) : m_out(out), m_saved(nullptr), m_locale(out.getloc())
    {
        m_saved.copyfmt(out);
        const std::ios fresh(nullptr);
        m_out.copyfmt(fresh);
        m_out.imbue(std::locale::classic());
    }
    ~FreshFormat()
    {
        m_out.copyfmt(m_saved);
        m_out.imbue(m_locale);
    }
    FreshFormat(const FreshFormat&) = delete;
    FreshFormat& operator=(const FreshFormat&) = delete;

private:
    std::ostream& m_out;
    std::ios m_saved;
    const std::locale m_locale;
};

void appendEscaped(std::string& out, const std::string& text, std::size_t start, std::size_t end)
{
    for (std::size_t i = start; i < end; ++i) {
        switch (text[i]) {
        case '\\': out += "\\\\"; break;
        case '"': out += "\\\""; break;
        case '\n': out += "\\n"; break;
        case '\t': out += "\\t"; break;
        case '\r': out += "\\r"; break;
        default: out += text[i];
        }
    }
}

/// One literal, or for a text of several long lines a sum of literals in parentheses, one a line.
std::string stringExpression(const std::string& text)
{
    const std::size_t shortest = std::max(kPieceLength, text.size() / kMostPieces);
    std::string sum;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', std::min(start + shortest, text.size()));
        end = end == std::string::npos ? text.size() : end + 1;
        sum += start == 0 ? "\n\t\t\"" : "\n\t\t+ \"";
        appendEscaped(sum, text, start, end);
        sum += '"';
        if (start == 0 && end == text.size())
            return quotedText(text);
        start = end;
    }
    return sum.empty() ? "\"\"" : '(' + sum + ')';
}

std::string numberOf(const Node& node, const AttributeSpec& attribute)
{
    return exactNumberText(std::get<double>(node.value(attribute)));
}

/// "double3" and the like; empty when the children have no such form.
std::string compoundType(const std::vector<AttributePtr>& children)
{
    if (children.size() < 2 || children.size() > 3)
        return {};
    std::string type;
    for (const AttributePtr& child : children) {
        std::string element;
        switch (child->kind) {
        case ValueKind::Double:
        case ValueKind::Distance:
        case ValueKind::Angle: element = "double"; break;
        case ValueKind::Float: element = "float"; break;
        case ValueKind::Int: element = "long"; break;
        default: return {};
        }
        if (!type.empty() && type != element)
            return {};
        type = element;
    }
    return type + std::to_string(children.size());
}

/// " -l on -k off" for what differs from the attribute's own flags or from those a new scene gives the node.
std::string flagText(const Node& node, const AttributeSpec& attribute)
{
    const PlugFlags now = node.flags(attribute);
    const PlugFlags first = node.initialFlags(attribute);
    const auto text = [](const char* flag, bool now, bool own, bool first) {
        return now == own && now == first ? std::string() : std::string(flag) + (now ? " on" : " off");
    };
    return text(" -l", now.locked, false, first.locked) + text(" -k", now.keyable, attribute.keyable, first.keyable)
         + text(" -cb", now.channelBox, attribute.channelBox, first.channelBox);
}

void writeStart(std::ostream& out, const std::string& flags, const AttributeSpec& attribute)
{
    out << "\tsetAttr" << flags << " \"." << attribute.shortName << '"';
}

void writeCustom(std::ostream& out, const Node& node, const AttributeSpec& attribute, const std::string& flags)
{
    const PlugValue value = node.value(attribute);
    const auto* data = std::get_if<std::shared_ptr<CustomData>>(&value);
    if (!data || !*data) {
        if (!flags.empty()) {
            writeStart(out, flags, attribute);
            out << ";\n";
        }
        return;
    }
    writeStart(out, flags, attribute);
    out << " -type " << quotedText((*data)->typeName()) << ' ';
    bool ok = false;
    {
        const FreshFormat fresh(out);
        ok = (*data)->writeText(out);
    }
    if (!ok)
        throw CommandError("The data of '" + node.name() + '.' + attribute.longName + "' could not be written.");
    out << ";\n";
}

void writeCompound(std::ostream& out, const Node& node, const AttributeSpec& attribute, const std::string& flags)
{
    std::vector<AttributePtr> children;
    for (const std::string& name : attribute.children)
        children.push_back(node.attribute(name));
    const auto standsAlone = [&node](const AttributePtr& child) {
        return !flagText(node, *child).empty() || node.isAnimated(*child);
    };
    const auto isStored = [&node](const AttributePtr& child) { return node.isValueStored(*child); };
    const std::string type = compoundType(children);
    const bool inOne = !type.empty() && std::none_of(children.begin(), children.end(), standsAlone);
    const bool stored = inOne && std::any_of(children.begin(), children.end(), isStored);
    if (!inOne) {
        for (const AttributePtr& child : children)
            writeAttribute(out, node, *child);
    }
    // Flags of the compound come last: a lock must not keep the children from being read.
    if (!stored && flags.empty())
        return;
    writeStart(out, flags, attribute);
    if (stored) {
        out << " -type \"" << type << '"';
        for (const AttributePtr& child : children)
            out << ' ' << numberOf(node, *child);
        out << ' ';
    }
    out << ";\n";
}

std::string changedFlags(const Node& node, const AttributeSpec& attribute)
{
    const PlugFlags now = node.flags(attribute);
    const PlugFlags first = node.initialFlags(attribute);
    const auto text = [](const char* flag, bool now, bool first) {
        return now == first ? std::string() : std::string(flag) + (now ? " on" : " off");
    };
    return text(" -l", now.locked, first.locked) + text(" -k", now.keyable, first.keyable)
         + text(" -cb", now.channelBox, first.channelBox);
}

/// The value behind the plug of a setAttr, with a blank in front.
std::string valueText(const Node& node, const AttributeSpec& attribute)
{
    if (attribute.kind == ValueKind::Bool)
        return std::get<double>(node.value(attribute)) != 0 ? " yes" : " no";
    if (isNumber(attribute.kind))
        return ' ' + numberOf(node, attribute);
    return " -type \"string\" " + stringExpression(std::get<std::string>(node.value(attribute)));
}

void addChange(const Node& node, const AttributeSpec& attribute, std::vector<AttributeChange>& changes)
{
    if (attribute.storable && attribute.kind != ValueKind::Custom && node.isChanged(attribute))
        changes.push_back({attribute.longName, changedFlags(node, attribute)
                                                   + (node.isAnimated(attribute) ? "" : valueText(node, attribute))});
}

/// A compound whose children only changed in value is set as one, unless one of them is locked and would refuse that.
void addCompoundChange(const Node& node, const AttributeSpec& attribute, std::vector<AttributeChange>& changes)
{
    std::vector<AttributePtr> children;
    for (const std::string& name : attribute.children)
        children.push_back(node.attribute(name));
    const std::string flags = changedFlags(node, attribute);
    const std::string type = compoundType(children);
    const bool isSplit =
        type.empty() || std::any_of(children.begin(), children.end(), [&](const AttributePtr& child) {
            return node.flags(*child).locked || node.isAnimated(*child) || !changedFlags(node, *child).empty();
        });
    std::string values;
    if (isSplit) {
        for (const AttributePtr& child : children)
            addChange(node, *child, changes);
    } else if (std::any_of(children.begin(), children.end(),
                           [&](const AttributePtr& child) { return node.isChanged(*child); })) {
        values = " -type \"" + type + '"';
        for (const AttributePtr& child : children)
            values += ' ' + numberOf(node, *child);
    }
    if (!flags.empty() || !values.empty())
        changes.push_back({attribute.longName, flags + values});
}

}  // namespace

std::string quotedText(const std::string& text)
{
    std::string quoted = "\"";
    appendEscaped(quoted, text, 0, text.size());
    quoted += '"';
    return quoted;
}

std::string trimmedStatement(const std::string& statement)
{
    const char* const blanks = " \t\r\n";
    const std::size_t start = statement.find_first_not_of(blanks);
    if (start == std::string::npos)
        return {};
    const std::size_t end = statement.find_last_not_of(blanks);
    return statement.substr(start, end - start + 1) + (statement[end] == ';' ? "" : ";");
}

NodeHead headOf(const Scene& scene, const Node& node)
{
    const std::string parent = node.parent() ? scene.partialPath(*node.parent()) : node.absentParent;
    return {node.typeName(), node.name(), parent, node.uid(), node.shared};
}

std::string headText(const NodeHead& head)
{
    std::string text = "createNode " + (Scene::isLegalName(head.type) ? head.type : quotedText(head.type));
    text += (head.shared ? " -s -n " : " -n ") + quotedText(head.name);
    if (!head.parent.empty())
        text += " -p " + quotedText(head.parent);
    text += ";\n";
    return head.uid.empty() ? text : text + "\trename -uid " + quotedText(head.uid) + ";\n";
}

void writeAttributes(std::ostream& out, const Node& node)
{
    for (const AttributePtr& attribute : node.type().allAttributes()) {
        if (attribute->parent.empty())
            writeAttribute(out, node, *attribute);
    }
}

void writeKept(std::ostream& out, const Node& node)
{
    for (const std::string& statement : node.unknownStatements)
        out << '\t' << trimmedStatement(statement) << '\n';
}

void writeAttribute(std::ostream& out, const Node& node, const AttributeSpec& attribute)
{
    if (!attribute.storable || attribute.kind == ValueKind::Message)
        return;
    const std::string flags = flagText(node, attribute);
    if (attribute.kind == ValueKind::Compound) {
        writeCompound(out, node, attribute, flags);
        return;
    }
    if (attribute.kind == ValueKind::Custom) {
        writeCustom(out, node, attribute, flags);
        return;
    }
    const bool stored = node.isValueStored(attribute);
    if (!stored && flags.empty())
        return;
    writeStart(out, flags, attribute);
    out << (stored ? valueText(node, attribute) : std::string()) << ";\n";
}

std::vector<AttributeChange> changesOf(const Node& node)
{
    std::vector<AttributeChange> changes;
    for (const AttributePtr& attribute : node.type().allAttributes()) {
        if (attribute->kind == ValueKind::Compound)
            addCompoundChange(node, *attribute, changes);
        else if (attribute->parent.empty() && attribute->kind != ValueKind::Message)
            addChange(node, *attribute, changes);
    }
    return changes;
}

}  // namespace kernel
