# SPDX-License-Identifier: Apache-2.0
"""Pictures to post: soft colours and a little noise, as photographs have them."""

import struct
import zlib

import numpy


def write_all(folder):
    """64.png, 1024.png and 256-0.png to 256-99.png."""
    folder.mkdir(parents=True)
    _write(folder / "64.png", 64, 1)
    _write(folder / "1024.png", 1024, 2)
    for number in range(100):
        _write(folder / f"256-{number}.png", 256, 3 + number)


def write_one(path, side):
    _write(path, side, 1)


def _write(path, side, seed):
    y, x = numpy.mgrid[0:side, 0:side]
    grain = numpy.random.default_rng(seed).integers(0, 8, (side, side))
    channels = (x * 247 // side + grain, (y * 247 // side + seed * 7 + grain) % 256, (seed * 37 + grain) % 256,
                numpy.full((side, side), 255))
    pixels = numpy.stack(channels, axis=2).astype(numpy.uint8).reshape(side, 4 * side)
    rows = numpy.insert(pixels, 0, 0, axis=1).tobytes()
    header = struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", header) + _chunk(b"IDAT", zlib.compress(rows, 6))
                     + _chunk(b"IEND", b""))


def _chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
