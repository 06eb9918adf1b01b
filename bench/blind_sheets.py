#!/usr/bin/env python3
# Pairs of renders side by side in random order, to be judged by eyes that don't know which is which.
#     blind_sheets.py PHOTO_FOLDER TARGET_FOLDER KELU_CLI --old OTHER_KELU_CLI [--effects N...]     two versions of ours
#     blind_sheets.py PHOTO_FOLDER TARGET_FOLDER KELU_CLI --peers [--effects N...]                  beside other programs
# Writes a sheet for each effect and photograph, A on the left and B on the right, and key.json, which tells on which
# side ours (the new one) stands. Needs Pillow; for the peers ImageMagick, G'MIC and GEGL.
# SPDX-License-Identifier: MIT
import argparse
import json
import pathlib
import random
import shlex
import subprocess
import tempfile

from PIL import Image, ImageDraw

WIDTH, GAP, TITLE = 690, 20, 26  # pixels of a sheet
SIZES = {"small": 1.5e6, "large": 12e6}  # pixels of a photograph

AT_EDGES = {21, 23, 27}  # their 1:1 part is the upper left corner

# What other programs call by that name, or the best that can be put together from their operations: a line of
# ImageMagick's convert between IN and OUT, of gmic, or of gegl.
PEERS = {
    1: "convert -colorspace Gray", 2: "convert -sepia-tone 80%", 3: "convert -colorspace Gray -threshold 62.7%",
    4: "convert -colorspace Gray -dither FloydSteinberg -monochrome", 5: "gmic -noise 30 -cut 0,255",
    6: "gegl antialias", 7: "gegl cubism tile-size=10", 8: "convert -gaussian-blur 0x2",
    9: "gegl motion-blur-zoom center-x=0.5 center-y=0.5 factor=0.04", 10: "gegl motion-blur-circular angle=1.44",
    11: "convert -evaluate Add 35%", 12: "gegl vignette radius=1.0 softness=1.0 gamma=1.5", 13: "convert -brightness-contrast 0x75",
    14: "convert ( +clone -fill white -colorize 100 -colorspace HSL -channel R -fx atan2(j-h/2,i-w/2)/(2*pi)+0.5 "
        "-channel G -evaluate set 100% -channel B -evaluate set 50% +channel -colorspace sRGB ) -compose Colorize "
        "-composite",
    15: "convert -level-colors #2f2f2f,#fffff3", 16: "convert -emboss 0x1", 17: "convert -colorspace Gray -fill red -tint 100",
    18: "convert -colorspace Gray +level-colors #141400,#c86432", 19: "convert -sharpen 0x1",
    20: "convert -colorspace Gray -shade 135x45", 21: "gmic -frame_fuzzy 20,20,10,1,255,255,255,255",
    22: "convert -implode -0.6", 23: "convert -alpha set -virtual-pixel transparent -channel A -blur 0x15 -level 50%,100% +channel "
        "-background white -flatten", 24: "gegl spherize mode=radial angle-of-view=90 amount=1 curvature=1",
    25: "convert -morphology Convolve 3x3:-1,-1,-1,-1,9,-1,-1,-1,-1", 26: "convert -implode 0.3",
    27: "gmic -frame_fuzzy 20,20,10,1,255,255,255,255", 28: "gmic -dilate_circ 61", 29: "gmic -erode_circ 61",
    30: "gegl noise-slur pct-random=60 repeat=20", 31: "convert -scale 10% -scale 1000%", 32: "convert -negate",
    33: "convert -paint 5", 34: "convert +dither -posterize 4", 35: "convert -flop", 36: "convert -modulate 100,200",
    37: "convert ( +clone -colorspace Gray ) ( -size WxH radial-gradient:black-white ) -compose Over -composite",
    38: "convert -spread 50", 39: "convert -solarize 55%",
    40: "convert -bias 50% -morphology Convolve 3x3:0,-1,0,-1,4,-1,0,-1,0", 41: "gmic -sketchbw 1",
    42: "convert -spread 15", 43: "convert -separate -swap 0,1 -combine",
    44: "gegl tile-glass tile-width=100 tile-height=100", 45: "convert ( +clone -fill #ff64ff -colorize 100 ) -compose Multiply "
    "-composite", 46: "convert -blue-shift 1.3 -sharpen 0x2", 47: "gegl wind strength=40",
    48: "gegl edge-neon radius=5 amount=0.5",
}


def peer_command(number, source, target):
    words = shlex.split(PEERS[number])
    if words[0] == "convert":
        width, height = Image.open(source).size
        words = [word.replace("WxH", f"{width}x{height}") for word in words]
        return ["convert", str(source), *words[1:], str(target)]
    if words[0] == "gmic":
        return ["gmic", str(source), *words[1:], "-cut", "0,255", "-output", str(target)]
    return ["gegl", str(source), "-o", str(target), "--", "gegl:" + words[1], *words[2:]]


def prepare(photos, folder):
    """The photographs in both sizes, as BMP: {name: {size: path}}."""
    made = {}
    for path in sorted(photos.glob("*.jpg")):
        made[path.stem] = {}
        for size, pixels in SIZES.items():
            out = folder / f"{path.stem}-{size}.bmp"
            made[path.stem][size] = out
            if out.exists():
                continue
            picture = Image.open(path).convert("RGB")
            scale = (pixels / (picture.width * picture.height)) ** 0.5
            picture.resize((round(picture.width * scale), round(picture.height * scale)), Image.LANCZOS).save(out)
    return made


