#!/usr/bin/env python3
"""Plays a whole first start of the real program on its own X server: it begins with an empty player folder,
chooses the stand-in, flies to the first report, reads the diary and quits. Saves a picture of each page for
somebody to look at.

Usage: first-start.py [--languages en,pl] [--sizes 1280x800] [--by pointer,keys] [--display N] BUILD PICTURES
BUILD is a build folder; one of Windows programs needs Wine. Needs Xvfb and xdotool. Exit status: 0 if every page
came and the program ended well.
"""
import argparse
import glob
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zlib

LOCALES = {"en": "en_GB", "de": "de_DE", "fr": "fr_FR", "es": "es_ES", "it": "it_IT", "pl": "pl_PL"}
DESIGN = 1024, 768
NEUTRAL = (5, 5), (9, 9)  # in pixels of the design; no page has a button there
PAGE_TIMEOUT = 300  # seconds; the war before a career and large windows in software take their time
PRESS_TIMEOUT = 45  # seconds until a press without effect is repeated: slow frames drop input
SETTLE_TIMEOUT = 20  # seconds; on one page a hand moves for ever
LAST, BEFORE_LAST = "shift+Tab Return", "shift+Tab shift+Tab Return"

# Each page of the way with the button's middle, in pixels of the design, and the keys that do the same while no
# button has the focus. A page without a button is left by itself.
WAY = [
    ("MenuSimulator", (462, 730), LAST),  # the stand-in; "Use This One" can't be pressed
    ("MenuMain", (780, 327), "Tab Return"),  # the careers; there is none to go on with
    ("MenuCareers", (842, 477), "Return"),  # another
    ("MenuNewService", (250, 386), "Tab Tab Return"),  # the English one
    ("MenuNewYear", (152, 454), "Tab Tab Tab Return"),  # 1917
    ("MenuNewMonth", (228, 364), "Tab Tab Tab Tab Return"),  # April
    ("MenuEnlist", (842, 730), LAST),
    ("MenuNewCareer", (842, 730), LAST),
    ("MenuGameMain", (842, 61), "Tab Return"),  # the next mission
    ("MenuGameStartMission", (752, 730), LAST),
    ("MenuGameFinishMission", None, None),
    ("MenuGameCombatReport", (526, 730), BEFORE_LAST),  # where it was
    ("MenuGameWhere", (182, 730), "Escape"),
    ("MenuGameCombatReport", (842, 730), LAST),
    ("MenuGameAdvance", (842, 730), "Return"),
    ("MenuGameDiary", (842, 730), LAST),
    ("MenuGameMain", (182, 730), "Escape"),
    ("MenuMain", (512, 730), "Escape"),  # ends the program
]
# Letters that may come between two pages, with what answers them. From the invitation he must begin again.
LETTERS = {
    "MenuGameInvite": [((348, 730), BEFORE_LAST), ((842, 61), "Tab Return")],
    "MenuGameCitation": [((842, 730), LAST)],
    "MenuGameFallen": [((842, 730), LAST)],  # his successor goes on
}


class Failure(Exception):
    pass


def write_png(path, width, height, pixels, stride):
    """Pixels: four bytes each, blue first, rows of `stride` bytes from the top."""
    rgb = bytearray(len(pixels) // 4 * 3)
    for colour in range(3):
        rgb[colour::3] = pixels[2 - colour::4]
    stride = stride // 4 * 3
    rows = b"".join(b"\0" + rgb[y * stride:y * stride + width * 3] for y in range(height))

    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                   chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))


class Screen:
    """An X server whose picture is a file in `folder`."""

    def __init__(self, size, folder, display):
        self.file = os.path.join(folder, "Xvfb_screen0")
        read, write = os.pipe()
        name = [f":{display}"] if display is not None else []
        self.server = subprocess.Popen(
            ["Xvfb", *name, "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset", "-fbdir", folder, "-displayfd", str(write)],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise Failure("no X server starts")
        self.environment = dict(os.environ, DISPLAY=f":{number}")
        for _ in range(20):  # it may name its number before it answers
            if self.do("getmouselocation"):
                return
            time.sleep(0.5)
        raise Failure("the X server doesn't answer")

    def stop(self):
        self.server.terminate()
        self.server.wait()

    def do(self, *words):
        run = subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True,
                             timeout=30, check=False)
        return run.stdout.strip()

    def pixels(self):
        """Width, height, pixels and bytes of a row, of what the screen shows now."""
        with open(self.file, "rb") as file:
            content = file.read()
        header = struct.unpack(">25I", content[:100])
        start = header[0] + header[19] * 12
        return header[4], header[5], content[start:start + header[5] * header[12]], header[12]


