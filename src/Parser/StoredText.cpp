#include "Parser/StoredText.h"

#include "Parser/Entities.h"
#include "Parser/UnitSearch.h"

#include <algorithm>

namespace varn {

namespace {

constexpr AnyUnitOf<4> kSpecial = {{u'&', u'\\', u'\r', u'\n'}};

bool isHexDigit(char16_t unit)
{
    return (unit >= u'0' && unit <= u'9') || ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'f');
}

struct FoundEntity
{
    char16_t unit;
    std::size_t length; ///< of the name and the `;`
};

/// The entity whose name begins the text: letters, or `#` and hexadecimal digits (that are read as
/// decimal ones), closed by a `;` among the first ten units.
std::optional<FoundEntity> findEntity(WStringView text)
{
    constexpr std::size_t kLongest = 10;
    const WStringView near = text.substr(0, kLongest);
    const bool numeric = near.starts_with(u'#');
    std::size_t end = numeric ? 1 : 0;
    while (end < near.size() && (numeric ? isHexDigit(near[end]) : isLetter(near[end])))
        ++end;
    if (end == near.size() || near[end] != u';')
        return std::nullopt;
    if (!numeric) {
        const auto unit = lookUpEntity(near.substr(0, end));
        return unit ? std::optional(FoundEntity{*unit, end + 1}) : std::nullopt;
    }
    const auto unit = static_cast<char16_t>(parseDecimal(near.substr(1, end - 1)));
    return unit != 0 ? std::optional(FoundEntity{unit, end + 1}) : std::nullopt;
}

} // namespace

WString decodeText(WStringView text, LineBreaks lineBreaks)
{
    WString out;
    out.reserve(text.size());
    const char16_t* at = text.data();
    const char16_t* const end = at + text.size();
    // The last unit put out is an `&` that an entity gave: it may begin another one.
    const auto takeEntities = [&](bool pending) {
        while (const auto entity = findEntity({at, end})) {
            if (pending)
                out.pop_back();
            out += entity->unit;
            at += entity->length;
            pending = entity->unit == u'&';
            if (!pending)
                return;
        }
        if (!pending)
            out += u'&';
    };
    while (at != end) {
        const char16_t* const special = search(at, end, kSpecial);
        out.append(at, special);
        if (special == end)
            break;
        at = special + 1;
        if (*special == u'&') {
            takeEntities(false);
        } else if (*special != u'\\') {
            if (*special == u'\r' && at != end && *at == u'\n')
                ++at;
            if (lineBreaks == LineBreaks::Keep)
                out += u"\r\n";
        } else if (at == end) {
            out += u'\\';
        } else {
            switch (const char16_t escaped = *at++; escaped) {
            case u'n':
                out += u"\r\n";
                break;
            case u'r':
                break;
            case u't':
                out += u'\t';
                break;
            default:
                out += escaped;
            }
        }
    }
    return out;
}

} // namespace varn
