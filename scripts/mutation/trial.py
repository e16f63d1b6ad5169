"""The copy of the checkout in which mutants are tried: its build, its tests."""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
WORK = ROOT / "build" / "mutate"
TREE = WORK / "tree"
BUILD = WORK / "build"
LIBRARY = "ZULPickLists"
UNRELATED = 4  # the rank of a test program that is run only when all are


def fail(message):
    print("mutate: " + message, file=sys.stderr)
    sys.exit(2)


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def copy_checkout():
    """Brings the copy up to date; what did not change keeps its time, so that it is not built again."""
    listed = run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT).stdout.split("\0")
    wanted = {name for name in listed if name and (ROOT / name).is_file()}
    for name in wanted:
        here, there = ROOT / name, TREE / name
        if not there.exists() or here.read_bytes() != there.read_bytes():
            there.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(here, there)
            shutil.copymode(here, there)
    for there in TREE.rglob("*"):
        if there.is_file() and str(there.relative_to(TREE)) not in wanted:
            there.unlink()


def build(*targets):
    return run(["cmake", "--build", str(BUILD), "--target", *targets])


def configure():
    # As the release preset, but compiled quickly. Programs need no new linking when only the library changed.
    done = run(["cmake", "-S", str(TREE), "-B", str(BUILD), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                "-DCMAKE_CXX_FLAGS_RELEASE=-O0 -DNDEBUG", "-DZUL_WARNINGS_AS_ERRORS=OFF",
                "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"])
    if done.returncode:
        fail("the copy cannot be configured\n" + done.stdout)


class Test:
    """A test program: how ctest runs it, where its source lies and what that includes."""

    def __init__(self, entry):
        self.name = entry["name"]
        # A crash is a verdict; nobody reads where it was.
        self.command = [*entry.get("command", []), "-nocrashhandler"]
        self.environment = {}
        self.seconds = None
        for item in entry.get("properties", []):
            if item["name"] == "ENVIRONMENT":
                self.environment = dict(variable.split("=", 1) for variable in item["value"])
        sources = sorted(TREE.glob(f"tests/**/{self.name}.cpp"))
        self.folder = str(sources[0].parent.relative_to(TREE)) if sources else ""
        self.includes = {}  # by name, 0 when the tests name it, 1 when a header of the library does
        for source in sources:
            self._read_includes(source, 0)

    def _read_includes(self, source, depth):
        for name in re.findall(r'^#include "([^"]+)"', source.read_text(), re.MULTILINE):
            if self.includes.get(name, 2) <= depth:
                continue
            self.includes[name] = depth
            for folder, below in (("tests", depth), ("src", 1)):
                if (TREE / folder / name).is_file():
                    self._read_includes(TREE / folder / name, below)

    def succeeds(self):
        """Whether it succeeds in time. What hangs is tried again: it may have been the machine that hung."""
        timeout = 300 if self.seconds is None else 20 + 10 * self.seconds
        result = self._run(timeout)
        return bool(self._run(timeout) if result is None else result)

    def _run(self, timeout):
        """None when it does not end in time."""
        folder = WORK / "tmp"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        program = subprocess.Popen(self.command, cwd=folder, start_new_session=True, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   env={**os.environ, **self.environment, "TMPDIR": str(folder)})
        try:
            return program.wait(timeout) == 0
        except subprocess.TimeoutExpired:
            return None
        finally:
            try:
                os.killpg(program.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            program.wait()


def test_programs():
    done = subprocess.run(["ctest", "--test-dir", str(BUILD), "--show-only=json-v1"], stdout=subprocess.PIPE, text=True)
    tests = [Test(entry) for entry in json.loads(done.stdout)["tests"]]
    return [test for test in tests if test.folder]


def rank_of(test, path):
    """How much a program has to do with a file; the less the more."""
    unit = str(pathlib.PurePath(path).relative_to("src").with_suffix(".h"))
    folder = str(pathlib.PurePath(unit).parent)
    layer = folder.split("/")[0]
    # The programs over every dialog on every server take minutes and need the servers.
    if test.folder not in ("tests/" + layer, "tests/pickbase", "tests/picks"):
        return UNRELATED
    if unit in test.includes:
        return test.includes[unit]
    if test.folder == "tests/" + folder or any(name.startswith(folder + "/") for name in test.includes):
        return 2
    return 3 if test.folder == "tests/pickbase" or layer != "picks" else UNRELATED


def tests_for(path, tests, everything):
    """The programs that may notice a change of the file, those first that have most to do with it and little else."""
    order = [(rank_of(test, path), len(test.includes), test.name, test) for test in tests]
    return [entry[-1] for entry in sorted(order, key=lambda entry: entry[:3]) if everything or entry[0] < UNRELATED]


def check_unchanged(tests):
    """Every program succeeds on the unchanged copy, or its failure would mean nothing."""
    if not tests:
        fail("no test program knows any of the files")
    print(f"building {LIBRARY} and {len(tests)} test programs", flush=True)
    done = build(LIBRARY, *(test.name for test in tests))
    if done.returncode:
        fail("the copy does not compile\n" + done.stdout[-4000:])
    for test in tests:
        began = time.monotonic()
        if not test.succeeds():
            fail(f"{test.name} fails without any change")
        test.seconds = time.monotonic() - began


class Trial:
    """Tries mutants, one after the other."""

    def __init__(self, tests, everything):
        self.tests = tests
        self.everything = everything

    def verdict(self, mutant):
        """What became of it, and by which test program."""
        tests = tests_for(mutant.path, self.tests, self.everything)
        (TREE / mutant.path).write_text(mutant.text)
        try:
            if build(LIBRARY).returncode:
                return "not compiled", ""
            for test in tests:
                # A header's mutant is compiled into the test programs, too.
                if mutant.path.endswith(".h") and build(test.name).returncode:
                    return "not compiled", ""
                if not test.succeeds():
                    return "killed", test.name
            return "survived", ""
        finally:
            (TREE / mutant.path).write_text(mutant.before)
