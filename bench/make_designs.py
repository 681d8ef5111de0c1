#!/usr/bin/env python3
"""Makes a home with many custom designs, for measurements: make_designs.py DIR COUNT [KILOBYTES].

Each design has about 10 KB of HTML, or as much as said, a small PNG thumbnail and an XML Info.plist,
all different and the same from run to run. DIR must not exist.
"""
import plistlib
import random
import struct
import sys
import zlib
from pathlib import Path

DESIGNS = "Library/Containers/com.quillbyte.lotbook9/Data/Library/Application Support/Lotbook/DesignTemplates"
STYLES = ["Linen", "Harbour", "Atelier", "Workshop", "Meadow", "Copper", "Paper", "Lantern"]
GOODS = ["Antiques", "Cameras", "Toys", "Records", "Fabrics", "Tools", "Books", "Watches"]
WORDS = ("shipped within two days from our shop fully tested original box condition see pictures "
         "returns accepted fourteen days combined postage available please ask before bidding").split()


def sentence(chance):
    return " ".join(chance.choices(WORDS, k=chance.randint(8, 20))).capitalize() + "."


def rows(chance, size):
    result = ""
    while len(result) < size:
        result += (f'<tr><td class="label">{chance.choice(WORDS).capitalize()}</td>'
                   f'<td><p>{sentence(chance)} {sentence(chance)}</p></td></tr>\n')
    return result


def html(number, title, size, chance):
    return f"""<!-- {title} -->
<style type="text/css">
.design{number} {{ font: 14px/1.5 Helvetica, Arial, sans-serif; color: #{chance.randrange(1 << 24):06x}; }}
.design{number} td {{ padding: {chance.randint(2, 12)}px; vertical-align: top; }}
</style>
<div class="design{number}"><h1>[[title]]</h1>
<img src="https://img.example.com/{number}/header.jpg" alt="">
[[if LBLayoutEnabled_One_Column or LBLayoutNotDefined]]
<table width="100%">{rows(chance, size // 2 - 300)}</table>
[[endif]][[if LBLayoutEnabled_Two_Columns]]
<table width="50%">{rows(chance, size // 2 - 300)}</table>
[[endif]]
<p>[[description]] &copy; Müller &amp; Söhne</p></div>
""".encode()


def png(chance, side=64):
    """Stripes with some noise: compresses as a picture does, not as a flat colour."""
    rows = []
    for y in range(side):
        base = [chance.randrange(256) for _ in range(3)]
        row = b"".join(bytes((c + chance.randrange(8) * (x % 7 == 0)) & 255 for c in base) for x in range(side))
        rows.append(b"\0" + row)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(b"".join(rows))) + chunk(b"IEND", b""))


def make_design(folder, number, size, pictures):
    chance = random.Random(number)
    title = f"{chance.choice(STYLES)} {chance.choice(GOODS)} {number:05d}"
    bundle = folder / f"{title}.designTemplate"
    bundle.mkdir()
    (bundle / "body.html").write_bytes(html(number, title, size, chance))
    (bundle / "thumbnail.png").write_bytes(chance.choice(pictures))
    with open(bundle / "Info.plist", "wb") as file:
        plistlib.dump({
            "CFBundleInfoDictionaryVersion": "6.0",
            "CFBundleName": title,
            "CFBundleIdentifier": f"com.myserver.{title.lower().replace(' ', '-')}",
            "CFBundleVersion": "1.0",
            "LBKeywords": chance.sample([*STYLES, *GOODS], 3),
            "LBRemoteDirectory": "",
            "LBRemoteResources": [f"https://img.example.com/{number}/header.jpg"],
        }, file)


def main():
    numbers = [int(text) for text in sys.argv[2:] if text.isdigit()]
    if len(numbers) != len(sys.argv) - 2 or len(numbers) not in (1, 2):
        sys.exit("usage: make_designs.py DIR COUNT [KILOBYTES]")
    count, kilobytes = (numbers + [10])[:2]
    home = Path(sys.argv[1])
    if home.exists():
        sys.exit(f"{home} is there already")
    folder = home / DESIGNS
    folder.mkdir(parents=True)
    pictures = [png(random.Random(number)) for number in range(50)]
    for number in range(count):
        make_design(folder, number, kilobytes * 1024, pictures)


if __name__ == "__main__":
    main()
