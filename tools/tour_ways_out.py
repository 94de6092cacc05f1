"""The screens of the tour by which photographs leave the album: mail, web pages, a designed page, paper.

They expect what the tour has: `person`, `home`, `pictures`, `taken` and take().
"""
import re
import subprocess

import album_steps as steps
import design_steps
import export_steps
import mail_steps
import print_steps
import search_steps
from browser import Browser
from mail_service import MailService

SUMMER = "Summer at the lake"
SEASIDE = ("The sea", "Summer holidays")
A_FIRST_PAGE = re.compile("^1 to [0-9]+ of")

SENDER = {"Sender name": "Henry", "Sender e-mail address": "henry@example.com"}
RECIPIENT = {"Recipient name": "Rosa", "Recipient e-mail address": "rosa@example.com"}
GREETING = "Dear Rosa,\n\nthese are from last summer. Do you remember?\n\nHenry"


class WaysOut:
    def mail(self):
        """The page, without its selected photo, goes to somebody by mail, to a server on this machine."""
        self.person.click(steps.photo_on_page(self.person, 2))
        self.person.find("push button", "Edit All")
        with MailService(self.home.folder / "mail") as mail:
            composer = mail_steps.open_composer(self.person, "E-Mail Album Page")
            self.take("mail")
            mail_steps.address(self.person, composer, SENDER | RECIPIENT)
            mail_steps.address(self.person, composer, {"Message": GREETING})
            self.person.click(self.person.find("push button", "Change Server", within=composer))
            server = self.person.box("Outgoing Email (SMTP)")
            self.take("mail-server")
            steps.answer(self.person, server, mail.host)
            self.person.until(lambda: self.person.find("text", "E-mail server").text == mail.host, mail.host)
            self.take("mail-written")
            report, _ = mail_steps.send(self.person, composer)
            self.take("mail-sent")
            mail_steps.accept(self.person, report)
            mail_steps.leave(self.person, composer)

    def export(self):
        """The sub-album goes out, and is looked at in a browser."""
        stick = self.home.folder / "stick"
        stick.mkdir()
        dialog = export_steps.open_export(self.person)
        self.take("export")
        export_steps.choose(self.person, dialog, SUMMER, stick)
        self.take("export-chosen")
        question = export_steps.export(self.person, dialog)
        self.take("exported")
        steps.say(self.person, question, "No")
        export_steps.leave(self.person, dialog)
        exported = stick / SUMMER.replace(" ", "_")
        self.in_browser((exported / f"{exported.name.lower()}.htm", "", "pages-start"),
                        (exported / "frameset.htm", "?Page=3", "pages-photo"))

    def in_browser(self, *pages):
        """Pages that went out: the file, what stands behind its address, and the name of its picture."""
        with Browser() as browser, browser.page(1024, 768) as page:
            for file, query, name in pages:
                page.open(file.as_uri() + query)
                self.taken.append(self.pictures / f"{len(self.taken) + 1:02}-{name}.png")
                page.screenshot(self.taken[-1])

    def design(self):
        """One page of the holidays: a design, words, parts of two photos."""
        designer = design_steps.open_designer(self.person)
        self.take("design")
        design_steps.choose_design(self.person, designer, "Vacation")
        for field, text in (("Title", SUMMER), ("Best Day", "All of us, and nobody wet yet")):
            self.person.write(self.person.find("text", field, within=designer), text)
        self.put(designer, "Best Day", "Person", "Emil", ((0.08, 0.42), (0.85, 0.85)), taken=True)
        self.put(designer, "On the Way", "Event", SEASIDE[1], ((0.25, 0.4), (0.75, 0.88)))
        self.take("design-filled")
        question = design_steps.done(self.person, designer)
        self.take("designed")
        steps.say(self.person, question, "No")
        self.person.closed(designer)
        self.in_browser((self.home.album / "export" / "testing1" / "index.htm", "", "designed-page"))

    def put(self, designer, box, kind, entry, region, taken=False):
        """The first photo that is found goes into the box; `taken`: with pictures of how."""
        photos = design_steps.ask_for_photo(self.person, designer, box, kind, entry)
        if taken:
            self.take("design-photos")
        select = design_steps.mark(self.person, designer, photos[0], *region)
        if taken:
            self.take("design-region")
        design_steps.take(self.person, designer, select)

    def paper(self):
        """A page of the album and a page of thumbnails go into PDFs, which are looked at."""
        self.person.menu("Tools", "View Albums", "Master Album")
        self.person.find("label", re.compile("^Page 1 of "))
        self.printed("printed-page", "print-page")
        search_steps.open_search(self.person)
        search_steps.search(self.person, A_FIRST_PAGE)
        self.printed("printed-thumbnails", "print-thumbnails")

    def printed(self, name, form):
        file = self.home.folder / f"{name}.pdf"
        dialog, _ = print_steps.open_print(self.person)
        self.take(form)
        print_steps.save(self.person, dialog, file)
        print_steps.leave(self.person, dialog)
        picture = self.pictures / f"{len(self.taken) + 1:02}-{name}"
        subprocess.run(["pdftoppm", "-png", "-r", "96", "-singlefile", file, picture], check=True)
        self.taken.append(picture.with_suffix(".png"))
