"""Oscilloscopes, logic analysers, multimeters and other instruments of the bench."""

from itertools import zip_longest

from kit import signals
from kit.columns import any_of, counting, evenly, gaps, held, same, significant, smooth, time, unevenly
from kit.layout import Axis, Column, elapsed, layout
from kit.numbers import fixed, hexadecimal, scientific, words
from kit.times import CLOCK, MS, SECOND, US, YEAR_FIRST, amount, every, moment, stamp

SETTINGS = ["Record Length,2.500000e+03,", "Sample Interval,8.000000e-08,", "Trigger Point,5.000000e+02,", ",,", ",,",
            ",,", "Source,CH1,", "Vertical Units,V,", "Vertical Scale,1.000000e+00,", "Vertical Offset,0.000000e+00,",
            "Horizontal Units,s,", "Pt Fmt,Y,"]


def settings_beside(table, body):
    return [f"{setting},{row}" for setting, row in zip_longest(SETTINGS, body, fillvalue=",,")]


def alarms(table):
    return signals.held(table.random, table.rows, [0, 1])


def alarm(name):
    return Column(name, lambda table: table.shared, "boolean")


def around_fiftieths(random, rows):
    return [time + random.randrange(-400, 400)
            for time in every(moment("2023-05-04 10:00:00") + 20 * MS, 20 * MS, rows)]


def two_buffers(table, body):
    turn = table.rows // 2
    return ["Buffer: A", "{quoted}", *body[:turn], "", "", "Buffer: B", "{quoted}", *body[turn:]]


