"""Meters and energy: smart meters, load profiles, inverters, heat meters, power analysers."""

from kit.layout import Axis, Column, File, header, layout, table
from kit.numbers import fixed, words
from kit.signals import growing, held, smooth, with_gaps
from kit.times import DAY, HOUR, MINUTE, MS, SECOND, amount, every, moment, stamp


@layout("L33-smart-meter-from-to.csv",
        "smart meter: from and to with offset +01:00, decimal comma, status texts, nothing in the last rows")
def smart_meter_from_to(random, rows):
    times = every(moment("2023-01-10 00:00:00"), 15 * MINUTE, rows)
    ends, form = [time + 15 * MINUTE for time in times], stamp("{Y}-{M:02}-{D:02}T{h:02}:{m:02}:{s:02}+01:00")
    used, fed = smooth(random, rows, 0, 2, 3), smooth(random, rows, 0, 1.5, 3)
    used[-4:], fed[-4:] = [None] * 4, [None] * 4
    columns = [Column("Von", times, show=form), Column("Bis", ends, show=form),
               Column("Bezug (kWh)", used, "float", "kWh", fixed(3, ",")),
               Column("Einspeisung (kWh)", fed, "float", "kWh", fixed(3, ",")),
               Column("Status", ["wahrer Wert" if value else "fehlt" for value in used], "text")]
    return File([header(columns, ";"), *table(columns, ";")], columns,
                [Axis(times, zone="+01:00"), Axis(ends, zone="+01:00")], "ISO with zone", encoding="utf-8-sig",
                end="\r\n", note="begin or end of the quarter hour")


