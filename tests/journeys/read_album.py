#!/usr/bin/python3
"""A family reads its album page by page, selects a photograph, writes down what it shows, and reads that on the page.

read_album.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import album_steps as steps
import photographs
from journey import expect, run

NAMES = sorted(["Beach.jpg", "Dune.jpg", "School.jpg", "Storm.tif", "Wedding.jpg"], key=str.lower)
STORY = "Nobody remembers whose umbrella that was."


def bring_photographs(person, home):
    steps.start_building(person)
    steps.add_all_photographs(person, home.pictures, len(NAMES))


def turn_the_pages(person):
    steps.open_album(person, "Master Album", pages=2)
    expect(len(steps.photos_on_page(person)) == 4, "four photographs on the first page")
    steps.turn_page(person, ">>", "Page 2 of 2")
    expect(len(steps.photos_on_page(person)) == len(NAMES) + 1 - 4, "the others on the second")
    person.click(person.find("push button", ">>"))
    told = person.box()
    expect("No More Records!" in person.says(told), "behind the last page there is none")
    steps.say(person, told, "OK")
    steps.turn_page(person, "<<", "Page 1 of 2")


def write_what_one_sees(person):
    person.click(steps.photo_on_page(person, 2))
    person.click(person.find("push button", "Edit Selected"))
    person.find("frame", "Editing Album: Master Album")
    person.until(lambda: steps.position(person) == (2, len(NAMES) + 1), "the selected photograph")
    person.write(person.find("text", "Description"), STORY)
    person.click(person.find("push button", "Done"))
    person.find("label", "Page 1 of 2")


def read_it(person):
    person.click(person.find("push button", "Read the description"))
    person.find("label", STORY)
    person.press("Escape")
    person.until(lambda: not person.all("label", STORY), "the description put away")


def tell(journey):
    home = journey.home
    photographs.lay_out(home.pictures, home.samples, NAMES)
    with journey.evening() as person:
        bring_photographs(person, home)
        turn_the_pages(person)
        write_what_one_sees(person)
        read_it(person)
        expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
