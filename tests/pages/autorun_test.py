"""Autorun.exe under Wine, with a program of the test's own in the browser's place.

    autorun_test.py WINE AUTORUN WITNESS [unittest's options]
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

WINE, AUTORUN, WITNESS = map(pathlib.Path, sys.argv[1:4])
PATIENCE = 120  # seconds that a busy machine may take


class Autorun(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="hearthbook-wine-"))
        cls.environment = os.environ | {"WINEPREFIX": str(cls.folder / "prefix"), "WINEDEBUG": "-all",
                                        "WINEDLLOVERRIDES": "mscoree,mshtml=", "LC_ALL": "C.UTF-8"}
        cls.drive = cls.folder / "prefix" / "drive_c"
        cls.wine("wineboot", "-i")
        shutil.copy(WITNESS, cls.drive / "witness.exe")
        cls.wine("reg", "add", r"HKCR\.htm", "/ve", "/d", "witness", "/f")
        cls.wine("reg", "add", r"HKCR\witness\shell\open\command", "/ve", "/d", r'"C:\witness.exe" "%1"', "/f")

    @classmethod
    def tearDownClass(cls):
        subprocess.run([WINE.parent / "wineserver", "-k"], env=cls.environment, check=False)
        shutil.rmtree(cls.folder, ignore_errors=True)

    @classmethod
    def wine(cls, *arguments):
        return subprocess.run([WINE, *arguments], env=cls.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE).returncode

    def disc(self, *pages):
        disc = self.drive / "disc"
        shutil.rmtree(disc, ignore_errors=True)
        disc.mkdir()
        shutil.copy(AUTORUN, disc / "Autorun.exe")
        for page in pages:
            (disc / page).write_text("a page")
        (self.drive / "witness.txt").unlink(missing_ok=True)
        return disc

    def opened(self, disc, *arguments):
        """The page that the browser was given."""
        self.assertEqual(self.wine(disc / "Autorun.exe", *arguments), 0)
        witness = self.drive / "witness.txt"
        deadline = time.monotonic() + PATIENCE
        while not (witness.exists() and witness.read_bytes()) and time.monotonic() < deadline:
            time.sleep(0.05)
        return witness.read_text(encoding="utf-8").rsplit("\\", 1)[-1].rstrip('" ')

    def test_it_opens_the_page_that_it_is_told(self):
        disc = self.disc("a.htm", "trip.htm", "frameset.htm")
        self.assertEqual(self.opened(disc, "trip.htm"), "trip.htm")

    def test_the_case_of_the_name_does_not_matter(self):
        self.assertEqual(self.opened(self.disc("a.htm", "trip.htm"), "Trip.htm").lower(), "trip.htm")

    def test_letters_beyond_english_are_read_as_they_were_written(self):
        disc = self.disc("a.htm", "Großmutter.htm")
        self.assertEqual(self.opened(disc, "Großmutter.htm"), "Großmutter.htm")

    def test_a_name_that_got_lost_leads_to_the_start_page(self):
        disc = self.disc("frameset.htm", "trip.htm")
        self.assertEqual(self.opened(disc, "GroÃŸ.htm"), "trip.htm")
        disc = self.disc("frameset.htm", "trip.htm")
        self.assertEqual(self.opened(disc), "trip.htm")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
