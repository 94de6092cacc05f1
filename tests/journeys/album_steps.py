"""What one does with an album, step by step, as the guide tells it."""
import os
import pathlib
import re
import subprocess

from hidden_desktop import Failure
from person import MENU_ITEMS, Person

POSITION = re.compile(r"^-?\d+ of \d+$")
THUMBNAIL = re.compile(r"^Photo \d+")
ON_PAGE = re.compile(r"^Photo [1-4]\b")
ZOOMED = re.compile(r"^\d+ Of \d+$")
ALONE = re.compile(r"^Photo \d+ Of \d+$")


class Home:
    """An application folder of its own, installed from a build, and a person's home around it."""

    def __init__(self, build, folder):
        self.folder = pathlib.Path(folder)
        self.album = self.folder / "Hearthbook"
        self.samples = pathlib.Path(build, "samples").resolve()
        (self.folder / "Pictures").mkdir(parents=True)
        subprocess.run(["cmake", "--install", str(build), "--prefix", str(self.album)], check=True,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    @property
    def pictures(self):
        return self.folder / "Pictures"

    def start(self, desktop, log=None):
        environment = {"HOME": str(self.folder), "XDG_DATA_HOME": str(self.folder / ".local/share"),
                       "XDG_CONFIG_HOME": str(self.folder / ".config"),
                       "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")}
        return Person(desktop, self.album / "Hearthbook", environment, log)


def open_build_album(person):
    person.menu("Tools", "Build Album")
    return position(person)


def start_building(person):
    """By the picture on the start screen, which says what it is for."""
    command = person.find("push button", "Build Album")

    def look():
        person.point(command)
        return person.all("label", re.compile("^Build or maintain your family album"))
    person.until(look, "the description of Build Album")
    person.click(command)
    person.find("frame", "Building Master Album")
    return position(person)


def position(person):
    """Which photo the editor shows, and of how many: (3, 11)."""
    return tuple(int(n) for n in person.find("label", POSITION).name.split(" of "))


def open_add_from_file(person, folder, expected):
    """Opens the browser on a folder, until it lists what is in it."""
    person.click(person.find("push button", "Add From File"))
    dialog = person.window("Add From File")
    where = person.find("text", "Folder", within=dialog)
    person.write(where, str(folder))
    person.press("Return")
    files = person.find("list", "Files", within=dialog)
    person.until(lambda: len(files.children()) == expected, f"{expected} files in the list")
    return dialog, files


def select(person, files, first, last):
    """All files from one entry to another, as one does with the Shift key."""
    entries = files.children()
    person.click(entries[first])
    if last == len(entries) - 1:
        person.press("shift+End")
    elif last != first:
        person.click(entries[last], holding=("shift",))
    person.until(lambda: sum(entry.has("selected") for entry in files.children()) == last - first + 1,
                 "the selection")


def insert(person, dialog):
    """Adds what is selected; answers with the program's report."""
    person.click(person.find("push button", re.compile("^Insert (Single|Multiple)$"), within=dialog))
    return person.box("Add From File")


def accept(person, report):
    """Closes the report and says how many photos it told of."""
    count = int(re.search(r"(\d+) Files added to album\.", person.says(report)).group(1))
    person.click(person.find("push button", "OK", within=report))
    person.closed(report)
    return count


def add_all_photographs(person, folder, count):
    """Adds every file of the folder, of which there are so many, to the album that is being built."""
    dialog, files = open_add_from_file(person, folder, count)
    select(person, files, 0, count - 1)
    added = accept(person, insert(person, dialog))
    if added != count:
        raise Failure(f"{added} of {count} photographs are added")
    leave_add_from_file(person)


def leave_add_from_file(person):
    dialog = person.window("Add From File")
    person.click(person.find("push button", "Done", within=dialog))
    person.closed(dialog)


