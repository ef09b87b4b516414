"""Waiting for conditions: no test sleeps for a fixed time."""
import select
import time

PATIENCE = 20.0
TURN = 0.005


def wait_until(condition, what, patience=PATIENCE):
    """The first answer of the condition that is true; an AssertionError that names what was waited for at the limit."""
    end = time.monotonic() + patience
    while not (answer := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"waited {patience:.0f} s in vain for {what}")
        select.select([], [], [], TURN)
    return answer
