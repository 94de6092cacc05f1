"""The designs of single pages in a real browser, filled with texts and then with none.

    designed_pages_test.py BUILD KEEP DESIGN_PAGE [unittest's options]

DESIGN_PAGE is the program that makes a page as the designer does.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from browser import Browser
from links import broken_links
from pictures import make_tone

BUILD, KEEP, DESIGN_PAGE = (pathlib.Path(argument) for argument in sys.argv[1:4])
APPLICATION = BUILD / "application"
DESIGNS = ["Wedding", "New Baby", "Birthday", "Vacation", "Reunion"]
SIZES = {"desktop": (1366, 900), "telephone": (390, 844)}
TOKEN = re.compile(r"\^\^(\w+)\^\^")


def words_of(tag):
    return "What a Wonderful Day" if tag == "Title" else "All about " + re.sub("([A-Z])", r" \1", tag).strip()


class DesignedPages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.__exit__)
        KEEP.mkdir(parents=True, exist_ok=True)

    def make(self, design, words=None, fill=False, background=APPLICATION / "Media" / "WaterMark2.gif"):
        """The page of a design with words in all its boxes and photographs in some, or with nothing."""
        home = tempfile.TemporaryDirectory(prefix="hearthbook-design-")
        self.addCleanup(home.cleanup)
        folder = pathlib.Path(home.name)
        shutil.copytree(APPLICATION / "export" / "templates", folder / "export" / "templates")
        template = folder / "export" / "templates" / design
        tags = set(TOKEN.findall((template / "index.htm").read_text())) - {"Music", "Background"}
        told = [f"text:{tag}={words(tag) if words else ''}" for tag in tags]
        told.append(f"background={background}")
        if words:
            make_tone(folder / "waltz.wav")
            told.append(f"music={folder / 'waltz.wav'}")
        if fill:
            boxes, samples = (sorted(where.glob("*.jpg")) for where in (template, BUILD / "samples"))
            told += [f"photo:{box.stem}={sample}" for box, sample in zip(boxes[::2], samples)]
        made = subprocess.run([DESIGN_PAGE, folder, design, *told], check=True, capture_output=True, text=True)
        return pathlib.Path(made.stdout.strip()), tags

    def check(self, page):
        self.assertEqual(page.errors, [])
        self.assertEqual(page.failed, [])
        broken = page.evaluate("[...document.images].filter(i => !i.naturalWidth).map(i => i.src)")
        self.assertEqual(broken, [])

    def test_every_design_shows_every_text_at_every_size(self):
        for design in DESIGNS:
            index, tags = self.make(design, words_of, fill=True)
            self.assertEqual(broken_links(index.parent), [])
            for name, size in SIZES.items():
                with self.subTest(design=design, size=name), self.browser.page(*size) as page:
                    page.open(index.as_uri())
                    self.check(page)
                    text = page.evaluate("document.body.innerText")
                    for tag in tags:
                        self.assertIn(words_of(tag), text)
                    self.assertLessEqual(page.evaluate("document.documentElement.scrollWidth"), size[0])
                    page.screenshot(KEEP / f"{design}-{name}.png")

    def test_the_ground_covers_the_whole_window(self):
        with self.browser.page(1366, 3000) as page:
            page.open(self.make("New Baby", words_of)[0].as_uri())
            self.assertGreaterEqual(page.evaluate("document.body.getBoundingClientRect().bottom"), 3000)
            self.assertIn("background.gif", page.evaluate("getComputedStyle(document.body).backgroundImage"))

    def test_the_title_can_be_read_on_a_photograph(self):
        photograph = BUILD / "samples" / "beach.jpg"
        with self.browser.page(1366, 900) as page:
            page.open(self.make("Wedding", words_of, background=photograph)[0].as_uri())
            halo, sheet = page.evaluate("[getComputedStyle(document.querySelector('h1')).textShadow,"
                                        " getComputedStyle(document.querySelector('main')).backgroundColor]")
            self.assertIn(sheet, halo)
            page.screenshot(KEEP / "Wedding-photograph.png")

    def test_on_a_telephone_what_the_page_is_about_comes_first(self):
        with self.browser.page(390, 844) as page:
            page.open(self.make("New Baby", words_of)[0].as_uri())
            tops = page.evaluate("['Baby', 'Mom', 'Dad'].map(name => document.querySelector(`img[src='${name}.jpg']`)"
                                 ".getBoundingClientRect().top)")
            self.assertEqual(tops, sorted(tops))

    def test_a_long_caption_leaves_its_photograph_as_wide_as_its_frame(self):
        index, _ = self.make("Wedding", lambda tag: "Anna Maria Theresia of the house on the hill " * 3)
        with self.browser.page(1366, 900) as page:
            page.open(index.as_uri())
            spare = page.evaluate("[...document.querySelectorAll('figure')].map(figure => figure.clientWidth"
                                  " - figure.querySelector('img').clientWidth)")
            self.assertLessEqual(max(spare), 24)
            page.screenshot(KEEP / "Wedding-long-captions.png")

    def test_on_a_very_large_screen_the_page_is_seen_from_afar(self):
        index, _ = self.make("Wedding", words_of)
        widths = []
        for size in ((1366, 900), (3840, 2160)):
            with self.browser.page(*size) as page:
                page.open(index.as_uri())
                widths.append(page.evaluate("document.querySelector('main').getBoundingClientRect().width"))
                self.assertLessEqual(page.evaluate("document.documentElement.scrollWidth"), size[0])
        self.assertGreater(widths[1], 1.5 * widths[0])

    def test_a_page_without_texts_is_a_page_all_the_same(self):
        for design in DESIGNS:
            with self.subTest(design=design), self.browser.page() as page:
                page.open(self.make(design)[0].as_uri())
                self.check(page)
                self.assertTrue(page.evaluate("document.getElementById('music').hidden"))

    def test_the_music_plays_on_a_press(self):
        with self.browser.page() as page:
            page.open(self.make("Wedding", words_of)[0].as_uri())
            page.click("document.getElementById('music')")
            page.wait_for("document.getElementById('music').getAttribute('aria-pressed') == 'true'")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