class Linux:
    """Where the program runs and writes its log."""

    def __init__(self, build, language, home):
        self.program, self.folder = [os.path.join(build, "bin/wingtally")], home
        self.log_path = os.path.join(home, "log")
        self.environment = {"HOME": home, "PATH": os.environ["PATH"], "LC_ALL": LOCALES[language] + ".UTF-8",
                            "LIBGL_ALWAYS_SOFTWARE": "1", "SDL_AUDIODRIVER": "dummy"}

    def stop(self):
        pass


class Wine:
    """The same for Windows programs, in a Wine prefix of its own, where the player has no folder yet."""

    def __init__(self, build, language, home):
        prefix = os.path.join(build, "wine-first-start")
        locales, locale = prefix + ".locale", LOCALES[language] + ".UTF-8"
        self.program, self.folder = ["wine64", os.path.join(build, "bin/wingtally.exe")], build
        self.environment = {"HOME": home, "PATH": "/usr/lib/wine:" + os.environ["PATH"], "LC_ALL": locale,
                            "LOCPATH": locales, "LIBGL_ALWAYS_SOFTWARE": "1", "SDL_AUDIODRIVER": "dummy",
                            "WINEPREFIX": prefix, "WINEDEBUG": "-all",
                            "WINEDLLOVERRIDES": "mscoree,mshtml,winedbg.exe="}
        if not os.path.exists(os.path.join(locales, locale)):  # Wine takes the player's language from it
            os.makedirs(locales, exist_ok=True)
            self.call("localedef", "-i", LOCALES[language], "-f", "UTF-8", os.path.join(locales, locale))
        self.call("wineboot", "-i")
        self.call("wineserver", "-w")
        drives = os.path.join(prefix, "dosdevices")
        for drive in ("z:", "d:"):  # Z: would show the simulators of this machine
            if os.path.lexists(os.path.join(drives, drive)):
                os.remove(os.path.join(drives, drive))
        os.symlink(build, os.path.join(drives, "d:"))
        user = os.path.join(glob.glob(os.path.join(prefix, "drive_c/users/*/AppData/Roaming"))[0], "Wingtally")
        shutil.rmtree(user, ignore_errors=True)
        self.log_path = os.path.join(user, "wingtally.log")

    def call(self, *words, must_work=True):
        subprocess.run(words, env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=must_work)

    def stop(self):
        self.call("wineserver", "-k", must_work=False)  # it may have ended


