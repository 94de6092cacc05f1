#!/usr/bin/python3
"""A family makes a sub-album, exports it as pages, and looks at them; then it exports it once more.

export_album.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import urllib.parse

import album_order as order
import album_steps as steps
import export_steps
import photographs
from journey import expect, run

NAMES = ("Aqua.png", "Garden.jpg", "Wedding.jpg")
ALBUM = "Trip: 1.2"
FOLDER = "Trip-_12"
COUNT = len(NAMES) + 1  # with the photo that every album begins with


def add_photographs(person, home):
    steps.open_build_album(person)
    steps.add_all_photographs(person, home.pictures, len(NAMES))
    steps.go(person, ">>|", COUNT)
    steps.describe(person, "1989", "Clara & Henry in front of the chapel")


def fill(person):
    steps.search_all(person)
    editor = order.open_for_result(person)
    order.create(person, editor, ALBUM)
    order.add(person, editor, COUNT)
    person.click(person.find("push button", "Done", within=editor))
    person.closed(editor)


def names_in(folder):
    return sorted(entry.name for entry in folder.iterdir())


def look_through(tree):
    expect({"Autorun.inf", "data", "frameset.htm", "html", "trip-_12.htm"} <= set(names_in(tree)), names_in(tree))
    photos = [f"{n}.jpg" for n in range(1, COUNT + 1)]
    expect([n for n in names_in(tree / "data") if n in photos] == photos, names_in(tree / "data"))
    page = (tree / "data" / f"{COUNT}.htm").read_text()
    expect("Clara & Henry in front of the chapel" in page, page)


def export(person, home, browser):
    stick = home.folder / "stick"
    stick.mkdir()
    dialog = export_steps.open_export(person)
    export_steps.choose(person, dialog, ALBUM, stick)
    steps.say(person, export_steps.export(person, dialog), "No")
    look_through(stick / FOLDER)
    expect(browser.opened() == [], "nothing was opened")
    (stick / FOLDER / "data" / "1.jpg").unlink()
    steps.say(person, export_steps.export(person, dialog), "Yes")
    look_through(stick / FOLDER)
    page = person.until(browser.opened, "the browser")[0]
    expect(urllib.parse.unquote(page) == f"file://{stick / FOLDER / 'trip-_12.htm'}", page)
    export_steps.leave(person, dialog)


def tell(journey):
    browser = export_steps.NotedBrowser(journey.desktop, journey.home.folder)
    photographs.lay_out(journey.home.pictures, journey.home.samples, NAMES)
    with journey.evening() as person:
        add_photographs(person, journey.home)
        fill(person)
        export(person, journey.home, browser)
        expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
