#pragma once

#include "model/LayerManager.h"

#include <maya/MPxData.h>

#include <memory>

/// The value of a drawing node's layer data attribute. Copies share one drawing, which lives as long as any of them.
class BaseNodeLayerData : public MPxData {
public:
    static void* creator();  ///< empty, no manager yet
    static MTypeId id();

    const std::shared_ptr<LayerManager>& layerManager() const { return m_manager; }
    void setLayerManager(const std::shared_ptr<LayerManager>& manager) { m_manager = manager; }

    /// Readers append to what the manager holds; what was read before an error stays.
    MStatus readASCII(const MArgList& arguments, unsigned int& lastElement) override;
    MStatus readBinary(std::istream& in, unsigned int length) override;
    MStatus writeASCII(std::ostream& out) override;
    MStatus writeBinary(std::ostream& out) override;
    void copy(const MPxData& source) override;
    MTypeId typeId() const override;
    MString name() const override;

private:
    LayerManager& manager();

    std::shared_ptr<LayerManager> m_manager;
};
