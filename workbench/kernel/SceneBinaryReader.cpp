#include "kernel/SceneBinaryReader.h"

#include "kernel/BigEndian.h"
#include "kernel/SceneChunks.h"
#include "kernel/Session.h"
#include "kernel/ValueChunks.h"

#include <algorithm>
#include <utility>

namespace kernel {

namespace {

/// The owner of the bytes is told after so many that they are done with.
constexpr std::size_t kPartSize = 8 << 20;

/// Texts that end with a zero each, from the front.
std::string takeText(std::string_view& texts)
{
    const std::size_t end = std::min(texts.find('\0'), texts.size());
    std::string text(texts.substr(0, end));
    texts.remove_prefix(std::min(end + 1, texts.size()));
    return text;
}

bool isHeadChunk(ChunkId id)
{
    return id == chunk::kCreate || id == chunk::kNodeFlags || id == chunk::kUid || id == chunk::kTypeName;
}

/// A name for a type that is known by its identifier only.
std::string nameOfType(ChunkId id)
{
    std::string name;
    appendBigEndian(name, id, sizeof id);
    if (Scene::isLegalName(name))
        return name;
    name = "type";
    for (int shift = 28; shift >= 0; shift -= 4)
        name += "0123456789abcdef"[id >> shift & 15];
    return name;
}

}  // namespace

bool isBinaryScene(std::string_view bytes)
{
    return bytes.size() >= kChunkHeadSize + kGroupTypeSize && bytes.substr(0, 4) == "FOR8"
        && bytes.substr(kChunkHeadSize, kGroupTypeSize) == "Maya";
}

const SceneBinaryReader::Row SceneBinaryReader::kSections[] = {
    {chunk::kHead, &SceneBinaryReader::readHead},
    {chunk::kReferences, &SceneBinaryReader::readReferences},
    {chunk::kSelect, &SceneBinaryReader::readDefaultNode},
    {chunk::kLinks, &SceneBinaryReader::readLinks},
};

const SceneBinaryReader::Row SceneBinaryReader::kHeadChunks[] = {
    {chunk::kModule, &SceneBinaryReader::requireModule},  {chunk::kLengthUnit, &SceneBinaryReader::setUnit},
    {chunk::kAngleUnit, &SceneBinaryReader::setUnit},     {chunk::kTimeUnit, &SceneBinaryReader::setUnit},
    {chunk::kFileInfo, &SceneBinaryReader::keepFileInfo}, {chunk::kStatements, &SceneBinaryReader::runStatements},
};

const SceneBinaryReader::Row SceneBinaryReader::kReferenceChunks[] = {
    {chunk::kReferenceDepth, &SceneBinaryReader::runStatements},
    {chunk::kReferences, &SceneBinaryReader::runStatements},
};

const SceneBinaryReader::Row SceneBinaryReader::kLinkChunks[] = {
    {chunk::kStatements, &SceneBinaryReader::runStatements},
};

SceneBinaryReader::SceneBinaryReader(Session& session, std::string_view bytes, SceneIntake& intake, PartRead partRead)
    : m_session(session), m_bytes(bytes), m_intake(intake), m_partRead(std::move(partRead))
{}

bool SceneBinaryReader::read()
{
    m_statements = m_session.script().beginScene(m_intake);
    Chunk scene;
    if (!ChunkReader(m_bytes).next(scene)) {
        report("The file is damaged: it holds no scene.");
    } else {
        std::size_t done = 0;
        visit(scene.body, "the scene", [&](const Chunk& section) {
            readSection(section);
            const auto end = static_cast<std::size_t>(section.whole.data() + section.whole.size() - m_bytes.data());
            if (end - done < kPartSize || !m_partRead)
                return;
            m_partRead(m_bytes.substr(0, done = end));
        });
        if (scene.isCut)
            report("The file ends in the middle of the scene.");
    }
    m_statements.reset();
    return m_ok;
}

template <typename Visit>
void SceneBinaryReader::visit(std::string_view chunks, const std::string& place, const Visit& visit)
{
    ChunkReader reader(chunks);
    Chunk chunk;
    while (reader.next(chunk)) {
        // Of a group what is there can be used; half a value is none.
        if (!chunk.isCut || chunk.isGroup())
            visit(chunk);
    }
    if (reader.isDamaged())
        report("The file is damaged: something in " + place + " is left out.");
}

template <std::size_t count>
void SceneBinaryReader::readEach(const Chunk& group, const Row (&rows)[count])
{
    visit(group.body, "'" + nameOfType(group.type) + "'", [&](const Chunk& chunk) {
        for (const Row& row : rows) {
            if (row.id == chunk.id)
                (this->*row.read)(chunk);
        }
    });
}

void SceneBinaryReader::readSection(const Chunk& group)
{
    if (!group.isGroup())
        return;
    for (const Row& row : kSections) {
        if (row.id == group.type)
            return (this->*row.read)(group);
    }
    if (group.id == kGroup)
        readNode(group);
}

void SceneBinaryReader::readHead(const Chunk& group)
{
    readEach(group, kHeadChunks);
}

void SceneBinaryReader::readReferences(const Chunk& group)
{
    readEach(group, kReferenceChunks);
}

void SceneBinaryReader::readLinks(const Chunk& group)
{
    readEach(group, kLinkChunks);
}

void SceneBinaryReader::requireModule(const Chunk& chunk)
{
    std::string_view texts = chunk.body;
    const std::string name = takeText(texts);
    run("requires " + quotedText(name) + ' ' + quotedText(takeText(texts)) + ';');
}

void SceneBinaryReader::setUnit(const Chunk& chunk)
{
    const char* const flag = chunk.id == chunk::kLengthUnit ? "-l " : chunk.id == chunk::kAngleUnit ? "-a " : "-t ";
    run("currentUnit " + std::string(flag) + quotedText(std::string(chunk.body)) + ';');
}

void SceneBinaryReader::keepFileInfo(const Chunk& chunk)
{
    std::string_view texts = chunk.body;
    const std::string key = takeText(texts);
    run("fileInfo " + quotedText(key) + ' ' + quotedText(takeText(texts)) + ';');
}

void SceneBinaryReader::runStatements(const Chunk& chunk)
{
    run(chunk.body);
}

NodeHead SceneBinaryReader::headOf(const Chunk& group) const
{
    NodeHead head;
    ChunkReader reader(group.body);
    Chunk chunk;
    while (reader.next(chunk)) {
        std::string_view texts = chunk.body;
        if (chunk.id == chunk::kCreate && !texts.empty()) {
            texts.remove_prefix(1);
            head.name = takeText(texts);
            head.parent = takeText(texts);
        } else if (chunk.id == chunk::kNodeFlags) {
            head.shared = !texts.empty() && (texts[0] & chunk::kIsShared);
        } else if (chunk.id == chunk::kUid) {
            head.uid = takeText(texts);
        } else if (chunk.id == chunk::kTypeName) {
            head.type = takeText(texts);
        }
    }
    const NodeType* const type = m_session.nodeTypes.findId(group.type);
    if (type && group.type != chunk::kUnknownNode)
        head.type = type->name;
    else if (head.type.empty())
        head.type = nameOfType(group.type);
    return head;
}

void SceneBinaryReader::readNode(const Chunk& group)
{
    const NodeHead head = headOf(group);
    if (head.name.empty())
        return report("A node without a name is left out.");
    run(headText(head));
    const NodePtr node = m_statements->node();
    if (!node)
        return;
    if (node->unknownType.empty() || group.type == chunk::kUnknownNode)
        readValues(node, group);
    else
        keepUnread(node, group);
}

void SceneBinaryReader::readValues(const NodePtr& node, const Chunk& group)
{
    visit(group.body, "'" + node->name() + "'", [&](const Chunk& chunk) {
        if (chunk.id == chunk::kStatements)
            return run(chunk.body);
        if (isHeadChunk(chunk.id))
            return;
        try {
            readValue(m_session, node, chunk, m_partRead);
        } catch (const CommandError& error) {
            report(error.what());
        }
    });
}

void SceneBinaryReader::keepUnread(const NodePtr& node, const Chunk& group)
{
    node->binaryType = group.type;
    visit(group.body, "'" + node->name() + "'", [&](const Chunk& chunk) {
        if (chunk.id != chunk::kCreate && !chunk.isCut)
            node->binaryChunks += chunk.whole;
    });
}

void SceneBinaryReader::readDefaultNode(const Chunk& group)
{
    std::string name;
    ChunkReader reader(group.body);
    for (Chunk chunk; name.empty() && reader.next(chunk);) {
        std::string_view texts = chunk.body;
        if (chunk.id == chunk::kSelect)
            name = takeText(texts);
    }
    if (!m_intake.find(name))
        return;  // one that this host does not have
    run("select -ne " + quotedText(':' + name) + ';');
    if (const NodePtr node = m_statements->node())
        readValues(node, group);
}

void SceneBinaryReader::run(std::string_view statements)
{
    m_ok = m_statements->run(statements) && m_ok;
}

void SceneBinaryReader::report(const std::string& message)
{
    m_ok = false;
    m_session.output.error("file: " + m_intake.path() + ": " + message);
}

}  // namespace kernel
