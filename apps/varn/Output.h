#pragma once

#include "Util/Bytes.h"
#include "Util/Text.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <cstdio>

namespace varn::driver {

using Json = nlohmann::ordered_json;

/// Standard output: UTF-8 with LF line ends. It is flushed before anything goes to standard error,
/// so the two keep their order where they meet.
class Output
{
  public:
    /// The text and a line end.
    void line(WStringView text);
    void line(std::string_view utf8);
    /// A text as it stands, CR LF written as LF.
    void text(WStringView text);
    /// Bytes as they are.
    void bytes(ByteSpan bytes);
    /// A value, indented by two blanks, and a line end.
    void json(const Json& value);
    /// A list of flat records, a line each: the values with blanks between, a minus for null.
    void records(const Json& list);
    /// One flat record: a line "KEY: VALUE" a value.
    void record(const Json& fields);

    /// Shows what was printed, and wipes the line of progress: something else is about to appear.
    void flush();
    /// The line of progress on standard error, which is a terminal; it replaces the one before.
    void progress(std::string_view utf8);
    /// False once anything could not be written: a full disk, a closed pipe.
    bool isGood() const { return std::ferror(stdout) == 0; }

  private:
    bool hasProgress = false;
};

/// CR LF as LF; a CR by itself stays.
std::string withLineFeeds(std::string text);

/// Two hexadecimal digits, "0f".
std::string hexByte(std::uint8_t byte);

/// A wide text, or one in the process code page, as JSON holds it.
std::string jsonText(WStringView text);
std::string jsonText(std::string_view narrow);

} // namespace varn::driver
