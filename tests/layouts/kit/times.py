"""Times in nanoseconds, and how devices print them. A moment counts from 1970, a span from the start of a record."""

from datetime import date, datetime, timezone
from decimal import Decimal

US = 10**3
MS = 10**6
SECOND = 10**9
MINUTE = 60 * SECOND
HOUR = 60 * MINUTE
DAY = 24 * HOUR

MONTHS = {
    "en": "January February March April May June July August September October November December",
    "de": "Januar Februar März April Mai Juni Juli August September Oktober November Dezember",
    "fr": "janvier février mars avril mai juin juillet août septembre octobre novembre décembre",
    "it": "gennaio febbraio marzo aprile maggio giugno luglio agosto settembre ottobre novembre dicembre",
    "es": "enero febrero marzo abril mayo junio julio agosto septiembre octubre noviembre diciembre",
    "nl": "januari februari maart april mei juni juli augustus september oktober november december",
    "pl": "stycznia lutego marca kwietnia maja czerwca lipca sierpnia września października listopada grudnia",
    "sv": "januari februari mars april maj juni juli augusti september oktober november december",
}
SHORT = {
    "en": "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec",
    "de": "Jan Feb Mrz Apr Mai Jun Jul Aug Sep Okt Nov Dez",
    "es": "ene feb mar abr may jun jul ago sep oct nov dic",
    "nl": "jan feb mrt apr mei jun jul aug sep okt nov dec",
    "pl": "sty lut mar kwi maj cze lip sie wrz paź lis gru",
}
CLOCK, SHORT_CLOCK = "{h:02}:{m:02}:{s:02}", "{h:02}:{m:02}"
DAY_FIRST, YEAR_FIRST = "{D:02}.{M:02}.{Y}", "{Y}-{M:02}-{D:02}"
DATED = f"{YEAR_FIRST} {CLOCK}"
WEEKDAYS = "Mon Tue Wed Thu Fri Sat Sun"


def moment(text):
    """Nanoseconds since 1970 of `YYYY-MM-DD hh:mm:ss`."""
    return int(datetime.fromisoformat(text + "+00:00").timestamp()) * SECOND


def every(start, step, rows):
    return [start + row * step for row in range(rows)]


def uneven(random, start, grain, most, rows):
    """Rising times, each 1 to `most` grains after the one before."""
    times = [start]
    while len(times) < rows:
        times.append(times[-1] + grain * random.randint(1, most))
    return times[:rows]


def stamp(form):
    """Prints a moment by a form of str.format: Y y M D h m s, t (hour of 12), ap and AP, j (day of the year), f1 to f9
    (digits of the fraction), ms, weekday, month_en, short_de and so on."""
    def show(time):
        seconds, rest = divmod(time, SECOND)
        at = datetime.fromtimestamp(seconds, timezone.utc)
        fields = {"Y": at.year, "y": at.year % 100, "M": at.month, "D": at.day, "h": at.hour, "m": at.minute,
                  "s": at.second, "t": at.hour % 12 or 12, "ap": "am" if at.hour < 12 else "pm",
                  "AP": "AM" if at.hour < 12 else "PM", "j": at.timetuple().tm_yday, "ms": rest // MS,
                  "weekday": WEEKDAYS.split()[at.weekday()]}
        fields |= {f"month_{code}": names.split()[at.month - 1] for code, names in MONTHS.items()}
        fields |= {f"short_{code}": names.split()[at.month - 1] for code, names in SHORT.items()}
        return form.format(**fields, **fractions(rest))
    return show


def fractions(rest):
    digits = f"{rest:09}"
    return {f"f{count}": digits[:count] for count in range(1, 10)}


def span(form):
    """Prints a span: d, h, m, s of a day, hour, minute; hours and minutes in all; f1 to f9, ms."""
    def show(time):
        fields = {"d": time // DAY, "h": time // HOUR % 24, "m": time // MINUTE % 60, "s": time // SECOND % 60,
                  "hours": time // HOUR, "minutes": time // MINUTE, "ms": time % SECOND // MS}
        return form.format(**fields, **fractions(time % SECOND))
    return show


def amount(unit, places=0, mark=".", origin=0, width=0):
    """Prints a time as a number of units since an origin; the times must be multiples of the last decimal."""
    def show(time):
        text = f"{Decimal(time - origin) / unit:.{places}f}"
        return text.replace(".", mark).rjust(width)
    return show


def printed(times, unit, places, origin=0):
    """The times that are left after printing them by amount()."""
    show = amount(unit, places, origin=origin)
    return [origin + int(Decimal(show(time)) * unit) for time in times]


def days_since(year, month, day):
    """The origin, in nanoseconds since 1970, of day numbers that count from a date."""
    return (date(year, month, day) - date(1970, 1, 1)).days * DAY
