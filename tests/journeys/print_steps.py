"""What one does to print, step by step, on a desktop without printers: into a file."""
import re

import album_steps as steps

NO_PRINTERS = {"CUPS_SERVER": "/nowhere/cups.sock"}


def open_print(person):
    """The program tells that it finds no printers, and offers the file."""
    person.menu("File", "Print...")
    report = person.box("Hearthbook")
    said = person.says(report)
    steps.say(person, report, "OK")
    return person.window("Print"), said


def save(person, dialog, file):
    person.click(person.find("push button", "Print", within=dialog))
    chooser = person.box("Save The Page As PDF")
    person.write(person.find("text", "File name:", within=chooser), str(file))
    person.press("Return")
    person.find("label", re.compile("^Saved as "))


def leave(person, dialog):
    person.click(person.find("push button", "Close", within=dialog))
    person.closed(dialog)
