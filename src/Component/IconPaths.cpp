#include "Component/IconPaths.h"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <vector>

namespace varn {

namespace {

/// An icon as it is drawn here: strokes separated by ";", each a letter and numbers. L line, C
/// closed line, F filled, B Bezier curves, each with the coordinates of its points; O circle, D
/// disc with centre and radius.
struct Drawing
{
    std::string_view name;
    std::string_view strokes;
};

// clang-format off
constexpr Drawing kDrawings[] = {
    // tools and layers
    {"pen",        "C 4 20 5 15.5 15.5 5 19 8.5 8.5 19;L 13 7.5 16.5 11"},
    {"rectangle",  "C 5 7 19 7 19 17 5 17;D 5 7 2;D 19 17 2"},
    {"walls",      "L 10 20 4 20 4 4 20 4 20 20 15 20;L 4 12 9 12;L 13 12 20 12"},
    {"floor",      "C 4 4 20 4 20 20 4 20;F 4 4 12 4 12 12 4 12;F 12 12 20 12 20 20 12 20"},
    {"events",     "C 12 3 21 12 12 21 3 12;L 12 8 12 12.7;D 12 16.2 1.2"},
    {"areas",      "C 3.5 8 11 4 20.5 6.5 19 17 9 20;L 7.5 14 13.5 6.5;L 11 17 17.5 8.5"},
    // map
    {"undo",       "L 9 4 4 9 9 14;B 4 9 8 9 11 9 14.5 9 17.8 9 20 11.3 20 14.5 20 17.7 17.8 20 14.5 20 12.5 20 11 20 9 20"},
    {"redo",       "L 15 4 20 9 15 14;B 20 9 16 9 13 9 9.5 9 6.2 9 4 11.3 4 14.5 4 17.7 6.2 20 9.5 20 11.5 20 13 20 15 20"},
    {"zoomIn",     "O 10.5 10.5 6.5;L 15.3 15.3 20.5 20.5;L 7.7 10.5 13.3 10.5;L 10.5 7.7 10.5 13.3"},
    {"zoomOut",    "O 10.5 10.5 6.5;L 15.3 15.3 20.5 20.5;L 7.7 10.5 13.3 10.5"},
    {"search",     "O 10.5 10.5 6.5;L 15.3 15.3 20.5 20.5"},
    {"generate",   "C 4 4 20 4 20 20 4 20;D 8.3 8.3 1.5;D 15.7 8.3 1.5;D 12 12 1.5;D 8.3 15.7 1.5;D 15.7 15.7 1.5"},
    {"photo",      "C 3 8 7.5 8 9.3 5 14.7 5 16.5 8 21 8 21 19 3 19;O 12 13.2 3.4"},
    {"rotate",     "L 4 4 4 9 9 9;B 4 9 5.3 6 8.3 4 12 4 16.4 4 20 7.6 20 12 20 16.4 16.4 20 12 20 8.6 20 5.7 17.9 4.5 15"},
    {"reflect",    "L 12 3 12 21;C 9 7 9 17 3 17;L 15 7 15 17 21 17 15 7"},
    {"shift",      "L 12 3 12 21;L 3 12 21 12;L 9.5 5.5 12 3 14.5 5.5;L 9.5 18.5 12 21 14.5 18.5;L 5.5 9.5 3 12 5.5 14.5;L 18.5 9.5 21 12 18.5 14.5"},
    {"map",        "C 3 6.5 9 4 15 6.5 21 4 21 17.5 15 20 9 17.5 3 20;L 9 4 9 17.5;L 15 6.5 15 20"},
    {"play",       "C 7 4.5 19 12 7 19.5"},
    {"stop",       "C 6 6 18 6 18 18 6 18"},
    // files
    {"new",        "C 5 3 14 3 19 8 19 21 5 21;L 14 3 14 8 19 8;L 12 11.5 12 17.5;L 9 14.5 15 14.5"},
    {"folder",     "C 3 5.5 9 5.5 11.3 8.5 21 8.5 21 19 3 19"},
    {"save",       "C 4 4 16 4 20 8 20 20 4 20;L 8 4 8 9 15 9 15 4;L 7.5 20 7.5 13.5 16.5 13.5 16.5 20"},
    {"image",      "C 3 5 21 5 21 19 3 19;O 8 9.7 1.6;L 3 17 9 12.8 12 15.5 16.5 10.5 21 15"},
    {"export",     "L 8 9.5 4.5 9.5 4.5 20.5 19.5 20.5 19.5 9.5 16 9.5;L 12 15 12 3;L 8 7 12 3 16 7"},
    {"copy",       "C 8 8 20 8 20 20 8 20;L 4.5 16 4 16 4 4 16 4 16 4.5"},
    {"paste",      "L 8.5 5 5 5 5 21 19 21 19 5 15.5 5;C 8.5 3 15.5 3 15.5 7 8.5 7;L 8.5 12 15.5 12;L 8.5 16 13 16"},
    {"trash",      "L 4 6.5 20 6.5;L 6 6.5 7 20.5 17 20.5 18 6.5;L 9 6.5 9 3.5 15 3.5 15 6.5;L 10.2 10.5 10.5 16.5;L 13.8 10.5 13.5 16.5"},
    // what a game is made of
    {"database",   "B 4 6 4 4.3 7.6 3 12 3 16.4 3 20 4.3 20 6 20 7.7 16.4 9 12 9 7.6 9 4 7.7 4 6;L 4 6 4 18;L 20 6 20 18;B 4 12 4 13.7 7.6 15 12 15 16.4 15 20 13.7 20 12;B 4 18 4 19.7 7.6 21 12 21 16.4 21 20 19.7 20 18"},
    {"resources",  "C 3.5 9 16 9 16 20.5 3.5 20.5;L 8 5.5 8 3.5 20.5 3.5 20.5 15 19 15;L 3.5 18.5 8 14.5 10.5 17 12.5 15.5 16 18.5"},
    {"script",     "C 5 3 14 3 19 8 19 21 5 21;L 14 3 14 8 19 8;L 10 11.5 7.8 14.3 10 17;L 14 11.5 16.2 14.3 14 17"},
    {"sound",      "C 3 9.5 7 9.5 12 5 12 19 7 14.5 3 14.5;B 15.3 9 17.2 10.7 17.2 13.3 15.3 15;B 17.8 6.3 21.6 9.4 21.6 14.6 17.8 17.7"},
    {"message",    "C 3 4.5 21 4.5 21 16 12 16 7.5 20 7.5 16 3 16;L 7.5 8.6 16.5 8.6;L 7.5 12 13.5 12"},
    {"flag",       "L 6 21 6 3;L 6 4 19 4 16 8.5 19 13 6 13"},
    {"treasure",   "L 3.5 12 3.5 19.5 20.5 19.5 20.5 12;B 3.5 12 3.5 7.5 6 5 9 5 11 5 13 5 15 5 18 5 20.5 7.5 20.5 12;L 3.5 12 10 12;L 14 12 20.5 12;C 10 10.3 14 10.3 14 14.7 10 14.7"},
    {"system",     "O 12 12 5.6;O 12 12 1.6;L 12 6.4 12 3;L 12 17.6 12 21;L 6.4 12 3 12;L 17.6 12 21 12;L 8 8 5.6 5.6;L 16 16 18.4 18.4;L 8 16 5.6 18.4;L 16 8 18.4 5.6"},
    {"person",     "O 12 7.5 3.8;B 4.5 20.5 4.5 16.5 7.8 14.5 12 14.5 16.2 14.5 19.5 16.5 19.5 20.5"},
    {"book",       "L 12 6.5 12 20;B 12 6.5 10 4.7 7 4 3.5 4 3.5 9 3.5 13 3.5 17.5 7 17.5 10 18.2 12 20;B 12 6.5 14 4.7 17 4 20.5 4 20.5 9 20.5 13 20.5 17.5 17 17.5 14 18.2 12 20"},
    {"formula",    "L 18 4 6.5 4 13 12 6.5 20 18 20;L 18 4 18 6.5;L 18 20 18 17.5"},
    {"text",       "L 4 19 9.5 5 15 19;L 6 14 13 14;O 18.3 16.3 2.5;L 20.8 13.3 20.8 19"},
    {"marker",     "B 12 21 8 16.5 5.5 13 5.5 9.5 5.5 5.8 8.4 3 12 3 15.6 3 18.5 5.8 18.5 9.5 18.5 13 16 16.5 12 21;O 12 9.6 2.3"},
    // signs
    {"plus",       "L 12 5 12 19;L 5 12 19 12"},
    {"minus",      "L 5 12 19 12"},
    {"up",         "L 12 20 12 4;L 6 10 12 4 18 10"},
    {"down",       "L 12 4 12 20;L 6 14 12 20 18 14"},
    {"close",      "L 6 6 18 18;L 18 6 6 18"},
    {"check",      "L 4.5 12.5 9.5 17.5 19.5 6.5"},
    {"warning",    "C 12 3.5 21.5 20 2.5 20;L 12 9.5 12 14;D 12 17 1.1"},
    {"help",       "O 12 12 9;B 9.2 9.6 9.2 7.9 10.4 6.8 12 6.8 13.7 6.8 14.9 7.9 14.9 9.4 14.9 11.6 12 11.6 12 14;D 12 17 1.1"},
    {"eye",        "B 2.5 12 5 7.8 8.2 5.5 12 5.5 15.8 5.5 19 7.8 21.5 12 19 16.2 15.8 18.5 12 18.5 8.2 18.5 5 16.2 2.5 12;O 12 12 3"},
    // the walker
    {"walkForward", "L 6 12 12 6 18 12;L 6 18.5 12 12.5 18 18.5"},
    {"walkBack",    "L 6 12 12 18 18 12;L 6 5.5 12 11.5 18 5.5"},
    {"stepLeft",    "L 12 6 6 12 12 18;L 18.5 6 12.5 12 18.5 18"},
    {"stepRight",   "L 12 6 18 12 12 18;L 5.5 6 11.5 12 5.5 18"},
    {"turnLeft",    "L 9 4.5 4 9.5 9 14.5;B 4 9.5 8 9.5 11 9.5 13.5 9.5 17.5 9.5 20 12 20 15.5 20 17 20 18.5 20 20"},
    {"turnRight",   "L 15 4.5 20 9.5 15 14.5;B 20 9.5 16 9.5 13 9.5 10.5 9.5 6.5 9.5 4 12 4 15.5 4 17 4 18.5 4 20"},
};
// clang-format on

/// The drawings as points. The text is ours, so a fault in it is one of the program.
class IconTable
{
  public:
    IconTable()
    {
        // The texts tell how many there are at the most; views into the lists must stay.
        std::size_t length = 0;
        for (const Drawing& drawing : kDrawings)
            length += drawing.strokes.size();
        points.reserve(length);
        strokes.reserve(length);
        for (const Drawing& drawing : kDrawings)
            add(drawing);
    }

