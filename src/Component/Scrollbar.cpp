#include "Component/Scrollbar.h"

#include "Component/Theme.h"

#include <algorithm>

namespace varn {

void Scrollbar::setScrollRange(int nextWhole, int nextPage)
{
    whole = std::max(0, nextWhole);
    page = std::max(1, nextPage);
    scrollTo(position);
}

int Scrollbar::getMaximumPosition() const
{
    return std::max(0, whole - page);
}

void Scrollbar::scrollTo(int next)
{
    next = std::clamp(next, 0, getMaximumPosition());
    if (next == position)
        return;
    position = next;
    scrolled();
}

void Scrollbar::scroll(std::uint32_t command)
{
    switch (command & 0xFFFF) {
    case LineUp:
        scrollTo(position - 1);
        break;
    case LineDown:
        scrollTo(position + 1);
        break;
    case PageUp:
        scrollTo(position - page);
        break;
    case PageDown:
        scrollTo(position + page);
        break;
    case ThumbPosition:
        scrollTo(static_cast<int>(command >> 16));
        break;
    default:
        break;
    }
}

Rect Scrollbar::thumbIn(const Rect& track) const
{
    constexpr int kLeastThumb = 20;
    const auto share = [&](int units) {
        return static_cast<int>(std::int64_t{track.height} * units / std::max(1, whole));
    };
    const int height = std::clamp(share(page), std::min(kLeastThumb, track.height), track.height);
    const int room = track.height - height;
    const int most = getMaximumPosition();
    const int top = most == 0 ? 0 : static_cast<int>(std::int64_t{room} * position / most);
    return {track.x, track.y + top, track.width, height};
}

void Scrollbar::paintScrollbar(Graphics& graphics, const Rect& track) const
{
    graphics.setFillColor(theme().face);
    graphics.fillRect(track);
    const Rect thumb = thumbIn(track);
    const int margin = track.width / 4;
    graphics.setFillColor(grabbed ? theme().accent : theme().dimText);
    graphics.fillRect(thumb.x + margin, thumb.y + 1, thumb.width - 2 * margin, thumb.height - 2);
}

void Scrollbar::pressScrollbar(const Rect& track, int y)
{
    const Rect thumb = thumbIn(track);
    if (y < thumb.top) {
        scroll(PageUp);
    } else if (y >= thumb.bottom) {
        scroll(PageDown);
    } else {
        grabbed = true;
        grabOffset = y - thumb.top;
    }
}

void Scrollbar::dragScrollbar(const Rect& track, int y)
{
    const int room = track.height - thumbIn(track).height;
    if (room > 0)
        scrollTo(static_cast<int>((std::int64_t{y} - track.y - grabOffset) * getMaximumPosition() /
                                  room));
}

} // namespace varn
