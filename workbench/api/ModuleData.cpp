#include "api/ModuleData.h"

#include "api/Access.h"
#include "kernel/Session.h"

#include <algorithm>
#include <istream>
#include <locale>
#include <map>
#include <ostream>
#include <vector>

namespace api {
namespace {

/// Every living value, so that an object handed over twice is found again and a leaving module takes its objects along.
std::vector<ModuleData*>& livingValues()
{
    static std::vector<ModuleData*> values;
    return values;
}

std::map<std::string, DataCreator>& creators()
{
    static std::map<std::string, DataCreator> byType;
    return byType;
}

/// Numbers written by a module must read the same everywhere.
class ClassicLocale {
public:
    explicit ClassicLocale(std::ios& stream) : m_stream(stream), m_before(stream.imbue(std::locale::classic())) {}
    ~ClassicLocale() { m_stream.imbue(m_before); }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;

private:
    std::ios& m_stream;
    const std::locale m_before;
};

}  // namespace

std::shared_ptr<ModuleData> ModuleData::make(const std::string& typeName, DataCreator creator)
{
    auto* object = static_cast<MPxData*>(creator());
    return object ? std::make_shared<ModuleData>(typeName, creator, object) : nullptr;
}

std::shared_ptr<ModuleData> ModuleData::owning(MPxData* object)
{
    for (ModuleData* value : livingValues()) {
        if (value->object() == object)
            return value->shared_from_this();
    }
    const auto* type = kernel::Session::current().dataTypes.findId(object->typeId().id());
    const auto creator = type ? creators().find(type->name) : creators().end();
    if (creator == creators().end())
        return nullptr;
    return std::make_shared<ModuleData>(type->name, creator->second, object);
}

void ModuleData::abandon(const std::string& typeName)
{
    std::vector<std::shared_ptr<ModuleData>> values;  // an object may hold the last handle to another value
    for (ModuleData* value : livingValues())
        values.push_back(value->shared_from_this());
    for (const auto& value : values) {
        if (value->m_typeName == typeName)
            value->m_object.reset();
    }
}

void ModuleData::setCreator(const std::string& typeName, DataCreator creator)
{
    if (creator)
        creators()[typeName] = creator;
    else
        creators().erase(typeName);
}

ModuleData::ModuleData(std::string typeName, DataCreator creator, MPxData* object)
    : m_typeName(std::move(typeName)), m_typeId(object->typeId().id()), m_creator(creator), m_object(object)
{
    livingValues().push_back(this);
}

ModuleData::~ModuleData()
{
    auto& values = livingValues();
    values.erase(std::find(values.begin(), values.end(), this));
}

bool ModuleData::writeText(std::ostream& out)
{
    const ClassicLocale classic(out);
    return m_object && m_object->writeASCII(out);
}

bool ModuleData::readText(const kernel::Arguments& args, unsigned& next)
{
    return m_object && m_object->readASCII(Access::lent(args), next);
}

bool ModuleData::writeBinary(std::ostream& out)
{
    return m_object && m_object->writeBinary(out);
}

bool ModuleData::readBinary(std::istream& in, unsigned length)
{
    return m_object && m_object->readBinary(in, length);
}

std::shared_ptr<kernel::CustomData> ModuleData::copy() const
{
    if (!m_object)
        return nullptr;
    auto copy = make(m_typeName, m_creator);
    if (copy)
        copy->m_object->copy(*m_object);
    return copy;
}

}  // namespace api
