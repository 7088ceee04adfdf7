#include "GameText.h"

#include <iterator>
#include <random>

namespace varn::bench {

namespace {

constexpr WStringView kWords[] = {
    u"the",       u"a",      u"door",  u"opens",  u"with",     u"creak",  u"and",    u"you",
    u"find",      u"old",    u"sword", u"key",    u"map",      u"of",     u"potion", u"healing",
    u"trap",      u"secret", u"king",  u"says",   u"that",     u"shield", u"was",    u"lost",
    u"in",        u"depths", u"long",  u"ago",    u"who",      u"will",   u"bring",  u"it",
    u"back",      u"only",   u"brave", u"dragon", u"waits",    u"below",  u"stairs", u"listen",
    u"carefully", u"every",  u"wall",  u"hides",  u"something"};
constexpr WStringView kNames[] = {u"party",  u"level", u"hitPoints", u"damage1", u"roll",
                                  u"item",   u"gold",  u"flag12",    u"target",  u"doorKey",
                                  u"floor3", u"i",     u"count",     u"isOpen",  u"message",
                                  u"x",      u"y",     u"skillID"};
constexpr WStringView kKanji =
    u"剣魔法士城塔迷宮扉鍵宝箱敵味方勇者王女竜炎氷雷光闇風土水火石壁床天";
constexpr WStringView kKana =
    u"のはをがにでとものしてたいるらなこれあかりきそよ、。ンスルラアイトー";

class GameText
{
  public:
    GameText(std::size_t units, bool xRuns) : xRuns(xRuns)
    {
        text.reserve(units + 4096);
        while (text.size() < units) {
            putScript();
            putEnglish(12);
            putJapanese(10);
            putMessages();
            if (xRuns)
                putRun();
        }
    }

    WString text;

  private:
    void putScript()
    {
        if (pick(4) == 0)
            text += u"#include \"" + word() + u".txt\"\n";
        text += u"function " + name() + u"(" + name() + u", " + name() + u") {\n";
        for (int line = pick(8); line >= 0; --line) {
            text +=
                u"    var " + name() + u" = " + name() + u"(" + name() + u" + " + number() + u");";
            text += pick(3) == 0 ? u" // " + word() + u" " + word() + u"\n" : u"\n";
            text +=
                u"    if (" + name() + u" >= " + number() + u") { trace(\"" + word() + u"\"); }\n";
        }
        text += u"}\n";
    }

    void putEnglish(int sentences)
    {
        for (; sentences > 0; --sentences) {
            for (int words = 5 + pick(10); words > 0; --words) {
                const WString next = word();
                text += next + u" ";
                if (pick(400) == 0)
                    text += next + u" ";
            }
            text.back() = u'.';
            text += pick(3) == 0 ? u"\n" : u" ";
        }
        text += u"\n";
    }

    void putJapanese(int sentences)
    {
        for (; sentences > 0; --sentences) {
            for (int units = 10 + pick(30); units > 0; --units)
                text += pick(3) == 0 ? kKanji[static_cast<std::size_t>(pick(kKanji.size()))]
                                     : kKana[static_cast<std::size_t>(pick(kKana.size()))];
            if (pick(200) == 0)
                text += u"魔法剣士";
            text += u"。";
        }
        text += u"\n";
    }

    void putMessages()
    {
        for (int count = 4; count > 0; --count) {
            text += u"<message id=\"" + number() + u"\"><b>" + word() + u" " + word() + u"</b>";
            text += u"<color=" + number() + u">" + word() + u"</color></message>\n";
        }
    }

    void putRun()
    {
        text += WString(static_cast<std::size_t>(8 + pick(9)), u'x');
        text += pick(10) == 0 ? u"y\n" : u"z\n";
    }

    WString word() { return WString(kWords[pick(std::size(kWords))]); }
    WString name() { return WString(kNames[pick(std::size(kNames))]); }
    WString number() { return toDecimal(pick(1000)); }
    int pick(std::size_t count) { return static_cast<int>(random() % count); }

    bool xRuns;
    std::mt19937 random{12345};
};

} // namespace

WString makeGameText(std::size_t units, bool xRuns)
{
    return GameText(units, xRuns).text;
}

} // namespace varn::bench
