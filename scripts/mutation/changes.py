"""The changes that make a mutant."""

import hashlib
import os
import re

from mutation.source import Source

NO_STATEMENTS = {"return", "using", "const", "constexpr", "static", "auto", "typedef", "delete", "case", "goto", "new",
                 "class", "struct", "enum", "template", "friend", "if", "else", "for", "while", "do", "switch", "try"}
LOGGING = {"qDebug", "qInfo", "qWarning", "qCritical", "qFatal"}

# Functions to which the order of a list's entries means nothing.
UNORDERED = {"SetLabels"}

OTHER_SIGN = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&"}


def changed_numbers(source):
    for index, token in enumerate(source.tokens):
        if token.kind != "number" or source.part(max(index - 2, 0), index).replace(" ", "") in (")=0", "const=0"):
            continue
        match = re.match(r"0[xX][0-9a-fA-F]+|\d+", token.text.replace("'", ""))
        if match:
            digits = match.group()
            counted = hex(int(digits, 16) + 1) if digits[:2].lower() == "0x" else str(int(digits) + 1)
            yield token.start, token.end, counted + token.text.replace("'", "")[match.end():]


def changed_signs(source):
    for token in source.tokens:
        if token.text in OTHER_SIGN and source.is_spaced(token):
            yield token.start, token.end, OTHER_SIGN[token.text]
        elif token.text == "!":
            yield token.start, token.end, ""
        elif token.text in ("true", "false"):
            yield token.start, token.end, "false" if token.text == "true" else "true"


def negated_conditions(source):
    for index, token in enumerate(source.tokens[:-1]):
        if token.text == "if" and source.tokens[index + 1].text == "(":
            close = source.close[index + 1]
            condition = source.part(index + 2, close - 1)
            # A declaration cannot be negated; of a single "!", "==" or "!=" the other mutant is the same.
            single = condition.startswith("!") or re.search(r"[!=]=", condition)
            if not re.search(r";|[^=!<>]=[^=]", condition) and not (single and not re.search(r"&&|\|\|", condition)):
                yield source.tokens[index + 2].start, source.tokens[close - 1].end, f"!({condition})"


def statement_start(source, index):
    """Behind what leads to a statement: the condition, the label, the else."""
    while index < len(source.tokens):
        text = source.tokens[index].text
        if text in ("if", "for", "while") and source.tokens[index + 1].text == "(":
            index = source.close[index + 1] + 1
        elif text == "else":
            index += 1
        elif text in ("case", "default"):
            while source.tokens[index].text != ":":
                index += 1
            index += 1
        else:
            break
    return index


def can_be_left_out(source, first, last):
    """Whether the tokens are a call, an assignment or a jump: everything but a declaration and what holds a block."""
    tokens = source.tokens
    if tokens[first].text in ("throw", "break", "continue") or (tokens[first].text == "return" and first + 1 == last):
        return True
    if tokens[first].text in ("++", "--"):
        return True
    if tokens[first].kind != "name" or tokens[first].text in NO_STATEMENTS:
        return False
    index = first + 1
    while index < last:
        if tokens[index].text in ("(", "["):
            index = source.close[index] + 1
        elif tokens[index].text in ("::", ".", "->"):
            index += 2
        else:
            break
    if index == last:
        return tokens[last - 1].text == ")"
    return tokens[index].text in ("=", "+=", "-=", "|=", "&=", "++", "--", "<<")


def left_out_statements(source):
    start = {}  # for each block the token at which the next statement begins
    for index, token in enumerate(source.tokens):
        block = source.opens[index]
        if source.braces.get(block) != "block":
            continue
        first = start.get(block, block + 1)
        if token.text == ";":
            start[block] = index + 1
            first = statement_start(source, first)
            if first < index and can_be_left_out(source, first, index):
                yield source.tokens[first].start, token.end, ";"
        elif token.text == "{" and source.braces[index] == "block":
            behind = source.close[index] + 1
            # A lambda's body is followed by the rest of its statement.
            if source.tokens[behind].text not in (";", ",", ")", "("):
                start[block] = behind


