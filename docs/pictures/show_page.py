#!/usr/bin/python3
"""Photographs the page that `rasterplan view` has made, in headless Chromium.

    show_page.py PAGE.html PICTURE.png EAST NORTH UP

The eye looks from the direction (EAST, NORTH, UP) at all pictures. What stands in the middle of the window is clicked
on, so that the page says what it knows of it.
"""

import shutil
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "view"))
sys.dont_write_bytecode = True
from browser import Browser  # noqa: E402

WIDTH, HEIGHT = 1500, 940
# The view is fitted to the frames, of which the upper halves are empty.
ZOOM, LOWER = 1.22, 0.06
COLOURS = 240


def look(browser, towards):
    x, y, z = towards
    browser.value(f"""{{
        const towards = new THREE.Vector3({x}, {y}, {z}).normalize();
        const right = new THREE.Vector3(0, 0, 1).cross(towards).normalize();
        const up = towards.clone().cross(right);
        camera.fit(points, towards, up);
        const distance = camera.distance / {ZOOM};
        camera.look(camera.target.clone().addScaledVector(up, -{LOWER} * distance), towards, up, distance);
        askToDraw();
    }}""")
    browser.settle()


def main(page, picture, *towards):
    with Browser(shutil.which("chromium"), Path(page).resolve().as_uri()) as browser:
        browser.ask("Emulation.setDeviceMetricsOverride", width=WIDTH, height=HEIGHT, deviceScaleFactor=1, mobile=False)
        browser.value("Promise.all([...document.images].map(image => image.decode())).then(() => 1)")
        look(browser, [float(part) for part in towards])
        browser.click(WIDTH / 2, HEIGHT / 2)
        # Pictures are painted some frames after they are decoded.
        browser.value("new Promise(done => setTimeout(() => done(1), 3000))")
        screen = browser.screen()
    screen.quantize(COLOURS, dither=0).save(picture, optimize=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
