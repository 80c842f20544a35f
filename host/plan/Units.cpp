#include "host/plan/Units.h"

#include <algorithm>
#include <iterator>

#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// Symbols that take a prefix.
constexpr std::u16string_view Symbols =
    u" m g s A K I mol cd Hz N Pa J W C V F Ohm ohm OHM Ω S Wb T H lm lx Bq Gy Sv bar b eV Wh Ah Whr Ahr l L "
    u"t "
    u"B bit Bd var VAr VA varh "
    u"VAh dB dBm cal Nm O M eq ppm pt ";

// Symbols and names that don't.
constexpr std::u16string_view Whole =
    u" % ‰ ° ℃ ℉ °C °F °K deg degC degF degK Deg DegC mph kn kt knots ft in inch inches yd mi psi PSI atm "
    u"torr "
    u"Torr mmHg inHg mmH2O hp HP PS rpm RPM "
    u"U/min 1/min min h d a hr hrs sec year yr day days ppm ppb pH rad rev imp Imp counts cnt Count psia "
    u"psig lbs lb oz gal gpm cfm bpm fps "
    u"BTU Btu kWhr mAhr pct percent Percent Vol% vol% %RH RH% rH %rH %rF NTU FNU FTU mS/cm cP cSt digits hex "
    u"bool cells cell "
    u"Volt Volts volt volts Ampere Amperes Amp Amps amps amp Watt Watts watt watts Ohms ohms Kelvin Celsius "
    u"Celcius celsius "
    u"Fahrenheit Meter Meters Metre Metres metres meters Metres/Second Meters/Second Millibars millibars "
    u"Millibar mbar Pascal Newton Joule "
    u"Second Seconds second seconds Minute Minutes minutes Hour Hours hours Grad grad Prozent Stunden "
    u"Sekunden Minuten Tage "
    u"mAU VDC VAC ADC AAC feet foot bpm km/u "
    u"Liter liter litre litres gallons Gallons Degrees degrees Hertz Lux lux ";

constexpr std::u16string_view Prefixes = u"YZEPTGMkhdcmµμunpfa";

// The text without the exponent at its end: "cm2", "s^-1", "m³". A bare exponent is 2, 3 or 4: "C1" is a
// name.
std::u16string_view WithoutExponent(std::u16string_view text) {
    const std::size_t end = text.find_last_not_of(u"0123456789^-+²³¹⁻") + 1;
    const std::u16string_view exponent = text.substr(end);
    const bool isBare = !exponent.empty() && std::all_of(exponent.begin(), exponent.end(), IsDigit);
    if (isBare && exponent != u"2" && exponent != u"3" && exponent != u"4") return text;
    return text.substr(0, end);
}

// One factor: "mV", "cm2", "s^-1", "m³"; "100km" of l/100km.
bool IsFactor(std::u16string_view text) {
    for (const std::u16string_view power : {u"1000", u"100", u"10", u"E3", u"E6"}) {
        if (text.starts_with(power)) {
            text.remove_prefix(power.size());
            break;
        }
    }
    text = WithoutExponent(text);
    if (text.empty()) return false;
    if (IsListed(Whole, text) || IsListed(Symbols, text)) return true;
    if (text.starts_with(u"da") && IsListed(Symbols, text.substr(2))) return true;
    return Prefixes.find(text.front()) != Prefixes.npos && IsListed(Symbols, text.substr(1));
}

// One factor, all of whose letters were made small: "kpa" of "KPA".
bool IsLoweredFactor(std::u16string_view text) {
    static const std::u16string AllSymbols = Lowered(Symbols);
    static const std::u16string AllWhole = Lowered(Whole);
    static const std::u16string AllPrefixes = Lowered(Prefixes);
    text = WithoutExponent(text);
    if (text.empty()) return false;
    const bool hasPrefix = AllPrefixes.find(text.front()) != std::u16string::npos;
    return IsListed(AllWhole, text) || IsListed(AllSymbols, text) ||
           (hasPrefix && IsListed(AllSymbols, text.substr(1)));
}

