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
    u" % ‰ ° °C °F °K deg degC degF degK Deg DegC mph kn kt knots ft in inch inches yd mi psi PSI atm torr "
    u"Torr mmHg inHg mmH2O hp HP PS rpm RPM "
    u"U/min 1/min min h d a hr hrs sec year yr day days ppm ppb pH rad rev imp Imp counts cnt Count psia "
    u"psig lbs lb oz gal gpm cfm bpm fps "
    u"BTU Btu kWhr mAhr pct percent Percent Vol% vol% %RH RH% rH %rH NTU FNU FTU mS/cm cP cSt digits hex "
    u"bool cells cell "
    u"Volt Volts volt volts Ampere Amperes Amp Amps amps amp Watt Watts watt watts Ohms ohms Kelvin Celsius "
    u"Celcius celsius "
    u"Fahrenheit Meter Meters Metre Metres metres meters Metres/Second Meters/Second Millibars millibars "
    u"Millibar mbar Pascal Newton Joule "
    u"Second Seconds second seconds Minute Minutes minutes Hour Hours hours Grad grad Prozent Stunden "
    u"Sekunden Minuten Tage "
    u"Liter liter litre litres gallons Gallons Degrees degrees Hertz Lux lux ";

constexpr std::u16string_view Prefixes = u"YZEPTGMkhdcmµμunpfa";

// One factor: "mV", "cm2", "s^-1", "m³".
bool IsFactor(std::u16string_view text) {
    while (!text.empty() &&
           (IsDigit(text.back()) || std::u16string_view(u"^-+²³¹⁻").find(text.back()) != text.npos))
        text.remove_suffix(1);
    if (text.empty()) return false;
    if (IsListed(Whole, text) || IsListed(Symbols, text)) return true;
    if (text.starts_with(u"da") && IsListed(Symbols, text.substr(2))) return true;
    return Prefixes.find(text.front()) != Prefixes.npos && IsListed(Symbols, text.substr(1));
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
    constexpr std::u16string_view Openings = u"[({<";
    constexpr std::u16string_view Closings = u"])}>";
    // The last brackets that hold a unit; square ones hold nothing else.
    for (std::size_t at = name.size(); at-- > 0;) {
        const std::size_t kind = Openings.find(name[at]);
        if (kind == Openings.npos) continue;
        const std::size_t end = name.find(Closings[kind], at);
        if (end == name.npos) continue;
        const std::u16string_view inner = TrimWhiteSpace(name.substr(at + 1, end - at - 1));
        constexpr std::size_t LongestInBrackets = 14;
        const bool isWord = inner.size() <= LongestInBrackets && !inner.empty() && !IsDigit(inner.front());
        if (IsUnit(inner) || (name[at] == u'[' && isWord)) return std::u16string(inner);
    }
    for (const std::u16string_view mark : {u" / ", u" in ", u", ", u"/"}) {
        const std::size_t at = name.rfind(mark);
        if (at == name.npos || at == 0) continue;
        const std::u16string_view rest = TrimWhiteSpace(name.substr(at + mark.size()));
        // "Mode/A" and "Check in h": a lone letter after a bare stroke may be anything.
        if (IsUnit(rest) && (mark != u"/" || rest.size() > 1)) return std::u16string(rest);
    }
    return {};
}
}  // namespace kelvarin::plan
