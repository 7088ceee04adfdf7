#include "Audio/Rendering.h"
#include "Context.h"
#include "Util/File.h"
#include "Util/Host.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

/// @throws UsageError  the rendering would never end
RenderOptions renderOptions(const Arguments& arguments, std::string_view command)
{
    RenderOptions options;
    options.seconds = arguments.number("--seconds");
    options.loop = arguments.has("--loop");
    options.volume = static_cast<int>(arguments.integer("--volume", options.volume));
    if (options.loop && !options.seconds)
        throw UsageError("--loop needs --seconds: a loop has no end", findDriverCommand(command));
    return options;
}

Status saveWave(const Arguments& arguments, const std::string& wave)
{
    const WString path = arguments.text("--render");
    if (replaceFile(resolveProjectPath(path), asBytes(wave)))
        return Status::Done;
    host().showMessage(u"Couldn't save " + path);
    return Status::Failed;
}

Status audio(Context& context, const Arguments& arguments)
{
    const WString path = arguments.text("FILE");
    const auto decoder = makeDecoder(path);
    if (!decoder->open(path)) {
        host().showMessage(path + u" Couldn't play this file");
        return Status::Failed;
    }
    if (arguments.has("--render"))
        return saveWave(arguments, renderSound(*decoder, renderOptions(arguments, "audio")));
    context.printRecord({{"channels", decoder->channels},
                         {"samplesPerSecond", decoder->samplesPerSecond},
                         {"bitsPerSample", decoder->bitsPerSample},
                         {"size", decoder->size},
                         {"loopStart", decoder->loopStart},
                         {"loopLength", decoder->loopLength}});
    return Status::Done;
}

void printSong(Context& context, const MidiSong& song)
{
    std::uint64_t tick = 0;
    for (const MidiEvent& event : song.events) {
        tick += event.delta;
        std::string line = std::to_string(tick);
        if (event.isMeta())
            line += " meta " + hexByte(event.metaType) + " " + std::to_string(event.data.size());
        else if (event.isSystemExclusive())
            line += " sysex " + std::to_string(event.data.size());
        else
            line += " " + hexByte(event.status) + " " + hexByte(event.data1) + " " +
                    hexByte(event.data2);
        context.out().line(std::string_view(line));
    }
    context.printRecord({{"length", song.length}, {"firstNote", song.firstNote}});
}

Json asJson(const MidiSong& song)
{
    Json events = Json::array();
    std::uint64_t tick = 0;
    for (const MidiEvent& event : song.events) {
        tick += event.delta;
        Json fields = {{"tick", tick}, {"status", event.status}};
        if (event.isMeta())
            fields["metaType"] = event.metaType;
        if (event.isMeta() || event.isSystemExclusive()) {
            fields["length"] = event.data.size();
        } else {
            fields["data1"] = event.data1;
            fields["data2"] = event.data2;
        }
        events.push_back(std::move(fields));
    }
    return {{"division", song.division},
            {"events", std::move(events)},
            {"length", song.length},
            {"firstNote", song.firstNote}};
}

Status midi(Context& context, const Arguments& arguments)
{
    const MidiSong song = loadMidiSong(arguments.text("FILE"));
    if (arguments.has("--render"))
        return saveWave(arguments, renderSong(song, renderOptions(arguments, "midi")));
    if (context.json())
        context.out().json(asJson(song));
    else
        printSong(context, song);
    return Status::Done;
}

constexpr Argument kSound[] = {{"FILE", "a .wav, .mp3 or .ogg", Takes::File}};
constexpr Argument kSong[] = {{"FILE", "a .mid", Takes::File}};
constexpr Option kOptions[] = {
    {.name = "--render",
     .value = "OUT.wav",
     .help = "write what is heard into a wave file",
     .takes = Takes::File},
    {.name = "--seconds",
     .value = "S",
     .help = "end after so many seconds",
     .takes = Takes::Number,
     .least = 0},
    {.name = "--loop", .help = "go round as the game does; with --seconds"},
    {.name = "--volume",
     .value = "N",
     .help = "volume in percent",
     .takes = Takes::Integer,
     .least = 0,
     .most = 100},
};

constexpr Command kCommands[] = {
    {.words = "audio",
     .summary = "print what a sound file holds, or render it",
     .arguments = kSound,
     .options = kOptions,
     .run = audio,
     .details = "Size and loop are in bytes of samples for .wav and .mp3, in samples of a channel "
                "for .ogg.",
     .examples = "audio Audio/BGM/Tides.ogg\n"
                 "audio Audio/BGM/Tides.ogg --render tides.wav --loop --seconds 90 --volume 60"},
    {.words = "midi",
     .summary = "print a song's events, or render it",
     .arguments = kSong,
     .options = kOptions,
     .run = midi,
     .details = "A line an event: the tick, then the status and its data bytes, or \"meta\" with "
                "type and length, or \"sysex\" with its length; then the milliseconds of the song "
                "and of the silence before its first note.",
     .examples = "midi Audio/BGM/Vespers.mid\nmidi Audio/BGM/Vespers.mid --render vespers.wav"},
};

} // namespace

std::span<const Command> soundCommands()
{
    return kCommands;
}

} // namespace varn::driver
