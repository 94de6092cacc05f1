"""What one does to mail a page, step by step."""
import album_steps as steps


def open_composer(person, title):
    person.click(person.find("push button", "E-Mail"))
    return person.window(title)


def tell_server(person, composer, host):
    person.click(person.find("push button", "Change Server", within=composer))
    steps.answer(person, person.box("Outgoing Email (SMTP)"), host)
    person.until(lambda: person.find("text", "E-mail server", within=composer).text == host, host)


def address(person, composer, fields):
    for name, text in fields.items():
        person.write(person.find("text", name, within=composer), text)


def send(person, composer):
    person.click(person.find("push button", "Send message", within=composer))
    report = person.box("Hearthbook")
    said = person.says(report)
    return report, said


def accept(person, report):
    steps.say(person, report, "OK")


def leave(person, composer):
    person.click(person.find("push button", "Cancel", within=composer))
    person.closed(composer)
