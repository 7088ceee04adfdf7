#include "Graphics/WindowSkin.h"

namespace varn {

Image makePlainSkin()
{
    constexpr int kSide = kSkinCell * 4;
    Image skin;
    skin.create(kSide, kSide);
    skin.setColorKey(0);
    for (int i = 0; i < kSide; ++i) {
        for (const int ring : {0, 1, kSide - 2, kSide - 1}) {
            skin.getBitmap().setPixelRgba(i, ring, 0xFFFFFFFF);
            skin.getBitmap().setPixelRgba(ring, i, 0xFFFFFFFF);
        }
    }
    for (const int x : {0, kSide - 1})
        for (const int y : {0, kSide - 1})
            skin.getBitmap().setPixelRgba(x, y, 0);
    return skin;
}

void walkFrame(int x, int y, int width, int height,
               const std::function<void(const Rect& target, const Rect& source)>& draw)
{
    const auto cells = [](int length) {
        return length / kSkinCell - (length % kSkinCell == 0 ? 1 : 0);
    };
    const auto cell = [&](int left, int top, int sourceX, int sourceY) {
        draw({left, top, kSkinCell, kSkinCell}, {sourceX, sourceY, kSkinCell, kSkinCell});
    };
    constexpr int kMiddle = kSkinCell, kLast = kSkinCell * 3;
    const int right = x + width - kSkinCell;
    const int bottom = y + height - kSkinCell;
    cell(x, y, 0, 0);
    for (int i = 1; i < cells(width); ++i) {
        cell(x + i * kSkinCell, y, kMiddle, 0);
        cell(x + i * kSkinCell, bottom, kMiddle, kLast);
    }
    cell(right, y, kLast, 0);
    for (int j = 1; j < cells(height); ++j) {
        cell(x, y + j * kSkinCell, 0, kMiddle);
        cell(right, y + j * kSkinCell, kLast, kMiddle);
    }
    cell(x, bottom, 0, kLast);
    cell(right, bottom, kLast, kLast);
}

} // namespace varn
