"""Data loggers: boxes that record temperatures, pressures, vibration for days."""

from kit.layout import Axis, Column, File, elapsed, header, layout, repeated, table
from kit.numbers import fixed, left, quoted, whole
from kit.signals import counting, growing, held, late, smooth, with_gaps
from kit.times import HOUR, MINUTE, MS, SECOND, amount, every, moment, span, stamp, uneven


@layout("L01-thermocouple-german.csv",
        "thermocouple logger: preamble of key-value lines, German numbers, --- for an open sensor")
def thermocouple_german(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 30 * SECOND, rows)
    comma = fixed(1, ",")
    columns = [Column("Datum/Uhrzeit", times, show=stamp("{D:02}.{M:02}.{Y} {h:02}:{m:02}:{s:02}")),
               Column("Vorlauf [°C]", smooth(random, rows, 20, 90, 1), "float", "°C", comma),
               Column("Rücklauf [°C]", with_gaps(random, smooth(random, rows, 15, 60, 1), first=True), "float", "°C",
                      comma, "---"), Column("Durchfluss [l/h]", smooth(random, rows, 100, 1800, 0), "integer", "l/h"),
               Column("Differenz [K]", smooth(random, rows, -2, 30, 1), "float", "K", fixed(1, ",", plus=True))]
    lines = ["Gerät;Temperaturschreiber 4-Kanal", "Seriennummer;00412377", "Firmware;2.14", "Messstelle;Heizraum Süd",
             "Intervall;30 s", "Messungen;" + str(rows), "", header(columns, ";"), *table(columns, ";")]
    return File(lines, columns, [Axis(times)], "preamble", encoding="cp1252", end="\r\n")


@layout("L02-station-four-headers.dat.csv",
        "field logger: station line, names, units, processing, all quoted; quoted times, NAN")
def station_four_headers(random, rows):
    times = every(moment("2022-11-30 22:15:00"), 15 * MINUTE, rows)
    columns = [Column("TIMESTAMP", times, show=stamp('"{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02}"'), unit=None),
               Column("RECORD", counting(rows, 4711), "integer", None),
               Column("BattV_Min", smooth(random, rows, 11.8, 13.9), "float", "Volts"),
               Column("AirTC_Avg", with_gaps(random, smooth(random, rows, -12, 6, 3)), "float", "Deg C",
                      missing='"NAN"'), Column("RH", smooth(random, rows, 40, 100, 1), "float", "%"),
               Column("Rain_mm_Tot", smooth(random, rows, 0, 4, 1), "float", "mm"),
               Column("Door", held(random, rows, [0, -1, 3]), "integer", "")]
    cells = ['"TS"', '"RN"', '"Volts"', '"Deg C"', '"%"', '"mm"', '""']
    lines = ['"FORMAT5","north_field","LOGGER-X","28113","LX.Std.08","CPU:field.prg","40213","quarter_hour"',
             header(columns, ",", quoted()), ",".join(cells), '"","","Min","Avg","Smp","Tot","Smp"',
             *table(columns, ",")]
    return File(lines, columns, [Axis(times)], "unit row", end="\r\n")


@layout("L03-humidity-button.csv",
        "matchbox logger: title line, US clock with AM/PM, units inside names, event columns mostly empty")
def humidity_button(random, rows):
    times = every(moment("2023-04-05 06:00:00"), 10 * MINUTE, rows)
    ends = [None] * (rows - 1) + ["Logged"]
    columns = [Column("#", counting(rows), "integer", None),
               Column("Date Time, GMT+02:00", times, show=stamp("{M:02}/{D:02}/{y:02} {t:02}:{m:02}:{s:02} {AP}")),
               Column("Temp, °C (LGR S/N: 2041, SEN S/N: 2041, LBL: cellar)", smooth(random, rows, 8, 19, 3), "float",
                      "°C", also="Temp"),
               Column("RH, % (LGR S/N: 2041, SEN S/N: 2041, LBL: cellar)", smooth(random, rows, 40, 90, 3), "float",
                      "%", also="RH"), Column("Coupler Attached (LGR S/N: 2041)", ends, None),
               Column("End Of File (LGR S/N: 2041)", ends, None)]
    lines = ['"Plot Title: cellar 2041"', header(columns, ",", quoted()), *table(columns, ",")]
    return File(lines, columns, [Axis(times, zone="+02:00")], "AM/PM", expressible=False, encoding="utf-8-sig",
                end="\r\n")


@layout("L04-level-fixed-width.txt",
        "groundwater level logger: fixed width, units in a row of brackets, a rule of dashes, footer of extremes")
