#!/usr/bin/python3
"""The page that shows a drawing, in a browser.

    view_test.py TEST RASTERPLAN CHROMIUM [--alone]     runs one of the tests below

With --alone the program stands in a network of its own, which it brings up as far as talking to its own browser."""

import fcntl
import re
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
from browser import Browser  # noqa: E402
from marked_site import (GABLE, PICTURES, PIXELS, PLAN, ROOF, WALL, above, front, overview,  # noqa: E402
                         write_site)


def expect(holds, text):
    if not holds:
        raise AssertionError(text)


def expect_near(found, wanted, what, tolerance=1.0):
    expect(found and max(abs(f - w) for f, w in zip(found, wanted)) <= tolerance, f"{what}: {found} and not {wanted}")


def mark_in(screen, color):
    """The middle of what has a color."""
    width, height = screen.size
    pixels = screen.load()
    found = [(x, y) for y in range(height) for x in range(width)
             if all(abs(a - b) < 40 for a, b in zip(pixels[x, y], color))]
    return found and tuple(sum(axis) / len(found) + 0.5 for axis in zip(*found))


class Session:
    """A site, its page and a browser that shows it."""

    def __init__(self, program, chromium, options=(), without=()):
        self.folder = Path(tempfile.mkdtemp(prefix="view test ü "))
        self.chromium = chromium
        self.browser = self.stage = None
        drawing = write_site(program, self.folder)
        for picture in without:
            (self.folder / picture.name).unlink()
        subprocess.run([program, "view", drawing, *options], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)

    def __enter__(self):
        self.browser = Browser(self.chromium, (self.folder / "site.html").as_uri())
        self.browser.wait("[...document.images].every(image => image.complete)")
        self.browser.settle()
        box = self.browser.value("document.getElementById('stage').getBoundingClientRect().toJSON()")
        self.stage = [box[key] for key in ("left", "top", "width", "height")]
        return self

    def __exit__(self, *_):
        self.browser.close()
        shutil.rmtree(self.folder)

    def expect_marks(self, view, pictures, name):
        screen = self.browser.screen()
        for picture in PICTURES:
            found = mark_in(screen, picture.color)
            if picture in pictures:
                expect_near(found, view.place(picture.mark_point()), f"{name}, mark of {picture.name}")
            else:
                expect(not found, f"{name}: the mark of {picture.name} is seen")

    def text(self, selector):
        return self.browser.value(f"document.querySelector({selector!r}).innerText")

    def answers(self):
        return self.browser.value("Object.fromEntries([...document.querySelectorAll('#answer dt')]"
                                  ".map(term => [term.innerText, term.nextSibling.innerText]))")


def marks(session):
    """The marks are where they are computed to be, in every kind of view, and the console stays empty."""
    browser, stage = session.browser, session.stage
    session.expect_marks(overview(stage), PICTURES, "overview")
    browser.key("1")
    session.expect_marks(above(stage), [PLAN, ROOF], "above")
    for picture in PICTURES:
        browser.key("w")
        view = front(stage, picture)
        found = mark_in(browser.screen(), picture.color)
        expect_near(found, view.place(picture.mark_point()), f"front of {picture.name}")
    browser.key("0")
    session.expect_marks(overview(stage), PICTURES, "overview again")
    browser.click_on("#above")
    session.expect_marks(above(stage), [PLAN, ROOF], "above again")
    expect(not browser.complaints, f"on the console: {browser.complaints}")
    expect(all(re.match("file:|data:", request) for request in browser.requests), f"asked for: {browser.requests}")