def go(person, button, expected):
    """Moves by one of |<<, <<, >>, >>| and waits until the editor stands there."""
    person.click(person.find("push button", button))
    person.until(lambda: position(person)[0] == expected, f"photo {expected}")


def describe(person, year, description):
    person.write(person.find("text", "Year"), year)
    person.write(person.find("text", "Description"), description)


def described(person):
    return person.find("text", "Year").text, person.find("text", "Description").text


def show_help(person):
    """Checks "Show Help"; answers with the window that explains things."""
    person.menu("Help", "Show Help")
    return person.window("Help")


def is_help_shown(person):
    """A menu item tells its role by its check mark."""
    return any(item.has("checked") for role in MENU_ITEMS for item in person.all(role, "Show Help"))


def explained(person, thing, item, within=None):
    """Points at a thing until the help window, or the pane of a dialog, explains that item; answers with the words."""
    def look():
        person.point(thing)
        said = told(person, within)
        return said[1] if said[0] == item and said[1].endswith(".") else None
    return person.until(look, f"{thing.name} explained as {item!r}")


def told(person, within=None):
    """What is explained there now: (item, words)."""
    item = None
    for thing in (within or person.window("Help")).everything():
        if thing.role == "panel":
            item = thing.name
        elif thing.role == "text" and thing.name == "Help":
            return item, thing.text
    raise Failure("nothing is explained here")


def add_to_list(person, button, name):
    """A new place or event, which the photo then has."""
    person.click(person.find("push button", button))
    answer(person, person.box(), name)


def answer(person, box, text):
    person.write(person.find("text", within=box), text)
    person.press("Return")
    person.closed(box)


def meet(person, name, born=""):
    """Somebody new, whom the album is to know."""
    person.click(person.find("push button", "Add Name"))
    answer(person, person.box("New Name"), name)
    manager = person.window("Add New Name")
    if born:
        person.write(person.find("text", "Year of birth", within=manager), born)
    person.click(person.find("push button", "Done", within=manager))
    person.closed(manager)


def put_in(person, name):
    """Somebody whom the album knows is in this photo."""
    known = person.find("list", "Names")
    person.click(person.find("list item", name, within=known), times=2)
    return named(person, name)


def named(person, name):
    """The name as it stands among those in the photo, with or without the star of a mark."""
    return person.find("list item", re.compile(rf"^\*?{re.escape(name)}$"), within=person.find("list", "Names In Photo"))


def mark(person, name, across, down):
    """Marks the face of somebody in the photo; told in shares of the picture."""
    person.click(named(person, name))
    box = person.find("check box", "Mark Names")
    person.click(box)
    person.until(lambda: box.has("checked"), "marking")

    def press():  # in vain as long as the photo is not on the screen
        if not named(person, name).name.startswith("*"):
            person.click_at(person.find("image", "Photo"), across, down)
        return named(person, name).name.startswith("*")
    person.until(press, f"the mark of {name}")
    person.click(box)
    person.until(lambda: not box.has("checked"), "the end of marking")


def names_in_photo(person):
    return [entry.name for entry in person.find("list", "Names In Photo").children()]


def find_year(person, name):
    """Has the year wizard find the year; answers with the wizard, so that one can look before choose_year."""
    person.click(named(person, name))
    person.click(person.find("push button", "Find Year"))
    return person.window("Year Wizard")


def choose_year(person, wizard, year):
    person.click(person.find("table cell", year, within=wizard))
    person.closed(wizard)
    person.until(lambda: person.find("text", "Year").text == year, f"the year {year}")


def delete_photo(person):
    """Deletes the photo in the editor, as one does who is sure; answers with how many are left."""
    before = position(person)[1]
    person.click(person.find("push button", "Delete"))
    question = person.box("Delete Record")
    person.click(person.find("push button", "Yes", within=question))
    person.closed(question)
    report = person.box()
    person.click(person.find("push button", "OK", within=report))
    person.closed(report)
    person.until(lambda: position(person)[1] == before - 1, "one photo less")
    return before - 1


