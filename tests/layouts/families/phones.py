"""Phones, watches, drones and receivers of satellites."""

from kit import signals
from kit.columns import counting, evenly, gaps, held, same, significant, smooth, time, unevenly
from kit.layout import Axis, Column, elapsed, layout
from kit.numbers import fixed, scientific, whole, words
from kit.times import DATED, DAY, MINUTE, MS, SECOND, US, amount, days_since, every, moment, stamp

WEEK = 7 * DAY
GPS = days_since(1980, 1, 6)
BEGIN = moment("2023-05-04 10:00:00")


def around_hundredths(random, rows):
    return [time + random.randrange(-300_000, 300_000) for time in every(BEGIN + 987_654_321, 10 * MS, rows)]


def without_leap_seconds(times):
    return Axis([time - 18 * SECOND for time in times])


def since_start(table):
    return [time - table.times[0] for time in table.times]


def four_runs(random, rows):
    return every(0, SECOND, rows // 4) * 4


def run_lines(table, body):
    block = table.rows // 4
    for place in range(4):
        yield from (f"# run {place + 1}", "{names}", *body[place * block : (place + 1) * block])


def joined(step):
    """One run after the other; `step` is what is between them, in s."""
    def times_of(times):
        block = len(times) // 4
        return [row // block * (block - 1 + step) * SECOND + time for row, time in enumerate(times)]
    return times_of


def empty_at_first(table):
    rows = table.rows
    return ([None] * (rows * 4 // 5) + signals.smooth(table.random, rows - rows * 4 // 5, 0, 60, 1),
            signals.significant(table.random, rows, 900, 400_000, 3))


LAYOUTS = [
    layout("L86-phone-accelerometer.csv", "phone: quoted names with units, every number with an exponent, uneven steps",
           "exponents", unevenly(12_345_678, 1000, 12_000), ",",
           [time("Time (s)", lambda time: scientific(10)(time / SECOND), "s"),
            *(significant(f"Acceleration {axis} (m/s^2)", -12, 12, 10, "m/s^2", scientific(10, exponent=1))
              for axis in "xyz")], ["{quoted}", "{table}"], [elapsed]),
    layout("L87-sensor-app-epoch-ns.csv", "sensor app: epoch in nanoseconds beside elapsed seconds with nine decimals",
           "epoch", around_hundredths, ",",
           [time("time", amount(1)), time("seconds_elapsed", amount(SECOND, 9, origin=BEGIN)),
            *(smooth(axis, -2, 2, 9) for axis in "zyx")], axes=[Axis, elapsed]),
    layout("L88-gps-logger-compact.csv",
           "GPS logger: YYMMDD and HHMMSS columns, coordinates with letters, index and tag", "date and time columns",
           unevenly("2023-09-05 23:52:07", SECOND, 15), ",",
           [counting("INDEX"), held("TAG", ["T", "C"], "character"), time("DATE", stamp("{y:02}{M:02}{D:02}")),
            time("TIME", stamp("{h:02}{m:02}{s:02}")),
            smooth("LATITUDE N/S", 47.1, 47.9, 6, None, fixed(6, suffix="N"), kind=None),
            smooth("LONGITUDE E/W", 8.1, 8.9, 6, None, fixed(6, suffix="E"), kind=None), smooth("HEIGHT", 380, 900, 0),
            smooth("SPEED", 2, 90, 0), held("VALID", ["SPS", "DGPS"], "text")], end="\r\n"),
    layout("L89-autopilot-week-seconds.csv",
           "autopilot: GPS week and milliseconds of the week in two columns, boot time in µs", "GPS week",
           evenly(BEGIN, 200 * MS), ",",
           [time("TimeUS", lambda time: amount(US)(time - BEGIN + 151_204_333 * US)),
            time("GWk", lambda time: str((time - GPS) // WEEK), None),
            time("GMS", lambda time: str((time - GPS) % WEEK // MS), None), smooth("NSats", 9, 19, 0),
            smooth("Lat", 47, 48, 7, None), smooth("Alt", 400, 520, 2, None), smooth("Spd", 0.1, 22, 3, None)],
           axes=[elapsed, Axis, without_leap_seconds],
           note="the boot time, or week and milliseconds, with or without leap seconds"),
    layout("L90-receiver-week-seconds.txt",
           "receiver: GPS week and seconds of the week, comments with %, runs of blanks, no other time", "GPS week",
           evenly("2023-05-06 23:57:00", 500 * MS), " ",
           [time("week", lambda time: f"{(time - GPS) // WEEK:6}", None),
            time("tow(s)", lambda time: f"{(time - GPS) % WEEK / SECOND:12.3f}", None),
            smooth("height(m)", 430, 440, 4, "m", fixed(4, width=11)),
            held("Q", [1, 2, 5], "integer", show=whole(width=3)),
            smooth("ns", 6, 14, 0, None, whole(width=3)), smooth("sdu(m)", 0.005, 0.9, 4, "m", fixed(4, width=8))],
           ["% program   : solution", "% obs start : 2023/05/06 23:57:00.0 GPST (week2260 604620.0s)", "%",
            "%  week       tow(s)   height(m)   Q  ns   sdu(m)", "{table}"], [Axis, without_leap_seconds, elapsed],
           expressible=False, note="the week changes in the file"),
    layout("L91-watch-session-sparse.csv",
           "sports watch: session line above the table, epoch in ms, heart rate and cadence mostly "
           "filled, first column empty", "two tables", evenly(moment("2023-05-04 17:30:00") + 250 * MS, SECOND), ",",
           [same(""), time("timestamp_ms", amount(MS)),
            gaps(smooth("heart_rate_bpm", 80, 178, 0, "bpm", also="heart_rate"), share=0.1, first=True),
            gaps(smooth("cadence_rpm", 60, 105, 0, "rpm", also="cadence"), share=0.1),
            smooth("distance_m", 0, 9000, 1, "m", also="distance"),
            held("paused", [False, True], "boolean", show=words("true", "false"))],
           ["Name,Sport,Date,Start time,Duration", "J. Doe,CYCLING,2023-05-04,17:30:00,00:12:00", "{names}", "{table}"],
           [Axis, elapsed]),
    layout("L92-drone-dashed-times.csv",
           "drone: time as 2023-05-04-10-00-00, offsets in ms beside it, percent signs in cells", "dashes",
           evenly("2023-05-04 23:58:00", SECOND), ",",
           [time("datetime", stamp("{Y}-{M:02}-{D:02}-{h:02}-{m:02}-{s:02}")),
            Column("offset(ms)", since_start, None, "ms", amount(MS)), smooth("height(feet)", 0, 390, 1, "feet"),
            smooth("battery", 20, 99, 0, "%", whole(suffix="%")), held("isPhoto", [0, 1], "boolean")],
           axes=[Axis, elapsed], end="\r\n"),
    layout("L93-sound-app-brackets.txt",
           "sound level app: time in brackets at the head of each line, level with its unit", "brackets",
           evenly(BEGIN, 500 * MS), "\t",
           [time("[time]", stamp(f"[{DATED}.{{f3}}]")), smooth("LAeq", 32, 98, 1, "dB(A)", fixed(1, suffix=" dB(A)")),
            smooth("LCpeak", 52, 128, 1, "dB(C)", fixed(1, suffix=" dB(C)"))]),
    layout("L94-gas-sensor-relative-and-restart.txt",
           "gas sensor: runs without a date, elapsed s restart at each '# run', same header each time",
           "restart in blocks", four_runs, ",",
           [time("elapsed_s", amount(SECOND), "s"), smooth("CO2_ppm", 400, 2200, 0, "ppm", also="CO2"),
            smooth("CH4_ppm", 1.7, 9, 2, "ppm", also="CH4")], run_lines,
           [lambda times: elapsed(joined(1)(times)), lambda times: Axis(joined(0)(times), True, 3),
            lambda times: Axis(times, True, len(times) // 4 * 3)],
           note="one run after the other, or the first run alone"),
    layout("L95-air-monitor-late-types.csv",
           "air monitor: a column empty in all the first rows, a code like 1e5 beside decimals, "
           "letters N and E that are not missing values", "late types", evenly(BEGIN, MINUTE), ",",
           [time("DateTime", stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}")), smooth("PM2.5 (µg/m³)", 2, 90, 1, "µg/m³"),
            Column("O3 (ppb)", lambda table: table.shared[0], "float", "ppb"),
            Column("particles (1/cm³)", lambda table: table.shared[1], "float", "1/cm³",
                   lambda value: f"{float(value):.2e}" if value > 10**5 else f"{value:f}"),
            held("wind", ["N", "E", "S"], "character")], shared=empty_at_first, encoding="utf-8-sig"),
    layout("L99-receiver-sentences.txt",
           "satellite receiver: sentences that begin with $, clock in the second cell, DDMMYY in the "
           "tenth, checksum behind *", "no header", evenly("2023-08-17 23:55:00", SECOND), ",",
           [same("", "$GPRMC"), time("", stamp("{h:02}{m:02}{s:02}.{f2}")), same("", "A"), smooth("", 4738, 4739, 4),
            same("", "N"), smooth("", 830, 831, 4, show=fixed(4)), same("", "E"), smooth("", 0, 30, 2),
            smooth("", 0, 359, 1), time("", stamp("{D:02}{M:02}{y:02}")), same(""), same(""),
            Column("", lambda table: [f"A*{table.random.randrange(128):02X}" for _ in range(table.rows)])], ["{table}"],
           [Axis, elapsed], end="\r\n"),
]
