#pragma once

#include "Game/Compiler/Arena.h"
#include "Game/Compiler/Token.h"

#include <cstdint>

namespace varn {

struct Symbol;
struct Variable;

/// Kinds of tree nodes beside the token kinds that name themselves (identifier, literals,
/// statements).
enum NodeKind : std::int16_t
{
    kNodeAdd = 1,      ///< without a right child: unary plus
    kNodeSubtract = 2, ///< without a right child: the sign is changed
    kNodeMultiply = 3,
    kNodeDivide = 4,
    kNodeRemainder = 5,
    kNodeAnd = 10,
    kNodeOr = 11,
    kNodeNot = 12,
    kNodeLess = 29,
    kNodeLessOrEqual = 30,
    kNodeEqual = 31,
    kNodeNotEqual = 32,
    kNodeGreaterOrEqual = 33,
    kNodeGreater = 34,
    kNodeMethodCall =
        35, ///< left: selector list or text, the last selector is the method; right: arguments
    kNodeCall = 36,         ///< left: name; right: arguments
    kNodeNew = 41,          ///< left: class name; right: arguments
    kNodeArray = 19,        ///< left: elements
    kNodeTable = 18,        ///< left: pairs
    kNodeEmpty = 59,        ///< the statement `;`
    kNodeAssign = 61,       ///< left: target, right: value
    kNodeClass = 261,       ///< left: name, right: body
    kNodeFunction = 262,    ///< left: name, right: list of parameters (a list) and body
    kNodeVar = 263,         ///< left: declarators
    kNodeDeclarator = 264,  ///< left: typed name, right: initial value
    kNodeTypedName = 265,   ///< left: name, right: type name
    kNodeBlock = 269,       ///< left: statements
    kNodeConditional = 286, ///< left: condition, right: a pair of the branches
    kNodePair = 0,
    kNodeCell = 512,  ///< list cell; left: element, right: next cell
    kNodeIndex = 513, ///< left: index of a selector
    kNodeHead = 515,  ///< left: variable of a selector list
};

/// A node of the syntax tree; lives in the Compiler's arena. Identifiers have a symbol and, once
/// resolved, a variable where others have children.
struct AST
{
    static constexpr std::uint16_t kAssigns = 1; ///< evaluating it writes a variable
    static constexpr std::uint16_t kCalls = 2;   ///< evaluating it runs a function
    static constexpr std::uint16_t kStatic = 4;  ///< method call or selector list on a class name

    std::int16_t kind = 0;
    std::uint16_t fileIndex = 0;
    std::uint32_t line = 0; ///< from 1
    std::int32_t value = 0; ///< literal, constant index, or what the resolver found
    std::uint16_t flags = 0;
    union {
        AST* left = nullptr;
        Symbol* symbol;
    };
    union {
        AST* right = nullptr;
        Variable* variable;
    };

    bool isIdentifier() const { return kind == kTokenIdentifier; }
    bool has(std::uint16_t flag) const { return (flags & flag) != 0; }
};
static_assert(sizeof(AST) == 32);

/// The elements of a list of cells: `for (AST* element : elementsOf(list))`.
class ListView
{
  public:
    class Iterator
    {
      public:
        explicit Iterator(AST* cell) : cell(cell) {}
        AST* operator*() const { return cell->left; }
        Iterator& operator++()
        {
            cell = cell->right;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return cell != other.cell; }

      private:
        AST* cell;
    };
    explicit ListView(AST* first) : first(first) {}
    Iterator begin() const { return Iterator(first); }
    Iterator end() const { return Iterator(nullptr); }

  private:
    AST* first;
};
inline ListView elementsOf(AST* list)
{
    return ListView(list);
}
inline int lengthOf(const AST* list)
{
    int length = 0;
    for (; list; list = list->right)
        ++length;
    return length;
}

/// A list under construction.
struct ListBuilder
{
    AST* first = nullptr;
    AST* last = nullptr;

    void append(Arena& arena, AST* element)
    {
        AST* cell = arena.make<AST>();
        cell->kind = kNodeCell;
        cell->left = element;
        cell->line = element->line;
        cell->fileIndex = element->fileIndex;
        (last ? last->right : first) = cell;
        last = cell;
        first->flags |= element->flags & (AST::kAssigns | AST::kCalls);
    }
};

} // namespace varn