def left_out_arguments(source):
    for index, token in enumerate(source.tokens):
        called = index and source.tokens[index - 1]
        if token.text != "(" or not called or called.kind != "name" or called.text in NO_STATEMENTS:
            continue
        arguments = source.entries(index)
        if len(arguments) > 1 and re.fullmatch(r'[\w:.]+|"[^"]*"', source.part(*arguments[-1])):
            yield source.tokens[arguments[-2][1]].end, source.tokens[arguments[-1][1]].end, ""


def shape(source, first, last):
    """What an entry of a list looks like: only entries that look alike are swapped."""
    token = source.tokens[first]
    if token.kind != "name":
        return token.text if token.kind == "sign" else token.kind
    if source.tokens[last].text in (")", "}"):
        return source.part(first, last).partition("(")[0].partition("{")[0]
    return "name"


def swapped_entries(source):
    for brace, kind in source.braces.items():
        bracket = source.opens[brace]
        if kind != "list" or (bracket and source.tokens[bracket - 1].text in UNORDERED):
            continue
        entries = source.entries(brace)
        for one, other in zip(entries, entries[1:]):
            texts = source.part(*one), source.part(*other)
            if texts[0] == texts[1] or shape(source, *one) != shape(source, *other):
                continue
            between = source.text[source.tokens[one[1]].end:source.tokens[other[0]].start]
            yield source.tokens[one[0]].start, source.tokens[other[1]].end, texts[1] + between + texts[0]


def next_character(character):
    if character in "zZ9":
        return {"z": "a", "Z": "A", "9": "0"}[character]
    return chr(ord(character) + 1)


def is_log_text(source, index):
    bracket = source.opens[index]
    while bracket is not None:
        if source.tokens[bracket - 1].text in LOGGING:
            return True
        bracket = source.opens[bracket]
    return any(token.text in LOGGING for token in source.tokens[max(index - 4, 0):index])


def changed_texts(source):
    """One letter or digit of each word of each text."""
    for index, token in enumerate(source.tokens):
        if token.kind not in ("string", "char") or is_log_text(source, index):
            continue
        words = [word for word in re.finditer(r"\\.|[A-Za-z]+|\d+", token.text) if word.group()[0] != "\\"]
        for word in words:
            at = token.start + (word.start() + word.end() - 1) // 2
            yield at, at + 1, next_character(source.text[at])
        if not words and token.kind == "string" and len(token.text) > 2:
            yield token.start + 1, token.start + 1, "x"


CHANGES = {"number": changed_numbers, "condition": changed_signs, "negated": negated_conditions,
           "statement": left_out_statements, "argument": left_out_arguments, "order": swapped_entries,
           "text": changed_texts}


def lines_around(text, start, end):
    first, behind = text.rfind("\n", 0, start) + 1, text.find("\n", end)
    return [line.strip() for line in text[first:behind].split("\n")]


class Mutant:
    def __init__(self, source, kind, start, end, replacement):
        self.path = source.path
        self.kind = kind
        self.before = source.text
        self.text = source.text[:start] + replacement + source.text[end:]
        self.line = source.text.count("\n", 0, start) + 1
        self.removed = lines_around(source.text, start, end)
        self.added = lines_around(self.text, start, start + len(replacement))
        # What the journal knows it by.
        self.name = hashlib.sha1(repr((self.path, start, end, replacement, self.removed)).encode()).hexdigest()

    def diff(self):
        return "\n".join([self.path, *("- " + line for line in self.removed), *("+ " + line for line in self.added)])

    def __str__(self):
        before, after = " ".join(self.removed), " ".join(self.added)
        same = len(os.path.commonprefix([before, after]))
        tail = len(os.path.commonprefix([before[same:][::-1], after[same:][::-1]]))
        first, last = max(same - 30, 0), max(tail - 20, 0)
        return f"{self.path}:{self.line} {self.kind}: {before[first:len(before) - last]} => {after[first:len(after) - last]}"


def mutants_of(root, path):
    source = Source(path, (root / path).read_text())
    found = [Mutant(source, kind, *change) for kind, changes in CHANGES.items() for change in changes(source)]
    return sorted(found, key=lambda mutant: mutant.line)
