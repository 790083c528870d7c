# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What is seen in a picture of the screen: the tray icon, the popover, and what has changed."""
from PIL import Image, ImageChops

CUP = (0x4A, 0x8C, 0x38)  # the awake icon's green
LIGHT, DARK = (0xF5, 0xF1, 0xE9), (0x1F, 0x1F, 0x1C)  # the popover's ground
POPOVER = (340, 700)
PANEL = 64  # no panel is higher


def mask(picture, colour, tolerance):
    """White where the picture has that colour."""
    difference = ImageChops.difference(picture, Image.new("RGB", picture.size, colour)).split()
    worst = ImageChops.lighter(ImageChops.lighter(difference[0], difference[1]), difference[2])
    return worst.point(lambda value: 255 if value <= tolerance else 0)


def awake_icon(picture):
    """The middle of the green cup in a panel at the upper or lower edge; None where there is none."""
    width, height = picture.size
    for top in (0, height - PANEL):
        found = mask(picture.crop((0, top, width, top + PANEL)), CUP, 36)
        box = found.getbbox()
        if found.histogram()[255] >= 12 and box[2] - box[0] <= 40 and box[3] - box[1] <= 40:
            return (box[0] + box[2]) // 2, top + (box[1] + box[3]) // 2
    return None


def popover(picture, ground=LIGHT):
    """The box of the popover; None where there is none. Only the popover has a column of that height of its ground."""
    found = mask(picture, ground, 2)
    width, height = picture.size
    columns = [x for x in range(0, width, 2) if found.crop((x, 0, x + 1, height)).histogram()[255] > 380]
    if not columns:
        return None
    left, right = columns[0], columns[-1]
    rows = found.crop((left + 4, 0, left + 5, height)).getbbox()
    return (left, rows[1], right, rows[3]) if rows and right - left > POPOVER[0] - 30 else None


def changed(before, after):
    """The size of what has changed between two pictures."""
    difference = ImageChops.difference(before, after).convert("L").point(lambda value: 255 if value > 24 else 0)
    box = difference.getbbox()
    return (box[2] - box[0], box[3] - box[1]) if box else (0, 0)
