// What scripts read: the JSON documents as a whole.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

TEST(Json, ImportDocumentHoldsEverySampleTypeAndMessage) {
    const ProgramRun run;
    run.Write("all.csv",
              "t;flag;n;v;hex;letter;text;u\n"
              "0;1;10;1,5;0x1A;x;\xFC;1 V\n"
              "1;0;11;x;0xFF;y;;2 V\n"
              "1;0;12;1;0xFF;z;;3 V\n");
    const ProgramResult result =
        run({"import", "--no-guess", "--json", "--samples", "all", "--set", "DateSetting=2", "--set",
             "TimestampFormat=[s],000", "--base-time", "1000", "all.csv"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(
        result.Out,
        R"({"file":"all.csv","begun":true,"lines":3,"device":{"name":"all.csv","description":"Textdatei mit Trennzeichen"},"signals":[)"
        R"({"name":"Spalte 2","symbol":"flag","unit":"","type":0,"size":1,"metadata":[],"count":2,"samples":[[1000, true],[1000001000, false]]},)"
        R"({"name":"Spalte 3","symbol":"n","unit":"","type":15,"size":8,"metadata":[],"count":2,"samples":[[1000, 10],[1000001000, 11]]},)"
        R"({"name":"Spalte 4","symbol":"v","unit":"","type":22,"size":4294967295,"metadata":[],"count":2,"samples":[[1000, "1,5"],[1000001000, "x"]]},)"
        R"({"name":"Spalte 5","symbol":"hex","unit":"","type":15,"size":8,"metadata":["<GuiSignal DirBlockId=\"4\"><Plugin id=\"1\"><Hex>1</Hex></Plugin></GuiSignal>"],"count":2,"samples":[[1000, 26],[1000001000, 255]]},)"
        R"({"name":"Spalte 6","symbol":"letter","unit":"","type":19,"size":2,"metadata":[],"count":2,"samples":[[1000, 120],[1000001000, 121]]},)"
        R"({"name":"Spalte 7","symbol":"text","unit":"","type":22,"size":4294967295,"metadata":[],"count":2,"samples":[[1000, "ü"],[1000001000, ""]]},)"
        R"({"name":"Spalte 8","symbol":"u","unit":" V","type":15,"size":8,"metadata":[],"count":2,"samples":[[1000, 1],[1000001000, 2]]}],)"
        R"("messages":[{"failure":false,"column":-1,"text":"Für den Datensatz in Zeile 4 konnte kein gültiger Zeitstempel importiert bzw. generiert werden."}],"progress":[]})"
        "\n");
}

TEST(Json, SamplesAreLimitedAndLeftOutUnlessAskedFor) {
    const ProgramRun run;
    std::string file = "n\n";
    for (int i = 0; i < 300; ++i) file += std::to_string(i) + "\n";
    run.Write("n.csv", file);
    const std::string common = "--json --set TimeSetting=1 --set DateSetting=2 --set AutoFormat=0 n.csv";
    const Json two = Json::parse(run.Command(common + " --samples 2").Out);
    EXPECT_EQ(two["signals"][0]["samples"].dump(), "[[315529200000000000,0],[315529201000000000,1]]");
    EXPECT_EQ(two["signals"][0]["count"], 300);
    EXPECT_EQ(two["progress"].dump(), "[26,63,99]") << "percentages at lines 100, 200 and 300";
    const Json none = Json::parse(run.Command(common).Out);
    EXPECT_FALSE(none["signals"][0].contains("samples"));
}

struct MessagesCase {
    std::string Options;
    std::size_t Listed;
    int LeftOut;  // -1: the key is absent
};

