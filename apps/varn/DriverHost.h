#pragma once

#include "Output.h"
#include "Util/Host.h"

#include <atomic>

namespace varn::driver {

/// The host without a window: what would be a message box is a block on standard error. Questions
/// are answered with No, or with Yes where the person said so in advance. Nothing is opened on the
/// desktop, nothing is chosen.
class DriverHost : public Host
{
  public:
    explicit DriverHost(Output& output) : output(output) {}

    /// The answer to every question; Yes or No.
    void setAnswer(Answer next) { answer = next; }
    Answer getAnswer() const { return answer; }

    void showMessage(WStringView text) override;
    Answer ask(const Question& question) override;
    std::optional<WString> chooseFile(const ChooserRequest&) override { return std::nullopt; }
    std::optional<WString> chooseFolder(WStringView) override { return std::nullopt; }
    bool openWithShell(WStringView) override { return false; }
    bool editText(WStringView) override { return false; }
    void beep() override {}
    void setClipboardText(WStringView text) override { clipboard = text; }
    WString getClipboardText() override { return clipboard; }
    std::uint64_t clockMs() override;
    bool isJapaneseUser() override;

    /// While it lives, the clock stands where it is set, from 0 on.
    class OwnClock
    {
      public:
        explicit OwnClock(DriverHost& host) : host(host) { set(0); }
        ~OwnClock() { host.ownClock = kNoClock; }
        OwnClock(const OwnClock&) = delete;
        OwnClock& operator=(const OwnClock&) = delete;
        void set(std::uint64_t milliseconds) const { host.ownClock = milliseconds; }

      private:
        DriverHost& host;
    };

  private:
    void print(WStringView text, std::string_view end);

    Output& output;
    static constexpr std::uint64_t kNoClock = ~std::uint64_t{0};

    Answer answer = Answer::No;
    WString clipboard;
    std::atomic<std::uint64_t> ownClock = kNoClock;
};

/// A line of the driver's own on standard error, "varn: " in front.
void complain(Output& output, std::string_view utf8);

} // namespace varn::driver
