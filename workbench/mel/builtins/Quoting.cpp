#include "mel/builtins/Quoting.h"

namespace mel {

std::string quoted(const std::string& text)
{
    std::string result = "\"";
    for (const char c : text) {
        switch (c) {
        case '"': result += "\\\""; break;
        case '\\': result += "\\\\"; break;
        case '\n': result += "\\n"; break;
        case '\t': result += "\\t"; break;
        case '\r': result += "\\r"; break;
        default: result += c;
        }
    }
    return result + '"';
}

}  // namespace mel
