"""The designs of single pages in a real browser, filled with texts and then with none.

    designed_pages_test.py BUILD KEEP [unittest's options]
"""
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

from browser import Browser
from links import broken_links
from pictures import make_tone, resize, size_of

BUILD, KEEP = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
APPLICATION = BUILD / "application"
DESIGNS = ["Wedding", "New Baby", "Birthday", "Vacation", "Reunion"]
SIZES = {"desktop": (1366, 900), "telephone": (390, 844)}
TOKEN = re.compile(r"\^\^(\w+)\^\^")


def words_of(tag):
    return {"Title": "What a Wonderful Day", "Music": "music.wav", "Background": "background.gif"}.get(
        tag, "All about " + re.sub("([A-Z])", r" \1", tag).strip())


class DesignedPages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.__exit__)
        KEEP.mkdir(parents=True, exist_ok=True)

    def make(self, design, tell):
        """The page of a design with each token as `tell` tells it."""
        folder = tempfile.TemporaryDirectory(prefix="hearthbook-design-")
        self.addCleanup(folder.cleanup)
        page = pathlib.Path(folder.name) / "testing1"
        shutil.copytree(APPLICATION / "export" / "templates" / design, page)
        index = page / "index.htm"
        text = index.read_text()
        index.write_text(TOKEN.sub(lambda token: tell(token[1]), text))
        shutil.copy(APPLICATION / "Media" / "WaterMark2.gif", page / "background.gif")
        make_tone(page / "music.wav")
        return index, set(TOKEN.findall(text))

    def check(self, page):
        self.assertEqual(page.errors, [])
        self.assertEqual(page.failed, [])
        broken = page.evaluate("[...document.images].filter(i => !i.naturalWidth).map(i => i.src)")
        self.assertEqual(broken, [])

    def test_every_design_shows_every_text_at_every_size(self):
        for design in DESIGNS:
            index, tags = self.make(design, words_of)
            self.fill(index.parent)
            self.assertEqual(broken_links(index.parent), [])
            for name, size in SIZES.items():
                with self.subTest(design=design, size=name), self.browser.page(*size) as page:
                    page.open(index.as_uri())
                    self.check(page)
                    text = page.evaluate("document.body.innerText")
                    for tag in tags - {"Music", "Background"}:
                        self.assertIn(words_of(tag), text)
                    self.assertLessEqual(page.evaluate("document.documentElement.scrollWidth"), size[0])
                    page.screenshot(KEEP / f"{design}-{name}.png")

    @staticmethod
    def fill(folder):
        """Photographs into some of the boxes."""
        samples = sorted((BUILD / "samples").glob("*.jpg"))
        for photo, sample in zip(sorted(folder.glob("*.jpg"))[::2], samples):
            width, height = size_of(photo)
            resize(sample, photo, f"{width}x{height}!")

    def test_a_page_without_texts_is_a_page_all_the_same(self):
        for design in DESIGNS:
            with self.subTest(design=design), self.browser.page() as page:
                page.open(self.make(design, lambda tag: "")[0].as_uri())
                self.check(page)
                self.assertTrue(page.evaluate("document.getElementById('music').hidden"))

    def test_the_music_plays_on_a_press(self):
        with self.browser.page() as page:
            page.open(self.make("Wedding", words_of)[0].as_uri())
            page.click("document.getElementById('music')")
            page.wait_for("document.getElementById('music').getAttribute('aria-pressed') == 'true'")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
