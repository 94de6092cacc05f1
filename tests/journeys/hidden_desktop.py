"""A desktop of its own that nobody sees: X server, session bus, accessibility bus, window manager."""
import os
import pathlib
import random
import shutil
import subprocess
import tempfile
import time

ACCESSIBILITY_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")


class Failure(AssertionError):
    """What a person sitting at the screen would complain about."""


def wait_for(look, what, limit=120.0):
    """The first answer of look() that is something; a Failure saying `what` if none comes."""
    end = time.monotonic() + limit
    pause = 0.01
    while True:
        answer = look()
        if answer:
            return answer
        if time.monotonic() > end:
            raise Failure(f"waited in vain: {what}")
        time.sleep(pause)
        pause = min(pause * 1.5, 0.2)


class HiddenDesktop:
    """with HiddenDesktop(1280, 1024) as desktop: programs started with desktop.environment show there."""

    def __init__(self, width=1280, height=1024, dpi=96):
        self.size = (width, height)
        self.dpi = dpi
        self.environment = dict(os.environ)
        self._servants = []
        self._folder = None

    def __enter__(self):
        self._folder = tempfile.mkdtemp(prefix="hearthbook-desktop-")
        os.chmod(self._folder, 0o700)
        # Buses and settings of the person who runs the tests stay out of it.
        for name in ("AT_SPI_BUS_ADDRESS", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
            self.environment.pop(name, None)
        self.environment.update(XDG_RUNTIME_DIR=self._folder, QT_QPA_PLATFORM="xcb",
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8",
                                NO_AT_BRIDGE="0", GTK_A11Y="atspi")
        try:
            self._start_screen()
            self._start_buses()
            self._serve(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL)
        except BaseException:
            self.__exit__()
            raise
        # libatspi reads the environment of its own process.
        for name in ("DISPLAY", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS"):
            os.environ[name] = self.environment[name]
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        return self

    def __exit__(self, *_):
        for servant in reversed(self._servants):
            servant.terminate()
            try:
                servant.wait(5)
            except subprocess.TimeoutExpired:
                servant.kill()
                servant.wait()
        self._servants.clear()
        shutil.rmtree(self._folder, ignore_errors=True)

    def photograph(self, file):
        """The whole screen as a PNG file."""
        pathlib.Path(file).parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-silent", "-window", "root", str(file)], env=self.environment,
                       check=True, timeout=60)

    def _serve(self, command, **options):
        servant = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **options)
        self._servants.append(servant)
        return servant

    def _start_screen(self):
        """Tries display numbers that look free: another server may take one at the same moment."""
        numbers = random.sample(range(120, 920), 8)
        for number in numbers:
            if os.path.exists(f"/tmp/.X{number}-lock") or os.path.exists(f"/tmp/.X11-unix/X{number}"):
                continue
            self.environment["DISPLAY"] = f":{number}"
            width, height = self.size
            server = self._serve(["Xvfb", f":{number}", "-screen", "0", f"{width}x{height}x24", "-dpi",
                                  str(self.dpi), "-nolisten", "tcp", "-noreset"])
            wait_for(lambda: server.poll() is not None or self._answers(["xdpyinfo"]), "the X server")
            if server.poll() is None:
                return
            self._servants.remove(server)
        raise Failure("no X server would start")

    def _start_buses(self):
        bus = self._serve(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                          stdout=subprocess.PIPE, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        launcher = next((path for path in ACCESSIBILITY_LAUNCHERS if os.path.exists(path)), None)
        if launcher is None:
            raise Failure("the package at-spi2-core is missing")
        self._serve([launcher, "--launch-immediately"], stdout=subprocess.DEVNULL)
        # A program that starts before this bus answers never appears on it.
        wait_for(lambda: self._answers(["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path",
                                        "/org/a11y/bus", "--method", "org.a11y.Bus.GetAddress"]),
                 "the accessibility bus")

    def _answers(self, command):
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
                              check=False).returncode == 0
