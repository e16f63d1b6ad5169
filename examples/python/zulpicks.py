"""The pick dialogs for a program in Python that has a database open with PyQt6.

A host copies this file. It needs nothing but the library libZULPickC, and the Qt that PyQt6 itself uses:

    picks = zulpicks.Library()
    keys = picks.call("customer", connection="main", entity="MAIN")   # None when the user has cancelled

The dialogs are called on the thread of the user interface, after the QApplication was made. The window's event loop
goes on while a dialog is open.
"""

import ctypes
import enum
from collections.abc import Iterable
from dataclasses import dataclass

__all__ = ["Argument", "Code", "Library", "Pick", "PickError"]


class Code(enum.IntEnum):
    """How a call went, as the library's header says."""

    OK = 0
    NOTHING_CHOSEN = 1
    NULL = 10
    UTF8 = 11
    PICK = 12
    ARGUMENT = 13
    ARGUMENT_TWICE = 14
    VALUE = 15
    APPLICATION = 20
    THREAD = 21
    CONNECTION = 30
    NOT_OPEN = 31
    LOST = 32
    QUERY_ENDED = 33
    DATABASE = 34
    MEMORY = 40
    OTHER = 41


class PickError(Exception):
    """A call failed: `code` says in which way, a `Code` or the number of one that is newer than this file, and the text
    what is wrong, ready to be shown."""

    def __init__(self, code: int, message: str) -> None:
        super().__init__(message)
        self.code: int = Code(code) if code in list(Code) else code


@dataclass(frozen=True)
class Pick:
    """One of the picks."""

    name: str
    group: str
    help: str


@dataclass(frozen=True)
class Argument:
    """An argument of a pick. `kind` is text, boolean, integer, choice (one of `values`) or choices (any of them)."""

    name: str
    kind: str
    help: str
    values: list[str]
    default: str
    in_out: bool


class Library:
    """The picks, loaded from the library `file`: its path, or its name where the loader finds it."""

    def __init__(self, file: str = "libZULPickC.so.1") -> None:
        self._c = ctypes.CDLL(file)
        texts = ctypes.POINTER(ctypes.c_char_p)
        for name, result, *arguments in (
            ("zul_version", ctypes.c_char_p),
            ("zul_pick", ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p, texts, texts, ctypes.c_size_t),
            ("zul_list_picks", ctypes.c_void_p),
            ("zul_list_arguments", ctypes.c_void_p, ctypes.c_char_p),
            ("zul_result_code", ctypes.c_int, ctypes.c_void_p),
            ("zul_result_message", ctypes.c_char_p, ctypes.c_void_p),
            ("zul_result_count", ctypes.c_size_t, ctypes.c_void_p),
            ("zul_result_value", ctypes.c_char_p, ctypes.c_void_p, ctypes.c_size_t, ctypes.c_char_p),
            ("zul_result_free", None, ctypes.c_void_p),
        ):
            function = getattr(self._c, name)
            function.restype = result
            function.argtypes = arguments

    @property
    def version(self) -> str:
        """The library's version, such as "1.2.3"."""
        return self._c.zul_version().decode()

    def call(self, pick: str, connection: str | None = None, **arguments: object) -> list[str] | None:
        """Opens the dialog of `pick` and returns the chosen keys; None when nothing was chosen.

        `connection` is the name by which Qt knows the connection (QSqlDatabase.addDatabase), None its default one. An
        argument's hyphens are written as underscores: allow_inactive=True. Of several values a list is given:
        types=["order", "invoice"]. Raises PickError.
        """
        names = [_bytes(name.replace("_", "-")) for name in arguments]
        values = [_bytes(_text(value)) for value in arguments.values()]
        texts = ctypes.c_char_p * len(names)
        code, rows = self._read(
            self._c.zul_pick(
                None if connection is None else _bytes(connection),
                _bytes(pick),
                texts(*names),
                texts(*values),
                len(names),
            ),
            "key",
        )
        return None if code == Code.NOTHING_CHOSEN else [key for key, in rows]

    def picks(self) -> list[Pick]:
        """All picks."""
        _, rows = self._read(self._c.zul_list_picks(), "name", "group", "help")
        return [Pick(*row) for row in rows]

    def arguments(self, pick: str) -> list[Argument]:
        """The arguments of `pick`. Raises PickError."""
        fields = ("name", "kind", "help", "values", "default", "in-out")
        _, rows = self._read(self._c.zul_list_arguments(_bytes(pick)), *fields)
        return [
            Argument(name, kind, help, values.split("\n") if values else [], default, in_out == "yes")
            for name, kind, help, values, default, in_out in rows
        ]

    def _read(self, result: int, *fields: str) -> tuple[int, list[list[str]]]:
        """The code of a result and the named values of its rows. The result is freed."""
        try:
            code = self._c.zul_result_code(result)
            if code >= Code.NULL:
                raise PickError(code, self._c.zul_result_message(result).decode())
            return code, [
                [self._c.zul_result_value(result, row, _bytes(field)).decode() for field in fields]
                for row in range(self._c.zul_result_count(result))
            ]
        finally:
            self._c.zul_result_free(result)


def _text(value: object) -> str:
    """A value as the library reads it."""
    if isinstance(value, bool):
        return "yes" if value else "no"
    if not isinstance(value, str) and isinstance(value, Iterable):
        return ",".join(_text(each) for each in value)
    return str(value)


def _bytes(text: str) -> bytes:
    """UTF-8 for C, where a zero character would end the text early. A lone surrogate, which no UTF-8 can hold, is passed
    on for the library to refuse."""
    if "\0" in text:
        raise ValueError("A text with a zero character cannot be passed to a pick.")
    return text.encode(errors="surrogatepass")
