"""Writing of PNG files: 8-bit RGB or RGBA, every row with the filter that packs it best."""

import struct
import zlib


def _chunk(kind, data):
    return (struct.pack(">I", len(data)) + kind + data
            + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF))


def _paeth(left, up, corner):
    guess = left + up - corner
    byLeft, byUp, byCorner = abs(guess - left), abs(guess - up), abs(guess - corner)
    if byLeft <= byUp and byLeft <= byCorner:
        return left
    return up if byUp <= byCorner else corner


def _filtered(row, above, step):
    """The row under the filter with the smallest sum of absolute differences (PNG 1.2, 9.6)."""
    left = bytes(step) + row[:-step]
    corner = bytes(step) + above[:-step]
    tries = (
        row,
        bytes((a - b) & 255 for a, b in zip(row, left)),
        bytes((a - b) & 255 for a, b in zip(row, above)),
        bytes((a - (b + c) // 2) & 255 for a, b, c in zip(row, left, above)),
        bytes((a - _paeth(b, c, d)) & 255 for a, b, c, d in zip(row, left, above, corner)),
    )
    sums = [sum(value if value < 128 else 256 - value for value in data) for data in tries]
    best = sums.index(min(sums))
    return bytes([best]) + tries[best]


def write(path, width, height, pixels):
    """Writes `pixels`, rows of (r, g, b) or (r, g, b, a) tuples of 0 to 255, left to right and top
    to bottom."""
    step = len(pixels[0])
    flat = bytes(value for pixel in pixels for value in pixel)
    above = bytes(width * step)
    packed = bytearray()
    for y in range(height):
        row = flat[y * width * step:(y + 1) * width * step]
        packed += _filtered(row, above, step)
        above = row
    header = struct.pack(">IIBBBBB", width, height, 8, 6 if step == 4 else 2, 0, 0, 0)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", header)
                     + _chunk(b"IDAT", zlib.compress(bytes(packed), 9)) + _chunk(b"IEND", b""))
