#include "api/TypeRegistration.h"

#include "api/Attributes.h"
#include "kernel/Session.h"

#include <algorithm>

namespace api {
namespace {

TypeRegistration* s_current = nullptr;

}  // namespace

TypeRegistration::TypeRegistration(kernel::NodeType& type) : m_type(type), m_before(s_current)
{
    s_current = this;
}

TypeRegistration::~TypeRegistration()
{
    s_current = m_before;
}

TypeRegistration* TypeRegistration::current()
{
    return s_current;
}

bool TypeRegistration::add(const kernel::AttributePtr& attribute)
{
    std::vector<kernel::AttributePtr> added{attribute};
    if (const auto* extras = extrasOf(attribute))
        added.insert(added.end(), extras->children.begin(), extras->children.end());
    for (const auto& one : added) {
        // Children given one by one after their compound are there already.
        if (one == attribute && has(one))
            return !one->parent.empty();
        if (!has(one) && (m_type.attribute(one->longName) || m_type.attribute(one->shortName)))
            return false;
    }
    for (const auto& one : added) {
        if (!has(one))
            m_type.attributes.push_back(one);
    }
    return true;
}

bool TypeRegistration::has(const kernel::AttributePtr& attribute) const
{
    const auto& own = m_type.attributes;
    return std::find(own.begin(), own.end(), attribute) != own.end();
}

bool TypeRegistration::inheritFrom(const std::string& typeName)
{
    const auto* type = kernel::Session::current().nodeTypes.find(typeName);
    if (!type)
        return false;
    for (const auto& attribute : type->allAttributes()) {
        if (!m_type.attribute(attribute->longName))
            m_type.attributes.push_back(attribute);
    }
    return true;
}

}  // namespace api
