#pragma once

#include "Util/Text.h"

#include <exception>

namespace varn {

/// A fault with a sentence for the person, raised below the boundary that the user knows (a load, a
/// save, a command) and turned into a message there. The sentence says what and where: a path, a byte
/// offset, a row and column.
class Exception : public std::exception
{
  public:
    /// @param location  the operation that raises, where the media layer tells it: "Bitmap::load"
    explicit Exception(WString message, WString location = {})
        : messageW(std::move(message)), location(std::move(location))
    {
    }
    ~Exception() override = default;

    /// The sentence. A derived kind may put its own prefix before it.
    virtual WString getMessage() const { return messageW; }

    const WString& getLocation() const { return location; }

    /// The same in UTF-8, for logs and test runners.
    const char* what() const noexcept override;

  private:
    WString messageW;
    WString location;
    mutable std::string utf8; // filled at the first what()
};

class FileNotFoundException : public Exception
{
  public:
    using Exception::Exception;
    WString getMessage() const override { return u"FileNotFoundException: " + Exception::getMessage(); }
};

} // namespace varn
