#pragma once

#include "Util/Host.h"

#include <deque>

namespace varn::test {

/// A host that remembers what was shown and answers what it was told to. In force from construction
/// to destruction.
class RecordingHost : public Host
{
  public:
    RecordingHost() : before(setHost(this)) {}
    ~RecordingHost() override { setHost(before); }

    std::vector<WString> messages; ///< what showMessage was given
    std::vector<Question> questions;
    std::deque<Answer> answers;  ///< taken from the front; No when empty
    std::vector<WString> opened; ///< openWithShell and editText
    std::vector<WString>
        ran; ///< runProgram: program, blank, words; startInFolder: " in " and the folder
    std::vector<ChooserRequest> choosers;           ///< of folders only the title
    std::deque<WString> chosenFiles, chosenFolders; ///< as answers; nothing is chosen when empty
    WString clipboard;
    std::uint64_t nowMs = 0;
    std::int64_t wallMs = 0;
    bool japanese = false;

    void showMessage(WStringView text) override { messages.emplace_back(text); }
    Answer ask(const Question& question) override
    {
        questions.push_back(question);
        if (answers.empty())
            return Answer::No;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<WString> chooseFile(const ChooserRequest& request) override
    {
        choosers.push_back(request);
        return take(chosenFiles);
    }
    std::optional<WString> chooseFolder(WStringView title) override
    {
        choosers.emplace_back().title = title;
        return take(chosenFolders);
    }
    bool openWithShell(WStringView target) override
    {
        opened.emplace_back(target);
        return true;
    }
    bool runProgram(WStringView program, WStringView words) override
    {
        ran.push_back(WString(program) + u" " + WString(words));
        return true;
    }
    bool startInFolder(WStringView program, WStringView folder) override
    {
        ran.push_back(WString(program) + u" in " + WString(folder));
        return true;
    }
    bool editText(WStringView path) override { return openWithShell(path); }
    void beep() override {}
    void setClipboardText(WStringView text) override { clipboard = text; }
    WString getClipboardText() override { return clipboard; }
    std::uint64_t clockMs() override { return nowMs; }
    std::int64_t wallClockMs() override { return wallMs; }
    bool isJapaneseUser() override { return japanese; }

  private:
    static std::optional<WString> take(std::deque<WString>& from)
    {
        if (from.empty())
            return std::nullopt;
        WString first = std::move(from.front());
        from.pop_front();
        return first;
    }

    Host* before;
};

} // namespace varn::test
