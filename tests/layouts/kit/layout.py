"""What a layout is made of: columns, axes, the file, and what wanted.json says of it.

wanted.json holds an object per file:
  rows, rows_may_miss  rows that should get a time, and how many of them may be lost with good reason
  relative             first and last are elapsed nanoseconds, whose base is free, else local date and time
  first, last, zone    the earliest and the latest time; with a zone it may be applied or not
  interval_ns          the step, or null if it is uneven
  or                   other axes that are as good
  expressible          one format of the import can read the times
  columns              column (from 1), name ("" is not judged), also (another good name), type (null is not judged),
                       unit (null is not judged), samples (cells with a value), min, max
"""

from dataclasses import dataclass, replace
from datetime import datetime, timezone

from kit.numbers import plain, quoted
from kit.times import SECOND


@dataclass
class Column:
    """A column of the table. kind is float, integer, boolean, hex, character or text, or None where any reading will
    do; unit is None where none is judged; also is another good name; missing is the text of a gap; column is the
    number if the columns before are not listed; judged tells whether the name is."""
    name: str
    values: list
    kind: str | None = None
    unit: str | None = ""
    show: object = plain
    missing: str = ""
    also: str = ""
    column: int = 0
    judged: bool = True

    def texts(self):
        return [self.missing if value is None else self.show(value) for value in self.values]

    def truth(self, number):
        known = {"column": self.column or number, "name": self.name if self.judged else "", "type": self.kind,
                 "unit": self.unit, "samples": None}
        values = [value for value in self.values if value is not None]
        if self.also:
            known["also"] = self.also
        if self.kind:
            known["samples"] = len(values)
        if self.kind in ("float", "integer", "hex"):
            known |= {"min": as_number(min(values)), "max": as_number(max(values))}
        return known


def as_number(value):
    return value if isinstance(value, int) else float(value)


@dataclass
class Axis:
    """The times of all rows in nanoseconds. may_miss counts the rows that may be lost with good reason."""
    times: list
    relative: bool = False
    may_miss: int = 0
    zone: str | None = None

    def truth(self):
        times = sorted(self.times)
        steps = {later - earlier for earlier, later in zip(times, times[1:])}
        first, last = (times[0], times[-1]) if self.relative else (as_text(times[0]), as_text(times[-1]))
        known = {"rows": len(times), "rows_may_miss": self.may_miss, "relative": self.relative, "first": first,
                 "last": last, "interval_ns": steps.pop() if len(steps) == 1 else None}
        return known | ({"zone": self.zone} if self.zone else {})


def elapsed(times):
    """The axis that any base of the elapsed time gives."""
    return Axis([time - min(times) for time in times], relative=True)


def repeated(times, **more):
    """An axis whose repeated times may be lost."""
    return Axis(times, may_miss=len(times) - len(set(times)), **more)


def as_text(time):
    seconds, rest = divmod(time, SECOND)
    return f"{datetime.fromtimestamp(seconds, timezone.utc):%Y-%m-%dT%H:%M:%S}.{rest:09}"


@dataclass
class File:
    """The lines of a file, and what is wanted of it: the axes are equally good."""
    lines: list
    columns: list
    axes: list
    topic: str
    note: str = ""
    expressible: bool = True
    encoding: str = "utf-8"
    end: str = "\n"
    last_end: bool = True

    def content(self):
        text = self.end.join(self.lines) + (self.end if self.last_end else "")
        marks = {"utf-16-le": b"\xff\xfe", "utf-16-be": b"\xfe\xff"}
        return marks.get(self.encoding, b"") + text.encode(self.encoding)

    def vary(self, random):
        """Takes another encoding that holds the text, and other line ends."""
        self.end, self.last_end = random.choice(("\n", "\r\n", "\r")), random.random() < 0.8
        self.encoding = random.choice(("utf-8", "utf-8-sig", "cp1252", "utf-16-le", "utf-16-be"))
        try:
            self.content()
        except UnicodeEncodeError:
            self.encoding = "utf-8"

    def truth(self):
        wanted = self.axes[0].truth()
        if len(self.axes) > 1:
            wanted["or"] = [axis.truth() for axis in self.axes[1:]]
        wanted |= {"expressible": self.expressible, "class": self.topic} | ({"note": self.note} if self.note else {})
        return wanted | {"columns": [column.truth(number) for number, column in enumerate(self.columns, 1)]}


def header(columns, separator, show=plain):
    return separator.join(show(column.name) for column in columns)


def table(columns, separator, trailing=""):
    return [separator.join(cells) + trailing for cells in zip(*(column.texts() for column in columns))]


@dataclass
class Layout:
    """make makes a File of a random source and a number of rows."""
    name: str
    description: str
    make: object


@dataclass
class Table:
    """A table in the making: the columns so far, and what several of them need, which was made before them."""
    random: object
    times: list
    columns: list
    shared: object = None

    @property
    def rows(self):
        return len(self.times)


def layout(name, description, topic, times, separator, columns, lines=("{names}", "{table}"), axes=(Axis,), trailing="",
           shared=None, **file):
    """A layout of one table. `times` makes them of a random source and a number of rows; the values of a column are
    made of a Table; `axes` are made of the times. In a line stand {names} and {quoted} for the names of the columns
    and {rows} for their number; a line {table} is all rows, with `trailing` behind each. Or `lines` makes them of the
    Table and the rows."""
    def make(random, rows):
        made = Table(random, times(random, rows), [])
        made.shared = shared(made) if shared else None
        for column in columns:
            made.columns.append(replace(column, values=column.values(made)))
        body = table(made.columns, separator, trailing)
        words = {"{names}": header(made.columns, separator), "{quoted}": header(made.columns, separator, quoted()),
                 "{rows}": str(rows)}
        text = []
        for line in lines(made, body) if callable(lines) else lines:
            for word, meaning in words.items():
                line = line.replace(word, meaning)
            text += body if line == "{table}" else [line]
        return File(text, made.columns, [axis(made.times) for axis in axes], topic, **file)
    return Layout(name, description, make)
