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

std::string CompileErrors::format(ErrorCode code, SourcePlace place, std::string_view text) const
{
    const std::string file = place.file < files.size() ? narrow(files[place.file]) : std::string();
    return "Error: E" + std::to_string(static_cast<int>(code)) + " \"" + file + "\"(" +
           std::to_string(place.line) + "): " + std::string(text) + "\n";
}

void CompileErrors::add(ErrorCode code, SourcePlace place, std::string_view name)
{
    lines += format(code, place, std::string(name) + std::string(sentence(code)));
}

void CompileErrors::fail(SourcePlace place, std::string_view text) const
{
    throw format(ErrorCode::Syntax, place, text);
}

} // namespace varn
