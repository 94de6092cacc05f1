"""How one makes a sub-album and puts it in order with the mouse."""
import re
import sqlite3

import album_steps as steps


def open_for_result(person):
    """From a search: what is selected comes along, or everything that was found."""
    person.click(person.find("push button", re.compile("^Add (All )?To Sub-Album$")))
    return person.window("Sub-Album Editor")


def open_for_photo(person):
    """From Build Album: the photo there comes along."""
    person.click(person.find("push button", "Add To Sub-Album"))
    return person.window("Sub-Album Editor")


def open_for_pages(person):
    """From the pages of a sub-album."""
    person.click(person.find("push button", "Edit Sub-Album"))
    return person.window("Sub-Album Editor")


def leave(person, editor):
    person.click(person.find("push button", "Done", within=editor))
    person.closed(editor)


def create(person, editor, name):
    person.click(person.find("push button", "Create Sub-Album", within=editor))
    box = person.box("Add New Sub-Album")
    steps.answer(person, box, name)
    holds(person, editor, 0)


def choose(person, editor, name, count):
    person.click(person.find("list item", name, within=editor))
    holds(person, editor, count)


def holds(person, editor, count):
    person.find("label", f"{count} photos in sub-album", within=editor)


def add(person, editor, expected):
    person.click(person.find("push button", "Add Photos To Selected Album", within=editor))
    steps.say(person, person.box("Add To Sub-Album"), "OK")
    holds(person, editor, expected)


def ask_to_arrange(person, editor, choice):
    """Answers with the question whether one is sure."""
    person.choose(person.find("combo box", within=editor), choice)
    return person.box("Auto-Arrange Sub-Album")


def photo(person, editor, number):
    """The thumbnail at a place of the order, which counts from 1."""
    name = re.compile(rf"^Photo {number}\b")
    return person.until(lambda: next((t for t in editor.everything()
                                      if name.match(t.name) and t.has("showing")), None), f"photo {number}")


def hold(person, thing):
    """Takes a photo with the mouse."""
    person.hold_down(thing)


def let_go(person, thing):
    person.drag_over(thing)
    person.let_go()


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
