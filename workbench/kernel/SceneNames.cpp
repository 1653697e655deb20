#include "kernel/Command.h"
#include "kernel/Scene.h"

#include <algorithm>

namespace kernel {

namespace {

bool isNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::vector<std::string> parts(const std::string& text, char divider)
{
    std::vector<std::string> list;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find(divider, start)) != std::string::npos; start = end + 1)
        list.push_back(text.substr(start, end - start));
    list.push_back(text.substr(start));
    return list;
}

/// Name without the digits at its end.
std::string stem(const std::string& name)
{
    return name.substr(0, name.find_last_not_of("0123456789") + 1);
}

/// A name that may have to get a number to be free.
struct WantedName {
    explicit WantedName(const std::string& wanted) : wantsNumber(!wanted.empty() && wanted.back() == '#')
    {
        name = wantsNumber ? wanted.substr(0, wanted.size() - 1) : wanted;
        start = stem(name);
        if (wantsNumber || !parseInt(name.substr(start.size()), number) || number >= 1000000000)
            number = 0;
    }

    std::string name;
    std::string start;
    bool wantsNumber;
    int number = 0;  ///< the free one is above this
};

/// The name itself, or the next one free behind its number; "#" at the end asks for the first free number.
/// run: what is known of the numbers behind the name's start, and what is known after this.
template <typename IsTaken>
std::string firstFree(const WantedName& wanted, const IsTaken& isTaken, NameIndex::TakenRun& run)
{
    if (!wanted.wantsNumber && !isTaken(wanted.name))
        return wanted.name;
    const int first = wanted.number + 1;
    const bool isKnown = run.first <= first && first <= run.end;
    int number = isKnown ? run.end : first;
    std::string name = wanted.start + std::to_string(number);
    while (isTaken(name))
        name = wanted.start + std::to_string(++number);
    run = {isKnown ? run.first : first, number};
    return name;
}

/// "*" for any run of characters, "?" for one; neither goes past a namespace's colon.
bool matches(const char* pattern, const char* name)
{
    for (; *pattern; ++pattern, ++name) {
        if (*pattern == '*') {
            while (*pattern == '*')
                ++pattern;
            for (;; ++name) {
                if (matches(pattern, name))
                    return true;
                if (!*name || *name == ':')
                    return false;
            }
        }
        if (!*name || (*pattern == '?' ? *name == ':' : *pattern != *name))
            return false;
    }
    return !*name;
}

/// A name or path as scripts give it, taken apart.
struct Query {
    explicit Query(const std::string& text)
    {
        fromRoot = !text.empty() && text[0] == '|';
        for (std::string part : parts(fromRoot ? text.substr(1) : text, '|')) {
            if (!part.empty() && part[0] == ':')
                part.erase(0, 1);
            steps.push_back(part);
        }
        hasPattern = text.find_first_of("*?") != std::string::npos;
    }

    bool fits(const std::string& step, const std::string& name) const
    {
        return hasPattern ? matches(step.c_str(), name.c_str()) : step == name;
    }

    bool fits(const Node& node) const
    {
        const Node* current = &node;
        for (std::size_t i = steps.size(); i-- > 0; current = current->parent()) {
            if (!current || !fits(steps[i], current->name()))
                return false;
        }
        return !fromRoot || (!current && node.type().isDag());
    }

    std::vector<std::string> steps;
    bool fromRoot = false;
    bool hasPattern = false;
};

}  // namespace

std::string Scene::shapeName(const std::string& transform)
{
    const std::string start = stem(transform);
    return start + "Shape" + transform.substr(start.size());
}

bool Scene::isLegalName(const std::string& name)
{
    const std::vector<std::string> list = parts(name, ':');
    return std::all_of(list.begin(), list.end(), [](const std::string& part) {
        return !part.empty() && isNameStart(part[0])
            && std::all_of(part.begin(), part.end(), [](char c) { return isNameStart(c) || isDigit(c); });
    });
}

std::string Scene::legalName(const std::string& wanted)
{
    const bool wantsNumber = !wanted.empty() && wanted.back() == '#';
    std::string name;
    for (std::string part : parts(wantsNumber ? wanted.substr(0, wanted.size() - 1) : wanted, ':')) {
        if (part.empty())
            continue;
        for (char& c : part) {
            if (!isNameStart(c) && !isDigit(c))
                c = '_';
        }
        if (isDigit(part[0]))
            part.insert(0, 1, '_');
        name += (name.empty() ? "" : ":") + part;
    }
    if (name.empty())
        name = "_";
    return wantsNumber ? name + '#' : name;
}

bool Scene::isNameTaken(const std::string& name, const Node& node, const Node* parent) const
{
    const std::vector<NodePtr>& named = m_names.nodes(name);
    // A node outside the DAG shares its name with no other.
    if (!named.empty() && (!node.type().isDag() || !named.front()->type().isDag()))
        return named.size() > 1 || named.front().get() != &node;
    const auto isOther = [&](const NodePtr& other) {
        return other.get() != &node && other->m_parent == parent && other->m_name == name;
    };
    const std::vector<NodePtr>& siblings = parent ? parent->m_children : m_roots;
    const std::vector<NodePtr>& shorter = siblings.size() < named.size() ? siblings : named;
    return std::any_of(shorter.begin(), shorter.end(), isOther);
}

