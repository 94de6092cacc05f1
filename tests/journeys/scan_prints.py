#!/usr/bin/python3
"""The shoebox is emptied: one page on the glass, three rectangles, three photos; then a photo that lies on
its side is put right.

scan_prints.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import subprocess

import album_steps as steps
import photographs
import scan_steps
from journey import expect, run
from scanner import Scanner

PRINTS = ((0.08, 0.1, 0.45, 0.4), (0.55, 0.08, 0.9, 0.45), (0.1, 0.55, 0.8, 0.95))


def pixels(file):
    """Width and height."""
    told = subprocess.run(["identify", "-format", "%w %h", str(file)], check=True, capture_output=True, text=True)
    return tuple(int(side) for side in told.stdout.split())


def scan_three_prints(person, home):
    steps.start_building(person)
    form = scan_steps.open_scanner(person)
    for number, place in enumerate(PRINTS, 2):
        scan_steps.draw(person, form, *place)
        expect(scan_steps.save_selected(person, form) == f"{number:05}", f"photo {number} is saved")
    scan_steps.close(person, form)
    person.until(lambda: steps.position(person) == (4, 4), "the editor on the last of four photos")
    for folder in ("Photos", "Thumbnails"):
        names = sorted(photo.name for photo in (home.album / folder).glob("*.jpg"))
        expect(names == [f"0000{number}.jpg" for number in (1, 2, 3, 4)], f"four files in {folder}: {names}")
    wide, high = pixels(home.album / "Photos/00004.jpg")
    expect(wide > high, "the last one is as wide as it was drawn")
    expect(max(pixels(home.album / "Thumbnails/00003.jpg")) == 73, "thumbnails have their size")


def put_one_right(person, home):
    photo = home.album / "Photos/00005.jpg"
    before = pixels(photo)
    form = scan_steps.open_photo(person)
    for command in ("Rotate Right", "Auto Levels", "Brighter", "Sharpen"):
        scan_steps.do(person, form, command)
    scan_steps.update(person, form)
    expect(pixels(photo) == before[::-1], "it stands upright")
    trash = home.folder / ".local/share/Trash/files/00005.jpg"
    expect(trash.exists() and pixels(trash) == before, "the original lies in the trash")


def bring_one(person, home):
    dialog, files = steps.open_add_from_file(person, home.pictures, 1)
    steps.select(person, files, 0, 0)
    steps.accept(person, steps.insert(person, dialog))
    steps.leave_add_from_file(person)


def tell(journey):
    home = journey.home
    photographs.lay_out(home.pictures, home.samples, ["Dune.jpg"])
    with Scanner() as scanner:
        journey.desktop.environment.update(scanner.environment)
        with journey.evening() as person:
            scan_three_prints(person, home)
            bring_one(person, home)
            put_one_right(person, home)
            expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
