#pragma once

#include "Graphics/Image.h"

#include <array>

namespace varn {

struct QuadPoint
{
    double x = 0, y = 0;
};

/// Four corners on the target, in the order that takes the picture's top left, bottom left, bottom
/// right and top right.
using QuadCorners = std::array<QuadPoint, 4>;

/// Paints a picture into a quad by inverse bilinear mapping: every target pixel of the quad's box
/// asks for its place (u, v) in the picture, so straight walls and floors need no depth. The
/// mapping is the quadratic of I. Quilez, "Inverse bilinear interpolation", 2010, with the root of
/// the plus sign. Alpha blends over the target, the key colour is left out of a picture without
/// alpha, then the picture's gradation applies. The target's alpha byte takes the pixel's. A
/// picture with a side below 2 is not drawn.
void drawImageToQuad(const Image& source, const QuadCorners& corners, Bitmap& target);

/// The same with another gradation than the picture's own.
void drawImageToQuad(const Image& source, const std::optional<Gradation>& gradation,
                     const QuadCorners& corners, Bitmap& target);

/// The picture as it lies in the quad, in an image of the quad's box: pixels outside the quad take
/// the key colour and alpha 0. Key and alpha flag are the source's. Neither gradation nor blending
/// apply.
/// @returns the box's place on the target; an empty box (width 0) when nothing is drawn
Rect createWarpedImage(const Image& source, const QuadCorners& corners, Image& result);

/// Fills a convex quad with a colour reference: the pixels that it covers, its edges included.
void fillConvexQuad(Bitmap& target, const QuadCorners& corners, std::uint32_t colour);

/// Box of a quad: the corners truncated to pixels, both ends included.
Rect boundsOf(const QuadCorners& corners);

} // namespace varn
