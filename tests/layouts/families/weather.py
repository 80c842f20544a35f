"""Weather stations, buoys, rain gauges, sun and sky."""

from decimal import Decimal

from kit.layout import Axis, Column, File, elapsed, header, layout, table
from kit.numbers import fixed, left, quoted, whole
from kit.signals import counting, held, smooth, with_gaps
from kit.times import DAY, HOUR, MINUTE, SECOND, amount, days_since, every, moment, printed, stamp, uneven


@layout("L43-console-two-line-names.txt",
        "weather console: names over two lines, US date, 12:30a and 1:05p, --- where missing")
def console_two_lines(random, rows):
    times = every(moment("2023-03-31 22:30:00"), 30 * MINUTE, rows)
    columns = [Column("Date", times, show=stamp("{M:02}/{D:02}/{y:02}")),
               Column("Time", times, show=lambda time: stamp("{t:2}:{m:02}{ap}")(time)[:-1]),
               Column("Out", smooth(random, rows, 30, 75, 1), "float", None, fixed(1, width=5), also="Temp Out"),
               Column("Hum", smooth(random, rows, 30, 95, 0), "integer", None, whole(width=4), also="Out Hum"),
               Column("Speed", smooth(random, rows, 0, 25, 0), "integer", None, whole(width=5), also="Wind Speed"),
               Column("Dir", held(random, rows, ["N", "NNE", "SW", "ENE"]), "text", also="Wind Dir"),
               Column("Rate", with_gaps(random, smooth(random, rows, 0, 3)), "float", None, missing="---",
                      also="Rain Rate")]
    columns[5].values = with_gaps(random, columns[5].values)
    columns[5].missing, columns[5].kind = "---", None
    lines = ["\t\tTemp\tOut\tWind\tWind\tRain", header(columns, "\t"), *table(columns, "\t")]
    return File(lines, columns, [Axis(times)], "AM/PM", expressible=False, end="\r\n",
                note="the names are the lower words, or both")


@layout("L44-station-array-day-of-year.txt",
        "field station: no header; table id, year, day of the year, hhmm in columns, decimals cut off")
def station_array(random, rows):
    times = every(moment("2023-02-27 23:10:00"), 10 * MINUTE, rows)
    columns = [Column("", [110] * rows, "integer"), Column("", times, show=stamp("{Y}")),
               Column("", times, show=stamp("{j}")),
               Column("", times, show=lambda time: str(int(stamp("{h}{m:02}")(time)))),
               Column("", smooth(random, rows, -4, 21), "float"), Column("", smooth(random, rows, 20, 99, 1), "float"),
               Column("", smooth(random, rows, 0, 6, 3), "float",
                      show=lambda value: str(value).replace("0.", ".", 1) if value < 1 else str(value)),
               Column("", smooth(random, rows, 12.1, 13.6), "float")]
    return File(table(columns, ","), columns, [Axis(times)], "day of the year", expressible=False, end="\r\n")


@layout("L45-buoy-spread-date.txt",
        "buoy: # before names and units, year to minute in five columns, NA where missing, runs of blanks")
def buoy(random, rows):
    times = every(moment("2023-04-28 23:50:00"), 10 * MINUTE, rows)
    columns = [Column("#YY", times, unit=None, show=stamp("{Y}")),
               *(Column(name, times, unit=None, show=stamp("{" + field + ":02}")) for name,
                 field in (("MM", "M"), ("DD", "D"), ("hh", "h"), ("mm", "m"))),
               Column("WDIR", smooth(random, rows, 0, 359, 0), "integer", "degT", whole(width=4)),
               Column("WSPD", smooth(random, rows, 0, 19, 1), "float", "m/s", fixed(1, width=4)),
               Column("WVHT", with_gaps(random, smooth(random, rows, 0, 5), 0.5), "float", "m", fixed(2, width=5),
                      "   NA"), Column("PRES", smooth(random, rows, 985, 1030, 1), "float", "hPa", fixed(1, width=6)),
               Column("WTMP", smooth(random, rows, 6, 14, 1), "float", "degC", fixed(1, width=5))]
    lines = ["#YY  MM DD hh mm WDIR WSPD  WVHT   PRES  WTMP", "#yr  mo dy hr mn degT m/s      m    hPa  degC",
             *table(columns, " ")]
    return File(lines, columns, [Axis(times)], "spread over columns", expressible=False)


@layout("L46-flux-tower-decimal-day.csv",
        "flux tower: decimal day of the year, year in the preamble, missing values declared as -9999")
def flux_tower(random, rows):
    times = every(moment("2022-07-01 00:30:00"), 30 * MINUTE, rows)
    origin = moment("2021-12-31 00:00:00")
    columns = [Column("DECDOY", times, show=amount(DAY, 6, origin=origin)),
               Column("NEE", with_gaps(random, smooth(random, rows, -20, 9, 3)), "float", "umol m-2 s-1",
                      missing="-9999"),
               Column("TA", with_gaps(random, smooth(random, rows, -9, 4, 2)), "float", "deg C", missing="-9999"),
               Column("USTAR", smooth(random, rows, 0.05, 1.1, 3), "float", "m s-1")]
    lines = ["Site: Old Spruce", "Year: 2022", "DECDOY: day of the year, 1 January 00:00 = 1.0", "Missing value: -9999",
             "Time stamps: end of half hour, UTC", "", "DECDOY,NEE,TA,USTAR", "day,umol m-2 s-1,deg C,m s-1",
             *table(columns, ",")]
    columns[0].unit = None
    shown = printed(times, DAY, 6, origin)
    return File(lines, columns, [Axis(shown), Axis(times), elapsed(shown), elapsed(times)], "day of the year",
                expressible=False, note="days with six decimals: as printed, or the half hours meant")


