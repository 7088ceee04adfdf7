#include "Game/GameResourceFile.h"

#include "Game/ArchiveFormat.h"
#include "Game/ArchiveStream.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/TextFile.h"

#include <algorithm>
#include <limits>
#include <mutex>

namespace varn {

namespace {

using namespace archive;

/// What composing one entry came to.
enum class Outcome
{
    Written,
    Skipped,
    DiskFailed,
    Unreadable,
    Stopped
};

/// Writes the entries of one archive, one behind the other.
class ArchiveWriter
{
  public:
    ArchiveWriter(FileReplacement& file, const ExportProgress& progress, std::uint64_t total)
        : stream(file), progress(progress), total(total)
    {}

    bool writeHead(std::size_t entryCount)
    {
        ByteWriter head;
        head.bytes(kMagic);
        head.u32(kHeaderSize);
        head.u8(kScrambled);
        head.u8(1); // enabled
        head.zeros(2);
        head.u32(static_cast<std::uint32_t>(entryCount));
        head.zeros(8);
        return stream.write(head.view());
    }

    Outcome write(const GameResourceFile::EntryData& entry)
    {
        entryName = entry.name;
        const std::string name = toUtf8(entry.name) + '\0';
        if (name.size() >= kNameSizeLimit) {
            host().showMessage(u"This name is too long for the gamedata.\r\n" + entry.name);
            return Outcome::Skipped;
        }
        return entry.path.empty() ? writeText(name, entry) : writeFile(name, entry);
    }

    bool finish() { return stream.flush(); }

  private:
    static bool fits(std::uint64_t dataSize, std::size_t nameSize)
    {
        return dataSize <= std::numeric_limits<std::uint32_t>::max() - kEntryDetailSize - nameSize;
    }

    static Outcome refuseSize(WStringView what)
    {
        host().showMessage(u"This file is too large for the gamedata.\r\n" + WString(what));
        return Outcome::Skipped;
    }

    Outcome writeText(const std::string& name, const GameResourceFile::EntryData& entry)
    {
        const std::string data = toUtf8(entry.text) + '\0';
        if (!fits(data.size(), name.size()))
            return refuseSize(entry.name);
        if (!writeEntryHead(kTextEntry, name, data.size()) || !stream.write(asBytes(data)))
            return Outcome::DiskFailed;
        return tell(data.size()) ? Outcome::Written : Outcome::Stopped;
    }

    Outcome writeFile(const std::string& name, const GameResourceFile::EntryData& entry)
    {
        File file;
        if (!file.open(resolveProjectPath(entry.path))) {
            host().showMessage(u"Couldn't open this file.\r\n" + entry.path);
            return Outcome::Skipped;
        }
        if (!fits(file.getSize(), name.size()))
            return refuseSize(entry.path);

        const std::uint64_t start = stream.position();
        if (!writeEntryHead(kFileEntry, name, file.getSize()))
            return Outcome::DiskFailed;
        std::uint64_t size = 0;
        if (const Outcome outcome = copy(file, name.size(), size); outcome != Outcome::Written)
            return outcome;
        // Another program may have changed the file since its size was asked for.
        if (size != file.getSize() && !patchEntryHead(start, name, size))
            return Outcome::DiskFailed;
        return Outcome::Written;
    }

    /// Appends the file up to its end; `size` counts what was really read.
    Outcome copy(File& file, std::size_t nameSize, std::uint64_t& size)
    {
        bool more = true;
        while (more) {
            const std::span<std::byte> room = stream.room();
            const auto count = file.read(room);
            if (!count || !fits(size + *count, nameSize))
                return Outcome::Unreadable;
            size += *count;
            more = *count == room.size();
            if (!stream.advance(*count))
                return Outcome::DiskFailed;
            if (!tell(*count))
                return Outcome::Stopped;
        }
        return Outcome::Written;
    }

