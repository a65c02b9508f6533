"""Chromium without a window, driven over its debugging pipe."""
import json
import os
import select
import subprocess
import tempfile

LIMIT = 60  # seconds; far beyond what any answer takes


class Browser:
    """One page. `requests` are the addresses it has asked for, `complaints` what went wrong in it."""

    def __init__(self):
        self.profile = tempfile.TemporaryDirectory()
        self.requests = []
        self.complaints = []
        self.unread = b""
        self.number = 0
        self.session = None
        command_end, self.commands = os.pipe()
        self.answers, answer_end = os.pipe()
        # The browser reads from 3 and writes to 4.
        self.process = subprocess.Popen(
            ["bash", "-c", f'exec "$@" 3<&{command_end} 4>&{answer_end}', "bash", "chromium",
             "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             "--no-first-run", "--user-data-dir=" + self.profile.name, "--remote-debugging-pipe"],
            pass_fds=(command_end, answer_end), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(command_end)
        os.close(answer_end)
        target = self.command("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.command("Target.attachToTarget", targetId=target,
                                    flatten=True)["sessionId"]
        for domain in ("Page", "Network", "Runtime", "Log"):
            self.command(domain + ".enable")

    def close(self):
        self.session = None
        self.command("Browser.close")
        self.process.wait(LIMIT)
        os.close(self.commands)
        os.close(self.answers)
        self.profile.cleanup()

    def receive(self):
        while b"\0" not in self.unread:
            if not select.select([self.answers], [], [], LIMIT)[0]:
                raise AssertionError("the browser does not answer")
            piece = os.read(self.answers, 1 << 20)
            if not piece:
                raise AssertionError("the browser has ended")
            self.unread += piece
        line, _, self.unread = self.unread.partition(b"\0")
        message = json.loads(line)
        self.note(message.get("method"), message.get("params"))
        return message

    def note(self, method, told):
        if method == "Network.requestWillBeSent":
            self.requests.append(told["request"]["url"])
        elif method == "Runtime.exceptionThrown":
            self.complaints.append(told["exceptionDetails"]["text"])
        elif method == "Log.entryAdded":
            self.complaints.append(told["entry"]["text"])

    def command(self, method, **arguments):
        self.number += 1
        message = {"id": self.number, "method": method, "params": arguments}
        if self.session:
            message["sessionId"] = self.session
        os.write(self.commands, json.dumps(message).encode("utf-8") + b"\0")
        while (answer := self.receive()).get("id") != self.number:
            pass
        if "error" in answer:
            raise AssertionError(f"{method}: {answer['error']}")
        return answer["result"]

    def wait_for_page(self):
        while self.receive().get("method") != "Page.loadEventFired":
            pass

    def open(self, address):
        error = self.command("Page.navigate", url=address).get("errorText")
        if error:
            raise AssertionError(f"{address}: {error}")
        self.wait_for_page()

    def evaluate(self, expression):
        result = self.command("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in result:
            raise AssertionError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def show_as(self, medium="screen", scheme="light", width=1200):
        self.command("Emulation.setEmulatedMedia", media=medium,
                     features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=800,
                     deviceScaleFactor=1, mobile=False)
