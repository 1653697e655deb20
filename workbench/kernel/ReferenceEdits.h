#pragma once

#include "kernel/Reference.h"

#include <iosfwd>

namespace kernel {

class Scene;

/// Reads the words behind `-type "dataReferenceEdits"`: the reference's name, then for each reference that is changed,
/// itself or one in its file, a name, a count, and so many changes. False when they are not of that form.
bool parseReferenceEdits(const ValueList& words, std::vector<ReferenceEdits>& edits);

/// Writes the statement they are read from, nothing for no change.
void writeReferenceEdits(std::ostream& out, const std::string& reference, const std::vector<ReferenceEdits>& edits);

/// What the scene changed in the reference's nodes since they were read, and what it keeps unapplied.
std::vector<ReferenceEdits> currentEdits(const Scene& scene, const Reference& reference);

}  // namespace kernel
