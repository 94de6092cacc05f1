#!/usr/bin/python3
"""A family looks for photographs of a person from some years, by mouse and by keyboard, selects some over two
pages and edits these.

search_photographs.py BUILD KEEP: as the other journeys.
"""
import album_steps as steps
import family_album
import search_steps
from journey import expect, run

PHOTOS = 60


def by_mouse(person):
    search_steps.open_search(person)
    search_steps.choose(person, "Names", "Henry")
    person.write(person.find("text", "From Year"), "1960")
    person.write(person.find("text", "To Year"), "1970")
    search_steps.search(person, "1 to 3 of 3")
    years = [name.split(", ")[1][:4] for name in steps.thumbnails(person)]
    expect(years == ["1960", "1964", "1968"], f"Henry's photos of the sixties are found, not {years}")


def by_keyboard(person):
    person.click(person.find("push button", "Clear Selection of Names"))
    person.press("shift+Tab", "h", "space", "Tab", "Tab")
    for field in ("From Year", "To Year"):
        person.until(lambda wanted=field: person.find("text", wanted).has("focused"), f"the focus in {field}")
        person.press("ctrl+a", "Delete", "Tab" if field == "From Year" else "Return")
    search_steps.shows(person, "1 to 15 of 15")


def select_over_pages(person):
    person.click(person.find("push button", "Clear Selection of Names"))
    search_steps.search(person, "1 to 24 of 60")
    steps.select_photos(person, 2, 4)
    person.press("Next")
    search_steps.shows(person, "25 to 48 of 60")
    steps.select_photos(person, 25)
    person.press("Right", "space")
    person.find("push button", "Clear Selection (4)")


def edit_them(person):
    search_steps.edit(person, "1 of 4")
    person.write(person.find("text", "Description"), "Found again.")
    steps.go(person, ">>", 2)
    search_steps.leave_editor(person)
    search_steps.shows(person, "25 to 48 of 60")
    person.write(person.find("text", "Description"), "found AGAIN")
    search_steps.search(person, "1 to 1 of 1")
    expect(steps.quit_program(person) == 0, "the program ends in order")


def tell(journey):
    family_album.fill(journey.home, PHOTOS)
    with journey.evening() as person:
        for part in (by_mouse, by_keyboard, select_over_pages, edit_them):
            part(person)


if __name__ == "__main__":
    run(tell)