// In brackets, a unit may be of other case, and words may be before or after it: "%rh", "Kj/m²", "hPa abs",
// "% sat", "mg/stroke", "$/mt".
bool IsUnitWithWords(std::u16string_view text) {
    if (text.starts_with(u"% ") || text.starts_with(u"$/") || text.starts_with(u"€/")) return true;
    if (EqualsIgnoreCase(text, u"%rh") || IsListed(u"millimetres millimeters centimetres centimeters", text))
        return true;
    if (text.starts_with(u"Kj/")) return IsUnit(text.substr(3));
    constexpr std::u16string_view Qualifiers = u"abs rel gauge dry wet DC AC rms RMS avg max min";
    if (const std::size_t blank = text.find(u' '); blank != text.npos) {
        if (IsUnit(text.substr(0, blank)) && IsListed(Qualifiers, text.substr(blank + 1))) return true;
    }
    const std::size_t stroke = text.find(u'/');
    if (stroke == text.npos || stroke == 0 || stroke + 1 == text.size()) return false;
    const std::u16string_view word = text.substr(stroke + 1);
    return IsUnit(text.substr(0, stroke)) && std::all_of(word.begin(), word.end(), IsLetter);
}

// Where the bracket that opens at `at` is closed, brackets of its kind inside; npos if it is not.
std::size_t ClosingOf(std::u16string_view name, std::size_t at, char16_t closing) {
    std::size_t depth = 0;
    for (std::size_t i = at; i < name.size(); ++i) {
        if (name[i] == name[at]) ++depth;
        if (name[i] == closing && --depth == 0) return i;
    }
    return name.npos;
}

// The last brackets that hold a unit; square ones hold nothing else. Angle brackets at the beginning hold a
// name.
std::u16string_view UnitInBrackets(std::u16string_view name) {
    constexpr std::u16string_view Openings = u"[({<";
    constexpr std::u16string_view Closings = u"])}>";
    for (std::size_t at = name.size(); at-- > 0;) {
        const std::size_t kind = Openings.find(name[at]);
        if (kind == Openings.npos || (at == 0 && name[at] == u'<')) continue;
        const std::size_t end = ClosingOf(name, at, Closings[kind]);
        if (end == name.npos) continue;
        // "(mol/(m2 s))"
        const std::size_t outer = at == 0 ? name.npos : name.rfind(name[at], at - 1);
        const std::size_t outerEnd = outer == name.npos ? name.npos : ClosingOf(name, outer, Closings[kind]);
        if (outerEnd != name.npos && outerEnd > end) continue;
        const std::u16string_view inner = TrimWhiteSpace(name.substr(at + 1, end - at - 1));
        constexpr std::size_t LongestInBrackets = 14;
        const bool isShort = inner.size() <= LongestInBrackets && !inner.empty() && !IsDigit(inner.front());
        if (IsUnit(inner) || (isShort && (name[at] == u'[' || IsUnitWithWords(inner)))) return inner;
    }
    return {};
}

// True for a unit of one letter that is rather a name after a bare stroke or low line: "Mode/A", "Phase_C".
bool MayBeName(std::u16string_view unit, std::u16string_view before) {
    constexpr std::u16string_view SureLetters = u"%VWKΩshmgJN°";
    constexpr std::size_t LongestSymbol = 3;  // "I/A" is a current
    return unit.size() == 1 && SureLetters.find(unit[0]) == SureLetters.npos && before.size() > LongestSymbol;
}

// "time/s", "Test time/min": a stroke after another name makes a rate.
bool IsTimeWord(std::u16string_view name) {
    const std::u16string low = Lowered(name);
    constexpr std::u16string_view Parts[] = {u"time", u"zeit", u"temps", u"tiempo", u"tempo", u"elapsed"};
    return low == u"t" || std::any_of(std::begin(Parts), std::end(Parts),
                                      [&](auto part) { return low.find(part) != low.npos; });
}

// "Ewe/V", "Total cells/mL".
std::u16string_view UnitAfterStroke(std::u16string_view name) {
    const std::size_t stroke = name.rfind(u'/');
    if (stroke == name.npos || stroke == 0) return {};
    // A bracket belongs to one side, and a name has a letter.
    const std::size_t bracket = name.find_last_of(u"([{");
    if (bracket != name.npos && bracket < stroke && name.find_first_of(u")]}", bracket) > stroke) return {};
    if (std::none_of(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(stroke), IsLetter)) return {};
    const std::size_t word = name.find_last_of(u" _", stroke) + 1;
    if (word != 0 && word < stroke && IsUnit(name.substr(word)) && IsUnit(name.substr(word, stroke - word)))
        return name.substr(word);
    const std::u16string_view unit = TrimWhiteSpace(name.substr(stroke + 1));
    // "Bytes/sec" and "kWh/d" are units themselves, "NO3/N" and "E/W" two symbols.
    const bool isTime = IsListed(u"s sec h hr min d day", unit);
    const bool isSymbols = IsListed(u"N W E S", unit);
    if (isTime && !IsTimeWord(name.substr(0, stroke))) return {};
    if (isSymbols && !IsListed(u"F P Q", name.substr(0, stroke))) return {};
    return IsUnit(unit) && !MayBeName(unit, name.substr(0, stroke)) ? unit : std::u16string_view();
}

