#!/usr/bin/env python3
"""Does on a tree what a page tells its reader to do, word by word.

    apply_page.py PAGE TREE [--without PATTERN]...

A block goes where the line above it says, which ends in a colon:

    New file `PATH`:
    In `PATH`, behind `LINE`:
    In `PATH`, before `LINE`:

The line must stand in the file exactly once. Other blocks are left alone, but for those of the shell, which are
printed. What goes to a file whose path matches a pattern is left out; the file gets a new date all the same, so that a
build notices that it is as before again.
"""

import argparse
import fnmatch
import pathlib
import re
import sys

PLACE = re.compile(r"(?:New file `(?P<new>[^`]+)`|In `(?P<file>[^`]+)`, (?P<where>behind|before) `(?P<line>[^`]+)`):")


def blocks(page):
    """The page's blocks: the last line of text above each, its language, and its lines."""
    above, language, inside = "", None, []
    for line in page.read_text().splitlines():
        if language is None and line.startswith("```"):
            language, inside = line[3:], []
        elif line == "```":
            yield above, language, inside
            above, language = "", None
        elif language is not None:
            inside.append(line)
        elif line:
            above = line
    if language is not None:
        sys.exit(f"{page}: a block has no end.")


def insert(tree, place, lines):
    path = tree / place["file"]
    text = path.read_text().split("\n")
    if text.count(place["line"]) != 1:
        sys.exit(f"{place['file']} has the line {place['line']!r} {text.count(place['line'])} times.")
    at = text.index(place["line"]) + (place["where"] == "behind")
    path.write_text("\n".join(text[:at] + lines + text[at:]))


def create(tree, name, lines):
    path = tree / name
    if path.exists():
        sys.exit(f"{name} is there already.")
    path.write_text("\n".join(lines) + "\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("tree", type=pathlib.Path)
    parser.add_argument("--without", action="append", default=[])
    options = parser.parse_args()
    done = 0
    for above, language, lines in blocks(options.page):
        place = PLACE.fullmatch(above)
        if place is None:
            if language == "sh":
                print("\n".join(lines))
                continue
            sys.exit(f"{options.page}: nothing says where this block goes: {lines[0]}")
        name = place["new"] or place["file"]
        if any(fnmatch.fnmatchcase(name, pattern) for pattern in options.without):
            if (options.tree / name).exists():
                (options.tree / name).touch()
            continue
        if place["new"]:
            create(options.tree, name, lines)
        else:
            insert(options.tree, place, lines)
        done += 1
    if done == 0:
        sys.exit(f"{options.page} changes nothing.")


main()