def viewport(session):
    """The viewport is the drawing's: its target is in the middle, its height fits."""
    browser, (left, top, width, height) = session.browser, session.stage
    lines = (session.folder / "site.dxf").read_text(encoding="utf-8").split("\n")
    pairs = [(code.strip(), value.strip()) for code, value in zip(lines[::2], lines[1::2])]
    start = pairs.index(("0", "VPORT"))
    port = dict(pairs[start + 1:pairs.index(("0", "ENDTAB"), start)])
    target = [float(port[code]) for code in ("17", "27", "37")]
    # The first picture's plane, where the twist is a quarter turn: the picture's side stands upright.
    expect(port["51"].startswith("-90.0") or port["51"].startswith("90.0"), f"another twist: {port['51']}")
    browser.key("2")
    place = mark_in(browser.screen(), WALL.color)
    expect(place is not None and abs(place[0] - left - width / 2) < width / 2, "the first picture is not seen")
    scale = min(height / float(port["40"]), width / (float(port["40"]) * float(port["41"])))
    offset = [sum((m - t) * a for m, t, a in zip(WALL.mark_point(), target, axis)) for axis in (WALL.u, WALL.v)]
    turn = -1 if port["51"].startswith("-") else 1
    middle = (left + width / 2, top + height / 2)
    expect_near(place, (middle[0] - turn * offset[1] * scale, middle[1] - turn * offset[0] * scale), "viewport")


def answers(session):
    """A click names a picture, two clicks measure, frames go on and off."""
    browser, stage = session.browser, session.stage
    browser.click(*overview(stage).place(ROOF.mark_point()))
    expect(session.text("#answer h2") == ROOF.name, session.text("#answer h2"))
    expect(session.answers() == {"File": "roof.png", "Size": "4 m × 2.4 m", "Pixels": "200 × 120",
                                 "Pixel size": "0.02 m", "Angle to the vertical": "50.00°"}, session.answers())
    browser.click(*overview(stage).place(WALL.mark_point()))
    expect(session.answers()["File"] == WALL.name, session.answers())
    expect(session.answers()["Angle to the vertical"] == "0.00°", session.answers())
    browser.key("Escape")
    expect(browser.value("document.getElementById('answer').hidden"), "Esc leaves the answer open")

    browser.key("w")
    view = front(stage, WALL)
    browser.key("m")
    browser.click(*(view.place(WALL.corners()[0])[0] + 3, view.place(WALL.corners()[0])[1] - 3))
    expect(session.answers() == {"At": "4468215.842, 5333642.029, 510.340"}, session.answers())
    browser.click(*(view.place(WALL.corners()[2])[0] - 3, view.place(WALL.corners()[2])[1] + 3))
    expect(session.text("#answer h2") == "4.66476 m", session.text("#answer h2"))
    expect(session.answers()["Level"] == "4 m" and session.answers()["Upright"] == "2.4 m", session.answers())
    points = [view.place(WALL.point(50, 60)), view.place(WALL.point(150, 60))]
    for point in points:
        browser.click(*point)
    expect(abs(float(session.text("#answer h2").split()[0]) - 2) < 0.02, session.text("#answer h2"))
    browser.key("m")

    edge = view.place(WALL.point(0, 30))  # no line of the drawing but the frame
    around = lambda: min(browser.screen().getpixel((round(edge[0]) + dx, round(edge[1])))[0] for dx in (-1, 0))
    with_frames = around()
    browser.key("f")
    expect(around() > with_frames + 40, f"frames: {with_frames}, without {around()}")


