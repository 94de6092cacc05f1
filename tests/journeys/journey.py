"""How every journey runs: a home and a hidden desktop of its own, and a picture of the screen where it fails."""
import contextlib
import pathlib
import sys
import tempfile
import traceback

import album_steps as steps
from hidden_desktop import Failure, HiddenDesktop

NAME = pathlib.Path(sys.argv[0]).stem


class Journey:
    """One person's home, a desktop, and a folder for what is kept of it."""

    def __init__(self, build, keep, folder, desktop):
        self.home, self.desktop, self.keep = steps.Home(build, folder), desktop, keep

    @contextlib.contextmanager
    def evening(self):
        """The program from its start on, until it has ended."""
        with self.home.start(self.desktop, self.keep / f"{NAME}.log") as person:
            try:
                yield person
            except BaseException:
                self.desktop.photograph(self.keep / f"{NAME}.png")
                raise


def expect(truth, what):
    if not truth:
        raise Failure(what)


def run(tell):
    """Calls tell(journey) for the build and the folder for what is kept, as the command line names them."""
    build, keep = sys.argv[1], pathlib.Path(sys.argv[2])
    keep.mkdir(parents=True, exist_ok=True)
    try:
        with tempfile.TemporaryDirectory(prefix="hearthbook-journey-") as folder, HiddenDesktop() as desktop:
            tell(Journey(build, keep, folder, desktop))
    except Failure:
        traceback.print_exc()
        print(f"The screen as it was: {keep / NAME}.png", file=sys.stderr)
        sys.exit(1)
