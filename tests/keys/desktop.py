"""A display of its own with the Windows program on it, the keys and the mouse of its user, and what he sees."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Seconds until a state that does not come counts as missing; nothing waits longer than it has to.
PATIENCE = float(os.environ.get("KELVARIN_PATIENCE", 60))
TABS = 0x3020  # the number of the row of tabs


class Missing(Exception):
    """A state that didn't come, in words."""


def wait_for(read, wanted, what):
    """Asks until `read` returns what is wanted."""
    end = time.monotonic() + PATIENCE
    while (found := read()) != wanted:
        if time.monotonic() > end:
            raise Missing(f"{what} should be {wanted!r}, is {found!r}")
        time.sleep(0.02)


class Desktop:
    """An X server, Wine with a window on it for each of the program's, and a second program that looks at them."""

    def __init__(self, binaries):
        self.binaries = binaries
        self.started = []
        try:
            self.start()
        except BaseException:
            self.close()
            raise

    def start(self):
        reader, writer = os.pipe()
        server = ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"]
        self.started.append(subprocess.Popen(server, pass_fds=[writer], stderr=subprocess.DEVNULL))
        os.close(writer)
        with os.fdopen(reader) as number:
            display = ":" + number.readline().strip()
        self.environment = dict(
            os.environ,
            DISPLAY=display,
            WINEPREFIX=str(ROOT / "build" / "wine-display"),
            WINEDLLOVERRIDES="mscoree,mshtml=",
            WINEDEBUG="-all",
            LC_ALL="C.UTF-8",
        )
        self.make_prefix()
        look = ["wine", str(self.binaries / "window-state.exe")]
        self.look = self.popen(look, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def make_prefix(self):
        prefix = pathlib.Path(self.environment["WINEPREFIX"])
        if (prefix / "ready").exists():
            return
        shutil.rmtree(prefix, ignore_errors=True)
        prefix.mkdir(parents=True)
        # Without a window manager the windows have to have title bars, and the focus, by Wine alone.
        unmanaged = ["wine", "reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", "Managed", "/d", "N", "/f"]
        for command in (["wineboot", "-i"], unmanaged, ["wineserver", "-k"], ["wineserver", "-w"]):
            self.run(command)
        (prefix / "ready").touch()

    def popen(self, command, **streams):
        streams = {"stdin": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, **streams}
        process = subprocess.Popen(command, env=self.environment, **streams)
        self.started.append(process)
        return process

    def run(self, command):
        self.popen(command, stdout=subprocess.DEVNULL).wait()

    def state(self):
        self.look.stdin.write("\n")
        self.look.stdin.flush()
        line = self.look.stdout.readline()
        if not line:
            raise Missing("the program that looks at the windows has ended")
        return json.loads(line)

    def xdotool(self, *words):
        subprocess.run(["xdotool", *words], env=self.environment, check=True)

    def close(self):
        if hasattr(self, "environment"):
            self.run(["wineserver", "-k"])
        for process in reversed(self.started):
            process.kill()
            process.wait()


class Dialog:
    """The settings dialog of a file, worked by keys and clicks alone."""

    def __init__(self, desktop, files, options):
        self.desktop = desktop
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        for name, text in files.items():
            (self.path / name).write_text(text)
        command = ["wine", str(desktop.binaries / "kelvarin-import.exe"), "dialog", "--language", "en"]
        command += ["--profile", str(self.path / "profile.ini"), *options, str(self.path / "data.csv")]
        self.output = open(self.path / "output", "w+")
        self.programs = [desktop.popen(command, stdout=self.output)]
        try:
            wait_for(self.is_in_front, True, "the dialog in front")
        except Missing:
            self.close()
            raise

    def close(self):
        for program in self.programs:
            program.kill()
            program.wait()
        wait_for(lambda: self.desktop.state()["windows"], [], "windows of a program that has ended")
        self.output.close()
        self.folder.cleanup()

    def windows_path(self):
        return "Z:" + str(self.path).replace("/", "\\")

    # --- What is seen ---

    def windows(self, of_class="#32770"):
        return [w for w in self.desktop.state()["windows"] if w["class"] == of_class]

    def is_in_front(self):
        windows = self.windows()
        return bool(windows) and windows[0]["foreground"] and self.focus() != "0"

    def control(self, number):
        """A control of the dialog, which is the lowest window; nothing if there is none."""
        controls = [c for w in self.windows()[-1:] for c in w["controls"] if c["class"] != "#32770"]
        return next((c for c in controls if c["id"] == number), {})

    def focus(self):
        state = self.desktop.state()
        is_inside = state["focus"] == 1021 and state["focusClass"] != "SysListView32"
        return f"{state['focus']} {state['focusClass']}" if is_inside else str(state["focus"])

    def messages(self):
        texts = [c["text"] for w in self.windows() for c in w["controls"] if c["id"] == 0xFFFF]
        return " | ".join(texts)

    def list(self):
        """The selected entry of the list over a cell, or of a drop-down list; none if no list is open."""
        lists = self.windows("ListBox") + self.windows("ComboLBox")
        return str(lists[0]["selected"]) if lists else "none"

    def question(self):
        """Title and owner of the window over the dialog, and whether the dialog can be used meanwhile."""
        windows = self.windows()
        if len(windows) < 2:
            return "none"
        return f"{windows[0]['title']} over {windows[0]['owner']} {'enabled' if windows[-1]['enabled'] else 'disabled'}"

    def result(self):
        """What the program has printed; nothing as long as it runs."""
        if self.programs[0].poll() is None:
            return {}
        self.output.seek(0)
        return json.loads(self.output.read() or "{}")

    # --- What the user does ---

    def click_at(self, place, times=1, offset=None):
        left, top, right, bottom = place
        x = left + offset if offset is not None else (left + right) // 2
        self.desktop.xdotool("mousemove", str(x), str((top + bottom) // 2), "click", "--repeat", str(times), "1")
