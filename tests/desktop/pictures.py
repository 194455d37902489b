"""Pictures as the desktop tests see them: files and photographs of the display, pixel by pixel."""
import struct
import subprocess
import zlib


class Picture:
    """Rows of 3 bytes a pixel: red, green, blue. Row 0 is the top one."""

    def __init__(self, width, height, rows):
        self.width, self.height, self.rows = width, height, rows

    @classmethod
    def filled(cls, width, height, colour):
        return cls(width, height, [bytearray(bytes(colour) * width) for _ in range(height)])

    def at(self, x, y):
        return tuple(self.rows[y][3 * x:3 * x + 3])

    def put(self, x, y, colour):
        self.rows[y][3 * x:3 * x + 3] = bytes(colour)

    def part(self, left, top, width, height):
        return Picture(width, height, [bytearray(row[3 * left:3 * (left + width)]) for row in self.rows[top:top + height]])

    def differences(self, other, tolerance=0):
        """(x, y, here, there) of the pixels that differ by more than the tolerance in a channel; sizes must be equal."""
        assert (self.width, self.height) == (other.width, other.height), \
            f"size {self.width}x{self.height}, not {other.width}x{other.height}"
        for y, (here, there) in enumerate(zip(self.rows, other.rows)):
            if here == there:
                continue
            for x in range(self.width):
                if any(abs(a - b) > tolerance for a, b in zip(self.at(x, y), other.at(x, y))):
                    yield x, y, self.at(x, y), other.at(x, y)

    def find(self, part):
        """Left and top of the first place where the other picture stands in this one; None if nowhere."""
        first = bytes(part.rows[0])
        for y in range(self.height - part.height + 1):
            row = bytes(self.rows[y])
            start = row.find(first)
            while start >= 0:
                if start % 3 == 0 and all(
                        bytes(self.rows[y + i][start:start + len(first)]) == bytes(part.rows[i]) for i in range(part.height)):
                    return start // 3, y
                start = row.find(first, start + 1)
        return None


def expect_same(actual, expected, tolerance=0):
    wrong = list(actual.differences(expected, tolerance))
    if wrong:
        told = "; ".join(f"({x}, {y}) is {a}, not {b}" for x, y, a, b in wrong[:5])
        raise AssertionError(f"{len(wrong)} pixels differ: {told}")


def write_bmp(path, picture):
    """A BMP file of 24 bits a pixel, bottom row first."""
    padding = bytes(-3 * picture.width % 4)
    with open(path, "wb") as file:
        size = 54 + (3 * picture.width + len(padding)) * picture.height
        file.write(struct.pack("<2sIHHI", b"BM", size, 0, 0, 54))
        file.write(struct.pack("<IiiHHIIiiII", 40, picture.width, picture.height, 1, 24, 0, 0, 3780, 3780, 0, 0))
        for row in reversed(picture.rows):
            file.write(swapped(row) + padding)