def inputs_of(cli):
    effects = json.loads(subprocess.run([cli, "effects", "--json"], check=True, capture_output=True).stdout)
    return {effect["number"]: effect for effect in effects}


def options(effect, values, source):
    words = [word for name, value in values.items() for word in ("--" + name, str(value))]
    if any(item["option"] == "x" for item in effect["inputs"]):
        width, height = Image.open(source).size
        words += ["--x", str(width // 2), "--y", str(height // 2)]
    return words


def render(cli, effect, values, source, folder):
    """Ours."""
    name = "-".join([source.stem, str(effect["number"]), *(f"{k}{v}" for k, v in values.items())]) + ".bmp"
    out = folder / name
    subprocess.run([cli, "apply", str(effect["number"]), *options(effect, values, source), str(source), str(out)],
                   check=True, stdout=subprocess.DEVNULL)
    picture = Image.open(out).convert("RGB")
    out.unlink()
    return picture


def whole(picture, width=WIDTH):
    return picture.resize((width, round(picture.height * width / picture.width)), Image.LANCZOS)


def part(picture, number, height=300):
    """At 1:1, from the middle or a corner."""
    left, top = (0, 0) if number in AT_EDGES else ((picture.width - WIDTH) // 2, (picture.height - height) // 2)
    return picture.crop((left, top, left + WIDTH, top + height))


def beside(pictures):
    row = Image.new("RGB", (sum(p.width for p in pictures), max(p.height for p in pictures)), "white")
    x = 0
    for picture in pictures:
        row.paste(picture, (x, 0))
        x += picture.width
    return row


def column(rows):
    strip = Image.new("RGB", (WIDTH, sum(row.height + 6 for row in rows)), "white")
    y = 0
    for row in rows:
        strip.paste(row, (0, y))
        y += row.height + 6
    return strip


def sheet(left, right, path):
    page = Image.new("RGB", (2 * WIDTH + GAP, TITLE + left.height), "white")
    page.paste(left, (0, TITLE))
    page.paste(right, (WIDTH + GAP, TITLE))
    draw = ImageDraw.Draw(page)
    draw.text((8, 6), "A", fill="black")
    draw.text((WIDTH + GAP + 8, 6), "B", fill="black")
    page.save(path, quality=90)


def version_column(cli, effect, photo, folder):
    rows = [whole(render(cli, effect, {}, photo["large"], folder)),
            part(render(cli, effect, {}, photo["small"], folder), effect["number"])]
    slider = next((item for item in effect["inputs"] if item["option"] == "s1"), None)
    if slider:
        ends = [render(cli, effect, {"s1": slider[end]}, photo["small"], folder) for end in ("min", "max")]
        rows.append(beside([whole(end, WIDTH // 2) for end in ends]))
    return column(rows)


def plain_column(picture, number):
    return column([whole(picture), part(picture, number)])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("photos", type=pathlib.Path)
    parser.add_argument("target", type=pathlib.Path)
    parser.add_argument("cli")
    parser.add_argument("--old")
    parser.add_argument("--peers", action="store_true")
    parser.add_argument("--seed", type=int)
    parser.add_argument("--effects", nargs="+", type=int)
    given = parser.parse_args()
    chance = random.Random(given.seed)
    sheets = given.target / "sheets"
    sheets.mkdir(parents=True, exist_ok=True)
    key_file = given.target / "key.json"
    key = json.loads(key_file.read_text()) if key_file.exists() else {}
    photos = prepare(given.photos, given.target)
    names = sorted(photos)
    effects = inputs_of(given.cli)
    with tempfile.TemporaryDirectory() as scratch:
        scratch = pathlib.Path(scratch)
        for number in given.effects or sorted(effects):
            effect = effects[number]
            # Beside other programs two photographs an effect must do, all in their turn.
            chosen = names if given.old else [names[number % len(names)], names[(number + 3) % len(names)]]
            for name in chosen:
                label = f"{number:02}-{effect['name'].replace(' ', '_').replace('&', 'and')}-{name}"
                try:
                    if given.old:
                        ours = version_column(given.cli, effect, photos[name], scratch)
                        theirs = version_column(given.old, effect, photos[name], scratch)
                    else:
                        source, out = photos[name]["small"], scratch / "peer.png"
                        ours = plain_column(render(given.cli, effect, {}, source, scratch), number)
                        subprocess.run(peer_command(number, source, out), check=True, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.PIPE)
                        theirs = plain_column(Image.open(out).convert("RGB"), number)
                except subprocess.CalledProcessError as failure:
                    print(f"{label}: {(failure.stderr or b'').decode()[-300:]}")
                    continue
                first = chance.random() < 0.5
                sheet(*((ours, theirs) if first else (theirs, ours)), sheets / f"{label}.jpg")
                key[label] = "A" if first else "B"
                key_file.write_text(json.dumps(key, indent=1, sort_keys=True))
            print(number, effect["name"], flush=True)


if __name__ == "__main__":
    main()
