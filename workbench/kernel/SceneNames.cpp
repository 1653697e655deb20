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
    std::size_t end = name.size();
    while (end > 0 && isDigit(name[end - 1]))
        --end;
    return name.substr(0, end);
}

/// The name itself, or the next one free behind its number; "#" at the end asks for the first free number.
template <typename IsTaken>
std::string firstFree(const std::string& wanted, const IsTaken& isTaken)
{
    const bool wantsNumber = !wanted.empty() && wanted.back() == '#';
    if (!wantsNumber && !isTaken(wanted))
        return wanted;
    const std::string start = stem(wantsNumber ? wanted.substr(0, wanted.size() - 1) : wanted);
    int number = 0;
    const bool counts = !wantsNumber && parseInt(wanted.substr(start.size()), number) && number < 1000000000;
    if (!counts)
        number = 0;
    std::string name;
    do {
        name = start + std::to_string(++number);
    } while (isTaken(name));
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
    return std::any_of(m_nodes.begin(), m_nodes.end(), [&](const NodePtr& other) {
        if (other.get() == &node || other->m_name != name)
            return false;
        const bool bothInDag = node.type().isDag() && other->type().isDag();
        return !bothInDag || other->m_parent == parent;
    });
}

std::string Scene::freeName(const std::string& wanted, const Node& node, const Node* parent) const
{
    return firstFree(wanted, [&](const std::string& name) { return isNameTaken(name, node, parent); });
}

std::string Scene::uniqueName(const std::string& wanted) const
{
    return firstFree(legalName(wanted), [this](const std::string& name) {
        return std::any_of(m_nodes.begin(), m_nodes.end(),
                           [&name](const NodePtr& node) { return node->m_name == name; });
    });
}

std::string Scene::rename(Node& node, const std::string& name)
{
    const std::string before = node.m_name;
    node.m_name = freeName(legalName(name), node, node.m_parent);
    if (node.m_name == before)
        return node.m_name;
    for (const NodePtr& child : node.m_children) {
        if (!child->type().isShape())
            continue;
        if (child->m_name == shapeName(before))
            child->m_name = freeName(shapeName(node.m_name), *child, &node);
        else if (child->m_name == before + "Shape")
            child->m_name = freeName(node.m_name + "Shape", *child, &node);
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
    for (const auto& entry : names) {
        isChange = isChange || entry.first->m_name != entry.second;
        entry.first->m_name = entry.second;
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
    for (const NodePtr& node : m_nodes) {
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
    for (const Node* step = &node; step; step = step->m_parent)
        path.insert(0, '|' + step->m_name);
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
