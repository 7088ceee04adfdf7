#include "Game/Compiler/CodeCompletion.h"
#include "Game/Compiler/MethodDescriptions.h"
#include "Game/Compiler/classes/Classes.h"
#include "Game/Compiler/classes/game/GameClasses.h"
#include "Parser/XMLParser.h"
#include "Support/TemporaryProject.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace varn::test {
namespace {

std::string listed(WStringView before)
{
    std::string text;
    for (const CompletionCandidate& each : completeCode(before).candidates)
        text += (text.empty() ? "" : " ") + toUtf8(each.name);
    return text;
}

TEST(CodeCompletion, OffersWhatMayStandAtTheCaret)
{
    registerEngineClasses();
    constexpr WStringView kRectangle = u"getHeight getWidth getX getY";
    const struct
    {
        WStringView before, word;
        std::string candidates;
    } kCases[] = {
        {u"    cont", u"cont", "continue"},
        {u"var r = new Rec", u"Rec", "Rectangle"},
        {u"if (TRA", u"TRA", "trace"},
        {u"tr", u"tr", "trace true try"},
        {u"var text = \"abc\".indexO", u"indexO", "indexOf"},
        {u"var r: Rectangle;\nr.get", u"get", toUtf8(kRectangle)},
        {u"function f(a, r: Rectangle) {\r\n  return r.get", u"get", toUtf8(kRectangle)},
        {u"var r = new Rectangle(1, 2, 3, 4); r.GET", u"GET", toUtf8(kRectangle)},
        {u"var r: Array;\nvar r: Rectangle;\nfoo(r);\nx = r.get", u"get", toUtf8(kRectangle)},
        {u"var s = \"text\";\ns.substri", u"substri", "substring"},
        {u"var list = [1];\nlist.po", u"po", "pop"},
        {u"r.get\nvar r: Rectangle;", u"", "*"}, // only what stands above
        {u"r.get", u"get", ""},
        {u"var r: Nobody;\nr.get", u"get", ""},
        {u"Rectangle.get", u"get", ""}, // none is static
        {u"x[1].get", u"get", ""},
        {u".", u"", ""},
        {u"12", u"", ""},
        {u"\"while", u"", ""},
        {u"// while", u"", ""},
        {u"x = 1; /* whi", u"", ""},
        {u"\"a\" + whi", u"whi", "while"},
        {u"", u"", "*"},
        {u"return ", u"", "*"},
        {u"f(", u"", "*"},
    };
    const std::string everything = listed(u"");
    for (const auto& each : kCases) {
        const CodeCompletion made = completeCode(each.before);
        EXPECT_EQ(made.word, each.word) << toUtf8(each.before);
        const std::string wanted = each.candidates == "*" ? everything : each.candidates;
        EXPECT_EQ(listed(each.before), wanted) << toUtf8(each.before);
    }
}

TEST(CodeCompletion, EverythingIsKeywordsClassesAndFunctionsByName)
{
    registerGameClasses();
    const auto candidates = completeCode(u"").candidates;
    const auto kindOf = [&](WStringView name) {
        const auto at = std::find_if(candidates.begin(), candidates.end(),
                                     [&](const auto& each) { return each.name == name; });
        return at == candidates.end() ? -1 : static_cast<int>(at->kind);
    };
    using Kind = CompletionCandidate::Kind;
    EXPECT_EQ(kindOf(u"while"), static_cast<int>(Kind::Keyword));
    EXPECT_EQ(kindOf(u"Array"), static_cast<int>(Kind::Class));
    EXPECT_EQ(kindOf(u"getFlag"), static_cast<int>(Kind::Function));
    EXPECT_EQ(kindOf(u"constructor"), -1);
    EXPECT_EQ(listed(u"Player.turn"), "turnLeft turnRight");
    for (const WStringView typed : {u"Array.", u"var a: Array; a."})
        EXPECT_EQ(listed(typed).find("constructor"), std::string::npos);
}

TEST(CodeCompletion, FindsTheCallBeingTyped)
{
    registerEngineClasses();
    constexpr struct
    {
        WStringView before, className, method;
    } kCases[] = {
        {u"trace(", u"global", u"trace"},
        {u"trace(f(1), \"(\", ", u"global", u"trace"},
        {u"trace(\"x\".indexOf(", u"String", u"indexOf"},
        {u"var r: Rectangle;\nr.set(1, (2 + 3", u"Rectangle", u"set"},
        {u"Rectangle.set(", u"Rectangle", u"set"},
        {u"unknown.set(", u"", u"set"},
        {u"trace(1)", u"", u""},
        {u"(1 + ", u"", u""},
        {u"trace(\n1, ", u"", u""},
    };
    for (const auto& each : kCases) {
        const OpenCall call = openCallAt(each.before);
        if (call.method != each.method || call.className != each.className)
            ADD_FAILURE() << toUtf8(each.before) << " gives " << toUtf8(call.className) << "."
                          << toUtf8(call.method);
    }
}

TEST(MethodDescriptions, AreFoundByClassAndName)
{
    XMLParser document;
    ASSERT_TRUE(document.parse(u"<a><class name='Window' description='w'>"
                               u"<method name='msg' description='msg(text)\\nShows it.'/></class>"
                               u"<class name='global'><method name='msg' description='global'/>"
                               u"<method name='' description='nameless'/></class></a>"));
    const MethodDescriptions made(*document.getRootElement());
    ASSERT_EQ(made.getEntries().size(), 5U);
    EXPECT_EQ(made.getEntries().front().description, u"nameless");
    EXPECT_EQ(*made.find(u"Window", u"msg"), u"msg(text)\nShows it.");
    EXPECT_EQ(*made.find(u"global", u"msg"), u"global");
    EXPECT_EQ(*made.find(u"", u"msg"), u"msg(text)\nShows it.");
    EXPECT_EQ(*made.find(u"global", u"Window"), u"w"); // `new Window(`
    EXPECT_EQ(made.find(u"", u"ms"), nullptr);
}

TEST(MethodDescriptions, ComeFromTheProjectFirst)
{
    const TemporaryProject project;
    EXPECT_TRUE(MethodDescriptions::load().getEntries().empty());
    project.write("Resources/BuiltinClass.xml",
                  "<a><class name='A'><method name='m' description='ours'/></class></a>");
    const MethodDescriptions loaded = MethodDescriptions::load();
    ASSERT_TRUE(loaded.find(u"A", u"m"));
    EXPECT_EQ(*loaded.find(u"A", u"m"), u"ours");
}

} // namespace
} // namespace varn::test
