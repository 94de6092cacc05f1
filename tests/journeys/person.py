"""Somebody at the program: finds things by what they say, clicks, types and reads.

Nothing here reaches into the program. What is found is what a screen reader would say, what is done
is done with the mouse and the keyboard of the hidden desktop.
"""
import functools
import itertools
import os
import re
import signal
import subprocess

from hidden_desktop import Failure, wait_for

MENU_ITEMS = ("menu item", "check menu item")
BOXES = ("dialog", "alert", "file chooser")
UNSEEN_UNTIL_OPENED = ("menu item", "check menu item", "popup menu", "list item")
LONG_LIST = 400
LATEST_ANSWER = 60_000  # milliseconds


@functools.cache
def _atspi():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
    Atspi.set_timeout(LATEST_ANSWER, LATEST_ANSWER)  # a busy program answers late; else 0.8 s
    return Atspi


class Thing:
    """One control, label, window or list entry on the screen."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name() or ""

    @property
    def role(self):
        return self.node.get_role_name()

    @property
    def text(self):
        """What a person reads in it: the content of a field, else what stands on it."""
        atspi = _atspi()
        if "Text" in self.node.get_interfaces():
            content = atspi.Text.get_text(self.node, 0, -1)
            if content or self.role == "text":
                return content
        return self.name

    @property
    def place(self):
        extents = self.node.get_extents(_atspi().CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    @property
    def middle(self):
        x, y, width, height = self.place
        return x + width // 2, y + height // 2

    def has(self, state):
        try:
            return self.node.get_state_set().contains(getattr(_atspi().StateType, state.upper()))
        except Exception:  # gone meanwhile
            return False

    @property
    def enabled(self):
        return self.has("enabled")

    def children(self):
        try:
            nodes = [self.node.get_child_at_index(i) for i in range(self.node.get_child_count())]
        except Exception:  # gone meanwhile
            return []
        return [Thing(node) for node in nodes if node is not None]

    def everything(self):
        """This and all that is seen below it, top to bottom. Very long lists are not entered."""
        yield self
        try:
            if self.node.get_child_count() > LONG_LIST:
                return
        except Exception:
            return
        for child in self.children():
            try:
                seen = child.has("showing") or child.role in UNSEEN_UNTIL_OPENED
            except Exception:
                continue
            if seen:
                yield from child.everything()


class Person:
    """with Person(desktop, program, folder) as anna: starts the program, ends it at the latest on leaving."""

    def __init__(self, desktop, program, environment=None, log=None):
        self.desktop = desktop
        self._environment = dict(desktop.environment, **(environment or {}))
        self._log = open(log or os.devnull, "ab")
        self.process = subprocess.Popen([str(program)], env=self._environment, stdin=subprocess.DEVNULL,
                                        stdout=self._log, stderr=subprocess.STDOUT)
        self.program = Thing(wait_for(self._on_the_bus, "the program's first window"))
        self._let_the_window_come_up()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(20)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self._log.close()

    # ---- looking

    def all(self, role, name=None, within=None):
        return list(self._hits(role, name, within))

    def find(self, role, name=None, within=None, nth=0):
        """`name` may be the whole text or a compiled pattern."""
        def look():
            self._must_run()
            return next(itertools.islice(self._hits(role, name, within), nth, None), None)
        try:
            return wait_for(look, f"{role} {name!r}")
        except Failure as failure:
            seen = sorted({f"{t.role} {t.name!r}" for t in self.program.everything() if t.name})
            raise Failure(f"{failure}; there are {', '.join(seen)}"[:3000]) from None

    def window(self, title):
        """A form of the program in a window of its own."""
        return self.until(lambda: self._newest(title, lambda role: role not in BOXES), f"the window {title!r}")

    def box(self, title=None):
        """The message or question that lies over everything else."""
        return self.until(lambda: self._newest(title, lambda role: role in BOXES), f"a box {title or ''}")

    def closed(self, window):
        self.until(lambda: not window.has("showing"), "the window closed")

    def says(self, box):
        return "\n".join(t.name for t in box.everything() if t.role == "label" and t.name)

    def until(self, look, what):
        def running():
            self._must_run()
            return look()
        return wait_for(running, what)

    # ---- doing

    def click(self, thing, times=1, holding=()):
        self.until(lambda: thing.enabled, f"{thing.role} {thing.name!r} enabled")
        self.point(thing)
        for key in holding:
            self._hand("keydown", key)
        self._hand("click", "--repeat", str(times), "--delay", "70", "1")
        for key in holding:
            self._hand("keyup", key)

    def click_at(self, thing, across, down, button=1):
        """A spot of a picture, told in shares of its width and height."""
        left, top, width, height = thing.place
        self._move(round(left + across * width), round(top + down * height))
        self._hand("click", str(button))

    def drag_on(self, thing, start, end):
        """Draws on a picture with the button held; told in shares of its width and height."""
        left, top, width, height = thing.place
        def spot(at):
            return round(left + at[0] * width), round(top + at[1] * height)
        self._move(*spot(start))
        self._hand("mousedown", "1")
        self._move(*spot(((start[0] + end[0]) / 2, (start[1] + end[1]) / 2)))
        self._move(*spot(end))
        self._hand("mouseup", "1")

    def hold_down(self, thing):
        """Presses the button on a thing and pulls a little at it."""
        self.point(thing)
        self._hand("mousedown", "1")
        x, y = thing.middle
        for step in (6, 12, 18):
            self._move(x + step, y)

    def drag_over(self, thing):
        """Comes over another thing with the button held."""
        left, top, width, height = thing.place
        for share in (0.4, 0.6, 0.5):
            self._move(round(left + share * width), round(top + share * height))

    def let_go(self):
        self._hand("mouseup", "1")

    def point(self, thing):
        self._move(*thing.middle)

    def _move(self, x, y):
        # Twice, one pixel apart: a pointer that is there already would not be seen to move.
        self._hand("mousemove", str(x - 1), str(y), "mousemove", str(x), str(y))

    def press(self, *keys):
        for key in keys:
            self._hand("key", "--clearmodifiers", key)

    def write(self, field, text):
        """Clicks into the field and types over what was there."""
        self.click(field)
        self.until(lambda: field.has("focused"), f"the focus in {field.name!r}")
        self.press("ctrl+a", "Delete")
        for number, line in enumerate(text.split("\n")):
            if number > 0:
                self.press("Return")
            self._hand("type", "--delay", "15" if line.isascii() else "60", line)
        self.until(lambda: field.text.rstrip("\n") == text, f"{text!r} in {field.name!r}")

    def choose(self, box, entry):
        """Opens a drop-down list and clicks an entry of it."""
        self.click(box)
        def open_entry():
            hits = [t for t in self.all("list item", entry) if t.has("showing") and t.place[2] > 0]
            return hits[0] if hits else None
        self.click(self.until(open_entry, f"the entry {entry!r}"))
        self.until(lambda: box.name == entry or box.text == entry, f"{entry!r} chosen")

    def menu(self, *path):
        for step in path:
            item = self.until(lambda: next((t for role in MENU_ITEMS for t in self.all(role, step)
                                            if t.place[2] > 0 and t.has("showing")), None), f"the menu {step!r}")
            self.click(item)

    def close_window(self):
        """The close command of the window manager."""
        self.press("alt+F4")

    def wait_for_the_end(self):
        try:
            return self.process.wait(120)
        except subprocess.TimeoutExpired:
            raise Failure("the program does not end") from None

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    # ---- details

    def _hits(self, role, name, within):
        for thing in (within or self.program).everything():
            try:
                hit = thing.role == role and self._says(thing.name, name)
            except Exception:  # gone while it was looked at
                continue
            if hit:
                yield thing

    def _newest(self, title, fits):
        try:
            hits = [t for t in self.program.children()
                    if t.has("showing") and fits(t.role) and self._says(t.name, title)]
        except Exception:  # one of them just closed
            return None
        return hits[-1] if hits else None

    @staticmethod
    def _says(text, wanted):
        if wanted is None:
            return True
        return bool(wanted.search(text)) if isinstance(wanted, re.Pattern) else text == wanted

    def _let_the_window_come_up(self):
        """It is on the bus before the desktop shows it, and a click before that is lost."""
        def is_up():
            self._must_run()
            return any(window.has("active") for window in self.program.children())
        try:
            wait_for(is_up, "the program in front", limit=20)
        except Failure:
            pass  # some desktops put no window in front by themselves

    def _must_run(self):
        if self.process.poll() is not None:
            raise Failure(f"the program has ended with {self.process.returncode}")

    def _hand(self, *what):
        subprocess.run(["xdotool", *what], env=self.desktop.environment, check=True, timeout=60,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def _on_the_bus(self):
        self._must_run()
        atspi = _atspi()
        screen = atspi.get_desktop(0)
        screen.clear_cache()
        for i in range(screen.get_child_count()):
            try:
                node = screen.get_child_at_index(i)
                if node is not None and node.get_process_id() == self.process.pid and node.get_child_count():
                    return node
            except Exception:  # another program that is just coming or going
                continue
        return None
