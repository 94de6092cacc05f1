"""The album that the tests of the pages have exported, as family.txt tells it."""
import pathlib

HERE = pathlib.Path(__file__).parent
SAMPLES = HERE.parents[1] / "assets" / "samples"
TITLE = "Our Family"


class Photo:
    def __init__(self, line):
        self.file, self.year, self.event, self.place, names, self.sound, self.description = line.split("|")
        self.names = names.split(",") if names else []
        self.missing = not (SAMPLES / self.file).with_suffix(".svg").exists()


def read_family():
    lines = (HERE / "family.txt").read_text(encoding="utf-8").splitlines()
    return [Photo(line) for line in lines if line and not line.startswith("#")]


def faces(photo):
    """{name: (x, y)} in pixels of the upright photograph, whose longer side has 1600."""
    lines = (line.split() for line in (SAMPLES / "faces.txt").read_text().splitlines() if not line.startswith("#"))
    return {line[1]: (float(line[2]), float(line[3])) for line in lines if line and line[0] == photo}


PHOTOS = read_family()
