#!/usr/bin/env python3
"""Does what the documents say: compiles and runs their C++, configures and builds their CMake and qmake lines, runs their
commands and compares what these print.

    documents_test.py SOURCE_FOLDER BUILD_FOLDER CMAKE COMPILER

A new kind of block gets a function in RULES, by the word behind its fence; an indented block is one of commands. A command
that is special gets a line in COMMANDS, one that cannot be run here a reason in EXEMPT.
"""
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

import blocks
import host
import server

# Commands that are not run, and why. Their file must be there.
EXEMPT = {
    "./run": "opens a window and stays",
    "./test": "runs this test",
    ".ci/run": "runs this test",
    "scripts/bench": "measures for minutes, on a quiet machine",
    "scripts/package": "the test of the packages does what it does",
    "scripts/mutate": "builds and tests for hours",
}
# Documents whose blocks another test does, in the order in which they stand there.
ELSEWHERE = {"docs/adding-a-pick.md": "tests/docs/adding_a_pick.sh"}
PROGRAMS = ("zulpick", "zulhost", "zulsample")


class Failure(Exception):
    pass


class Skip(Exception):
    pass


class Run:
    """The folders and the environment in which the documents are tried."""

    def __init__(self, source, build, cmake, compiler):
        self.source, self.build, self.cmake, self.compiler = source, build, cmake, compiler
        self.work = build / "docs_test"
        self.prefix = self.work / "prefix"
        self.scratch = self.work / "scratch"
        self.servers = {}
        for folder in (self.prefix, self.scratch, self.work / "system"):
            shutil.rmtree(folder, ignore_errors=True)
        self.scratch.mkdir(parents=True)
        self.call([cmake, "--install", build, "--prefix", self.prefix])
        libraries = next(self.prefix.rglob("libZULPickLists.so")).parent
        self.environment = {
            **os.environ,
            "CMAKE_PREFIX_PATH": str(self.prefix),
            "CXX": compiler,
            "LC_ALL": "C.UTF-8",
            "LD_LIBRARY_PATH": str(libraries),
            "PATH": f"{self.prefix}/bin:{os.environ['PATH']}",
            "PKG_CONFIG_PATH": f"{libraries}/pkgconfig",
            "QT_QPA_PLATFORM": "offscreen",
        }
        self.environment.pop("ZUL_DB", None)
        self.make_scratch()

    def make_scratch(self):
        """The project as the documents see it from its top folder, the sample company as ./run has made it."""
        (self.scratch / "build" / "sample").mkdir(parents=True)
        (self.scratch / "build" / "release").symlink_to(self.build)
        for entry in self.source.iterdir():
            if entry.name not in ("build", ".git"):
                (self.scratch / entry.name).symlink_to(entry)
        (self.scratch / "zulpicklists").symlink_to(self.source)
        self.company = self.scratch / "build" / "sample" / "company.db"
        self.call(["zulsample", self.company])
        german = self.replaced_path("/usr/share/application/picklists.de.txt")
        german.parent.mkdir(parents=True)
        shutil.copy(next(self.prefix.rglob("en.txt")), german)

    def call(self, command, folder=None, **more):
        """Runs a command; its output is shown when it fails."""
        done = subprocess.run(command, cwd=folder or self.scratch, text=True, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=600,
                              env=getattr(self, "environment", None), **more)
        if done.returncode != 0:
            raise Failure(f"{command}: exit code {done.returncode}\n{done.stdout}{done.stderr}")
        return done.stdout

    def replaced_path(self, path):
        return self.work / "system" / path.lstrip("/")

    def replaced(self, text):
        """Folders of the system and the servers of an example are replaced by ones of the test's own."""
        text = re.sub(r"(?<![\w/.])/(?:opt|usr/share/application)\b[\w/.-]*",
                      lambda match: str(self.replaced_path(match.group())), text)
        kinds = {"postgresql": server.PostgreSQL, "mysql": server.MariaDB}
        return re.sub(r"(postgresql|mysql)://user:password@host[\w:]*/(?:database|company)",
                      lambda match: shlex.quote(self.server_address(kinds[match.group(1)])), text)

    def server_address(self, kind):
        """Of a server's database that has the sample company."""
        if kind not in self.servers:
            try:
                self.servers[kind] = kind()
            except LookupError as error:
                raise Skip(str(error)) from error
            self.call(["zulsample", "--db", self.servers[kind].address])
        return self.servers[kind].address