class Player:
    """The program, and somebody who presses its buttons."""

    def __init__(self, screen, place, size, by_keys, home):
        self.screen, self.by_keys = screen, by_keys
        self.log_path = place.log_path
        self.seen = 0
        self.pressed = None
        self.pressed_at = self.steps_at_press = 0
        self.width, self.height = map(int, size.split("x"))
        self.pause = 0.25 if self.width < 2000 else 3  # seconds, a few frames
        with open(os.path.join(home, "log"), "wb") as log:
            self.process = subprocess.Popen(place.program, cwd=place.folder,
                                            env=dict(place.environment, DISPLAY=screen.environment["DISPLAY"]),
                                            stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)

    def log(self):
        if not os.path.exists(self.log_path):
            return ""
        with open(self.log_path, encoding="latin-1") as file:
            return file.read()

    def pages(self):
        return re.findall(r"\] (\w+): onEntered", self.log())

    def steps(self):
        """Counts the log's lines about changes of the page."""
        return self.log().count("[StatesMachine]")

    def await_page(self, wanted):
        """The next page of the way or a letter; others that are only passed don't count."""
        until = time.monotonic() + PAGE_TIMEOUT
        while time.monotonic() < until:
            if self.pressed and time.monotonic() > self.pressed_at + PRESS_TIMEOUT:
                if self.steps() == self.steps_at_press:
                    self.press(*self.pressed)
                self.pressed_at = time.monotonic()
            pages = self.pages()
            for i, page in enumerate(pages[self.seen:], self.seen + 1):
                if page == wanted or page in LETTERS:
                    self.seen = i
                    self.pressed = None
                    return page
                if page.startswith("MenuNotification"):
                    raise Failure(f"{page} comes in place of {wanted}")
            if self.process.poll() is not None:
                raise Failure(f"the program ends with {self.process.returncode} before {wanted}")
            time.sleep(0.1)
        raise Failure(f"{wanted} doesn't come; the last page is {(self.pages() or ['none'])[-1]}")

    def take_size(self):
        """Resizes the window to the size of the screen, as a player would."""
        window = self.screen.do("search", "--name", "^Wingtally$").split("\n")[0]
        self.screen.do("windowmove", window, 0, 0, "windowsize", window, self.width, self.height)

    def point(self, place):
        scale = min(self.width / DESIGN[0], self.height / DESIGN[1])
        left, top = (self.width - DESIGN[0] * scale) / 2, (self.height - DESIGN[1] * scale) / 2
        self.screen.do("mousemove", round(left + place[0] * scale), round(top + place[1] * scale))

    def settled(self):
        """What the screen shows once it stays the same."""
        until = time.monotonic() + SETTLE_TIMEOUT
        time.sleep(1)
        shown = self.screen.pixels()
        while time.monotonic() < until:
            time.sleep(0.7)
            before, shown = shown, self.screen.pixels()
            if before == shown:
                break
        return shown

    def press(self, place, keys):
        self.pressed, self.pressed_at, self.steps_at_press = (place, keys), time.monotonic(), self.steps()
        if self.by_keys:
            for neutral in NEUTRAL:  # takes the focus from where the page has put it
                self.point(neutral)
                time.sleep(self.pause)
            for key in keys.split():
                self.screen.do("key", key)
                time.sleep(self.pause)
            return
        self.point(place)
        time.sleep(self.pause)
        self.screen.do("mousedown", 1)
        time.sleep(self.pause)
        self.screen.do("mouseup", 1)


def first_start(build, size, language, by, pictures, display):
    shutil.rmtree(pictures, ignore_errors=True)
    os.makedirs(pictures)
    with tempfile.TemporaryDirectory() as home, tempfile.TemporaryDirectory() as folder:
        is_windows = os.path.exists(os.path.join(build, "bin/wingtally.exe"))
        place = (Wine if is_windows else Linux)(build, language, home)
        screen = Screen(size, folder, display)
        player = None
        try:
            player = Player(screen, place, size, by == "keys", home)
            player.await_page(WAY[0][0])
            player.take_size()
            play(player, pictures)
        finally:
            if player is not None:
                player.process.kill()
                player.process.wait()
                if os.path.exists(player.log_path):
                    shutil.copy(player.log_path, os.path.join(pictures, "log"))
            place.stop()
            screen.stop()


def play(player, pictures):
    number = 0
    page = WAY[0][0]
    for wanted, place, keys in WAY:
        while True:
            if number > 0:
                page = player.await_page(wanted)
            player.point(NEUTRAL[0])
            number += 1
            write_png(os.path.join(pictures, f"{number:02}-{page}.png"), *player.settled())
            if page == wanted:
                break
            for answer, press in enumerate(LETTERS[page]):
                if answer > 0:
                    player.await_page("MenuGameMain")
                    player.settled()
                player.press(*press)
        if place is not None:
            player.press(place, keys)
    try:
        status = player.process.wait(60)
    except subprocess.TimeoutExpired:
        raise Failure("the program doesn't end") from None
    if status != 0:
        raise Failure(f"the program ends with {status}")
    if player.log().count("\n!!"):
        raise Failure("the log has errors")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build")
    parser.add_argument("pictures")
    parser.add_argument("--languages", default=",".join(LOCALES))
    parser.add_argument("--sizes", default="1280x800,3840x2160")
    parser.add_argument("--by", default="pointer,keys")
    parser.add_argument("--display", type=int, help="number of the X server; any free one without")
    call = parser.parse_args()
    failures = 0
    for size in call.sizes.split(","):
        for language in call.languages.split(","):
            for by in call.by.split(","):
                name, start = f"{size}-{language}-{by}", time.monotonic()
                try:
                    first_start(os.path.abspath(call.build), size, language, by,
                                os.path.join(call.pictures, name), call.display)
                    print(f"{name}: {time.monotonic() - start:.0f} s", flush=True)
                except Failure as failure:
                    print(f"{name}: {failure}", flush=True)
                    failures += 1
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
