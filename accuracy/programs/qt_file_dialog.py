#!/usr/bin/python3
"""Qt's own file dialog, as applications open it."""
import sys

from PyQt5.QtWidgets import QApplication, QFileDialog, QLabel, QPushButton, QVBoxLayout, QWidget

application = QApplication(sys.argv)
window = QWidget(windowTitle="Harbour office")
window.resize(500, 300)
layout = QVBoxLayout(window)
answer = QLabel("Nothing chosen")


def ask(kind, mode):
    dialog = QFileDialog(window, f"{kind} a chart", sys.argv[1], "Text files (*.txt);;All files (*)")
    dialog.setOption(QFileDialog.DontUseNativeDialog)
    dialog.setAcceptMode(mode)
    accepted = dialog.exec()
    answer.setText(dialog.selectedFiles()[0].rpartition("/")[2] if accepted else "Cancelled")


for kind, mode in (("Open", QFileDialog.AcceptOpen), ("Save", QFileDialog.AcceptSave)):
    button = QPushButton(f"{kind} a chart")
    button.clicked.connect(lambda _, kind=kind, mode=mode: ask(kind, mode))
    layout.addWidget(button)
layout.addWidget(answer)
window.show()
application.exec()
