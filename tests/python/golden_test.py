"""The bytes are those of a C++ host."""

import unittest

import scene
from support import GOLDEN, FolderTest, package_copy, read, run

# Its drawing holds the records of two writes, which no file of this package does.
ONE_FILE_WRITTEN_TWICE = "second-write"


class Golden(FolderTest):
    def test_scenes_give_the_bytes_of_a_host(self):
        played = 0
        for path in sorted(GOLDEN.glob("*.scene")):
            if path.with_suffix(".template").exists() or path.stem == ONE_FILE_WRITTEN_TWICE:
                continue
            with self.subTest(path.stem):
                self.assertEqual(len(list(scene.play(path, "drawing.dxf"))), 1)
                self.assertEqual(read("drawing.dxf"), read(path.with_suffix(".dxf")))
                played += 1
        self.assertGreater(played, 10)

    def test_second_write_repeats_nothing(self):
        writes = scene.play(GOLDEN / f"{ONE_FILE_WRITTEN_TWICE}.scene", "drawing.dxf")
        next(writes)
        image = b"\r\n0\r\nIMAGEDEF\r\n"
        first = read("drawing.dxf").count(image)
        next(writes)
        second = read("drawing.dxf").count(image)
        of_a_host = read(GOLDEN / f"{ONE_FILE_WRITTEN_TWICE}.dxf").count(image)
        self.assertEqual((first, second, of_a_host), (2, 2, 4))

    def test_template_beside_the_module_is_the_one_that_counts(self):
        for name in ("template-with-end", "template-without-end"):
            with self.subTest(name):
                copy = package_copy(name, GOLDEN / f"{name}.template")
                run(read(scene.__file__).decode("utf-8"), str(GOLDEN / f"{name}.scene"), package=copy)
                self.assertEqual(read("drawing.dxf"), read(GOLDEN / f"{name}.dxf"))


if __name__ == "__main__":
    unittest.main()
