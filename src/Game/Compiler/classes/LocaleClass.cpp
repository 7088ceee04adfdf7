#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/UserLanguage.h"

#include <algorithm>
#include <iterator>

namespace varn {
namespace {

/// A language by its language identifier: the low ten bits are the language, the rest its region.
struct Locale
{
    int languageId = 0;
};

struct Language
{
    int id;
    std::string_view code; ///< of ISO 639
    WStringView name;
};

// The identifier is that of the language's first region.
constexpr Language kLanguages[] = {
    {0x401, "ar", u"Arabic"},     {0x402, "bg", u"Bulgarian"}, {0x403, "ca", u"Catalan"},
    {0x404, "zh", u"Chinese"},    {0x405, "cs", u"Czech"},     {0x406, "da", u"Danish"},
    {0x407, "de", u"German"},     {0x408, "el", u"Greek"},     {0x409, "en", u"English"},
    {0x40A, "es", u"Spanish"},    {0x40B, "fi", u"Finnish"},   {0x40C, "fr", u"French"},
    {0x40D, "he", u"Hebrew"},     {0x40E, "hu", u"Hungarian"}, {0x40F, "is", u"Icelandic"},
    {0x410, "it", u"Italian"},    {0x411, "ja", u"Japanese"},  {0x412, "ko", u"Korean"},
    {0x413, "nl", u"Dutch"},      {0x414, "nb", u"Norwegian"}, {0x415, "pl", u"Polish"},
    {0x416, "pt", u"Portuguese"}, {0x418, "ro", u"Romanian"},  {0x419, "ru", u"Russian"},
    {0x41A, "hr", u"Croatian"},   {0x41B, "sk", u"Slovak"},    {0x41C, "sq", u"Albanian"},
    {0x41D, "sv", u"Swedish"},    {0x41E, "th", u"Thai"},      {0x41F, "tr", u"Turkish"},
    {0x421, "id", u"Indonesian"}, {0x422, "uk", u"Ukrainian"}, {0x423, "be", u"Belarusian"},
    {0x424, "sl", u"Slovenian"},  {0x425, "et", u"Estonian"},  {0x426, "lv", u"Latvian"},
    {0x427, "lt", u"Lithuanian"}, {0x429, "fa", u"Persian"},   {0x42A, "vi", u"Vietnamese"},
    {0x439, "hi", u"Hindi"},      {0x43E, "ms", u"Malay"},
};
constexpr int kEnglish = 0x409, kJapanese = 0x411;

int languageOf(int id)
{
    return id & 0x3FF;
}

int identifierOf(std::string_view code)
{
    const auto* found = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                     [&](const Language& each) { return each.code == code; });
    return found == std::end(kLanguages) ? kEnglish : found->id;
}

void construct(Locale& locale, int languageId)
{
    locale.languageId = languageId;
}

/// Empty for a language that is not known.
WStringView getLanguageName(const Locale& locale)
{
    const int language = languageOf(locale.languageId);
    const auto* found =
        std::find_if(std::begin(kLanguages), std::end(kLanguages),
                     [&](const Language& each) { return languageOf(each.id) == language; });
    return found == std::end(kLanguages) ? WStringView() : found->name;
}

WString toText(const Locale& locale)
{
    return WString(getLanguageName(locale));
}

class SameLanguage : public ClassInterface::Comparator
{
  public:
    bool equal(const void* a, const void* b) const override
    {
        return static_cast<const Locale*>(a)->languageId ==
               static_cast<const Locale*>(b)->languageId;
    }
};

OperandData shared(NativeCall& call, Locale& locale)
{
    return call.heap.makeUserPointer(*GlobalClassTable::instance().find("Locale"), &locale);
}

OperandData getDefault(NativeCall& call)
{
    static Locale locale{identifierOf(userLanguage())};
    return shared(call, locale);
}

OperandData japanese(NativeCall& call)
{
    static Locale locale{kJapanese};
    return shared(call, locale);
}

} // namespace

void registerLocale()
{
    static const SameLanguage sameLanguage;
    auto made = std::make_unique<SQClassDef<Locale>>("Locale");
    made->addFunc<&construct>("constructor");
    made->addFunc<&getLanguageName>("getLanguageName");
    made->addFunc<&toText>("toString");
    made->addStaticFunc<&getDefault>("getDefault");
    made->addStaticFunc<&japanese>("JAPANESE");
    made->setText(&toText);
    made->comparator = &sameLanguage;
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