# --- commands -------------------------------------------------------------------------------------------------------


def preset(run, words):
    """./test has configured and built it for real; here its name must be one of those that there are."""
    kind = "build" if "--build" in words else "configure"
    name = words[words.index("--preset") + 1]
    if f'"{name}"' not in run.call([run.cmake, f"--list-presets={kind}"], run.source):
        raise Failure(f"there is no {kind} preset {name}")
    return ""


def is_pick(words):
    known = {"--help", "--list", "--version", "--check", "--check-texts"}
    while words and re.match(r"^\w+=", words[0]):  # variables of the environment
        words = words[1:]
    return bool(words) and words[0].split("/")[-1] == "zulpick" and len(words) > 1 and not known.intersection(words)


def pick(run, command):
    for tool in ("Xvfb", "openbox", "xdotool"):
        if shutil.which(tool) is None:
            raise Skip(f"{tool} is not installed")
    script = pathlib.Path(__file__).parent / "pick.sh"
    return run.call([script, run.work / "desktop", command])


def shell(run, command):
    """Runs one command as it is written; gives what it prints."""
    words = shlex.split(command, comments=True)
    if not words:
        return ""
    if words[0] in EXEMPT:
        if not os.access(run.source / words[0], os.X_OK):
            raise Failure(f"there is no program {words[0]}")
        return ""
    if words[0] == "cmake" and "--preset" in words:
        return preset(run, words)
    command = run.replaced(command)
    if is_pick(words):
        return pick(run, command)
    if "--db" in words and words[0].split("/")[-1] == "zulsample":
        command += " --overwrite"  # the server has the company already
    return run.call(["bash", "-ec", command])


def logical_lines(text):
    return [line for line in text.replace("\\\n", " ").split("\n") if line.strip()]


# --- blocks ---------------------------------------------------------------------------------------------------------


def sh(run, block, _):
    if "main.cpp" in block.text:
        readme_host(run, run.scratch / "plain")
    for command in logical_lines(block.text):
        if "main.cpp" in command:
            run.call(["bash", "-ec", run.replaced(command).replace("main.cpp", "main.cpp fragments.cpp")],
                     run.scratch / "plain")
            check_pick(run, run.scratch / "plain" / "application")
        else:
            shell(run, command)


def console(run, block, _):
    """Lines behind a dollar sign are commands, the others what these print."""
    command, expected = None, []

    def compare():
        if command is not None:
            printed = shell(run, command).rstrip("\n").split("\n")
            if printed != (expected or [""]):
                raise Failure(f"{command}\nprints {printed}, not {expected}")

    for line in logical_lines(block.text):
        if line.startswith("$ "):
            compare()
            command, expected = line[2:], []
        else:
            expected.append(line)
    compare()


def indented(run, block, document):
    (console if any(line.startswith("$ ") for line in block.text.split("\n")) else sh)(run, block, document)


def cpp(_run, _block, _document):
    """All of a document's C++ is one program (see `application`)."""


def c(run, block, _):
    """A function in C89: compiled strictly, linked, and called where there is no application, which must be its answer."""
    folder = run.work / "c"
    folder.mkdir(exist_ok=True)
    function = re.search(r"^int (\w+)\(void\)", block.text, re.M).group(1)
    (folder / "main.c").write_text(
        f"{block.text}\nint main(void) {{\n  return {function}() == ZUL_ERROR_APPLICATION ? 0 : 1;\n}}\n")
    library = next(run.prefix.rglob("libZULPickC.so"))
    run.call(["cc", "-std=c89", "-Wall", "-Wextra", "-Werror", "-pedantic", f"-I{run.prefix}/include/zul", "main.c",
              "-o", "main", f"-L{library.parent}", "-lZULPickC", f"-Wl,-rpath-link,{library.parent}"], folder)
    run.call([folder / "main"])


