"""Weather stations, buoys, rain gauges, sun and sky."""

from decimal import Decimal

from kit import signals
from kit.columns import counting, evenly, gaps, held, same, smooth, time, unevenly
from kit.layout import Axis, Column, elapsed, layout
from kit.numbers import comma, fixed, whole
from kit.times import DAY, HOUR, MINUTE, SECOND, SHORT_CLOCK, amount, days_since, moment, printed, stamp

NEW_YEAR = moment("2021-12-31 00:00:00")
JULIAN = days_since(1970, 1, 1) - 2_440_587 * DAY - DAY // 2


def directions(table):
    """Makes the rates of rain, too, which come before the gaps."""
    known = signals.held(table.random, table.rows, ["N", "NNE", "SW", "ENE"])
    table.shared = signals.with_gaps(table.random, signals.smooth(table.random, table.rows, 0, 3))
    return signals.with_gaps(table.random, known)


def first_letter_of_half(time):
    """12:30a and 1:05p."""
    return stamp("{t:2}:{m:02}{ap}")(time)[:-1]


def without_zero(value):
    return str(value).replace("0.", ".", 1) if value < 1 else str(value)


LAYOUTS = [
    layout("L43-console-two-line-names.txt",
           "weather console: names over two lines, US date, 12:30a and 1:05p, --- where missing", "AM/PM",
           evenly("2023-03-31 22:30:00", 30 * MINUTE), "\t",
           [time("Date", stamp("{M:02}/{D:02}/{y:02}")), time("Time", first_letter_of_half),
            smooth("Out", 30, 75, 1, None, fixed(1, width=5), also="Temp Out"),
            smooth("Hum", 30, 95, 0, None, whole(width=4), also="Out Hum"),
            smooth("Speed", 0, 25, 0, None, whole(width=5), also="Wind Speed"),
            Column("Dir", directions, also="Wind Dir", missing="---"),
            Column("Rate", lambda table: table.shared, "float", None, missing="---", also="Rain Rate")],
           ["\t\tTemp\tOut\tWind\tWind\tRain", "{names}", "{table}"], expressible=False, end="\r\n",
           note="the names are the lower words, or both"),
    layout("L44-station-array-day-of-year.txt",
           "field station: no header; table id, year, day of the year, hhmm in columns, decimals cut off",
           "day of the year", evenly("2023-02-27 23:10:00", 10 * MINUTE), ",",
           [same("", 110, "integer"), time("", stamp("{Y}")), time("", stamp("{j}")),
            time("", lambda time: str(int(stamp("{h}{m:02}")(time)))), smooth("", -4, 21), smooth("", 20, 99, 1),
            smooth("", 0, 6, 3, show=without_zero), smooth("", 12.1, 13.6)], ["{table}"],
           expressible=False, end="\r\n"),
    layout("L45-buoy-spread-date.txt",
           "buoy: # before names and units, year to minute in five columns, NA where missing, runs of blanks",
           "spread over columns", evenly("2023-04-28 23:50:00", 10 * MINUTE), " ",
           [time("#YY", stamp("{Y}"), None), time("MM", stamp("{M:02}"), None), time("DD", stamp("{D:02}"), None),
            time("hh", stamp("{h:02}"), None), time("mm", stamp("{m:02}"), None),
            smooth("WDIR", 0, 359, 0, "degT", whole(width=4)), smooth("WSPD", 0, 19, 1, "m/s", fixed(1, width=4)),
            gaps(smooth("WVHT", 0, 5, 2, "m", fixed(2, width=5)), "   NA", 0.5),
            smooth("PRES", 985, 1030, 1, "hPa", fixed(1, width=6)),
            smooth("WTMP", 6, 14, 1, "degC", fixed(1, width=5))],
           ["#YY  MM DD hh mm WDIR WSPD  WVHT   PRES  WTMP",
            "#yr  mo dy hr mn degT m/s      m    hPa  degC", "{table}"],
           expressible=False),
    layout("L46-flux-tower-decimal-day.csv",
           "flux tower: decimal day of the year, year in the preamble, missing values declared as -9999",
           "day of the year", evenly("2022-07-01 00:30:00", 30 * MINUTE), ",",
           [time("DECDOY", amount(DAY, 6, origin=NEW_YEAR), None),
            gaps(smooth("NEE", -20, 9, 3, "umol m-2 s-1"), "-9999"), gaps(smooth("TA", -9, 4, 2, "deg C"), "-9999"),
            smooth("USTAR", 0.05, 1.1, 3, "m s-1")],
           ["Site: Old Spruce", "Year: 2022", "DECDOY: day of the year, 1 January 00:00 = 1.0", "Missing value: -9999",
            "Time stamps: end of half hour, UTC", "", "{names}", "day,umol m-2 s-1,deg C,m s-1", "{table}"],
           [lambda times: Axis(printed(times, DAY, 6, NEW_YEAR)), Axis,
            lambda times: elapsed(printed(times, DAY, 6, NEW_YEAR)), elapsed], expressible=False,
           note="days with six decimals: as printed, or the half hours meant"),
    layout("L47-observatory-julian.txt", "observatory: Julian days, quality flags, # comments, blanks", "day numbers",
           evenly("2023-05-04 18:00:00", 54 * SECOND), " ",
           [time("JD", amount(DAY, 6, origin=JULIAN)), smooth("SQM[mag/arcsec^2]", 17, 21.9, 2, "mag/arcsec^2"),
            smooth("Sky[C]", -30, -5, 1, "C"), held("q", [2, 3, 7], "integer")],
           ["# sky quality, site 3", "# times are Julian days (UTC)", "# {names}", "{table}"], expressible=False),
    layout("L48-rain-gauge-basic-iso.csv", "rain gauge: events at uneven times, ISO basic format 20230504T100000Z",
           "ISO basic", unevenly("2023-05-04 10:00:00", SECOND, 5400), ",",
           [time("event_time", stamp("{Y}{M:02}{D:02}T{h:02}{m:02}{s:02}Z")), counting("tips"),
            Column("depth (mm)", lambda table: [Decimal(tip) / 5 for tip in range(1, table.rows + 1)], "float", "mm",
                   fixed(1)), smooth("intensity (mm/h)", 0, 60, 1, "mm/h")],
           axes=[lambda times: Axis(times, zone="+00:00")], expressible=False),
    layout("L49-climate-archive-eor.txt", "climate archive: YYYYMMDDHH, padded cells, a last column of end marks",
           "YYYYMMDDHH", evenly("2023-03-25 20:00:00", HOUR), ";",
           [same("STATION", 3379, "integer", show=whole(width=11)), time("DATUM", stamp("{Y}{M:02}{D:02}{h:02}")),
            held("QN", [3, 10], "integer", show=whole(width=5)), smooth("TT", -2, 18, 1, None, fixed(1, width=6)),
            smooth("RF", 30, 100, 1, None, fixed(1, width=6)), same("eor", "eor")],
           ["STATION;DATUM;QN;  TT;  RF;eor", "{table}"], end="\r\n"),
    layout("L50-radiation-spread-header-less.txt",
           "radiation: station lines ahead, leading blanks, year, month, day, hour and minute "
           "in columns, lines of another shape ahead", "spread over columns",
           evenly("2016-03-01 00:00:00", MINUTE), " ",
           [time("", stamp(" {Y}")), *(time("", stamp("{" + field + ":2}")) for field in ("M", "D", "h", "m")),
            smooth("", 20, 160, show=fixed(2, width=7)), smooth("", -4, 1100, 1, show=fixed(1, width=7)),
            held("", [0, 1, 2], "integer", 40), smooth("", 900, 1010, 1, show=fixed(1, width=7))],
           [" Bare Ridge", "   41.520  -103.411 1377 m version 1", "{table}"], expressible=False),
    layout("L51-garden-station-dutch.csv",
           "garden station: Dutch month names, quoted header in CSV of semicolons, wind directions, "
           "gusts empty at first", "month names", evenly("2023-02-20 08:00:00", 47 * MINUTE), ";",
           [time("Tijdstip", stamp("{D} {short_nl} {Y} " + SHORT_CLOCK)),
            smooth("Buiten (°C)", -3, 17, 1, "°C", comma(1)),
            smooth("Luchtdruk (hPa)", 985, 1034, 1, "hPa", comma(1, ".")),
            gaps(smooth("Windstoot (km/u)", 0, 70, 1, "km/u", comma(1)), first=True),
            held("Richting", ["ZW", "NNO", "W"]),
            Column("Opmerking", lambda table: [None] * (table.rows - 1) + ["batterij vervangen"])],
           ["{quoted}", "{table}"], expressible=False, encoding="utf-8-sig"),
]
