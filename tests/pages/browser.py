"""A real browser without a window, told what to do through the pipe that Chromium offers for that."""
import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

# Seconds for what a busy machine may take; nothing waits that long on purpose.
PATIENCE = float(os.environ.get("HEARTHBOOK_PATIENCE", 120))


class BrowserError(AssertionError):
    pass


class Browser:
    """Chromium with a profile of its own, which goes with it."""

    def __init__(self):
        self.profile = tempfile.mkdtemp(prefix="hearthbook-browser-")
        commands, self.commands = os.pipe()
        self.answers, answers = os.pipe()
        self.process = subprocess.Popen(
            ["chromium", "--headless=new", "--no-sandbox", "--disable-gpu", "--mute-audio", "--no-first-run",
             "--disable-dev-shm-usage", "--disable-background-networking", "--disable-component-update",
             f"--user-data-dir={self.profile}", "--remote-debugging-pipe", "about:blank"],
            preexec_fn=lambda: self._place(commands, answers), pass_fds=(3, 4),
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(commands)
        os.close(answers)
        self.received, self.events, self.replies, self.last = b"", [], {}, 0

    @staticmethod
    def _place(commands, answers):
        spare = os.dup(answers)
        os.dup2(commands, 3)
        os.dup2(spare, 4)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self.call("Browser.close")
            self.process.wait(timeout=20)
        except (BrowserError, OSError, subprocess.TimeoutExpired):
            self.process.kill()
            self.process.wait()
        os.close(self.commands)
        os.close(self.answers)
        shutil.rmtree(self.profile, ignore_errors=True)

    def send(self, method, session=None, **parameters):
        self.last += 1
        message = {"id": self.last, "method": method, "params": parameters}
        if session:
            message["sessionId"] = session
        data = json.dumps(message).encode() + b"\0"
        while data:
            data = data[os.write(self.commands, data):]
        return self.last

    def call(self, method, session=None, **parameters):
        number = self.send(method, session, **parameters)
        deadline = time.monotonic() + PATIENCE
        while number not in self.replies:
            self.listen(deadline - time.monotonic())
            if time.monotonic() > deadline:
                raise BrowserError(f"no answer to {method}")
        reply = self.replies.pop(number)
        if "error" in reply:
            raise BrowserError(f"{method}: {reply['error']['message']}")
        return reply.get("result", {})

    def listen(self, seconds):
        """Takes what the browser has to say, waiting for so long if it says nothing."""
        if not select.select([self.answers], [], [], max(0, seconds))[0]:
            return
        read = os.read(self.answers, 1 << 20)
        if not read:
            raise BrowserError("the browser has ended")
        self.received += read
        *messages, self.received = self.received.split(b"\0")
        for message in map(json.loads, messages):
            if "id" in message:
                self.replies[message["id"]] = message
            else:
                self.events.append(message)

    def page(self, width=1200, height=800, telephone=False):
        return Page(self, width, height, telephone)


class Page:
    """One tab, with what went wrong in it."""

    def __init__(self, browser, width, height, telephone):
        self.browser = browser
        self.target = browser.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = browser.call("Target.attachToTarget", targetId=self.target, flatten=True)["sessionId"]
        self.contexts, self.frames, self.requests = {}, {}, {}
        self.failed, self.errors, self.seen = [], [], 0
        for domain in ("Page", "Runtime", "Network", "Log"):
            self.call(f"{domain}.enable")
        self.resize(width, height, telephone)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.browser.call("Target.closeTarget", targetId=self.target)

    def call(self, method, **parameters):
        result = self.browser.call(method, self.session, **parameters)
        self.take_events()
        return result

    def resize(self, width, height, telephone=False):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=3 if telephone else 1, mobile=telephone)
        self.call("Emulation.setTouchEmulationEnabled", enabled=telephone)

    def open(self, address):
        self.call("Page.navigate", url=address)
        self.wait(lambda: self.evaluate("document.readyState") == "complete" and
                  self.evaluate("location.href") != "about:blank", f"{address} to be loaded")

    def take_events(self):
        for event in self.browser.events[self.seen:]:
            self.seen += 1
            if event.get("sessionId") == self.session:
                self.take(event["method"], event["params"])

    def take(self, method, told):
        if method == "Runtime.executionContextCreated":
            context = told["context"]
            if context["auxData"].get("isDefault"):
                self.contexts[context["auxData"]["frameId"]] = context["id"]
        elif method == "Runtime.executionContextDestroyed":
            gone = told["executionContextId"]
            self.contexts = {f: c for f, c in self.contexts.items() if c != gone}
        elif method == "Runtime.executionContextsCleared":
            self.contexts = {}
        elif method == "Network.requestWillBeSent":
            self.requests[told["requestId"]] = told["request"]["url"]
        elif method == "Network.responseReceived" and told["response"]["status"] >= 400:
            self.failed.append(told["response"]["url"])
        elif method == "Network.loadingFailed" and not told.get("canceled"):
            self.failed.append(self.requests.get(told["requestId"], "?"))
        elif method == "Runtime.exceptionThrown":
            details = told["exceptionDetails"]
            self.errors.append(details.get("exception", {}).get("description", details["text"]))
        elif method == "Runtime.consoleAPICalled" and told["type"] in ("error", "assert"):
            self.errors.append(str(told["args"]))
        elif method == "Log.entryAdded" and told["entry"]["level"] == "error":
            if told["entry"]["source"] != "network":  # these are in `failed`
                self.errors.append(told["entry"]["text"])

    def frame_id(self, name):
        tree = self.call("Page.getFrameTree")["frameTree"]
        for child in tree.get("childFrames", []):
            if child["frame"].get("name") == name:
                return child["frame"]["id"]
        raise BrowserError(f"no frame {name}")

    def frame_address(self, name):
        tree = self.call("Page.getFrameTree")["frameTree"]
        for child in tree.get("childFrames", []):
            if child["frame"].get("name") == name:
                return child["frame"].get("unreachableUrl") or child["frame"]["url"]
        return ""

    def evaluate(self, expression, frame=None):
        """The value of the expression in the page or a frame; None while that is not there."""
        parameters = {"expression": expression, "returnByValue": True, "awaitPromise": True}
        if frame:
            context = self.contexts.get(self.frame_id(frame))
            if context is None:
                return None
            parameters["contextId"] = context
        try:
            result = self.call("Runtime.evaluate", **parameters)
        except BrowserError:
            return None  # it went away meanwhile
        return result["result"].get("value") if "exceptionDetails" not in result else None

    def wait(self, condition, what):
        deadline = time.monotonic() + PATIENCE
        while not condition():
            self.browser.listen(0.05)
            self.take_events()
            if time.monotonic() > deadline:
                raise BrowserError(f"waited in vain for {what}; errors {self.errors}, failed {self.failed}")

    def wait_for(self, expression, frame=None):
        self.wait(lambda: self.evaluate(expression, frame), f"{expression} in {frame or 'the page'}")

    def middle_of(self, expression, frame=None):
        """The middle of an element, in pixels of the page."""
        middle = self.evaluate(f"(e => {{ const r = e.getBoundingClientRect();"
                               f" return [r.left + r.width / 2, r.top + r.height / 2]; }})({expression})", frame)
        if frame:
            left, top, scale = self.evaluate(
                "(f => { const r = f.getBoundingClientRect(); return [r.left, r.top, r.width / f.offsetWidth]; })"
                f"(document.querySelector('iframe[name={frame}]'))")
            middle = [left + scale * middle[0], top + scale * middle[1]]
        return middle

    def click(self, expression, frame=None):
        self.wait_for(f"!!{expression}", frame)
        self.evaluate(f"{expression}.scrollIntoView({{block: 'nearest'}})", frame)
        x, y = self.middle_of(expression, frame)
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)

    def key(self, name, code=0):
        for kind in ("rawKeyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=name, code=name, windowsVirtualKeyCode=code)

    def swipe(self, begin, end):
        self.call("Input.dispatchTouchEvent", type="touchStart", touchPoints=[{"x": begin[0], "y": begin[1]}])
        self.call("Input.dispatchTouchEvent", type="touchMove", touchPoints=[{"x": end[0], "y": end[1]}])
        self.call("Input.dispatchTouchEvent", type="touchEnd", touchPoints=[])

    def screenshot(self, file):
        file.write_bytes(base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"]))

    def printed(self):
        return base64.b64decode(self.call("Page.printToPDF", printBackground=True)["data"])
