#!/usr/bin/python3
"""A family without a printer saves a page of its album, and a page of thumbnails, as PDFs.

print_page.py BUILD KEEP: as the other journeys.
"""
import subprocess

import album_steps as steps
import family_album
import print_steps
import search_steps
from journey import expect, run

PHOTOS = 6
LETTER_ACROSS = "792 x 612 pts"


def told_by(program, file):
    return subprocess.run([program, file, *(["-"] if program == "pdftotext" else [])], check=True,
                          stdout=subprocess.PIPE).stdout.decode()


def pictures_in(file):
    listed = subprocess.run(["pdfimages", "-list", file], check=True, stdout=subprocess.PIPE).stdout.decode()
    return len(listed.splitlines()) - 2


def print_the_page(person, file):
    steps.open_album(person, "Master Album", pages=2)
    dialog, said = print_steps.open_print(person)
    expect(said.startswith("Can not print page. Please make sure your printer is connected"), said)
    print_steps.save(person, dialog, file)
    print_steps.leave(person, dialog)
    expect(LETTER_ACROSS in told_by("pdfinfo", file), told_by("pdfinfo", file))
    expect(pictures_in(file) == 2 * 4, "four photographs, each with its names")
    expect("1952" in told_by("pdftotext", file), told_by("pdftotext", file))


def print_thumbnails(person, file):
    search_steps.open_search(person)
    search_steps.search(person, f"1 to {PHOTOS} of {PHOTOS}")
    dialog, _ = print_steps.open_print(person)
    print_steps.save(person, dialog, file)
    print_steps.leave(person, dialog)
    expect(pictures_in(file) == PHOTOS, "a thumbnail for each photograph")


def tell(journey):
    family_album.fill(journey.home, PHOTOS)
    journey.desktop.environment.update(print_steps.NO_PRINTERS)
    with journey.evening() as person:
        print_the_page(person, journey.home.folder / "page.pdf")
        print_thumbnails(person, journey.home.folder / "thumbnails.pdf")
        expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
