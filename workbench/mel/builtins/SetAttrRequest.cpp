#include "mel/builtins/SetAttrRequest.h"

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

enum class Flag { Type, Lock, Keyable, ChannelBox, Clamp, Other };

struct FlagRow {
    const char* longName;
    const char* shortName;
    Flag flag;
    char value;  ///< b (bool), i (int), s (string); 0 for none
};
const FlagRow kFlags[] = {
    {"type", "typ", Flag::Type, 's'},         {"lock", "l", Flag::Lock, 'b'},
    {"keyable", "k", Flag::Keyable, 'b'},     {"channelBox", "cb", Flag::ChannelBox, 'b'},
    {"clamp", "c", Flag::Clamp, 0},           {"caching", "ca", Flag::Other, 'b'},
    {"size", "s", Flag::Other, 'i'},          {"alteredValue", "av", Flag::Other, 0},
    {"capacityHint", "ch", Flag::Other, 'i'},
};

bool looksLikeFlag(const Value& value)
{
    const auto* text = std::get_if<std::string>(&value);
    if (!text || text->size() < 2 || (*text)[0] != '-')
        return false;
    const char c = (*text)[1];
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

class Reader {
public:
    Reader(const kernel::Session& session, const kernel::ValueList& args) : m_session(session), m_args(args) {}

    SetAttrRequest read()
    {
        while (m_next < m_args.size()) {
            if (!looksLikeFlag(m_args[m_next]) || (!m_request.plug.empty() && awaitsData()))
                takeObject();
            else
                takeFlag();
        }
        if (m_request.plug.empty())
            throw CommandError("No object was specified");
        return std::move(m_request);
    }

private:
    bool awaitsData() const { return m_isModuleData || (m_request.type == "string" && m_request.values.empty()); }

    void takeObject()
    {
        if (m_request.plug.empty())
            m_request.plug = kernel::toText(m_args[m_next]);
        else
            m_request.values.push_back(m_next);
        ++m_next;
    }

    void takeFlag()
    {
        const std::string name = std::get<std::string>(m_args[m_next++]).substr(1);
        for (const FlagRow& row : kFlags) {
            if (name == row.longName || name == row.shortName)
                return apply(row, name);
        }
        throw CommandError("Invalid flag '-" + name + "'");
    }

    void apply(const FlagRow& row, const std::string& name)
    {
        switch (row.flag) {
        case Flag::Type: setType(takeText(name)); break;
        case Flag::Lock: m_request.locked = takeBool(name); break;
        case Flag::Keyable: m_request.keyable = takeBool(name); break;
        case Flag::ChannelBox: m_request.channelBox = takeBool(name); break;
        case Flag::Clamp: m_request.clamp = true; break;
        case Flag::Other:
            m_request.hasOtherFlags = true;
            m_next += row.value ? 1 : 0;
            break;
        }
    }

    void setType(std::string type)
    {
        m_isModuleData = m_session.dataTypes.find(type) != nullptr;
        m_request.type = std::move(type);
    }

    std::string takeText(const std::string& name)
    {
        if (m_next >= m_args.size())
            throw CommandError("Flag '" + name + "' must be passed a string argument");
        return kernel::toText(m_args[m_next++]);
    }

    bool takeBool(const std::string& name)
    {
        bool on = false;
        if (m_next >= m_args.size() || !kernel::toBool(m_args[m_next++], on))
            throw CommandError("Flag '" + name + "' must be passed a boolean argument");
        return on;
    }

    const kernel::Session& m_session;
    const kernel::ValueList& m_args;
    SetAttrRequest m_request;
    std::size_t m_next = 0;
    bool m_isModuleData = false;
};

}  // namespace

SetAttrRequest readSetAttr(const kernel::Session& session, const kernel::ValueList& args)
{
    return Reader(session, args).read();
}

}  // namespace mel
