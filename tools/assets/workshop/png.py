"""PNG files, written and read without an image library."""

import struct
import zlib

import numpy as np

_SIGNATURE = b"\x89PNG\r\n\x1a\n"
_COLOR_TYPES = {3: 2, 4: 6}  # channels -> PNG color type: RGB, RGBA


def save(path, pixels):
    """Writes an array of shape (height, width, 3 or 4) of bytes."""
    height, width, channels = pixels.shape
    header = struct.pack(">IIBBBBB", width, height, 8, _COLOR_TYPES[channels], 0, 0, 0)
    rows = _filter(pixels.astype(np.uint8))
    with open(path, "wb") as file:
        file.write(_SIGNATURE)
        for kind, data in ((b"IHDR", header), (b"IDAT", zlib.compress(rows, 9)), (b"IEND", b"")):
            file.write(struct.pack(">I", len(data)) + kind + data)
            file.write(struct.pack(">I", zlib.crc32(kind + data)))


def load(path):
    """Reads a file that save() wrote."""
    with open(path, "rb") as file:
        data = file.read()
    position = len(_SIGNATURE)
    chunks = {}
    while position < len(data):
        length, kind = struct.unpack(">I4s", data[position:position + 8])
        chunks[kind] = data[position + 8:position + 8 + length]
        position += length + 12
    width, height, _, color_type = struct.unpack(">IIBB", chunks[b"IHDR"][:10])
    channels = {2: 3, 6: 4}[color_type]
    rows = np.frombuffer(zlib.decompress(chunks[b"IDAT"]), np.uint8)
    rows = rows.reshape(height, 1 + width * channels)
    return _unfilter(rows).reshape(height, width, channels)


def _filter(pixels):
    """Stores each row either plain or as differences to the row above, whichever looks smaller."""
    height = pixels.shape[0]
    flat = pixels.reshape(height, -1)
    above = np.vstack([np.zeros_like(flat[:1]), flat[:-1]])
    up = flat - above
    rows = bytearray()
    for plain, difference in zip(flat, up):
        use_up = _cost(difference) < _cost(plain)
        rows.append(2 if use_up else 0)
        rows += (difference if use_up else plain).tobytes()
    return bytes(rows)


def _cost(row):
    return np.abs(row.astype(np.int8).astype(np.int32)).sum()


def _unfilter(rows):
    pixels = rows[:, 1:].copy()
    for y in range(1, len(pixels)):
        if rows[y, 0] == 2:
            pixels[y] += pixels[y - 1]
    return pixels
