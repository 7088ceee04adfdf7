#include "Command.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace varn::driver {

std::optional<std::int64_t> parseInteger(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    std::string_view digits = text.substr(isNegative ? 1 : 0);
    int base = 10;
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        digits.remove_prefix(2);
        base = 16;
    }
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, fault] = std::from_chars(digits.data(), end, value, base);
    if (fault != std::errc() || stop != end || value > INT64_MAX)
        return std::nullopt;
    return isNegative ? -static_cast<std::int64_t>(value) : static_cast<std::int64_t>(value);
}

std::optional<double> parseNumber(std::string_view text)
{
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
    if (fault != std::errc() || stop != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

void Arguments::add(std::string_view name, std::string value, int choice)
{
    given.push_back({name, std::move(value), choice});
}

const Arguments::Given* Arguments::find(std::string_view name) const
{
    const auto found = std::find_if(given.rbegin(), given.rend(),
                                    [&](const Given& one) { return one.name == name; });
    return found == given.rend() ? nullptr : &*found;
}

std::string Arguments::utf8(std::string_view name, std::string_view fallback) const
{
    const Given* const found = find(name);
    return found ? found->value : std::string(fallback);
}

WString Arguments::text(std::string_view name, WStringView fallback) const
{
    const Given* const found = find(name);
    return found ? fromUtf8(found->value) : WString(fallback);
}

std::int64_t Arguments::integer(std::string_view name, std::int64_t fallback) const
{
    const Given* const found = find(name);
    return found ? parseInteger(found->value).value_or(fallback) : fallback;
}

std::optional<double> Arguments::number(std::string_view name) const
{
    const Given* const found = find(name);
    return found ? parseNumber(found->value) : std::nullopt;
}

int Arguments::choice(std::string_view name, int fallback) const
{
    const Given* const found = find(name);
    return found ? found->choice : fallback;
}

std::vector<WString> Arguments::texts(std::string_view name) const
{
    std::vector<WString> all;
    for (const Given& one : given)
        if (one.name == name)
            all.push_back(fromUtf8(one.value));
    return all;
}

} // namespace varn::driver
