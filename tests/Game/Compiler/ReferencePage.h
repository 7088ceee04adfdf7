#pragma once

#include <string>
#include <vector>

namespace varn::test {

/// The classes and functions of scripts, told from their registrations and described by the hints
/// of the script editor (assets/Resources/BuiltinClass.xml), which a language document translates.
class ReferencePage
{
  public:
    /// What is the same on every page of a language.
    struct Wording
    {
        const char* languageFile; ///< below assets/Languages
        const char* introduction;
        const char* functions; ///< heading of the global functions
        const char* tableHead; ///< call, arguments, description
        const char* anyCount;  ///< of a native that reads its arguments itself
    };

    explicit ReferencePage(const Wording& wording);

    /// Markdown, UTF-8.
    const std::string& text() const { return page; }
    /// What is registered and has no description, or one that does not fit; what has no
    /// translation.
    const std::vector<std::string>& gaps() const { return missing; }

  private:
    std::string page;
    std::vector<std::string> missing;
};

} // namespace varn::test
