#include "Util/Exception.h"

namespace varn {

const char* Exception::what() const noexcept
try {
    if (utf8.empty())
        utf8 = toUtf8(getMessage());
    return utf8.c_str();
} catch (...) {
    return "an exception whose text did not fit into memory";
}

} // namespace varn
