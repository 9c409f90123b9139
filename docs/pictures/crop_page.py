#!/usr/bin/python3
"""Cuts the empty paper off a page, halves its size, which smooths it, and stores it with few colours."""

import sys

from PIL import Image, ImageChops

from render_drawing import PAPER, save

EDGE = 12

if __name__ == "__main__":
    page = Image.open(sys.argv[1]).convert("RGB")
    box = ImageChops.difference(page, Image.new("RGB", page.size, PAPER)).getbbox()
    if not box:
        raise SystemExit(f"{sys.argv[1]} is empty")
    drawing = page.crop(box).reduce(2)
    sheet = Image.new("RGB", (drawing.width + 2 * EDGE, drawing.height + 2 * EDGE), PAPER)
    sheet.paste(drawing, (EDGE, EDGE))
    save(sheet, sys.argv[2])
