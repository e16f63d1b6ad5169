"""The Python module over the real library: picks, cancels, errors.

    python_picks.py LIBRARY DATABASE HEADER
"""

import re
import sqlite3
import sys
import threading
import unittest
from collections.abc import Callable
from pathlib import Path

from PyQt6.QtCore import Qt, QTimer
from PyQt6.QtSql import QSqlDatabase
from PyQt6.QtTest import QTest
from PyQt6.QtWidgets import QApplication, QDialog, QLineEdit, QPushButton, QTableView

import zulpicks
from zulpicks import Code

LIBRARY, DATABASE, HEADER = sys.argv[1:]


def ask(sql: str) -> list[str]:
    """What SQLite itself says."""
    with sqlite3.connect(DATABASE) as connection:
        return [row[0] for row in connection.execute(sql)]


class Picks(unittest.TestCase):
    def setUp(self) -> None:
        self.application = QApplication.instance() or QApplication(sys.argv[:1])
        self.picks = zulpicks.Library(LIBRARY)
        database = QSqlDatabase.addDatabase("QSQLITE", "company")
        database.setDatabaseName(DATABASE)
        self.assertTrue(database.open())

    def tearDown(self) -> None:
        QSqlDatabase.removeDatabase("company")

    def drive(self, pick: str, user: Callable[[QDialog], None], **arguments: object) -> list[str] | None:
        """What the pick gives to a user, who leaves its dialog."""
        def act() -> None:
            dialog = QApplication.activeModalWidget()
            if dialog is not None and dialog.isVisible():
                timer.stop()
                user(dialog)

        timer = QTimer()
        timer.timeout.connect(act)
        timer.start(10)
        return self.picks.call(pick, "company", **arguments)

    def failure(self, pick: str, connection: str | None = "company", **arguments: object) -> tuple[int, str]:
        with self.assertRaises(zulpicks.PickError) as caught:
            self.picks.call(pick, connection, **arguments)
        return caught.exception.code, str(caught.exception)

    def test_gives_the_chosen_key(self) -> None:
        def choose(dialog: QDialog) -> None:
            QTest.keyClicks(dialog.findChild(QLineEdit, "edFind"), "an")
            QTest.keyClick(dialog.findChild(QLineEdit, "edFind"), Qt.Key.Key_Return)
            dialog.findChild(QPushButton, "bbnOK").click()

        found = ask(
            "SELECT ID FROM Cust WHERE Entity = 'MAIN' AND Inactive = 0 AND UPPER(Company) LIKE '%AN%'"
            " ORDER BY UPPER(Company)"
        )
        self.assertEqual(self.drive("customer", choose, entity="MAIN", allow_inactive=False), [found[0]])

    def test_gives_several_keys(self) -> None:
        def tick(dialog: QDialog) -> None:
            for key in (Qt.Key.Key_Home, Qt.Key.Key_Space, Qt.Key.Key_Down, Qt.Key.Key_Space):
                QTest.keyClick(dialog.findChild(QTableView, "dbgAvail"), key)
            dialog.findChild(QPushButton, "bbnOK").click()

        users = ask("SELECT UserName FROM Names ORDER BY UPPER(DisplayNm)")
        self.assertEqual(self.drive("users", tick), users[:2])

    def test_gives_nothing_when_nothing_was_chosen(self) -> None:
        self.assertIsNone(self.drive("city", QDialog.reject))
        self.assertIsNone(self.drive("customer", QDialog.reject, customer="Zoë"))

    def test_raises_what_is_wrong(self) -> None:
        self.assertEqual(self.failure("custommer"), (Code.PICK, 'There is no pick "custommer". Did you mean customer?'))
        self.assertEqual(
            self.failure("customer", entitty="MAIN"),
            (Code.ARGUMENT, 'The pick customer has no argument "entitty". Did you mean entity?'),
        )
        self.assertEqual(
            self.failure("customer", allow_inactive="maybe"),
            (Code.VALUE, '"maybe" is no value for allow-inactive: it is yes or no.'),
        )
        self.assertEqual(self.failure("oe-doc", types=["order", "bill"])[0], Code.VALUE)
        self.assertEqual(self.failure("city", "other"), (Code.CONNECTION, 'Qt has no database connection "other".'))
        self.assertEqual(self.failure("city", None)[0], Code.CONNECTION)
        self.assertEqual(self.failure("customer", entity="\udce9")[0], Code.UTF8)
        self.assertEqual(self.failure("customer", entity="O'Neil")[0], Code.DATABASE)
        with self.assertRaises(ValueError):
            self.picks.call("customer", "company", entity="MAIN\0")

    def test_raises_on_another_thread(self) -> None:
        failures: list[tuple[int, str]] = []
        thread = threading.Thread(target=lambda: failures.append(self.failure("city")))
        thread.start()
        thread.join()
        self.assertEqual(failures, [(Code.THREAD, "A pick must be called on the thread of the user interface.")])

    def test_lists_every_pick_and_its_arguments(self) -> None:
        picks = {pick.name: pick for pick in self.picks.picks()}
        self.assertGreater(len(picks), 50)
        self.assertEqual(picks["customer"].help, "A customer")
        arguments = {argument.name: argument for argument in self.picks.arguments("customer")}
        self.assertTrue(arguments["customer"].in_out)
        self.assertEqual(arguments["allow-inactive"].values, ["yes", "no"])
        self.assertEqual(arguments["allow-inactive"].default, "no")

    def test_knows_every_code_of_the_header(self) -> None:
        codes = re.findall(r"^  ZUL_(?:ERROR_)?(\w+) = (\d+)", Path(HEADER).read_text(), re.MULTILINE)
        self.assertGreater(len(codes), 10)
        self.assertEqual({name: int(number) for name, number in codes}, {code.name: code.value for code in Code})

    def test_tells_its_version(self) -> None:
        self.assertRegex(self.picks.version, r"^\d+\.\d+\.\d+$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
