#include "Game/Compiler/CompileErrors.h"

namespace varn {
namespace {

std::string_view sentence(ErrorCode code)
{
    switch (code) {
    case ErrorCode::UndefinedVariable:
        return " is undefined variable";
    case ErrorCode::AlreadyDefined:
        return " is already defined";
    case ErrorCode::NotDefined:
        return " is not defined";
    case ErrorCode::ClassExists:
        return " is exist class";
    case ErrorCode::FunctionNotDeclared:
        return " is not declared function";
    case ErrorCode::MethodNotDeclared:
        return " is not declared method";
    case ErrorCode::ClassNotDeclared:
        return " is not declared class.";
    case ErrorCode::LabelNotFound:
        return "label is not founds";
    case ErrorCode::WrongArgumentCount:
        return " wrong number of arguments";
    case ErrorCode::DifferentType:
        return " are different type";
    case ErrorCode::NotSupported:
        return " statement is not supported";
    default:
        return "";
    }
}

} // namespace

std::string CompileError::format() const
{
    return "Error: E" + std::to_string(static_cast<int>(code)) + " \"" + toUtf8(file) + "\"(" +
           std::to_string(line) + "): " + text + "\n";
}

CompileFailure::CompileFailure(std::vector<CompileError> faults) : errors(std::move(faults))
{
    for (const CompileError& each : errors)
        append(each.format());
}

CompileError CompileErrors::made(ErrorCode code, SourcePlace place, std::string text) const
{
    return {code, place.file < files.size() ? files[place.file] : WString(), place.line,
            std::move(text)};
}

void CompileErrors::add(ErrorCode code, SourcePlace place, std::string_view name)
{
    errors.push_back(made(code, place, std::string(name).append(sentence(code))));
}

void CompileErrors::fail(SourcePlace place, std::string_view text) const
{
    throw CompileFailure({made(ErrorCode::Syntax, place, std::string(text))});
}

void CompileErrors::throwIfAny() const
{
    if (!errors.empty())
        throw CompileFailure(errors);
}

} // namespace varn
