#pragma once

#include "Game/Compiler/Arena.h"
#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Token.h"
#include "Util/Text.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace varn {

struct AST;
struct Variable;

/// One name of the program, the same object wherever it stands.
struct Symbol
{
    static constexpr std::uint32_t kNoIndex = 0xFFFFFFFF;

    std::string_view name;
    std::uint32_t hash = 0;
    TokenKind keyword = kTokenIdentifier; ///< another kind: a reserved word
    Variable* variable = nullptr;         ///< the newest declaration in force
    /// Class name of the most recent declaration of the name, wherever it stood: what a method call
    /// on the name goes by. Null: none.
    Symbol* typeName = nullptr;
    std::uint32_t nameIndex = Symbol::kNoIndex;  ///< in the program's name table
    std::uint32_t classIndex = Symbol::kNoIndex; ///< in the program's classes
    bool isScriptClass = false;                  ///< declared by `class` so far

    /// The native class and native global function of that name, or null.
    ClassInterface* nativeClass();
    GlobalFunction nativeFunction();
    bool isClass() { return isScriptClass || nativeClass() != nullptr; }

  private:
    ClassInterface* foundClass = nullptr;
    GlobalFunction foundFunction = nullptr;
    bool classSought = false, functionSought = false;
};

/// What is known of the values a variable takes, from all its assignments.
enum class KnownKind : std::uint8_t
{
    Nothing,
    Int,
    Number,
    Any
};

enum class Storage : std::uint8_t
{
    Argument = 1,
    Local = 2,
    Global = 3
};

/// A declared variable or function: one entry of the environment.
struct Variable
{
    /// A value that may be stored: an expression, or null for one that nothing is known of.
    struct Assigned
    {
        AST* value;
        Assigned* next;
    };

    Symbol* symbol = nullptr;
    AST* function = nullptr;    ///< the definition, of a function
    Variable* hidden = nullptr; ///< the declaration of the name that this one hides
    Storage storage = Storage::Global;
    KnownKind kind = KnownKind::Nothing;
    bool usedInFunction = false;      ///< a global that some function reads or writes
    bool readsItself = false;         ///< in its own initial value
    std::uint32_t slot = 0;           ///< within its storage
    std::uint32_t functionNumber = 0; ///< index of its code in the program
    Assigned* assigned = nullptr;
};

/// The names of one compilation, by hash.
class SymbolTable
{
  public:
    SymbolTable();

    /// The symbol with the ASCII spelling `text`, made when new. `hash` is `hashOf` the text.
    Symbol* intern(WStringView text, std::uint32_t hash);
    Symbol* intern(std::string_view text);

    static constexpr std::uint32_t kHashStart = 2166136261U;
    /// One step of the hash, a unit at a time (FNV-1a).
    static std::uint32_t hashStep(std::uint32_t hash, char16_t unit)
    {
        return (hash ^ unit) * 16777619U;
    }

  private:
    void grow();

    Arena arena;
    std::vector<Symbol*> slots; // size is a power of two
    std::size_t used = 0;
};

} // namespace varn