def moves(session):
    """Mouse, wheel, keys and fingers do what the help says."""
    browser, stage = session.browser, session.stage
    browser.key("w")
    place = front(stage, WALL).place(WALL.mark_point())
    browser.drag((300, 300), (240, 340), button="right")
    place = (place[0] - 60, place[1] + 40)
    expect_near(mark_in(browser.screen(), WALL.color), place, "moved by the mouse")
    browser.key("ArrowRight", shift=True)
    place = (place[0] - 40, place[1])
    expect_near(mark_in(browser.screen(), WALL.color), place, "moved by a key")
    browser.mouse("mouseWheel", *place, deltaX=0, deltaY=-200)
    browser.settle()
    expect_near(mark_in(browser.screen(), WALL.color), place, "zoomed at the mark")
    scale = browser.value("camera.pixelsPerUnit")
    browser.key("+")
    expect(abs(browser.value("camera.pixelsPerUnit") / scale - 1.25) < 1e-9, "the key does not zoom")

    browser.key("w")
    for turn in [lambda: browser.drag((300, 300), (360, 330)), lambda: browser.key("ArrowLeft"),
                 lambda: browser.key("ArrowUp"), lambda: touch(browser, (300, 300), (350, 300))]:
        before = browser.value("camera.towards.toArray()")
        turn()
        browser.settle()
        after = browser.value("camera.towards.toArray()")
        expect(sum(a * b for a, b in zip(before, after)) < 0.999, "not turned")
    expect(browser.value("Math.abs(new THREE.Vector3(1, 0, 0).applyQuaternion(camera.lens().quaternion).z)") < 1e-9,
           "what was upright leans")
    browser.key("0")
    touch(browser, overview(stage).place(GABLE.mark_point()), overview(stage).place(GABLE.mark_point()))
    expect(session.text("#answer h2") == GABLE.name, session.text("#answer h2"))
    expect(not browser.complaints, f"on the console: {browser.complaints}")


def touch(browser, start, end):
    for kind, points in [("touchStart", [start]), ("touchMove", [end]), ("touchEnd", [])]:
        if kind != "touchMove" or start != end:
            browser.ask("Input.dispatchTouchEvent", type=kind, touchPoints=[{"x": x, "y": y} for x, y in points])
    browser.settle()


def missing(session):
    """A missing picture is a hatched frame with its name, in its place."""
    browser = session.browser
    browser.wait("document.querySelector('.missing') !== null")
    expect(browser.value("[...document.querySelectorAll('.missing')].map(each => each.innerText).join()") == WALL.name,
           "another name")
    expect(all("ERR_FILE_NOT_FOUND" in text for text in browser.complaints), browser.complaints)
    browser.key("w")
    view = front(session.stage, WALL)
    screen = browser.screen()
    (left, bottom), (right, top) = view.place(WALL.point(4, 4)), view.place(WALL.point(PIXELS[0] - 4, PIXELS[1] - 4))
    row = [screen.getpixel((x, round(bottom) - 8))[0] < 200 for x in range(round(left), round(right))]
    changes = sum(before != after for before, after in zip(row, row[1:]))
    expect(changes > 20 and top < bottom, f"no hatching: {changes} changes of shade")


def unchanged(session):
    """Nothing but the page: the overview with every mark, and no request for anything else."""
    session.expect_marks(overview(session.stage), PICTURES, "overview")
    expect(not session.browser.complaints, f"on the console: {session.browser.complaints}")


def bring_loopback_up():
    with socket.socket() as any_socket:
        up = 1
        fcntl.ioctl(any_socket, 0x8914, struct.pack("16sh14x", b"lo", up))  # SIOCSIFFLAGS


def embedded(session):
    """With the pictures in the page it needs no other file."""
    for picture in PICTURES:
        (session.folder / picture.name).unlink()
    session.browser.open((session.folder / "site.html").as_uri())
    session.browser.wait("[...document.images].every(image => image.complete)")
    unchanged(session)
    expect(all(request.startswith("data:") or request.endswith("/site.html") for request in session.browser.requests),
           f"asked for: {[request[:60] for request in session.browser.requests]}")


TESTS = {
    "marks": (marks, {}),
    "viewport": (viewport, {}),
    "answers": (answers, {}),
    "moves": (moves, {}),
    "missing": (missing, {"without": [WALL]}),
    "embedded": (embedded, {"options": ["--embed"]}),
    "without_network": (unchanged, {}),
}


def main(name, program, chromium, *options):
    if "--alone" in options:
        bring_loopback_up()
    test, setting = TESTS[name]
    with Session(program, chromium, **setting) as session:
        test(session)


if __name__ == "__main__":
    main(*sys.argv[1:])
