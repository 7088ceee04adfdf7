#include "DriverHost.h"

#include "Util/UserLanguage.h"

#include <chrono>

namespace varn::driver {

void DriverHost::print(WStringView text, std::string_view end)
{
    output.flush();
    const std::string block =
        "[" + toUtf8(kMakerName) + "] " + withLineFeeds(toUtf8(text)).append(end).append("\n");
    std::fwrite(block.data(), 1, block.size(), stderr);
}

void DriverHost::showMessage(WStringView text)
{
    print(text, "");
}

Answer DriverHost::ask(const Question& question)
{
    print(question.text, answer == Answer::Yes ? " -> Yes" : " -> No");
    return answer;
}

std::uint64_t DriverHost::clockMs()
{
    using namespace std::chrono;
    if (const std::uint64_t own = ownClock; own != kNoClock)
        return own;
    const auto now = steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(duration_cast<milliseconds>(now).count());
}

bool DriverHost::isJapaneseUser()
{
    return userLanguage() == "ja";
}

void complain(Output& output, std::string_view utf8)
{
    output.flush();
    const std::string line = std::string("varn: ").append(utf8).append("\n");
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace varn::driver
