#pragma once

#include "Util/Text.h"

#include <set>

namespace varn {

/// Gives the labels of one form letters that reach their controls, each letter once.
class Mnemonics
{
  public:
    /// The text with "&" before a letter of its own, or with a letter in brackets where it has
    /// none that is free; as it is where no letter is left.
    WString mark(WStringView text);

  private:
    std::set<char16_t> taken;
};

} // namespace varn