// "temp_min" is the lowest, "tz_cd" a code.
bool IsOtherThanUnit(std::u16string_view word) {
    return IsListed(u"min max in t dt cd N F T", word);
}

// "Gas m3", "altitude_m": a last word that is no word of a language.
std::u16string_view UnitInLastWord(std::u16string_view name) {
    const std::size_t mark = name.find_last_of(u" _");
    if (mark == name.npos || mark == 0) return {};
    const std::u16string_view unit = name.substr(mark + 1);
    const bool isAfterLine = name[mark] == u'_';
    const bool isWord = unit.size() > 1 && std::all_of(unit.begin(), unit.end(),
                                                       [](char16_t c) { return c >= u'a' && c <= u'z'; });
    if (!IsUnit(unit) || (!isAfterLine && (isWord || unit.size() == 1))) return {};
    if (IsOtherThanUnit(unit)) return {};
    const bool isTemperature = unit == u"C" && Lowered(name).find(u"temp") != name.npos;
    return isTemperature || !MayBeName(unit, name.substr(0, mark)) ? unit : std::u16string_view();
}
}  // namespace

bool IsUnit(std::u16string_view text) {
    constexpr std::size_t Longest = 16;
    text = TrimWhiteSpace(text);
    if (text.empty() || text.size() > Longest) return false;
    if (IsListed(Whole, text)) return true;
    if (text.starts_with(u"deg ") || text.starts_with(u"Deg ") || text.starts_with(u"Grad ") ||
        text.starts_with(u"° "))
        return text.size() <= 6;
    bool any = false;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find_first_of(u"/*·.⋅ ", at), text.size());
        std::u16string_view factor = text.substr(at, end - at);
        if (factor.starts_with(u'(')) factor.remove_prefix(1);
        if (factor.ends_with(u')')) factor.remove_suffix(1);
        const bool isOne = factor.empty() || factor == u"1" || factor == u"100";
        if (!isOne && !IsFactor(factor)) return false;
        any |= !isOne;
        at = end + 1;
    }
    return any;
}

std::u16string UnitInName(std::u16string_view name) {
    name = TrimWhiteSpace(name);
    if (const std::u16string_view unit = UnitInBrackets(name); !unit.empty()) return std::u16string(unit);
    for (const std::u16string_view mark : {u" / ", u" in ", u", "}) {
        for (std::size_t at = name.find(mark); at != name.npos && at != 0; at = name.find(mark, at + 1)) {
            // "Temp, °C (cellar)"
            std::u16string_view rest = name.substr(at + mark.size());
            rest = TrimWhiteSpace(rest.substr(0, rest.find(u" (")));
            if (IsUnit(rest)) return std::u16string(rest);
        }
    }
    if (const std::u16string_view unit = UnitAfterStroke(name); !unit.empty()) return std::u16string(unit);
    return std::u16string(UnitInLastWord(name));
}

std::u16string_view MaybeUnitInName(std::u16string_view name) {
    name = TrimWhiteSpace(name);
    const std::size_t blank = name.rfind(u' ');
    if (blank == name.npos) return {};
    const std::u16string_view unit = name.substr(blank + 1);
    constexpr std::u16string_view Letters = u"%VAWKΩshmgJ°";
    const bool isLetter = unit.size() == 1 && Letters.find(unit[0]) == Letters.npos;
    // "Viable cells", "Relay bool" are names as they are.
    const bool isNoun = IsListed(u"cell cells count counts cnt digits hex bool", unit);
    return IsUnit(unit) && !IsOtherThanUnit(unit) && !isLetter && !isNoun ? unit : std::u16string_view();
}

bool IsUnitInCapitals(std::u16string_view text) {
    // Nothing but these stands for a unit only beside others: "IN WC", "FT H2O", "% RH".
    constexpr std::u16string_view Others = u" wc h2o hg rh lpm lbs ton tons gpm kph ";
    text = TrimWhiteSpace(text);
    const bool isInCapitals =
        std::none_of(text.begin(), text.end(), [](char16_t c) { return c >= u'a' && c <= u'z'; });
    if (text.empty() || !isInCapitals) return false;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find_first_of(u" /.", at), text.size());
        const std::u16string part = Lowered(text.substr(at, end - at));
        if (!part.empty() && !IsListed(Others, part) && !IsLoweredFactor(part)) return false;
        at = end + 1;
    }
    return true;
}
}  // namespace kelvarin::plan