@layout("L34-load-profile-hours-1-24.csv", "load profile: date without separators and hours 1 to 24 in a column")
def load_profile_hours(random, rows):
    begins = every(moment("2022-12-20 00:00:00"), HOUR, rows)
    columns = [Column("METER", [550317] * rows, "integer"), Column("YYYYMMDD", begins, show=stamp("{Y}{M:02}{D:02}")),
               Column("HH", begins, show=lambda time: str(time // HOUR % 24 + 1)),
               Column("kW", smooth(random, rows, 10, 95, 1), "float", None),
               Column("kvar", smooth(random, rows, -9, 30, 1), "float", None)]
    lines = ["# load profile, hour 1 is 00:00 to 01:00", "", "# " + header(columns, ","), "", *table(columns, ",")]
    return File(lines, columns, [Axis([time + HOUR for time in begins]), Axis(begins)], "hours 1 to 24",
                note="hours end or begin")


@layout("L35-utility-2400.csv",
        "utility portal: quarter hours that end a day at 24:00, date with points, thousands with points")
def utility_2400(random, rows):
    times = every(moment("2023-03-30 00:15:00"), 15 * MINUTE, rows)
    def day(time):
        return stamp("{D:02}.{M:02}.{Y}")(time - 1)
    def clock(time):
        return "24:00" if time % DAY == 0 else stamp("{h:02}:{m:02}")(time)
    columns = [Column("Datum", times, show=day), Column("Zeit", times, show=clock),
               Column("Leistung [kW]", smooth(random, rows, 600, 4200), "float", "kW", fixed(2, ",", ".")),
               Column("Arbeit [kWh]", growing(random, rows, 118_000, 900), "float", "kWh", fixed(2, ",", "."))]
    lines = ["Zählpunkt;DE000562668020O6G56M11SN51G21M24S", "OBIS;1-1:1.29.0", "", header(columns, ";"),
             *table(columns, ";"), f"Summe;;{fixed(2, ',', '.')(sum(columns[2].values))};"]
    return File(lines, columns, [Axis(times)], "24:00", encoding="cp1252", end="\r\n",
                note="24:00 of a day is 00:00 of the next; the last line is a sum")


@layout("L36-power-analyser.csv",
        "power analyser: names with brackets, fractions of one digit, truth values, exponents where small")
def power_analyser(random, rows):
    times = every(moment("2023-05-04 10:59:59"), 200 * MS, rows)
    columns = [Column("Store No.", list(range(rows)), "integer"),
               Column("Date", times, show=stamp("{Y}/{M:02}/{D:02}")),
               Column("Time", times, show=stamp("{h:02}:{m:02}:{s:02}.{f1}")),
               Column("Urms-1[V]", smooth(random, rows, 226, 234), "float", "V"),
               Column("Irms-1[A]", smooth(random, rows, 0.1, 15, 4), "float", "A"),
               Column("P-1[W]", smooth(random, rows, -300, 3400, 1), "float", "W"),
               Column("PF-1[]", with_gaps(random, smooth(random, rows, -1, 1, 4)), "float", "", missing="---O-F---"),
               Column("Range ok", held(random, rows, [True, False]), "boolean", show=words("TRUE", "FALSE"))]
    columns[-2].unit = None
    return File(["Power analyser", "Wiring: 1P2W", "Update: 200 ms", "", header(columns, ","), *table(columns, ",")],
                columns, [Axis(times)], "date and time columns", end="\r\n")


@layout("L37-inverter-day-file.csv",
        "inverter: sep= line, serial and type above, format text and units in the row under the names, empty at night")
def inverter_day_file(random, rows):
    times = every(moment("2023-06-21 00:00:00"), MINUTE, rows)
    dark = rows // 6
    power = [None] * dark + smooth(random, rows - dark, 0, 8, 3)
    columns = [Column("TimeStamp", times, unit=None, show=stamp("{D:02}/{M:02}/{Y} {h:02}:{m:02}:{s:02}")),
               Column("E-Total", growing(random, rows, 41_000, 0.1, 3), "float", "kWh", fixed(3, ",")),
               Column("Pac", power, "float", "kW", fixed(3, ",")),
               Column("Temp", smooth(random, rows, 20, 60, 0), "integer", "°C")]
    lines = ["sep=;", "Version CSV1|Tool portal|Linebreaks CR/LF|Delimiter semicolon|Decimalpoint comma|Precision 3",
             "", ";SN: 2110488;SN: 2110488;SN: 2110488", ";Inverter 8.0;Inverter 8.0;Inverter 8.0",
             header(columns, ";"), "dd/MM/yyyy HH:mm:ss;kWh;kW;°C", *table(columns, ";")]
    return File(lines, columns, [Axis(times)], "unit row", encoding="utf-8-sig", end="\r\n")


@layout("L38-heat-meter-french.csv",
        "heat meter: French month names, blanks and no-break spaces as thousands separators, units in <>")
def heat_meter_french(random, rows):
    times = every(moment("2022-11-25 01:00:00"), 3 * HOUR, rows)
    columns = [Column("Horodatage", times, show=stamp("{D} {month_fr} {Y} {h:02}h{m:02}")),
               Column("Énergie <kWh>", growing(random, rows, 987_000, 60, 1), "float", "kWh", fixed(1, ",", "\u00a0")),
               Column("Débit <m³/h>", smooth(random, rows, 0, 4, 3), "float", "m³/h", fixed(3, ",")),
               Column("T départ <°C>", smooth(random, rows, 35, 80, 1), "float", "°C", fixed(1, ",")),
               Column("Défaut", held(random, rows, [False, True]), None, show=words("oui", "non"))]
    return File(["Relevé du compteur;CH-0041", f"Nombre de lignes;{rows}", "", header(columns, ";"),
                 *table(columns, ";")], columns, [Axis(times)], "month names", expressible=False, encoding="cp1252",
                end="\r\n")


@layout("L39-tariff-hhmm.txt", "balancing area: YYYYMMDD and hhmm without leading zeros, bars as separators")
def tariff_hhmm(random, rows):
    times = every(moment("2023-02-27 21:45:00"), 15 * MINUTE, rows)
    columns = [Column("DATE", times, show=stamp("{Y}{M:02}{D:02}")),
               Column("TIME", times, show=lambda time: str(int(stamp("{h}{m:02}")(time)))),
               Column("GEN_MW", smooth(random, rows, 100, 900, 1), "float", "MW", also="GEN"),
               Column("LOAD_MW", smooth(random, rows, 100, 900, 1), "float", "MW", also="LOAD"),
               Column("QUAL", held(random, rows, ["A", "E"]), "character")]
    return File([header(columns, "|"), *table(columns, "|")], columns, [Axis(times)], "hhmm", end="\r\n")


@layout("L40-smart-plug-unit-cells.csv", "smart plug: epoch in seconds, units inside the cells, n/a while offline")
def smart_plug(random, rows):
    times = every(moment("2023-05-04 10:00:07"), 10 * SECOND, rows)
    columns = [Column("unix", times, show=amount(SECOND)),
               Column("voltage", smooth(random, rows, 225, 236, 1), "float", "V", fixed(1, suffix=" V")),
               Column("current", smooth(random, rows, 0, 9, 3), "float", "A", fixed(3, suffix=" A")),
               Column("power", with_gaps(random, smooth(random, rows, 0, 2100, 1)), "float", "W", fixed(1, suffix=" W"),
                      "n/a"), Column("relay", held(random, rows, [True, False]), None, show=words("on", "off"))]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times)], "units in cells")


