#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace varn::driver {

/// A quote that is not closed on its line, or a backslash at the line's end.
class QuotingError : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// The words of a line as a shell would hand them over, without expansions: blanks and tabs
/// separate; '...' is taken as it stands; inside "..." a backslash escapes `"`, `\`, `$` and the
/// backquote and stands for itself before anything else; outside it escapes any character; a `#` at
/// the start of a word makes the rest a comment.
/// After "Shell Command Language", IEEE Std 1003.1-2017, section 2.2.
/// @throws QuotingError
std::vector<std::string> splitShellWords(std::string_view line);

} // namespace varn::driver