@layout("L47-observatory-julian.txt", "observatory: Julian days, quality flags, # comments, blanks")
def observatory_julian(random, rows):
    times = every(moment("2023-05-04 18:00:00"), 54 * SECOND, rows)
    columns = [Column("JD", times, show=amount(DAY, 6, origin=days_since(1970, 1, 1) - 2_440_587 * DAY - DAY // 2)),
               Column("SQM[mag/arcsec^2]", smooth(random, rows, 17, 21.9), "float", "mag/arcsec^2"),
               Column("Sky[C]", smooth(random, rows, -30, -5, 1), "float", "C"),
               Column("q", held(random, rows, [2, 3, 7]), "integer")]
    return File(["# sky quality, site 3", "# times are Julian days (UTC)", "# " + header(columns, " "),
                 *table(columns, " ")], columns, [Axis(times)], "day numbers", expressible=False)


@layout("L48-rain-gauge-basic-iso.csv", "rain gauge: events at uneven times, ISO basic format 20230504T100000Z")
def rain_gauge(random, rows):
    times = uneven(random, moment("2023-05-04 10:00:00"), SECOND, 5400, rows)
    columns = [Column("event_time", times, show=stamp("{Y}{M:02}{D:02}T{h:02}{m:02}{s:02}Z")),
               Column("tips", counting(rows), "integer"),
               Column("depth (mm)", [Decimal(tip) / 5 for tip in counting(rows)], "float", "mm", fixed(1)),
               Column("intensity (mm/h)", smooth(random, rows, 0, 60, 1), "float", "mm/h")]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times, zone="+00:00")], "ISO basic",
                expressible=False)


@layout("L49-climate-archive-eor.txt", "climate archive: YYYYMMDDHH, padded cells, a last column of end marks")
def climate_archive(random, rows):
    times = every(moment("2023-03-25 20:00:00"), HOUR, rows)
    columns = [Column("STATION", [3379] * rows, "integer", show=whole(width=11)),
               Column("DATUM", times, show=stamp("{Y}{M:02}{D:02}{h:02}")),
               Column("QN", held(random, rows, [3, 10]), "integer", show=whole(width=5)),
               Column("TT", smooth(random, rows, -2, 18, 1), "float", None, fixed(1, width=6)),
               Column("RF", smooth(random, rows, 30, 100, 1), "float", None, fixed(1, width=6)),
               Column("eor", ["eor"] * rows, None)]
    return File(["STATION;DATUM;QN;  TT;  RF;eor", *table(columns, ";")], columns, [Axis(times)], "YYYYMMDDHH",
                end="\r\n")


@layout("L50-radiation-spread-header-less.txt",
        "radiation: station lines ahead, leading blanks, year, month, day, hour and minute "
        "in columns, lines of another shape ahead")
def radiation_spread(random, rows):
    times = every(moment("2016-03-01 00:00:00"), MINUTE, rows)
    columns = [Column("", times, show=stamp(" {Y}")),
               *(Column("", times, show=stamp("{" + field + ":2}")) for field in ("M", "D", "h", "m")),
               Column("", smooth(random, rows, 20, 160), "float", show=fixed(2, width=7)),
               Column("", smooth(random, rows, -4, 1100, 1), "float", show=fixed(1, width=7)),
               Column("", held(random, rows, [0, 1, 2], 40), "integer"),
               Column("", smooth(random, rows, 900, 1010, 1), "float", show=fixed(1, width=7))]
    return File([" Bare Ridge", "   41.520  -103.411 1377 m version 1", *table(columns, " ")], columns,
                [Axis(times)], "spread over columns", expressible=False)


@layout("L51-garden-station-dutch.csv",
        "garden station: Dutch month names, quoted header in CSV of semicolons, wind directions, gusts empty at first")
def garden_dutch(random, rows):
    times = every(moment("2023-02-20 08:00:00"), 47 * MINUTE, rows)
    columns = [Column("Tijdstip", times, show=stamp("{D} {short_nl} {Y} {h:02}:{m:02}")),
               Column("Buiten (°C)", smooth(random, rows, -3, 17, 1), "float", "°C", fixed(1, ",")),
               Column("Luchtdruk (hPa)", smooth(random, rows, 985, 1034, 1), "float", "hPa", fixed(1, ",", ".")),
               Column("Windstoot (km/u)", with_gaps(random, smooth(random, rows, 0, 70, 1), first=True), "float",
                      "km/u", fixed(1, ",")), Column("Richting", held(random, rows, ["ZW", "NNO", "W"]), None),
               Column("Opmerking", [None] * (rows - 1) + ["batterij vervangen"], None, show=left(0))]
    return File([header(columns, ";", quoted()), *table(columns, ";")], columns, [Axis(times)], "month names",
                expressible=False, encoding="utf-8-sig")
