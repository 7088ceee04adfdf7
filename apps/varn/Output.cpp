#include "Output.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace varn::driver {

namespace {

constexpr const char* kWipeLine = "\r\033[K";

void write(std::string_view bytes)
{
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

} // namespace

std::string withLineFeeds(std::string text)
{
    std::size_t end = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] != '\r' || at + 1 == text.size() || text[at + 1] != '\n')
            text[end++] = text[at];
    text.resize(end);
    return text;
}

void Output::line(std::string_view utf8)
{
    write(utf8);
    write("\n");
}

void Output::line(WStringView text)
{
    line(std::string_view(withLineFeeds(toUtf8(text))));
}

void Output::text(WStringView text)
{
    write(withLineFeeds(toUtf8(text)));
}

void Output::bytes(ByteSpan bytes)
{
    write(asChars(bytes));
}

void Output::json(const Json& value)
{
    line(std::string_view(value.dump(2)));
}

void Output::flush()
{
    std::fflush(stdout);
    if (std::exchange(hasProgress, false))
        std::fputs(kWipeLine, stderr);
}

void Output::progress(std::string_view utf8)
{
    flush();
    std::fwrite(utf8.data(), 1, utf8.size(), stderr);
    hasProgress = true;
}

static std::string plainValue(const Json& value)
{
    if (value.is_null())
        return "-";
    return value.is_string() ? value.get<std::string>() : value.dump();
}

void Output::records(const Json& list)
{
    for (const Json& fields : list) {
        std::string text;
        for (const Json& value : fields)
            text += (text.empty() ? "" : " ") + plainValue(value);
        line(std::string_view(text));
    }
}

void Output::record(const Json& fields)
{
    for (const auto& [key, value] : fields.items())
        line(std::string_view(key + ": " + plainValue(value)));
}

std::string hexByte(std::uint8_t byte)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    return {kDigits[byte >> 4], kDigits[byte & 15]};
}

std::string jsonText(WStringView text)
{
    return toUtf8(text);
}

std::string jsonText(std::string_view narrow)
{
    return toUtf8(widen(narrow));
}

} // namespace varn::driver