def python(run, block, _):
    """Definitions: imported as they stand. What they do is tried with a window, by e2e_python."""
    code = f"import sys; sys.dont_write_bytecode = True; sys.path.insert(0, {str(run.source / 'examples' / 'python')!r})\n"
    run.call([sys.executable, "-c", code + block.text])


def cmake_lines(run, block, document):
    if "add_subdirectory" not in block.text:
        return  # `application` builds with them
    folder = run.work / "subproject"
    host.write_project(folder, readme_blocks(run, "cpp"), block)
    link = folder / "zulpicklists"
    if not link.is_symlink():
        link.symlink_to(run.source)
    run.call([run.cmake, "-G", "Ninja", "-S", folder, "-B", folder / "build"])
    listed = run.call([run.cmake, "--build", folder / "build", "--target", "help"])
    for target in ("zulpick", "zulsample_lib", "tst_Set", "fuzz_calls"):
        if re.search(rf"\b{target}:", listed):
            raise Failure(f"{target} is built in a project that adds this one")
    run.call([run.cmake, "--build", folder / "build", "--target", "ZULCommon"])
    installed = run.call([run.cmake, "--install", folder / "build", "--prefix", folder / "installed"])
    if "libZUL" in installed:
        raise Failure("a project that adds this one installs it")


def qmake(run, block, _):
    folder = run.work / "qmake"
    shutil.rmtree(folder, ignore_errors=True)
    readme_host(run, folder)
    (folder / "application.pro").write_text(block.text + "SOURCES += fragments.cpp\n")
    run.call(["qmake6", "application.pro"], folder)
    run.call(["make", "-s"], folder)
    check_pick(run, folder / "application")


def sql(run, block, _):
    run.call(["psql", "-q", "-v", "ON_ERROR_STOP=1", "-d", run.server_address(server.PostgreSQL), "-c", block.text])


def text(_run, _block, _document):
    """Nothing to be run: pictures in letters and the like."""


RULES = {"": indented, "bash": sh, "c": c, "cmake": cmake_lines, "console": console, "cpp": cpp, "python": python, "qmake": qmake, "sh": sh,
         "sql": sql, "text": text}


# --- programs of C++ blocks -----------------------------------------------------------------------------------------


def readme_blocks(run, language):
    return [block for block in blocks.read(run.source / "README.md", "README.md")[0] if block.language == language]


def readme_host(run, folder):
    host.write(folder, readme_blocks(run, "cpp"))


def check_pick(run, program):
    """The README's example takes a postcode that the company has."""
    printed = run.call([program, run.company])
    found = re.search(r"^postcode (\S+)$", printed, re.M)
    if found is None:
        raise Failure(f"no postcode was picked: {printed}")
    count = run.call(["sqlite3", run.company, f"SELECT COUNT(*) FROM Area WHERE Zip = '{found.group(1)}'"])
    if count.strip() == "0":
        raise Failure(f"there is no postcode {found.group(1)}")


def application(run, name, all_blocks):
    """Builds a document's C++ with its CMake lines (the README's when it has none) against what is installed, and runs it."""
    code = [block for block in all_blocks if block.language == "cpp"]
    if not code:
        return
    lines = [block for block in all_blocks if block.language == "cmake" and "find_package" in block.text]
    for number, block in enumerate(lines or readme_blocks(run, "cmake")):
        folder = run.work / f"{pathlib.Path(name).stem}{number}"
        host.write_project(folder, code, block)
        host.write(folder, code, run.replaced)
        run.call([run.cmake, "-G", "Ninja", "-S", folder, "-B", folder / "build", f"-DCMAKE_PREFIX_PATH={run.prefix}",
                  f"-DCMAKE_CXX_COMPILER={run.compiler}"])
        run.call([run.cmake, "--build", folder / "build"])
        if name == "README.md":
            check_pick(run, folder / "build" / "application")
        else:
            run.call([folder / "build" / "application", run.company])


# --- what stands in sentences ---------------------------------------------------------------------------------------


