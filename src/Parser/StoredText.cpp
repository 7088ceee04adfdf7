#include "Parser/StoredText.h"

#include "Parser/Entities.h"
#include "Parser/UnitSearch.h"

#include <optional>
#include <utility>

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

/// One walk over a text, from special unit to special unit.
class StoredTextDecoder
{
  public:
    StoredTextDecoder(WStringView text, LineBreaks lineBreaks)
        : at(text.data()), end(text.data() + text.size()), lineBreaks(lineBreaks)
    {
        out.reserve(text.size());
    }

    WString decode() &&
    {
        for (;;) {
            const char16_t* const special = search(at, end, kSpecial);
            out.append(at, special);
            at = special;
            if (at == end)
                return std::move(out);
            switch (*at++) {
            case u'&':
                takeEntities();
                break;
            case u'\\':
                takeEscape();
                break;
            case u'\r':
                at += at != end && *at == u'\n' ? 1 : 0;
                [[fallthrough]];
            default:
                out += lineBreaks == LineBreaks::Keep ? u"\r\n" : u"";
            }
        }
    }

  private:
    /// An `&` that an entity gives may begin the next one.
    void takeEntities()
    {
        out += u'&';
        while (const auto entity = findEntity({at, end})) {
            out.back() = entity->unit;
            at += entity->length;
            if (entity->unit != u'&')
                return;
        }
    }
    void takeEscape()
    {
        if (at == end) {
            out += u'\\';
            return;
        }
        switch (*at++) {
        case u'n':
            out += u"\r\n";
            break;
        case u'r':
            break;
        case u't':
            out += u'\t';
            break;
        default:
            out += at[-1];
        }
    }

    WString out;
    const char16_t* at;
    const char16_t* const end;
    const LineBreaks lineBreaks;
};

} // namespace

WString decodeText(WStringView text, LineBreaks lineBreaks)
{
    return StoredTextDecoder(text, lineBreaks).decode();
}

} // namespace varn
