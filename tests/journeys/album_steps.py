"""What one does with an album, step by step, as the guide tells it."""
import os
import pathlib
import re
import subprocess

from person import Person

POSITION = re.compile(r"^-?\d+ of \d+$")


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


def quit_program(person):
    person.menu("File", "Quit")
    return person.wait_for_the_end()
