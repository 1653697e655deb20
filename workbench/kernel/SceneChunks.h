#pragma once

#include "kernel/ChunkId.h"

// The groups and chunks of a binary scene. Texts in them end with a zero where another follows, and at the chunk's end
// otherwise.
//
//   FOR8 Maya
//     FOR8 HEAD    VERS  PLUG name, version  STMT  LUNI AUNI TUNI units  FINF key, value  STMT
//     FOR8 FREF    FRDI, FREF: statements about references
//     FOR8 <type>  a node: CREA  FLGS  UUID  TYPN  values  STMT
//     FOR8 SLCT    a default node: SLCT  values  STMT
//     LIS8 CONS    STMT
//
// STMT holds statements of a text scene that are kept as they are; within a node they are about that node.

namespace kernel {
namespace chunk {

constexpr ChunkId kScene = chunkId("Maya");

constexpr ChunkId kHead = chunkId("HEAD");
constexpr ChunkId kVersion = chunkId("VERS");
constexpr ChunkId kModule = chunkId("PLUG");
constexpr ChunkId kFileInfo = chunkId("FINF");
constexpr ChunkId kLengthUnit = chunkId("LUNI");
constexpr ChunkId kAngleUnit = chunkId("AUNI");
constexpr ChunkId kTimeUnit = chunkId("TUNI");

constexpr ChunkId kReferences = chunkId("FREF");  ///< the group, and the chunk of one reference
constexpr ChunkId kReferenceDepth = chunkId("FRDI");

constexpr ChunkId kCreate = chunkId("CREA");  ///< a byte of flags, name, parent
constexpr unsigned char kHasParent = 1;
constexpr ChunkId kNodeFlags = chunkId("FLGS");  ///< a byte
constexpr unsigned char kIsShared = 1;
constexpr ChunkId kUid = chunkId("UUID");
constexpr ChunkId kUnknownNode = chunkId("UNKN");  ///< type of the group of a node that is all statements
constexpr ChunkId kTypeName = chunkId("TYPN");     ///< of a module's type, for whoever lacks the module

constexpr ChunkId kSelect = chunkId("SLCT");  ///< the group, and the chunk with the node's name
constexpr ChunkId kLinks = chunkId("CONS");
constexpr ChunkId kStatements = chunkId("STMT");

}  // namespace chunk
}  // namespace kernel
