#pragma once

#include <string>

namespace kernel {

class Node;
struct AttributeSpec;

/// Is told of single changes of the scene and the option variables the moment they happen, whoever makes them; it only
/// takes notes. Not told while a file is read or written.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;
    virtual void attributeChanged(const Node& node, const AttributeSpec& attribute) = 0;
    virtual void nodeRenamed(const Node& node) = 0;
    virtual void nodeRemoved(const Node& node) = 0;
    virtual void optionVarChanged(const std::string& name) = 0;
};

}  // namespace kernel
