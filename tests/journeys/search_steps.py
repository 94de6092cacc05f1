"""What one does on Search Photos, step by step."""


def open_search(person):
    person.menu("Tools", "Search Photos")
    person.find("push button", "Search")


def choose(person, what, entry):
    """Clicks an entry of the lists of places, events and names."""
    person.click(person.find("list item", entry, within=person.find("list", what)))


def search(person, expected):
    person.click(person.find("push button", "Search"))
    shows(person, expected)


def shows(person, expected):
    """Waits for the words above the photos, such as "25 to 48 of 60"."""
    person.find("label", expected)


def edit(person, expected):
    """Opens the editor on what is selected and waits until it says where it stands."""
    person.click(person.find("push button", "Edit"))
    person.find("label", expected)


def leave_editor(person):
    person.click(person.find("push button", "Done"))
    person.find("push button", "Search")