def level_fixed_width(random, rows):
    times = every(moment("2021-02-27 00:00:00"), HOUR, rows)
    level, water = smooth(random, rows, 2.1, 7.9, 3), smooth(random, rows, 7, 13, 1)
    columns = [Column("Date", times, show=stamp("{D:02}/{M:02}/{Y}")),
               Column("Time", times, show=stamp("{h:02}:{m:02}:{s:02}")),
               Column("Level", level, "float", "m", fixed(3, width=12)),
               Column("Temp", water, "float", "degC", fixed(1, width=9)),
               Column("Flag", held(random, rows, [0, 2, 4]), "integer", "", whole(width=6))]
    lines = ["=" * 52, "  Groundwater level record", f"  Well: 17-B     Readings: {rows}", "=" * 52, "",
             "Date       Time           Level     Temp  Flag", "                            [m]   [degC]", "-" * 47,
             *table(columns, " "), "-" * 47, f"Minimum {min(level):23} {min(water):8}",
             f"Maximum {max(level):23} {max(water):8}"]
    return File(lines, columns, [Axis(times)], "fixed width")


@layout("L05-paperless-recorder.csv",
        "paperless recorder: date, time and milliseconds in columns of their own, rows of channel, tag and unit")
def paperless_recorder(random, rows):
    times = every(moment("2023-09-30 23:58:00"), 250 * MS, rows)
    columns = [Column("Date", times, show=stamp("{Y}/{M:02}/{D:02}"), unit=None),
               Column("Time", times, show=stamp("{h:02}:{m:02}:{s:02}"), unit=None),
               Column("ms", times, show=stamp("{f3}"), unit=None),
               Column("CH001", smooth(random, rows, 0, 400, 1), "float", "C", also="Kiln zone 1"),
               Column("CH002", smooth(random, rows, 0, 400, 1), "float", "C", also="Kiln zone 2"),
               Column("CH003", with_gaps(random, smooth(random, rows, -50, 50, 2)), "float", "mbar", missing="*****",
                      also="Flue draught")]
    lines = ["Recorder type,12 channels", "Serial No.,00417-B", "File Message,firing 0771", "Time Correction,None",
             "Starting Condition,Manual", "", ",,Ch,CH001,CH002,CH003", ",,Tag,Kiln zone 1,Kiln zone 2,Flue draught",
             "Date,Time,ms,C,C,mbar", *table(columns, ",")]
    return File(lines, columns, [Axis(times)], "spread over columns", expressible=False, end="\r\n",
                note="the names are the channels or the tags; milliseconds stand in a column of their own")


@layout("L06-gateway-several-sensors.csv",
        "radio gateway: several sensors told apart by a column, UTC with Z, times repeat")
def gateway_several_sensors(random, rows):
    sensors, rounds = ("A4:C1:38:01", "A4:C1:38:0F", "A4:C1:38:7B"), rows // 3
    times = [time for time in every(moment("2023-07-01 00:00:00"), 5 * MINUTE, rounds) for _ in sensors]
    count = len(times)
    columns = [Column("time", times, show=stamp("{Y}-{M:02}-{D:02}T{h:02}:{m:02}:{s:02}Z")),
               Column("sensor", list(sensors) * rounds),
               Column("temperature_C", smooth(random, count, 14, 31), "float", "C", also="temperature"),
               Column("humidity_%", smooth(random, count, 30, 80, 0), "integer", "%", also="humidity"),
               Column("battery_mV", smooth(random, count, 2400, 3000, 0), "integer", "mV", also="battery"),
               Column("rssi", smooth(random, count, -95, -40, 0), "integer")]
    return File([header(columns, ","), *table(columns, ",")], columns, [repeated(times, zone="+00:00")],
                "several devices", expressible=False,
                note="each time stands three times, once for a sensor: all but one of three rows may be lost")


@layout("L07-stick-interval-only.csv", "stick logger: no times in the rows, start and interval in the preamble")
def stick_interval_only(random, rows):
    times = every(moment("2023-10-28 18:00:00"), 10 * MINUTE, rows)
    columns = [Column("No.", counting(rows), "integer", None),
               Column("Temperature(°C)", smooth(random, rows, -25, -15, 1), "float", "°C", fixed(1)),
               Column("Humidity(%RH)", smooth(random, rows, 30, 70, 1), "float", "%RH", fixed(1))]
    lines = ["Serial Number: TH10-88213", "Start Time: 2023-10-28 18:00:00", "Sample Interval: 10 min",
             f"Sample Points: {rows}", "High Alarm: -15.0", "Low Alarm: -28.0", "", header(columns, "\t"),
             *table(columns, "\t")]
    return File(lines, columns, [Axis(times), elapsed(times)], "no times", end="\r\n",
                note="the number of the row times the interval")


@layout("L08-strain-sampling-rate.txt", "strain amplifier: a sample counter, the sampling rate in the preamble")
def strain_sampling_rate(random, rows):
    times = every(0, 500 * 1000, rows)
    columns = [Column("Sample", counting(rows, 0), "integer", None),
               Column("SG1 [µm/m]", smooth(random, rows, -800, 800, 3), "float", "µm/m"),
               Column("SG2 [µm/m]", smooth(random, rows, -800, 800, 3), "float", "µm/m"),
               Column("Force [kN]", smooth(random, rows, 0, 25, 4), "float", "kN")]
    lines = ["# Strain measurement", "# Operator: J. Doe", "# Sampling rate: 2000 Hz", "# Filter: Bessel 400 Hz", "#",
             header(columns, "\t"), *table(columns, "\t")]
    return File(lines, columns, [elapsed(times)], "sampling rate", note="2000 samples a second")


