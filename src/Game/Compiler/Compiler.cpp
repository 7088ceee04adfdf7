#include "Game/Compiler/Compiler.h"

#include "Game/Compiler/CodeGenerator.h"
#include "Game/Compiler/Lexer.h"
#include "Game/Compiler/Parser.h"
#include "Game/Compiler/Resolver.h"

namespace varn {

void Compiler::compile(WStringView name, WString text, GlobalScript global)
{
    reset();
    auto made = std::make_unique<Program>();
    IncludeStack sources;
    CompileErrors errors(sources.names());
    sources.push(WString(name), std::move(text));
    if (global == GlobalScript::Included)
        sources.includeFile(kGlobalScript); // read first, as what is innermost is

    SymbolTable symbols;
    ConstantTable constants(*made);
    Arena nodes;
    Lexer lexer(sources, symbols, constants, errors);
    const SyntaxTree tree = Parser(lexer, nodes, errors).parseProgram();
    const ResolvedProgram resolved = Resolver(symbols, nodes, errors).resolve(tree);
    errors.throwIfAny();
    // A top level without a name stands first among the functions.
    made->functions.push_back(std::make_unique<FunctionCode>());
    CodeGenerator(*made, constants, errors).generate(resolved);
    made->files = sources.names();
    program = std::move(made);
}

} // namespace varn
