#pragma once

#include "Parser/Regexp/Program.h"

#include <map>

namespace varn::regexp {

inline constexpr std::size_t kLargestProgram = 1u << 18; // instructions; kept registers too

/// Compiles a pattern's tree to a program. Used once.
class CBuilderT
{
  public:
    CBuilderT(const Pattern& pattern, Direction direction);

    /// @throws PatternException  the program would pass kLargestProgram
    Program build();

  private:
    /// Groups called from elsewhere are compiled once more, for each direction that a call goes.
    struct Subroutine
    {
        int group;
        Direction direction;

        auto operator<=>(const Subroutine&) const = default;
    };

    void emit(NodeId id, const UnitSet& follow);
    void emitLiteral(const WString& text);
    void emitSet(const UnitSet& set);
    void emitSequence(const Node& node, const UnitSet& follow);
    void emitAlternation(const Node& node, const UnitSet& follow);
    void emitGroup(const Node& node, NodeId id, const UnitSet& follow);
    void emitAtomic(NodeId child);
    void emitLook(const Node& node);
    void emitCondition(const Node& node, const UnitSet& follow);
    void emitCall(const Node& node);
    void emitBoundary(BoundaryKind kind);
    void emitSubroutines();

    void emitRepeat(const Node& node, const UnitSet& follow);
    void emitRun(const Node& node, const UnitSet& set, const UnitSet& follow);
    void emitOptional(const Node& node, const UnitSet& follow);
    void emitUnlimited(const Node& node, const UnitSet& follow);
    void emitCounted(const Node& node, const UnitSet& follow);
    UnitSet followOfTurn(NodeId child, const UnitSet& follow) const;

    /// A look's body between Enter and its Leave; the place of Enter.
    std::uint32_t emitLookBody(const Node& look);

    static void checkSize(std::size_t size);
    std::uint32_t add(Instruction instruction);
    std::uint32_t addBranch(bool targetFirst, std::uint64_t here, std::uint64_t there,
                            std::uint32_t memory);
    std::uint32_t here() const { return static_cast<std::uint32_t>(program.code.size()); }
    void setTarget(std::uint32_t place) { program.code[place].a = here(); }
    /// The operation itself, or its twin when compiling backward.
    Op sided(Op op) const;
    std::uint32_t tableOf(const UnitSet& set);
    std::uint32_t newRegister() { return program.registerCount++; }
    /// A state with a memory of failures, or 0 where there can be none.
    std::uint32_t newMemory();
    UnitSet firstOf(NodeId id, const UnitSet& follow) const;
    std::optional<UnitSet> asSet(NodeId id) const;
    bool isRemembering() const { return contextFree && forgetfulParts == 0; }

    const Pattern& pattern;
    std::vector<NodeFacts> facts;
    Program program;
    Direction direction;
    /// Failures depend on nothing but instruction and position; within parts that are cut or
    /// counted they depend on more.
    bool contextFree;
    int forgetfulParts = 0;
    std::vector<std::uint32_t> kept; ///< registers that a call at this place must keep
    std::map<Subroutine, std::uint32_t> subroutines; ///< and where each begins
    std::vector<Subroutine> pending;
    std::vector<std::pair<std::uint32_t, Subroutine>>
        calls; ///< calls whose target is not known yet
    std::map<std::vector<UnitRange>, std::uint32_t> tables;
};

} // namespace varn::regexp