@layout("L09-vibration-midnight.txt",
        "vibration monitor: clock without date runs over midnight, date in the preamble, UTF-16")
def vibration_midnight(random, rows):
    times = every(moment("2023-05-04 23:57:30"), 500 * MS, rows)
    comma = fixed(3, ",")
    columns = [Column("Uhrzeit", times, show=stamp("{h:02}:{m:02}:{s:02},{f3}")),
               Column("v eff (mm/s)", smooth(random, rows, 0, 11, 3), "float", "mm/s", comma),
               Column("a max (m/s²)", smooth(random, rows, 0, 60, 3), "float", "m/s²", comma),
               Column("Alarm", held(random, rows, ["nein", "JA"]))]
    lines = ["Schwingungsüberwachung", "Datum:\t04.05.2023", "Lager:\tB-Seite", "", header(columns, "\t"),
             *table(columns, "\t")]
    return File(lines, columns, [Axis(times), elapsed(times)], "over midnight", encoding="utf-16-le", end="\r\n")


@layout("L10-freezer-newest-first.csv", "freezer guard: newest first, weekday and English month, Yes and No")
def freezer_newest_first(random, rows):
    times = every(moment("2023-01-29 03:00:00"), 20 * MINUTE, rows)[::-1]
    columns = [Column("When", times, show=stamp("{weekday} {D:02} {short_en} {Y} {h:02}:{m:02}")),
               Column("Probe (F)", smooth(random, rows, -14, 12, 1), "float", "F"),
               Column("Set point (F)", held(random, rows, [-4, 0, 5], 200), "integer", "F"),
               Column("Door open", held(random, rows, [False, True]), None, show=str)]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times)], "newest first", expressible=False,
                last_end=False)


@layout("L11-pulse-counter-late.csv",
        "pulse logger: inputs that are 0 and 1 for long and count later, integers that get decimals late")
def pulse_counter_late(random, rows):
    times = uneven(random, moment("2023-03-01 00:00:00"), SECOND, 90, rows)
    columns = [Column("Timestamp", times, show=stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02}")),
               Column("DI1", late(random, rows, [0, 1], [2, 7]), "integer"),
               Column("DI2", held(random, rows, [0, 1]), "boolean"),
               Column("Water m3",
                      [value if row < rows * 0.9 else value + 1 for row,
                       value in enumerate(held(random, rows, [3, 4, 5]))], "float", "m3"),
               Column("Gas m3", growing(random, rows, 100, 0.2, 3), "float", "m3")]
    columns[3].show = lambda value: f"{value}" if value < 6 else f"{value}.25"
    columns[3].values[-1] = 6
    lines = [header(columns, ";"), *table(columns, ";")]
    columns[3].values = [value + 0.25 if value >= 6 else value for value in columns[3].values]
    return File(lines, columns, [Axis(times)], "late types")


@layout("L12-soil-comments-between.txt",
        "soil moisture logger: comments of events between the rows, blank lines between days, quotes around names")
def soil_comments_between(random, rows):
    times = every(moment("2023-06-11 20:00:00"), 30 * MINUTE, rows)
    columns = [Column("Date", times, show=stamp("{D}-{short_en}-{Y}")),
               Column("Time", times, show=stamp("{h:02}:{m:02}")),
               Column("VWC 10cm {%}", smooth(random, rows, 5, 45, 1), "float", "%"),
               Column("VWC 30cm {%}", smooth(random, rows, 5, 45, 1), "float", "%"),
               Column("Soil T {degC}", smooth(random, rows, 9, 22, 1), "float", "degC")]
    lines = ["; soil probe string 3", "; columns follow", header(columns, ";", quoted())]
    for place, row in enumerate(table(columns, ";")):
        if place and times[place] % (24 * HOUR) == 0:
            lines.append("")
        if place % 100 == 50:
            lines.append("; battery checked")
        lines.append(row)
    return File(lines, columns, [Axis(times)], "comments between rows", expressible=False)


@layout("L13-crash-recorder-channels.csv",
        "transient recorder: elapsed ms from before the trigger, explicit plus signs, padded cells")
def crash_recorder(random, rows):
    times = every(-rows * 10 * 1000 // 4 * 10, 100 * 1000, rows)
    columns = [Column("t_ms", times, unit="ms", show=amount(MS, 1)),
               Column("Head X / g", smooth(random, rows, -90, 20, 2), "float", "g", left(9, fixed(2, plus=True))),
               Column("Chest X / g", smooth(random, rows, -60, 20, 2), "float", "g", left(9, fixed(2, plus=True))),
               Column("Belt / kN", smooth(random, rows, 0, 6, 3), "float", "kN", left(8))]
    lines = ["% test 2291", "% trigger at 0.0 ms", "% " + span("{m:02}:{s:02}")(0) + " is t0", header(columns, ", "),
             *table(columns, ", ")]
    return File(lines, columns, [elapsed(times)], "negative times")
