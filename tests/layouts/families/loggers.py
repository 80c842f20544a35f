"""Data loggers: boxes that record temperatures, pressures, vibration for days."""

from kit import signals
from kit.columns import counting, evenly, gaps, growing, held, late, smooth, time, unevenly
from kit.layout import Axis, Column, elapsed, layout, repeated
from kit.numbers import comma, fixed, left, whole
from kit.times import (
    CLOCK, DATED, DAY_FIRST, HOUR, MINUTE, MS, SECOND, SHORT_CLOCK, YEAR_FIRST, amount, every, moment, stamp)


def gateway_times(random, rows):
    return [at for at in every(moment("2023-07-01 00:00:00"), 5 * MINUTE, rows // 3) for _ in range(3)]


def water_volumes(table):
    """Whole numbers until late, and then decimals."""
    values = [value + (row >= table.rows * 0.9)
              for row, value in enumerate(signals.held(table.random, table.rows, [3, 4, 5]))]
    values[-1] = 6
    return [value + 0.25 if value >= 6 else value for value in values]


def soil_lines(table, body):
    yield from ("; soil probe string 3", "; columns follow", "{quoted}")
    for place, row in enumerate(body):
        if place and table.times[place] % (24 * HOUR) == 0:
            yield ""
        if place % 100 == 50:
            yield "; battery checked"
        yield row


def level_lines(table, body):
    level, water = table.columns[2].values, table.columns[3].values
    return ["=" * 52, "  Groundwater level record", "  Well: 17-B     Readings: {rows}", "=" * 52, "",
            "Date       Time           Level     Temp  Flag", "                            [m]   [degC]", "-" * 47,
            *body, "-" * 47, f"Minimum {min(level):23} {min(water):8}", f"Maximum {max(level):23} {max(water):8}"]


def logged_at_the_end(name):
    return Column(name, lambda table: [None] * (table.rows - 1) + ["Logged"], None)


LAYOUTS = [
    layout("L01-thermocouple-german.csv",
           "thermocouple logger: preamble of key-value lines, German numbers, --- for an open sensor", "preamble",
           evenly("2023-05-04 10:00:00", 30 * SECOND), ";",
           [time("Datum/Uhrzeit", stamp(f"{DAY_FIRST} {CLOCK}")), smooth("Vorlauf [°C]", 20, 90, 1, "°C", comma(1)),
            gaps(smooth("Rücklauf [°C]", 15, 60, 1, "°C", comma(1)), "---", first=True),
            smooth("Durchfluss [l/h]", 100, 1800, 0, "l/h"),
            smooth("Differenz [K]", -2, 30, 1, "K", fixed(1, ",", plus=True))],
           ["Gerät;Temperaturschreiber 4-Kanal", "Seriennummer;00412377", "Firmware;2.14", "Messstelle;Heizraum Süd",
            "Intervall;30 s", "Messungen;{rows}", "", "{names}", "{table}"], encoding="cp1252", end="\r\n"),
    layout("L02-station-four-headers.dat.csv",
           "field logger: station line, names, units, processing, all quoted; quoted times, NAN", "unit row",
           evenly("2022-11-30 22:15:00", 15 * MINUTE), ",",
           [time("TIMESTAMP", stamp(f'"{DATED}"'), None), counting("RECORD", 4711, unit=None),
            smooth("BattV_Min", 11.8, 13.9, unit="Volts"),
            gaps(smooth("AirTC_Avg", -12, 6, 3, "Deg C"), '"NAN"'), smooth("RH", 40, 100, 1, "%"),
            smooth("Rain_mm_Tot", 0, 4, 1, "mm"), held("Door", [0, -1, 3], "integer")],
           ['"FORMAT5","north_field","LOGGER-X","28113","LX.Std.08","CPU:field.prg","40213","quarter_hour"', "{quoted}",
            '"TS","RN","Volts","Deg C","%","mm",""', '"","","Min","Avg","Smp","Tot","Smp"', "{table}"], end="\r\n"),
    layout("L03-humidity-button.csv",
           "matchbox logger: title line, US clock with AM/PM, units inside names, event columns mostly empty", "AM/PM",
           evenly("2023-04-05 06:00:00", 10 * MINUTE), ",",
           [counting("#", unit=None),
            time("Date Time, GMT+02:00", stamp("{M:02}/{D:02}/{y:02} {t:02}:{m:02}:{s:02} {AP}")),
            smooth("Temp, °C (LGR S/N: 2041, SEN S/N: 2041, LBL: cellar)", 8, 19, 3, "°C", also="Temp"),
            smooth("RH, % (LGR S/N: 2041, SEN S/N: 2041, LBL: cellar)", 40, 90, 3, "%", also="RH"),
            logged_at_the_end("Coupler Attached (LGR S/N: 2041)"), logged_at_the_end("End Of File (LGR S/N: 2041)")],
           ['"Plot Title: cellar 2041"', "{quoted}", "{table}"], [lambda times: Axis(times, zone="+02:00")],
           expressible=False, encoding="utf-8-sig", end="\r\n"),
    layout("L04-level-fixed-width.txt",
           "groundwater level logger: fixed width, units in a row of brackets, a rule of dashes, footer of extremes",
           "fixed width", evenly("2021-02-27 00:00:00", HOUR), " ",
           [time("Date", stamp("{D:02}/{M:02}/{Y}")), time("Time", stamp(CLOCK)),
            smooth("Level", 2.1, 7.9, 3, "m", fixed(3, width=12)),
            smooth("Temp", 7, 13, 1, "degC", fixed(1, width=9)),
            held("Flag", [0, 2, 4], "integer", show=whole(width=6))], level_lines),
    layout("L05-paperless-recorder.csv",
           "paperless recorder: date, time and milliseconds in columns of their own, rows of channel, tag and unit",
           "spread over columns", evenly("2023-09-30 23:58:00", 250 * MS), ",",
           [time("Date", stamp("{Y}/{M:02}/{D:02}"), None), time("Time", stamp(CLOCK), None),
            time("ms", stamp("{f3}"), None), smooth("CH001", 0, 400, 1, "C", also="Kiln zone 1"),
            smooth("CH002", 0, 400, 1, "C", also="Kiln zone 2"),
            gaps(smooth("CH003", -50, 50, 2, "mbar", also="Flue draught"), "*****")],
           ["Recorder type,12 channels", "Serial No.,00417-B", "File Message,firing 0771", "Time Correction,None",
            "Starting Condition,Manual", "", ",,Ch,CH001,CH002,CH003", ",,Tag,Kiln zone 1,Kiln zone 2,Flue draught",
            "Date,Time,ms,C,C,mbar", "{table}"], expressible=False, end="\r\n",
           note="the names are the channels or the tags; milliseconds stand in a column of their own"),
    layout("L06-gateway-several-sensors.csv",
           "radio gateway: several sensors told apart by a column, UTC with Z, times repeat", "several devices",
           gateway_times, ",",
           [time("time", stamp(f"{YEAR_FIRST}T{CLOCK}Z")),
            Column("sensor", lambda table: ["A4:C1:38:01", "A4:C1:38:0F", "A4:C1:38:7B"] * (table.rows // 3)),
            smooth("temperature_C", 14, 31, unit="C", also="temperature"),
            smooth("humidity_%", 30, 80, 0, "%", also="humidity"),
            smooth("battery_mV", 2400, 3000, 0, "mV", also="battery"), smooth("rssi", -95, -40, 0)],
           axes=[lambda times: repeated(times, zone="+00:00")], expressible=False,
           note="each time stands three times, once for a sensor: all but one of three rows may be lost"),
    layout("L07-stick-interval-only.csv", "stick logger: no times in the rows, start and interval in the preamble",
           "no times", evenly("2023-10-28 18:00:00", 10 * MINUTE), "\t",
           [counting("No.", unit=None), smooth("Temperature(°C)", -25, -15, 1, "°C", fixed(1)),
            smooth("Humidity(%RH)", 30, 70, 1, "%RH", fixed(1))],
           ["Serial Number: TH10-88213", "Start Time: 2023-10-28 18:00:00", "Sample Interval: 10 min",
            "Sample Points: {rows}", "High Alarm: -15.0", "Low Alarm: -28.0", "", "{names}", "{table}"],
           [Axis, elapsed], end="\r\n", note="the number of the row times the interval"),
    layout("L08-strain-sampling-rate.txt", "strain amplifier: a sample counter, the sampling rate in the preamble",
           "sampling rate", evenly(0, 500 * 1000), "\t",
           [counting("Sample", 0, unit=None), smooth("SG1 [µm/m]", -800, 800, 3, "µm/m"),
            smooth("SG2 [µm/m]", -800, 800, 3, "µm/m"), smooth("Force [kN]", 0, 25, 4, "kN")],
           ["# Strain measurement", "# Operator: J. Doe", "# Sampling rate: 2000 Hz", "# Filter: Bessel 400 Hz", "#",
            "{names}", "{table}"], [elapsed], note="2000 samples a second"),
    layout("L09-vibration-midnight.txt",
           "vibration monitor: clock without date runs over midnight, date in the preamble, UTF-16", "over midnight",
           evenly("2023-05-04 23:57:30", 500 * MS), "\t",
           [time("Uhrzeit", stamp(CLOCK + ",{f3}")), smooth("v eff (mm/s)", 0, 11, 3, "mm/s", comma(3)),
            smooth("a max (m/s²)", 0, 60, 3, "m/s²", comma(3)), held("Alarm", ["nein", "JA"])],
           ["Schwingungsüberwachung", "Datum:\t04.05.2023", "Lager:\tB-Seite", "", "{names}", "{table}"],
           [Axis, elapsed], encoding="utf-16-le", end="\r\n"),
    layout("L10-freezer-newest-first.csv", "freezer guard: newest first, weekday and English month, Yes and No",
           "newest first", lambda random, rows: every(moment("2023-01-29 03:00:00"), 20 * MINUTE, rows)[::-1], ",",
           [time("When", stamp("{weekday} {D:02} {short_en} {Y} {h:02}:{m:02}")), smooth("Probe (F)", -14, 12, 1, "F"),
            held("Set point (F)", [-4, 0, 5], "integer", 200, "F"), held("Door open", [False, True], show=str)],
           expressible=False, last_end=False),
    layout("L11-pulse-counter-late.csv",
           "pulse logger: inputs that are 0 and 1 for long and count later, integers that get decimals late",
           "late types", unevenly("2023-03-01 00:00:00", SECOND, 90), ";",
           [time("Timestamp", stamp(DATED)), late("DI1", [0, 1], [2, 7]), held("DI2", [0, 1], "boolean"),
            Column("Water m3", water_volumes, "float", "m3"), growing("Gas m3", 100, 0.2, 3, "m3")]),
    layout("L12-soil-comments-between.txt",
           "soil moisture logger: comments of events between the rows, blank lines between days, quotes around names",
           "comments between rows", evenly("2023-06-11 20:00:00", 30 * MINUTE), ";",
           [time("Date", stamp("{D}-{short_en}-{Y}")), time("Time", stamp(SHORT_CLOCK)),
            smooth("VWC 10cm {%}", 5, 45, 1, "%"), smooth("VWC 30cm {%}", 5, 45, 1, "%"),
            smooth("Soil T {degC}", 9, 22, 1, "degC")], soil_lines, expressible=False),
    layout("L13-crash-recorder-channels.csv",
           "transient recorder: elapsed ms from before the trigger, explicit plus signs, padded cells",
           "negative times", lambda random, rows: every(-rows * 10 * 1000 // 4 * 10, 100 * 1000, rows), ", ",
           [time("t_ms", amount(MS, 1), "ms"), smooth("Head X / g", -90, 20, 2, "g", left(9, fixed(2, plus=True))),
            smooth("Chest X / g", -60, 20, 2, "g", left(9, fixed(2, plus=True))),
            smooth("Belt / kN", 0, 6, 3, "kN", left(8))],
           ["% test 2291", "% trigger at 0.0 ms", "% 00:00 is t0", "{names}", "{table}"], [elapsed]),
]
