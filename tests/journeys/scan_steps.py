"""What one does with a scanned page, or with a photo that is to be put right."""
import re

SAVED = re.compile(r"^Saved as photo (\d+)\.$")


def open_scanner(person):
    """Takes a page from the scanner; answers with the form when the page is there."""
    person.click(person.find("push button", "Add From Scanner"))
    return await_page(person)


def open_kept_page(person):
    """Takes the page that was still open when the program ended."""
    person.click(person.find("push button", "Add From Scanner"))
    question = person.box("Scan Photo")
    person.click(person.find("push button", "Yes", within=question))
    return await_page(person)


def open_photo(person):
    """Opens the photo of the editor to put it right."""
    person.click(person.find("push button", "Edit Image"))
    return await_page(person)


def await_page(person):
    form = person.window("Scan Photos")
    button = person.find("push button", "Auto Levels", within=form)
    person.until(lambda: button.enabled, "a page to work on")
    return form


def page(person, form):
    return person.find("image", "Page", within=form)


def draw(person, form, left, top, right, bottom):
    """Draws a rectangle with the mouse; told in shares of what is shown of the page."""
    person.drag_on(page(person, form), (left, top), (right, bottom))
    return person.find("push button", "Close Selection", within=form)


def save_selected(person, form):
    """Answers with the number of the photo that is new."""
    before = saved(person, form)
    person.click(person.find("push button", "Save Selected", within=form))
    return person.until(lambda: (now := saved(person, form)) != before and now, "the saved photo")


def saved(person, form):
    hits = [SAVED.match(label.name) for label in person.all("label", SAVED, within=form)]
    return hits[0].group(1) if hits else None


def do(person, form, command):
    """One of the commands that put a page right; the next one waits for its turn."""
    person.click(person.find("push button", command, within=form))


def await_the_last(person, form):
    """All that was asked for has been done: no page is asked for before."""
    again = person.find("push button", "Scan Again", within=form)
    person.until(lambda: again.enabled, "the end of what was asked for")


def update(person, form):
    person.click(person.find("push button", "Update Photo", within=form))
    person.closed(form)


def close(person, form):
    person.click(person.find("push button", "Close", within=form))
    person.closed(form)
