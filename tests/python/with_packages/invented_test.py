"""The bytes of invented scenes are those that are computed without the library."""

import os
import pathlib
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path += [str(HERE.parents[1] / folder) for folder in ("python", "acceptance/computed", "acceptance/random")]
# pylint: disable=wrong-import-position
import invention
import scene_player
import scenes
from support import PACKAGE, TEMPLATE, FolderTest, read


class Invented(FolderTest):
    def test_invented_scenes_give_the_bytes_that_are_computed(self):
        template = read(PACKAGE / TEMPLATE)
        played = 0
        for number in range(1000):
            for text in scene_player.with_one_write(invention.invented(number)):
                try:
                    result, = scene_player.play(text)
                except (TypeError, ValueError): # a host passes these arguments on
                    continue
                wanted = scenes.Player(template).play(text)
                with self.subTest(number, scene=text):
                    answer = wanted.answers().splitlines()[-1].decode("utf-8").split(" ", 1)[1]
                    if not wanted.drawing.images:
                        answer = "NoImage"
                    elif answer.startswith("exception"):
                        answer = "InvalidGeometry"
                    self.assertEqual(result, answer)
                    if result == "Success":
                        self.assertEqual(read("drawing.dxf"), wanted.bytes)
                        os.remove("drawing.dxf")
                played += 1
        self.assertGreater(played, 1000)


if __name__ == "__main__":
    unittest.main()
