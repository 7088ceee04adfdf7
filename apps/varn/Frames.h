#pragma once

#include "Command.h"
#include "Input/InputState.h"

namespace varn {
class Script;
}

namespace varn::driver {

class Context;

/// Somebody at the keys while a script runs, told in advance: what is held in which frames.
class Frames
{
  public:
    static constexpr int kPerSecond = 60;
    static constexpr std::int64_t kMost = 10'000'000;

    /// The options of a command that runs scripts by frames.
    static constexpr Option kOptions[] = {
        {.name = "--frames",
         .value = "N",
         .help = "run it as a game does, for at most so many frames of 1/60 second",
         .takes = Takes::Integer,
         .least = 0,
         .most = kMost},
        {.name = "--key",
         .value = "FRAME:KEY",
         .help = "hold a key in that frame, or in FIRST-LAST; Left, Enter, A, 0x25, ...",
         .repeated = true},
        {.name = "--click",
         .value = "FRAME:X,Y",
         .help = "click there in that frame",
         .repeated = true},
    };

    /// @throws UsageError  an option does not say what it should
    explicit Frames(const Arguments& arguments);

    /// None of the options was given: the script runs without frames.
    bool isEmpty() const { return count < 0; }
    /// Starts the script and gives it its frames, on a clock that they advance and so as fast as it
    /// goes, until it ends or they are over. False: the script failed, and has said so.
    bool play(Context& context, Script& script, InputState& input) const;

  private:
    struct Press
    {
        std::int64_t first = 0, last = 0; ///< frames, both included
        int key = 0;
        int x = 0, y = 0; ///< of a click
    };
    static Press parseKey(const std::string& text);
    static Press parseClick(const std::string& text);
    void feed(InputState& input, std::int64_t frame) const;

    std::int64_t count = -1;
    std::vector<Press> presses;
};

} // namespace varn::driver
