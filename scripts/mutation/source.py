"""Reading C++, as far as it takes to change it."""

import collections
import re

TOKENS = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*)
      | (?P<raw>R"(?P<delimiter>[^()\\\s]{0,16})\(.*?\)(?P=delimiter)")
      | (?P<string>"(?:[^"\\\n]|\\.)*")
      | (?P<char>'(?:[^'\\\n]|\\.)+')
      | (?P<number>\d(?:[eE][+-]|[\w.'])*)
      | (?P<name>[A-Za-z_]\w*)
      | (?P<sign><=>|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])""",
    re.VERBOSE | re.MULTILINE | re.DOTALL)

Token = collections.namedtuple("Token", "kind text start end")

TYPE_WORDS = {"namespace", "class", "struct", "union"}
BLOCK_WORDS = {"const", "override", "noexcept", "final", "mutable", "else", "do", "try"}


def tokens_of(text):
    return [Token(m.lastgroup, m.group(), m.start(), m.end()) for m in TOKENS.finditer(text)
            if m.lastgroup not in ("comment", "directive", "delimiter")]


class Source:
    """The tokens of a file, where its brackets close and what its braces hold: "type", "list" or "block"."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = tokens_of(text)
        self.close = {}
        self.braces = {}
        self.opens = []  # for each token the bracket that it stands in, or None
        self._match_brackets()

    def _match_brackets(self):
        stack = []
        for index, token in enumerate(self.tokens):
            if token.kind == "sign" and token.text in ")}]" and stack:
                self.close[stack.pop()] = index
            self.opens.append(stack[-1] if stack else None)
            if token.kind == "sign" and token.text in "({[":
                if token.text == "{":
                    self.braces[index] = self._brace_kind(index)
                stack.append(index)

    def _brace_kind(self, index):
        head = []  # what stands before it in its statement
        for token in reversed(self.tokens[:index]):
            if token.text in (";", "{", "}"):
                break
            head.append(token.text)
        if not head:
            return "list" if self.braces.get(index - 1) == "list" else "block"
        if "enum" in head:
            return "list"
        if TYPE_WORDS & set(head) and "(" not in head:
            return "type"
        if head[0] in BLOCK_WORDS or head[0] in (")", "]") or (head[0] == ":" and {"case", "default"} & set(head)):
            return "block"
        while head and re.fullmatch(r"[\w:<>*&]+", head[0]):
            head.pop(0)
        return "block" if head[:2] == ["->", ")"] else "list"

    def entries(self, bracket):
        """The first and the last token of each entry between a bracket and the one that closes it."""
        result = []
        first = index = bracket + 1
        while index <= self.close[bracket]:
            if index == self.close[bracket] or self.tokens[index].text == ",":
                if first < index:
                    result.append((first, index - 1))
                first = index + 1
            index = self.close.get(index, index) + 1
        return result

    def part(self, first, last):
        return self.text[self.tokens[first].start:self.tokens[last].end]

    def is_spaced(self, token):
        """Whether it has blanks around it, which tells an operator from a template's bracket and from a reference."""
        return self.text[token.start - 1].isspace() and self.text[token.end].isspace()
