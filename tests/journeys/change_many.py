#!/usr/bin/python3
"""A family finds its photographs, changes three of them at once, throws two away, and finds it so the next
evening.

change_many.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import album_steps as steps
import photographs
from journey import expect, run

NAMES = sorted(["Beach.jpg", "Dune.jpg", "School.jpg", "Storm.tif", "Wedding.jpg"], key=str.lower)
YEAR, PLACE, STORY = "2003", "The sea", "We all were there."


def changed(person):
    return [name for name in steps.thumbnails(person) if name.endswith(f"{YEAR} - {PLACE}")]


def bring_photographs(person, home):
    steps.start_building(person)
    steps.add_all_photographs(person, home.pictures, len(NAMES))


def change_three(person):
    steps.select_photos(person, 2, 3, 5)
    batch = steps.open_batch_edit(person)
    steps.add_to_list(person, "Add Place", PLACE)
    person.write(person.find("text", "Year", within=batch), YEAR)
    person.write(person.find("text", "Description", within=batch), STORY)
    steps.change_selected(person, batch)
    person.until(lambda: len(changed(person)) == 3, "three changed photographs on the page")
    expect(person.find("push button", "No Selection"), "nothing is selected any more")


def throw_two_away(person):
    expect(all(name not in changed(person) for name in steps.thumbnails(person)[:3]), "those without a year come first")
    steps.select_photos(person, 2, 3)
    steps.delete_selected(person, steps.open_batch_edit(person))
    person.until(lambda: len(steps.thumbnails(person)) == len(NAMES) - 1, "two photographs less")


def first_evening(person, home):
    bring_photographs(person, home)
    expect(len(steps.search_all(person)) == len(NAMES) + 1, "all photographs are found")
    change_three(person)
    throw_two_away(person)
    expect(steps.quit_program(person) == 0, "the program ends in order")


def look_at_the_disk(home):
    for folder in ("Photos", "Thumbnails"):
        left = sorted(photo.name for photo in (home.album / folder).glob("*.jpg"))
        expect(left == ["00001.jpg", "00002.jpg", "00003.jpg", "00005.jpg"], f"two are gone from {folder}: {left}")
    trash = sorted(photo.name for photo in (home.folder / ".local/share/Trash/files").glob("*.jpg"))
    expect(trash == ["00004.jpg", "00006.jpg"], f"they are in the trash: {trash}")


def second_evening(person, _):
    expect(len(steps.search_all(person)) == len(NAMES) - 1, "the others are found again")
    expect(len(changed(person)) == 3, "and what they have in common")
    steps.open_build_album(person)
    for number, button in ((1, "|<<"), (2, ">>"), (3, ">>"), (4, ">>")):
        steps.go(person, button, number)
        expect(number == 1 or steps.described(person) == (YEAR, STORY), f"photo {number} tells what all of them do")
    expect(steps.quit_program(person) == 0, "the program ends in order the second time")


def tell(journey):
    photographs.lay_out(journey.home.pictures, journey.home.samples, NAMES)
    for evening in (first_evening, second_evening):
        with journey.evening() as person:
            evening(person, journey.home)
        look_at_the_disk(journey.home)


if __name__ == "__main__":
    run(tell)
