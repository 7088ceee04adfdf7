#include "Util/SettingsText.h"

#include <cstdlib>

// A file, and behind two zero bytes a section, a key and a value, one zero byte between each. What
// is set is found, by itself and after the file is read once more; setting it again changes
// nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    const WString input = fromUtf8({reinterpret_cast<const char*>(data), size});
    const std::size_t end = input.find(WString(2, u'\0'));
    if (end == WString::npos)
        return 0;
    const WString text = input.substr(0, end);
    auto words = split(WStringView(input).substr(end + 2), u'\0');
    words.resize(3);
    const auto changed = withSetting(text, words[0], words[1], words[2]);
    if (!changed)
        return 0;
    if (findSetting(*changed, words[0], words[1]) != words[2])
        std::abort();
    if (withSetting(*changed, words[0], words[1], words[2]) != changed)
        std::abort();
    const auto back = withSetting(*changed, words[0], words[1],
                                  findSetting(text, words[0], words[1]).value_or(WString()));
    if (back && back->size() > changed->size() + text.size())
        std::abort();
    return 0;
}
