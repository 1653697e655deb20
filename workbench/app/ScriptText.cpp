#include "app/ScriptText.h"

namespace app {

std::string quoted(const std::string& text)
{
    std::string literal = "\"";
    for (const char c : text) {
        switch (c) {
        case '\\': literal += "\\\\"; break;
        case '"': literal += "\\\""; break;
        case '\n': literal += "\\n"; break;
        case '\r': literal += "\\r"; break;
        case '\t': literal += "\\t"; break;
        default: literal += c;
        }
    }
    return literal + '"';
}

}  // namespace app
