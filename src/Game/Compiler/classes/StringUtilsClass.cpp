#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Compiler/classes/WidthConversion.h"

namespace varn {
namespace {

struct StringUtils
{};

/// Letters of Latin-1 too; multiplication and division sign among them.
bool isAlpha(int code)
{
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_' ||
           (code >= 0xC0 && code <= 0xFF);
}

bool isDigit(int code)
{
    return code >= '0' && code <= '9';
}

/// In the process code page: what that lacks becomes `?`.
std::string toFullWidthNarrow(const std::string& text)
{
    return narrow(toFullWidth(widen(text)));
}

} // namespace

void registerStringUtils()
{
    auto made = std::make_unique<SQClassDef<StringUtils>>("StringUtils");
    made->addStaticFunc<&isAlpha>("isAlpha");
    made->addStaticFunc<&isDigit>("isDigit");
    made->addStaticFunc<&toFullWidthNarrow>("han2zen");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
