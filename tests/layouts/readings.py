"""A second reading of every layout, written by hand from the files: how to pick and cut the lines of data, and how to
read their times. It shares no code with the generator, so that a wrong truth is found."""

import csv
import re
from dataclasses import dataclass
from datetime import datetime, timezone
from decimal import Decimal

EPOCH = datetime(1970, 1, 1)
MICROSECOND, MILLISECOND, SECOND, MINUTE, HOUR, DAY = 10**3, 10**6, 10**9, 60 * 10**9, 3600 * 10**9, 86400 * 10**9


@dataclass
class Reading:
    """separator is one character, "" for runs of blanks or a pattern's name; lines of data match the pattern; times
    makes a list of nanoseconds of all rows; others are the times of the alternatives; a decimal comma brings points
    between thousands; close is how far printed times are from meant ones."""
    separator: str
    lines: str
    times: object
    comma: bool = False
    group: str = ""
    missing: tuple = ()
    others: tuple = ()
    close: int = 0
    unquote: bool = False

    def rows_of(self, text):
        lines = [line for line in re.split("\r\n|\r|\n", text) if re.match(self.lines, line)]
        if self.unquote:
            lines = [line[1:-1] for line in lines]
        if self.separator == "":
            return [line.split() for line in lines]
        return [[cell.strip() for cell in cells] for cells in csv.reader(lines, delimiter=self.separator,
                                                                         skipinitialspace=True)]


def exactly(moment):
    """Nanoseconds since 1970; a zone is applied."""
    if moment.tzinfo:
        moment = moment.astimezone(timezone.utc).replace(tzinfo=None)
    passed = moment - EPOCH
    return (passed.days * 86400 + passed.seconds) * SECOND + passed.microseconds * 1000


def at(form, *columns, words=()):
    """Moments by a form of strptime over the joined cells; words are replaced first, in order."""
    def read(cells):
        text = " ".join(cells[column - 1] for column in columns)
        for word, number in words:
            text = text.replace(word, number)
        return exactly(datetime.strptime(text, form))
    return each(read)


def each(read):
    return lambda rows: [read(row) for row in rows]


def local_clock(column):
    """Moments as the clock showed them: the zone of five characters behind is left out."""
    return each(lambda row: exactly(datetime.strptime(row[column - 1][:-5], "%Y-%m-%d %H:%M:%S,%f")))


def number(column, unit, origin=0):
    """A number of units; truncated to nanoseconds."""
    return each(lambda row: origin + int(Decimal(row[column - 1].replace(",", ".")) * unit))


def found(pattern, column, *units):
    """The groups of a pattern, each a number of a unit."""
    def read(row):
        groups = re.fullmatch(pattern, row[column - 1]).groups()
        return sum(int(Decimal(group.replace(",", ".")) * unit) for group, unit in zip(groups, units, strict=True))
    return each(read)


def after_midnight(read, start):
    """Clock times that go on into the next days; start is the day of the first."""
    def follow(rows):
        days, last, times = 0, None, []
        for clock in read(rows):
            days += last is not None and clock < last
            last = clock
            times.append(exactly(datetime.fromisoformat(start)) + days * DAY + clock % DAY)
        return times
    return follow


def in_blocks(read, starts):
    """Elapsed times that start anew; each block has a start."""
    def follow(rows):
        block, last, times = 0, None, []
        for time in read(rows):
            block += last is not None and time < last
            last = time
            times.append(starts[block] + time)
        return times
    return follow


def one_after_the_other(read, step):
    """Elapsed times that start anew, each block a step after the end of the one before."""
    def follow(rows):
        base, last, times = 0, None, []
        for time in read(rows):
            if last is not None and time < last:
                base += last + step
            last = time
            times.append(base + time)
        return times
    return follow


def by_row(start, step):
    return lambda rows: [start + place * step for place in range(len(rows))]


def shifted(read, amount):
    return lambda rows: [time + amount for time in read(rows)]


def calendar(*columns):
    return at("%Y %m %d %H %M", *columns)


def day_of_year(year, day, clock):
    def read(row):
        return exactly(datetime.strptime(f"{row[year - 1]} {row[day - 1]} {int(row[clock - 1]):04}", "%Y %j %H%M"))
    return each(read)


def hhmm(day, clock):
    return each(lambda row: exactly(datetime.strptime(f"{row[day - 1]} {int(row[clock - 1]):04}", "%Y%m%d %H%M")))


def day_and_clock(day, clock, form="%d.%m.%Y"):
    """Clocks of 24:00 too."""
    def read(row):
        hours, minutes = map(int, row[clock - 1].split(":"))
        return exactly(datetime.strptime(row[day - 1], form)) + hours * HOUR + minutes * MINUTE
    return each(read)


def day_and_hour(day, hour, shift):
    return each(lambda row: exactly(datetime.strptime(row[day - 1], "%Y%m%d")) + (int(row[hour - 1]) + shift) * HOUR)


def gps(week, seconds, unit):
    start = exactly(datetime(1980, 1, 6))
    return each(lambda row: start + int(row[week - 1]) * 7 * DAY + int(Decimal(row[seconds - 1]) * unit))


def nine_digits(column):
    def read(row):
        whole, fraction = row[column - 1].rstrip("Z").split(".")
        return exactly(datetime.fromisoformat(whole)) + int(fraction)
    return each(read)


SHEET = exactly(datetime(1899, 12, 30))
JULIAN = exactly(datetime(1970, 1, 1)) - int(Decimal("2440587.5") * DAY)
CLOCK = (r"(\d+):(\d+):([\d.,]+)", HOUR, MINUTE, SECOND)
DAYS = (r" *(\d+)d (\d+):(\d+):([\d.]+)", DAY, HOUR, MINUTE, SECOND)


def span(column, form=CLOCK):
    return found(form[0], column, *form[1:])