def search_all(person):
    """Opens Search and finds every photo; answers with what its thumbnails say."""
    person.menu("Tools", "Search Photos")
    person.click(person.find("push button", "Search"))
    person.find("list item", THUMBNAIL)
    return thumbnails(person)


def thumbnails(person):
    return [thumbnail.name for thumbnail in person.all("list item", THUMBNAIL)]


def select_photos(person, *numbers):
    """Clicks thumbnails, which stay selected."""
    for number in numbers:
        thumbnail = person.find("list item", re.compile(rf"^Photo {number}\b"))
        person.click(thumbnail)
        person.until(lambda at=thumbnail: at.has("selected"), f"photo {number} selected")


def open_batch_edit(person):
    person.click(person.find("push button", "Batch Edit"))
    return person.window("Batch Editing")


def say(person, box, button):
    person.click(person.find("push button", button, within=box))
    person.closed(box)


def change_selected(person, batch):
    """Updates the selected photos with what is entered, and wants none of them edited separately."""
    person.click(person.find("push button", "Update the selected photos", within=batch))
    say(person, person.box(re.compile("^(?!Batch Edit)")), "Yes")
    say(person, person.box("Batch Edit"), "No")
    person.closed(batch)


def delete_selected(person, batch):
    person.click(person.find("push button", "Delete the selected photos", within=batch))
    question = person.box()
    say(person, question, "Yes")
    report = person.until(lambda: next((b for b in [person.box()] if "Deleted" in person.says(b)), None), "the report")
    say(person, report, "OK")
    person.closed(batch)


def open_add_audio(person, caption):
    """Opens the dialog for the sound of the photo in the editor, by the note beside that caption."""
    person.click(person.find("push button", caption))
    return person.window("Add Audio")


def record(person, dialog, seconds, speak):
    """Records for so many seconds at least; speak() begins to make a noise."""
    person.click(person.find("push button", "Record", within=dialog))
    person.find("label", "Recording", within=dialog)
    voice = speak()
    person.until(lambda: sound_seconds(person, dialog) >= seconds, f"{seconds} seconds of recording")
    person.click(person.find("push button", "Stop", within=dialog))
    voice.wait()


def sound_seconds(person, dialog):
    """How long the sound is that the dialog holds."""
    return int(person.find("label", re.compile(r"^\d+ Sec\.$"), within=dialog).name.split()[0])


def attach_recording(person, dialog):
    person.click(person.find("push button", "Attach Recording", within=dialog))
    say(person, person.box("Add Audio"), "OK")
    person.closed(dialog)


def open_album(person, name, pages):
    """Opens the pages of an album from the menu, and waits for the first of them."""
    person.menu("Tools", "View Albums", name)
    person.find("label", f"Page 1 of {pages}")


def turn_page(person, button, expected):
    person.click(person.find("push button", button))
    person.find("label", expected)


def photos_on_page(person):
    return [photo.name for photo in person.all("image", ON_PAGE)]


def photo_on_page(person, number):
    return person.find("image", re.compile(rf"^Photo {number}\b"))


def zoom(person, number):
    """Shows a photo of the page large, and answers with the button that puts it on the full screen."""
    person.click(photo_on_page(person, number))
    person.find("push button", "Edit Selected")
    person.click(person.find("push button", "Zoom"))
    person.find("label", ZOOMED)
    return person.find("check box", "Full screen")


def zoomed(person):
    """Which photo the zoom view shows, and of how many: (3, 11)."""
    return tuple(int(n) for n in person.find("label", ZOOMED).name.split(" Of "))


def on_full_screen(person):
    """The same of the full screen; nothing while it is not there."""
    photos = person.all("image", ALONE)
    return tuple(int(n) for n in photos[0].name.removeprefix("Photo ").split(" Of ")) if photos else None


def quit_program(person):
    person.menu("File", "Quit")
    return person.wait_for_the_end()
