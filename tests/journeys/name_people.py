#!/usr/bin/python3
"""A family says who is where in its photographs, finds a year, deletes a photo, and has the program
explain what everything is for.

name_people.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import album_steps as steps
import photographs
from journey import expect, run

NAMES = sorted(["Beach.jpg", "Dune.jpg", "Storm.tif"], key=str.lower)
BEACH, DUNE, STORM = 2, 3, 4
FAMILY = {"Emil": "1994", "Lotte": "1992", "Peter": ""}
HIDDEN_IN_THE_GRASS = {"Emil": (0.35, 0.7), "Lotte": (0.55, 0.62), "Peter": (0.8, 0.8)}


def expect_explained(person, role, name, item, within=None):
    steps.explained(person, person.find(role, name, within=within), item, within)


def read_the_help(person):
    steps.show_help(person)
    expect(steps.is_help_shown(person), "Show Help is checked")
    item, sentence = steps.told(person)
    expect(item == "Build Album" and sentence.startswith("Move your mouse over"), "the window greets")
    expect_explained(person, "push button", "Find Year", "Find Year")
    expect_explained(person, "push button", "Add Event", "Add Event")
    expect_explained(person, "push button", "Edit Image", "Edit Image")
    expect_explained(person, "push button", "<<", "Navigation Buttons")


def bring_photographs(person, home):
    dialog, files = steps.open_add_from_file(person, home.pictures, len(NAMES))
    steps.select(person, files, 0, len(NAMES) - 1)
    expect_explained(person, "radio button", "Move Files", "Move Files", within=dialog)
    expect_explained(person, "push button", "Insert Multiple", "Add Files", within=dialog)
    steps.accept(person, steps.insert(person, dialog))
    steps.leave_add_from_file(person)


def describe_the_beach(person, home):
    steps.go(person, "|<<", 1)
    steps.go(person, ">>", BEACH)
    steps.add_to_list(person, "Add Place", "The sea")
    steps.add_to_list(person, "Add Event", "Summer holidays")
    steps.describe(person, "2000", "Castle number four.")
    for name, born in FAMILY.items():
        steps.meet(person, name, born)
    for name, spot in photographs.faces(home.samples, "Beach.jpg").items():
        steps.put_in(person, name)
        steps.mark(person, name, *spot)
    person.click(person.find("push button", "Done"))


def hide_and_seek(person):
    """Nobody remembers the year of this one."""
    expect(steps.open_build_album(person)[0] == 1, "the editor opens on a photo without a year")
    steps.go(person, ">>", BEACH)
    person.press("alt+Right")
    person.until(lambda: steps.position(person)[0] == DUNE, "the next photo by the keyboard")
    for name, spot in HIDDEN_IN_THE_GRASS.items():
        steps.put_in(person, name)
        steps.mark(person, name, *spot)
    person.choose(person.find("combo box", "Place"), "The sea")
    person.choose(person.find("combo box", "Event"), "Summer holidays")
    steps.choose_year(person, steps.find_year(person, "Lotte"), "2000")


def throw_the_storm_away(person):
    steps.go(person, ">>", STORM)
    expect(steps.delete_photo(person) == len(NAMES), "one photo less")


def close_the_help(person):
    note = person.window("Help")
    person.click(person.find("push button", "Close", within=note))
    person.closed(note)
    expect(not steps.is_help_shown(person), "Show Help is unchecked again")


def first_evening(person, home):
    expect(steps.start_building(person) == (1, 1), "a new album holds one photo")
    read_the_help(person)
    bring_photographs(person, home)
    describe_the_beach(person, home)
    hide_and_seek(person)
    throw_the_storm_away(person)
    close_the_help(person)
    expect(steps.quit_program(person) == 0, "the program ends in order")


def look_at_the_disk(home):
    expect((home.album / "Photos" / "00003.jpg").exists(), "the dunes stay")
    for folder in ("Photos", "Thumbnails"):
        expect(not (home.album / folder / "00004.jpg").exists(), f"the storm has left {folder}")
    expect(any((home.folder / ".local/share/Trash/files").glob("00004*.jpg")), "the storm is in the trash")


def second_evening(person, _):
    steps.open_build_album(person)
    steps.go(person, "|<<", 1)
    for number, names in ((BEACH, ["*Emil", "*Lotte"]), (DUNE, ["*Emil", "*Lotte", "*Peter"])):
        steps.go(person, ">>", number)
        person.until(lambda wanted=names: sorted(steps.names_in_photo(person)) == wanted, f"the names {names}")
        expect(steps.described(person)[0] == "2000", "its year is known")
    expect(steps.position(person)[1] == len(NAMES), "the storm is gone")
    expect(steps.quit_program(person) == 0, "the program ends in order the second time")


def tell(journey):
    photographs.lay_out(journey.home.pictures, journey.home.samples, NAMES)
    for evening in (first_evening, second_evening):
        with journey.evening() as person:
            evening(person, journey.home)
        look_at_the_disk(journey.home)


if __name__ == "__main__":
    run(tell)
