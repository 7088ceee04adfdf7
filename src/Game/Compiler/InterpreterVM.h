#pragma once

#include "Game/Compiler/Heap.h"
#include "Game/Compiler/Program.h"

#include <atomic>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace varn {

class Interpreter;

/// The register machine: steps the instructions of one program on its values.
///
/// The stack is one run of cells. A frame is a header cell (the function, and where its caller goes
/// on) and the function's registers behind it: arguments, variables, temporaries. The caller lays
/// the arguments down where the callee finds them, and the result takes the header's place. The
/// frame of the top level stands first; its registers are the globals.
class InterpreterVM
{
  public:
    InterpreterVM(Interpreter& owner, Heap& heap, Program& program,
                  const std::atomic<bool>& stopRequested);
    ~InterpreterVM();
    InterpreterVM(const InterpreterVM&) = delete;
    InterpreterVM& operator=(const InterpreterVM&) = delete;

    /// What the run before may have left in the stack.
    enum class StackContents
    {
        Plain,     ///< numbers, constants, functions
        HeapValues ///< values the heap has freed since
    };
    static constexpr std::uint64_t kUnlimited = ~std::uint64_t{0};
    enum class State
    {
        Running,
        Ended,
        Stopped
    };

    /// Runs until the program ends, a stop is requested or `budget` instructions are done. Throws a
    /// fatal InterpreterException with script and line when the run cannot go on; it is over then.
    State run(std::uint64_t budget);
    State state() const { return reached; }
    /// Back to the first instruction. Cheap when nothing in the stack can name a value of the heap.
    void restart(StackContents contents);

    /// For natives: runs a script function above the frame that called them, to its end, and gives
    /// its result. Arguments that are missing are 0. Does not return when the script ends
    /// meanwhile.
    OperandData callFunction(const FunctionCode& function, std::span<const OperandData> arguments);

    OperandData& global(std::uint32_t slot) { return stack[kHeader + slot]; }
    void markRoots(Marker& marker);

  private:
    static constexpr std::size_t kHeader = 1;        // cells of a frame before its registers
    static constexpr std::size_t kFirstCells = 4096; // of the stack
    static constexpr std::size_t kMaxCells = std::size_t{1} << 22;
    static constexpr std::size_t kClearStep =
        1024; // cells usable before the next collection clears

    template <bool counted>
    State interpret(std::uint64_t& budget);
    const FunctionCode& currentFunction() const { return FunctionCode::ofHeader(frame[-1].head); }

    void enterTopLevel();
    OperandData* makeRoom(OperandData* base, const FunctionCode& function);
    void collect();
    std::size_t liveCells() const;

    // The slower halves of instructions. Those that may throw find the place by `pc`.
    OperandData add(const OperandData& left, const OperandData& right);
    OperandData divide(const OperandData& left, const OperandData& right) const;
    std::int32_t remainder(std::int32_t left, std::int32_t right) const;
    OperandData* elementPlace(OperandData& base, const OperandData& index);
    OperandData* memberPlace(OperandData& base, std::uint32_t name);
    OperandData* memberAt(OperandData& base, std::uint32_t name);
    OperandData* chainPlace(OperandData& base, const OperandData* selectors, std::uint32_t count);
    void newArray(OperandData& target, const OperandData* first, std::uint32_t count);
    void appendArray(const OperandData& target, const OperandData* first, std::uint32_t count);
    void newObject(OperandData& target, const OperandData* first, std::uint32_t count,
                   const ClassReference& wanted);
    bool isOfClass(const OperandData& value, const ClassReference& wanted) const;
    OperandData kindNameOf(const OperandData& value);

    // Calls of natives.
    bool findMethod(CallSite& site, const OperandData& receiver);
    const FunctionCode* memberFunction(const CallSite& site, const OperandData& receiver) const;
    void callNative(const NativeReference& native, const OperandData* first, int count);
    OperandData refuse(const CallSite& site, const OperandData& receiver);
    OperandData fallbackResult() { return OperandData::integer(global(0).toInt()); }

    // Faults.
    void recover(const WString& text, const WString& function);
    [[noreturn]] void end(const WString& text, const WString& function);
    bool inNative() const;
    [[noreturn]] void fail(WStringView text) const;
    [[noreturn]] void failOutside(const OperandData& array, std::int32_t index) const;
    WString place() const;

    Interpreter& owner;
    Heap& heap;
    Program& program;
    const std::atomic<bool>& stopRequested;
    const FunctionCode& top; ///< of the program
    std::unique_ptr<OperandData[]> stack;
    std::size_t cells = 0; ///< of the stack
    int nesting = 0;       ///< natives that called a script function and wait for it
    /// Stacks that were outgrown meanwhile: such a native's arguments lie in one.
    std::vector<std::unique_ptr<OperandData[]>> outgrown;
    OperandData* usable = nullptr; ///< end of the cells that may be used before `enterFrame`
    OperandData* frame = nullptr; ///< registers of the frame that runs; saved where a call may look
    const Instruction* pc = nullptr; ///< the instruction that runs; likewise
    State reached = State::Running;
};

} // namespace varn
