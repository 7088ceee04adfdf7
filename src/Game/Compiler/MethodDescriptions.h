#pragma once

#include "Util/Text.h"

#include <vector>

namespace varn {

class Element;

/// What the built-in classes and their methods do, for the hint beside the caret:
/// `Resources/BuiltinClass.xml` of the project, or else the one beside the program. Any element of
/// the document with a `name` is described by its `description`, told in the language in force, in
/// which `\n` stands for a line break. Functions without a class are methods of the class "global".
class MethodDescriptions
{
  public:
    /// Empty when there is no such document.
    static MethodDescriptions load();
    explicit MethodDescriptions(const Element& root);
    MethodDescriptions() = default;

    struct Entry
    {
        WString name;
        WString className; ///< of the class it is a method of; empty for a class
        WString description;
    };
    /// By name, in code units; those of one name in the order of the document.
    const std::vector<Entry>& getEntries() const { return entries; }

    /// The description of a class's method or, where the class is not known or has none of that
    /// name, of the first method or class so called. Null: there is none.
    const WString* find(WStringView className, WStringView method) const;

  private:
    std::vector<Entry> entries;
};

} // namespace varn
