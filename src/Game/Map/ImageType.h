#pragma once

#include <cstddef>

namespace varn {

/// The pictures of a floor, by their keys.
enum class ImageType : int
{
    Background2D = 10,
    Floor2D = 11,
    Wall2D = 12,
    EventFloor = 13,
    Background = 14,
    Floor = 15,
    Ceiling = 16,
    Wall = 17,
    Door = 18,
    BackgroundNorth = 19, ///< the background as seen facing that way
    BackgroundEast = 20,
    BackgroundWest = 21,
    BackgroundSouth = 22,
};

inline constexpr int kFirstImageType = 10;
inline constexpr std::size_t kImageTypes = 13;

} // namespace varn
