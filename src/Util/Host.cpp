#include "Util/Host.h"

#include <atomic>
#include <chrono>

namespace varn {

namespace {

class SilentHost final : public Host
{
  public:
    void showMessage(WStringView) override {}
    Answer ask(const Question&) override { return Answer::No; }
    std::optional<WString> chooseFile(const ChooserRequest&) override { return std::nullopt; }
    std::optional<WString> chooseFolder(WStringView) override { return std::nullopt; }
    bool openWithShell(WStringView) override { return false; }
    bool editText(WStringView) override { return false; }
    void beep() override {}
    void setClipboardText(WStringView text) override { clipboard = text; }
    WString getClipboardText() override { return clipboard; }
    std::uint64_t clockMs() override
    {
        using namespace std::chrono;
        return static_cast<std::uint64_t>(
            duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
    }
    bool isJapaneseUser() override { return false; }

  private:
    WString clipboard;
};

Host& silentHost()
{
    static SilentHost silent;
    return silent;
}

std::atomic<Host*>& currentHost()
{
    static std::atomic<Host*> current = &silentHost(); // threads read it for the clock
    return current;
}

} // namespace

std::int64_t Host::wallClockMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

Host& host()
{
    return *currentHost();
}

Host* setHost(Host* next)
{
    return currentHost().exchange(next != nullptr ? next : &silentHost());
}

} // namespace varn
