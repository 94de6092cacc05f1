"""How one designs a page and fills its boxes."""
import re

FOUND = re.compile("^Photo [0-9]*, ")
MARKING = re.compile("^Photo: arrow keys move the region")


def open_designer(person):
    person.menu("File", "Design Export...")
    return person.window("Design Export")


def choose_design(person, designer, name):
    person.click(person.find("radio button", name, within=designer))
    person.find("panel", re.compile(f"^{name} Template"), within=designer)


def ask_for_photo(person, designer, box, kind, entry):
    """Looks for photos by a person, a place or an event; answers with those that are in sight."""
    person.click(person.find("push button", f"Photo: {box}", within=designer))
    person.find("panel", f"Select photo for {box}", within=designer)
    person.click(person.find("radio button", kind, within=designer))
    choices = person.find("combo box", f"Search for {kind.lower()}", within=designer)
    person.click(choices)
    person.click(person.until(lambda: next((item for item in person.all("list item", entry, within=choices)
                                            if item.has("showing") and item.place[2] > 0), None), entry))
    person.find("push button", FOUND, within=designer)
    return [photo for photo in person.all("push button", FOUND, within=designer) if photo.enabled]


def mark(person, designer, photo, start, end):
    """Draws a region on the photo, told in shares of the view, and takes it."""
    person.click(photo)
    person.find("panel", "Mark Region", within=designer)
    select = person.find("push button", "Select", within=designer)
    person.until(lambda: select.enabled, "a photo that can be marked")
    person.drag_on(marking(person, designer), start, end)
    return select


def marking(person, designer):
    return person.until(lambda: next((thing for thing in designer.everything() if MARKING.search(thing.name)), None),
                        "the photo to be marked")


def take(person, designer, select):
    person.click(select)
    person.find("panel", "Select Template", within=designer)


def done(person, designer):
    """Makes the page; answers with the question whether to see it."""
    person.click(person.find("push button", "Done", within=designer))
    return person.box("Design Export")
