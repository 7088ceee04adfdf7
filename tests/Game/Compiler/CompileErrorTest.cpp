#include "ScriptRun.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

struct ErrorCase
{
    const char* source;
    const char* errors; // all of them, without `Error: ` and the file
};

constexpr ErrorCase kErrorCases[] = {
    // Syntax, with the line of the token that does not fit.
    {"var x = [];", "E101 (1): syntax error\n"},
    {"var t = {};", "E101 (1): syntax error\n"},
    {"var x = 012;", "E101 (1): syntax error\n"},
    {"class A { function f() {} function g() {} }", "E101 (1): syntax error\n"},
    {"{ function f() {} }", "E101 (1): syntax error\n"},
    {"f(1,);", "E101 (1): syntax error\n"},
    {"a.b().c();", "E101 (1): syntax error\n"},
    {"f()[0];", "E101 (1): syntax error\n"},
    {"(a).b();", "E101 (1): syntax error\n"},
    {"new A().b();", "E101 (1): syntax error\n"},
    {"\n\nvar 5;", "E101 (3): syntax error\n"},
    {"var this;", "E101 (1): syntax error\n"},
    {"if (1) {\n", "E101 (2): syntax error\n"},
    {"switch (1) { case 1: }", "E101 (1): syntax error\n"},
    {"switch (1) { case 1.5: ; }", "E101 (1): syntax error\n"},
    {"function f(): int {}", "E101 (1): syntax error\n"},
    {"1 + ;", "E101 (1): syntax error\n"},
    {"++a++;", "E101 (1): syntax error\n"},
    {"5 = 6;", "E101 (1): syntax error\n"},
    {"/* a **/ var x;", ""},
    {"var a = 1;\n\xC3\xA9", "E101 (2): '\xC3\xA9' is bad char\n"},
    {"a @ b;", "E101 (1): '@' is bad char\n"},
    {"# include", "E101 (1): '#' is bad char\n"},
    {"\n#include \"nowhere.txt\"", "E101 (2): Couldn't open this file: nowhere.txt\n"},
    {"#include \"nul\xC3\xA9.txt\"", "E101 (1): Couldn't open this file: nul\xC3\xA9.txt\n"},
    // Names.
    {"x;", "E201 (1): x is undefined variable\n"},
    {"x = 1;", "E201 (1): x is undefined variable\n"},
    {"x++;", "E201 (1): x is undefined variable\n"},
    {"x[y] = z;", "E201 (1): z is undefined variable\nE201 (1): y is undefined variable\n"
                  "E201 (1): x is undefined variable\n"},
    {"{ var x; }\nx;", "E201 (2): x is undefined variable\n"},
    {"for (var i = 0; i < 1; i++) {}\ni;", "E201 (2): i is undefined variable\n"},
    {"function f() { return g; }\nvar g;", "E201 (1): g is undefined variable\n"},
    {"var s: Unknown;", "E203 (1): Unknown is not defined\n"},
    {"function f(a: Unknown) { nothing; }", "E203 (1): Unknown is not defined\n"},
    {"class A { ; }\nclass A { ; }", "E204 (2): A is exist class\n"},
    {"class Array { ; }", "E204 (1): Array is exist class\n"},
    {"f();", "E205 (1): f is not declared function\n"},
    {"var a: Array;\na.nothing();", "E206 (2): Array.nothing is not declared method\n"},
    {"\"x\".nothing();", "E206 (1): String.nothing is not declared method\n"},
    {"Rectangle.getX();", "E206 (1): getX is not declared method\n"},
    {"var a: Array; { var a: Rectangle; } a.push(1);",
     "E206 (1): Rectangle.push is not declared method\n"},
    {"new Unknown();", "E207 (1): Unknown is not declared class.\n"},
    {"1 is Unknown;", "E207 (1): Unknown is not declared class.\n"},
    {"break;", "E208 (1): label is not founds\n"},
    {"while (1) { }\ncontinue;", "E208 (2): label is not founds\n"},
    {"while (1) { break; }", ""},
    {"function f(a, b) {}\nf(1,\n2, 3);", "E209 (2): f wrong number of arguments\n"},
    {"var a: Rectangle = new Array();", "E210 (1): Rectangle and Array are different type\n"},
    {"var a: int = \"x\";", "E210 (1): int and String are different type\n"},
    {"\nswitch (1) { case 1: undefinedName; default: ; }",
     "E211 (2): switch statement is not supported\n"},
    {"var t = {a: 1, b: 2};", "E330 (1): compileExpr(): undefined operation\n"
                              "E330 (1): compileExpr(): undefined operation\n"},
    {"for (;; var i = 0) {}", "E330 (1): compileExpr(): undefined operation\n"},
    // Text of a call that ends the program is not looked at; neither is what stands behind EOF.
    {"exit(undefinedName);", ""},
    {"var a; EOF ) nonsense (", ""},
    {"", ""},
    {"var a = \"x\"\n\"y\";\nb;", "E201 (3): b is undefined variable\n"},
};