TEST(Json, MessagesAreLimitedAndTheRestCounted) {
    const ProgramRun run;
    // The same time again and again: every row but the first is dropped with a message.
    const auto file = [](int dropped) {
        std::string text = "t;v\n2024-02-01;1\n";
        for (int i = 0; i < dropped; ++i) text += "2024-02-01;2\n";
        return text;
    };
    run.Write("none.csv", file(0));
    run.Write("five.csv", file(5));
    run.Write("many.csv", file(10'001));
    const MessagesCase cases[] = {
        {"five.csv", 5, -1},
        {"--messages 0 five.csv", 0, 5},
        {"--messages=4 five.csv", 4, 1},
        {"--messages 0 none.csv", 0, -1},
        {"many.csv", 10'000, 1},
        {"--messages all many.csv", 10'001, -1},
    };
    for (const MessagesCase& c : cases) {
        SCOPED_TRACE(c.Options);
        const Json document =
            Json::parse(run.Command("--json --set TimestampFormat=JJJJ-MM-TT " + c.Options).Out);
        ASSERT_EQ(document["messages"].size(), c.Listed);
        EXPECT_EQ(document.value("messagesLeftOut", -1), c.LeftOut);
        // The first ones are kept, and they begin with line 3.
        const std::string first = c.Listed == 0 ? " 3 " : document["messages"][0]["text"].get<std::string>();
        EXPECT_NE(first.find(" 3 "), std::string::npos) << first;
    }
}

TEST(Json, MessagesAreLimitedInEveryProcess) {
    const ProgramRun run;
    const std::string file = "t;v\n2024-02-01;1\n2024-02-01;2\n2024-02-01;3\n";
    for (const char* const name : {"a.csv", "b.csv", "c.csv"}) run.Write(name, file);
    const std::string import = "--json --set TimestampFormat=JJJJ-MM-TT --messages 1 a.csv b.csv c.csv";
    const ProgramResult alone = run.Command(import);
    EXPECT_EQ(run.Command(import + " --jobs 2").Out, alone.Out);
    EXPECT_NE(alone.Out.find("\"messagesLeftOut\":1,"), std::string::npos) << alone.Out;
}

TEST(Json, AnalyzeDocumentHoldsEveryField) {
    const ProgramRun run;
    run.Write("a.csv", "preamble\nt;v\n0,5;1 V\n1,5;2 V\n");
    const ProgramResult result = run.Command(
        "analyze --json --set IntervalValue=inf --set OtherSeparator=| --set DateSetting=9 a.csv "
        "--set StartDate=1700000000 --set AdjustTime=-5");
    EXPECT_EQ(result.Status, 0) << result.Err;
    Json document = Json::parse(result.Out);
    EXPECT_EQ(document["settings"]["Description"].get<std::string>().substr(0, 14), "Importiert am ");
    document["settings"].erase("Description");
    EXPECT_EQ(
        document.dump(),
        R"({"file":"a.csv","analyzed":true,"settings":{"AutoFormat":1,"Separator":0,"DetectedSeparator":0,"OtherSeparator":"|",)"
        R"("MergeSeparators":0,"FirstLine":2,"DetectedFirstLine":2,"ImportHeader":1,"DetectedHeader":1,"DateSetting":2,"DateColumn":1,)"
        R"("StartDate":1700000000,"TimeSetting":0,"TimeColumn":1,"IntervalValue":"Infinity","IntervalUnit":2,"Adjust":0,"AdjustTime":-5,)"
        R"("AdjustMode":0,"TimestampFormat":"","SaveSidecarFile":0,"ColumnCount":2},"columns":[)"
        R"({"index":0,"ImportColumn":true,"DetectedName":"Uhrzeit","UserName":"","Unit":"","DetectedType":5,"UserType":0,"PreviewWidth":-1},)"
        R"({"index":1,"ImportColumn":true,"DetectedName":"v","UserName":"","Unit":" V","DetectedType":3,"UserType":0,"PreviewWidth":-1}],)"
        R"("sidecarWarning":""})");
}

TEST(Json, AFailedFileStillGetsItsDocument) {
    const ProgramRun run;
    run.Write("empty.csv", "");
    const ProgramResult result = run({"--json", "missing.csv", "empty.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(
        result.Out,
        R"({"file":"missing.csv","begun":false,"lines":0,"device":null,"signals":[],"messages":[{"failure":true,"column":-1,"text":"Beim Lesen aus der Quelldatei ist ein Fehler aufgetreten."}],"progress":[]})"
        "\n"
        R"({"file":"empty.csv","begun":false,"lines":0,"device":null,"signals":[],"messages":[{"failure":true,"column":-1,"text":"Die Quelldatei ist keine gültige CSV-Datei entsprechend den eingestellten Formatvorgaben."}],"progress":[]})"
        "\n");
}

}  // namespace
