"""Signals with known values: lists of int, Decimal, bool or str, with None where the device has no value."""

import math
from decimal import Decimal


def smooth(random, rows, low, high, places=2):
    """A slow wave with some noise between low and high, as Decimal with `places` decimals, or int with none."""
    period, phase = random.uniform(rows / 6, rows / 2), random.random()
    values = []
    for row in range(rows):
        share = 0.5 + 0.42 * math.sin(2 * math.pi * (row / period + phase)) + random.uniform(-0.08, 0.08)
        values.append(Decimal(low + (high - low) * share).quantize(Decimal(1).scaleb(-places)))
    return values if places else [int(value) for value in values]


def significant(random, rows, low, high, digits=7):
    """Like smooth, with a number of significant digits instead of decimals."""
    return [Decimal(f"{value:.{digits - 1}E}") for value in smooth(random, rows, low, high, 15)]


def growing(random, rows, start, step, places=2):
    """A counter of energy, volume or charge: each value is up to `step` more than the one before."""
    total, values = Decimal(str(start)), []
    for _ in range(rows):
        values.append(total.quantize(Decimal(1).scaleb(-places)) if places else int(total))
        total += Decimal(random.uniform(0, step))
    return values


def counting(rows, start=1, step=1):
    return list(range(start, start + rows * step, step))


def held(random, rows, choices, longest=20):
    """Values that stay for some rows; each of the choices occurs if there are rows enough."""
    values, turn = [], 0
    while len(values) < rows:
        choice = choices[turn] if turn < len(choices) else random.choice(choices)
        values += [choice] * random.randint(1, min(longest, max(1, rows // len(choices))))
        turn += 1
    return values[:rows]


def late(random, rows, before, after, share=0.85):
    """Values of `before`, and only in the last rows values of `after` too."""
    turn = int(rows * share)
    values = held(random, turn, before) + held(random, rows - turn, before + after, 3)
    values[-1] = after[-1]
    return values


def with_gaps(random, values, share=0.04, first=False):
    """A copy in which some values are missing: at least one, on request the first ones."""
    copy = [None if random.random() < share else value for value in values]
    copy[len(copy) // 2] = None
    if first:
        copy[: max(1, len(copy) // 50)] = [None] * max(1, len(copy) // 50)
    return copy
