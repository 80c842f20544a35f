#include "host/ranges/GeneratedTable.h"

#include <cstdio>
#include <random>

#include "platform/framework/Text.h"

namespace {

enum class Form { Utf8, Utf8Mark, Windows1252, Utf16Little, Utf16Big };
enum class Times { Elapsed, FixedDate, Calendar, Interval };

// Deterministic everywhere: the distributions of the standard library differ between libraries.
class Dice {
  public:
    explicit Dice(std::uint32_t seed) : Engine(seed) {}
    int Below(int most) { return static_cast<int>(Engine() % static_cast<std::uint32_t>(most)); }
    bool Percent(int percent) { return Below(100) < percent; }
    template <class Item, std::size_t Count>
    const Item& Pick(const Item (&items)[Count]) {
        return items[Below(static_cast<int>(Count))];
    }

  private:
    std::mt19937 Engine;
};

std::string Clock(int seconds) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
    return text;
}

class Generator {
  public:
    explicit Generator(std::uint32_t number)
        : Random(number),
          Encoding(static_cast<Form>(Random.Below(5))),
          Time(static_cast<Times>(Random.Below(4))),
          Odd(Random.Pick({0, 4, 15, 40})),
          Step(Random.Pick({1, 90, 1500, 40'000})) {}

    GeneratedTable Make() {
        GeneratedTable table;
        const char* const lineEnd = Random.Pick({"\n", "\r\n", "\r"});
        std::string text = "Zeit;Größe;Ganz;Zahl;Wort;Wahr;Zeichen;Hex;Strom" + std::string(lineEnd);
        // The percentage is said at every hundredth row.
        const int rows = Random.Percent(5) ? 150 + Random.Below(100) : 5 + Random.Below(50);
        for (int row = 0; row < rows; ++row) {
            const bool isLast = row + 1 == rows;
            text += Line(row) + (isLast && Random.Percent(50) ? "" : EndOf(lineEnd));
        }
        table.Bytes = Encoded(text);
        table.Settings = SettingsOf();
        // Without a type a column has that of the analysis.
        const int types[] = {4 + 2, 2, 5, 8, 1, 7, 4, 3};
        for (int column = 0; column < 8; ++column) {
            if (Random.Percent(20)) continue;
            table.Types.push_back({Utf8ToUtf16(std::to_string(column + 2)), {}, {}, types[column], false});
        }
        table.About = "encoding " + std::to_string(static_cast<int>(Encoding)) + ", times " +
                      std::to_string(static_cast<int>(Time)) + ", " + std::to_string(Odd) + " % odd";
        return table;
    }

  private:
    std::string EndOf(const char* lineEnd) {
        if (!Random.Percent(Odd / 4)) return lineEnd;
        return Random.Pick({"\n", "\r\n", "\r\r\n", "\n\r\n"});
    }

    std::string Line(int row) {
        if (Random.Percent(Odd)) {
            switch (Random.Below(6)) {
                case 0:
                    return "";
                case 1:
                    return Random.Pick({" ", "\t \t", "   "});
                case 2:
                    return ";;;;";
                case 3:
                    return "Zeit;Größe;Ganz;Zahl;Wort;Wahr;Zeichen;Hex;Strom";
                case 4:
                    return TimeOf(row) + ";1;2";
                default:
                    return "\"" + TimeOf(row) + ";5;\"6;7";
            }
        }
        return TimeOf(row) + ";" + Amount("V") + ";" + Cell(std::to_string(row * 7)) + ";" +
               Cell(std::to_string(row) + "," + std::to_string(Random.Below(1000))) + ";" + Word() + ";" +
               Cell(Random.Pick({"0", "1", "true"})) + ";" + Cell(Random.Pick({"a", "ß", "?"})) + ";" +
               Cell(Random.Pick({"FF", "0x1A", "7"})) + ";" + Amount("A");
    }

    std::string TimeOf(int row) {
        int at = Start + row * Step;
        if (Random.Percent(Odd)) {
            switch (Random.Below(4)) {
                case 0:
                    return Random.Pick({"", "n/a", "x", "99:99:99"});
                case 1:
                    at -= Step;
                    break;
                case 2:
                    at -= 5 * Step;
                    break;
                default:
                    at += 3 * Step;
                    break;
            }
        }
        if (Time == Times::Elapsed) return std::to_string(at);
        if (Time != Times::Calendar) return Clock(std::max(at, 0));
        char date[16];
        // Some lie before 1990.
        std::snprintf(date, sizeof date, "%02d.12.%d ", 1 + std::max(at, 0) / 86'400 % 28,
                      Odd == 40 ? 1989 : 2020);
        return date + Clock(std::max(at, 0) % 86'400);
    }

    std::string Amount(const char* unit) {
        const std::string number = std::to_string(Random.Below(100));
        if (Random.Percent(Odd)) return Random.Pick({"", "5 mV", "x", "7", "1,5 A"});
        return NamesUnits == 0 ? number : number + "," + std::to_string(Random.Below(10)) + " " + unit;
    }

    std::string Cell(std::string text) {
        if (!Random.Percent(Odd)) return text;
        return Random.Pick({"", "n/a", "nan", "1.5", "abc", "\"q;r\"", "\"open", "9999999999999999999999"});
    }

    std::string Word() {
        return Random.Pick({"", "ok", "größer", "\"a;b\"", "\"say \"\"so\"\"\"", "ein längerer Text", "€"});
    }

    std::vector<std::string> SettingsOf() {
        std::vector<std::string> settings = {"AutoFormat=0", "Separator=0", "FirstLine=1", "ImportHeader=1"};
        const auto add = [&](std::initializer_list<const char*> more) {
            settings.insert(settings.end(), more.begin(), more.end());
        };
        if (Time == Times::Elapsed) add({"DateSetting=2", "TimeColumn=1", "TimestampFormat=[s]"});
        if (Time == Times::FixedDate)
            add({"DateSetting=1", "StartDate=2020-02-01 08:00:00", "TimeColumn=1",
                 "TimestampFormat=hh:mm:ss"});
        if (Time == Times::Calendar)
            add({"DateSetting=0", "DateColumn=1", "TimeColumn=1", "TimestampFormat=TT.MM.JJJJ hh:mm:ss"});
        if (Time == Times::Interval)
            add({"DateSetting=2", "TimeSetting=1", "IntervalValue=1.5",
                 Random.Percent(10) ? "IntervalValue=0" : "IntervalUnit=2"});
        if (Random.Percent(40)) {
            add({"Adjust=1", "AdjustTime=2020-02-01 03:00:00"});
            settings.push_back("AdjustMode=" + std::to_string(Random.Below(3)));
        }
        return settings;
    }

    std::string Encoded(const std::string& text) {
        if (Encoding == Form::Utf8) return text;
        if (Encoding == Form::Utf8Mark) return "\xEF\xBB\xBF" + text;
        std::string bytes;
        const std::u16string wide = Utf8ToUtf16(text);
        if (Encoding == Form::Windows1252) {
            for (const char16_t c : wide) bytes += c == u'€' ? '\x80' : static_cast<char>(c);
            return bytes;
        }
        const bool isBig = Encoding == Form::Utf16Big;
        for (const char16_t c : u"\uFEFF" + wide) {
            const char low = static_cast<char>(c & 0xFF);
            const char high = static_cast<char>(c >> 8);
            bytes += isBig ? high : low;
            bytes += isBig ? low : high;
        }
        if (Random.Percent(20)) bytes += 'x';
        return bytes;
    }

    Dice Random;
    const Form Encoding;
    const Times Time;
    const int Odd;   // percent of the lines, and of the cells, that are odd
    const int Step;  // seconds from row to row
    const int Start = Random.Below(86'400);
    const int NamesUnits = Random.Below(3);
};

}  // namespace

GeneratedTable MakeTable(std::uint32_t number) {
    return Generator(number).Make();
}
