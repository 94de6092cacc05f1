#!/usr/bin/python3
"""A family adds ten photographs, writes about them, closes the album, and finds all of it again.

add_photographs.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import album_steps as steps
import photographs
from journey import expect, run

NAMES = sorted(["Garden.jpg", "YellowFlower.jpg", "Aqua.png", "Storm.tif", "Picnic in May.bmp", "Lake.pcx",
                "Dog.tga", "Cake.ico", "Großmutter's garden.jpg", "Wedding.jpg"], key=str.lower)
STORIES = {
    2: ("1998", "The first one of them all."),
    5: ("2001", "Two lines\nof a story, with 'quotes' and 100%."),
    11: ("1989", "Clara and Henry"),
}


def add_and_describe(person, home):
    expect(steps.open_build_album(person) == (1, 1), "a new album holds one photo")
    dialog, files = steps.open_add_from_file(person, home.pictures, len(NAMES))
    expect([entry.name for entry in files.children()] == NAMES, "the files are listed by name")
    steps.select(person, files, 0, len(NAMES) - 1)
    expect(steps.accept(person, steps.insert(person, dialog)) == len(NAMES), "all photographs are reported as added")
    steps.leave_add_from_file(person)
    expect(steps.position(person)[1] == len(NAMES) + 1, "the editor counts the new photographs")
    steps.go(person, "|<<", 1)
    for number in range(2, len(NAMES) + 2):
        steps.go(person, ">>", number)
        if number in STORIES:
            steps.describe(person, *STORIES[number])
    expect(steps.quit_program(person) == 0, "the program ends in order")


def check_the_disk(home):
    for index, name in enumerate(NAMES):
        photo = home.album / "Photos" / f"{index + 2:05}.jpg"
        thumbnail = home.album / "Thumbnails" / photo.name
        expect(photo.exists() and thumbnail.exists(), f"{name} has its photo and its thumbnail")
        expect((home.pictures / name).exists(), f"{name} stays where it was")
        if name.endswith(".jpg"):
            expect(photo.read_bytes() == (home.pictures / name).read_bytes(), f"{name} is kept byte for byte")
    expect((home.album / "Backup" / "Photo_Album.mdb").exists(), "closing leaves a copy of the database")


def find_again(person):
    first_without_year, count = steps.open_build_album(person)
    expect(count == len(NAMES) + 1, "the album opens with all its photographs")
    expect(first_without_year not in STORIES, "the editor opens on a photo without a year")
    steps.go(person, "|<<", 1)
    for number in range(2, len(NAMES) + 2):
        steps.go(person, ">>", number)
        wanted = STORIES.get(number, ("", ""))
        expect(steps.described(person) == wanted, f"photo {number} tells {wanted}, not {steps.described(person)}")
    expect(steps.quit_program(person) == 0, "the program ends in order the second time")


def tell(journey):
    home = journey.home
    photographs.lay_out(home.pictures, home.samples, NAMES)
    for part in (lambda p: add_and_describe(p, home), find_again):
        with journey.evening() as person:
            part(person)
        check_the_disk(home)


if __name__ == "__main__":
    run(tell)