    std::vector<IconPath> icons;

  private:
    void add(const Drawing& drawing)
    {
        const std::size_t first = strokes.size();
        std::string_view rest = drawing.strokes;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            addStroke(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        icons.push_back({drawing.name, std::span(strokes).subspan(first)});
    }

    void addStroke(std::string_view text)
    {
        using Kind = IconStroke::Kind;
        static constexpr std::string_view kLetters = "LCFBOD";
        const auto kind = static_cast<Kind>(kLetters.find(text.front()));
        const std::vector<float> numbers = readNumbers(text.substr(1));
        const std::size_t first = points.size();
        if (kind == Kind::Circle || kind == Kind::Disc) {
            assert(numbers.size() == 3);
            points.push_back({numbers[0], numbers[1]});
            points.push_back({numbers[0] + numbers[2], numbers[1]});
        } else {
            assert(numbers.size() >= 4 && numbers.size() % 2 == 0);
            for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
                points.push_back({numbers[i], numbers[i + 1]});
        }
        strokes.push_back({kind, std::span(points).subspan(first)});
    }

    static std::vector<float> readNumbers(std::string_view text)
    {
        std::vector<float> numbers;
        const char* at = text.data();
        const char* const end = at + text.size();
        while (at != end) {
            float number = 0;
            const auto [behind, fault] = std::from_chars(at + 1, end, number);
            assert(fault == std::errc());
            if (fault != std::errc())
                break;
            numbers.push_back(number);
            at = behind;
        }
        return numbers;
    }

    std::vector<IconPoint> points;
    std::vector<IconStroke> strokes;
};

} // namespace

std::span<const IconPath> iconPaths()
{
    static const IconTable table;
    return table.icons;
}

const IconPath* findIcon(std::string_view name)
{
    const auto icons = iconPaths();
    const auto found = std::find_if(icons.begin(), icons.end(),
                                    [&](const IconPath& icon) { return icon.name == name; });
    return found == icons.end() ? nullptr : &*found;
}

} // namespace varn
