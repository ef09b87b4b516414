"""Numbers in words, and tables of them in Markdown."""
import statistics


def percentile(values, hundredths):
    ordered = sorted(values)
    return ordered[-(-len(ordered) * hundredths // 100) - 1]


def milliseconds(microseconds):
    return f"{microseconds / 1000:.2f} ms"


def median_and_tail(microseconds):
    return f"{milliseconds(statistics.median(microseconds))} ({milliseconds(percentile(microseconds, 99))})"


def table(title, header, rows, note=""):
    print(f"\n### {title}\n")
    if note:
        print(note + "\n")
    print("| " + " | ".join(header) + " |")
    print("|" + " --- |" * len(header))
    for row in rows:
        print("| " + " | ".join(str(cell) for cell in row) + " |", flush=True)
