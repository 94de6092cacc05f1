#!/usr/bin/python3
"""A family designs the page of a wedding, puts a part of a photograph into it, and looks at it in a browser.

design_page.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import pathlib
import sys
import urllib.parse

import album_steps as steps
import design_steps
import export_steps
import photographs
from journey import expect, run

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "pages"))
from browser import Browser
from pictures import size_of

NAMES = ("Garden.jpg", "Wedding.jpg")
TITLE = "Clara & Henry"
EVENT = "The wedding"


def add_photographs(person, home):
    steps.open_build_album(person)
    steps.add_all_photographs(person, home.pictures, len(NAMES))
    steps.go(person, ">>|", len(NAMES) + 1)
    steps.add_to_list(person, "Add Event", EVENT)
    steps.go(person, "<<", len(NAMES))


def design(person):
    designer = design_steps.open_designer(person)
    design_steps.choose_design(person, designer, "New Baby")
    design_steps.choose_design(person, designer, "Wedding")
    for field, text in (("Title", TITLE), ("Bride", "Clara")):
        person.write(person.find("text", field, within=designer), text)
    found = design_steps.ask_for_photo(person, designer, "Bride", "Event", EVENT)
    expect(len(found) == 1, f"{len(found)} photographs of the wedding")
    design_steps.take(person, designer, design_steps.mark(person, designer, found[0], (0.4, 0.3), (0.6, 0.7)))
    steps.say(person, design_steps.done(person, designer), "Yes")
    person.closed(designer)


def look_at(address, album):
    folder = album / "export"
    made = pathlib.Path(urllib.parse.unquote(address.removeprefix("file://")))
    expect(made == folder / "testing1" / "index.htm", address)
    own, empty = folder / "testing1" / "Bride.jpg", folder / "templates" / "Wedding" / "Bride.jpg"
    expect(own.read_bytes() != empty.read_bytes(), "the photo of the bride")
    expect(size_of(own) == size_of(empty), f"{size_of(own)}")
    with Browser() as browser, browser.page(1366, 900) as page:
        page.open(address)
        expect(page.evaluate("document.title") == TITLE, "the title")
        expect(page.evaluate("document.querySelector('h1').innerText") == TITLE, "the heading")
        expect("Clara" in page.evaluate("document.querySelector('figcaption').innerText"), "the bride's name")
        page.wait_for("[...document.images].every(image => image.complete && image.naturalWidth > 0)")
        expect(page.errors == [] and page.failed == [], f"{page.errors} {page.failed}")


def tell(journey):
    browser = export_steps.NotedBrowser(journey.desktop, journey.home.folder)
    photographs.lay_out(journey.home.pictures, journey.home.samples, NAMES)
    with journey.evening() as person:
        add_photographs(person, journey.home)
        design(person)
        look_at(person.until(browser.opened, "the browser")[0], journey.home.album)
        expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
