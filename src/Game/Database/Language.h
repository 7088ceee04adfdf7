#pragma once

namespace varn {

/// The process-wide language state of the game's data. Rows with two names swap them while the
/// second language is active: nothing is translated or copied, the two slots change places.
struct Language
{
    bool supported = false; ///< the system table's `supportSecondLanguage`, taken over at its load
    int current = 0;        ///< 0 the first language, 1 the second

    bool isSecondActive() const { return supported && current == 1; }
};

Language& language();

/// Puts a language in force for a scope and the one before back at its end.
class LanguageScope
{
  public:
    explicit LanguageScope(int current) : before(language().current)
    {
        language().current = current;
    }
    ~LanguageScope() { language().current = before; }
    LanguageScope(const LanguageScope&) = delete;
    LanguageScope& operator=(const LanguageScope&) = delete;

  private:
    int before;
};

} // namespace varn
