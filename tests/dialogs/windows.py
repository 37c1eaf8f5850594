"""A display of our own, and an application whose windows are driven by keys and clicks. What is started here is ended here, by its
process id."""
import os
import re
import subprocess
import time


class Display:
    """An X server without a window manager."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
                                       pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


def configuration(folder):
    """GNUstep's, with the user's folders in ours."""
    lines = [line for line in open("/etc/GNUstep/GNUstep.conf", encoding="utf-8") if not re.match("GNUSTEP_USER_", line)]
    lines += [f"GNUSTEP_USER_DIR_LIBRARY={folder}/Library\n", f"GNUSTEP_USER_DEFAULTS_DIR={folder}/Defaults\n"]
    path = os.path.join(folder, "GNUstep.conf")
    with open(path, "w", encoding="utf-8") as file:
        file.writelines(lines)
    return path


KEYS = {"BackTab": "shift+Tab", "Delete": "BackSpace"}  # others have the same name
PAUSE = 0.12  # until the application has done what it was told to


class Application:
    def __init__(self, display, command, script, folder, environment):
        self.places = os.path.join(folder, "places")
        self.windows = 0  # that have been waited for
        self.widgets = []
        self.title = ""
        self.outer = []  # of the windows below
        self.environment = {**os.environ, "VELLORAN_WEB": "http://127.0.0.1:1", **environment, "DISPLAY": display.name, "HOME": folder, "EASEL_PLUGINS": folder,
                            "KZO_PLACES": self.places, "GNUSTEP_CONFIG_FILE": configuration(folder)}
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                        text=True, env=self.environment)
        self.process.stdin.write(script)
        self.process.stdin.close()
        self.process.stdin = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.communicate()

    def end(self):
        """What was said on standard error; the process must come to its end."""
        try:
            _, errors = self.process.communicate(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            return "did not end; " + self.process.communicate()[1]
        # GNUstep tells of fonts and services that it misses.
        lines = [line for line in errors.split("\n") if line and not re.match(r"\d{4}-\d\d-\d\d ", line)]
        return "\n".join(lines) + ("" if self.process.returncode == 0 else f"\nended with {self.process.returncode}")

    def wait_for_window(self):
        """For the next one that comes up."""
        for _ in range(200):
            text = open(self.places, encoding="utf-8").read() if os.path.exists(self.places) else ""
            blocks = text.split("end\n")[:-1]
            if len(blocks) > self.windows:
                self.windows += 1
                self.outer.append(self.widgets)
                window, *widgets = [line.split("\t") for line in blocks[self.windows - 1].rstrip("\n").split("\n")]
                self.title = window[1]
                self.widgets = [(kind, int(x), int(y), text) for kind, x, y, text in widgets]
                time.sleep(0.3)
                return
            if self.process.poll() is not None:
                break
            time.sleep(0.05)
        raise SystemExit("no window came up: " + self.end())

    def back_to_window(self):
        self.widgets = self.outer.pop()

    def place(self, text, kinds=("label", "button", "close")):
        for kind, x, y, label in self.widgets:
            if kind in kinds and label == text:
                return x, y
        raise SystemExit(f"there is no {text!r} in {self.widgets}")

    def field(self, label):
        x, y = self.place(label, ("label",))
        beside = [(fx - x, fx, fy) for kind, fx, fy, _ in self.widgets
                  if kind == "field" and abs(fy - y) < 12 and fx > x]
        return min(beside)[1:]

    def tool(self, *arguments):
        subprocess.run(["xdotool", *arguments], env=self.environment, check=True)
        time.sleep(PAUSE)

    def press(self, key):
        self.tool("key", KEYS.get(key, key))

    def click_at(self, place, times=1):
        self.tool("mousemove", str(place[0]), str(place[1]))
        for _ in range(times):
            self.tool("mousedown", "1", "sleep", "0.03", "mouseup", "1") if times == 1 else self.quick_click()
        time.sleep(PAUSE)

    def quick_click(self):
        subprocess.run(["xdotool", "mousedown", "1", "sleep", "0.03", "mouseup", "1"], env=self.environment, check=True)
        time.sleep(0.03)

    def click(self, text, times=1):
        self.click_at(self.place(text), times)

    def type(self, label, text):
        self.click_at(self.field(label), 3)
        self.tool("type", "--delay", "60", text)

    def close(self):
        self.click_at(self.place("close", ("close",)))
