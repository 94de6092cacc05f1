"""The pages of an exported album in a real browser, from the disk and from a server, on screens of several sizes.

    exported_pages_test.py ALBUMS KEEP [unittest's options]
"""
import contextlib
import functools
import http.server
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest
import urllib.parse

from browser import Browser
from family import PHOTOS, TITLE, faces
from links import broken_links
from pictures import size_of

ALBUMS, KEEP = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
DESKTOP, TELEPHONE = (1366, 768), (390, 844)
MISSING = [n for n, photo in enumerate(PHOTOS, 1) if photo.missing]
HERE, GONE = "!document.getElementById('mount').hidden", "!document.getElementById('missing').hidden"


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


@contextlib.contextmanager
def server(folder):
    handler = functools.partial(QuietHandler, directory=folder)
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler) as served:
        threading.Thread(target=served.serve_forever, daemon=True).start()
        yield f"http://127.0.0.1:{served.server_port}"
        served.shutdown()


def expected_missing(address):
    """What an album without one of its photographs lacks."""
    return address.endswith("favicon.ico") or any(
        re.search(rf"/data/(t{n}\.jpg|{n}\.jpg|{n}\.htm)$", address) for n in MISSING)


class ExportedPages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.open = contextlib.ExitStack()
        cls.start = ALBUMS / "Our_Family" / "our_family.htm"
        cls.tree = cls.start.parent
        cls.server = cls.open.enter_context(server(cls.tree))
        cls.ways = {"disk": cls.tree.as_uri(), "server": cls.server}
        cls.browser = cls.open.enter_context(Browser())
        KEEP.mkdir(parents=True, exist_ok=True)

    @classmethod
    def tearDownClass(cls):
        cls.open.close()

    @contextlib.contextmanager
    def page(self, size=DESKTOP, telephone=False):
        with self.browser.page(*size, telephone) as page:
            yield page
            self.assertEqual(page.errors, [], "no script fails")
            self.assertEqual([f for f in page.failed if not expected_missing(f)], [], "no file is missing")

    def show(self, page, root, number, more=""):
        page.open(f"{root}/frameset.htm?Page={number}{more}")
        self.wait_for_photo(page, number)

    @staticmethod
    def wait_for_photo(page, number):
        state = GONE if number in MISSING else HERE
        page.wait_for(f"document.getElementById('picture').src.endsWith('/data/{number}.jpg') && {state}", "leftCtrl")
        page.wait_for(f"document.getElementById('number').value == {number}", "rightCtrl")
        if number not in MISSING:
            page.wait(lambda: page.frame_address("side").endswith(f"/data/{number}.htm"), f"side page {number}")

    def test_the_start_page_shows_the_title_and_every_thumbnail(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                page.open(f"{root}/{self.start.name}")
                self.assertEqual(page.evaluate("document.title"), TITLE)
                self.assertEqual(page.evaluate("document.querySelector('h1').textContent"), TITLE)
                widths = page.evaluate("[...document.querySelectorAll('#thumbs img')].map(i => i.naturalWidth)")
                self.assertEqual([n for n, width in enumerate(widths, 1) if not width], MISSING)
                names = page.evaluate("[...document.querySelectorAll('#thumbs img')].map(i => i.alt)")
                self.assertEqual(names, [f"Photograph {n}" for n in range(1, len(PHOTOS) + 1)])

    def test_every_page_shows_its_photograph_with_its_side_page(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                for number, photo in enumerate(PHOTOS, 1):
                    self.show(page, root, number)
                    page.wait_for(f"document.title == 'Photograph {number} of {len(PHOTOS)}'")
                    if photo.missing:
                        continue
                    page.wait_for("document.readyState == 'complete'", "side")
                    text = page.evaluate("document.body.innerText", "side")
                    for told in (str(photo.year or "----"), f"{photo.event} in {photo.place}", *photo.names,
                                 photo.description.strip()):
                        self.assertIn(told, text)

    def test_a_number_behind_the_last_shows_the_last(self):
        with self.page() as page:
            page.open(self.tree.as_uri() + "/frameset.htm?Page=4711")
            self.wait_for_photo(page, len(PHOTOS))

    def test_anything_but_a_number_shows_the_first(self):
        for query in ("", "?Page=", "?Page=x", "?Page=%", "?Page=%E9", "?Page=0", "?Page=-3"):
            with self.subTest(query=query), self.page() as page:
                page.open(self.tree.as_uri() + "/frameset.htm" + query)
                self.wait_for_photo(page, 1)

    def test_the_marker_stands_on_the_face_at_every_size(self):
        for way, root in self.ways.items():
            for size in ((1024, 768), (3840, 2160), TELEPHONE, (844, 390), (320, 480)):
                with self.subTest(way, size=size), self.page(size) as page:
                    self.show(page, root, 1)
                    for number, name in ((1, "Clara"), (1, "Henry"), (9, "Rosa")):
                        self.check_marker(page, root, number, name)

    def test_a_marker_that_lost_its_last_digits_stands_as_near_as_they_tell(self):
        longer = max(size_of(self.tree / "data" / "1.jpg"))
        for cords, y in (("0341X1022", 1022), ("-0341X102", 1025), ("5-0341X10", 1050)):
            with self.subTest(cords=cords), self.page() as page:
                page.open(f"{self.tree.as_uri()}/html/leftctrl.htm?Page=1&cords={cords}")
                page.wait_for(f"{HERE} && !document.getElementById('marker').hidden")
                left, top = page.evaluate("[parseFloat(marker.style.left) / 100 * picture.naturalWidth,"
                                          " parseFloat(marker.style.top) / 100 * picture.naturalHeight]")
                self.assertAlmostEqual(left, 341 / 5760 * longer, places=2)
                self.assertAlmostEqual(top, y / 5760 * longer, places=2)

    def check_marker(self, page, root, number, name):
        self.show(page, root, number)
        page.wait_for("document.readyState == 'complete'", "side")
        row = f"[...document.querySelectorAll('td')].find(t => !t.querySelector('td') && t.innerText.includes('{name}'))"
        page.evaluate(f"{row}.querySelector('a').click()", "side")
        page.wait_for(f"location.search.includes('cords') && {HERE} && !document.getElementById('marker').hidden", "leftCtrl")
        self.assertTrue(page.evaluate(f"document.getElementById('picture').src.endsWith('/{number}.jpg')", "leftCtrl"))
        place = page.evaluate("(() => { const p = picture.getBoundingClientRect(), m = marker.getBoundingClientRect();"
                              " return [(m.left + m.width / 2 - p.left) / p.width, (m.bottom - p.top) / p.height,"
                              " p.width, p.height]; })()", "leftCtrl")
        photo = PHOTOS[number - 1]
        size = size_of(self.tree / "data" / f"{number}.jpg")
        upright = (1600, 1200) if size[0] > size[1] else (1200, 1600)
        face = faces(photo.file)[name]
        self.assertAlmostEqual(place[0], face[0] / upright[0], delta=2 / place[2])
        self.assertAlmostEqual(place[1], face[1] / upright[1], delta=2 / place[3])

    def test_the_whole_photograph_is_in_sight(self):
        for size in ((1024, 768), (3840, 2160), TELEPHONE, (320, 480)):
            with self.subTest(size=size), self.page(size) as page:
                for number in (1, 3):
                    self.show(page, self.tree.as_uri(), number)
                    self.assertTrue(page.evaluate(
                        "(r => r.left >= 0 && r.top >= 0 && r.right <= innerWidth && r.bottom <= innerHeight)"
                        "(picture.getBoundingClientRect())", "leftCtrl"))

    def test_on_a_very_large_screen_nothing_is_tiny(self):
        with self.page((3840, 2160)) as page:
            page.open(f"{self.tree.as_uri()}/{self.start.name}")
            self.assertGreater(page.evaluate("document.querySelector('#thumbs').getBoundingClientRect().width"), 1920)
            page.screenshot(KEEP / "start-large.png")
            self.show(page, self.tree.as_uri(), 1)
            page.wait_for("!document.getElementById('sound').hidden", "rightCtrl")
            self.assertGreater(page.evaluate("picture.getBoundingClientRect().height / innerHeight", "leftCtrl"), .6)
            self.assertTrue(page.evaluate("document.documentElement.scrollWidth <= innerWidth && "
                                          "document.documentElement.scrollHeight <= innerHeight", "rightCtrl"))
            page.click("document.links[0]", "side")
            page.wait_for(f"{HERE} && !document.getElementById('marker').hidden", "leftCtrl")
            page.screenshot(KEEP / "photograph-large.png")
            page.click("document.getElementById('next')", "rightCtrl")
            self.wait_for_photo(page, 2)

    def test_no_page_is_wider_than_a_telephone(self):
        with self.page(TELEPHONE, telephone=True) as page:
            page.open(f"{self.tree.as_uri()}/{self.start.name}")
            self.assertLessEqual(page.evaluate("document.documentElement.scrollWidth"), TELEPHONE[0])
            page.screenshot(KEEP / "start-telephone.png")
            self.show(page, self.tree.as_uri(), 1, f"&Album={self.start.name}")
            page.wait_for("!document.getElementById('sound').hidden", "rightCtrl")
            for frame in ("leftCtrl", "rightCtrl"):
                self.assertTrue(page.evaluate("document.documentElement.scrollWidth <= innerWidth && "
                                              "document.documentElement.scrollHeight <= innerHeight", frame), frame)
            page.screenshot(KEEP / "photograph-telephone.png")

    def test_keys_and_buttons_go_from_photograph_to_photograph(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                self.show(page, root, 2)
                page.key("ArrowRight", 39)
                self.wait_for_photo(page, 3)
                page.key("ArrowLeft", 37)
                self.wait_for_photo(page, 2)
                page.key("End", 35)
                self.wait_for_photo(page, len(PHOTOS))
                page.key("ArrowRight", 39)  # there is none
                page.key("Home", 36)
                self.wait_for_photo(page, 1)
                page.click("document.getElementById('next')", "rightCtrl")
                self.wait_for_photo(page, 2)
                page.click("document.getElementById('previous')", "rightCtrl")
                self.wait_for_photo(page, 1)

    def test_keys_go_on_after_a_click_on_a_name(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                self.show(page, root, 2)
                page.click("document.links[0]", "side")
                page.wait_for(f"location.search.includes('cords') && {HERE}", "leftCtrl")
                page.wait_for("document.activeElement !== document.getElementById('side') || location.protocol == 'http:'")
                page.key("ArrowRight", 39)
                self.wait_for_photo(page, 3)

    def test_a_number_that_is_typed_is_shown(self):
        with self.page() as page:
            self.show(page, self.tree.as_uri(), 1)
            page.click("document.getElementById('number')", "rightCtrl")
            page.call("Input.insertText", text="7")
            page.call("Input.dispatchKeyEvent", type="keyDown", key="Enter", code="Enter", text="\r",
                      windowsVirtualKeyCode=13)
            self.wait_for_photo(page, 7)

    def test_the_browsers_back_goes_back_one_photograph(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                self.show(page, root, 1)
                page.key("ArrowRight", 39)
                self.wait_for_photo(page, 2)
                page.evaluate("history.back()")
                self.wait_for_photo(page, 1)

    def test_a_finger_drawn_across_pages_on(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page(TELEPHONE, telephone=True) as page:
                self.show(page, root, 2)
                page.swipe((300, 200), (80, 210))
                self.wait_for_photo(page, 3)
                page.swipe((80, 200), (300, 210))
                self.wait_for_photo(page, 2)

    def test_a_press_plays_the_sound_and_nothing_plays_unasked(self):
        button = "document.getElementById('sound')"
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                self.show(page, root, 1)
                page.wait_for(f"!{button}.hidden", "rightCtrl")
                self.assertEqual(page.evaluate(f"{button}.getAttribute('aria-pressed')", "rightCtrl"), "false")
                self.assertEqual(self.playing_unasked(page), [])
                page.click(button, "rightCtrl")
                page.wait_for(f"{button}.getAttribute('aria-pressed') == 'true'", "rightCtrl")
                page.key("ArrowRight", 39)
                self.wait_for_photo(page, 2)
                page.wait_for(f"{button}.hidden", "rightCtrl")

    def test_a_sound_is_found_whatever_its_file_is_called(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                self.show(page, root, 6)
                page.click("document.getElementById('sound')", "rightCtrl")
                page.wait_for("document.getElementById('sound').getAttribute('aria-pressed') == 'true'", "rightCtrl")
                self.show(page, root, 7)
                page.wait_for("document.getElementById('tune').href.endsWith('/audio/7.MID')", "rightCtrl")
                self.assertTrue(page.evaluate("sound.hidden && !tune.hidden", "rightCtrl"))

    @staticmethod
    def playing_unasked(page):
        """Sounds that play in frames inside the side page."""
        playing = []
        for context in page.contexts.values():
            result = page.call("Runtime.evaluate", contextId=context, returnByValue=True,
                               expression="[...document.querySelectorAll('audio, video')].filter(v => !v.paused).length")
            if result["result"].get("value"):
                playing.append(context)
        return playing

    def test_a_press_plays_the_music_of_the_album(self):
        button = "document.getElementById('sound')"
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                page.open(f"{root}/{self.start.name}")
                page.click(button)
                page.wait_for(f"{button}.getAttribute('aria-pressed') == 'true'")
                page.click(button)
                page.wait_for(f"{button}.getAttribute('aria-pressed') == 'false'")

    def test_an_album_without_music_offers_none(self):
        start = ALBUMS / "Quiet" / "quiet.htm"
        with self.page() as page:
            page.open(start.as_uri())
            self.assertTrue(page.evaluate("sound.hidden && tune.hidden"))

    def test_music_that_came_from_a_disc_is_offered_though_the_page_does_not_name_it(self):
        with tempfile.TemporaryDirectory(prefix="hearthbook-pages-") as folder, self.page() as page:
            tree = pathlib.Path(shutil.copytree(ALBUMS / "Quiet", pathlib.Path(folder) / "Quiet"))
            (tree / "html" / "photos.js").write_text('var albumPhotos = {"music": "Quiet.mid", "photos": {}};')
            page.open((tree / "quiet.htm").as_uri())
            self.assertTrue(page.evaluate("!tune.hidden && tune.href.endsWith('/audio/Quiet.mid')"))

    def test_an_album_of_any_name_opens_and_leads_back(self):
        start, = (page for page in ALBUMS.glob("*vian*/*.htm") if page.name != "frameset.htm")
        with server(start.parent) as address:
            for root in (start.parent.as_uri(), address):
                with self.subTest(root), self.page() as page:
                    page.open(f"{root}/{urllib.parse.quote(start.name)}")
                    self.assertEqual(page.evaluate("document.querySelector('h1').textContent"), "Été à Évian: #1 & 'mehr'")
                    page.click("document.getElementById('sound')")
                    page.wait_for("document.getElementById('sound').getAttribute('aria-pressed') == 'true'")
                    page.open(page.evaluate("document.querySelectorAll('#thumbs a')[2].href"))
                    self.wait_for_photo(page, 3)
                    page.wait_for("document.body.innerText.includes('Fête d’été in Évian')", "side")
                    page.click("document.getElementById('album')", "rightCtrl")
                    page.wait(lambda: urllib.parse.unquote(page.evaluate("location.pathname") or "").endswith("/" + start.name),
                              "the album")

    def test_an_empty_album_opens_and_leads_nowhere(self):
        with self.page() as page:
            page.open((ALBUMS / "Empty" / "empty.htm").as_uri())
            self.assertEqual(page.evaluate("document.querySelector('h1').textContent"), "Empty")
            self.assertEqual(page.evaluate("document.querySelectorAll('#thumbs td').length"), 8)
            self.assertEqual(page.evaluate("document.querySelectorAll('#thumbs a').length"), 0)
            self.assertTrue(page.evaluate("document.body.innerText.includes('no photographs')"))
            page.screenshot(KEEP / "start-empty.png")

    def test_an_empty_album_shows_no_photograph(self):
        for way, root in {"disk": (ALBUMS / "Empty").as_uri(), "server": None}.items():
            with self.subTest(way), contextlib.ExitStack() as opened:
                root = root or opened.enter_context(server(ALBUMS / "Empty"))
                page = opened.enter_context(self.page())
                page.open(f"{root}/frameset.htm?Page=1")
                page.wait_for("document.getElementById('count').textContent == '0'", "rightCtrl")
                self.assertEqual(page.evaluate("document.getElementById('number').value", "rightCtrl"), "0")
                page.key("ArrowRight", 39)
                page.key("End", 35)
                self.assertTrue(page.evaluate("document.body.innerText.includes('no photographs')"))
                self.assertTrue(page.evaluate("!location.hash && ['photo', 'side'].every("
                                              "frame => document.getElementById(frame).hidden)"))
                page.screenshot(KEEP / "photograph-empty.png")

    def test_a_start_page_whose_name_is_not_utf8_works_all_the_same(self):
        with tempfile.TemporaryDirectory(prefix="hearthbook-pages-") as folder, self.page() as page:
            tree = pathlib.Path(shutil.copytree(ALBUMS / "Quiet", pathlib.Path(folder) / "Quiet"))
            (tree / "quiet.htm").rename(os.fsdecode(bytes(tree) + b"/\xe9t\xe9.htm"))
            page.open(f"{tree.as_uri()}/%E9t%E9.htm")
            page.wait_for("document.readyState == 'complete'")
            self.assertFalse(page.evaluate("document.getElementById('print').hidden"))
            page.open(page.evaluate("document.querySelector('#thumbs a').href"))
            page.wait_for(f"document.getElementById('picture').src.endsWith('/data/1.jpg') && {HERE}", "leftCtrl")

    def test_a_thumbnail_leads_to_its_photograph_and_from_there_back_to_the_album(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                page.open(f"{root}/{self.start.name}")
                self.assertEqual(page.evaluate("document.querySelectorAll('#thumbs a')[3].target"), "_blank")
                page.open(page.evaluate("document.querySelectorAll('#thumbs a')[3].href"))
                self.wait_for_photo(page, 4)
                page.wait_for("!document.getElementById('album').hidden", "rightCtrl")
                page.click("document.getElementById('album')", "rightCtrl")
                page.wait(lambda: (page.evaluate("location.pathname") or "").endswith("/" + self.start.name), "the album")

    def test_the_way_back_never_leads_out_of_the_album(self):
        for name in ("javascript:alert(1)", "http://example.com/x.htm", "..%2Fx.htm", "x.exe"):
            with self.subTest(name=name), self.page() as page:
                self.show(page, self.tree.as_uri(), 1, f"&Album={name}")
                self.assertTrue(page.evaluate("document.getElementById('album').hidden", "rightCtrl"))

    def test_a_photograph_is_printed_with_its_side_page_on_one_sheet(self):
        with self.page() as page:
            self.show(page, self.tree.as_uri(), 1)
            printed = page.printed()
            (KEEP / "photograph.pdf").write_bytes(printed)
            self.assertEqual(len(re.findall(rb"/Type /Page\b", printed)), 1)

    def test_paper_is_printed_white(self):
        with self.page() as page:
            page.call("Emulation.setEmulatedMedia", media="print")
            for address, frame in ((self.start.name, None), ("frameset.htm?Page=1", "leftCtrl")):
                page.open(f"{self.tree.as_uri()}/{address}")
                page.wait_for("document.readyState == 'complete' && getComputedStyle(document.body).background"
                              ".startsWith('rgb(255, 255, 255) none')", frame)

    def test_a_long_description_is_printed_to_its_end(self):
        for way, root in self.ways.items():
            with self.subTest(way), self.page() as page:
                self.show(page, root, 4)
                printed = KEEP / "description.pdf"
                printed.write_bytes(page.printed())
                text = subprocess.run(["pdftotext", printed, "-"], check=True, capture_output=True, text=True).stdout
                for told in ("2000", "Holidays in Beach", "Grüße vom Strand", "Zum Schluss ein Kuchen."):
                    self.assertEqual(" ".join(text.split()).count(told), 1, told)

    def test_screens_are_kept_to_be_looked_at(self):
        with self.page() as page:
            page.open(f"{self.tree.as_uri()}/{self.start.name}")
            page.screenshot(KEEP / "start-desktop.png")
            self.show(page, self.tree.as_uri(), 4)
            page.wait_for("document.readyState == 'complete'", "side")
            page.screenshot(KEEP / "photograph-desktop.png")

    def test_every_link_of_every_page_leads_to_a_file(self):
        trees = [tree for tree in ALBUMS.iterdir() if tree.is_dir()]
        self.assertEqual(len(trees), 4)
        for tree in trees:
            with self.subTest(tree.name):
                broken = [link for link in broken_links(tree) if not (tree == self.tree and expected_missing("/" + link))]
                self.assertEqual(broken, [])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