std::string withoutFile(std::string errors)
{
    for (const std::string_view part : {"Error: ", "\"test\""})
        for (std::size_t at; (at = errors.find(part)) != std::string::npos;)
            errors.erase(at, part.size());
    return errors;
}

/// Compiled only: what compiles here need not end.
std::string compileErrors(std::string_view source)
{
    registerEngineClasses();
    Interpreter vm;
    try {
        vm.compile(u"test", fromUtf8(source));
    } catch (const std::string& errors) {
        return errors;
    }
    return "";
}

TEST(CompileErrors, TellCodeAndLine)
{
    const TemporaryProject project;
    for (const ErrorCase& each : kErrorCases)
        EXPECT_EQ(withoutFile(compileErrors(each.source)), each.errors) << each.source;
}

TEST(CompileErrors, AreAllReported)
{
    EXPECT_EQ(compileErrors("a;\nf();\nbreak;"),
              "Error: E201 \"test\"(1): a is undefined variable\n"
              "Error: E205 \"test\"(2): f is not declared function\n"
              "Error: E208 \"test\"(3): label is not founds\n");
}

TEST(CompileErrors, NameTheIncludedFile)
{
    const TemporaryProject project;
    project.write("Scripts/Sub/part.txt", "\nmissing;\n");
    project.write("Scripts/outer.txt", "var outer = 1;\n#include \"Sub/part.txt\"\nafter;");
    EXPECT_EQ(compileErrors("#include \"outer.txt\"\n#include \"outer.txt\"\nouter = 2; last;"),
              "Error: E201 \"Sub/part.txt\"(2): missing is undefined variable\n"
              "Error: E201 \"outer.txt\"(3): after is undefined variable\n"
              "Error: E201 \"test\"(3): last is undefined variable\n");
}

TEST(CompileErrors, TheGlobalScriptStandsInFront)
{
    const TemporaryProject project;
    project.write("Scripts/Global.txt", "var shared = 7;\nfunction twice(a) { return a + a; }\n");
    Interpreter vm;
    EXPECT_EQ(runScript("_ret = twice(shared);", vm).result, 14);
    vm.loadGlobalScript = false;
    EXPECT_NE(runScript("_ret = twice(shared);", vm).compileErrors, "");
}

TEST(CompileErrors, TooManyDeclarations)
{
    std::string source;
    for (int i = 0; i < 511; ++i)
        source += "var v" + std::to_string(i) + ";\n";
    EXPECT_EQ(compileErrors(source), ""); // with _ret 512
    EXPECT_NE(compileErrors(source + "var more;"), "");
    EXPECT_EQ(compileErrors("{" + source + "}{" + source + "}"), ""); // not at once
}

} // namespace
} // namespace varn::test
