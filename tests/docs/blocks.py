"""Takes the blocks and commands out of a Markdown document."""
import dataclasses
import re

FENCE = re.compile(r"^```(\w*)\s*$")
SPAN = re.compile(r"(?<!`)`([^`\n]+)`(?!`)")


@dataclasses.dataclass
class Block:
    document: str  # its path
    line: int      # of its first line of text, less one
    language: str  # the tag behind its fence; "" without one or when it is indented
    text: str

    def __str__(self):
        return f"{self.document}:{self.line + 1}"


def read(path, name):
    """All blocks of a document, fenced or indented, and the spans of code in its sentences."""
    blocks, spans, current, indented, before = [], [], None, None, ""
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        fence = FENCE.match(line)
        after_gap, before = not before.strip(), line
        if current is not None:
            if line.startswith("```"):
                blocks.append(current)
                current = None
            else:
                current.text += line + "\n"
            continue
        # Behind a line of text it is that line's sentence which goes on.
        if line.startswith("    ") and line.strip() and (after_gap or indented is not None):
            if indented is None:
                indented = Block(name, number - 1, "", "")
                blocks.append(indented)
            indented.text += line[4:] + "\n"
            continue
        if line.strip():
            indented = None
        if fence:
            current = Block(name, number, fence.group(1), "")
        elif line.startswith("```"):
            raise SystemExit(f"{name}:{number}: a fence takes one word, its language")
        else:
            spans += [Block(name, number - 1, "span", text) for text in SPAN.findall(line)]
    if current is not None:
        raise SystemExit(f"{current}: the block has no end")
    return blocks, spans
