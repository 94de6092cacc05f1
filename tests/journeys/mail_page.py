#!/usr/bin/python3
"""A family mails a page of its album, then one photograph of it, and both arrive.

mail_page.py BUILD KEEP: as the other journeys.
"""
import subprocess

import album_steps as steps
import family_album
import mail_steps
from journey import expect, run
from mail_service import MailService

PHOTOS = 6
PEOPLE = {"Sender name": "Henry", "Sender e-mail address": "henry@example.com",
          "Recipient name": "Anna", "Recipient e-mail address": "anna@example.com"}


def size_of(jpeg):
    told = subprocess.run(["identify", "-format", "%m %w", "-"], input=jpeg, check=True, stdout=subprocess.PIPE)
    return told.stdout.decode()


def mail_the_page(person, mail):
    steps.open_album(person, "Master Album", pages=2)
    composer = mail_steps.open_composer(person, "E-Mail Album Page")
    mail_steps.address(person, composer, PEOPLE)
    mail_steps.address(person, composer, {"Subject": "From our album", "Message": "Dear Anna,\n\nlook!"})
    mail_steps.tell_server(person, composer, mail.host)
    report, said = mail_steps.send(person, composer)
    expect(said == "Message sent successfully.", said)
    mail_steps.accept(person, report)
    mail_steps.leave(person, composer)
    arrived = mail.mail(1)
    expect(arrived.startswith(b"From:Henry <henry@example.com>\r\nTo:Anna <anna@example.com>\r\n"
                              b"Subject:From our album\r\n\r\nDear Anna,\r\n\r\nlook!\r\n"), arrived[:200])
    photos = mail.photos(1)
    expect(sorted(photos) == ["00001.jpg", "00002.jpg", "00003.jpg", "00004.jpg"], sorted(photos))
    for name, jpeg in photos.items():
        expect(size_of(jpeg) == "JPEG 320", f"{name} is 320 wide: {size_of(jpeg)}")


def mail_one(person, mail):
    person.click(steps.photo_on_page(person, 2))
    person.find("push button", "Edit Selected")
    composer = mail_steps.open_composer(person, "E-Mail Selected Photo")
    expect(person.find("text", "Sender name", within=composer).text == "Henry", "the sender is remembered")
    expect(person.find("text", "E-mail server", within=composer).text == mail.host, "the server too")
    expect("Picture 00002:" in person.find("text", "Message", within=composer).text, "the photograph's own words")
    mail_steps.address(person, composer, {"Recipient e-mail address": "rosa@example.com"})
    report, said = mail_steps.send(person, composer)
    expect(said == "Message sent successfully.", said)
    mail_steps.accept(person, report)
    mail_steps.leave(person, composer)
    expect(list(mail.photos(2)) == ["00002.jpg"], "the selected photograph alone")


def tell(journey):
    family_album.fill(journey.home, PHOTOS)
    with MailService(journey.home.folder / "mail") as mail, journey.evening() as person:
        mail_the_page(person, mail)
        mail_one(person, mail)
        expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
