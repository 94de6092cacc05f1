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
    def burn(self, tree):
        folder = tempfile.TemporaryDirectory(prefix="hearthbook-disc-")
        self.addCleanup(folder.cleanup)
        self.tree, self.image = tree, pathlib.Path(folder.name) / "album.iso"
        subprocess.run(["genisoimage", "-quiet", "-J", "-R", "-input-charset", "utf-8", "-V", "ALBUM", "-o", self.image,
                        self.tree], check=True)

    def read(self, *arguments):
        return subprocess.run(["isoinfo", "-i", self.image, *arguments], check=True, capture_output=True).stdout

    def test_every_file_comes_back_from_the_disc_by_both_kinds_of_names(self):
        self.burn(ALBUMS / "Our_Family")
        self.expect_all("-R", "-J")

    def test_an_album_of_any_name_comes_back_by_the_names_that_windows_reads(self):
        tree, = ALBUMS.glob("*vian*")
        self.burn(tree)
        self.expect_all("-J")

    def expect_all(self, *kinds):
        for names in kinds:
            letters = "utf-8" if names == "-R" else "latin-1"  # in which isoinfo says what it has read
            listed = self.read(names, "-f").decode(letters).splitlines()
            for file in (f for f in self.tree.rglob("*") if f.is_file()):
                path = "/" + file.relative_to(self.tree).as_posix()
                with self.subTest(names=names, path=path):
                    self.assertIn(path, listed)
                    self.assertEqual(self.read(names, "-x", path.encode(letters)), file.read_bytes())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
