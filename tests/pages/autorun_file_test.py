"""The Autorun.exe that goes onto discs, looked at without running it.

    autorun_file_test.py OBJDUMP AUTORUN [unittest's options]
"""
import pathlib
import re
import subprocess
import sys
import unittest

OBJDUMP, AUTORUN = map(pathlib.Path, sys.argv[1:3])


class AutorunFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.told = subprocess.run([OBJDUMP, "-p", AUTORUN], check=True, capture_output=True, text=True).stdout

    def test_it_runs_on_a_windows_of_32_bits_too(self):
        self.assertIn("file format pei-i386", self.told)

    def test_it_opens_no_console(self):
        self.assertRegex(self.told, r"Subsystem\s+0*2\b")

    def test_it_needs_nothing_but_windows(self):
        needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", self.told)}
        self.assertEqual(needed, {"kernel32.dll", "shell32.dll", "shlwapi.dll", "user32.dll"})

    def test_it_takes_no_room_on_the_disc(self):
        self.assertLess(AUTORUN.stat().st_size, 16 * 1024)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