LAYOUTS = [
    layout("L52-scope-settings-beside.csv",
           "oscilloscope: settings in the first three columns beside the first rows, data in the "
           "fourth and fifth, no header", "preamble beside the table", evenly(-40 * US, 80), ",",
           [time("", lambda time: f"{time / SECOND:015.12f}", column=4),
            smooth("", -2.5, 2.5, 5, None, fixed(5, width=9), column=5)], settings_beside, [elapsed], ",",
           expressible=False, end="\r\n"),
    layout("L53-scope-braces-exponents.csv",
           "oscilloscope: key,value preamble with numbers that look like data, units in braces, "
           "exponents with three digits", "nanoseconds", evenly(0, 4), ",",
           [time("Time {s}", lambda time: scientific(7, exponent=3, plus=True)(time / SECOND), "s"),
            significant("CH1 {V}", -4, 4, 5, "V", scientific(5, exponent=3, plus=True), also="CH1"),
            significant("CH2 {V}", -0.02, 0.03, 5, "V", scientific(5, exponent=3, plus=True), also="CH2")],
           ["Model,SCOPE 200 MHz", "Points,{rows}", "Average,16", "Probe,10,10", "Offset,0.0,-1.5", "", "{names}",
            "{table}"], [elapsed], end="\r\n"),
    layout("L54-usb-scope-units-below.csv",
           "USB oscilloscope: names, row of units in parentheses, blank line, OVER where the range was left",
           "unit row", evenly(-20 * US * 100, 20 * US), ",",
           [time("Time", amount(MS, 8), "ms"), gaps(smooth("Channel A", -9, 9, 8, "V"), "OVER"),
            smooth("Channel B", -900, 900, 6, "mV")], ["{names}", "(ms),(V),(mV)", "", "{table}"], [elapsed],
           expressible=False, encoding="utf-8-sig", end="\r\n"),
    layout("L55-logic-analyser-changes.csv",
           "logic analyser: uneven times to the nanosecond, levels 0 and 1, blanks after the commas", "nanoseconds",
           unevenly(0, 20, 90_000), ", ",
           [time("Time [s]", amount(SECOND, 9), "s"),
            *(held(f"Channel {place}", [0, 1], "boolean", 3) for place in range(4))], axes=[elapsed]),
    layout("L56-multimeter-scan-utf16.csv",
           "scanning multimeter: scan number, ms after a colon, channels with units and alarm columns, UTF-16",
           "two tables", evenly(moment("2023-05-14 09:59:58") + 250 * MS, 750 * MS), ",",
           [counting("Scan", unit=None), time("Time", stamp("{M:02}/{D:02}/{Y} " + CLOCK + ":{f3}")),
            smooth("101 <inlet> (C)", 18, 80, 3, "C"), alarm("Alarm 101"),
            significant("102 <supply> (VDC)", 3, 6, 8, "VDC", scientific(8, plus=True)), alarm("Alarm 102")],
           ["Name:,scan_14", "Owner:,lab", "Acquisition Date:,5/14/2023 9:59:58 AM", "", "Channel,Name,Function,Range",
            "101,inlet,Temp (Type K),C", "102,supply,DC voltage,10 V", "", "{names}", "{table}"], shared=alarms,
           encoding="utf-16-le", end="\r\n"),
    layout("L57-acquisition-end-of-header.txt",
           "acquisition program: two header sections with end marks, time axis as start and step, names under them",
           "sections", evenly("2023-05-04 10:00:00", 100 * US), "\t",
           [time("X_Value", amount(SECOND, 6, origin=moment("2023-05-04 10:00:00"))),
            smooth("Acceleration", -20, 20, 6, "m/s^2"), smooth("Microphone", -3, 3, 6, "Pa"),
            same("Comment", unit=None)],
           ["Measurement file\t", "Writer_Version\t2", "Separator\tTab", "Decimal_Separator\t.", "Time_Pref\tAbsolute",
            "Date\t2023/05/04", "Time\t10:00:00.0000000", "***End_of_Header***\t", "\t", "Channels\t2\t\t",
            "Samples\t{rows}\t{rows}\t", "Date\t2023/05/04\t2023/05/04\t", "Time\t10:00:00\t10:00:00\t",
            "Y_Unit_Label\tm/s^2\tPa\t", "X_Dimension\tTime\tTime\t", "X0\t0.0E+0\t0.0E+0\t",
            "Delta_X\t1.000000E-4\t1.000000E-4\t", "***End_of_Header***\t\t\t", "{names}", "{table}"], [elapsed, Axis],
           end="\r\n"),
    layout("L58-phasor-unit-nine-digits.csv",
           "phasor unit: ISO times with nine digits and Z, status words in hex, exponents without sign", "nanoseconds",
           around_fiftieths, ",",
           [time("soc", stamp(f"{YEAR_FIRST}T{CLOCK}.{{f9}}Z")),
            any_of("stat", [0x0010, 0x200A, 0xF00D], hexadecimal(4)),
            smooth("VA mag (V)", 63_000, 66_000, 3, "V"), smooth("VA ang (rad)", -3, 3, 6, "rad"),
            smooth("freq (Hz)", 49.9, 50.1, 4, "Hz"),
            held("locked", [True, False], "boolean", show=words("true", "false"))],
           axes=[lambda times: Axis(times, zone="+00:00")], expressible=False),
    layout("L59-laser-meter-sampling-comment.txt",
           "laser power meter: ; comments, elapsed time in µs without a named unit, rate in the preamble",
           "unit in the preamble", evenly(0, 1000 * US), "\t",
           [time("Timestamp", amount(US)), significant("Power", 0.001, 0.09, 4, None, scientific(4)),
            held("Overrange", [0, 1], "boolean")],
           [";Laser power meter", ";First Pulse Arrived : 04/05/2023 at 10:00:00",
            ";Rate 1000 Hz, time stamps in microseconds", ";Units: W", "", "{names}", "{table}"], [elapsed]),
    layout("L60-source-meter-two-blocks.csv",
           "source meter: two buffers one after the other with blank lines between, header repeated, times run on",
           "repeated header", unevenly(1000 * US, US, 90_000), ",",
           [significant("Reading", 1e-9, 8e-6, 6, None, scientific(6, plus=True)),
            time("Relative time, s", amount(SECOND, 6), "s"), smooth("Source V", -1, 1, 3, None)], two_buffers,
           [elapsed]),
]
