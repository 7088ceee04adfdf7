#pragma once

#include "Component/BaseWindow.h"
#include "Util/Host.h"

#include <optional>

namespace varn {

/// The host of the windowed program: message boxes, choosers, the desktop's shell and clipboard.
class WindowHost final : public Host
{
  public:
    void showMessage(WStringView text) override;
    Answer ask(const Question& question) override;
    std::optional<WString> chooseFile(const ChooserRequest& request) override;
    std::optional<WString> chooseFolder(WStringView title) override;
    bool openWithShell(WStringView target) override;
    bool runProgram(WStringView program, WStringView words) override;
    bool startInFolder(WStringView program, WStringView folder) override;
    bool editText(WStringView path) override;
    void beep() override;
    void setClipboardText(WStringView text) override;
    WString getClipboardText() override;
    std::uint64_t clockMs() override;
    bool isJapaneseUser() override;
};

/// A colour reference; empty: the person changed their mind.
std::optional<std::uint32_t> chooseColor(std::uint32_t current);
/// A line of text. @param title, label  in the language in force
std::optional<WString> askForText(BaseWindow* parent, WStringView title, WStringView label,
                                  WStringView current);

} // namespace varn
