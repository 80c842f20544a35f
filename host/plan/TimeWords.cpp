#include "host/plan/TimeWords.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>

#include "host/plan/Durations.h"
#include "host/plan/WordList.h"

namespace kelvarin::plan {
namespace {
// By month. English, German, French, Italian, Spanish, Portuguese, Dutch, Danish and Norwegian, Swedish,
// Finnish, Polish, Czech, Hungarian, Romanian, Croatian; names, the form in a date where it differs, and
// abbreviations.
constexpr std::u16string_view Months[] = {
    u"january jan jänner januar jän janvier janv gennaio gen enero ene janeiro januari tammikuu tammikuuta "
    u"tammi styczeń stycznia sty "
    u"leden ledna led január ianuarie ian siječanj siječnja sij",
    u"february feb februar febr feber février févr fév febbraio febrero fevereiro fev februari helmikuu "
    u"helmikuuta helmi luty "
    u"lutego lut únor února úno február februarie veljača veljače velj",
    u"march mar märz mrz mär mars marzo março maart mrt marts maaliskuu maaliskuuta maalis marzec marca "
    u"březen března bře "
    u"március márc martie ožujak ožujka ožu",
    u"april apr avril avr aprile abril abr huhtikuu huhtikuuta huhti kwiecień kwietnia kwi duben dubna dub "
    u"április ápr "
    u"aprilie travanj travnja tra",
    u"may mai maggio mag mayo maio mei maj toukokuu toukokuuta touko maja květen května kvě május máj mayıs "
    u"svibanj svibnja svi",
    u"june jun juni juin giugno giu junio junho juni kesäkuu kesäkuuta kesä czerwiec czerwca cze červen "
    u"června čvn június jún "
    u"iunie iun lipanj lipnja lip",
    u"july jul juli juillet juil luglio lug julio julho heinäkuu heinäkuuta heinä lipiec lipca lipi červenec "
    u"července čvc július júl "
    u"iulie iul srpanj srpnja srpa",
    u"august aug août aoû agosto ago augustus augusti elokuu elokuuta elo sierpień sierpnia sie srpen srpna "
    u"srp augusztus "
    u"kolovoz kolovoza kol",
    u"september sep sept septembre settembre set septiembre setembro syyskuu syyskuuta syys wrzesień "
    u"września wrz září "
    u"zář szeptember szept septembrie rujan rujna ruj",
    u"october oct oktober okt octobre ottobre ott octubre outubro out lokakuu lokakuuta loka październik "
    u"października paź říjen "
    u"října říj október octombrie",
    u"november nov novembre noviembre novembro marraskuu marraskuuta marras listopad listopada lis listopadu "
    u"noiembrie noi",
    u"december dec dezember dez décembre déc dicembre dic diciembre dezembro joulukuu joulukuuta joulu "
    u"grudzień grudnia gru prosinec "
    u"prosince pro decembrie prosinac prosinca",
};

constexpr std::u16string_view DaysOfWeek =
    u"monday tuesday wednesday thursday friday saturday sunday mon tue tues wed thu thur thurs fri sat sun "
    u"montag dienstag mittwoch "
    u"donnerstag freitag samstag sonnabend sonntag mo di mi do fr sa so lundi mardi mercredi jeudi vendredi "
    u"samedi dimanche lun mer jeu ven "
    u"sam dim lunedì martedì mercoledì giovedì venerdì sabato domenica gio sab dom lunes martes miércoles "
    u"jueves viernes sábado domingo mié "
    u"jue vie sáb maandag dinsdag woensdag donderdag vrijdag zaterdag zondag ma wo vr za zo måndag tisdag "
    u"onsdag torsdag fredag lördag söndag "
    u"mån tis ons tor fre lör sön";

struct Zone {
    std::u16string_view Name;
    int Minutes;
};

constexpr Zone Zones[] = {
    {u"utc", 0},    {u"gmt", 0},    {u"z", 0},      {u"wet", 0},    {u"west", 60},  {u"bst", 60},
    {u"cet", 60},   {u"mez", 60},   {u"cest", 120}, {u"mesz", 120}, {u"eet", 120},  {u"eest", 180},
    {u"msk", 180},  {u"est", -300}, {u"edt", -240}, {u"cst", -360}, {u"cdt", -300}, {u"mst", -420},
    {u"mdt", -360}, {u"pst", -480}, {u"pdt", -420}, {u"jst", 540},
};

struct Unit {
    std::u16string_view Names;
    std::int64_t Nanoseconds;
};

constexpr Unit Units[] = {
    {u"d day days tag tage tagen jour jours giorni días dag dagar dage", 86'400'000'000'000},
    {u"h hr hrs hour hours std stunde stunden heure heures ore horas uur", 3'600'000'000'000},
    {u"min mins minute minutes minuten m minuti minutos", 60'000'000'000},
    {u"s sec secs second seconds sek sekunde sekunden secondes secondi segundos", 1'000'000'000},
    {u"ms msec msecs millisecond milliseconds millisekunden", 1'000'000},
    {u"us usec usecs µs μs microsecond microseconds mikrosekunden", 1'000},
    {u"ns nsec nanosecond nanoseconds nanosekunden", 1},
};
using WordNumbers = std::unordered_map<std::u16string_view, std::int64_t>;

void AddWords(std::u16string_view list, std::int64_t number, WordNumbers& numbers) {
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t end = std::min(list.find(u' ', at), list.size());
        numbers.emplace(list.substr(at, end - at), number);
        at = end + 1;
    }
}

// The number of a word without regard to case; 0 for any other.
std::int64_t NumberOf(const WordNumbers& numbers, std::u16string_view word) {
    const auto found = numbers.find(Lowered(word));
    return found == numbers.end() ? 0 : found->second;
}

WordNumbers MonthNumbers() {
    WordNumbers numbers;
    std::int64_t month = 0;
    for (const std::u16string_view names : Months) AddWords(names, ++month, numbers);
    return numbers;
}

WordNumbers UnitLengths() {
    WordNumbers lengths;
    for (const Unit& unit : Units) AddWords(unit.Names, unit.Nanoseconds, lengths);
    return lengths;
}

WordNumbers NamesOfDays() {
    WordNumbers names;
    AddWords(DaysOfWeek, 1, names);
    return names;
}
}  // namespace

int MonthOfName(std::u16string_view word) {
    static const WordNumbers numbers = MonthNumbers();
    return static_cast<int>(NumberOf(numbers, word));
}

bool IsDayOfWeek(std::u16string_view word) {
    static const WordNumbers names = NamesOfDays();
    return NumberOf(names, word) != 0;
}

std::optional<int> ZoneOfName(std::u16string_view word) {
    const std::u16string low = Lowered(word);
    for (const Zone& zone : Zones) {
        if (zone.Name == low) return zone.Minutes;
    }
    return std::nullopt;
}

std::int64_t UnitOfTime(std::u16string_view word) {
    static const WordNumbers lengths = UnitLengths();
    return NumberOf(lengths, word);
}
}  // namespace kelvarin::plan
