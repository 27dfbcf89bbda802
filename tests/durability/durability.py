#!/usr/bin/env python3
"""Proves that nothing is lost: plays careers with wingtally-career, which is killed at each
operation that changes the disk, has each operation fail in turn, or loses power after it. Then
everything must still be there. docs/testing.md says how to run it.

Usage: durability.py [--every K] [--only NAME] [--jobs N] [--keep DIR] [--lenient] BUILD TEST...
BUILD is a build folder. TEST is kills, faults, reads, nolinks, cuts, strikes, damages=N, cycles=N or war. --every K
takes each K-th operation only, --lenient takes damage that is not reported. A build for Windows, which
packaging/with-wine.sh must start, knows only the last four. Exit status: 0 if all is well.
"""
import argparse
import collections
import concurrent.futures
import glob
import hashlib
import os
import re
import shutil
import sqlite3
import struct
import subprocess
import sys
import tempfile
import threading

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import diskmodel  # noqa: E402

SAVE = "Saves/savegame_v03.wty"
TIMEOUT = 120  # seconds, of one call
ERRORS = ("ENOSPC", "EACCES", "EIO")
MOST_SHOWN = 40  # kinds of faults
NO_LINKS = ["--no-links"]
FULL_DISK = "ENOSPC"  # from an operation on, not only at it


class Scenario:
    """The calls before, and then the disturbed call with its options. `after`: calls that must work while orders are
    out. `back`: the call that returns a shelved career. The word `fly` stands for a flight of the stand-in."""

    def __init__(self, name, before, disturbed, after=(), needs="", options=(), back=""):
        self.name, self.before, self.disturbed, self.after, self.needs = name, before, disturbed, after, needs
        self.options, self.back = options, back


SCENARIOS = [
    Scenario("first save", [], "new german 1915 12 save"),
    Scenario("save", ["new german 1915 12 save", "load advance save"], "load advance save"),
    Scenario("save without record", ["new german 1915 12 save", "load advance save"], "load advance save",
             options=("--no-record",)),
    Scenario("two saves", ["new german 1915 12 save"], "load advance save advance save"),
    Scenario("mission", ["new german 1915 12 save"], "load mission", after=["fly", "load report save"], needs="orders"),
    Scenario("report", ["new german 1915 12 save", "load mission", "fly"], "load report save", needs="orders"),
    Scenario("flight in one call", ["new german 1915 12 save"], "load mission fly report save"),
    Scenario("new career", ["new german 1915 12 save", "load advance save"], "new english 1916 1 save", needs="careers"),
    Scenario("take", ["new german 1915 12 save", "new english 1916 1 save"], "take 1", needs="careers"),
    Scenario("put away", ["new german 1915 12 save", "new english 1916 1 save"], "putaway 1", needs="careers"),
    Scenario("put current away", ["new german 1915 12 save", "new english 1916 1 save", "take 1", "take 2"], "putaway 2",
             needs="careers", back="take 2"),  # it has a number of its own once it has been on the shelf
    Scenario("page", ["new german 1915 12 save", "load advance save", "load advance save"], "page {first}", needs="careers"),
]


