"""An application made of a document's C++ blocks: the frame around them is the same for every document."""
import pathlib
import re
import sys

import blocks as documents

FRAME = pathlib.Path(__file__).parent / "frame"
FILE_SCOPE = re.compile(r"^(?:\S.*\)\s*(?:const\s*)?\{|(?:class|struct|namespace|extern)\b.*\{)\s*$")
MEMBER = re.compile(r"^void (\w+)::(\w+)\(\) \{", re.M)


def split_includes(code):
    lines = code.split("\n")
    includes = [line for line in lines if line.startswith("#include")]
    return includes, "\n".join(line for line in lines if not line.startswith("#include")).strip("\n")


def is_file_scope(code):
    first = next((line for line in code.split("\n") if line and not line.startswith("//")), "")
    return bool(FILE_SCOPE.match(first)) and code.rstrip().endswith("}")


def sources(blocks, replace=lambda text: text):
    """The three generated files. A block sees what the blocks before it have included; one that is no definition stands
    in a function of its own."""
    bodies, members, calls = [], [], []
    for number, block in enumerate(blocks):
        own, code = split_includes(replace(block.text))
        bodies += own
        where = f'#line {block.line + len(own) + 1} "{block.document}"'
        if is_file_scope(code):
            bodies += [where, code]
            calls += [f"{name}(Host).{function}();" for name, function in MEMBER.findall(code)]
        elif code:
            bodies += [f"void THost::Fragment{number}() {{", where, code, "}"]
            members.append(f"void Fragment{number}();")
            calls.append(f"Host.Fragment{number}();")
    text = ['#include "Host.h"', *bodies, "void RunFragments(THost& Host) {", *calls, "}", ""]
    return {"fragments.cpp": "\n".join(text), "Fragments.inc": "\n".join(members) + "\n"}


def write(folder, blocks, replace=lambda text: text):
    folder.mkdir(parents=True, exist_ok=True)
    files = sources(blocks, replace)
    for name in ("Host.h", "main.cpp"):
        files[name] = (FRAME / name).read_text()
    for name, text in files.items():
        file = folder / name
        if not file.exists() or file.read_text() != text:
            file.write_text(text)


def write_project(folder, cpp_blocks, cmake_block):
    """The application with the document's own CMake lines, which say nothing of the language's version."""
    write(folder, cpp_blocks)
    (folder / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(application LANGUAGES CXX)\n"
        "add_executable(application main.cpp fragments.cpp)\n" + cmake_block.text + "\n")


if __name__ == "__main__":  # host.py DOCUMENT FOLDER: its example as a project, with its first lines of CMake
    found, _ = documents.read(pathlib.Path(sys.argv[1]), sys.argv[1])
    write_project(pathlib.Path(sys.argv[2]), [block for block in found if block.language == "cpp"],
                  next(block for block in found if block.language == "cmake"))
