"""Phones, watches, drones and receivers of satellites."""

from kit.layout import Axis, Column, File, elapsed, header, layout, table
from kit.numbers import fixed, quoted, scientific, whole, words
from kit.signals import counting, held, significant, smooth, with_gaps
from kit.times import DAY, MINUTE, MS, SECOND, US, amount, days_since, every, moment, stamp, uneven

WEEK = 7 * DAY


@layout("L86-phone-accelerometer.csv", "phone: quoted names with units, every number with an exponent, uneven steps")
def phone_accelerometer(random, rows):
    times = uneven(random, 12_345_678, 1000, 12_000, rows)
    columns = [Column("Time (s)", times, unit="s", show=lambda time: scientific(10)(time / SECOND)),
               *(Column(f"Acceleration {axis} (m/s^2)", significant(random, rows, -12, 12, 10), "float", "m/s^2",
                        scientific(10, letter="E", exponent=1)) for axis in "xyz")]
    return File([header(columns, ",", quoted()), *table(columns, ",")], columns, [elapsed(times)], "exponents")


@layout("L87-sensor-app-epoch-ns.csv", "sensor app: epoch in nanoseconds beside elapsed seconds with nine decimals")
def sensor_app(random, rows):
    times = [time + random.randrange(-300_000, 300_000) for time in every(moment("2023-05-04 10:00:00") + 987_654_321,
                                                                          10 * MS, rows)]
    columns = [Column("time", times, show=amount(1)),
               Column("seconds_elapsed", [time - moment("2023-05-04 10:00:00") for time in times],
                      show=amount(SECOND, 9)),
               *(Column(axis, smooth(random, rows, -2, 2, 9), "float") for axis in "zyx")]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times), elapsed(times)], "epoch")


@layout("L88-gps-logger-compact.csv", "GPS logger: YYMMDD and HHMMSS columns, coordinates with letters, index and tag")
def gps_logger(random, rows):
    times = uneven(random, moment("2023-09-05 23:52:07"), SECOND, 15, rows)
    columns = [Column("INDEX", counting(rows), "integer"), Column("TAG", held(random, rows, ["T", "C"]), "character"),
               Column("DATE", times, show=stamp("{y:02}{M:02}{D:02}")),
               Column("TIME", times, show=stamp("{h:02}{m:02}{s:02}")),
               Column("LATITUDE N/S", smooth(random, rows, 47.1, 47.9, 6), None, None, fixed(6, suffix="N")),
               Column("LONGITUDE E/W", smooth(random, rows, 8.1, 8.9, 6), None, None, fixed(6, suffix="E")),
               Column("HEIGHT", smooth(random, rows, 380, 900, 0), "integer"),
               Column("SPEED", smooth(random, rows, 2, 90, 0), "integer"),
               Column("VALID", held(random, rows, ["SPS", "DGPS"]), "text")]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times)], "date and time columns",
                end="\r\n")


@layout("L89-autopilot-week-seconds.csv",
        "autopilot: GPS week and milliseconds of the week in two columns, boot time in µs")
