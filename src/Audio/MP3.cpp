#include "Audio/MP3.h"

#include "Audio/MP3Decoder.h"
#include "Audio/Mp3Header.h"
#include "Util/File.h"
#include "Util/FileLogger.h"

namespace varn {

MP3::MP3(SoundOutput& output) : BaseAudioPlayer(std::make_unique<MP3Decoder>(), output) {}

bool MP3::open(WStringView wanted)
{
    forgetCommands();
    decoder->close();
    path.clear();
    auto bytes = readFile(resolveProjectPath(wanted));
    if (!bytes || !readMp3Info(asBytes(*bytes)))
        return failOpening(wanted);
    path = wanted;
    fileBytes = std::move(*bytes);
    return true;
}

bool MP3::prepare()
{
    if (decoder->isOpen() || decoder->openBytes(std::move(fileBytes)))
        return decoder->getDurationMilliseconds() != 0;
    FileLogger::instance().write(u"Mp3Exception:The file cannot be decoded, open \"" + path +
                                 u"\" alias bgm");
    return false;
}

} // namespace varn
