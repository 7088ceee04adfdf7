#pragma once

#include "Util/Text.h"

namespace varn {

/// The keys of the on-screen pad.
enum class ControllerKey
{
    Menu,
    L,
    R,
    A,
    B,
    X,
    Y,
    Up,
    Down,
    Left,
    Right
};

/// A button of the pad: its key, the letter on it and its place in a grid of seven columns and four
/// rows, cross at the left, letters at the right.
struct ControllerButton
{
    ControllerKey key;
    WStringView label; ///< as shown; arrows as one sign
    WStringView does;  ///< what it does to the walker, by its English wording
    int column, row;
};

inline constexpr ControllerButton kControllerButtons[] = {
    {ControllerKey::L, u"L", u"Step to the left", 0, 0},
    {ControllerKey::Menu, u"Menu", u"Back to the first cell", 3, 0},
    {ControllerKey::R, u"R", u"Step to the right", 6, 0},
    {ControllerKey::Up, u"\u25B2", u"Forward", 1, 1},
    {ControllerKey::Left, u"\u25C0", u"Turn Left", 0, 2},
    {ControllerKey::Right, u"\u25B6", u"Turn Right", 2, 2},
    {ControllerKey::Down, u"\u25BC", u"Back", 1, 3},
    {ControllerKey::X, u"X", u"Turn Around", 5, 1},
    {ControllerKey::Y, u"Y", u"Step through the wall ahead", 4, 2},
    {ControllerKey::A, u"A", u"Go through the warp here", 6, 2},
    {ControllerKey::B, u"B", u"Back", 5, 3},
};

/// The on-screen pad: what hears its keys.
class GameController
{
  public:
    class Listener
    {
      public:
        virtual ~Listener() = default;
        /// False: the key did nothing (a wall is in the way, no warp stands here).
        virtual bool controllerKey(ControllerKey key) = 0;
    };
};

} // namespace varn
