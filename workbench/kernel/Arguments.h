#pragma once

#include "kernel/Value.h"

#include <cstddef>

namespace kernel {

/// The arguments of a statement, each made when it is asked for: those of a drawing take more room than the drawing
/// itself.
class Arguments {
public:
    virtual ~Arguments() = default;
    virtual std::size_t size() const = 0;
    /// index: below size().
    virtual Value at(std::size_t index) const = 0;
};

/// Those of a list, which outlives this.
class ListedArguments : public Arguments {
public:
    explicit ListedArguments(const ValueList& list) : m_list(list) {}
    std::size_t size() const override { return m_list.size(); }
    Value at(std::size_t index) const override { return m_list[index]; }

private:
    const ValueList& m_list;
};

}  // namespace kernel
