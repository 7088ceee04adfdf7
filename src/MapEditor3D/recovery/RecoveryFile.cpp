#include "MapEditor3D/recovery/RecoveryFile.h"

#include "Game/Map/MapFile.h"
#include "MapEditor3D/recovery/Fnv.h"
#include "MapEditor3D/recovery/StateFolder.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"
#include "Util/Host.h"

#include <algorithm>
#include <chrono>
#include <system_error>

namespace varn {

namespace {

constexpr std::string_view kMagic = "VMRC";
constexpr std::uint16_t kVersion = 1;
constexpr std::string_view kFolder = "recovery";
constexpr std::string_view kExtension = ".recovery";

void writeText(ByteWriter& out, WStringView text)
{
    out.u32(static_cast<std::uint32_t>(text.size() * 2));
    out.utf16(text);
}

WString readText(ByteReader& in, WStringView subject)
{
    const std::uint32_t size = in.u32();
    if (size % 2 != 0)
        throw Exception(WString(subject) + u": a text of half a character at byte " +
                        toDecimal(static_cast<std::int64_t>(in.position())));
    const ByteSpan bytes = in.take(size);
    WString text(size / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(static_cast<unsigned>(bytes[2 * i]) |
                                        static_cast<unsigned>(bytes[2 * i + 1]) << 8);
    return text;
}

/// When the later of a map's two files was written, in milliseconds since the beginning of 1970.
std::int64_t writtenAtMs(WStringView mapName)
{
    std::int64_t latest = 0;
    for (const WStringView extension : {u".map", u".xml"}) {
        std::error_code fault;
        const auto time = std::filesystem::last_write_time(
            resolveProjectPath(WString(mapName) + WString(extension)), fault);
        if (fault)
            continue;
        const auto onClock = std::chrono::file_clock::to_sys(time).time_since_epoch();
        latest = std::max<std::int64_t>(
            latest, std::chrono::duration_cast<std::chrono::milliseconds>(onClock).count());
    }
    return latest;
}

RecoveryRecord readFileOf(const std::filesystem::path& file)
{
    const auto bytes = readFile(file);
    if (!bytes)
        throw Exception(u"Couldn't open " + toWide(file));
    return readRecovery(asBytes(*bytes), toWide(file.filename()));
}

} // namespace

MapContents contentsOf(const WizMap& map)
{
    return {writeMapGrid(map.cells, map.cols, map.rows), map.toXml()};
}

std::string writeRecovery(const RecoveryRecord& record)
{
    ByteWriter out;
    out.bytes(kMagic);
    out.u16(kVersion);
    const auto time = static_cast<std::uint64_t>(record.savedAtMs);
    out.u32(static_cast<std::uint32_t>(time));
    out.u32(static_cast<std::uint32_t>(time >> 32));
    writeText(out, record.project);
    writeText(out, record.mapName);
    out.u32(static_cast<std::uint32_t>(record.map.grid.size()));
    out.bytes(record.map.grid);
    writeText(out, record.map.document);
    out.u32(fnv1a32(asChars(out.view())));
    return out.take();
}

RecoveryRecord readRecovery(ByteSpan bytes, WStringView subject)
{
    ByteReader in(bytes, subject);
    if (asChars(in.take(kMagic.size())) != kMagic || in.u16() != kVersion)
        throw Exception(WString(subject) + u": no recovery file of this version");
    RecoveryRecord record;
    const std::uint64_t low = in.u32(), high = in.u32();
    record.savedAtMs = static_cast<std::int64_t>(low | high << 32);
    record.project = readText(in, subject);
    record.mapName = readText(in, subject);
    record.map.grid = asChars(in.take(in.u32()));
    record.map.document = readText(in, subject);
    const std::uint32_t sum = fnv1a32(asChars(bytes.first(in.position())));
    if (in.u32() != sum || !in.atEnd())
        throw Exception(WString(subject) + u": the file is damaged");
    return record;
}

std::filesystem::path recoveryPath(const std::filesystem::path& folder,
                                   const std::filesystem::path& project, WStringView mapName)
{
    return folder / kFolder /
           (stateNameOf(project) + "." + stateNameOf(toUtf8(mapName)) + std::string(kExtension));
}

std::vector<FoundRecovery> findRecovery(const std::filesystem::path& folder,
                                        const std::filesystem::path& project)
{
    std::vector<FoundRecovery> found;
    if (folder.empty())
        return found;
    const std::string ours = stateNameOf(project) + ".";
    std::error_code fault;
    for (const auto& entry : std::filesystem::directory_iterator(folder / kFolder, fault)) {
        if (!entry.path().filename().string().starts_with(ours) ||
            entry.path().extension() != kExtension)
            continue;
        try {
            const RecoveryRecord record = readFileOf(entry.path());
            if (record.project == toWide(project))
                found.push_back({entry.path(), record.mapName, record.savedAtMs,
                                 writtenAtMs(record.mapName) > record.savedAtMs});
        } catch (const Exception&) {
            // What a crash of the machine left of a file offers nothing.
        }
    }
    std::sort(found.begin(), found.end(), [](const FoundRecovery& a, const FoundRecovery& b) {
        return a.savedAtMs > b.savedAtMs;
    });
    return found;
}

bool applyRecovery(const FoundRecovery& found, WizMapEditor& editor)
{
    MapGrid grid;
    XMLParser document;
    try {
        const RecoveryRecord record = readFileOf(found.file);
        grid = readMapGrid(asBytes(record.map.grid), record.mapName);
        if (const auto refused = document.tryParse(record.map.document))
            throw Exception(refused->message);
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
    WizMap& map = editor.getMap();
    map.cols = grid.cols;
    map.rows = grid.rows;
    map.cells = grid.cells;
    map.events.clear();
    map.areas.clear();
    map.fromXml(*document.getRootElement());
    editor.setSelectedEvent(std::nullopt);
    editor.commitStroke();
    editor.eventsEdited();
    editor.areasEdited();
    editor.propertiesEdited();
    return true;
}

void discardRecovery(const FoundRecovery& found)
{
    std::error_code fault;
    std::filesystem::remove(found.file, fault);
}

void putAside(const FoundRecovery& found)
{
    std::filesystem::path aside = found.file;
    aside.replace_extension("." + std::to_string(found.savedAtMs) + std::string(kExtension));
    std::error_code fault;
    std::filesystem::rename(found.file, aside, fault);
}

} // namespace varn
