"""Photographs to add: real ones, and our own drawings in every format that can be added."""
import os
import pathlib
import shutil
import subprocess

FACES = pathlib.Path(__file__).resolve().parents[2] / "assets" / "samples" / "faces.txt"
REAL = pathlib.Path("/usr/share/backgrounds/mate/nature")

# name in the folder: (where it comes from, how ImageMagick makes it; nothing: copied as it is)
REAL_ONES = ("Garden.jpg", "YellowFlower.jpg", "LadyBird.jpg", "Dune.jpg")
MADE = {
    "Aqua.png": (REAL / "Aqua.jpg", ["-resize", "900x"]),
    "Storm.tif": (REAL / "Storm.jpg", ["-resize", "900x", "-compress", "lzw"]),
    "Picnic in May.bmp": ("picnic.jpg", ["-resize", "800x", "-type", "TrueColor", "-define", "bmp:format=bmp3"]),
    "Lake.pcx": ("lake.jpg", ["-resize", "800x"]),
    "Dog.tga": ("dog.jpg", ["-resize", "800x"]),
    "Cake.ico": ("birthday.jpg", ["-resize", "200x150!"]),
    "Großmutter's garden.jpg": ("garden.jpg", None),
    "Wedding.jpg": ("wedding.jpg", None),
    "School.jpg": ("school.jpg", None),
    "Grandparents.jpg": ("grandparents.jpg", None),
    "Beach.jpg": ("beach.jpg", None),
    "Christmas.jpg": ("christmas.jpg", None),
    "Bicycle.jpg": ("bicycle.jpg", None),
    "Baby.jpg": ("baby.jpg", None),
}


def lay_out(folder, samples, wanted):
    """Puts the wanted photographs into the folder."""
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for name in wanted:
        source, how = MADE.get(name, (REAL / name, None))
        source = pathlib.Path(samples, source)
        if how is None:
            shutil.copyfile(source, folder / name)
        else:
            subprocess.run(["convert", "-limit", "thread", "1", str(source), *how, str(folder / name)],
                           check=True, stdin=subprocess.DEVNULL)
        os.utime(folder / name, (961000000, 961000000))
    return folder


def lay_on_glass(page, samples):
    """Three prints of ours on a page, as a scanner would see them; answers where each is, in shares of the page."""
    width, height = 1754, 1240
    prints = (("wedding.jpg", (110, 60, 450, 600)), ("baby.jpg", (1170, 130, 450, 600)),
              ("christmas.jpg", (400, 700, 640, 480)))
    page.parent.mkdir(parents=True, exist_ok=True)
    command = ["convert", "-limit", "thread", "1", "-size", f"{width}x{height}", "xc:#f4f1ea"]
    for drawing, (left, top, wide, high) in prints:
        command += ["(", str(pathlib.Path(samples, drawing)), "-auto-orient", "-resize", f"{wide}x{high}!", ")",
                    "-geometry", f"+{left}+{top}", "-composite"]
    subprocess.run([*command, "-density", "150", str(page)], check=True, stdin=subprocess.DEVNULL)
    return [(left / width, top / height, (left + wide) / width, (top + high) / height)
            for _, (left, top, wide, high) in prints]


def faces(samples, name):
    """Whose face is where in one of our drawings, in shares of its width and height."""
    source = MADE[name][0]
    size = subprocess.run(["identify", "-format", "%w %h", str(pathlib.Path(samples, source))], check=True,
                          capture_output=True, text=True, stdin=subprocess.DEVNULL).stdout.split()
    width, height = (int(side) for side in size)
    found = {}
    for line in FACES.read_text().splitlines():
        if line.startswith(f"{source} "):
            _, who, x, y, _ = line.split()
            found[who] = (int(x) / width, int(y) / height)
    return found
