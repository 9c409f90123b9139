"""A headless Chromium that is asked and led through its remote debugging protocol."""

import base64
import io
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
import urllib.request

import websocket
from PIL import Image

WIDTH, HEIGHT = 1000, 700


class Browser:
    """One page in a browser of its own, with a folder for all of its files that is removed afterwards."""

    def __init__(self, program, address):
        self.folder = tempfile.mkdtemp(prefix="view-test-")
        self.profile = os.path.join(self.folder, "profile")
        # No driver of a graphics card, no sandbox for whoever is root, no network beyond what the page asks for.
        self.process = subprocess.Popen(
            [program, "--headless=new", "--no-sandbox", "--hide-scrollbars", "--no-first-run",
             "--disable-dev-shm-usage", "--disable-background-networking", "--disable-component-update",
             "--force-device-scale-factor=1", "--remote-debugging-port=0", "--remote-allow-origins=*",
             f"--user-data-dir={self.profile}", f"--window-size={WIDTH},{HEIGHT}", "about:blank"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
            env={**os.environ, "TMPDIR": self.folder})  # where it leaves a folder behind that is not in its profile
        self.complaints = []
        self.requests = []
        self.number = 0
        try:
            self.socket = websocket.create_connection(self.page_address(), timeout=60)
            for domain in ["Runtime", "Log", "Page", "Network"]:
                self.ask(f"{domain}.enable")
            self.ask("Emulation.setDeviceMetricsOverride", width=WIDTH, height=HEIGHT, deviceScaleFactor=1,
                     mobile=False)
            self.open(address)
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.process.terminate()
        self.process.wait()
        try:
            os.killpg(self.process.pid, signal.SIGKILL)  # helpers that still write while their files are removed
        except ProcessLookupError:
            pass
        shutil.rmtree(self.folder, ignore_errors=True)

    def page_address(self):
        """Where the browser listens for the commands of its page, once it does."""
        told = os.path.join(self.profile, "DevToolsActivePort")
        for _ in range(600):
            if self.process.poll() is not None:
                raise RuntimeError("the browser has ended")
            if os.path.exists(told) and os.path.getsize(told) > 0:
                with open(told, encoding="ascii") as file:
                    port = file.readline().strip()
                with urllib.request.urlopen(f"http://127.0.0.1:{port}/json/list") as answer:
                    pages = [page for page in json.load(answer) if page["type"] == "page"]
                if pages:
                    return pages[0]["webSocketDebuggerUrl"]
            time.sleep(0.1)
        raise RuntimeError("the browser does not answer")

    def ask(self, method, **parameters):
        self.number += 1
        self.socket.send(json.dumps({"id": self.number, "method": method, "params": parameters}))
        while True:
            message = json.loads(self.socket.recv())
            if message.get("id") == self.number:
                if "error" in message:
                    raise RuntimeError(f"{method}: {message['error']}")
                return message["result"]
            self.note(message)

    def note(self, message):
        """Keeps what a page should not do: write to the console, fail, and where it asks for something."""
        parameters = message.get("params", {})
        if message.get("method") == "Runtime.consoleAPICalled":
            self.complaints.append(str([each.get("value") for each in parameters["args"]]))
        elif message.get("method") == "Runtime.exceptionThrown":
            self.complaints.append(json.dumps(parameters["exceptionDetails"]))
        elif message.get("method") == "Log.entryAdded":
            self.complaints.append(parameters["entry"]["text"])
        elif message.get("method") == "Network.requestWillBeSent":
            self.requests.append(parameters["request"]["url"])

    def open(self, address):
        self.ask("Page.navigate", url=address)
        self.wait("document.readyState === 'complete' && typeof pictures !== 'undefined'")
        self.settle()

    def value(self, script):
        result = self.ask("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{script}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def wait(self, condition):
        for _ in range(300):
            if self.value(condition):
                return
            time.sleep(0.1)
        raise RuntimeError(f"does not come true: {condition}")

    def settle(self):
        """Until what has been asked for is drawn."""
        self.value("new Promise(done => requestAnimationFrame(() => requestAnimationFrame(() => done(1))))")

    def key(self, key, shift=False):
        modifiers = 8 if shift else 0
        self.ask("Input.dispatchKeyEvent", type="keyDown", key=key, modifiers=modifiers)
        self.ask("Input.dispatchKeyEvent", type="keyUp", key=key, modifiers=modifiers)
        self.settle()

    def mouse(self, kind, x, y, **parameters):
        self.ask("Input.dispatchMouseEvent", type=kind, x=x, y=y, **parameters)

    def drag(self, start, end, button="left"):
        self.mouse("mousePressed", *start, button=button, clickCount=1)
        self.mouse("mouseMoved", (start[0] + end[0]) / 2, (start[1] + end[1]) / 2, button=button, buttons=1)
        self.mouse("mouseMoved", *end, button=button, buttons=1)
        self.mouse("mouseReleased", *end, button=button, clickCount=1)
        self.settle()

    def click(self, x, y):
        self.drag((x, y), (x, y))

    def click_on(self, selector):
        box = self.value(f"document.querySelector({selector!r}).getBoundingClientRect().toJSON()")
        self.click(box["x"] + box["width"] / 2, box["y"] + box["height"] / 2)

    def screen(self):
        shot = self.ask("Page.captureScreenshot", format="png")
        return Image.open(io.BytesIO(base64.b64decode(shot["data"]))).convert("RGB")
