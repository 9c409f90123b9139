"""The bytes are those of a C++ host."""

import unittest

import scene_player
from support import GOLDEN, FolderTest, package_copy, read, run

# Its drawing holds the records of two writes, which no file of this package does.
WRITTEN_TWICE = GOLDEN / "second-write.scene"


class Golden(FolderTest):
    def test_scenes_give_the_bytes_of_a_host(self):
        whole = [path for path in GOLDEN.glob("*.scene")
                 if path != WRITTEN_TWICE and not path.with_suffix(".template").exists()]
        self.assertGreater(len(whole), 10)
        for path in whole:
            with self.subTest(path.stem):
                self.assertEqual(scene_player.play(path.read_text(encoding="utf-8")), ["Success"])
                self.assertEqual(read("drawing.dxf"), read(path.with_suffix(".dxf")))

    def test_second_write_repeats_nothing(self):
        image = b"\r\n0\r\nIMAGEDEF\r\n"
        text = WRITTEN_TWICE.read_text(encoding="utf-8")
        self.assertEqual(scene_player.play(text), ["Success"] * 2)
        self.assertEqual((read("drawing.dxf").count(image), read(WRITTEN_TWICE.with_suffix(".dxf")).count(image)),
                         (2, 4))
        twice = read("drawing.dxf")
        *_, second = scene_player.with_one_write(text)
        scene_player.play(second)
        self.assertEqual(read("drawing.dxf"), twice)

    def test_template_beside_the_module_is_the_one_that_counts(self):
        for name in ("template-with-end", "template-without-end"):
            with self.subTest(name):
                copy = package_copy(name, GOLDEN / f"{name}.template")
                run(read(scene_player.__file__).decode("utf-8"), str(GOLDEN / f"{name}.scene"), package=copy)
                self.assertEqual(read("drawing.dxf"), read(GOLDEN / f"{name}.dxf"))


if __name__ == "__main__":
    unittest.main()
