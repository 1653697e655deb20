#pragma once

#include "commands/DrawingChange.h"
#include "model/LayerManager.h"

/// Exchanges one property of a layer with the value held: undo and redo are the same.
template <class Value, class Argument>
class LayerPropertyEdit : public DrawingChange {
public:
    using Getter = Value (LayerManager::*)(const QString&, int) const;
    using Setter = void (LayerManager::*)(const QString&, int, Argument);

    LayerPropertyEdit(const QString& camera, int index, Getter get, Setter set, const Value& value)
        : m_camera(camera), m_index(index), m_get(get), m_set(set), m_value(value)
    {}

protected:
    bool apply(LayerManager& manager) override { return swap(manager); }
    bool revert(LayerManager& manager) override { return swap(manager); }

private:
    bool swap(LayerManager& manager)
    {
        if (!manager.isValidLayer(m_camera, m_index)) {
            return false;
        }
        const Value old = (manager.*m_get)(m_camera, m_index);
        (manager.*m_set)(m_camera, m_index, m_value);
        m_value = old;
        return true;
    }

    const QString m_camera;
    const int m_index;
    const Getter m_get;
    const Setter m_set;
    Value m_value;
};
