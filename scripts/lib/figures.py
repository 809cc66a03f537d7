"""Output of benchmarks: a table and, for programs, a last line with JSON."""

import json
import os
import statistics

LOAD_WORTH_TELLING = 0.7


def percentiles(values):
    """p50 and p95; p95 is the smallest value that 95 of 100 do not exceed."""
    ordered = sorted(values)
    return {"p50": round(statistics.median(ordered), 2), "p95": round(ordered[-(-95 * len(ordered) // 100) - 1], 2)}


def print_table(header, rows):
    cells = [[str(cell) for cell in row] for row in (header, *rows)]
    widths = [max(len(row[i]) for row in cells) for i in range(len(header))]
    for row in cells:
        print("  ".join([row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]))


def print_conditions():
    """Prints the machine's load, without which times mean nothing."""
    load = os.getloadavg()[0]
    busy = " (other programs were using the machine)" if load > LOAD_WORTH_TELLING * os.cpu_count() else ""
    print(f"{os.cpu_count()} processors, load {load:.1f} at the start{busy}")


def print_json(figures):
    print(json.dumps(figures))
