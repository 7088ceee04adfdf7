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
    Resolver resolver(symbols, nodes, errors);
    CodeGenerator generator(*made, constants, errors, resolver.getProgram());
    resolver.resolve(tree, [&](std::uint32_t number) {
        if (!errors.any())
            generator.addFunction(number);
    });
    errors.throwIfAny();
    generator.finish();
    made->files = sources.names();
    program = std::move(made);
}

} // namespace varn
