#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace varn {

/// The maker's name, the fixed caption of the system's message boxes.
inline constexpr WStringView kMakerName = u"Quillor";
/// The product's name: window title, lock name, base of the temporary folder.
inline constexpr WStringView kProductName = u"Varn's MapEditor";

enum class Buttons
{
    YesNo,
    YesNoCancel
};
enum class Answer
{
    Yes,
    No,
    Cancel
};

/// A question box: the body, its buttons, and the caption where it is not the maker's name.
struct Question
{
    WString text;
    Buttons buttons = Buttons::YesNo;
    WString caption = WString(kMakerName);
};

/// What a file or folder chooser is asked for.
struct ChooserRequest
{
    WString title;
    WString filterName;              ///< "Image File"; empty: all files
    std::vector<WString> extensions; ///< without the dot
    WString suggestedName;
    bool forSaving = false;
};

/// The only way to a person and to the machine around us. The windowed program, the driver and the
/// tests each have one; everything else asks `host()`. Called on the main thread, except for the
/// clocks.
class Host
{
  public:
    virtual ~Host() = default;

    /// A box with one OK.
    virtual void showMessage(WStringView text) = 0;
    virtual Answer ask(const Question& question) = 0;
    virtual std::optional<WString> chooseFile(const ChooserRequest& request) = 0;
    virtual std::optional<WString> chooseFolder(WStringView title) = 0;
    /// Opens a file, folder or address with what the desktop uses for it; false: it could not.
    virtual bool openWithShell(WStringView target) = 0;
    /// Runs a program, without waiting; `words` is what stands behind it on a command line, quoted
    /// as it needs. False: it could not. A host that runs none opens the program as any file.
    virtual bool runProgram(WStringView program, WStringView /*words*/)
    {
        return openWithShell(program);
    }
    /// Runs a program with a folder as its working directory, without waiting. False: it could not.
    virtual bool startInFolder(WStringView /*program*/, WStringView /*folder*/) { return false; }
    /// Opens a text file in the desktop's editor, without waiting.
    virtual bool editText(WStringView path) = 0;
    virtual void beep() = 0;
    virtual void setClipboardText(WStringView text) = 0;
    virtual WString getClipboardText() = 0;
    /// Milliseconds since some fixed moment of the run; never goes back.
    virtual std::uint64_t clockMs() = 0;
    /// Milliseconds since the beginning of 1970 (UTC) by the clock on the wall, which people may
    /// set.
    virtual std::int64_t wallClockMs();
    /// The user's language is Japanese; decides the fallback language document and twin texts.
    virtual bool isJapaneseUser() = 0;
};

/// The host in force. Before `setHost` it is a silent one: messages go nowhere, every answer is No.
Host& host();

/// Puts `next` in force and returns the one before; `nullptr` puts the silent one back. Borrowed.
Host* setHost(Host* next);

} // namespace varn
