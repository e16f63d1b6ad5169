#!/usr/bin/env python3
"""A small window with a button that picks a customer of a SQLite database.

    pick_customer.py DATABASE [LIBRARY]

LIBRARY is the path of libZULPickC.so where the loader does not find it.
"""

import argparse
import sys

from PyQt6.QtSql import QSqlDatabase
from PyQt6.QtWidgets import QApplication, QFormLayout, QLineEdit, QMessageBox, QPushButton, QWidget

import zulpicks

CONNECTION = "company"


class OrderWindow(QWidget):
    """An order that needs its customer."""

    def __init__(self, picks: zulpicks.Library) -> None:
        super().__init__()
        self._picks = picks
        self.setWindowTitle("Order")
        self.customer = QLineEdit()
        self.button = QPushButton("&Pick a customer …")
        self.button.clicked.connect(self.pick_customer)
        layout = QFormLayout(self)
        layout.addRow(self.button)
        layout.addRow("&Customer:", self.customer)

    def pick_customer(self) -> None:
        """Puts the chosen customer into the box; leaves it as it is when nothing is chosen."""
        try:
            keys = self._picks.call("customer", CONNECTION, customer=self.customer.text(), allow_inactive=True)
        except zulpicks.PickError as error:
            QMessageBox.warning(self, "No pick", str(error))
            return
        if keys is not None:
            self.customer.setText(keys[0])
            self.setWindowTitle(f"Order of {keys[0]}")


def main() -> int:
    parser = argparse.ArgumentParser(description="A window with a button that picks a customer.")
    parser.add_argument("database", help="a SQLite file")
    parser.add_argument("library", nargs="?", default="libZULPickC.so.1", help="the path of libZULPickC.so")
    options = parser.parse_args()

    application = QApplication(sys.argv[:1])
    database = QSqlDatabase.addDatabase("QSQLITE", CONNECTION)
    database.setDatabaseName(options.database)
    database.setConnectOptions("QSQLITE_OPEN_READONLY")
    if not database.open():
        print(f"{options.database}: {database.lastError().text()}", file=sys.stderr)
        return 1
    window = OrderWindow(zulpicks.Library(options.library))
    window.show()
    return application.exec()


if __name__ == "__main__":
    sys.exit(main())
