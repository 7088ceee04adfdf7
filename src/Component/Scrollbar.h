#pragma once

#include "Graphics/Graphics.h"
#include "Util/Rect.h"

namespace varn {

/// A vertical scroll bar without a native window of its own: what it belongs to paints it, hands it
/// the pointer and hears of its positions. Positions are in the owner's units, lines or pixels.
class Scrollbar
{
  public:
    /// What a scroll command asks for, in its low word.
    enum ScrollCode : std::uint32_t
    {
        LineUp = 0,
        LineDown = 1,
        PageUp = 2,
        PageDown = 3,
        ThumbPosition = 4 ///< to the position in the high word
    };

    /// Pixels across.
    static constexpr int kThickness = 14;

    virtual ~Scrollbar() = default;

    /// @param whole  units there are; @param page  units that are shown at once
    void setScrollRange(int whole, int page);
    int getScrollPosition() const { return position; }
    int getMaximumPosition() const;
    int getPageSize() const { return page; }
    /// Not all is shown at once.
    bool isScrollNeeded() const { return whole > page; }
    /// Positions outside the range are cut to it.
    void scrollTo(int next);
    /// @param command  a `ScrollCode`, and a position in the high word
    void scroll(std::uint32_t command);

  protected:
    /// The position changed.
    virtual void scrolled() = 0;

    /// The track is the bar's place in the owner, in the pixels of the call.
    void paintScrollbar(Graphics& graphics, const Rect& track) const;
    /// The left button went down at `y` of the track: the thumb is taken, or a page is turned.
    void pressScrollbar(const Rect& track, int y);
    void dragScrollbar(const Rect& track, int y);
    void releaseScrollbar() { grabbed = false; }
    bool isScrollbarGrabbed() const { return grabbed; }

  private:
    Rect thumbIn(const Rect& track) const;

    int whole = 0, page = 1, position = 0;
    int grabOffset = 0; ///< of the pointer in the thumb
    bool grabbed = false;
};

} // namespace varn
