#include "Game/Map/MapFile.h"

#include "Util/ProjectPath.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace varn {

namespace {

constexpr std::size_t kCellSize = sizeof(WizMapData);

WString& theMapFolder()
{
    static WString folder = u"Project/";
    return folder;
}

} // namespace

MapGrid readMapGrid(ByteSpan bytes, WStringView subject)
{
    ByteReader in(bytes, subject);
    const std::size_t declaredCols = in.u16();
    const std::size_t declaredRows = in.u16();

    MapGrid grid;
    const std::size_t cols = std::clamp<std::size_t>(declaredCols, 1, kMapStride);
    const std::size_t rows = std::clamp<std::size_t>(declaredRows, 1, kMapStride);
    grid.cols = static_cast<std::int32_t>(cols);
    grid.rows = static_cast<std::int32_t>(rows);

    // A file that declares 0 one way holds no cells; the one row or column it is read as stays
    // empty.
    const std::size_t promised = std::min(declaredCols * declaredRows, cols * rows) * kCellSize;
    if (in.remaining() < promised) {
        throw Exception(WString(subject) + u": the file ends at byte " +
                        toDecimal(static_cast<std::int64_t>(bytes.size())) + u"; its " +
                        toDecimal(grid.cols) + u" by " + toDecimal(grid.rows) + u" cells need " +
                        toDecimal(static_cast<std::int64_t>(in.position() + promised)));
    }
    for (std::size_t y = 0; y < rows; ++y) {
        const ByteSpan row = in.takeUpTo(cols * kCellSize);
        if (!row.empty())
            std::memcpy(&grid.cells[y * kMapStride], row.data(), row.size());
    }
    return grid;
}

std::string writeMapGrid(const WizMapCells& cells, std::int32_t cols, std::int32_t rows)
{
    assert(cols >= 1 && cols <= kMapStride && rows >= 1 && rows <= kMapStride);
    ByteWriter out;
    out.u16(static_cast<std::uint32_t>(cols));
    out.u16(static_cast<std::uint32_t>(rows));
    for (std::size_t y = 0; y < static_cast<std::size_t>(rows); ++y)
        out.bytes(std::as_bytes(std::span(&cells[y * kMapStride], static_cast<std::size_t>(cols))));
    return out.take();
}

const WString& mapFolder()
{
    return theMapFolder();
}

void setMapFolder(WString folder)
{
    if (!folder.empty() && !folder.ends_with(u'/') && !folder.ends_with(u'\\'))
        folder += u'/';
    theMapFolder() = std::move(folder);
}

WString findMapFile(WStringView fileName)
{
    const WString name(fileName);
    const WString candidates[] = {name, mapFolder() + name,
                                  mapFolder() + WString(fileNameOf(fileName)), u"Project/" + name};
    const auto found = std::find_if(std::begin(candidates), std::end(candidates),
                                    [](const WString& path) { return isFile(path); });
    return found == std::end(candidates) ? name : *found;
}

void keepCopy(const std::filesystem::path& path)
{
    std::filesystem::path kept = path;
    kept += ".bak";
    std::error_code fault;
    std::filesystem::copy_file(path, kept, std::filesystem::copy_options::overwrite_existing,
                               fault);
}

} // namespace varn
