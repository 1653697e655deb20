#pragma once

#include "kernel/ChunkReader.h"
#include "kernel/Node.h"
#include "kernel/SceneIntake.h"
#include "kernel/SceneText.h"
#include "kernel/Script.h"

#include <memory>
#include <string>
#include <string_view>

namespace kernel {

class Session;

/// Whether a file's bytes begin as those of a binary scene do.
bool isBinaryScene(std::string_view bytes);

/// Reads a binary scene (SceneChunks.h); the intake says how it comes into the open one. What cannot be read is
/// reported with the file's name, and reading goes on with the next chunk.
class SceneBinaryReader {
public:
    /// bytes: outlive the reader. partRead: told of those that are done with.
    SceneBinaryReader(Session& session, std::string_view bytes, SceneIntake& intake, PartRead partRead = {});
    /// False when there was any error.
    bool read();

private:
    using Handler = void (SceneBinaryReader::*)(const Chunk& chunk);
    struct Row {
        ChunkId id;
        Handler read;
    };
    static const Row kSections[];
    static const Row kHeadChunks[];
    static const Row kReferenceChunks[];
    static const Row kLinkChunks[];

    void readSection(const Chunk& group);
    void readHead(const Chunk& group);
    void readReferences(const Chunk& group);
    void readLinks(const Chunk& group);
    void readNode(const Chunk& group);
    void readDefaultNode(const Chunk& group);

    void requireModule(const Chunk& chunk);
    void setUnit(const Chunk& chunk);
    void keepFileInfo(const Chunk& chunk);
    void runStatements(const Chunk& chunk);

    NodeHead headOf(const Chunk& group) const;
    void readValues(const NodePtr& node, const Chunk& group);
    void keepUnread(const NodePtr& node, const Chunk& group);
    /// Runs the handler of each of a group's chunks; those without one are passed over.
    template <std::size_t count>
    void readEach(const Chunk& group, const Row (&rows)[count]);
    /// The chunks of a group one after another; damage at their end is reported.
    template <typename Visit>
    void visit(std::string_view chunks, const std::string& place, const Visit& visit);
    void run(std::string_view statements);
    void report(const std::string& message);

    Session& m_session;
    const std::string_view m_bytes;
    SceneIntake& m_intake;
    const PartRead m_partRead;
    std::unique_ptr<SceneStatements> m_statements;
    bool m_ok = true;
};

}  // namespace kernel
