#include "ReferencePage.h"
#include "Support/TemporaryProject.h"
#include "Util/File.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace varn::test {
namespace {

constexpr ReferencePage::Wording kEnglish = {
    .languageFile = "English.xml",
    .introduction = R"(# Classes and functions of scripts

What every script has. The page is composed from the registrations of `src/Game/Compiler/classes` and the hints in
`assets/Resources/BuiltinClass.xml` by `ReferencePageTest`; run it with `VARN_REBASELINE=1` in the environment after
either has changed. [language.md](language.md) tells the language itself; [日本語](reference.ja.md).

A call with a class in front is static: `Math.cos(x)`. The others are called on a value: `text.length()`. A constant is
read without parentheses: `Math.PI`. The number of arguments must be one of those told; another one is reported when
the call runs, and the run goes on.
)",
    .functions = "Functions",
    .tableHead = "\n| call | arguments | what it does |\n| --- | --- | --- |\n",
    .anyCount = "any",
};

constexpr ReferencePage::Wording kJapanese = {
    .languageFile = "Japanese.xml",
    .introduction = R"(# スクリプトのクラスと関数

すべてのスクリプトで使えるものの一覧です。`src/Game/Compiler/classes`の登録と`assets/Resources/BuiltinClass.xml`の説明から
`ReferencePageTest`が作ります。どちらかを変えたら、環境変数`VARN_REBASELINE=1`を付けて実行してください。
言語そのものの説明は[language.md](language.md)にあります。[English](reference.md)

クラス名が前に付く呼び出しは静的です（`Math.cos(x)`）。ほかは値に対して呼びます（`text.length()`）。定数は括弧を付けずに
読みます（`Math.PI`）。引数の数は表のどれかでなければなりません。違うときは実行時に知らせ、実行は続きます。
)",
    .functions = "関数",
    .tableHead = "\n| 呼び出し | 引数の数 | 働き |\n| --- | --- | --- |\n",
    .anyCount = "任意",
};

void expectPage(const ReferencePage::Wording& wording, const std::string& file)
{
    const ReferencePage page(wording);
    EXPECT_EQ(page.gaps(), std::vector<std::string>());
    if (std::getenv("VARN_REBASELINE")) {
        ASSERT_TRUE(replaceFile(VARN_SOURCE_DIR "/" + file, asBytes(page.text())));
    }
    EXPECT_EQ(readSource(file), page.text()) << "run with VARN_REBASELINE=1 and read the change";
}

TEST(ReferencePage, IsWhatIsRegisteredAndDescribed)
{
    expectPage(kEnglish, "docs/reference.md");
    expectPage(kJapanese, "docs/reference.ja.md");
}

} // namespace
} // namespace varn::test