std::string Scene::freeName(const std::string& wanted, const Node& node, const Node* parent) const
{
    const WantedName parts(wanted);
    const void* const scope = node.type().isDag() ? static_cast<const void*>(parent) : this;
    NameIndex::TakenRun own;  // what is free for a node of the scene is not for others: its own name
    NameIndex::TakenRun& run = node.m_scene ? own : m_names.takenRun(scope, parts.start);
    return firstFree(
        parts, [&](const std::string& name) { return isNameTaken(name, node, parent); }, run);
}

std::string Scene::uniqueName(const std::string& wanted) const
{
    const WantedName parts(legalName(wanted));
    return firstFree(
        parts, [this](const std::string& name) { return !m_names.nodes(name).empty(); },
        m_names.takenRun(this, parts.start));
}

void Scene::giveName(Node& node, const std::string& name)
{
    if (node.m_name == name)
        return;
    const NodePtr self = node.shared_from_this();
    if (node.m_scene)
        m_names.remove(self);
    node.m_name = name;
    if (!node.m_scene)
        return;
    m_names.add(self);
    tell([&](ChangeListener& listener) { listener.nodeRenamed(node); });
}

std::string Scene::rename(Node& node, const std::string& name)
{
    const std::string before = node.m_name;
    giveName(node, freeName(legalName(name), node, node.m_parent));
    if (node.m_name == before)
        return node.m_name;
    for (const NodePtr& child : node.m_children) {
        if (!child->type().isShape())
            continue;
        if (child->m_name == shapeName(before))
            giveName(*child, freeName(shapeName(node.m_name), *child, &node));
        else if (child->m_name == before + "Shape")
            giveName(*child, freeName(node.m_name + "Shape", *child, &node));
    }
    if (node.m_scene) {
        touch();
        raise("NameChanged");
    }
    return node.m_name;
}

void Scene::restoreNames(const std::vector<std::pair<NodePtr, std::string>>& names)
{
    bool isChange = false;
    for (auto entry = names.rbegin(); entry != names.rend(); ++entry) {
        Node& node = *entry->first;
        const std::string before = node.m_name;
        giveName(node, freeName(entry->second, node, node.m_parent));
        isChange = isChange || node.m_name != before;
    }
    if (isChange) {
        touch();
        raise("NameChanged");
    }
}

std::vector<NodePtr> Scene::find(const std::string& nameOrPattern) const
{
    const Query query(nameOrPattern);
    std::vector<NodePtr> found;
    for (const NodePtr& node : query.hasPattern ? m_nodes : m_names.nodes(query.steps.back())) {
        if (query.fits(*node))
            found.push_back(node);
    }
    return found;
}

NodePtr Scene::findOne(const std::string& name) const
{
    const std::vector<NodePtr> found = find(name);
    if (found.empty())
        throw CommandError("No object matches name: " + name);
    if (found.size() > 1)
        throw CommandError("More than one object matches name: " + name);
    return found.front();
}

NodePtr Scene::findOrNull(const std::string& name) const
{
    const std::vector<NodePtr> found = find(name);
    return found.size() == 1 ? found.front() : nullptr;
}

std::pair<NodePtr, AttributePtr> Scene::findPlug(const std::string& plug) const
{
    const std::size_t dot = plug.find('.');
    const CommandError missing("No object matches name: " + plug);
    if (dot == std::string::npos)
        throw missing;
    const std::vector<NodePtr> found = find(plug.substr(0, dot));
    if (found.size() > 1)
        throw CommandError("More than one object matches name: " + plug);
    if (found.empty())
        throw missing;
    // "t.tx" and "tx" are the same plug; what stands before must be the compound it belongs to.
    AttributePtr attribute;
    for (const std::string& step : parts(plug.substr(dot + 1), '.')) {
        const AttributePtr next = found.front()->attribute(step);
        if (!next || (attribute && next->parent != attribute->longName))
            throw missing;
        attribute = next;
    }
    return {found.front(), attribute};
}

std::string Scene::fullPath(const Node& node) const
{
    if (!node.type().isDag())
        return node.m_name;
    std::string path;
    std::vector<const Node*> steps;
    for (const Node* step = &node; step; step = step->m_parent)
        steps.push_back(step);
    std::for_each(steps.rbegin(), steps.rend(), [&path](const Node* step) { path += '|' + step->m_name; });
    return path;
}

std::string Scene::partialPath(const Node& node) const
{
    std::string path = node.m_name;
    for (const Node* step = &node; find(path).size() > 1; path.insert(0, step->m_name + '|')) {
        step = step->m_parent;
        if (!step)
            return '|' + path;
    }
    return path;
}

}  // namespace kernel
