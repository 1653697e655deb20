#include "kernel/ValueChunks.h"

#include "kernel/BigEndian.h"
#include "kernel/Edits.h"
#include "kernel/PartStream.h"
#include "kernel/Session.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <locale>

namespace kernel {

namespace {

constexpr ChunkId kText = chunkId("STR ");
constexpr ChunkId kFlagsOnly = chunkId("CMPD");  ///< as compounds, which have no value themselves, have them

enum class Form { Double, Float, Int };

struct NumberChunk {
    ChunkId id;
    Form form;
    std::size_t count;
};
// One number is a double, whatever it is to the attribute.
const NumberChunk kNumberChunks[] = {
    {chunkId("DBLE"), Form::Double, 1}, {chunkId("DBL2"), Form::Double, 2}, {chunkId("DBL3"), Form::Double, 3},
    {chunkId("FLT2"), Form::Float, 2},  {chunkId("FLT3"), Form::Float, 3},  {chunkId("LNG2"), Form::Int, 2},
    {chunkId("LNG3"), Form::Int, 3},
};

enum FlagBit : unsigned char { kHasFlags = 1, kLocked = 2, kKeyable = 4, kChannelBox = 8 };

std::size_t sizeOf(Form form)
{
    return form == Form::Double ? sizeof(double) : 4;
}

void appendNumber(std::string& out, Form form, double number)
{
    std::uint64_t bits = 0;
    if (form == Form::Double) {
        std::memcpy(&bits, &number, sizeof number);
    } else if (form == Form::Float) {
        const auto single = static_cast<float>(number);
        std::memcpy(&bits, &single, sizeof single);
    } else {
        bits = static_cast<std::uint32_t>(static_cast<int>(number));
    }
    appendBigEndian(out, bits, sizeOf(form));
}

double numberIn(std::string_view bytes, Form form)
{
    const std::uint64_t bits = bigEndian(bytes);
    const auto half = static_cast<std::uint32_t>(bits);
    if (form == Form::Int)
        return static_cast<std::int32_t>(half);
    if (form == Form::Float) {
        float single = 0;
        std::memcpy(&single, &half, sizeof single);
        return single;
    }
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

std::vector<AttributePtr> childrenOf(const Node& node, const AttributeSpec& attribute)
{
    std::vector<AttributePtr> children;
    for (const std::string& name : attribute.children)
        children.push_back(node.attribute(name));
    return children;
}

// --- writing -------------------------------------------------------------------------------------------------------

/// Whether the flags differ from the attribute's own or from those a new scene gives the node.
bool areFlagsStored(const Node& node, const AttributeSpec& attribute)
{
    return node.hasOwnFlags(attribute) || !(node.flags(attribute) == node.initialFlags(attribute));
}

char flagByte(const Node& node, const AttributeSpec& attribute)
{
    if (!areFlagsStored(node, attribute))
        return 0;
    const PlugFlags flags = node.flags(attribute);
    return static_cast<char>(kHasFlags | (flags.locked ? kLocked : 0) | (flags.keyable ? kKeyable : 0)
                             | (flags.channelBox ? kChannelBox : 0));
}

std::string startOf(const Node& node, const AttributeSpec& attribute)
{
    return attribute.shortName + '\0' + flagByte(node, attribute);
}

void writeFlagsOnly(ChunkWriter& writer, const Node& node, const AttributeSpec& attribute)
{
    if (areFlagsStored(node, attribute))
        writer.chunk(kFlagsOnly, startOf(node, attribute));
}

Form formOf(const AttributeSpec& attribute)
{
    if (attribute.kind == ValueKind::Float)
        return Form::Float;
    return attribute.kind == ValueKind::Int ? Form::Int : Form::Double;
}

/// The chunk that holds all children of a compound; null when there is none.
const NumberChunk* chunkFor(const std::vector<AttributePtr>& children)
{
    if (children.empty())
        return nullptr;
    const Form form = formOf(*children.front());
    const bool isUniform = std::all_of(children.begin(), children.end(), [form](const AttributePtr& child) {
        return isNumber(child->kind) && formOf(*child) == form;
    });
    const auto chunk = std::find_if(std::begin(kNumberChunks), std::end(kNumberChunks), [&](const NumberChunk& one) {
        return one.form == form && one.count == children.size();
    });
    return isUniform && chunk != std::end(kNumberChunks) ? chunk : nullptr;
}

void writeAttribute(ChunkWriter& writer, const Node& node, const AttributeSpec& attribute);

void writeCompound(ChunkWriter& writer, const Node& node, const AttributeSpec& attribute)
{
    const std::vector<AttributePtr> children = childrenOf(node, attribute);
    const NumberChunk* const chunk = chunkFor(children);
    const bool standAlone = std::any_of(children.begin(), children.end(), [&node](const AttributePtr& child) {
        return areFlagsStored(node, *child) || node.isAnimated(*child);
    });
    const bool areStored = std::any_of(children.begin(), children.end(),
                                       [&node](const AttributePtr& child) { return node.isValueStored(*child); });
    if (chunk && areStored && !standAlone) {
        std::string body = startOf(node, attribute);
        for (const AttributePtr& child : children)
            appendNumber(body, chunk->form, std::get<double>(node.value(*child)));
        writer.chunk(chunk->id, body);
        return;
    }
    for (const AttributePtr& child : children)
        writeAttribute(writer, node, *child);
    // Flags of the compound come last: a lock must not keep the children from being read.
    writeFlagsOnly(writer, node, attribute);
}

void writeData(ChunkWriter& writer, const Node& node, const AttributeSpec& attribute)
{
    const PlugValue value = node.value(attribute);
    const auto* const held = std::get_if<std::shared_ptr<CustomData>>(&value);
    if (!held || !*held)
        return writeFlagsOnly(writer, node, attribute);
    CustomData& data = **held;
    writer.beginChunk(data.typeId());
    writer.stream() << startOf(node, attribute);
    std::ostream own(writer.stream().rdbuf());  // in its original state whatever the module does to it
    own.imbue(std::locale::classic());
    // Whoever reads is told the size in 32 bits.
    if (!data.writeBinary(own) || writer.end() > UINT_MAX)
        throw CommandError("The data of '" + node.name() + '.' + attribute.longName + "' could not be written.");
}

void writeAttribute(ChunkWriter& writer, const Node& node, const AttributeSpec& attribute)
{
    if (!attribute.storable || attribute.kind == ValueKind::Message)
        return;
    if (attribute.kind == ValueKind::Compound)
        return writeCompound(writer, node, attribute);
    if (attribute.kind == ValueKind::Custom)
        return writeData(writer, node, attribute);
    if (!node.isValueStored(attribute))
        return writeFlagsOnly(writer, node, attribute);
    std::string body = startOf(node, attribute);
    if (attribute.kind == ValueKind::String) {
        writer.chunk(kText, body + std::get<std::string>(node.value(attribute)));
    } else {
        appendNumber(body, Form::Double, std::get<double>(node.value(attribute)));
        writer.chunk(kNumberChunks[0].id, body);
    }
}

// --- reading -------------------------------------------------------------------------------------------------------

/// One value chunk, taken apart.
class Reading {
public:
    Reading(Session& session, const NodePtr& node, const Chunk& chunk, const PartRead& partRead)
        : m_session(session), m_node(node), m_chunk(chunk), m_partRead(partRead)
    {
        const std::size_t end = chunk.body.find('\0');
        if (end == std::string_view::npos || end + 1 >= chunk.body.size())
            return;
        m_attribute = node->attribute(m_name = std::string(chunk.body.substr(0, end)));
        m_flags = static_cast<unsigned char>(chunk.body[end + 1]);
        m_data = chunk.body.substr(end + 2);
    }

    void apply()
    {
        const auto number = std::find_if(std::begin(kNumberChunks), std::end(kNumberChunks),
                                         [this](const NumberChunk& one) { return one.id == m_chunk.id; });
        const bool isKnown = number != std::end(kNumberChunks) || m_chunk.id == kText || m_chunk.id == kFlagsOnly;
        if (!isKnown && !(m_attribute && m_attribute->kind == ValueKind::Custom))
            return;  // says something this host knows nothing of
        if (!m_attribute)
            throw CommandError("No object matches name: " + plugName());
        // Unlocking comes before the value, locking after it.
        const PlugFlags flags = givenFlags();
        if (!flags.locked)
            m_node->setFlags(*m_attribute, flags);
        if (m_attribute->kind == ValueKind::Custom)
            setData();
        else if (m_chunk.id == kText)
            setText();
        else if (m_chunk.id != kFlagsOnly)
            setNumbers(*number);
        m_node->setFlags(*m_attribute, flags);
    }

private:
    std::string plugName() const { return m_node->name() + '.' + (m_attribute ? m_attribute->longName : m_name); }
    [[noreturn]] void fail() const { throw CommandError("Error reading data of '" + plugName() + "'."); }

    PlugFlags givenFlags() const
    {
        PlugFlags flags = m_node->flags(*m_attribute);
        if (m_flags & kHasFlags) {
            flags.locked = (m_flags & kLocked) != 0;
            flags.keyable = (m_flags & kKeyable) != 0;
            flags.channelBox = (m_flags & kChannelBox) != 0;
        }
        return flags;
    }

    void set(const AttributePtr& attribute, PlugValue value) const
    {
        setValueEdit(m_node, attribute, std::move(value))->redo(m_session.scene);
    }

    void setText() const
    {
        if (m_attribute->kind != ValueKind::String)
            fail();
        set(m_attribute, std::string(m_data));
    }

    void setNumbers(const NumberChunk& chunk) const
    {
        std::vector<AttributePtr> targets{m_attribute};
        if (m_attribute->kind == ValueKind::Compound)
            targets = childrenOf(*m_node, *m_attribute);
        const std::size_t size = sizeOf(chunk.form);
        if (targets.size() != chunk.count || m_data.size() != chunk.count * size
            || !std::all_of(targets.begin(), targets.end(),
                            [](const AttributePtr& one) { return isNumber(one->kind); }))
            fail();
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const double number = numberIn(m_data.substr(i * size, size), chunk.form);
            if (!std::isfinite(number))
                fail();
            set(targets[i], number);
        }
    }

    void setData() const
    {
        if (m_chunk.id == kFlagsOnly)
            return;
        const DataType* const type = m_session.dataTypes.findId(m_chunk.id);
        if (!type || type->name != m_attribute->customType || m_data.size() > UINT_MAX)
            fail();
        const std::shared_ptr<CustomData> data = type->make();
        PartStream in(m_data, m_partRead);
        if (!data || !data->readBinary(in, static_cast<unsigned>(m_data.size())))
            fail();
        set(m_attribute, data);
    }

    Session& m_session;
    const NodePtr& m_node;
    const Chunk& m_chunk;
    const PartRead& m_partRead;
    std::string m_name;
    AttributePtr m_attribute;
    unsigned char m_flags = 0;
    std::string_view m_data;
};

}  // namespace

void writeValues(ChunkWriter& writer, const Node& node)
{
    for (const AttributePtr& attribute : node.type().allAttributes()) {
        if (attribute->parent.empty())
            writeAttribute(writer, node, *attribute);
    }
}

void writeNumber(ChunkWriter& writer, const char* shortName, double number)
{
    std::string body = shortName + std::string(2, '\0');
    appendNumber(body, Form::Double, number);
    writer.chunk(kNumberChunks[0].id, body);
}

void writeText(ChunkWriter& writer, const char* shortName, const std::string& text)
{
    writer.chunk(kText, shortName + std::string(2, '\0') + text);
}

void readValue(Session& session, const NodePtr& node, const Chunk& chunk, const PartRead& partRead)
{
    Reading(session, node, chunk, partRead).apply();
}

}  // namespace kernel
