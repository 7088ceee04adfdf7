#pragma once

#include "Util/Bytes.h"
#include "Util/Text.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace varn {

/// Told about the writing of an archive: bytes done, bytes in all, and the entry being written.
/// Answers false to stop; the old archive then stands.
using ExportProgress =
    std::function<bool(std::uint64_t done, std::uint64_t total, WStringView entry)>;

/// The archive of a finished game: named text and file entries behind a 24-byte head, the body
/// scrambled with a 64-byte key. docs/formats.md gives the layout.
class GameResourceFile
{
  public:
    struct EntryData
    {
        WString name;
        WString text; ///< of a TEXT entry
        WString path; ///< not empty: a FILE entry with the content of this project path
    };
    struct ResourceData
    {
        WString name;
        std::uint32_t size;
        ByteSpan data; ///< the stored bytes: a text ends with its zero byte. Owned by the archive
        bool isText = false;

        /// The file's bytes, or the text's without its zero byte.
        ByteSpan content() const
        {
            const bool terminated = isText && !data.empty() && data.back() == std::byte{0};
            return terminated ? data.first(data.size() - 1) : data;
        }
        /// A text as it was added, or that of a file in the encoding found by its bytes.
        WString text() const;
    };

    GameResourceFile() = default;
    GameResourceFile(GameResourceFile&&) = delete; // the resources view its body
    GameResourceFile& operator=(GameResourceFile&&) = delete;

    void addText(WString name, WString text);
    void addFile(WString name, WString path);

    /// Writes the archive in one pass, scrambling on the way; memory does not grow with the files.
    /// A file that cannot be opened is named in a message and skipped, still counted in the head.
    /// False: the target cannot be written (shown), or `progress` stopped it; the old file stands.
    bool save(WStringView path, const ExportProgress& progress = {});

    /// Reads an archive. Throws Exception with the documented sentence; the entries read before the
    /// fault stay.
    void load(WStringView path);
    /// The same off bytes in memory; `path` stands in the sentences.
    void loadBytes(std::string bytes, WStringView path);

    const ResourceData* getResource(WStringView name) const;
    /// What was read, in file order.
    const std::vector<ResourceData>& getResources() const { return resources; }
    void clear();

  private:
    std::vector<EntryData> entries;
    std::string body; // of the file read, unscrambled; the resources view it
    std::vector<ResourceData> resources;
    std::map<WString, std::size_t, std::less<>> byName;
};

/// The archive that loaders ask when a plain file is missing: `GameData.gamedata` in the working
/// directory, opened at the first call; null when there is none or it is refused (shown once).
const GameResourceFile* projectArchive();
/// Forgets it, so that the next call opens it anew; for tests and after an export.
void closeProjectArchive();

/// Bytes of a plain project file or, failing that, of the archive's entry `archiveName`, of a text
/// without its zero byte.
std::optional<std::string> readFileOrResource(WStringView path, WStringView archiveName);
/// The same as text.
std::optional<WString> readTextOrResource(WStringView path, WStringView archiveName);

} // namespace varn
