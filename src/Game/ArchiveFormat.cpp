#include "Game/ArchiveFormat.h"

#include <array>
#include <cstring>

namespace varn::archive {

namespace {

constexpr std::size_t kKeySize = 64;

// Part of the format: an archive is readable only by a program with these values.
constexpr std::array<std::uint8_t, kKeySize> kKey = {
    0x9d, 0xeb, 0xb7, 0x3f, 0x43, 0xf8, 0xa8, 0xb2, 0xc8, 0x79, 0x0d, 0x1c, 0x1e, 0x90, 0x10, 0x03,
    0x73, 0xdf, 0xaa, 0xa8, 0xe6, 0xd4, 0xc0, 0xf3, 0x99, 0xff, 0xcb, 0x25, 0x09, 0xbc, 0x2d, 0x45,
    0x37, 0x1b, 0x72, 0xc2, 0x34, 0x71, 0x7f, 0xb4, 0x26, 0x2a, 0xe6, 0x66, 0xc8, 0x1d, 0x4f, 0x64,
    0xb8, 0xea, 0x5c, 0x26, 0x52, 0xe5, 0x97, 0x57, 0x07, 0x08, 0x1a, 0x08, 0x60, 0x75, 0x5f, 0x47,
};

using KeyWords = std::array<std::uint64_t, kKeySize / 8>;

/// The key from a place on, as the words that lie over the bytes; byte order does not matter to
/// XOR.
KeyWords keyFrom(std::uint64_t place)
{
    std::array<std::uint8_t, kKeySize> turned;
    for (std::size_t i = 0; i < kKeySize; ++i)
        turned[i] = kKey[(place + i) % kKeySize];
    KeyWords words;
    std::memcpy(words.data(), turned.data(), kKeySize);
    return words;
}

} // namespace

void scramble(std::span<std::byte> bytes, std::uint64_t place)
{
    const KeyWords key = keyFrom(place);
    std::size_t i = 0;
    for (; i + kKeySize <= bytes.size(); i += kKeySize) {
        KeyWords words;
        std::memcpy(words.data(), &bytes[i], kKeySize);
        for (std::size_t w = 0; w < key.size(); ++w)
            words[w] ^= key[w];
        std::memcpy(&bytes[i], words.data(), kKeySize);
    }
    for (; i < bytes.size(); ++i)
        bytes[i] ^= std::byte{kKey[(place + i) % kKeySize]};
}

} // namespace varn::archive
