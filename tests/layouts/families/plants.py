"""Control of plants: SCADA exports, historians, PLC traces, panels."""

from kit.layout import Axis, Column, File, elapsed, header, layout, repeated, table
from kit.numbers import fixed, quoted, whole, words
from kit.signals import counting, growing, held, late, smooth, with_gaps
from kit.times import DAY, HOUR, MINUTE, MS, SECOND, amount, days_since, every, moment, stamp


@layout("L77-scada-tags-in-rows.csv",
        "SCADA export: one value a row, tags told apart by a column, quality texts, times repeat")
def scada_tags(random, rows):
    tags, rounds = ("TI101.PV", "FI204.PV", "LI310.PV", "PI007.PV"), rows // 4
    times = [time for time in every(moment("2023-05-04 10:00:00"), MINUTE, rounds) for _ in tags]
    columns = [Column("TagName", list(tags) * rounds),
               Column("TimeStamp", times, show=stamp("{D:02}.{M:02}.{Y} {h:02}:{m:02}:{s:02}")),
               Column("Value", smooth(random, len(times), 0, 400, 3), "float", None, fixed(3, ","), judged=False),
               Column("Quality", held(random, len(times), ["Good", "Uncertain"], 40))]
    return File([header(columns, ";"), *table(columns, ";")], columns, [repeated(times)], "several devices",
                encoding="utf-8-sig", end="\r\n",
                note="four tags a minute: all but one may be lost, or each becomes a signal")


@layout("L78-panel-log-day-numbers.csv",
        "operator panel: quoted cells, local time text and a day number in millionths, start and "
        "stop marks as last rows")