PATH = re.compile(r"^[a-zA-Z.][\w.-]*(?:/[\w.-]+)+/?$")
WHERE = ("", "src", "docs", "build/release")


def span(run, block):
    words = block.text.split()
    program = words[0].split("/")[-1]
    if program in PROGRAMS and len(words) > 1:
        command_in_a_sentence(run, program, words)
    elif words[0] in EXEMPT:
        shell(run, block.text)
    elif PATH.match(block.text) and (block.text.split("/")[0] in FOLDERS):
        if not any((run.scratch / place / block.text).exists() for place in WHERE):
            raise Failure(f"there is no {block.text}")


FOLDERS = ("ads", "apps", "bench", "capi", "catalog", "check", "cmake", "docs", "examples", "frame", "fuzz", "module", "pickbase", "picks",
           "sample", "scripts", "src", "tests", "toolkit", "zulcommon")


def command_in_a_sentence(run, program, words):
    if {"--help", "--list"}.intersection(words):
        run.call([program, *words[1:]])
        return
    named = [word for word in words[1:2] if re.match(r"^[a-z]", word) and program == "zulpick"]
    known = run.call([program, "--help"]) + (run.call([program, *named, "--help"]) if named else "")
    for word in words[1:]:
        if word.startswith("--") and word not in known:
            raise Failure(f"{program} has no option {word}")


# --- the layers -----------------------------------------------------------------------------------------------------


ROW = re.compile(r"^\| (`[^|]+`) \| ZUL\w+ \|", re.M)
INCLUDE = re.compile(r'^#include "(\w+)/', re.M)


def layers(run):
    """A folder includes only itself and what stands below it in the table of the architecture."""
    table = (run.source / "docs" / "architecture.md").read_text(encoding="utf-8")
    order = [re.match(r"`(\w+)", row).group(1) for row in ROW.findall(table)]
    folders = {path.name for path in (run.source / "src").iterdir() if path.is_dir()}
    if folders != set(order):
        raise Failure(f"the table of layers has {sorted(order)}, src has {sorted(folders)}")
    order.append("sample")  # below all: it has nothing of the libraries
    for above in order:
        for file in (run.source / "src" / above).rglob("*.[ch]*"):
            for below in INCLUDE.findall(file.read_text(encoding="utf-8")):
                if below not in order or order.index(below) < order.index(above):
                    raise Failure(f"{file.relative_to(run.source)} includes {below}")


# --------------------------------------------------------------------------------------------------------------------


def documents(source):
    return ["README.md", "CHANGELOG.md", *sorted(str(path.relative_to(source)) for path in source.glob("docs/*.md"))]


def try_all(run):
    failures, tried = 0, 0

    def attempt(where, function, *arguments):
        nonlocal failures, tried
        tried += 1
        try:
            function(*arguments)
        except Skip as reason:
            print(f"SKIP {where}: {reason}", flush=True)
        except (Failure, subprocess.TimeoutExpired, OSError) as error:
            failures += 1
            print(f"FAIL {where}: {error}", flush=True)

    attempt("the table of layers", layers, run)
    for name in documents(run.source):
        found, spans = blocks.read(run.source / name, name)
        if name in ELSEWHERE:
            attempt(name, exists, run.source / ELSEWHERE[name])
            found, spans = [], []
        attempt(name, application, run, name, found)
        for block in found:
            rule = RULES.get(block.language)
            if rule is None:
                attempt(str(block), unknown, block)
            else:
                attempt(str(block), rule, run, block, name)
        for block in spans:
            attempt(f"{block} `{block.text}`", span, run, block)
    print(f"{tried} blocks, programs and commands were tried, {failures} failed.")
    return failures


def exists(path):
    if not path.exists():
        raise Failure(f"there is no {path}")


def unknown(block):
    raise Failure(f"say in tests/docs/documents_test.py how a block of '{block.language}' is to be tested")


def main():
    source, build = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    run = Run(source, build, *sys.argv[3:5])
    try:
        return 1 if try_all(run) else 0
    finally:
        for each in run.servers.values():
            each.stop()


if __name__ == "__main__":
    sys.exit(main())
