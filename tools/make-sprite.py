#!/usr/bin/env python3
"""Makes Texture/ParticleA.png, the default billboard: a soft round sprite, white, with alpha."""
import math
import struct
import sys
import zlib

SIDE = 64


def alpha(x, y):
    """A bright core in a soft halo that ends before the rim, so that no square shows."""
    r = min(math.hypot(x + 0.5 - SIDE / 2, y + 0.5 - SIDE / 2) / (SIDE / 2), 1.0)
    return round(255 * (1.0 - r * r) ** 2 * math.exp(-2.0 * r * r))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


rows = b"".join(b"\0" + b"".join(bytes((255, 255, 255, alpha(x, y))) for x in range(SIDE)) for y in range(SIDE))
name = sys.argv[1] if len(sys.argv) > 1 else "Texture/ParticleA.png"
with open(name, "wb") as file:
    file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", SIDE, SIDE, 8, 6, 0, 0, 0)))
    file.write(chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))
