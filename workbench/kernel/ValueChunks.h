#pragma once

#include "kernel/ChunkReader.h"
#include "kernel/ChunkWriter.h"
#include "kernel/Node.h"
#include "kernel/Script.h"

namespace kernel {

class Session;

// The values of nodes in a binary scene. A value chunk holds the attribute's short name, a zero, a byte of flags and
// the value; that of module data has the data type's identifier for its id.

/// Writes the chunks that give a node all its stored values and flags. Throws CommandError when a module's data cannot
/// be written.
void writeValues(ChunkWriter& writer, const Node& node);
/// One number for an attribute, whether it needs to be stored or not.
void writeNumber(ChunkWriter& writer, const char* shortName, double number);
void writeText(ChunkWriter& writer, const char* shortName, const std::string& text);

/// Gives the node what a value chunk says; a chunk of another kind does nothing. Throws CommandError when the value
/// cannot be read or is refused; flags it may have set then.
/// partRead: told of parts of a module's data that have been read.
void readValue(Session& session, const NodePtr& node, const Chunk& chunk, const PartRead& partRead);

}  // namespace kernel
