#include "model/BaseNodeLayerData.h"

#include "model/HiddenFrames.h"
#include "model/LayerDataBinary.h"
#include "model/LayerDataText.h"
#include "model/MadeTarget.h"
#include "model/PixelBudget.h"
#include "settings/Names.h"

#include <istream>
#include <ostream>

void* BaseNodeLayerData::creator()
{
    return new BaseNodeLayerData;
}

MTypeId BaseNodeLayerData::id()
{
    return MTypeId(names::kLayerDataTypeId);
}

LayerManager& BaseNodeLayerData::manager()
{
    if (!m_manager) {
        m_manager = std::make_shared<LayerManager>();
    }
    return *m_manager;
}

MStatus BaseNodeLayerData::readASCII(const MArgList& arguments, unsigned int& lastElement)
{
    LayerManager& target = manager();
    if (arguments.length() == 0) {
        return MS::kFailure;
    }
    return layerText::read(arguments, lastElement, target);
}

MStatus BaseNodeLayerData::readBinary(std::istream& in, unsigned int length)
{
    LayerManager& target = manager();
    if (length == 0) {
        return MS::kFailure;
    }
    layerBinary::read(in, target);
    return in.fail() ? MS::kFailure : MS::kSuccess;
}

MStatus BaseNodeLayerData::writeASCII(std::ostream& out)
{
    if (!m_manager) {
        out << -1;
        return MS::kFailure;
    }
    const MadeTarget leftOut(*m_manager);
    layerText::write(out, *m_manager);
    PixelBudget::instance().trim();  // what is encoded now packs at no cost
    return MS::kSuccess;
}

MStatus BaseNodeLayerData::writeBinary(std::ostream& out)
{
    if (!m_manager) {
        return MS::kFailure;
    }
    const MadeTarget leftOut(*m_manager);
    layerBinary::write(out, *m_manager);
    hiddenFrames::warnOfBinarySave(*m_manager);
    PixelBudget::instance().trim();
    return out.fail() ? MS::kFailure : MS::kSuccess;
}

void BaseNodeLayerData::copy(const MPxData& source)
{
    if (const auto* other = dynamic_cast<const BaseNodeLayerData*>(&source)) {
        m_manager = other->m_manager;
    }
}

MTypeId BaseNodeLayerData::typeId() const
{
    return id();
}

MString BaseNodeLayerData::name() const
{
    return names::kLayerDataType;
}