class Program:
    """The built programs, called in folders of their own."""

    def __init__(self, build):
        self.build = os.path.abspath(build)
        self.run_folder = os.path.join(self.build, "run")
        self.is_traced = not os.path.exists(os.path.join(self.build, "bin/wingtally-career.exe"))
        self.career = self.command("wingtally-career")
        self.faulty = os.path.join(self.build, "bin/faulty-disk")
        self.takes_up_orders = None
        self.help = subprocess.run([*self.career, "--help"], capture_output=True, text=True, check=True).stdout

    def command(self, name):
        path = os.path.join(self.build, "bin", name)
        return [path] if self.is_traced else ["wine64", path + ".exe"]

    def knows(self, what):
        """Whether this version can do what a scenario needs."""
        if what == "orders" and self.takes_up_orders is None:
            with tempfile.TemporaryDirectory() as folder:
                self.make(folder + "/probe")
                self.call(folder + "/probe", "new german 1915 12 save mission")
                report = self.call(folder + "/probe", "load report")
                self.takes_up_orders = "no mission of this run" not in report.stderr
        return what == "" or (self.takes_up_orders if what == "orders" else f"\n  {what}" in self.help)

    def words_of(self, folder, words, options=()):
        """The command and its words. In `folder` are the user's folder and the simulator's."""
        if words == "fly":
            return [*self.command("wingtally-standin"), "--seed", "3", "--fly", folder + "/sim"]
        # Two careers of one seed would have one number, and either could be taken for the other.
        seed = "6" if "new english" in words else "5"
        return [*self.career, "--seed", seed, *options, "--rof", folder + "/sim", "--user", folder + "/user", *words.split()]

    def call(self, folder, words, disk=(), options=()):
        command = self.words_of(folder, words, options)
        disturbed = [self.faulty, "--root", folder, *disk, "--"] if disk else []
        # Leaks are found by other tests; a traced program can't look for them.
        environment = {**os.environ, "ASAN_OPTIONS": "detect_leaks=0"}
        return subprocess.run(disturbed + command, cwd=self.run_folder, env=environment, capture_output=True, timeout=TIMEOUT,
                              stdin=subprocess.DEVNULL, check=False, encoding="utf-8", errors="replace")

    def strike(self, folder, words, options, last):
        """Makes a call and kills it when its folder has changed `last` times, as seen from outside;
        never if `last` is 0. Returns the changes seen and the exit status."""
        process = subprocess.Popen(self.words_of(folder, words, options), cwd=self.run_folder, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        before, changes = look_of(folder), 0
        while process.poll() is None:
            look = look_of(folder)
            changes += look != before
            before = look
            if 0 < last == changes:
                process.kill()
                process.wait()
                break
        return changes, process.returncode

    def make(self, folder):
        os.makedirs(folder + "/sim/data/Missions")
        os.makedirs(folder + "/user")
        with open(folder + "/sim/data/startup.cfg", "w", encoding="ascii") as config:
            config.write("[KEY = system]\n\tmission_text_log = 1\n[END]\n")


def look_of(folder):
    """What the files below the folder look like: names, sizes and times."""
    look = []
    for place, folders, names in os.walk(folder):
        for name in names + folders:
            try:
                status = os.stat(os.path.join(place, name))
                look.append((place, name, status.st_size, status.st_mtime_ns))
            except FileNotFoundError:
                look.append((place, name))
    return look


def content_of(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return None


def digest(content):
    return None if content is None else hashlib.sha256(content).hexdigest()[:16]


def career_number(save):
    return struct.unpack_from("<i", save, 32)[0] if save is not None and len(save) > 36 else None


def careers_in(folder):
    """Numbers of all careers whose current save is there, whole or not."""
    shelf = glob.escape(folder) + "/user/Careers"
    saves = [folder + "/user/" + SAVE] + glob.glob(shelf + "/*/savegame_v03.wty") + glob.glob(
        shelf + "/Put away/*/savegame_v03.wty")
    return {career_number(content_of(path)) for path in saves} - {None}


def strange_files(folder):
    """Files in the user's folder that belong to no career, its record or its pages."""
    known = re.compile(r"(savegame_v03\.wty(\.bak|\.sum)?|record\.db(-wal|-shm)?|prefs\.dat(\.bak)?|(last )?number\.txt|.*\.lock"
                       r"|\d{4} \d{8} [0-9a-f]{16}\.wty|record [0-9a-f]{16}\.db)$")
    return [os.path.join(place, name) for place, _, names in os.walk(folder + "/user") for name in names
            if not known.match(name)]


def saves_in(folder):
    """Digests of all saves, present and earlier."""
    found = (os.path.join(place, name) for place, _, names in os.walk(folder + "/user") for name in names)
    return {digest(content_of(path)) for path in found if path.endswith((".wty", ".wty.bak"))}


class Checker:
    """Runs a scenario undisturbed, and compares what a disturbed run leaves with that."""

    def __init__(self, program, scenario, work, disk=()):
        """disk: the kind of disk in all disturbed calls."""
        self.program, self.scenario, self.work, self.disk = program, scenario, work, list(disk)
        self.template = os.path.join(work, "template")
        program.make(self.template)
        dates = []
        for words in scenario.before:
            self.must(self.template, words.format(first=dates[0] if dates else ""))
            save = content_of(self.template + "/user/" + SAVE)
            if save:
                dates.append("%d%02d%02d" % struct.unpack_from("<iii", save, 12))
        self.words = scenario.disturbed.format(first=dates[0] if dates else "")
        self.old = content_of(self.template + "/user/" + SAVE)
        self.careers = careers_in(self.template)
        self.saves = saves_in(self.template)
        self.list, self.data = os.path.join(work, "list"), os.path.join(work, "data")
        whole = self.fresh("whole")
        self.whole = self.call(whole, ["--list", self.list, "--data", self.data] if program.is_traced else [])
        assert self.whole.returncode == 0, self.whole.stderr
        self.new = content_of(whole + "/user/" + SAVE)
        self.operations = diskmodel.read_operations(self.list, self.data) if program.is_traced else []
        self.states = {digest(self.old), digest(self.new)} | self.middle_states()
        shutil.rmtree(whole)

    def middle_states(self):
        """The saves of a call that makes several."""
        words = self.words.split()
        found = set()
        for end in [i + 1 for i, word in enumerate(words) if word == "save"][:-1]:
            folder = self.fresh("middle")
            self.must(folder, " ".join(words[:end]))
            found.add(digest(content_of(folder + "/user/" + SAVE)))
            shutil.rmtree(folder)
        return found

    def must(self, folder, words):
        done = self.program.call(folder, words)
        assert done.returncode == 0, f"{words}: {done.stderr}"
        return done

    def fresh(self, name):
        folder = os.path.join(self.work, name)
        shutil.copytree(self.template, folder, symlinks=True)
        return folder

    def call(self, folder, disk=()):
        """The scenario's call."""
        return self.program.call(folder, self.words, self.disk + list(disk), self.scenario.options)

    def faults_of(self, folder, must_be_new=False, said=None):
        """What is wrong in the folder after a disturbance, as lines. Uses up the folder. said: the output of a call
        that has succeeded."""
        faults = []
        is_away = self.scenario.back != "" and not os.path.exists(folder + "/user/" + SAVE)
        if is_away:
            back = self.program.call(folder, self.scenario.back)
            faults += [] if back.returncode == 0 else ["it doesn't come back: " + back.stderr.strip()]
        for path in glob.glob(glob.escape(folder) + "/user/**/*.wty*", recursive=True):
            if os.path.getsize(path) == 0 and path.endswith((".wty", ".bak")):
                faults.append("an empty file: " + os.path.basename(path))
        loaded = self.program.call(folder, "load status save")
        save = content_of(folder + "/user/" + SAVE)
        if loaded.returncode != 0:
            if self.old is not None or must_be_new or "there is none" not in loaded.stderr:
                faults.append("no career loads: " + loaded.stderr.strip())
            return faults
        state = digest(save)
        if must_be_new and (None if is_away else state) != digest(self.new):
            faults.append("what was reported as saved is gone")
        elif state not in self.states:
            faults.append("neither the old state nor the new one")
        if re.search("damaged|ends early|put right", loaded.stderr + loaded.stdout):
            faults.append("taken for damaged: " + loaded.stderr.strip())
        missing = self.careers - careers_in(folder)
        if missing:
            faults.append(f"careers are gone: {missing}")
        if not self.saves <= saves_in(folder):
            faults.append("an earlier save is gone")
        faults += ["left behind: " + os.path.relpath(path, folder) for path in strange_files(folder)]
        faults += self.record_faults(folder)
        if self.scenario.after and not faults:
            faults += self.faults_of_orders(folder, loaded.stdout, said)
        if not faults and state == digest(self.old):
            faults += self.second_try(folder)
        return faults

    def faults_of_orders(self, folder, status, said):
        """Orders that are out can be reported. All orders are out, unless they are marked as
        short-lived."""
        if "Orders: those of" not in status:
            return ["the orders are gone"] if said is not None and "These orders are not kept" not in said else []
        calls = [(words, self.program.call(folder, words)) for words in self.scenario.after]
        return [f"orders are out, but {words} fails: {done.stderr.strip()}" for words, done in calls if done.returncode != 0]

    def second_try(self, folder):
        """Checks that the disturbed call works when it is made again."""
        again = self.call(folder)
        return [] if again.returncode == 0 else ["a second try fails: " + again.stderr.strip()]

    @staticmethod
    def record_faults(folder):
        try:
            record = sqlite3.connect(f"file:{folder}/user/Saves/record.db?mode=rw", uri=True)
            checked = record.execute("PRAGMA quick_check").fetchall()
            pages = record.execute("SELECT count(*) FROM page").fetchone()[0]
            record.close()
        except sqlite3.Error as error:
            return [f"the record: {error}"]
        return ([] if checked == [("ok",)] else [f"the record: {checked[0][0]}"]) + (
            [] if pages > 0 else ["the record knows no save"])

    def disturbed(self, name, disk):
        """Calls of the scenario with that disk: the finished call and its folder."""
        folder = self.fresh(name)
        return self.call(folder, disk), folder


class Count:
    """Figures of a test, and the lines about what failed."""

    def __init__(self):
        self.points, self.faults = 0, []

    def add(self, where, faults):
        self.points += 1
        self.faults += [f"{where}: {fault}" for fault in faults]

    def print(self, what):
        print(f"{what}: {self.points} points, {len(self.faults)} faults")
        kinds = collections.Counter(re.sub(r"cut-[0-9a-f-]*|\d{3,}|tmp\w+", "N", fault) for fault in self.faults)
        for fault, times in kinds.most_common(MOST_SHOWN):
            print(f"  {times} x {fault}")
        sys.stdout.flush()
        return not self.faults


def run_points(args, points, check):
    """check(point) gives (where, faults)."""
    count = Count()
    with concurrent.futures.ThreadPoolExecutor(args.jobs) as pool:
        for where, faults in pool.map(check, points):
            count.add(where, faults)
    return count


def test_kills(args, checker):
    points = [(operation, when) for operation in checker.operations[:: args.every]
              for when in ("before", "after") + (("part",) if operation.name == "write" and operation.length > 1 else ())]

    def check(point):
        operation, when = point
        killed, folder = checker.disturbed(f"kill-{operation.number}-{when}", ["--kill", str(operation.number), when])
        faults = [] if killed.returncode == 137 else [f"it was not killed: {killed.returncode}"]
        faults += checker.faults_of(folder)
        shutil.rmtree(folder)
        return f"{checker.scenario.name}: killed {when} {operation}", faults

    return run_points(args, points, check)


def test_strikes(args, checker):
    """Kills of a program whose system calls can't be traced, such as one under Wine, at each change of its folder
    that is seen from outside."""
    words, options = checker.words, checker.scenario.options
    whole = checker.fresh("strike-none")
    changes, _ = checker.program.strike(whole, words, options, 0)
    shutil.rmtree(whole)
    count = Count()
    for last in range(1, changes + 1, args.every):
        folder = checker.fresh(f"strike-{last}")
        checker.program.strike(folder, words, options, last)
        count.add(f"{checker.scenario.name}: killed at change {last}", checker.faults_of(folder))
        shutil.rmtree(folder)
    return count


def is_optional(operation, done):
    """Whether a call may silently go on after that failure: it has a fallback, or is only less tidy."""
    if done.returncode != 0:
        return False
    # The draft of a copy (of the save before, or of a page) on a disk without second names: the save itself is renamed then.
    is_copy = re.search(r"(\.wty\.bak|[0-9a-f]{16}\.wty)\.\d", operation.path)
    return (operation.result < 0 or operation.name in ("unlink", "chmod", "link") or is_copy is not None
            or operation.path.endswith((".lock", "-shm")))


def test_faults(args, checker, errors=ERRORS, reads=False):
    operations = checker.operations
    if reads:
        folder = checker.fresh("reads")
        listed = folder + ".list"
        checker.call(folder, ["--reads", "--list", listed])
        operations = diskmodel.read_operations(listed)
        shutil.rmtree(folder)
    points = [(operation, error) for operation in operations[:: args.every] for error in errors]
    if not reads:
        points += [(operation, "full") for operation in operations[:: args.every]]

    def check(point):
        operation, error = point
        disk = ["--fail-from", str(operation.number), FULL_DISK] if error == "full" else [
            "--fail", str(operation.number), error]
        done, folder = checker.disturbed(f"fail-{reads}-{operation.number}-{error}", disk + (["--reads"] if reads else []))
        faults = []
        if done.returncode not in (0, 1):
            faults.append(f"exit status {done.returncode}: {done.stderr.strip()}")
        elif done.returncode == 1 and done.stderr.strip() == "":
            faults.append("it failed without a message")
        before = operations[max(0, operations.index(operation) - 1)]  # a sync of its folder
        is_new_folder = operation.name == "sync" and before.name == "mkdir"  # what comes into it is synced with its name
        if done.returncode == 0 and error != "EINTR" and not is_new_folder and not is_optional(operation, done):
            after = content_of(folder + "/user/" + SAVE)
            # The notes of saves that the record lacks count as much as the record.
            record = re.search(r"record(-new)?\.db|\.wty\.sum", operation.path + before.path) or reads
            if not record:
                faults.append("it failed, and the exit status is 0")
            elif done.stderr.strip() == "" and digest(after) != digest(checker.new):
                faults.append("it failed, and nobody was told")
        is_done = done.returncode == 0
        faults += checker.faults_of(folder, is_done, done.stdout + done.stderr if is_done else None)
        shutil.rmtree(folder)
        return f"{checker.scenario.name}: {error} at {operation}", faults

    return run_points(args, points, check)


def test_reads(args, checker):
    return test_faults(args, checker, ("EIO", "EINTR"), reads=True)


def test_nolinks(args, checker):
    """Kills and failures on a disk without second names."""
    count = test_kills(args, checker)
    failures = test_faults(args, checker, ("ENOSPC", "EIO"))
    count.points += failures.points
    count.faults += failures.faults
    return count


def write_state(folder, state, root):
    for path in sorted(state):
        target = folder + path[len(root) :]
        if state[path] is None:
            os.makedirs(target, exist_ok=True)
            continue
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, "wb") as file:
            file.write(state[path])


def test_cuts(args, checker):
    root = os.path.join(checker.work, "whole")
    os.rename(checker.template, root)  # where the operations were listed
    disk = diskmodel.Disk(root)
    os.rename(root, checker.template)
    seen = {}
    last = checker.operations[-1].number if checker.operations else 0
    room = threading.Semaphore(2 * args.jobs)

    def states():
        for operation in checker.operations:
            disk.apply(operation)
            if operation.number % args.every and operation.number != last:
                continue
            for state in disk.after_cut(operation.number):
                name = hashlib.sha256(repr([(path, digest(state[path] or b"")) for path in sorted(state)]).encode()).hexdigest()
                is_over = operation.number == last
                if seen.get(name, False) >= is_over and name in seen:
                    continue
                seen[name] = is_over
                room.acquire()  # not all folders at once
                folder = os.path.join(checker.work, f"cut-{operation.number}-{name[:16]}")
                write_state(folder, state, root)
                yield operation, folder, is_over

    def check(point):
        operation, folder, is_over = point
        is_saved = is_over and " save" in " " + checker.words
        faults = checker.faults_of(folder, is_saved, checker.whole.stdout if is_over else None)
        shutil.rmtree(folder)
        room.release()
        return f"{checker.scenario.name}: cut after {operation}", faults

    return run_points(args, states(), check)


def tables_of(folder):
    return sqlite3.connect(f"file:{folder}/user/Saves/record.db?mode=ro", uri=True)


def test_cycles(program, work, cycles):
    """Each command is a process of its own: the report never knows more than the disk does."""
    count = Count()
    folder = os.path.join(work, "cycles")
    program.make(folder)
    flown = 0  # in this career

    def step(words):
        done = program.call(folder, words)
        return [] if done.returncode == 0 else [f"{words}: {done.stderr.strip()}"]

    faults = step("new french 1915 12 save mission")
    for cycle in range(1, cycles + 1):
        faults += step("fly")
        faults += step("load report save")
        flown += 1
        tables = tables_of(folder)
        flights = tables.execute("SELECT count(*), count(DISTINCT log_hash), max(number) FROM flight").fetchone()
        tables.close()
        if flights != (flown, flown, flown):
            faults.append(f"flights in the record: {flights} of {flown}")
        if "over" in program.call(folder, "load status").stdout:  # the next career
            faults += step("new english 1915 12 save mission")
            flown = 0
        else:
            faults += step("load mission")
        count.add(f"cycle {cycle}", faults)
        if faults:
            break
    return count


def pilots_of(save):
    """(alive, victories) of each pilot."""
    start = 40 + 360 * struct.unpack_from("<I", save, 36)[0]
    number = struct.unpack_from("<I", save, start)[0]
    for i in range(number):
        place = start + 4 + 88 * i
        yield save[place + 68], struct.unpack_from("<H", save, place + 74)[0]


def test_war(program, work):
    """A war with its record: the same save as without, and figures that agree with it."""
    count = Count()
    saves = {}
    for service in ("french", "english", "german"):
        for options in ((), ("--no-record",)):
            folder = os.path.join(work, f"war-{service}-{len(options)}")
            program.make(folder)
            done = program.call(folder, f"new {service} 1915 12 until 19181111 save", options=options)
            assert done.returncode == 0, done.stderr
            saves[options] = content_of(folder + "/user/" + SAVE)
        count.add(f"{service} save", [] if saves[()] == saves[("--no-record",)] else ["it depends on the record"])
        record = tables_of(os.path.join(work, f"war-{service}-0"))
        gained = dict(record.execute("SELECT victor, count(*) FROM victory GROUP BY victor"))
        dead = {row[0] for row in record.execute("SELECT pilot FROM posting WHERE kind = 'died'")}
        died = record.execute("SELECT count(*) FROM posting WHERE kind = 'died'").fetchone()[0]
        pilots = list(pilots_of(saves[()]))
        count.add(f"{service} victories", [
            f"pilot {i} has {victories}, the record {gained.get(i, 0)}"
            for i, (_, victories) in enumerate(pilots) if victories != gained.get(i, 0)])
        fallen = {i for i, (alive, _) in enumerate(pilots) if alive == 0}
        count.add(f"{service} deaths", [] if fallen == dead and died == len(dead) else [
            f"{len(fallen)} dead, the record has {died} postings of {len(dead)}"])
        print(f"  {service}: {sum(gained.values())} victories, {died} deaths, {len(pilots)} pilots")
    return count


def test_damages(program, work, number, is_lenient=False):
    """Bits flipped in a save and its record, and cuts: in one process, which loads the career each time."""
    count = Count()
    program.make(work + "/damages")
    done = program.call(work + "/damages", "new german 1915 12 advance 2 save")
    assert done.returncode == 0, done.stderr
    run = subprocess.run([*program.command("damage-run"), work + "/damages/user", str(number)], cwd=program.run_folder,
                         capture_output=True, text=True, check=False)
    print(run.stdout, end="")
    count.add("damages", [] if run.returncode in ((0, 1) if is_lenient else (0,)) else [f"exit status {run.returncode}: {run.stderr.strip()}"])
    return count


def disturb(args, program, name, run):
    """A test of every scenario that this version can play."""
    fine = True
    for scenario in SCENARIOS:
        if not program.knows(scenario.needs) or (args.only and args.only != scenario.name):
            continue
        with tempfile.TemporaryDirectory(dir=args.keep) as work:
            checker = Checker(program, scenario, os.path.realpath(work), NO_LINKS if name == "nolinks" else ())
            operations = f", {len(checker.operations)} operations" if checker.operations else ""
            fine = run(args, checker).print(f"{name}, {scenario.name}{operations}") and fine
    return fine


def main():
    reader = argparse.ArgumentParser()
    reader.add_argument("--every", type=int, default=1)
    reader.add_argument("--only", default="")
    reader.add_argument("--jobs", type=int, default=2)
    reader.add_argument("--keep", default=None, help="where the folders are made")
    reader.add_argument("--lenient", action="store_true", help="unreported damage isn't a fault")
    reader.add_argument("build")
    reader.add_argument("tests", nargs="+")
    args = reader.parse_args()
    program = Program(args.build)
    tests = {"kills": test_kills, "faults": test_faults, "reads": test_reads, "nolinks": test_nolinks, "cuts": test_cuts,
             "strikes": test_strikes}
    fine = True
    for test in args.tests:
        name, _, number = test.partition("=")
        if name in tests:
            fine = disturb(args, program, name, tests[name]) and fine
            continue
        if name == "cycles" and not program.knows("orders"):
            print("cycles: this version can't report in a later call")
            continue
        with tempfile.TemporaryDirectory(dir=args.keep) as work:
            count = (test_war(program, work) if name == "war" else
                     test_cycles(program, work, int(number)) if name == "cycles" else
                     test_damages(program, work, int(number), args.lenient))
            fine = count.print(name) and fine
    return 0 if fine else 1


if __name__ == "__main__":
    sys.exit(main())
