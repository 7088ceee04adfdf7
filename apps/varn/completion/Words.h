#pragma once

#include "Help.h"

#include <string>
#include <string_view>
#include <vector>

namespace varn::driver {

// What the scripts of all shells are made of. The commands are those a person calls from a shell;
// the ones of batches are left out.

/// A word as every shell takes it literally.
std::string quoted(std::string_view text);
std::string joined(const std::vector<std::string>& words, std::string_view separator = " ");

std::vector<const Command*> shellCommands();
/// "start", "settings", "map", ...
std::vector<std::string> firstWords();
/// Second words of the commands that begin with `first`; none for a command of one word.
std::vector<std::string> secondWords(std::string_view first);
/// What a person reads beside a first word.
std::string firstWordText(std::string_view first);

/// Names of the options of any command that a value follows.
std::vector<std::string> valuedOptions();
std::vector<std::string> optionNames(std::span<const Option> options);

/// What a value can be: "@file", "@folder", "@map", "@table", "-" where nothing can be offered, or
/// the choices, blanks between.
std::string offer(const Argument& argument);
std::string offer(const Option& option);

bool isRepeated(const Argument& argument);

} // namespace varn::driver
