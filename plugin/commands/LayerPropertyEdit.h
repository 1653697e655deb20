#pragma once

#include "commands/Arguments.h"
#include "commands/LayerEdit.h"
#include "model/LayerManager.h"

/// How a property of a layer is read and written.
template <class Value, class Argument>
struct LayerProperty {
    using Setter = void (LayerManager::*)(const QString&, int, Argument);

    Value (LayerManager::*get)(const QString&, int) const;
    Setter set;      ///< to what the user asks for
    Setter restore;  ///< to exactly what get gave before
};

/// Exchanges one property of a layer with the value held: undo and redo are the same.
template <class Value, class Argument>
class LayerPropertyEdit : public LayerEdit {
public:
    using Property = LayerProperty<Value, Argument>;

    /// shownIndex: what a report of a missing layer shows as its index.
    LayerPropertyEdit(const Property& property, const QString& camera, int index, int shownIndex, const Value& value)
        : LayerEdit(camera, index), m_property(property), m_shownIndex(shownIndex), m_value(value)
    {}

protected:
    bool prepare(LayerManager& manager) override { return hasLayer(manager, camera(), find(manager), m_shownIndex); }
    bool apply(LayerManager& manager) override { return swap(manager); }
    bool revert(LayerManager& manager) override { return swap(manager); }

private:
    bool swap(LayerManager& manager)
    {
        const int index = find(manager);
        if (!manager.isValidLayer(camera(), index)) {
            return false;
        }
        const Value old = (manager.*m_property.get)(camera(), index);
        (manager.*m_property.set)(camera(), index, m_value);
        m_property.set = m_property.restore;
        m_value = old;
        return true;
    }

    Property m_property;
    const int m_shownIndex;
    Value m_value;
};
