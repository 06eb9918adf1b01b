#!/usr/bin/python3
"""Every kind of picture file, read by kelu-cli and by two other programs: writes the table of docs/pictures.md.

    bench/picture_kinds.py build/release/bin/kelu-cli [--write docs/pictures.md] [--only WORD] [--keep FOLDER]
    bench/picture_kinds.py --samples tests/pictures/kinds.tsv

The second writes the kinds as small files into the table that the tests read.

Debian packages: python3-pil python3-numpy imagemagick graphicsmagick netpbm libtiff-tools libjxl-tools libheif-examples webp
libjpeg-turbo-progs libimage-exiftool-perl icc-profiles-free ffmpeg libavif-bin dcraw. Status 1 when a kind is neither right nor refused as it should be.
"""
# SPDX-License-Identifier: MIT
import argparse, base64, os, pathlib, shutil, struct, subprocess, sys, tempfile, zlib
import numpy as np
from PIL import Image

ROOT = pathlib.Path(__file__).resolve().parent.parent
ICC = pathlib.Path("/usr/share/color/icc")
WIDTH, HEIGHT = (9, 4) if "--samples" in sys.argv else (150, 100)
SECONDS = 30


def run(*command, **more):
    return subprocess.run([str(c) for c in command], stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=SECONDS, **more)


def made(*command):
    done = run(*command)
    if done.returncode:
        raise RuntimeError(f"{' '.join(map(str, command))}: {done.stderr.decode(errors='replace')[:200]}")


def load(path):
    with Image.open(path) as image:
        return np.asarray(image.convert("RGBA")).astype(int)


# --- Files made by hand, where no tool makes the kind -----------------------------------------------------------------

def scaled(channel, bits):
    """`channel` as `bits` bits hold it, and what is seen of that."""
    most = (1 << bits) - 1
    held = (channel * most + 127) // 255
    return held, (held * 255 + most // 2) // most if most else channel * 0 + 255


def rows(packed, top_down):
    lines = []
    for line in packed if top_down else packed[::-1]:
        data = line.tobytes()
        lines.append(data + bytes(-len(data) % 4))
    return b"".join(lines)


def bmp_file(data, bits, header=40, top_down=False, compression=0, masks=(), palette=b"", profile=b"", height=HEIGHT):
    """`masks` red, green, blue, alpha; versions 2 and up hold them in the header."""
    if header == 12:
        info = struct.pack("<IHHHH", 12, WIDTH, height, 1, bits)
    else:
        info = struct.pack("<IiiHHIIiiII", header, WIDTH, -height if top_down else height, 1, bits, compression, len(data),
                           3000, 3000, len(palette) // 4, 0)
        held = struct.pack("<4I", *(tuple(masks) + (0,) * 4)[:4])
        if header == 40:
            info += held[:12 if compression == 3 else 16 if compression == 6 else 0]
        else:
            info += held[:{52: 12, 56: 16, 64: 0, 108: 16, 124: 16}[header]]
            if header >= 108:
                info += (b"DEBM" if profile else b"BGRs") + bytes(36 + 12)
            if header == 124:
                info += struct.pack("<4I", 4, header + len(palette) + len(data), len(profile), 0)
            info = info.ljust(header, b"\0")
    begin = 14 + len(info) + len(palette)
    return struct.pack("<2sIHHI", b"BM", begin + len(data), 0, 0, begin) + info + palette + data + profile


def masked_bmp(source, layout, header, top_down=False, compression=3):
    """`layout`: channel letters with their bits from the highest bit down, as in "a1r5g5b5"; x is unused."""
    parts = [(layout[i], int(layout[i + 1:j])) for i, j in cut(layout)]
    total = sum(bits for _, bits in parts)
    packed = np.zeros((HEIGHT, WIDTH), "<u4")
    seen = source.copy()
    masks, shift = {}, total
    for letter, bits in parts:
        shift -= bits
        if letter == "x":
            continue
        at = "rgba".index(letter)
        held, seen[..., at] = scaled(source[..., at], bits)
        packed |= (held << shift).astype("<u4")
        masks[letter] = ((1 << bits) - 1) << shift
    if "a" not in masks:
        seen[..., 3] = 255
    data = rows(packed.astype("<u2") if total == 16 else packed, top_down)
    return bmp_file(data, total, header, top_down, compression, [masks.get(c, 0) for c in "rgba"]), seen


def cut(layout):
    starts = [i for i, c in enumerate(layout) if c.isalpha()]
    return zip(starts, starts[1:] + [len(layout)])


def tga_file(kind, bits, data, descriptor, palette=b"", map_bits=0, footer=False, ident=b""):
    entries = len(palette) // max(1, map_bits // 8)
    head = struct.pack("<BBBHHBHHHHBB", len(ident), 1 if palette else 0, kind, 0, entries, map_bits, 0, 0, WIDTH, HEIGHT, bits, descriptor)
    return head + ident + palette + data + (bytes(8) + b"TRUEVISION-XFILE.\0" if footer else b"")


def runs(pixels, size):
    """Run-length packets, as TGA has them, each row by itself."""
    out = bytearray()
    for line in pixels:
        cells = [line[i:i + size] for i in range(0, len(line), size)]
        at = 0
        while at < len(cells):
            end = at + 1
            while end < len(cells) and cells[end] == cells[at] and end - at < 128:
                end += 1
            if end - at > 1:
                out += bytes([127 + end - at]) + cells[at]
            else:
                out += b"\0" + cells[at]
            at = end
    return bytes(out)


def packed_rows(plane):
    """Each row as one literal run of PackBits, behind the lengths of all rows."""
    return [bytes([len(line) - 1]) + line.tobytes() for line in plane.astype("u1")]


def psd_file(channels, mode, depth=8, layers=b"", resources=b"", colors=b"", packed=False):
    height, width = channels[0].shape
    data = b"".join(c.astype(">u2" if depth == 16 else "u1").tobytes() if depth > 1 else
                    np.packbits(c, axis=1).tobytes() for c in channels)
    if packed:
        lines = [line for plane in channels for line in packed_rows(plane)]
        table, data = b"".join(struct.pack(">H", len(line)) for line in lines), b"".join(lines)
    block = lambda b: struct.pack(">I", len(b)) + b
    return (b"8BPS\0\1" + bytes(6) + struct.pack(">HIIHH", len(channels), height, width, depth, mode) + block(colors) +
            block(resources) + block(layers) + (b"\0\1" + table if packed else b"\0\0") + data)


def png_chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def png_file(pixels, bits, kind, before=()):
    """`pixels` rows of samples, 8 or 16 bits; `before`: chunks between header and data."""
    height, width = pixels.shape[:2]
    lines = b"".join(b"\0" + line.astype(">u2" if bits == 16 else "u1").tobytes() for line in pixels)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, bits, kind, 0, 0, 0)) +
            b"".join(png_chunk(*c) for c in before) + png_chunk(b"IDAT", zlib.compress(lines)) + png_chunk(b"IEND", b""))


