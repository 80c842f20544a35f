"""What is wrong with an import, by wanted.json."""

import re
from datetime import datetime
from math import isclose
from statistics import median

MILLISECOND = 10**6
GOOD_TYPES = {"hex": {"integer"}, "float": {"float", "integer"}, "character": {"character", "text"}}
SIGNS = str.maketrans({"°": "deg", "²": "2", "³": "3", "μ": "µ"})


def moment(text, zone="+00:00"):
    """Nanoseconds since 1970."""
    return int(datetime.fromisoformat(text[:19] + zone).timestamp()) * 10**9 + int(text[20:])


def axis_fault(wanted, times):
    """What is wrong with the times, in the words of the best of the axes that are wanted, or nothing."""
    axes = [wanted] + [{**wanted, "zone": None, **other} for other in wanted.get("or", [])]
    faults = [fault_by_axis(axis, sorted(times)) for axis in axes]
    return "" if "" in faults else faults[0]


def fault_by_axis(axis, times):
    rows = axis["rows"]
    if not axis["rows"] - axis["rows_may_miss"] <= len(times) <= rows:
        return f"{len(times)} of {rows} rows have a time"
    first, last = axis["first"], axis["last"]
    if axis["relative"]:
        starts, span = [0], last - first
    else:
        starts = [times[0] - moment(first, zone) for zone in {"+00:00", axis.get("zone") or "+00:00"}]
        span = moment(last) - moment(first)
    elapsed = times[-1] - times[0]
    close = max(2, min(MILLISECOND, span // 1000))  # the whole record of a scope may be shorter than 1 ms
    if not any(abs(start) <= close and abs(start + elapsed - span) <= close for start in starts):
        return f"times from {times[0]} to {times[-1]} instead of {first} to {last}"
    step = axis["interval_ns"]
    if step and len(times) == rows:
        given = median(later - earlier for earlier, later in zip(times, times[1:]))
        if abs(given - step) > max(1, step / 100):
            return f"steps of {given:g} ns instead of {step}"
    return ""


def column_faults(wanted, outcome):
    """A text for each column whose name, type or values are not as they are wanted."""
    lost = wanted["rows"] - len(outcome.times())
    for what, column, signal in judged(wanted, outcome):
        yield from (f"{what}: {fault}" for fault in faults_of(column, signal, lost))


def unit_faults(wanted, outcome):
    """A text for each column whose unit is not as it is wanted."""
    for what, column, signal in judged(wanted, outcome):
        if signal and column["unit"] is not None and plain_unit(column["unit"]) != plain_unit(signal.unit):
            yield f"{what}: unit {signal.unit!r} instead of {column['unit']!r}"


def judged(wanted, outcome):
    """What to call a column, what is wanted of it, and its signal or None."""
    by_column = {signal.column: signal for signal in outcome.signals}
    for column in wanted["columns"]:
        if column["type"]:
            yield column["name"].strip() or f"column {column['column']}", column, by_column.get(column["column"])


def faults_of(column, signal, lost):
    """`lost` rows have no time."""
    if not signal:
        return ["missing"]
    faults = []
    if column["name"].strip() and not same_name(column, signal):
        faults.append(f"named {signal.name!r}")
    if signal.type not in GOOD_TYPES.get(column["type"], {column["type"]}):
        return faults + [f"{signal.type} instead of {column['type']}"]
    if not column["samples"] - lost <= len(signal.values) <= column["samples"]:
        faults.append(f"{len(signal.values)} values instead of {column['samples']}")
    return faults + range_fault(column, signal.range(), lost)


def range_fault(column, given, lost):
    if "min" not in column:
        return []
    wanted = column["min"], column["max"]
    slack = 1e-9 * max(map(abs, wanted))
    within = given and wanted[0] - slack <= given[0] and given[1] <= wanted[1] + slack
    if within and (lost or all(map(isclose, given, wanted))):
        return []
    return [f"values in {given} instead of {wanted}"]


def same_name(column, signal):
    units = {column["unit"] or "", signal.unit}
    good = {plain_name(name, unit) for name in (column["name"], column.get("also", column["name"])) for unit in units}
    return not good.isdisjoint(plain_name(signal.name, unit) for unit in units)


def plain_name(name, unit):
    """Without its unit, a leading comment sign and doubled blanks."""
    name = re.sub(r"\s+", " ", name).strip().lstrip("#$ ")
    if unit:
        unit = re.escape(unit)
        name = re.sub(rf"\s*(?:\[\s*{unit}\s*\]|\(\s*{unit}\s*\)|[/,]\s*{unit}$|\s{unit}$)", "", name)
    return name.strip()


def plain_unit(unit):
    """Without brackets and a comment behind it, signs in one way of writing."""
    return re.sub(r"\s*\([^()]*\)$|[\[\]\s^]", "", unit).translate(SIGNS)
