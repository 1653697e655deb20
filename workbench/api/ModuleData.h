#pragma once

#include "kernel/NodeType.h"

#include <maya/MPxData.h>

#include <memory>
#include <string>

namespace api {

using DataCreator = void* (*)();

/// A plug's value of a module's data type: owns the module's object. Its object goes when the type is deregistered,
/// for nothing of a module may be called after that; such a value writes nothing and copies to nothing.
class ModuleData : public kernel::CustomData, public std::enable_shared_from_this<ModuleData> {
public:
    /// A fresh value by the type's creator; null when that gives nothing.
    static std::shared_ptr<ModuleData> make(const std::string& typeName, DataCreator creator);
    /// The value that owns an object: the one it belongs to already, or a new one that adopts it. Null when no module
    /// registered the object's type.
    static std::shared_ptr<ModuleData> owning(MPxData* object);
    /// Deletes the objects of every living value of a type.
    static void abandon(const std::string& typeName);
    /// How values of a type are made. Set while the type is registered.
    static void setCreator(const std::string& typeName, DataCreator creator);

    ModuleData(std::string typeName, DataCreator creator, MPxData* object);
    ~ModuleData() override;
    ModuleData(const ModuleData&) = delete;
    ModuleData& operator=(const ModuleData&) = delete;

    MPxData* object() const { return m_object.get(); }

    std::string typeName() const override { return m_typeName; }
    std::uint32_t typeId() const override { return m_typeId; }
    bool writeText(std::ostream& out) override;
    bool readText(const kernel::Arguments& args, unsigned& next) override;
    bool writeBinary(std::ostream& out) override;
    bool readBinary(std::istream& in, unsigned length) override;
    std::shared_ptr<kernel::CustomData> copy() const override;

private:
    const std::string m_typeName;
    const std::uint32_t m_typeId;
    const DataCreator m_creator;
    std::unique_ptr<MPxData> m_object;
};

}  // namespace api
