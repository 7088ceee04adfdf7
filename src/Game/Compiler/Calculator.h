#pragma once

#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/Objects.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace varn {

/// A native object handed to a formula. The first is called `a` there, the second `b`, and so on.
struct FormulaArg
{
    WString name;             ///< for people
    WString className;        ///< a class of the GlobalClassTable
    void* instance = nullptr; ///< never null; it outlives the calculation
};

/// One formula, compiled: the small program that the game's rules run over and over.
class Calculator
{
  public:
    /// @param prefix  source put in front of the formula
    /// Text without a `;` is an expression; other text is a function's body, with its own `return`.
    /// Throws std::string with the compile errors.
    Calculator(WStringView formula, std::size_t argumentCount, WStringView prefix);

    /// The result cut to an int. Runs on the caller's thread to its end. As many arguments as the
    /// formula was compiled for. Throws a fatal InterpreterException where the run cannot go on.
    int calculate(std::span<const FormulaArg> arguments);
    bool isRunning() const { return running; }

    /// The program that a formula becomes.
    static WString wrap(WStringView formula, std::size_t argumentCount, WStringView prefix);

  private:
    /// The cell's side of an argument; it stays where it is, so no run has to make it anew.
    struct Slot
    {
        WString className;
        ObjectBox box;
    };
    void fill(Slot& slot, const FormulaArg& argument) const;
    void run();

    Interpreter interpreter;
    std::vector<Slot> slots;     ///< none where the formula names no argument
    std::optional<int> constant; ///< result of a formula that is a number and nothing else
    bool running = false;
};

/// The formulas of the session, each compiled once. Used by one thread, after the classes are
/// registered.
class CalculatorManager
{
  public:
    static CalculatorManager& instance();

    /// The formula in a row of the table of formulas; -1 when there is no such row.
    int calculate(std::int64_t row, std::span<const FormulaArg> arguments, WStringView prefix = {});
    /// Throws std::string with the compile errors, and what `Calculator::calculate` throws. A
    /// formula may ask for others on its way, itself included.
    int evaluate(WStringView formula, std::span<const FormulaArg> arguments,
                 WStringView prefix = {});

    std::size_t count() const { return interpreters.size(); }

  private:
    /// What the wrapped text is made of, which is found without making it.
    struct Wrapped
    {
        WString formula;
        std::size_t argumentCount;
        WString prefix;
    };
    struct Sought
    {
        WStringView formula;
        std::size_t argumentCount;
        WStringView prefix;
    };
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(const Sought& key) const;
        std::size_t operator()(const Wrapped& key) const
        {
            return (*this)(Sought{key.formula, key.argumentCount, key.prefix});
        }
    };
    struct Same
    {
        using is_transparent = void;
        template <class A, class B>
        bool operator()(const A& a, const B& b) const
        {
            return compare({a.formula, a.argumentCount, a.prefix},
                           {b.formula, b.argumentCount, b.prefix});
        }
        static bool compare(const Sought& a, const Sought& b);
    };

    using Interpreters = std::unordered_map<Wrapped, std::unique_ptr<Calculator>, Hash, Same>;
    Interpreters::value_type& ensure(const Sought& sought);

    Interpreters interpreters;
    /// The last one of each of some lengths: a battle asks for a few formulas over and over.
    std::array<Interpreters::value_type*, 16> recent{};
};

} // namespace varn
