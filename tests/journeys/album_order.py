"""How one makes a sub-album and puts it in order with the mouse."""
import re
import sqlite3

import album_steps as steps


def open_for_result(person):
    """From a search: everything that was found comes along."""
    person.click(person.find("push button", "Add All To Sub-Album"))
    return person.window("Sub-Album Editor")


def create(person, editor, name):
    person.click(person.find("push button", "Create Sub-Album", within=editor))
    box = person.box("Add New Sub-Album")
    steps.answer(person, box, name)
    person.find("label", "0 photos in sub-album", within=editor)


def add(person, editor, expected):
    person.click(person.find("push button", "Add Photos To Selected Album", within=editor))
    steps.say(person, person.box("Add To Sub-Album"), "OK")
    person.find("label", f"{expected} photos in sub-album", within=editor)


def photo(person, editor, number):
    """The thumbnail at a place of the order, which counts from 1."""
    name = re.compile(rf"^Photo {number}\b")
    return person.until(lambda: next((t for t in editor.everything()
                                      if name.match(t.name) and t.has("showing")), None), f"photo {number}")


def hold(person, thing):
    """Takes a photo with the mouse."""
    left, top, width, height = thing.place
    person._move(round(left + 0.5 * width), round(top + 0.5 * height))
    person._hand("mousedown", "1")
    for step in (6, 12, 18):
        person._move(round(left + 0.5 * width + step), round(top + 0.5 * height))


def let_go(person, thing):
    for share in (0.4, 0.6, 0.5):
        left, top, width, height = thing.place
        person._move(round(left + share * width), round(top + share * height))
    person._hand("mouseup", "1")


def pull(person, thing, target):
    hold(person, thing)
    let_go(person, target)


def wait_below(person, editor, number):
    """Moves over the bar below the strip until a photo has come into view."""
    bar = next(thing for thing in editor.everything() if thing.name == "Photos below")

    def look():
        person.point(bar)
        return any(re.match(rf"Photo {number}\b", t.name) and t.has("showing") for t in editor.everything())
    person.until(look, f"photo {number} in view")


def stored(home, album=1):
    """The numbers of the photos in the order in which the album holds them."""
    with sqlite3.connect(home.album / "Data" / "Photo_Album.mdb") as connection:
        rows = connection.execute("SELECT PhotoID, [Index] FROM SubAlbumPhotos WHERE AlbumID = ? "
                                  "ORDER BY [Index]", (album,)).fetchall()
    assert [index for _, index in rows] == list(range(len(rows))), rows
    return [int(photo_id[2:]) for photo_id, _ in rows]