def autopilot(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 200 * MS, rows)
    origin = days_since(1980, 1, 6)
    boots = every(151_204_333 * US, 200 * MS, rows)
    columns = [Column("TimeUS", boots, show=amount(US)),
               Column("GWk", times, None, None, lambda time: str((time - origin) // WEEK)),
               Column("GMS", times, None, None, lambda time: str((time - origin) % WEEK // MS)),
               Column("NSats", smooth(random, rows, 9, 19, 0), "integer"),
               Column("Lat", smooth(random, rows, 47, 48, 7), "float", None),
               Column("Alt", smooth(random, rows, 400, 520, 2), "float", None),
               Column("Spd", smooth(random, rows, 0.1, 22, 3), "float", None)]
    leap = [time - 18 * SECOND for time in times]
    return File([header(columns, ","), *table(columns, ",")], columns, [elapsed(boots), Axis(times), Axis(leap)],
                "GPS week", note="the boot time, or week and milliseconds, with or without leap seconds")


@layout("L90-receiver-week-seconds.txt",
        "receiver: GPS week and seconds of the week, comments with %, runs of blanks, no other time")
def receiver(random, rows):
    times = every(moment("2023-05-06 23:57:00"), 500 * MS, rows)
    origin = days_since(1980, 1, 6)
    columns = [Column("week", times, None, None, lambda time: f"{(time - origin) // WEEK:6}"),
               Column("tow(s)", times, None, None, lambda time: f"{(time - origin) % WEEK / SECOND:12.3f}"),
               Column("height(m)", smooth(random, rows, 430, 440, 4), "float", "m", fixed(4, width=11)),
               Column("Q", held(random, rows, [1, 2, 5]), "integer", show=lambda value: f"{value:3}"),
               Column("ns", smooth(random, rows, 6, 14, 0), "integer", None, show=lambda value: f"{value:3}"),
               Column("sdu(m)", smooth(random, rows, 0.005, 0.9, 4), "float", "m", fixed(4, width=8))]
    return File(["% program   : solution", "% obs start : 2023/05/06 23:57:00.0 GPST (week2260 604620.0s)", "%",
                 "%  week       tow(s)   height(m)   Q  ns   sdu(m)", *table(columns, " ")], columns,
                [Axis(times), Axis([time - 18 * SECOND for time in times]), elapsed(times)], "GPS week",
                expressible=False, note="the week changes in the file")


@layout("L91-watch-session-sparse.csv",
        "sports watch: session line above the table, epoch in ms, heart rate and cadence mostly "
        "filled, first column empty")
def watch_session(random, rows):
    times = every(moment("2023-05-04 17:30:00") + 250 * MS, SECOND, rows)
    columns = [Column("", [None] * rows), Column("timestamp_ms", times, show=amount(MS)),
               Column("heart_rate_bpm", with_gaps(random, smooth(random, rows, 80, 178, 0), 0.1, True), "integer",
                      "bpm", also="heart_rate"),
               Column("cadence_rpm", with_gaps(random, smooth(random, rows, 60, 105, 0), 0.1), "integer", "rpm",
                      also="cadence"),
               Column("distance_m", smooth(random, rows, 0, 9000, 1), "float", "m", also="distance"),
               Column("paused", held(random, rows, [False, True]), "boolean", show=words("true", "false"))]
    return File(["Name,Sport,Date,Start time,Duration", "J. Doe,CYCLING,2023-05-04,17:30:00,00:12:00",
                 header(columns, ","), *table(columns, ",")], columns, [Axis(times), elapsed(times)], "two tables")


@layout("L92-drone-dashed-times.csv",
        "drone: time as 2023-05-04-10-00-00, offsets in ms beside it, percent signs in cells")
def drone_dashed(random, rows):
    times = every(moment("2023-05-04 23:58:00"), SECOND, rows)
    columns = [Column("datetime", times, show=stamp("{Y}-{M:02}-{D:02}-{h:02}-{m:02}-{s:02}")),
               Column("offset(ms)", [time - times[0] for time in times], None, "ms", amount(MS)),
               Column("height(feet)", smooth(random, rows, 0, 390, 1), "float", "feet"),
               Column("battery", smooth(random, rows, 20, 99, 0), "integer", "%", whole(suffix="%")),
               Column("isPhoto", held(random, rows, [0, 1]), "boolean")]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times), elapsed(times)], "dashes",
                end="\r\n")


@layout("L93-sound-app-brackets.txt", "sound level app: time in brackets at the head of each line, level with its unit")
def sound_app(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 500 * MS, rows)
    columns = [Column("[time]", times, show=stamp("[{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02}.{f3}]")),
               Column("LAeq", smooth(random, rows, 32, 98, 1), "float", "dB(A)", fixed(1, suffix=" dB(A)")),
               Column("LCpeak", smooth(random, rows, 52, 128, 1), "float", "dB(C)", fixed(1, suffix=" dB(C)"))]
    return File([header(columns, "\t"), *table(columns, "\t")], columns, [Axis(times)], "brackets")


@layout("L94-gas-sensor-relative-and-restart.txt",
        "gas sensor: runs without a date, elapsed s restart at each '# run', same header each time")
def gas_sensor_runs(random, rows):
    block = rows // 4
    spans = every(0, SECOND, block) * 4
    count = len(spans)
    columns = [Column("elapsed_s", spans, unit="s", show=amount(SECOND)),
               Column("CO2_ppm", smooth(random, count, 400, 2200, 0), "integer", "ppm", also="CO2"),
               Column("CH4_ppm", smooth(random, count, 1.7, 9, 2), "float", "ppm", also="CH4")]
    body, lines = table(columns, ","), []
    for place in range(4):
        lines += [f"# run {place + 1}", header(columns, ","), *body[place * block : (place + 1) * block]]
    joined = [row // block * block * SECOND + time for row, time in enumerate(spans)]
    close = [row // block * (block - 1) * SECOND + time for row, time in enumerate(spans)]
    return File(lines, columns, [elapsed(joined), Axis(close, True, 3), Axis(spans, True, count - block)],
                "restart in blocks", note="one run after the other, or the first run alone")


@layout("L95-air-monitor-late-types.csv",
        "air monitor: a column empty in all the first rows, a code like 1e5 beside decimals, "
        "letters N and E that are not missing values")
def air_monitor(random, rows):
    times = every(moment("2023-05-04 10:00:00"), MINUTE, rows)
    slow = [None] * (rows * 4 // 5) + smooth(random, rows - rows * 4 // 5, 0, 60, 1)
    count = significant(random, rows, 900, 400_000, 3)
    columns = [Column("DateTime", times, show=stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}")),
               Column("PM2.5 (µg/m³)", smooth(random, rows, 2, 90, 1), "float", "µg/m³"),
               Column("O3 (ppb)", slow, "float", "ppb"),
               Column("particles (1/cm³)", count, "float", "1/cm³",
                      lambda value: f"{float(value):.2e}" if value > 10**5 else f"{value:f}"),
               Column("wind", held(random, rows, ["N", "E", "S"]), "character")]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times)], "late types",
                encoding="utf-8-sig")


@layout("L99-receiver-sentences.txt",
        "satellite receiver: sentences that begin with $, clock in the second cell, DDMMYY in the "
        "tenth, checksum behind *")
def receiver_sentences(random, rows):
    times = every(moment("2023-08-17 23:55:00"), SECOND, rows)
    columns = [Column("", ["$GPRMC"] * rows), Column("", times, show=stamp("{h:02}{m:02}{s:02}.{f2}")),
               Column("", ["A"] * rows), Column("", smooth(random, rows, 4738, 4739, 4), "float"),
               Column("", ["N"] * rows), Column("", smooth(random, rows, 830, 831, 4), "float", show=fixed(4)),
               Column("", ["E"] * rows), Column("", smooth(random, rows, 0, 30, 2), "float"),
               Column("", smooth(random, rows, 0, 359, 1), "float"),
               Column("", times, show=stamp("{D:02}{M:02}{y:02}")), Column("", [None] * rows),
               Column("", [None] * rows), Column("", [f"A*{random.randrange(128):02X}" for _ in range(rows)])]
    return File(table(columns, ","), columns, [Axis(times), elapsed(times)], "no header", end="\r\n")
