#include "MapEditor3D/recovery/ViewState.h"

#include "MapEditor3D/recovery/StateFolder.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"
#include "Util/TextFile.h"

#include <algorithm>

namespace varn {

namespace {

constexpr WStringView kRoot = u"ViewState", kFloor = u"Floor", kHidden = u"Hidden",
                      kCommand = u"Command";
constexpr WStringView kName = u"name", kOpenMap = u"openMap", kWindow = u"window",
                      kPanes = u"panes";
constexpr std::string_view kFolder = "views";
/// A window has no more panes, and a list of latest commands no more lines.
constexpr std::size_t kMostNames = 64;

/// A number of a floor, with the range in which it makes sense.
struct FloorField
{
    WStringView key;
    int (*get)(const FloorView&);
    void (*set)(FloorView&, int);
    int least, most;
};

constexpr int kFarthest = 1 << 20;

constexpr FloorField kFloorFields[] = {
    {u"tileSize", [](const FloorView& v) { return v.tileSize; },
     [](FloorView& v, int value) { v.tileSize = value; }, 16, 64},
    {u"scrollX", [](const FloorView& v) { return v.scrollX; },
     [](FloorView& v, int value) { v.scrollX = value; }, -kFarthest, kFarthest},
    {u"scrollY", [](const FloorView& v) { return v.scrollY; },
     [](FloorView& v, int value) { v.scrollY = value; }, -kFarthest, kFarthest},
    {u"walkerX", [](const FloorView& v) { return v.walker.x; },
     [](FloorView& v, int value) { v.walker.x = value; }, 0, 99},
    {u"walkerY", [](const FloorView& v) { return v.walker.y; },
     [](FloorView& v, int value) { v.walker.y = value; }, 0, 99},
    {u"facing", [](const FloorView& v) { return v.facing.getValue(); },
     [](FloorView& v, int value) {
         if (std::find(std::begin(kSides), std::end(kSides), Direction(value)) != std::end(kSides))
             v.facing = Direction(value);
     },
     1, 8},
};

WString toHex(std::string_view bytes)
{
    static constexpr char16_t kDigits[] = u"0123456789abcdef";
    WString text;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += {kDigits[value >> 4], kDigits[value & 15]};
    }
    return text;
}

/// Empty where the text is no run of pairs of digits.
std::string fromHex(WStringView text)
{
    static constexpr WStringView kDigits = u"0123456789abcdef";
    std::string bytes;
    if (text.size() % 2 != 0)
        return bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const std::size_t high = kDigits.find(text[i]), low = kDigits.find(text[i + 1]);
        if (high == WStringView::npos || low == WStringView::npos)
            return {};
        bytes += static_cast<char>(high << 4 | low);
    }
    return bytes;
}

/// Names are one line of text. What a broken file has instead would not come back from a document.
WString nameOf(const Element& element, WStringView key)
{
    const WStringView name = element.getString(key);
    const bool isLine =
        std::none_of(name.begin(), name.end(), [](char16_t unit) { return unit < u' '; });
    return isLine ? WString(name) : WString();
}

FloorView readFloor(const Element& element)
{
    FloorView floor;
    for (const FloorField& field : kFloorFields)
        if (element.hasAttribute(field.key))
            field.set(floor, std::clamp(element.getInt(field.key), field.least, field.most));
    return floor;
}

std::filesystem::path fileOf(const std::filesystem::path& folder,
                             const std::filesystem::path& project)
{
    return folder / kFolder / (stateNameOf(project) + ".xml");
}

} // namespace

std::string writeViewState(const ViewState& state)
{
    XMLParser parser;
    Element& root = *parser.makeRoot(kRoot);
    root.setString(kOpenMap, state.openMap);
    root.setString(kWindow, toHex(state.window));
    root.setString(kPanes, toHex(state.panes));
    for (const auto& [name, floor] : state.floors) {
        Element& element = *root.addElement(kFloor);
        element.setString(kName, name);
        for (const FloorField& field : kFloorFields)
            element.setInt(field.key, field.get(floor));
    }
    const auto addNames = [&](WStringView tag, const std::vector<WString>& names) {
        for (const WString& name : names)
            root.addElement(tag)->setString(kName, name);
    };
    addNames(kHidden, state.hiddenPanes);
    addNames(kCommand, state.recentCommands);
    return parser.composeBytes();
}

ViewState readViewState(ByteSpan bytes)
{
    ViewState state;
    XMLParser parser;
    if (parser.tryParse(decodeBytes(bytes).text) || parser.getRootElement()->getTagName() != kRoot)
        return state;
    const Element& root = *parser.getRootElement();
    state.openMap = nameOf(root, kOpenMap);
    state.window = fromHex(root.getString(kWindow));
    state.panes = fromHex(root.getString(kPanes));
    for (const Element* child = root.getFirstChild(); child; child = child->getNextSibling()) {
        const WString name = nameOf(*child, kName);
        if (name.empty())
            continue;
        if (child->getTagName() == kFloor)
            state.floors.emplace(name, readFloor(*child));
        else if (child->getTagName() == kHidden && state.hiddenPanes.size() < kMostNames)
            state.hiddenPanes.push_back(name);
        else if (child->getTagName() == kCommand && state.recentCommands.size() < kMostNames)
            state.recentCommands.push_back(name);
    }
    return state;
}

ViewState loadViewState(const std::filesystem::path& folder, const std::filesystem::path& project)
{
    const auto bytes = folder.empty() ? std::nullopt : readFile(fileOf(folder, project));
    return bytes ? readViewState(asBytes(*bytes)) : ViewState();
}

bool saveViewState(const std::filesystem::path& folder, const std::filesystem::path& project,
                   const ViewState& state)
{
    if (folder.empty())
        return false;
    const std::filesystem::path file = fileOf(folder, project);
    return createDirectories(file.parent_path()) &&
           replaceFile(file, asBytes(writeViewState(state)));
}

} // namespace varn
