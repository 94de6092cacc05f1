"""What the pages of a folder refer to, and what of it is not there: spelt exactly, as a server wants it."""
import html.parser
import re
import urllib.parse


IN_STYLES = re.compile(r"""url\(['"]?([^)'"]+)['"]?\)""")


class References(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.found = []

    def handle_starttag(self, tag, attributes):
        self.found += [value for name, value in attributes if name in ("href", "src", "background") and value]
        self.found += IN_STYLES.findall(dict(attributes).get("style") or "")


def references(file):
    text = file.read_text(encoding="utf-8-sig")
    if file.suffix == ".css":
        return IN_STYLES.findall(text)
    parser = References()
    parser.feed(text)
    return parser.found


def names_in(tree):
    return {path.relative_to(tree).as_posix() for path in tree.rglob("*")}


def target(page, reference):
    """The path that a reference on a page means; empty where it leads out of the folder."""
    joined = urllib.parse.urljoin("http://album/" + page, reference.replace("\\", "/"))
    parts = urllib.parse.urlsplit(joined)
    return urllib.parse.unquote(parts.path.lstrip("/")) if parts.netloc == "album" else ""


def broken_links(tree):
    there = names_in(tree)
    pages = sorted(name for name in there if name.endswith((".htm", ".css")))
    wanted = [target(page, reference) for page in pages for reference in references(tree / page)]
    return sorted({path for path in wanted if path and path not in there})