    bool writeEntryHead(std::string_view kind, const std::string& name, std::uint64_t dataSize)
    {
        ByteWriter head;
        head.bytes(kind);
        head.u32(entrySize(name, dataSize));
        head.zeros(4);
        head.u8(kUtf8);
        head.zeros(3);
        head.u32(static_cast<std::uint32_t>(dataSize));
        head.zeros(8);
        head.u16(static_cast<std::uint32_t>(name.size()));
        head.zeros(2);
        head.bytes(name);
        return stream.write(head.view());
    }

    bool patchEntryHead(std::uint64_t start, const std::string& name, std::uint64_t dataSize)
    {
        return stream.patch(start + 4, entrySize(name, dataSize)) &&
               stream.patch(start + 16, static_cast<std::uint32_t>(dataSize));
    }

    static std::uint32_t entrySize(const std::string& name, std::uint64_t dataSize)
    {
        return static_cast<std::uint32_t>(kEntryDetailSize + name.size() + dataSize);
    }

    bool tell(std::uint64_t more)
    {
        done = std::min(done + more, total);
        return !progress || progress(done, total, entryName);
    }

    ArchiveStream stream;
    const ExportProgress& progress;
    std::uint64_t total;
    std::uint64_t done = 0;
    WStringView entryName;
};

/// Bytes of content that the entries come to, as far as is known before they are read.
std::uint64_t contentSize(const std::vector<GameResourceFile::EntryData>& entries)
{
    std::uint64_t total = 0;
    for (const GameResourceFile::EntryData& entry : entries) {
        if (entry.path.empty()) {
            total += toUtf8(entry.text).size() + 1;
            continue;
        }
        std::error_code missing;
        const auto size = std::filesystem::file_size(resolveProjectPath(entry.path), missing);
        total += missing ? 0 : size;
    }
    return total;
}

/// Tells how an archive failed, where the person does not know it.
bool report(Outcome outcome, WStringView path, WStringView entry)
{
    if (outcome == Outcome::DiskFailed)
        host().showMessage(WString(path) + u"\r\nCouldn't write the resource file.");
    else if (outcome == Outcome::Unreadable)
        host().showMessage(u"Couldn't read this file.\r\n" + WString(entry));
    return false;
}

struct ProjectArchive
{
    std::mutex lock; // guards both: a script's thread asks for resources beside the main thread
    bool asked = false;
    std::optional<GameResourceFile> file;
};

ProjectArchive& theProjectArchive()
{
    static ProjectArchive archive;
    return archive;
}

} // namespace

WString GameResourceFile::ResourceData::text() const
{
    return isText ? fromUtf8(asChars(content())) : decodeBytes(data).text;
}

void GameResourceFile::addText(WString name, WString text)
{
    entries.push_back({std::move(name), std::move(text), {}});
}

void GameResourceFile::addFile(WString name, WString path)
{
    entries.push_back({std::move(name), {}, std::move(path)});
}

bool GameResourceFile::save(WStringView path, const ExportProgress& progress)
{
    FileReplacement file(resolveProjectPath(path));
    if (!file.isOpen()) {
        host().showMessage(WString(path) + u"\r\nCouldn't open the resource file.");
        return false;
    }

    ArchiveWriter writer(file, progress, progress ? contentSize(entries) : 0);
    if (!writer.writeHead(entries.size()))
        return report(Outcome::DiskFailed, path, {});
    for (const EntryData& entry : entries) {
        const Outcome outcome = writer.write(entry);
        if (outcome != Outcome::Written && outcome != Outcome::Skipped)
            return report(outcome, path, entry.path);
    }
    if (!writer.finish() || !file.commit())
        return report(Outcome::DiskFailed, path, {});
    return true;
}

void GameResourceFile::load(WStringView path)
{
    clear();
    File file;
    if (!file.open(resolveProjectPath(path)))
        throw FileNotFoundException(u"Couldn't open the gamedata." + WString(path));

    std::string bytes(file.getSize(), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const auto count = file.read(std::as_writable_bytes(std::span(bytes).subspan(filled)));
        if (!count || *count == 0)
            throw Exception(u"Couldn't read the gamedata." + WString(path));
        filled += *count;
    }
    loadBytes(std::move(bytes), path);
}

void GameResourceFile::loadBytes(std::string bytes, WStringView path)
{
    clear();
    body = std::move(bytes);
    const auto fail = [&](WStringView sentence) {
        throw Exception(WString(sentence) + WString(path));
    };

    if (!std::string_view(body).starts_with(kMagic))
        fail(u"The gamedata is not supported. ");
    ByteReader in(asBytes(body), path);
    in.skip(kMagic.size());
    if (in.remaining() < kBodyOffset - kMagic.size() || in.u32() != kHeaderSize)
        fail(u"The gamedata's header size is invalid.");
    const std::uint8_t kind = in.u8();
    const std::uint8_t enabled = in.u8();
    in.seek(kBodyOffset);
    if (kind == kScrambled && enabled == 1)
        scramble(std::as_writable_bytes(std::span(body).subspan(kBodyOffset)), 0);

    while (in.remaining() >= kEntryHeadSize) {
        const std::string_view signature = asChars(in.take(4));
        if (signature != kFileEntry && signature != kTextEntry)
            fail(u"The gamedata has a invalid signature. ");
        in.skip(8); // the entry's size follows from what is in it; reserved
        if (in.remaining() < kEntryDetailSize)
            fail(u"The gamedata ends within an entry. ");
        in.skip(4); // encoding
        const std::uint32_t dataSize = in.u32();
        in.skip(8);
        const std::uint16_t nameSize = in.u16();
        in.skip(2);
        if (nameSize >= kNameSizeLimit)
            fail(u"The gamedata's file name size is invalid. ");
        if (in.remaining() < std::uint64_t{nameSize} + dataSize)
            fail(u"The gamedata ends within an entry. ");

        const std::string_view stored = asChars(in.take(nameSize));
        WString name = fromUtf8(stored.substr(0, stored.find('\0')));
        const ByteSpan data = in.take(dataSize);
        if (!byName.try_emplace(name, resources.size()).second)
            fail(u"The gamedata has a duplicate entry name. ");
        resources.push_back({std::move(name), dataSize, data, signature == kTextEntry});
    }
}

const GameResourceFile::ResourceData* GameResourceFile::getResource(WStringView name) const
{
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : &resources[found->second];
}

void GameResourceFile::clear()
{
    entries.clear();
    resources.clear();
    byName.clear();
    body.clear();
}

const GameResourceFile* projectArchive()
{
    static constexpr WStringView kName = u"GameData.gamedata";
    ProjectArchive& archive = theProjectArchive();
    const std::scoped_lock guard(archive.lock);
    if (!archive.asked) {
        archive.asked = true;
        try {
            if (isFile(kName))
                archive.file.emplace().load(kName);
        } catch (const Exception& fault) {
            archive.file.reset();
            host().showMessage(fault.getMessage());
        }
    }
    return archive.file ? &*archive.file : nullptr;
}

void closeProjectArchive()
{
    ProjectArchive& archive = theProjectArchive();
    const std::scoped_lock guard(archive.lock);
    archive.asked = false;
    archive.file.reset();
}

static const GameResourceFile::ResourceData* findResource(WStringView archiveName)
{
    const GameResourceFile* archive = projectArchive();
    return archive == nullptr ? nullptr : archive->getResource(archiveName);
}

std::optional<std::string> readFileOrResource(WStringView path, WStringView archiveName)
{
    if (auto bytes = readFile(resolveProjectPath(path)))
        return bytes;
    const auto* resource = findResource(archiveName);
    if (resource == nullptr)
        return std::nullopt;
    return std::string(asChars(resource->content()));
}

std::optional<WString> readTextOrResource(WStringView path, WStringView archiveName)
{
    if (auto file = readTextFile(resolveProjectPath(path)))
        return std::move(file->text);
    const auto* resource = findResource(archiveName);
    if (resource == nullptr)
        return std::nullopt;
    return resource->text();
}

} // namespace varn
