#include "TableDocument.h"

#include <iterator>
#include <random>

namespace varn::bench {

namespace {

constexpr WStringView kKanji = u"剣魔法士城塔迷宮扉鍵宝箱敵味方勇者王女竜炎氷雷光闇風土水火石壁床天"
                               u"井階段地図旅人商店宿屋酒場街道";
constexpr WStringView kWords[] = {
    u"the", u"door",  u"opens", u"with", u"a",      u"creak", u"and",     u"you",  u"find",  u"an",
    u"old", u"sword", u"key",   u"map",  u"potion", u"of",    u"healing", u"trap", u"secret"};

class TableDocument
{
  public:
    explicit TableDocument(std::size_t units) : units(units) { text.reserve(units + 1024); }

    std::size_t putMessages()
    {
        std::size_t rows = 0;
        text += u"<messageTable version=\"2\" count=\"0\">\r\n";
        for (; text.size() < units / 5 * 3; ++rows) {
            text += u"\t<message";
            putAttribute(u"id", toDecimal(static_cast<std::int64_t>(rows)));
            putAttribute(u"name", japanese(pick(3, 10)));
            text += u"><![CDATA[" + japanese(pick(10, 120)) + u"\r\n" + japanese(pick(5, 60));
            text += u"]]><![CDATA[" + english(pick(5, 40)) + u"]]></message>\r\n";
        }
        text += u"</messageTable>\r\n";
        return rows;
    }

    std::size_t putItems()
    {
        std::size_t row = 0;
        text += u"<itemTable>\r\n";
        for (; text.size() < units; ++row)
            putItem(static_cast<int>(row));
        text += u"</itemTable>\r\n";
        return row;
    }

    WString text;

  private:
    void putItem(int row)
    {
        const auto three = [](int a, int b, int c) {
            return toDecimal(a) + u"," + toDecimal(b) + u"," + toDecimal(c);
        };
        text += u"\t<data";
        putAttribute(u"id", toDecimal(row));
        putAttribute(u"name", japanese(6));
        putAttribute(u"name2", english(2));
        putAttribute(u"price", toDecimal(pick(1, 99999)));
        putAttribute(u"attack", toDecimal(pick(0, 200)));
        putAttribute(u"defence", toDecimal(pick(0, 200)));
        putAttribute(u"type", toDecimal(row % 9));
        putAttribute(u"flags", three(row % 2, row % 3, row % 5));
        putAttribute(u"icon", u"Graphics/Icon/icon" + toDecimal(100 + row % 300) + u".png");
        putAttribute(u"sellable", u"true");
        putAttribute(u"cursed", u"false");
        putAttribute(u"description", japanese(20) + u" &amp; &lt;" + english(3) + u"&gt;");
        text += u"/>\r\n";
    }
    void putAttribute(WStringView name, const WString& value)
    {
        text += u' ';
        text += name;
        text += u"=\"" + value + u'"';
    }

    // Drawn from the engine itself: distributions differ between libraries.
    int pick(int low, int high)
    {
        return low + static_cast<int>(engine() % static_cast<unsigned>(high - low + 1));
    }
    WString japanese(int length)
    {
        WString made;
        for (; length > 0; --length) {
            const bool kana = pick(0, 9) < 6;
            made += kana ? static_cast<char16_t>(pick(0x3042, 0x3092))
                         : kKanji[static_cast<std::size_t>(
                               pick(0, static_cast<int>(kKanji.size()) - 1))];
        }
        return made;
    }
    WString english(int words)
    {
        WString made;
        for (; words > 0; --words) {
            made += kWords[pick(0, static_cast<int>(std::size(kWords)) - 1)];
            if (words > 1)
                made += u' ';
        }
        return made;
    }

    std::size_t units;
    std::mt19937 engine{7};
};

} // namespace

WString makeTableDocument(std::size_t bytes, std::size_t* messages, std::size_t* items)
{
    TableDocument document(bytes / sizeof(char16_t));
    document.text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<root>\r\n";
    const std::size_t messageRows = document.putMessages();
    const std::size_t itemRows = document.putItems();
    document.text += u"</root>\r\n";
    if (messages != nullptr)
        *messages = messageRows;
    if (items != nullptr)
        *items = itemRows;
    return std::move(document.text);
}

} // namespace varn::bench