def panel_log(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 10 * SECOND, rows)
    columns = [Column("VarName", ["Level_1"] * rows, "text", show=quoted()),
               Column("TimeString", times, show=stamp('"{D:02}.{M:02}.{Y} {h:02}:{m:02}:{s:02}"')),
               Column("VarValue", smooth(random, rows, 0, 900, 2), "float", "", fixed(2, ",")),
               Column("Validity", [1] * rows, None),
               Column("Time_ms", times, None, None, amount(DAY // 10**6, 4, ",", days_since(1899, 12, 30)))]
    off = times[-1] + 10 * SECOND
    lines = [header(columns, ";", quoted()), *table(columns, ";"),
             f'"$RT_OFF$";{columns[1].show(off)};0;2;{columns[4].show(off)}', f'"$RT_COUNT$";{rows};;;']
    return File(lines, columns, [Axis(times), Axis([*times, off])], "footer", encoding="cp1252", end="\r\n",
                note="the stop mark may count as a row")


@layout("L79-historian-time-before-date.csv",
        "historian: the time column stands before the date column, day before month, --- in places")
def historian_reversed(random, rows):
    times = every(moment("2023-05-03 18:00:00"), 5 * MINUTE, rows)
    columns = [Column("Time", times, show=stamp("{h:02}:{m:02}:{s:02}")),
               Column("Date", times, show=stamp("{D:02}/{M:02}/{Y}")),
               Column("Boiler steam (t/h)", smooth(random, rows, 2, 48, 1), "float", "t/h"),
               Column("O2 (%)", with_gaps(random, smooth(random, rows, 2, 9)), "float", "%", missing="---"),
               Column("Burner", held(random, rows, [1, 0]), "boolean")]
    return File(["Report;Boiler house", "Period;May", header(columns, ";"), *table(columns, ";")], columns,
                [Axis(times)], "time before date", end="\r\n")


@layout("L80-plc-trace-index.txt", "PLC trace: ; comments, sample index, cycle time in µs in the preamble, no times")
def plc_trace(random, rows):
    times = every(0, 250_000, rows)
    columns = [Column("Index", counting(rows, 0), "integer", None),
               Column("nActPos [°]", smooth(random, rows, 0, 360, 3), "float", "°"),
               Column("nTorque [%]", smooth(random, rows, -120, 120, 1), "float", "%"),
               Column("bEnable", held(random, rows, [1, 0]), "boolean"),
               Column("eState", late(random, rows, [0, 1], [6, 15]), "integer")]
    return File(["; Trace export", "; Task: MotionTask", "; Sample time: 250 us", "; Samples: " + str(rows), "",
                 header(columns, ";"), *table(columns, ";")], columns, [elapsed(times)], "sampling rate")


@layout("L81-batch-report-spanish.txt",
        "batch report: events above, measurements below, Spanish month names, decimal comma")
def batch_spanish(random, rows):
    times = every(moment("2023-12-30 20:00:00"), 4 * MINUTE, rows)
    columns = [Column("Fecha y hora", times, show=stamp("{D:02}-{short_es}-{Y} {h:02}:{m:02}:{s:02}")),
               Column("Temperatura [°C]", smooth(random, rows, 18, 96, 1), "float", "°C", fixed(1, ",")),
               Column("Presión [bar]", smooth(random, rows, 0.9, 3, 2), "float", "bar", fixed(2, ",")),
               Column("Agitador [rpm]", late(random, rows, [0, 1], [55, 120]), "integer", "rpm")]
    lines = ["INFORME DE LOTE", "Lote:\t0412", "", "Evento\tHora", "Carga\t20:00", "Calentamiento\t20:14",
             "Vaciado\t23:50", "", header(columns, "\t"), *table(columns, "\t"), "", "FIN DEL INFORME"]
    return File(lines, columns, [Axis(times)], "several tables", expressible=False, encoding="cp1252", end="\r\n")


@layout("L82-pump-station-name-spells-format.csv",
        "pump station: the name of the time column spells its format, MMDDYY HHMMSS; the header ends with a comma")
def pump_station(random, rows):
    times = every(moment("2023-02-26 23:30:00"), 17 * MINUTE + 20 * SECOND, rows)
    columns = [Column("MMDDYY HHMMSS", times, show=stamp("{M:02}{D:02}{y:02} {h:02}{m:02}{s:02}")),
               Column("Flow (m3/h)", smooth(random, rows, 0, 240, 1), "float", "m3/h"),
               Column("Level (m)", smooth(random, rows, 0.4, 6, 2), "float", "m"),
               Column("Pump 1", held(random, rows, [0, 1]), "boolean"),
               Column("Starts", growing(random, rows, 1200, 0.4, 0), "integer")]
    return File([header(columns, ",") + ",", *table(columns, ",")], columns, [Axis(times)], "name spells format",
                end="\r\n")


@layout("L83-water-works-polish.csv",
        "water works: Polish month names, decimal comma, decimals that come late, bar of dashes for no reading")
def water_works(random, rows):
    times = every(moment("2023-09-28 00:00:00"), HOUR, rows)
    head = late(random, rows, [11, 12, 13], [14])
    columns = [Column("Data i godzina", times, show=stamp("{D} {month_pl} {Y}, {h:02}:{m:02}")),
               Column("Przepływ (m³/h)", with_gaps(random, smooth(random, rows, 20, 190, 1), first=True), "float",
                      "m³/h", fixed(1, ","), "-"),
               Column("Poziom (cm)", head, "float", "cm", lambda value: "14,5" if value == 14 else str(value))]
    lines = [header(columns, ";"), *table(columns, ";")]
    columns[2].values = [value + 0.5 if value == 14 else value for value in head]
    return File(lines, columns, [Axis(times)], "month names", expressible=False)


@layout("L84-drive-trace-year-to-ms.csv",
        "drive: year, month, day, hour, minute, second, millisecond each in a column, UTF-16 big endian")
def drive_spread(random, rows):
    times = every(moment("2023-05-31 23:59:30") + 40 * MS, 125 * MS, rows)
    names = (("Year", "{Y}"), ("Month", "{M}"), ("Day", "{D}"), ("Hour", "{h}"), ("Minute", "{m}"), ("Second", "{s}"),
             ("Millisecond", "{ms}"))
    columns = [*(Column(name, times, unit=None, show=stamp(form)) for name, form in names),
               Column("Speed [rpm]", smooth(random, rows, -1500, 1500, 1), "float", "rpm"),
               Column("DC link [V]", smooth(random, rows, 540, 620, 0), "integer", "V")]
    return File([header(columns, "\t"), *table(columns, "\t")], columns, [Axis(times)], "spread over columns",
                expressible=False, encoding="utf-16-be", end="\r\n")


@layout("L85-alarm-historian-am-pm.csv",
        "historian query: US clock with AM/PM and milliseconds, several tags side by side, Bad "
        "Input instead of a number")
def historian_am_pm(random, rows):
    times = every(moment("2023-04-13 11:58:00") + 500 * MS, 30 * SECOND, rows)
    columns = [Column("Timestamp", times, show=stamp("{M}/{D}/{Y} {t}:{m:02}:{s:02}.{f3} {AP}")),
               Column("21-TI-1041 degF", with_gaps(random, smooth(random, rows, 300, 690)), "float", None,
                      missing="Bad Input", also="21-TI-1041"),
               Column("21-FI-2200 BPD", smooth(random, rows, 1200, 9900, 0), "integer", None,
                      lambda value: f'"{whole(",")(value)}"', also="21-FI-2200"),
               Column("21-XV-7 open", held(random, rows, [False, True]), None, show=words("Open", "Closed"))]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times)], "AM/PM", expressible=False,
                end="\r\n")


@layout("L97-controller-log-no-year.txt",
        "building controller: month name and day without a year, host and tag as in system logs, year in the preamble")
def controller_log(random, rows):
    times = every(moment("2023-04-29 06:00:00"), 4 * MINUTE, rows)
    columns = [Column("", times, show=stamp("{short_en} {D:2} {h:02}:{m:02}:{s:02}")), Column("", ["ctrl-2"] * rows),
               Column("", smooth(random, rows, 15, 28, 2), "float"),
               Column("", smooth(random, rows, 300, 1400, 0), "integer"),
               Column("", held(random, rows, ["auto", "manual", "night"]), "text")]
    return File(["# log of 2023", "# date, host, room temperature, CO2, mode", *table(columns, ", ")], columns,
                [Axis(times), elapsed(times)], "no year", expressible=False, end="\r\n")
