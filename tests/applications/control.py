"""What the applications under test have in common: a test asks them over their standard input where a widget is.

One JSON object a line comes in, one JSON value a line goes out:
  {"place": NAME}   [x, y, width, height] in pixels of the screen, or null while the widget is not on the screen
  {"focus": NAME}   gives the widget the keyboard focus; null
  {"value": NAME}   what the widget holds now
  {"idle": null}    null, when everything that was due before has been done
The first line out is "ready", when the window is there. The end of the input ends the application.
"""
import json
import os
import sys
import threading
import traceback


class Control:
    """Reads commands on a thread of its own; `invoke` hands a function to the toolkit's loop, which runs it there."""

    def __init__(self, commands, invoke):
        self.commands = {**commands, "idle": lambda _: None}
        self.invoke = invoke
        self.has_begun = False

    def begin(self):
        """To be called when the window is there; it may be there again when a window manager has gone."""
        if self.has_begun:
            return
        self.has_begun = True
        self._answer("ready")
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in sys.stdin:
            ((command, argument),) = json.loads(line).items()
            self.invoke(lambda: self._obey(command, argument))
        os._exit(0)

    def _obey(self, command, argument):
        try:
            self._answer(self.commands[command](argument))
        except Exception:
            traceback.print_exc()
            os._exit(1)

    @staticmethod
    def _answer(value):
        print(json.dumps(value), flush=True)
