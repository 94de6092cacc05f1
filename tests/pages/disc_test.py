"""An exported album as a CD: an image of one holds every file as it is.

    disc_test.py BUILD KEEP [unittest's options]
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

import stand_in_album
from family import PHOTOS, TITLE

BUILD = pathlib.Path(sys.argv[1])
FACES = pathlib.Path(__file__).parents[2] / "assets" / "samples" / "faces.txt"


class Disc(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="hearthbook-disc-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        start = stand_in_album.export(BUILD / "application" / "export" / "template", BUILD / "samples", FACES,
                                      self.folder, TITLE, PHOTOS[:3])
        self.tree = start.parent
        self.image = self.folder / "album.iso"
        subprocess.run(["genisoimage", "-quiet", "-J", "-R", "-V", "ALBUM", "-o", self.image, self.tree], check=True)

    def read(self, *arguments):
        return subprocess.run(["isoinfo", "-i", self.image, *arguments], check=True, capture_output=True).stdout

    def test_every_file_comes_back_from_the_disc_by_both_kinds_of_names(self):
        for names in ("-R", "-J"):
            listed = self.read(names, "-f").decode().splitlines()
            for file in (f for f in self.tree.rglob("*") if f.is_file()):
                path = "/" + file.relative_to(self.tree).as_posix()
                with self.subTest(names=names, path=path):
                    self.assertIn(path, listed)
                    self.assertEqual(self.read(names, "-x", path), file.read_bytes())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
