"""An exported album as a CD: an image of one holds every file as it is.

    disc_test.py ALBUMS [unittest's options]
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ALBUMS = pathlib.Path(sys.argv[1])


class Disc(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="hearthbook-disc-")
        self.addCleanup(folder.cleanup)
        self.image = pathlib.Path(folder.name) / "album.iso"
        self.tree = ALBUMS / "Our_Family"
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
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
