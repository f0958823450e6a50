#!/usr/bin/env python3
"""Draws the program's pictures with the standard library only.

    make_pictures.py OUTPUT_FOLDER

writes klickwerk.ico (the program icon: 16, 24, 32, 48 and 64 pixels, 32-bit
with alpha), grid_background.bmp (the step grid's tiled background, a
faint pattern of pointer arrows on a near-white ground, 24-bit), and the
keystroke-text editor's window picker: picker_full.ico (a window frame holding
a cross-hair target) and picker_empty.ico (the frame alone, shown while the
pointer carries the target), at 32, 48 and 64 pixels.
"""
import os
import struct
import sys

# The pointer arrow as a polygon in a unit square (x right, y down).
ARROW = [(0.30, 0.16), (0.30, 0.80), (0.44, 0.66), (0.54, 0.88),
         (0.63, 0.84), (0.53, 0.62), (0.72, 0.62)]
SUPERSAMPLING = 4


def inside_polygon(x, y, polygon):
    inside = False
    count = len(polygon)
    for i in range(count):
        x1, y1 = polygon[i]
        x2, y2 = polygon[(i + 1) % count]
        if (y1 > y) != (y2 > y):
            cross_x = x1 + (y - y1) * (x2 - x1) / (y2 - y1)
            if x < cross_x:
                inside = not inside
    return inside


def inside_rounded_square(x, y, margin, radius):
    low, high = margin + radius, 1.0 - margin - radius
    cx = min(max(x, low), high)
    cy = min(max(y, low), high)
    return (x - cx) ** 2 + (y - cy) ** 2 <= radius ** 2


def coverage(size, px, py, test):
    """Share of the sub-samples of pixel (px, py) for which test(x, y) holds."""
    hits = 0
    for sy in range(SUPERSAMPLING):
        for sx in range(SUPERSAMPLING):
            x = (px + (sx + 0.5) / SUPERSAMPLING) / size
            y = (py + (sy + 0.5) / SUPERSAMPLING) / size
            hits += test(x, y)
    return hits / SUPERSAMPLING ** 2


def blend(under, over, alpha):
    return tuple(round(u + (o - u) * alpha) for u, o in zip(under, over))


def icon_pixel(size, px, py):
    """RGBA of one icon pixel: a blue rounded tile with a white arrow."""
    tile = coverage(size, px, py, lambda x, y: inside_rounded_square(x, y, 0.04, 0.18))
    if tile == 0:
        return (0, 0, 0, 0)
    shade = py / max(size - 1, 1)
    ground = blend((52, 120, 214), (22, 70, 160), shade)
    outline = coverage(size, px, py, lambda x, y: inside_polygon(x - 0.02, y - 0.02, ARROW))
    arrow = coverage(size, px, py, lambda x, y: inside_polygon(x, y, ARROW))
    colour = blend(ground, (12, 36, 90), outline * 0.6)
    colour = blend(colour, (255, 255, 255), arrow)
    return colour + (round(255 * tile),)


def picker_pixel(size, px, py, with_target):
    """RGBA of one picker pixel: a light window frame, optionally a target."""
    frame = coverage(size, px, py, lambda x, y: inside_rounded_square(x, y, 0.04, 0.10))
    if frame == 0:
        return (0, 0, 0, 0)
    inner = coverage(size, px, py, lambda x, y: inside_rounded_square(x, y, 0.10, 0.05))
    colour = blend((70, 78, 96), (246, 248, 252), inner)
    if with_target:
        def on_target(x, y):
            distance = ((x - 0.5) ** 2 + (y - 0.5) ** 2) ** 0.5
            ring = 0.20 <= distance <= 0.27
            cross = (abs(x - 0.5) <= 0.035 or abs(y - 0.5) <= 0.035) and distance <= 0.36
            return ring or cross
        colour = blend(colour, (200, 40, 40), coverage(size, px, py, on_target))
    return colour + (round(255 * frame),)


def icon_image(size, pixel=icon_pixel):
    """One ICO image entry: BITMAPINFOHEADER, BGRA rows bottom-up, AND mask."""
    rows = []
    mask_rows = []
    mask_stride = ((size + 31) // 32) * 4
    for py in reversed(range(size)):
        row = bytearray()
        mask = bytearray(mask_stride)
        for px in range(size):
            r, g, b, a = pixel(size, px, py)
            row += bytes((b, g, r, a))
            if a == 0:
                mask[px // 8] |= 0x80 >> (px % 8)
        rows.append(bytes(row))
        mask_rows.append(bytes(mask))
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    return header + b"".join(rows) + b"".join(mask_rows)


def write_icon(path, sizes, pixel=icon_pixel):
    images = [icon_image(size, pixel) for size in sizes]
    data = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    for size, image in zip(sizes, images):
        data += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    with open(path, "wb") as out:
        out.write(data + b"".join(images))


def background_pixel(size, px, py):
    """A faint arrow in two corners of the tile, so tiles form a diagonal pattern."""
    ground = (251, 252, 254)
    ink = (242, 244, 249)
    half = size // 2
    for ox, oy in ((0, 0), (half, half)):
        local_x, local_y = (px - ox) % size, (py - oy) % size
        if local_x < half and local_y < half:
            amount = coverage(half, local_x, local_y, lambda x, y: inside_polygon(x, y, ARROW))
            if amount:
                return blend(ground, ink, amount)
    return ground


def write_bitmap(path, size):
    stride = (size * 3 + 3) // 4 * 4
    pixels = bytearray()
    for py in reversed(range(size)):
        row = bytearray()
        for px in range(size):
            r, g, b = background_pixel(size, px, py)
            row += bytes((b, g, r))
        pixels += row + bytes(stride - len(row))
    info = struct.pack("<IiiHHIIiiII", 40, size, size, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    file_header = struct.pack("<2sIHHI", b"BM", 14 + len(info) + len(pixels), 0, 0, 14 + len(info))
    with open(path, "wb") as out:
        out.write(file_header + info + pixels)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    write_icon(os.path.join(folder, "klickwerk.ico"), [16, 24, 32, 48, 64])
    write_bitmap(os.path.join(folder, "grid_background.bmp"), 96)
    for name, with_target in (("picker_full.ico", True), ("picker_empty.ico", False)):
        write_icon(os.path.join(folder, name), [32, 48, 64],
                   lambda size, px, py, target=with_target: picker_pixel(size, px, py, target))


if __name__ == "__main__":
    main()
