#include "Frames.h"

#include "Call.h"
#include "Context.h"
#include "Game/Compiler/Script.h"

#include <algorithm>

namespace varn::driver {

namespace {

struct NamedKey
{
    std::string_view name;
    int key;
};
constexpr NamedKey kKeys[] = {
    {"left", key::kLeft},   {"right", key::kRight},         {"up", key::kUp},
    {"down", key::kDown},   {"enter", key::kEnter},         {"escape", key::kEscape},
    {"space", key::kSpace}, {"backspace", key::kBackspace},
};

/// Of a name in letters of either size, a letter or digit, or a code; 0 for any other word.
int keyOf(std::string word)
{
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const NamedKey& each : kKeys)
        if (each.name == word)
            return each.key;
    if (word.size() == 1 && std::isalnum(static_cast<unsigned char>(word[0])))
        return std::toupper(static_cast<unsigned char>(word[0]));
    const auto code = parseInteger(word);
    return code && *code > 0 && *code < key::kCount ? static_cast<int>(*code) : 0;
}

/// Two words around a mark; the second is empty where the mark is missing.
std::pair<std::string, std::string> splitAt(const std::string& text, char mark)
{
    const std::size_t at = text.find(mark);
    return {text.substr(0, at), at == std::string::npos ? "" : text.substr(at + 1)};
}

std::optional<std::int64_t> frameOf(const std::string& text)
{
    const auto frame = parseInteger(text);
    return frame && *frame >= 0 && *frame < Frames::kMost ? frame : std::nullopt;
}

} // namespace

Frames::Press Frames::parseKey(const std::string& text)
{
    const auto [when, what] = splitAt(text, ':');
    const auto [first, last] = splitAt(when, '-');
    const auto from = frameOf(first), to = frameOf(last.empty() ? first : last);
    const int key = keyOf(what);
    if (!from || !to || key == 0)
        throw UsageError("--key: '" + text + "' is not FRAME:KEY or FIRST-LAST:KEY");
    return {.first = *from, .last = *to, .key = key};
}

Frames::Press Frames::parseClick(const std::string& text)
{
    const auto [when, where] = splitAt(text, ':');
    const auto [left, top] = splitAt(where, ',');
    const auto frame = frameOf(when), x = parseInteger(left), y = parseInteger(top);
    const auto isPlace = [](const auto& value) {
        return value && *value >= kLeastInteger && *value <= kMostInteger;
    };
    if (!frame || !isPlace(x) || !isPlace(y))
        throw UsageError("--click: '" + text + "' is not FRAME:X,Y");
    return {.first = *frame,
            .last = *frame,
            .key = key::kMouseLeft,
            .x = static_cast<int>(*x),
            .y = static_cast<int>(*y)};
}

Frames::Frames(const Arguments& arguments)
{
    for (const Arguments::Given& each : arguments.inOrder()) {
        if (each.name == "--key")
            presses.push_back(parseKey(each.value));
        else if (each.name == "--click")
            presses.push_back(parseClick(each.value));
    }
    count = arguments.integer("--frames", presses.empty() ? -1 : 60 * kPerSecond);
}

void Frames::feed(InputState& input, std::int64_t frame) const
{
    for (const Press& each : presses)
        if (frame == each.last + 1)
            input.release(each.key);
    for (const Press& each : presses) {
        if (frame != each.first)
            continue;
        if (each.key == key::kMouseLeft)
            input.movePointer(each.x, each.y);
        input.press(each.key);
    }
}

bool Frames::play(Context& context, Script& script, InputState& input) const
{
    const DriverHost::OwnClock clock(context.getHost());
    script.start();
    script.waitUntilIdle();
    for (std::int64_t frame = 0; frame < count && script.isRunning(); ++frame) {
        clock.set(static_cast<std::uint64_t>((frame + 1) * 1000 / kPerSecond));
        feed(input, frame);
        input.beginFrame();
        script.resume();
        script.waitUntilIdle();
    }
    script.stop();
    return script.runResult() != Interpreter::RunResult::Failed;
}

} // namespace varn::driver