def tiff_file(planes, tags, endian="<", strips=None):
    """`tags`: number to (type, values); strip places and sizes come by themselves. `planes`: the bytes of each strip."""
    sizes = {1: 1, 2: 1, 3: 2, 4: 4, 5: 8, 7: 1, 12: 8}
    letters = {1: "B", 2: "B", 3: "H", 4: "I", 7: "B", 12: "d"}
    tags = dict(tags)
    tags[273], tags[279] = (4, [0] * len(planes)), (4, [len(p) for p in planes])
    begin = 8 + 2 + 12 * len(tags) + 4
    outside = sum(-(-sizes[t] * len(v) // 2) * 2 for t, v in tags.values() if sizes[t] * len(v) > 4)
    at, places = begin + outside, []
    for plane in planes:
        places.append(at)
        at += len(plane)
    tags[273] = (4, places)
    directory, values = b"", b""
    for number in sorted(tags):
        kind, held = tags[number]
        data = b"".join(struct.pack(endian + letters[kind], v) for v in held)
        directory += struct.pack(endian + "HHI", number, kind, len(held))
        if len(data) <= 4:
            directory += data.ljust(4, b"\0")
        else:
            directory += struct.pack(endian + "I", begin + len(values))
            values += data + bytes(len(data) % 2)
    return ((b"II*\0" if endian == "<" else b"MM\0*") + struct.pack(endian + "IH", 8, len(tags)) + directory + bytes(4) +
            values + b"".join(planes))


def dng_file(preview, make=b"Kamera", orientation=6):
    """A camera's raw file: a JPEG preview in the main directory, the sensor's values in one below it."""
    wide, high = max(32, WIDTH + 10), max(20, HEIGHT + 10)  # by size dcraw tells which of the two is the photograph
    values = np.arange(wide * high).astype("<u2").tobytes()
    places = {"preview": 8, "values": 8 + len(preview), "below": 8 + len(preview) + len(values)}

    def directory(at, tags):
        begin, table, behind = at + 2 + 12 * len(tags) + 4, b"", b""
        for number, kind, held in sorted(tags):
            data = held if isinstance(held, bytes) else struct.pack(f"<{len(held)}{'BBBHI'[kind]}", *held)
            table += struct.pack("<HHI", number, kind, len(held))
            table += data.ljust(4, b"\0") if len(data) <= 4 else struct.pack("<I", begin + len(behind))
            behind += data + bytes(len(data) % 2) if len(data) > 4 else b""
        return struct.pack("<H", len(tags)) + table + bytes(4) + behind

    below = directory(places["below"], [
        (254, 4, [0]), (256, 4, [wide]), (257, 4, [high]), (258, 3, [16]), (259, 3, [1]), (262, 3, [32803]), (273, 4, [places["values"]]),
        (277, 3, [1]), (278, 4, [high]), (279, 4, [len(values)]), (284, 3, [1]), (33421, 3, [2, 2]), (33422, 1, [0, 1, 1, 2])])
    main = places["below"] + len(below)
    return (b"II*\0" + struct.pack("<I", main) + preview + values + below + directory(main, [
        (254, 4, [1]), (256, 4, [WIDTH]), (257, 4, [HEIGHT]), (258, 3, [8, 8, 8]), (259, 3, [7]), (262, 3, [6]), (271, 2, make + b"\0"),
        (272, 2, b"One\0"), (273, 4, [places["preview"]]), (274, 3, [orientation]), (277, 3, [3]), (278, 4, [HEIGHT]), (279, 4, [len(preview)]),
        (330, 4, [places["below"]]), (50706, 1, [1, 4, 0, 0]), (50707, 1, [1, 1, 0, 0]), (50708, 2, make + b" One\0")]))


def gif_file(indexes, colors, code_size, trailer=True):
    """Codes are never longer than code_size + 1 bits: a clear code comes before the table grows."""
    bits, count, out = 0, 0, bytearray()
    clear, width = 1 << code_size, code_size + 1

    def put(code):
        nonlocal bits, count
        bits |= code << count
        count += width
        while count >= 8:
            out.append(bits & 255)
            bits >>= 8
            count -= 8

    for number, index in enumerate(indexes.flatten().tolist()):
        if number % (clear - 2) == 0:
            put(clear)
        put(index)
    put(clear + 1)
    if count:
        out.append(bits & 255)
    blocks = b"".join(bytes([len(out[i:i + 255])]) + out[i:i + 255] for i in range(0, len(out), 255))
    height, width_ = indexes.shape
    return (b"GIF89a" + struct.pack("<HHBBB", width_, height, 0xf7, 0, 0) + colors.astype("u1").tobytes() + b"," +
            struct.pack("<HHHHBB", 0, 0, width_, height, 0, code_size) + blocks + b"\0" + (b";" if trailer else b""))


# --- The kinds ---------------------------------------------------------------------------------------------------------

class Kinds:
    """Each method makes the kinds of one format: self.add(format, kind, file, seen, expected)."""

    def __init__(self, folder):
        self.folder, self.all, self.number = folder, [], 0
        made("convert", ROOT / "Gallery/cat.jpg", "-resize", f"{WIDTH}x{HEIGHT}!", "-strip", folder / "source.png")
        self.png = folder / "source.png"
        self.source = load(self.png)
        self.clear = self.source.copy()
        self.clear[..., 3] = np.linspace(0, 255, WIDTH).astype(int)[None, :]
        Image.fromarray(self.clear.astype("u1"), "RGBA").save(folder / "clear.png")
        self.clear_png = folder / "clear.png"
        self.gray = np.repeat(np.asarray(Image.open(self.png).convert("L")).astype(int)[..., None], 4, 2)
        self.gray[..., 3] = 255
        Image.fromarray(self.gray[..., 0].astype("u1"), "L").save(folder / "gray.png")
        self.gray_png = folder / "gray.png"
        few = Image.open(self.png).convert("RGB").quantize(200)
        self.indexes = np.asarray(few)
        self.colors = np.asarray(few.getpalette() + [0] * 768).reshape(-1, 3)[:256]
        self.few = np.dstack([self.colors[self.indexes], np.full((HEIGHT, WIDTH), 255)])
        few.save(folder / "few.png")
        self.few_png = folder / "few.png"
        for method in (self.bmp, self.gif, self.jpeg, self.png_kinds, self.tiff, self.pcx, self.psd, self.tga, self.webp, self.heif,
                       self.jxl, self.raw, self.others):
            method()

    def path(self, extension):
        self.number += 1
        return self.folder / f"k{self.number:03}.{extension}"

    def add(self, name, kind, file, seen=None, refused=False, near=2.0, reference=None):
        if isinstance(file, bytes):
            path = self.path(name.split()[0].lower())
            path.write_bytes(file)
            file = path
        self.all.append((name, kind, file, seen, refused, near, reference))
        return file

    def tool(self, name, kind, extension, *command, seen=None, **more):
        """`command` with IN, CLEAR, GRAY, FEW and OUT put in."""
        path = self.path(extension)
        words = {"IN": self.png, "CLEAR": self.clear_png, "GRAY": self.gray_png, "FEW": self.few_png}
        line = []
        for word in command:
            prefix, colon, last = str(word).rpartition(":")
            line.append(f"{prefix}{colon}{path}" if last == "OUT" else words.get(word, word))
        try:
            made(*line)
        except (RuntimeError, FileNotFoundError) as error:
            print("not made:", name, kind, error, file=sys.stderr)
            return None
        return self.add(name, kind, path, seen, **more)

    def broken(self, name, file, kinds):
        data = file.read_bytes()
        for kind, share in kinds:
            self.add(name, kind, data[:min(len(data) - 1, int(len(data) * share))], refused=True)

    def bmp(self):
        s, rgb = self.source, self.source[..., 2::-1].astype("u1")
        for top_down in (False, True):
            way = "rows from top to bottom" if top_down else "rows from bottom to top"
            self.add("BMP", f"24 bits, {way}", bmp_file(rows(rgb, top_down), 24, top_down=top_down), s)
            self.add("BMP", f"32 bits without alpha, {way}",
                     bmp_file(rows(np.dstack([rgb, rgb[..., :1] * 0]), top_down), 32, top_down=top_down), s)
            self.add("BMP", f"16 bits without masks, {way}", *masked_bmp(s, "x1r5g5b5", 40, top_down, 0))
            palette = np.hstack([self.colors[:, ::-1], np.zeros((256, 1))]).astype("u1").tobytes()
            self.add("BMP", f"256 colours, {way}", bmp_file(rows(self.indexes.astype("u1"), top_down), 8, top_down=top_down,
                                                           palette=palette), self.few)
        bit = (self.gray[..., 0] > 127)
        two = np.where(bit[..., None], [250, 200, 100, 255], [10, 20, 30, 255])
        self.add("BMP", "2 colours", bmp_file(rows(np.packbits(bit, axis=1), False), 1, palette=bytes([30, 20, 10, 0, 100, 200, 250, 0])), two)
        self.add("BMP", "OS/2, 24 bits", bmp_file(rows(rgb, False), 24, 12), s)
        self.add("BMP", "OS/2 version 2, 24 bits", bmp_file(rows(rgb, False), 24, 64), s)
        for colors, bits in ((16, 4), (200, 8)):
            self.tool("BMP", f"{bits} bits run-length coded", "bmp", "convert", "IN", "-colors", colors, "-type", "Palette", "-compress", "RLE", "BMP3:OUT")
        for header, version in ((40, "3, masks behind it"), (52, "version 2"), (56, "version 3"), (108, "version 4"), (124, "version 5")):
            for layout in ("r5g6b5", "x1r5g5b5", "x4r4g4b4", "b5g6r5", "x8r8g8b8", "x8b8g8r8", "r8g8b8x8", "b8g8r8x8", "x2r10g10b10"):
                self.add("BMP", f"masks {layout}, header {version}", *masked_bmp(s, layout, header))
            if header >= 56:
                for layout in ("a1r5g5b5", "a4r4g4b4", "r4g4b4a4", "a8r8g8b8", "r8g8b8a8", "b8g8r8a8", "a8b8g8r8", "a2r10g10b10"):
                    self.add("BMP", f"masks {layout}, header {version}", *masked_bmp(self.clear, layout, header))
        self.add("BMP", "masks r5g6b5, rows from top to bottom", *masked_bmp(s, "r5g6b5", 124, True))
        self.add("BMP", "masks a8r8g8b8, rows from top to bottom", *masked_bmp(self.clear, "a8r8g8b8", 124, True))
        self.add("BMP", "16 bits, alpha masks, compression 6", *masked_bmp(self.clear, "a4r4g4b4", 40, compression=6))
        adobe = (ICC / "ghostscript/a98.icc").read_bytes()
        self.add("BMP", "version 5 with profile", bmp_file(rows(rgb, False), 24, 124, profile=adobe), self.converted(s, "ghostscript/a98.icc"))
        whole = rows(rgb, False)
        self.add("BMP", "filling of the last row missing", bmp_file(whole, 24)[:-(-WIDTH * 3 % 4)], s)
        file = self.add("BMP", "24 bits again", bmp_file(whole, 24), s)
        self.broken("BMP", file, (("cut in the middle", 0.5), ("cut in the last row", 0.995), ("cut in the header", 0.0005)))

    def converted(self, pixels, profile, alpha=True):
        source = self.path("png")
        target = self.path("png")
        Image.fromarray(pixels[..., :3].astype("u1"), "RGB").save(source)
        made("convert", source, "-profile", ICC / profile, "-profile", ICC / "ghostscript/srgb.icc", target)
        return load(target)

    def gif(self):
        for code_size in (8, 9, 10, 11):
            self.add("GIF", f"code size {code_size}", gif_file(self.indexes, self.colors, code_size), self.few)
        self.add("GIF", "without trailer", gif_file(self.indexes, self.colors, 8, False), self.few)
        self.add("GIF", "without end of data and trailer", gif_file(self.indexes, self.colors, 8, False)[:-1], self.few)
        self.tool("GIF", "interlaced", "gif", "convert", "FEW", "-interlace", "GIF", "OUT")
        self.tool("GIF", "transparent", "gif", "convert", "CLEAR", "OUT")
        self.tool("GIF", "2 colours", "gif", "convert", "GRAY", "-monochrome", "OUT")
        file = self.tool("GIF", "animated", "gif", "convert", "-delay", 5, "FEW", "GRAY", "OUT", seen=self.few)
        self.broken("GIF", self.all[-2][2], (("cut in the middle", 0.5), ("cut in the last block", 0.98)))

    def jpeg(self):
        plain = self.tool("JPEG", "4:2:0", "jpg", "convert", "IN", "OUT")
        for kind, options in (("4:4:4", ["-sampling-factor", "1x1"]), ("4:2:2", ["-sampling-factor", "2x1"]), ("4:4:0", ["-sampling-factor", "1x2"]),
                              ("progressive", ["-interlace", "JPEG"]), ("grey", ["-colorspace", "Gray"]), ("CMYK", ["-colorspace", "CMYK"]),
                              ("RGB", ["-colorspace", "RGB", "-set", "colorspace", "sRGB"]), ("restart marks", ["-define", "jpeg:restart-interval=2"])):
            self.tool("JPEG", kind, "jpg", "convert", "IN", *options, "OUT")
        for kind, options in (("arithmetic coding", ["-arithmetic"]), ("RGB, not YCC", ["-rgb"]), ("restart marks each row", ["-restart", "1"])):
            pnm, path = self.path("ppm"), self.path("jpg")
            made("convert", self.png, pnm)
            if run("cjpeg", *options, "-outfile", path, pnm).returncode == 0:
                self.add("JPEG", kind, path)
        for n in range(2, 9):
            path = self.path("jpg")
            made("convert", self.png, "-sampling-factor", "1x1", "-quality", "97", path)
            made("exiftool", "-q", "-overwrite_original", "-n", f"-Orientation={n}", path)
            self.add("JPEG", f"orientation {n}", path)
        data = plain.read_bytes()
        self.add("JPEG", "without end mark", data[:-2], reference=plain)
        progressive = next(f for n, k, f, *_ in self.all if (n, k) == ("JPEG", "progressive"))
        self.add("JPEG", "progressive, without end mark", progressive.read_bytes()[:-2], reference=progressive)
        self.broken("JPEG", plain, (("cut in the middle", 0.5), ("cut near the end", 0.97), ("cut in the header", 0.02)))
        data = progressive.read_bytes()
        scans = [i for i in range(len(data) - 1) if data[i] == 255 and data[i + 1] == 0xda]
        self.add("JPEG", "progressive, last scans missing", data[:scans[-2]], refused=True)
        self.broken("JPEG", progressive, (("progressive, cut in the middle", 0.5),))

    COLORS = [("profile, RGB", "ghostscript/a98.icc", "IN"), ("profile, wide RGB", "ghostscript/rommrgb.icc", "IN"),
              ("profile, grey", "ghostscript/default_gray.icc", "GRAY"), ("profile, CMYK", "ghostscript/default_cmyk.icc", "CMYK")]

    def png_kinds(self):
        rgb16 = self.source[..., :3] * 257
        for kind, options in (("RGB 8", ["PNG24:OUT"]), ("RGB 16", ["-depth", "16", "PNG48:OUT"]), ("palette", ["-colors", "200", "PNG8:OUT"]),
                              ("interlaced", ["-interlace", "PNG", "PNG24:OUT"])):
            self.tool("PNG", kind, "png", "convert", "IN", *options)
        for bits in (1, 2, 4, 8, 16):
            self.tool("PNG", f"grey {bits}", "png", "convert", "GRAY", "-define", "png:color-type=0", "-define", f"png:bit-depth={bits}", "OUT")
        for kind, options in (("RGB and alpha 8", ["PNG32:OUT"]), ("RGB and alpha 16", ["PNG64:OUT"]),
                              ("grey and alpha 8", ["-colorspace", "Gray", "-define", "png:color-type=4", "-define", "png:bit-depth=8", "OUT"]),
                              ("grey and alpha 16", ["-colorspace", "Gray", "-define", "png:color-type=4", "-define", "png:bit-depth=16", "OUT"]),
                              ("palette with transparency", ["-colors", "100", "-define", "png:color-type=3", "OUT"])):
            self.tool("PNG", kind, "png", "convert", "CLEAR", *options)
        key = self.source[2, 2, :3]
        seen = self.source.copy()
        seen[(seen[..., :3] == key).all(axis=2)] = 0
        trns8 = (b"tRNS", struct.pack(">3H", *map(int, key)))
        trns16 = (b"tRNS", struct.pack(">3H", *map(int, key * 257)))
        background = (b"bKGD", struct.pack(">3H", 200, 100, 50))
        self.add("PNG", "tRNS, RGB 8", png_file(self.source[..., :3], 8, 2, [trns8]), seen)
        self.add("PNG", "tRNS, RGB 16", png_file(rgb16, 16, 2, [trns16]), seen)
        near = rgb16.copy()
        near[3, 3] = key * 257 + [1, 0, 0]
        self.add("PNG", "tRNS, RGB 16, neighbour stays", png_file(near, 16, 2, [trns16]), None)
        self.add("PNG", "tRNS and bKGD, RGB 8", png_file(self.source[..., :3], 8, 2, [trns8, background]), seen)
        self.add("PNG", "tRNS and bKGD, RGB 16", png_file(rgb16, 16, 2, [trns16, background]), seen)
        gray = self.gray.copy()
        gray[(gray[..., 0] == gray[2, 2, 0])] = 0
        self.add("PNG", "tRNS, grey 16", png_file(self.gray[..., 0] * 257, 16, 0, [(b"tRNS", struct.pack(">H", int(self.gray[2, 2, 0]) * 257))]), gray)
        self.add("PNG", "alpha and bKGD", png_file(self.clear, 8, 6, [background]), self.clear)
        self.add("PNG", "gamma 1.0", png_file(self.source[..., :3], 8, 2, [(b"gAMA", struct.pack(">I", 100000))]))
        self.add("PNG", "gamma 1/2.2", png_file(self.source[..., :3], 8, 2, [(b"gAMA", struct.pack(">I", 45455))]), self.source)
        whole = png_file(self.source[..., :3], 8, 2)
        self.add("PNG", "without IEND", whole[:-12], self.source)
        self.add("PNG", "IEND cut", whole[:-5], self.source)
        bad = png_file(self.source[..., :3], 8, 2, [(b"tIME", bytes(7))])
        at = bad.index(b"tIME")
        self.add("PNG", "wrong checksum of the date", bad[:at + 8] + b"\xff" + bad[at + 9:], self.source)
        at = whole.index(b"IDAT")
        self.add("PNG", "wrong checksum of the pixels", whole[:at + 20] + b"\xff\x01" + whole[at + 22:], refused=True)
        self.add("PNG", "wrong checksum of the header", whole[:20] + b"\x01" + whole[21:], refused=True)
        file = self.all[-3][2]
        for kind, share in (("cut in the middle", 0.5), ("cut in the header", 0.0003), ("cut before the end", 0.99)):
            self.add("PNG", kind, whole[:int(len(whole) * share)], refused=True)
        for n in (3, 6):
            path = self.path("png")
            shutil.copy(self.png, path)
            made("exiftool", "-q", "-overwrite_original", "-n", f"-IFD0:Orientation={n}", path)
            self.add("PNG", f"orientation {n}", path, np.rot90(self.source, 2 if n == 3 else 3))

    def tiff(self):
        rgb, clear = self.source[..., :3], self.clear
        def describe(planes, samples, bits, photometric, planar=1, extra=None, more=None, **rest):
            tags = {256: (4, [WIDTH]), 257: (4, [HEIGHT]), 258: (3, [bits] * samples), 259: (3, [1]), 262: (3, [photometric]), 277: (3, [samples]),
                    278: (4, [HEIGHT]), 284: (3, [planar])}
            if extra is not None:
                tags[338] = (3, [extra])
            if bits > 16:
                tags[339] = (3, [3] * samples)
            tags.update(more or {})
            return tiff_file(planes, tags, **rest)
        for endian, order in (("<", "little"), (">", "big")):
            wide = endian + "u2"
            for bits in (8, 16):
                kind = "u1" if bits == 8 else wide
                times = 1 if bits == 8 else 257
                self.add("TIFF", f"RGB {bits}, {order} endian", describe([(rgb * times).astype(kind).tobytes()], 3, bits, 2, endian=endian), self.source)
                self.add("TIFF", f"RGB {bits}, planes, {order} endian",
                         describe([(rgb[..., c] * times).astype(kind).tobytes() for c in range(3)], 3, bits, 2, 2, endian=endian), self.source)
                self.add("TIFF", f"RGB and alpha {bits}, {order} endian",
                         describe([(clear * times).astype(kind).tobytes()], 4, bits, 2, extra=2, endian=endian), clear)
                self.add("TIFF", f"RGB and alpha {bits}, planes, {order} endian",
                         describe([(clear[..., c] * times).astype(kind).tobytes() for c in range(4)], 4, bits, 2, 2, 2, endian=endian), clear)
                multiplied = clear.copy() * times
                multiplied[..., :3] = (clear[..., :3] * clear[..., 3:] * times + 127) // 255
                self.add("TIFF", f"associated alpha {bits}, {order} endian", describe([multiplied.astype(kind).tobytes()], 4, bits, 2, extra=1, endian=endian), clear)
                self.add("TIFF", f"associated alpha {bits}, planes, {order} endian",
                         describe([multiplied[..., c].astype(kind).tobytes() for c in range(4)], 4, bits, 2, 2, 1, endian=endian), clear)
                ink = 255 - np.dstack([rgb, np.full((HEIGHT, WIDTH), 255)])
                self.add("TIFF", f"CMYK {bits}, {order} endian", describe([(ink * times).astype(kind).tobytes()], 4, bits, 5, endian=endian), self.source)
                self.add("TIFF", f"CMYK {bits}, planes, {order} endian",
                         describe([(ink[..., c] * times).astype(kind).tobytes() for c in range(4)], 4, bits, 5, 2, endian=endian), self.source)
                self.add("TIFF", f"grey {bits}, {order} endian", describe([(self.gray[..., 0] * times).astype(kind).tobytes()], 1, bits, 1, endian=endian), self.gray)
        self.add("TIFF", "grey 8, white is 0", describe([(255 - self.gray[..., 0]).astype("u1").tobytes()], 1, 8, 0), self.gray)
        grayclear = np.dstack([self.gray[..., :3], clear[..., 3]])
        for bits in (8, 16):
            kind, times = ("u1", 1) if bits == 8 else ("<u2", 257)
            self.add("TIFF", f"grey and alpha {bits}", describe([(grayclear[..., 2:] * times).astype(kind).tobytes()], 2, bits, 1, extra=2), grayclear)
        self.add("TIFF", "a fifth sample", describe([np.dstack([clear, clear[..., 3]]).astype("u1").tobytes()], 5, 8, 2, more={338: (3, [2, 0])}), clear)
        self.add("TIFF", "an extra sample that is no alpha", describe([clear.astype("u1").tobytes()], 4, 8, 2, extra=0), self.source)
        geo = {33550: (12, [10.0, 10.0, 0.0]), 33922: (12, [0.0] * 6), 34735: (3, [1, 1, 0, 1, 1024, 0, 1, 1]), 42113: (2, list(b"-9999\0"))}
        self.add("TIFF", "geo-tagged", describe([rgb.astype("u1").tobytes()], 3, 8, 2, more=geo), self.source)
        self.add("TIFF", "geo-tagged, planes", describe([rgb[..., c].astype("u1").tobytes() for c in range(3)], 3, 8, 2, 2, more=geo), self.source)
        self.add("TIFF", "float, 0 to 1", describe([(rgb / 255).astype("<f4").tobytes()], 3, 32, 2), self.source)
        self.add("TIFF", "palette", describe([self.indexes.astype("u1").tobytes()], 1, 8, 3, more={320: (3, (self.colors.T * 257).flatten().tolist())}), self.few)
        base = self.path("tif")
        base.write_bytes(describe([rgb.astype("u1").tobytes()], 3, 8, 2))
        deep = self.path("tif")
        deep.write_bytes(describe([(rgb * 257).astype("<u2").tobytes()], 3, 16, 2))
        alpha = self.path("tif")
        alpha.write_bytes(describe([clear.astype("u1").tobytes()], 4, 8, 2, extra=2))
        for file, label, seen in ((base, "RGB 8", self.source), (deep, "RGB 16", self.source), (alpha, "RGB and alpha 8", clear)):
            for planar in ("contig", "separate"):
                self.tool("TIFF", f"{label}, tiles, {planar}", "tif", "tiffcp", "-t", "-w", "32", "-l", "32", "-p", planar, file, "OUT", seen=seen)
                self.tool("TIFF", f"{label}, strips of 7 rows, LZW, {planar}", "tif", "tiffcp", "-r", "7", "-c", "lzw:2", "-p", planar, file, "OUT", seen=seen)
        for coding in ("packbits", "zip", "lzma", "zstd", "jpeg", "jpeg:r", "webp"):
            self.tool("TIFF", f"{coding}", "tif", "tiffcp", "-r", "16", "-c", coding, base, "OUT", seen=self.source, near=4.0 if coding.startswith(("jpeg", "webp")) else 2.0)
        self.tool("TIFF", "big (64-bit places)", "tif", "tiffcp", "-8", base, "OUT", seen=self.source)
        self.tool("TIFF", "1 bit, fax", "tif", "convert", "GRAY", "-monochrome", "-compress", "Group4", "OUT")
        self.tool("TIFF", "1 bit", "tif", "convert", "GRAY", "-monochrome", "-compress", "None", "OUT")
        self.tool("TIFF", "several pages", "tif", "convert", "IN", "GRAY", "OUT", seen=self.source)
        self.tool("TIFF", "L*a*b*", "tif", "convert", "IN", "-colorspace", "Lab", "OUT", near=4.0, seen=self.source)
        for n in range(2, 9):
            path = self.path("tif")
            made("convert", self.png, path)
            made("exiftool", "-q", "-overwrite_original", "-n", f"-IFD0:Orientation={n}", path)
            turned = {2: np.fliplr, 3: lambda a: np.rot90(a, 2), 4: np.flipud, 5: lambda a: a.transpose(1, 0, 2), 6: lambda a: np.rot90(a, 3),
                      7: lambda a: np.rot90(a.transpose(1, 0, 2), 2), 8: np.rot90}[n](self.source)
            self.add("TIFF", f"orientation {n}", path, turned)
        self.broken("TIFF", base, (("cut in the middle", 0.5), ("cut in the last row", 0.998), ("cut in the header", 0.0003)))

    def pcx(self):
        self.tool("PCX", "24 bits", "pcx", "convert", "IN", "OUT", seen=self.source)
        self.tool("PCX", "256 colours", "pcx", "convert", "FEW", "-type", "Palette", "OUT", seen=self.few)
        two = self.path("png")
        made("convert", self.gray_png, "-monochrome", two)
        self.tool("PCX", "2 colours", "pcx", "gm", "convert", two, "OUT", seen=load(two))
        self.tool("PCX", "16 colours", "pcx", "convert", "IN", "-colors", "16", "-type", "Palette", "OUT")
        self.tool("PCX", "grey", "pcx", "convert", "GRAY", "OUT", seen=self.gray)
        file = next(f for n, k, f, *_ in self.all if (n, k) == ("PCX", "24 bits"))
        self.broken("PCX", file, (("cut in the middle", 0.5), ("cut near the end", 0.99)))

    def psd(self):
        rgb = [self.source[..., c] for c in range(3)]
        for bits in (8, 16):
            times = 1 if bits == 8 else 257
            self.add("PSD", f"RGB {bits}", psd_file([c * times for c in rgb], 3, bits), self.source)
            self.add("PSD", f"grey {bits}", psd_file([self.gray[..., 0] * times], 1, bits), self.gray)
            self.add("PSD", f"CMYK {bits}", psd_file([c * times for c in rgb] + [rgb[0] * 0 + 255 * times], 4, bits), self.source)
        self.add("PSD", "indexed", psd_file([self.indexes], 2, colors=self.colors.T.astype("u1").tobytes()), self.few)
        if WIDTH <= 128:
            self.add("PSD", "indexed, run-length coded", psd_file([self.indexes], 2, colors=self.colors.T.astype("u1").tobytes(), packed=True), self.few)
        self.add("PSD", "duotone", psd_file([self.gray[..., 0]], 8, colors=bytes(544)), self.gray)
        bit = self.gray[..., 0] > 127
        seen = np.where(bit[..., None], 255, 0) * np.ones(4, int)
        seen[..., 3] = 255
        self.add("PSD", "1 bit", psd_file([~bit], 0, 1), seen)
        self.tool("PSD", "run-length coded", "psd", "convert", "IN", "-compress", "RLE", "OUT", seen=self.source)
        self.tool("PSD", "several layers", "psd", "convert", "IN", "GRAY", "CLEAR", "OUT", near=255)
        for kind, layers in (("layers of no known kind", struct.pack(">Ih", 60, 1) + b"\xff" * 58 + bytes(4)),
                             ("layer section cut short inside", struct.pack(">Ih", 4000, 3) + bytes(40)),
                             ("layers with absurd sizes", struct.pack(">IhiiiiH", 400, 1, -5, -5, 2000000000, 2000000000, 3) + bytes(400)),
                             ("only global layer data", struct.pack(">II", 0, 4) + b"8BIM")):
            self.add("PSD", kind, psd_file(rgb, 3, layers=layers), self.source)
        file = self.add("PSD", "RGB 8 again", psd_file(rgb, 3), self.source)
        self.broken("PSD", file, (("cut in the middle", 0.5), ("cut in the last row", 0.999), ("cut in the header", 0.0004)))

    def tga(self):
        bgr = self.source[..., 2::-1].astype("u1")
        bgra = np.dstack([self.clear[..., 2::-1], self.clear[..., 3]]).astype("u1")
        for descriptor, way, turn in ((0x20, "top to bottom", lambda a: a), (0, "bottom to top", np.flipud), (0x30, "right to left", np.fliplr)):
            self.add("TGA", f"24 bits, {way}", tga_file(2, 24, turn(bgr).tobytes(), descriptor), self.source)
            self.add("TGA", f"32 bits with alpha, {way}", tga_file(2, 32, turn(bgra).tobytes(), descriptor | 8), self.clear)
        gray = self.gray[..., 0].astype("u1")
        both = np.dstack([gray, self.clear[..., 3].astype("u1")])
        grayclear = np.dstack([self.gray[..., :3], self.clear[..., 3]])
        self.add("TGA", "grey", tga_file(3, 8, gray.tobytes(), 0x20), self.gray)
        self.add("TGA", "grey with alpha", tga_file(3, 16, both.tobytes(), 0x28), grayclear)
        self.add("TGA", "grey with alpha, run lengths", tga_file(11, 16, runs([l.tobytes() for l in both], 2), 0x28), grayclear)
        self.add("TGA", "grey with alpha, bottom to top", tga_file(3, 16, np.flipud(both).tobytes(), 8), grayclear)
        self.add("TGA", "grey, run lengths", tga_file(11, 8, runs([l.tobytes() for l in gray], 1), 0x20), self.gray)
        self.add("TGA", "24 bits, run lengths", tga_file(10, 24, runs([l.tobytes() for l in bgr], 3), 0x20), self.source)
        self.add("TGA", "32 bits, run lengths, footer", tga_file(10, 32, runs([l.tobytes() for l in bgra], 4), 0x28, footer=True), self.clear)
        self.add("TGA", "32 bits, no alpha bits", tga_file(2, 32, np.dstack([bgr, bgr[..., :1] * 0]).tobytes(), 0x20), self.source)
        self.add("TGA", "256 colours", tga_file(1, 8, self.indexes.astype("u1").tobytes(), 0x20, self.colors[:, ::-1].astype("u1").tobytes(), 24), self.few)
        held, seen = zip(*(scaled(self.source[..., c], 5) for c in range(3)))
        packed = (held[0] << 10 | held[1] << 5 | held[2]).astype("<u2")
        seen = np.dstack(seen + (np.full((HEIGHT, WIDTH), 255),))
        self.add("TGA", "15 bits", tga_file(2, 15, packed.tobytes(), 0x20), seen)
        self.add("TGA", "16 bits", tga_file(2, 16, (packed | 0x8000).tobytes(), 0x20), seen)
        file = self.add("TGA", "24 bits, with a comment", tga_file(2, 24, bgr.tobytes(), 0x20, ident=b"a comment"), self.source)
        self.broken("TGA", file, (("cut in the middle", 0.5), ("cut in the last row", 0.999)))

    def webp(self):
        lossless = self.tool("WebP", "lossless", "webp", "cwebp", "-quiet", "-lossless", "-exact", "IN", "-o", "OUT", seen=self.source)
        self.tool("WebP", "lossless with alpha", "webp", "cwebp", "-quiet", "-lossless", "-exact", "CLEAR", "-o", "OUT", seen=self.clear)
        lossy = self.tool("WebP", "lossy", "webp", "cwebp", "-quiet", "-q", "90", "IN", "-o", "OUT")
        self.tool("WebP", "lossy with alpha", "webp", "cwebp", "-quiet", "-q", "90", "CLEAR", "-o", "OUT")
        adobe = self.path("webp")
        made("webpmux", "-set", "icc", ICC / "ghostscript/a98.icc", lossless, "-o", adobe)
        self.add("WebP", "profile, RGB", adobe, self.converted(self.source, "ghostscript/a98.icc"))
        for n in (3, 6):
            exif, path = self.path("exif"), self.path("webp")
            exif.write_bytes(b"II*\0\x08\0\0\0\1\0\x12\1\3\0\1\0\0\0" + struct.pack("<HH", n, 0) + bytes(4))
            made("webpmux", "-set", "exif", exif, lossless, "-o", path)
            self.add("WebP", f"orientation {n}", path, np.rot90(self.source, 2 if n == 3 else 3))
        path = self.path("webp")
        made("webpmux", "-frame", lossless, "+100", "-frame", lossy, "+100", "-o", path)
        self.add("WebP", "animated", path, self.source)
        self.broken("WebP", lossy, (("cut in the middle", 0.5), ("cut near the end", 0.98), ("cut in the header", 0.002)))

    def heif(self):
        def encode(name, kind, extension, *options, source=None, **more):
            return self.tool(name, kind, extension, "heif-enc", *options, source or "IN", "-o", "OUT", **more)
        for name, extension, extra in (("HEIC", "heic", []), ("AVIF", "avif", ["-A"])):
            plain = encode(name, "lossy", extension, *extra, "-q", "90")
            encode(name, "lossless", extension, *extra, "-L", "-p", "chroma=444", "--matrix_coefficients=0", seen=self.source)
            encode(name, "with alpha", extension, *extra, "-q", "95", source="CLEAR")
            encode(name, "grey", extension, *extra, "-q", "95", source="GRAY", seen=self.gray)
            deep = self.path("png")
            made("convert", self.png, "-depth", "16", "PNG48:" + str(deep))
            for bits in (10, 12):
                encode(name, f"{bits} bits", extension, *extra, "-q", "95", "-b", bits, source=deep)
            adobe = self.path("png")
            made("convert", self.png, "-profile", ICC / "ghostscript/a98.icc", adobe)
            encode(name, "profile, RGB", extension, *extra, "-q", "98", "-p", "chroma=444", source=adobe, seen=self.converted(self.source, "ghostscript/a98.icc"))
            if plain:
                self.broken(name, plain, (("cut in the middle", 0.5), ("cut near the end", 0.97), ("cut in the header", 0.01)))

    def jxl(self):
        plain = self.tool("JPEG XL", "lossy", "jxl", "cjxl", "--quiet", "-d", "1", "IN", "OUT")
        self.tool("JPEG XL", "lossless", "jxl", "cjxl", "--quiet", "-d", "0", "IN", "OUT", seen=self.source)
        self.tool("JPEG XL", "lossless with alpha", "jxl", "cjxl", "--quiet", "-d", "0", "CLEAR", "OUT", seen=self.clear)
        self.tool("JPEG XL", "lossy with alpha", "jxl", "cjxl", "--quiet", "-d", "1", "CLEAR", "OUT")
        self.tool("JPEG XL", "grey", "jxl", "cjxl", "--quiet", "-d", "0", "GRAY", "OUT", seen=self.gray)
        self.tool("JPEG XL", "progressive", "jxl", "cjxl", "--quiet", "-p", "-d", "1", "IN", "OUT")
        deep = self.path("png")
        made("convert", self.png, "-depth", "16", "PNG48:" + str(deep))
        self.tool("JPEG XL", "16 bits", "jxl", "cjxl", "--quiet", "-d", "0", deep, "OUT", seen=self.source)
        self.tool("JPEG XL", "in a container", "jxl", "cjxl", "--quiet", "--container=1", "-d", "0", "IN", "OUT", seen=self.source)
        jpeg = next(f for n, k, f, *_ in self.all if (n, k) == ("JPEG", "4:2:0"))
        self.tool("JPEG XL", "from a JPEG, without loss", "jxl", "cjxl", "--quiet", jpeg, "OUT")
        turned = next(f for n, k, f, *_ in self.all if (n, k) == ("JPEG", "orientation 6"))
        self.tool("JPEG XL", "orientation 6", "jxl", "cjxl", "--quiet", "--lossless_jpeg=0", "-d", "0.5", turned, "OUT")
        adobe = self.path("png")
        made("convert", self.png, "-profile", ICC / "ghostscript/a98.icc", adobe)
        for kind, distance in (("profile, RGB, lossless", "0"), ("profile, RGB, lossy", "0.5")):
            self.tool("JPEG XL", kind, "jxl", "cjxl", "--quiet", "-d", distance, adobe, "OUT", seen=self.converted(self.source, "ghostscript/a98.icc"))
        self.broken("JPEG XL", plain, (("cut in the middle", 0.5), ("cut near the end", 0.97), ("cut in the header", 0.01)))

    def raw(self):
        """The preview is what is seen; other programs read it out of the file by themselves."""
        path = self.path("jpg")
        made("convert", self.png, "-quality", "92", "-sampling-factor", "1x1", path)
        preview, upright = path.read_bytes() + bytes(path.stat().st_size % 2), load(path)
        for n in (1, 3, 6, 8):
            file = self.add("camera RAW", f"DNG, orientation {n}", dng_file(preview, orientation=n), np.rot90(upright, {1: 0, 3: 2, 6: 3, 8: 1}[n]))
        self.broken("camera RAW", file, (("cut in the preview", 0.1), ("cut in the middle", 0.5), ("cut near the end", 0.99)))

    def others(self):
        cmyk = self.path("tif")
        made("convert", self.png, "-colorspace", "CMYK", cmyk)
        sources = {"IN": self.png, "GRAY": self.gray_png, "CMYK": cmyk}
        for name, extension in (("JPEG", "jpg"), ("TIFF", "tif"), ("PSD", "psd"), ("PNG", "png")):
            for kind, profile, source in self.COLORS:
                if extension == "png" and source == "CMYK":
                    continue
                path, target = self.path(extension), self.path("png")
                options = ["-quality", "97", "-sampling-factor", "1x1"] if extension == "jpg" else []
                if source == "GRAY" and extension == "png":
                    options += ["-define", "png:color-type=0"]
                if extension == "psd":  # the numbers of a TIFF, which ImageMagick converts
                    path = self.path("tif")
                made("convert", sources[source], "-profile", ICC / profile, *options, path)
                if source == "CMYK":  # where the black goes is a matter of the program: littleCMS by its own defaults
                    from PIL import ImageCms
                    with Image.open(path) as image:
                        ImageCms.profileToProfile(image, str(ICC / profile), ImageCms.createProfile("sRGB"), outputMode="RGB").save(target)
                else:
                    made("convert", path, "-profile", ICC / "ghostscript/srgb.icc", "PNG24:" + str(target))
                if extension == "psd":
                    with Image.open(path) as image:
                        numbers = np.asarray(image.convert("RGB") if image.mode == "P" else image)
                    numbers = numbers[..., None] if numbers.ndim == 2 else numbers
                    mode = {1: 1, 3: 3, 4: 4}[numbers.shape[2]]
                    planes = [255 - p if mode == 4 else p for p in np.moveaxis(numbers, 2, 0)]
                    held = (ICC / profile).read_bytes()
                    resource = b"8BIM" + struct.pack(">HHI", 1039, 0, len(held)) + held + bytes(len(held) % 2)
                    path = psd_file(planes, mode, resources=resource)
                self.add(name, kind, path, load(target))
        linear = self.path("icc")
        linear.write_bytes(gray_profile(1.0))
        for name, extension in (("JPEG", "jpg"), ("TIFF", "tif"), ("PNG", "png")):
            path, target = self.path(extension), self.path("png")
            made("convert", self.gray_png, "-profile", linear, path)
            made("convert", f"{path}[0]", "-profile", ICC / "ghostscript/srgb.icc", "PNG24:" + str(target))
            self.add(name, "profile, grey, gamma 1.0", path, load(target))
        inks = np.arange(WIDTH * HEIGHT).reshape(HEIGHT, WIDTH, 1) >> np.arange(4) & 1
        held = {256: (4, [WIDTH]), 257: (4, [HEIGHT]), 258: (3, [8] * 4), 259: (3, [1]), 262: (3, [5]), 277: (3, [4]), 278: (4, [HEIGHT]),
                34675: (7, ink_profile())}
        self.add("TIFF", "profile, CMYK, full inks", tiff_file([(inks * 255).astype("u1").tobytes()], held), ink_seen(inks))
        for name in (b"", b"Hello, this is a text and no picture", bytes(5000), b"<svg xmlns='http://www.w3.org/2000/svg'/>", b"%!PS-Adobe-3.0\n",
                     b"push graphic-context\nimage over 0,0 0,0 'label:@/etc/hostname'"):
            self.add("no picture", repr(name[:20]), name, refused=True)
        pipe = self.path("png")
        os.mkfifo(pipe)
        self.add("no picture", "a named pipe", pipe, refused=True)
        self.add("no picture", "a folder", self.folder, refused=True)
        self.add("no picture", "a device", pathlib.Path("/dev/zero"), refused=True)
        self.add("no picture", "a name without a file", self.folder / "missing.png", refused=True)


def text_tag(kind, value):
    return kind + bytes(4) + value


def icc_profile(kind, inks, space, more):
    """An ICC profile of version 2 with the tags `more`."""
    description = text_tag(b"desc", struct.pack(">I", 5) + b"made\0" + bytes(78))
    white = text_tag(b"XYZ ", struct.pack(">3i", 63190, 65536, 54061))
    parts = [(b"desc", description), (b"wtpt", white), *more, (b"cprt", text_tag(b"text", b"none\0"))]
    at, table, data = 128 + 4 + 12 * len(parts), struct.pack(">I", len(parts)), b""
    for name, part in parts:
        table += name + struct.pack(">II", at + len(data), len(part))
        data += part + bytes(-len(part) % 4)
    head = struct.pack(">I4sI4s4s4s12s4s", 128 + len(table) + len(data), b"lcms", 0x02100000, kind, inks, space, bytes(12), b"acsp")
    return (head + bytes(28) + struct.pack(">3i", 63190, 65536, 54061)).ljust(128, b"\0") + table + data


def gray_profile(gamma):
    """A grey ICC profile of one power curve."""
    return icc_profile(b"mntr", b"GRAY", b"XYZ ", [(b"kTRC", text_tag(b"curv", struct.pack(">IH", 1, int(gamma * 256))))])


INKS = np.array([[0, 158, 224], [226, 0, 122], [255, 237, 0], [60, 56, 52]]) / 255  # red, green, blue of each on white paper


def ink_seen(inks):
    """Full inks over each other: `inks` 0 or 1 of cyan, magenta, yellow and black. All four are black."""
    colors = np.prod(np.where(inks[..., None] == 1, INKS, 1), axis=-2) * 255
    return np.dstack([np.rint(colors), np.full(inks.shape[:2], 255)]).astype(int)


def ink_profile():
    """An ICC profile for printing with a table of the 16 overprints alone."""
    nodes = np.arange(16)[None, :, None] >> np.arange(4)[::-1] & 1
    seen = ink_seen(nodes)[0, :, :3] / 255
    light = np.where(seen <= 0.04045, seen / 12.92, ((seen + 0.055) / 1.055) ** 2.4)
    xyz = light @ np.array([[0.4361, 0.3851, 0.1431], [0.2225, 0.7169, 0.0606], [0.0139, 0.0971, 0.7141]]).T / [0.9642, 1, 0.8249]
    f = np.where(xyz > 216 / 24389, np.cbrt(xyz), (xyz * 24389 / 27 + 16) / 116)
    lab = np.array([(116 * f[:, 1] - 16) * 2.55, 500 * (f[:, 0] - f[:, 1]) + 128, 200 * (f[:, 1] - f[:, 2]) + 128]).T
    table = bytes([4, 3, 2, 0]) + struct.pack(">9i", 65536, 0, 0, 0, 65536, 0, 0, 0, 65536)
    table += bytes(range(256)) * 4 + np.rint(lab).astype("u1").tobytes() + bytes(range(256)) * 3
    return icc_profile(b"prtr", b"CMYK", b"Lab ", [(b"A2B0", text_tag(b"mft1", table))])


# --- Other programs ----------------------------------------------------------------------------------------------------

def by_pillow(file, target):
    from PIL import ImageOps
    with Image.open(file) as image:
        ImageOps.exif_transpose(image).convert("RGBA").save(target)


def by_exiftool(file, target):
    """The preview of a camera's raw file, turned by what the file says."""
    preview = target.with_suffix(".jpg")
    preview.write_bytes(run("exiftool", "-b", "-PreviewImage", file).stdout)
    made("exiftool", "-q", "-overwrite_original", "-tagsfromfile", file, "-Orientation", preview)
    by_pillow(preview, target)


def by_dcraw(file, target):
    """The same by another program, which turns nothing."""
    preview = target.with_suffix(".jpg")
    preview.write_bytes(run("dcraw", "-e", "-c", file).stdout)
    made("exiftool", "-q", "-overwrite_original", "-tagsfromfile", file, "-Orientation", preview)
    by_pillow(preview, target)


def boxes(data):
    at = 0
    while at + 8 <= len(data):
        size, name = struct.unpack(">I4s", data[at:at + 8])
        yield name, data[at + 8:at + (size or len(data) - at)]
        at += size or len(data)


def hevc_streams(data):
    """The items of a HEIC file as bare streams, by number, and the number of the one that is alpha."""
    meta = dict(boxes(dict(boxes(data))[b"meta"][4:]))
    properties = dict(boxes(meta[b"iprp"]))
    held, links = [p for _, p in boxes(properties[b"ipco"])], properties[b"ipma"]
    names, places, streams, at = [n for n, _ in boxes(properties[b"ipco"])], meta[b"iloc"], {}, 8
    mine = {}
    for _ in range(struct.unpack(">I", links[4:8])[0]):
        number, count = struct.unpack(">HB", links[at:at + 3])
        mine[number] = [b & 127 for b in links[at + 3:at + 3 + count]]
        at += 3 + count
    at = 8
    for _ in range(struct.unpack(">H", places[6:8])[0]):
        number, _, base, extents = struct.unpack(">HHIH", places[at:at + 10])
        item = b""
        for extent in range(extents):
            start, length = struct.unpack(">II", places[at + 10 + extent * 8:at + 18 + extent * 8])
            item += data[base + start:base + start + length]
        at += 10 + extents * 8
        config = next((held[i - 1] for i in mine.get(number, ()) if names[i - 1] == b"hvcC"), None)
        if config is None:
            continue
        stream, there = b"", 23
        for _ in range(config[22]):  # the parameter sets, by kinds
            count, there = struct.unpack(">H", config[there + 1:there + 3])[0], there + 3
            for _ in range(count):
                length = struct.unpack(">H", config[there:there + 2])[0]
                stream += b"\0\0\0\1" + config[there + 2:there + 2 + length]
                there += 2 + length
        inside = 0
        while inside < len(item):
            length = struct.unpack(">I", item[inside:inside + 4])[0]
            stream += b"\0\0\0\1" + item[inside + 4:inside + 4 + length]
            inside += 4 + length
        streams[number] = stream
    alpha = [struct.unpack(">H", part[:2])[0] for name, part in boxes(meta.get(b"iref", bytes(4))[4:]) if name == b"auxl"]
    return streams, alpha[0] if alpha else None


def by_own_boxes(file, target):
    """HEIC with its boxes taken apart here and its streams decoded by ffmpeg, which shares no code with libheif."""
    streams, alpha = hevc_streams(pathlib.Path(file).read_bytes())
    planes = {}
    for number, stream in streams.items():
        bare, shown = target.with_suffix(".hevc"), target.with_suffix(".plane.png")
        bare.write_bytes(stream)
        made("ffmpeg", "-v", "error", "-y", "-f", "hevc", "-i", bare, "-frames:v", "1", "-sws_flags", "accurate_rnd+full_chroma_int",
             "-pix_fmt", "gray" if number == alpha else "rgb24", shown)
        planes[number] = np.asarray(Image.open(shown))
    color = next(p for n, p in planes.items() if n != alpha)
    Image.fromarray(np.dstack([color, planes[alpha] if alpha else np.full(color.shape[:2], 255)]).astype("u1"), "RGBA").save(target)


def by_command(*command):
    def read(file, target):
        made(*[str(w).replace("FILE", str(file)).replace("TARGET", str(target)) for w in command])
    return read


PROGRAMS = {
    "ImageMagick": by_command("convert", "FILE[0]", "-auto-orient", "PNG32:TARGET"),
    "GraphicsMagick": by_command("gm", "convert", "FILE[0]", "-auto-orient", "PNG32:TARGET"),
    "Pillow": by_pillow,
    "dwebp": by_command("dwebp", "-quiet", "FILE", "-o", "TARGET"),
    "heif-convert": by_command("heif-convert", "FILE", "TARGET"),
    "exiftool": by_exiftool,
    "dcraw": by_dcraw,
    "ffmpeg": by_command("ffmpeg", "-v", "error", "-y", "-i", "FILE", "-frames:v", "1", "-pix_fmt", "rgba", "TARGET"),
    "ffmpeg's HEVC": by_own_boxes,
    "avifdec": by_command("avifdec", "-u", "best", "FILE", "TARGET"),
    "djxl": by_command("djxl", "--quiet", "FILE", "TARGET"),
}
ASKED = {"camera RAW": ["exiftool", "dcraw"], "WebP": ["dwebp", "Pillow"], "HEIC": ["heif-convert", "ffmpeg's HEVC"],
         "AVIF": ["heif-convert", "avifdec"], "JPEG XL": ["djxl", "ffmpeg"]}


def difference(a, b):
    """Mean over all channels, colours multiplied by alpha: what is not seen does not count."""
    if a.shape != b.shape:
        return None
    def look(p):
        return np.dstack([p[..., :3] * p[..., 3:] / 255, p[..., 3:]])
    return float(np.abs(look(a) - look(b)).mean())


def others(name, file, target):
    results = {}
    for program in ASKED.get(name, ["ImageMagick", "Pillow"]):
        target.unlink(missing_ok=True)
        try:
            PROGRAMS[program](file, target)
            results[program] = load(target)
        except Exception:
            results[program] = None
    return results


def examine(cli, kind, folder):
    name, label, file, seen, refused, near, reference = kind
    target = folder / "out.png"
    target.unlink(missing_ok=True)
    try:
        done = run(cli, "convert", file, target, stdin=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return "HANGS", {}
    lines = done.stderr.decode(errors="replace").splitlines()
    if done.returncode < 0:
        return "CRASHES", {}
    if done.returncode:
        one = done.returncode == 1 and len(lines) == 1 and lines[0].startswith("kelu-cli: ")
        verdict = "refused" if one else f"REFUSED IN {len(lines)} LINES"
        return verdict if refused else f"{verdict.upper()}: {lines[-1] if lines else ''}", {}
    ours = load(target)
    if refused:
        return "READ, THOUGH BROKEN", {}
    if lines:
        return "READ, WITH CHATTER: " + lines[0], {}
    results = {p: None if r is None else difference(ours, r) if difference(ours, r) is not None else 999
               for p, r in others(name, reference if isinstance(reference, pathlib.Path) else file, folder / "other.png").items()}
    told = [d for d in results.values() if d is not None]
    if seen is not None:
        off = difference(ours, seen)
        right = off is not None and off <= near
        return ("right" if right else f"WRONG by {off}"), results
    right = any(d <= near for d in told)
    return ("right" if right else "WRONG"), results


def write(path, table):
    """The table of all kinds."""
    lines = ["# Kinds of picture files", "",
             "What `kelu-cli` makes of each kind of file that people have, written by `bench/picture_kinds.py`: *right* when its pixels are",
             "those that the file was made from, or what two other programs see; *refused* with",
             "status 1 and one line on standard error.",
             "The figures are mean differences in levels of 255, over red, green, blue and alpha, from each of the other programs; they",
             "differ among themselves where their versions do not know a kind, and take no notice of profiles here: the right colours of",
             "those kinds come from littleCMS, by ImageMagick or Pillow. Debian 12, 150 x 100 pixels.", "", "| Format | Kind | Kelu | Others |", "|---|---|---|---|"]
    lines += ["| " + " | ".join(cell.replace("|", "/") for cell in row) + " |" for row in table]
    count = lambda verdict: sum(row[2] == verdict for row in table)
    other = len(table) - count("right") - count("refused")
    lines += ["", f"{len(table)} kinds: {count('right')} right, {count('refused')} refused, {other} wrong, {count('CRASHES')} crashes, {count('HANGS')} hangs."]
    pathlib.Path(path).write_text("\n".join(lines) + "\n")


def write_samples(path, kinds):
    """Format, kind, tolerance, width, file and pixels (blue, green, red, alpha) of the kinds that are small and known exactly;
    both packed as qCompress does, in base 64."""
    lines = []
    for name, kind, file, seen, refused, near, _ in kinds:
        if refused or seen is None or near > 2 or file.stat().st_size > 3000 or name == "JPEG" or "profile" in kind and name != "TIFF":
            continue
        held = (file.read_bytes(), np.ascontiguousarray(seen[..., [2, 1, 0, 3]]).astype("u1").tobytes())
        texts = [base64.b64encode(struct.pack(">I", len(b)) + zlib.compress(b, 9)).decode() for b in held]
        lines.append("\t".join((name, kind, str(near), str(seen.shape[1]), *texts)))
    pathlib.Path(path).write_text("\n".join(lines) + "\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("cli", nargs="?")
    parser.add_argument("--samples")
    parser.add_argument("--write")
    parser.add_argument("--only", default="")
    parser.add_argument("--keep")
    arguments = parser.parse_args()
    folder = pathlib.Path(arguments.keep or tempfile.mkdtemp())
    folder.mkdir(exist_ok=True)
    table, bad = [], 0
    kinds = Kinds(folder).all
    if arguments.samples:
        return write_samples(arguments.samples, kinds)
    for kind in kinds:
        if arguments.only not in f"{kind[0]} {kind[1]}":
            continue
        verdict, results = examine(arguments.cli, kind, folder)
        bad += verdict not in ("right", "refused")
        tell = lambda d: "refuses" if d is None else "other size" if d == 999 else f"{d:.1f}"
        table.append((kind[0], kind[1], verdict, ", ".join(f"{p} {tell(d)}" for p, d in results.items())))
        if verdict not in ("right", "refused") or arguments.only:
            print(" | ".join(table[-1]), pathlib.Path(kind[2]).name, flush=True)
    print(f"{len(table)} kinds, {bad} not as they should be")
    if arguments.write:
        write(arguments.write, table)
    if not arguments.keep:
        shutil.rmtree(folder)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
