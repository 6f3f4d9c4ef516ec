#!/usr/bin/env python3
"""Draws the artwork of the example projects: every image at the size that its option asks for.

Run it anywhere; it writes below its own directory and always draws the same pictures.
"""

import random
import struct
import zlib
from pathlib import Path

HERE = Path(__file__).resolve().parent

# The option that names an image in the project is the image's file name as well.
IOS_IMAGES = {
    **{f"iPhone_AppIcon{size}": (size, size) for size in (57, 60, 87, 114, 120, 180)},
    **{f"iPhone_Spotlight{size}": (size, size) for size in (29, 40)},
    **{f"iPone_Spotlight{size}": (size, size) for size in (58, 80)},
    **{f"iPad_AppIcon{size}": (size, size) for size in (72, 76, 144, 152)},
    **{f"iPad_SpotLight{size}": (size, size) for size in (40, 50, 80, 100)},
    **{f"iPad_Setting{size}": (size, size) for size in (29, 58)},
    **{f"iOS_AppStore{size}": (size, size) for size in (512, 1024)},
    "iPhone_Launch320": (320, 480),
    "iPhone_Launch640": (640, 960),
    "iPhone_Launch640x1136": (640, 1136),
    "iPhone_Launch750": (750, 1334),
    "iPhone_Launch1242": (1242, 2208),
    "iPhone_Launch2208": (2208, 1242),
    "iPad_Launch768": (768, 1004),
    "iPad_Launch1024": (1024, 748),
    "iPad_Launch1536": (1536, 2008),
    "iPad_Launch2048": (2048, 1496),
    "iPad_Launch768x1024": (768, 1024),
    "iPad_Launch1024x768": (1024, 768),
    "iPad_Launch1536x2048": (1536, 2048),
    "iPad_Launch2048x1536": (2048, 1536),
}
ANDROID_ICONS = {f"Android_LauncherIcon{size}": (size, size) for size in (36, 48, 72, 96, 144)}
ANDROID_SPLASH = {
    "Android_SplashImage426": (426, 320),
    "Android_SplashImage470": (470, 320),
    "Android_SplashImage640": (640, 480),
    "Android_SplashImage960": (960, 720),
}

# Sixteen shades from the top of a picture to its bottom; the last one draws the foreground.
NIGHT = [(6 + shade, 10 + 2 * shade, 30 + 5 * shade) for shade in range(15)] + [(255, 250, 220)]
SEA = [(150 - 9 * shade, 205 - 7 * shade, 235 - 5 * shade) for shade in range(15)] + [(20, 40, 80)]
FOREGROUND = 15


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(rows, palette):
    """A PNG of eight bits per pixel from rows of palette indexes."""
    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 3, 0, 0, 0)
    colours = b"".join(bytes(colour) for colour in palette)
    pixels = zlib.compress(b"".join(b"\0" + bytes(row) for row in rows), 9)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"PLTE", colours)
            + chunk(b"IDAT", pixels) + chunk(b"IEND", b""))


def shaded_rows(width, height):
    return [bytearray([row * FOREGROUND // height]) * width for row in range(height)]


def starry_sky(width, height):
    rows = shaded_rows(width, height)
    places = random.Random(width * 10000 + height)
    radius = max(1, min(width, height) // 90)
    for _ in range(24):
        x = places.randrange(radius, width - radius)
        y = places.randrange(radius, height - radius)
        for row in rows[y - radius:y + radius]:
            row[x - radius:x + radius] = bytes([FOREGROUND]) * (2 * radius)
    return png(rows, NIGHT)


def rising_tide(width, height):
    rows = shaded_rows(width, height)
    for x in range(width):
        level = height * 5 // 8 - abs(x * 4 % (2 * width) - width) * height // (6 * width)
        for row in rows[level:level + max(1, height // 12)]:
            row[x] = FOREGROUND
    return png(rows, SEA)


def icns(images):
    """An icon of OS X: entries of a four-letter kind, each holding one PNG."""
    entries = b"".join(kind + struct.pack(">I", len(data) + 8) + data for kind, data in images)
    return b"icns" + struct.pack(">I", len(entries) + 8) + entries


def write(path, data):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def main():
    sky = HERE / "sky-chart" / "art"
    for name, size in IOS_IMAGES.items():
        write(sky / "ios" / f"{name}.png", starry_sky(*size))
    for name, size in {**ANDROID_ICONS, **ANDROID_SPLASH}.items():
        write(sky / "android" / f"{name}.png", starry_sky(*size))
    write(sky / "SkyChart.icns",
          icns([(b"ic07", starry_sky(128, 128)), (b"ic08", starry_sky(256, 256))]))
    for name, size in ANDROID_ICONS.items():
        write(HERE / "tide-logger" / "art" / f"{name}.png", rising_tide(*size))


if __name__ == "__main__":
    main()
