#include "kit/DialogScenarios.h"

#include "program/ProgramRun.h"

namespace {

constexpr const char* German =
    "Kopf\nDatum;Uhrzeit;n;v;x\n01.02.2024;10:00:00;5;1,5;a\n01.02.2024;10:00:01;6;2,5;b\n";
constexpr const char* Seconds = "t;v\n0,5;1\n1,5;2\n";

}  // namespace

std::vector<DialogScenario> DialogScenarios() {
    return {
        {"the format is detected, shown and locked", German,
         "?/controls/1022/checked true\n?/controls/1005/checked true\n?/controls/1005/enabled false\n"
         "?/controls/1025/text \"2\"\n?/focus 1022\n?/preview/rows/1/2 \"6\"\n?/preview/columns/0/tinted "
         "true\n"
         "?/preview/columns/1/tinted false\n?/signals null\n?/controls/1052/text \"(Formatangabe passt "
         "nicht)\"\n"},
        {"another separator and back", German,
         "click 1022\n?/controls/1005/enabled true\nclick 1004\n?/preview/columns/1 absent\nclick 1005\n"
         "?/preview/columns/4/heading \"x\"\nclick 1022\n?/controls/1005/enabled false\n"},
        {"date and time columns give the first timestamp", German,
         "type 1015 2\nleave\n?/controls/1020/items/1 \"TT.MM.JJJJ; hh:mm:ss,000\"\nselect 1020 1\n"
         "?/controls/1052/text \"" +
             ShownTime(2024, 2, 1, 10, 0, 0) +
             ".000000000\"\n?/preview/columns/1/heading \"Uhrzeit\"\n"
             "?/settings/TimestampFormat \"TT.MM.JJJJ; hh:mm:ss,000\"\n"},
        {"the time column first puts the time first", German,
         "type 1014 2\nleave\n?/controls/1020/items/0 \"hhmmss; TT.MM.JJJJ\"\n"},
        {"a number is free while it is typed", German,
         "type 1014 1000\n?/messages []\n?/settings/DateColumn 1000\nleave\n"
         "?/messages/0 \"Geben Sie eine ganze Zahl zwischen 1 und 999 ein.\"\n?/focus 1014\n"},
        {"an emptied line number skips no line", German,
         "click 1022\ntype 1025 \n?/settings/FirstLine -1\n?/controls/1025/text "
         "\"\"\n?/preview/columns/0/heading \"Datum / Uhrzeit\"\nleave\n"
         "?/messages/0 \"Geben Sie eine ganze Zahl zwischen 1 und 999 ein.\"\n"},
        {"a fixed interval takes the date from no column", German,
         "click 1045\n?/controls/1059/checked true\n?/controls/1060/enabled false\n?/controls/1018/enabled "
         "true\n"
         "?/controls/1020/enabled false\ntype 1018 0\nleave\n"
         "?/messages/0 \"Geben Sie eine Zahl zwischen 0.001 und 1000000 ein.\"\n?/focus 1018\n"},
        {"elapsed time is shown as a span", Seconds,
         "click 1058\ntype 1020 [s],000\n?/controls/1052/text \"0:00:00.500000000\"\n?/controls/1014/enabled "
         "false\n"
         "click 1050\ntime 1031 01:00:00\nselect 1063 2\n?/controls/1052/text \"-0:59:59.500000000\"\n"},
        {"the Unix start date", Seconds,
         "click 1059\n?/controls/1064/enabled true\nclick 1064\n?/settings/StartDate "
         "0\n?/controls/1040/value \"1970-01-01 01:00:00\"\n"
         "type 1020 [s],000\n?/controls/1052/text \"" +
             ShownTime(1970, 1, 1, 1, 0, 0) +
             ".500000000\"\n"
             "date 1040 1960-05-05\n?/settings/StartDate 0\n?/controls/1040/value \"1970-01-01 01:00:00\"\n"},
        {"signals are named, typed and unticked", German,
         "page 1\n?/messages/0 \"Geben Sie eine gültige Formatangabe ein.\"\n?/page 0\ntype 1020 x\npage "
         "1\n?/page 1\n"
         "name 0 Zeit\ncheck 1\ndatatype 2 fließkommaz\n?/signals/0/name \"Zeit\"\n?/signals/1/checked "
         "false\n"
         "?/signals/2/type \"Fließkommazahl\"\nname 0  \n?/signals/0/name \"Uhrzeit\"\nclick "
         "1039\n?/signals/1/checked true\n"},
        {"no signal at all is refused at OK",
         German,
         "page 1\ncheck 0\ncheck 1\ncheck 2\nok\n?/messages/0 \"Mindestens ein Signal muss zum "
         "Import ausgewählt sein.\"\n"
         "?/page 1\ncheck 1\nok\n?/result 1\n",
         {"--set", "TimestampFormat=x", "--set", "DateColumn=2"}},
        {"a column beyond the file is refused",
         German,
         "type 1015 9\nok\n?/messages/0 \"Geben Sie eine gültige Spaltennummer zwischen 1 und 5 "
         "ein.\"\n?/focus 1015\n",
         {"--set", "TimestampFormat=x"}},
        {"an own separator must be there",
         German,
         "click 1022\nclick 1010\nok\n?/messages/0 \"Legen Sie ein Trennzeichen fest.\"\ntype 1051 "
         ";;\n?/controls/1051/text \";\"\nok\n?/result 1\n",
         {"--set", "TimestampFormat=x"}},
        {"a column keeps the width that the user gave it", German,
         "width 2 33\nclick 1022\n?/preview/columns/2/width 33\n"},
        {"a refused edit takes the focus back, and the step is lost", German,
         "type 1014 1000\npage 1\n?/page 0\n?/focus 1014\ntype 1014 2147483648\n?/settings/DateColumn "
         "2147483647\n"
         "type 1014 1\nclick 1050\n?/settings/Adjust 1\n"},
        {"an interval out of bounds is told, and again as its edit is disabled with the focus in it",
         German,
         "?/messages [\"Geben Sie eine Zahl zwischen 0.001 und 1000000 ein.\",\"Geben Sie eine Zahl zwischen "
         "0.001 und 1000000 ein.\"]\n?/focus 1022\n",
         {"--set", "IntervalValue=inf"}},
        {"Cancel takes everything back",
         German,
         "click 1022\nclick 1004\nclick 1045\nclick 1065\nclick 1009\nwidth 0 7\n?/settings/Separator "
         "1\ncancel\n?/result 2\n",
         {"--set", "StartDate=5", "--set", "AdjustTime=6"}},
    };
}
