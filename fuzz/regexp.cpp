// A byte of flags, a pattern, a zero byte, a text: nothing fails otherwise than by its budget, and
// on small inputs the engine finds what the naive matcher finds.
#include "../tests/Parser/Regexp/BothWays.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    const WString pattern = fromUtf8(bytes.substr(0, end));
    const WString text = fromUtf8(bytes.substr(std::min(end + 1, bytes.size())));
    const int flags = data[0] & 0x3F;

    const CRegexpT regexp(pattern, flags);
    CContext context = regexp.prepareMatch(text);
    context.setStepBudget(20000);
    context.setStackBudget(1 << 20);
    regexp.replace(context, pattern);

    if (regexp.isEmpty() || pattern.size() > 60 || text.size() > 20)
        return 0;
    const test::BothWays both(pattern, flags);
    if (const auto expected = both.expected(text))
        for (const int patience : {1 << 20, 0})
            if (const auto actual = both.actual(text, patience); actual && actual != expected)
                std::abort();
    return 0;
}
