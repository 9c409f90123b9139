"""Memory, threads and files are given back, and shared as documented."""

import gc
import os
import resource
import threading
import unittest

import rasterplanwriter as rpw
from support import UPRIGHT, WALL, FolderTest, read, run, wall

MEGABYTE = 1 << 20


def resident():
    """The process's memory in bytes."""
    with open("/proc/self/statm", encoding="ascii") as pages:
        return int(pages.read().split()[1]) * resource.getpagesize()


class Resources(FolderTest):
    def test_nothing_of_10000_images_stays(self):
        # A path of 1000 characters takes 4000 bytes in the library: 38 MB if one copy of each stayed.
        def add_and_write():
            drawing = rpw.Drawing("drawing.dxf")
            for number in range(100):
                drawing.add(f"{number:01000}", **WALL)
            drawing.reference_plane()
            drawing.write_3d()
            drawing.write_2d(UPRIGHT)

        add_and_write()
        gc.collect()
        before, descriptors = resident(), os.listdir("/proc/self/fd")
        for _ in range(100):
            add_and_write()
        gc.collect()
        self.assertLess(resident() - before, 8 * MEGABYTE)
        self.assertEqual(len(os.listdir("/proc/self/fd")), len(descriptors))

    def test_nothing_of_10000_refused_images_stays(self):
        drawing = wall()
        refused = {**WALL, "left_top": (0, 0, 0)}

        def add(times):
            for number in range(times):
                with self.assertRaises(rpw.InvalidGeometry):
                    drawing.add(f"{number:01000}", **refused)

        add(100)
        before = resident()
        add(10000)
        self.assertLess(resident() - before, 8 * MEGABYTE)
        self.assertEqual(len(drawing), 1)

    def test_memory_that_runs_out(self):
        answer = run("""
import resource
import rasterplanwriter as rpw
corners = {"left_top": (0, 0, 3), "left_bottom": (0, 0, 0), "right_bottom": (5, 0, 0), "pixels_per_unit": 200}
drawing = rpw.Drawing("drawing.dxf")
path = "x" * 30_000_000
drawing.add(path, **corners)
with open("/proc/self/statm", encoding="ascii") as pages:
    used = int(pages.read().split()[0]) * resource.getpagesize()
answers = []
# Too little for the path in wide characters, then too little for one more copy of it.
for spare in (100, 200):
    resource.setrlimit(resource.RLIMIT_AS, (used + (spare << 20), resource.RLIM_INFINITY))
    for call in (lambda: drawing.add(path, **corners), drawing.reference_plane, drawing.write_3d):
        try:
            call()
            answers.append("done")
        except MemoryError as error:
            answers.append(f"{type(error).__name__}: {str(error).rpartition(': ')[2]}")
resource.setrlimit(resource.RLIMIT_AS, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))
print(*answers, len(drawing), sep="\\n")
""")
        failure = "UnexpectedFailure: out of memory; write fewer images in one drawing"
        self.assertEqual(answer.splitlines(), [failure] * 6 + ["1"])

    def test_other_threads_run_and_add_images_while_a_file_is_written(self):
        # The drawing is longer than what a pipe holds: the write waits for its reader, and so for ever if it kept
        # others from running.
        answer = run("""
import os, threading
import rasterplanwriter as rpw
corners = {"left_top": (0, 0, 3), "left_bottom": (0, 0, 0), "right_bottom": (5, 0, 0), "pixels_per_unit": 200}
drawing = rpw.Drawing("drawing.dxf")
for number in range(100):
    drawing.add("wall.png", **corners)
os.mkfifo("pipe")
for write in (drawing.write_3d, lambda path: drawing.write_2d(rpw.Plane((0, 0, 0), (1, 0, 0), (0, 0, 1)), path)):
    writer = threading.Thread(target=write, args=("pipe",))
    writer.start()
    with open("pipe", "rb") as pipe:
        drawing.add("later.png", **corners)
        piped = pipe.read()
    writer.join()
    print(len(drawing), len(piped) > 1 << 17, piped.count(b"later.png"))
""")
        self.assertEqual(answer, "101 True 0\n102 True 2\n")

    def test_threads_write_one_drawing_to_many_files(self):
        drawing = rpw.Drawing("drawing.dxf")
        for number in range(50):
            drawing.add(f"wall-{number}.png", **WALL)
        drawing.write_3d()
        names = [f"{number}.dxf" for number in range(16)]
        threads = [threading.Thread(target=drawing.write_3d, args=(name,)) for name in names]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual({read(name) for name in names}, {read("drawing.dxf")})


if __name__ == "__main__":
    unittest.main()
