#pragma once

#include "kernel/NodeType.h"

namespace api {

/// The node type being registered, while its initialize function runs.
class TypeRegistration {
public:
    /// type: gets the attributes; its base must be set. Registrations may nest.
    explicit TypeRegistration(kernel::NodeType& type);
    ~TypeRegistration();
    TypeRegistration(const TypeRegistration&) = delete;
    TypeRegistration& operator=(const TypeRegistration&) = delete;

    static TypeRegistration* current();  ///< null outside of any

    /// Adds an attribute with its children. False when one of the names is taken on the type or its bases.
    bool add(const kernel::AttributePtr& attribute);
    bool has(const kernel::AttributePtr& attribute) const;
    bool inheritFrom(const std::string& typeName);

private:
    kernel::NodeType& m_type;
    TypeRegistration* const m_before;
};

}  // namespace api
