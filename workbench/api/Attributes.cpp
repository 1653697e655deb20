#include "api/Attributes.h"

#include <memory>

namespace api {
namespace {

/// Extras ride along with an attribute as its deleter: wherever the kernel passes it on, they are found again.
struct DeleteWithExtras {
    AttributeExtras extras;
    void operator()(kernel::AttributeSpec* attribute) const { delete attribute; }
};

}  // namespace

kernel::AttributePtr makeAttribute(const std::string& longName, const std::string& shortName, kernel::ValueKind kind)
{
    kernel::AttributePtr attribute(new kernel::AttributeSpec, DeleteWithExtras());
    attribute->longName = longName;
    attribute->shortName = shortName;
    attribute->kind = kind;
    return attribute;
}

AttributeExtras* extrasOf(const kernel::AttributePtr& attribute)
{
    auto* deleter = std::get_deleter<DeleteWithExtras>(attribute);
    return deleter ? &deleter->extras : nullptr;
}

}  // namespace api
