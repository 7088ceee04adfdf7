#pragma once

#include "Util/Host.h"

#include <optional>

namespace varn {

/// While it lives, messages are kept for one account at the end instead of being shown one by one;
/// all else goes on to the host before. A question is asked with the account below it.
class MessageCollector final : public Host
{
  public:
    MessageCollector();
    ~MessageCollector() override;
    MessageCollector(const MessageCollector&) = delete;
    MessageCollector& operator=(const MessageCollector&) = delete;

    const std::vector<WString>& getMessages() const { return messages; }
    /// Stands below a question, before the messages.
    void setSummary(WString text) { summary = std::move(text); }
    /// The summary and what was left out, cut after a dozen lines.
    WString getAccount() const;

    void showMessage(WStringView text) override { messages.emplace_back(text); }
    Answer ask(const Question& question) override;
    std::optional<WString> chooseFile(const ChooserRequest& request) override
    {
        return before.chooseFile(request);
    }
    std::optional<WString> chooseFolder(WStringView title) override
    {
        return before.chooseFolder(title);
    }
    bool openWithShell(WStringView target) override { return before.openWithShell(target); }
    bool runProgram(WStringView program, WStringView words) override
    {
        return before.runProgram(program, words);
    }
    bool startInFolder(WStringView program, WStringView folder) override
    {
        return before.startInFolder(program, folder);
    }
    bool editText(WStringView path) override { return before.editText(path); }
    void beep() override { before.beep(); }
    void setClipboardText(WStringView text) override { before.setClipboardText(text); }
    WString getClipboardText() override { return before.getClipboardText(); }
    std::uint64_t clockMs() override { return before.clockMs(); }
    std::int64_t wallClockMs() override { return before.wallClockMs(); }
    bool isJapaneseUser() override { return before.isJapaneseUser(); }

  private:
    Host& before;
    std::vector<WString> messages;
    WString summary;
};

} // namespace varn
