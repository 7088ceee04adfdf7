#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <vector>

namespace varn {

/// A name that may stand at the caret.
struct CompletionCandidate
{
    enum class Kind : std::uint8_t
    {
        Keyword,
        Class,
        Function,
        Method
    };
    WString name;
    Kind kind;
};

/// What code completion offers at a place of a script: from the line up to the caret, the lines
/// before it, and the tables of classes and functions as they are registered.
struct CodeCompletion
{
    WString word; ///< of the name, what is typed already; choosing a candidate replaces it
    /// Those that begin with the word, by name, case ignored. Behind a class name and a dot its
    /// static methods; behind a variable or a text and a dot the methods of its class, and nothing
    /// when that is not known; elsewhere keywords, classes and global functions. Nothing within a
    /// text, a number or a comment.
    std::vector<CompletionCandidate> candidates;
};

/// @param before  the script from its start to the caret
CodeCompletion completeCode(WStringView before);

/// The call whose arguments are being typed at the caret: the innermost parenthesis that is open in
/// its line.
struct OpenCall
{
    WString className; ///< "global" without a receiver; empty when it is not known
    WString method;    ///< empty: there is no such call
};
OpenCall openCallAt(WStringView before);

} // namespace varn