@layout("L41-gas-meter-report.csv",
        "meter reading report: two-digit years, month before day, whole lines end with empty "
        "cells, total line, unit in a column")
def gas_meter_report(random, rows):
    times = every(moment("2021-01-05 00:00:00"), DAY, rows)
    reading = growing(random, rows, 8_000, 12, 0)
    columns = [Column("Read Date", times, show=stamp("{M}/{D}/{y:02}")),
               Column("Reading", reading, "integer", None, lambda value: f'"{value:,}"'),
               Column("Unit", ["CCF"] * rows, "text"),
               Column("Type", held(random, rows, ["actual", "estimated"], 9), "text"),
               Column("Avg Temp (F)", smooth(random, rows, 15, 88, 0), "integer", "F")]
    lines = ["Account Number,0417-22-9", "Service Address,redacted", "", header(columns, ",") + ",,",
             *table(columns, ",", ",,"), f'Total,"{reading[-1] - reading[0]:,}",CCF,,,,']
    return File(lines, columns, [Axis(times)], "thousands separators", end="\r\n")


@layout("L42-heat-pump-lines-of-pairs.txt",
        "heat pump: date in a line above each block, rows hold the clock alone, comments with #")
def heat_pump_blocks(random, rows):
    times = every(moment("2023-12-30 22:00:00"), 5 * MINUTE, rows)
    columns = [Column("Time", times, show=stamp("{h:02}:{m:02}")),
               Column("Flow(C)", smooth(random, rows, 25, 55, 1), "float", "C"),
               Column("Return(C)", smooth(random, rows, 22, 48, 1), "float", "C"),
               Column("COP", smooth(random, rows, 2, 6), "float"),
               Column("Mode", held(random, rows, ["heat", "defrost", "hot water"]), "text")]
    lines, last = ["# heat pump controller log"], None
    for time, row in zip(times, table(columns, "\t")):
        if time // DAY != last:
            lines += ["", f"# {stamp('{Y}-{M:02}-{D:02}')(time)}", header(columns, "\t")]
            last = time // DAY
        lines.append(row)
    return File(lines, columns, [Axis(times), Axis([time - times[0] for time in times], True)], "over midnight",
                note="the date stands in a comment above each block")


@layout("L96-portal-summer-time.csv",
        "energy portal: local times with +0100 that become +0200 in the night of the change, comma before fractions")
def portal_summer_time(random, rows):
    change = moment("2023-03-26 01:00:00")
    times = every(change - rows // 2 * MINUTE, MINUTE, rows)
    local = [time + (1 if time < change else 2) * HOUR for time in times]
    def show(time):
        zone = 1 if time < change else 2
        return stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02},{f3}")(time + zone * HOUR) + f"+0{zone}00"
    columns = [Column("measured_at", times, show=show),
               Column("power (kW)", smooth(random, rows, 0, 11, 3), "float", "kW"),
               Column("meter reading (kWh)", growing(random, rows, 5_100, 0.2, 3), "float", "kWh")]
    return File([header(columns, ";"), *table(columns, ";")], columns, [Axis(times), Axis(local)], "zone changes",
                expressible=False, note="UTC, or local times with an hour left out")
