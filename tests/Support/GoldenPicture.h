#pragma once

#include "Graphics/Bitmap.h"
#include "Graphics/PngFile.h"
#include "Util/File.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace varn::test {

/// The colours of a picture are those of the PNG `tests/<golden>`, pixel for pixel. With
/// VARN_REBASELINE in the environment the picture is written there instead: look at it before you
/// commit it.
inline ::testing::AssertionResult isGolden(Bitmap& picture, const std::string& golden)
{
    const std::filesystem::path path = std::filesystem::path(VARN_SOURCE_DIR) / "tests" / golden;
    picture.setAlphaChannel(false);
    for (std::size_t at = 3; at < picture.byteCount(); at += 4)
        picture.getBits()[at] = 255;
    const std::string bytes = writePng(picture);
    if (std::getenv("VARN_REBASELINE")) {
        std::filesystem::create_directories(path.parent_path());
        replaceFile(path, asBytes(bytes));
        return ::testing::AssertionSuccess();
    }
    const std::optional<std::string> stored = readFile(path);
    if (!stored)
        return ::testing::AssertionFailure() << golden << " is missing";
    Bitmap wanted;
    wanted.loadBytes(asBytes(*stored), u"golden.png");
    if (wanted.getWidth() != picture.getWidth() || wanted.getHeight() != picture.getHeight())
        return ::testing::AssertionFailure() << golden << ": the picture is " << picture.getWidth()
                                             << " by " << picture.getHeight();
    std::size_t different = 0;
    std::string first;
    for (int y = 0; y < wanted.getHeight(); ++y) {
        for (int x = 0; x < wanted.getWidth(); ++x) {
            if (wanted.getPixelColor(x, y) == picture.getPixelColor(x, y))
                continue;
            if (different++ == 0)
                first = std::to_string(x) + ", " + std::to_string(y);
        }
    }
    if (different == 0)
        return ::testing::AssertionSuccess();
    const auto actual = std::filesystem::temp_directory_path() /
                        ("differs-" + std::filesystem::path(golden).filename().string());
    replaceFile(actual, asBytes(bytes));
    return ::testing::AssertionFailure()
           << golden << ": " << different << " pixels differ, first at " << first << "; see "
           << actual;
}

} // namespace varn::test