def read_bmp(path):
    """The picture of a BMP file of 24 bits a pixel, bottom row first. Anything else, or a short file, is a failure."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:2] == b"BM" and len(data) >= 54, f"{path} is no whole BMP file: {len(data)} bytes"
    start = struct.unpack_from("<I", data, 10)[0]
    width, height, _, bits, compression = struct.unpack_from("<iiHHI", data, 18)
    assert (bits, compression) == (24, 0) and height > 0, f"{path} has {bits} bits, compression {compression}"
    stride = (3 * width + 3) // 4 * 4
    assert len(data) >= start + stride * height, f"{path} is cut off: {len(data)} bytes"
    rows = [swapped(data[start + y * stride:start + y * stride + 3 * width]) for y in range(height)]
    return Picture(width, height, rows[::-1])


def write_png(path, picture):
    """A PNG file of 24 bits a pixel."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", picture.width, picture.height, 8, 2, 0, 0, 0)
    rows = b"".join(b"\0" + bytes(row) for row in picture.rows)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def read_png(path):
    """The picture of a PNG file of 24 bits a pixel, not interlaced. Anything else is a failure."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", f"{path} is no PNG file: {len(data)} bytes"
    width, height, *kind = struct.unpack_from(">IIBBBBB", data, 16)
    assert kind == [8, 2, 0, 0, 0], f"{path} is a PNG file of another kind: {kind}"
    packed, at = b"", 8
    while at < len(data):
        size, name = struct.unpack_from(">I4s", data, at)
        packed += data[at + 8:at + 8 + size] if name == b"IDAT" else b""
        at += 12 + size
    plain, stride = zlib.decompress(packed), 3 * width + 1
    assert len(plain) == stride * height, f"{path} is cut off"
    rows = []
    for y in range(height):
        above = rows[-1] if rows else bytes(3 * width)
        rows.append(unfiltered(plain[y * stride], plain[y * stride + 1:(y + 1) * stride], above))
    return Picture(width, height, rows)


def unfiltered(kind, row, above):
    """A row of a PNG file: each byte is told as the difference from one foretold from its neighbours."""
    result = bytearray(row)
    for i in range(len(row)):
        left, corner = (result[i - 3], above[i - 3]) if i >= 3 else (0, 0)
        nearest = min((left, above[i], corner), key=lambda value: abs(left + above[i] - corner - value))
        result[i] = (row[i] + (0, left, above[i], (left + above[i]) // 2, nearest)[kind]) & 255
    return result


def is_whole_bmp(path):
    try:
        read_bmp(path)
    except (AssertionError, OSError, struct.error):
        return False
    return True


def swapped(row):
    """Blue, green, red to red, green, blue, or back."""
    result = bytearray(row)
    result[0::3], result[2::3] = row[2::3], row[0::3]
    return result


def read_any(source, environment=None):
    """The picture of any file that ImageMagick reads."""
    return picture_of_ppm(subprocess.run(["convert", str(source), "+set", "comment", "-depth", "8", "ppm:-"], check=True,
                                         capture_output=True, env=environment).stdout)


def photograph(environment):
    """The whole display."""
    return picture_of_ppm(subprocess.run(["import", "-window", "root", "-depth", "8", "ppm:-"], check=True,
                                         capture_output=True, env=environment).stdout)


def picture_of_ppm(data):
    magic, width, height, depth = data.split(maxsplit=4)[:4]
    assert (magic, depth) == (b"P6", b"255"), "no PPM picture of 8 bits a channel"
    width, height = int(width), int(height)
    pixels = data[len(data) - 3 * width * height:]
    return Picture(width, height, [bytearray(pixels[3 * width * y:3 * width * (y + 1)]) for y in range(height)])


def write_long_gif(path, side=16000, images=40):
    """A GIF that takes a minute to read and shows nothing: transparent images, one over the other, without delay."""
    packed, bits, used = bytearray(), 0, 0

    def put(code, length):
        nonlocal bits, used
        bits |= code << used
        used += length
        while used >= 8:
            packed.append(bits & 255)
            bits >>= 8
            used -= 8

    length, left = 3, side * side
    while left > 0:
        put(4, length)
        length = 3
        put(0, length)
        left -= 1
        for code in range(6, 4096):
            if left <= 0:
                break
            put(code, length)
            left -= code - 4
            if code + 1 == 1 << length:
                length = min(length + 1, 12)
    put(5, length)
    put(0, 16)
    blocks = b"".join(bytes([len(packed[i:i + 255])]) + packed[i:i + 255] for i in range(0, len(packed), 255))
    size = struct.pack("<HH", side, side)
    image = b"\x21\xf9\x04\x01\0\0\0\0" + b"\x2c\0\0\0\0" + size + b"\0\x02" + blocks + b"\0"
    with open(path, "wb") as file:
        file.write(b"GIF89a" + size + b"\x91\0\0" + bytes(12) + image * images + b";")
