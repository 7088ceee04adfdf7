#include "Audio/MidiSequencer.h"

#include <cstddef>
#include <cstdint>

namespace {

class NoOutput : public varn::MidiOutput
{
  public:
    void shortMessage(std::uint8_t, std::uint8_t, std::uint8_t) override {}
    void longMessage(varn::ByteSpan) override {}
};

} // namespace

// Any bytes as a .mid file: a MidiFileException, or a song that can be walked, with a loop too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::WString fault;
    try {
        const varn::MidiSong song = varn::readMidiSong(std::as_bytes(std::span(data, size)), fault);
        NoOutput output;
        varn::MidiSequencer sequencer(song, output);
        sequencer.loop = true;
        for (std::size_t step = 0; step < 2 * song.events.size() && sequencer.nextWait(); ++step)
            sequencer.act();
    } catch (const varn::MidiFileException&) {
    }
    return 0;
}
