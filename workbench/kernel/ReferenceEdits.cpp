#include "kernel/ReferenceEdits.h"

#include "kernel/Scene.h"
#include "kernel/SceneText.h"

#include <algorithm>
#include <ostream>

namespace kernel {

namespace {

bool isWord(const Value& value)
{
    return std::holds_alternative<std::string>(value);
}

std::string statementWord(const Value& value)
{
    return isWord(value) ? quotedText(std::get<std::string>(value)) : toText(value);
}

/// Takes one change: numbers, then words. Where it is the last one and another reference follows, the last word before
/// the next number is that one's name.
ValueList takeEdit(const ValueList& words, std::size_t& next, bool isLast)
{
    ValueList edit;
    while (next < words.size() && !isWord(words[next]))
        edit.push_back(words[next++]);
    while (next < words.size() && isWord(words[next]))
        edit.push_back(words[next++]);
    if (isLast && next < words.size()) {
        edit.pop_back();
        --next;
    }
    return edit;
}

ReferenceEdits& editsOf(std::vector<ReferenceEdits>& all, const std::string& reference)
{
    const auto known =
        std::find_if(all.begin(), all.end(), [&](const ReferenceEdits& edits) { return edits.reference == reference; });
    if (known != all.end())
        return *known;
    all.push_back({reference, {}});
    return all.back();
}

void addChanges(const Scene& scene, const Reference& reference, std::vector<ReferenceEdits>& all)
{
    for (const NodePtr& node : reference.nodes) {
        if (!node->isInScene())
            continue;
        for (const AttributeChange& change : changesOf(*node))
            editsOf(all, reference.node->name())
                .edits.push_back({kSetAttrEdit, scene.fullPath(*node), change.attribute, change.arguments});
    }
    for (const auto& inner : reference.inner)
        addChanges(scene, *inner, all);
}

int codeOf(const ValueList& edit)
{
    const int* code = edit.empty() ? nullptr : std::get_if<int>(&edit.front());
    return code ? *code : 0;
}

}  // namespace

bool parseReferenceEdits(const ValueList& words, std::vector<ReferenceEdits>& edits)
{
    std::vector<ReferenceEdits> read;
    std::size_t next = 1;  // behind the name of the reference as a whole
    while (next + 1 < words.size()) {
        const int* count = std::get_if<int>(&words[next + 1]);
        if (!isWord(words[next]) || !count)
            return false;
        ReferenceEdits& section = editsOf(read, std::get<std::string>(words[next]));
        next += 2;
        for (int left = *count; left > 0; --left) {
            section.edits.push_back(takeEdit(words, next, left == 1));
            if (section.edits.back().size() < 2)
                return false;
        }
    }
    edits = std::move(read);
    return next == words.size();
}

void writeReferenceEdits(std::ostream& out, const std::string& reference, const std::vector<ReferenceEdits>& edits)
{
    if (edits.empty())
        return;
    out << "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n\t\t" << quotedText(reference);
    for (const ReferenceEdits& section : edits) {
        out << "\n\t\t" << quotedText(section.reference) << ' ' << section.edits.size();
        for (const ValueList& edit : section.edits) {
            const char* divider = "\n\t\t";
            for (const Value& word : edit) {
                out << divider << statementWord(word);
                divider = " ";
            }
        }
    }
    out << ";\n";
}

std::vector<ReferenceEdits> currentEdits(const Scene& scene, const Reference& reference)
{
    std::vector<ReferenceEdits> all = reference.keptEdits;
    addChanges(scene, reference, all);
    all.erase(std::remove_if(all.begin(), all.end(), [](const auto& section) { return section.edits.empty(); }),
              all.end());
    // What a value is set on may have to be made first (0 parent, 1 addAttr), and connected after it (3, 5).
    for (ReferenceEdits& section : all)
        std::stable_sort(section.edits.begin(), section.edits.end(),
                         [](const ValueList& a, const ValueList& b) { return codeOf(a) < codeOf(b); });
    return all;
}

}  // namespace kernel
