"""A scanner on the desk: that of SANE's own, which has a page of colours and takes no time."""
import os
import pathlib
import tempfile

PAGE_OF_COLOURS = """number_of_devices 1
mode Color
hand-scanner false
depth 8
test-picture "Color pattern"
"""


class Scanner:
    """with Scanner() as scanner: programs started with scanner.environment find it, and no other."""

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="hearthbook-scanner-")
        folder = pathlib.Path(self._folder.name)
        (folder / "dll.conf").write_text("test\n")
        (folder / "test.conf").write_text(PAGE_OF_COLOURS)
        self.environment = {"SANE_CONFIG_DIR": str(folder)}
        # SANE's test scanner leaves a name behind, and is gone before anybody could tell whose it was.
        self._checks = os.environ.get("ASAN_OPTIONS")
        os.environ["ASAN_OPTIONS"] = ":".join(filter(None, (self._checks, "detect_leaks=0")))
        return self

    def __exit__(self, *_):
        if self._checks is None:
            del os.environ["ASAN_OPTIONS"]
        else:
            os.environ["ASAN_OPTIONS"] = self._checks
        self._folder.cleanup()
