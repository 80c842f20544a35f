// What others wrote reaches a terminal visible: no character of a file, a name or an option may act on it.
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "host/store/SampleFile.h"
#include "platform/framework/Text.h"
#include "platform/framework/VisibleText.h"
#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

struct Character {
    std::string Bytes;
    std::string Shown;
};

// All that may not be printed. Said anew here, since the program's own list is what is tested.
std::vector<Character> HostileCharacters() {
    std::vector<Character> all;
    const auto add = [&](char32_t point, const char* form) {
        char shown[16];
        std::snprintf(shown, sizeof shown, form, static_cast<unsigned>(point));
        std::string bytes;
        AppendUtf8(point, bytes);
        all.push_back({bytes, shown});
    };
    for (char32_t point = 1; point < 0x20; ++point) add(point, "\\x%02X");
    add(0x7F, "\\x%02X");
    for (char32_t point = 0x80; point < 0xA0; ++point) add(point, "\\u%04X");
    constexpr char32_t Others[] = {0x061C, 0x200E, 0x200F, 0x2028, 0x2029, 0x202A, 0x202B,
                                   0x202C, 0x202D, 0x202E, 0x2066, 0x2067, 0x2068, 0x2069};
    for (const char32_t point : Others) add(point, "\\u%04X");
    return all;
}

// All of them but those in `without`, in one text.
std::string Hostile(std::string_view without = {}) {
    std::string text;
    for (const Character& character : HostileCharacters()) {
        if (without.find(character.Bytes) == std::string_view::npos) text += character.Bytes;
    }
    return text;
}

// What no cell can hold, and what XML can't.
const std::string LineEnds = "\r\n";
std::string NotInXml() {
    std::string none;
    for (char c = 1; c < 0x20; ++c) none += c;
    return none;
}

// Empty, or the first thing in a text that a terminal would obey.
std::string FirstObeyed(const std::string& text) {
    for (const Character& character : HostileCharacters()) {
        if (character.Bytes != "\n" && text.find(character.Bytes) != std::string::npos)
            return character.Shown + " in: " + MakeVisible(text);
    }
    std::u16string ignored;
    return DecodeUtf8(text, ignored) ? std::string() : "no UTF-8: " + MakeVisible(text);
}

// Everything that a run prints, which must be harmless.
std::string PrintedBy(const ProgramRun& run, const std::vector<std::string>& arguments) {
    const ProgramResult result = run(arguments);
    EXPECT_LT(result.Status, 4);
    const std::string printed = result.Out + result.Err;
    EXPECT_NE(printed, "");
    EXPECT_EQ(FirstObeyed(printed), "");
    return printed;
}

constexpr const char* Data = "t;v\n01.02.2024 10:00:00;1,5\n01.02.2024 10:00:01;2\nbad;3\n";
constexpr const char* Format = "TimestampFormat=TT.MM.JJJJ hh:mm:ss";

TEST(HostilePrinting, HasOneFormForEachCharacter) {
    for (const Character& character : HostileCharacters())
        EXPECT_EQ(MakeVisible(character.Bytes), character.Shown);
    EXPECT_EQ(MakeVisible("a\\x1B µ\xC2\xA0\xE2\x80\x8D\xF0\x9F\x98\x80"),
              "a\\x1B µ\xC2\xA0\xE2\x80\x8D\xF0\x9F\x98\x80");
    EXPECT_EQ(MakeVisible(std::string("\0\xFF\xC2", 3)), "\\x00\\xFF\\xC2");
    EXPECT_EQ(MakeVisible(MakeVisible(Hostile())), MakeVisible(Hostile()));
}

TEST(HostilePrinting, ShowsNamesOfFiles) {
    const ProgramRun run;
    const std::string name = "n" + Hostile() + "\xFF.csv";
    const std::string shown = MakeVisible(name);
    run.Write(name, Data);
    const std::vector<std::string> commands[] = {
        {"import", "--set", Format, name},
        {"analyze", name},
        {"explain", name},
        {"check", "--set", Format, "--rejects", "r" + name, name},
        {"sidecar", name},
        {"sidecar", "--check", name + ".info"},
        {"sidecar", "apply", "--force", name + ".info", name, "missing" + name},
        {"sidecar", "diff", name + ".info", "missing" + name},
        {"verify", name, name},
        {"import", "missing" + name},
        {"check", "missing" + name},
        {"explain", "missing" + name},
        {"dialog", "--script", "missing" + name, name},
        {"check", "--jobs", "2", name, name}};
    for (const auto& command : commands) {
        SCOPED_TRACE(command[0] + " " + (command[1].starts_with("-") ? command[1] : ""));
        EXPECT_NE(PrintedBy(run, command).find(shown), std::string::npos) << "all of the name is there";
    }
}

TEST(HostilePrinting, ShowsHeadersUnitsAndCells) {
    const ProgramRun run;
    const std::string bad = Hostile(LineEnds + ";");
    const std::string shown = MakeVisible(bad);
    run.Write("a.csv", "t;n" + bad + " [u" + bad + "];w;x\n01.02.2024 10:00:00;1 u" + bad + ";" + bad +
                           ";1\n" + "01.02.2024 10:00:01;2 u" + bad + ";b" + bad + ";2\n" + bad +
                           "bad;3;c;3" + bad + "\n");
    // Read as Western the bytes 81 and 8D are control characters too.
    run.Write("western.csv", "t;n\x81\x8D\xFF\n01.02.2024 10:00:00;\x81x\x8D\nbad\x90;\x9D\n");
    for (const char* const file : {"a.csv", "western.csv"}) {
        const std::vector<std::string> commands[] = {
            {"import", "--set", Format, file},
            {"analyze", file},
            {"explain", file},
            {"check", "--set", Format, file},
            {"import", "--guess-time", file},
            {"check", "--set", "AutoFormat=0", "--set", "FirstLine=3", file},
            {"import", "--set", "AutoFormat=0", "--set", "FirstLine=2", "--set", Format, file}};
        for (const auto& command : commands) {
            SCOPED_TRACE(std::string(file) + " " + command[0] + " " + command[1]);
            PrintedBy(run, command);
        }
    }
    EXPECT_NE(run({"import", "--no-guess", "--set", Format, "a.csv"}).Out.find("n\\x01\\x02"),
              std::string::npos);
}

TEST(HostilePrinting, ShowsSidecars) {
    const ProgramRun run;
    const std::string bad = Hostile(NotInXml());
    const auto sidecar = [&](const std::string& revision, const std::string& separator,
                             const std::string& format) {
        return "<CSV-INFO format-rev=\"" + revision + "\"><START-LINE>1</START-LINE><SEPARATOR>" + separator +
               "</SEPARATOR><DELIMITER-DECIMAL-POINT>,</DELIMITER-DECIMAL-POINT><DELIMITER-MIL>.</"
               "DELIMITER-MIL>"
               "<TIMESTAMP-FORMAT>" +
               format + "</TIMESTAMP-FORMAT></CSV-INFO>";
    };
    for (const std::string& bytes : {sidecar("2", bad, "TT" + bad), sidecar(bad, ";", ""), "<" + bad + ">",
                                     "<CSV-INFO format-rev=\"2\" " + Hostile() + "=\"1\"/>"}) {
        run.Write("a.csv", Data);
        run.Write("a.csv.info", bytes);
        run.Write("b.csv", Data);
        run.Write("b.csv.info", sidecar("2", ";", "hh"));
        const std::vector<std::string> commands[] = {{"sidecar", "--check", "a.csv.info"},
                                                     {"sidecar", "diff", "a.csv.info", "b.csv.info"},
                                                     {"sidecar", "apply", "--force", "a.csv.info", "b.csv"},
                                                     {"import", "a.csv"},
                                                     {"analyze", "a.csv"},
                                                     {"explain", "a.csv"},
                                                     {"check", "--rejects", "r.csv", "a.csv"}};
        for (const auto& command : commands) {
            SCOPED_TRACE(MakeVisible(bytes).substr(0, 40) + " " + command[0] + " " + command[1]);
            PrintedBy(run, command);
        }
    }
}

TEST(HostilePrinting, ShowsProfilesAndOptions) {
    const ProgramRun run;
    const std::string bad = Hostile();
    run.Write("a.csv", Data);
    run.Write(
        "my.ini",
        "[CsvImport]\nAutoFormat=0\nSeparator=4\nOtherSeparator=\"\xE2\x80\xAE\"\nTimestampFormat=\"TT" +
            Hostile(LineEnds) + "\"\n");
    const std::vector<std::string> commands[] = {
        {"import", "--profile", "my.ini", "a.csv"},
        {"check", "--profile", "my.ini", "--rejects", "r.csv", "a.csv"},
        {"explain", "--profile", "my.ini", "a.csv"},
        {"analyze", "--profile", "my.ini", "a.csv"},
        {"import", "--set", "X" + bad + "=1", "a.csv"},
        {"import", "--set", bad, "a.csv"},
        {"import", "--set", "FirstLine=" + bad, "a.csv"},
        {"check", "--set", "TimestampFormat=TT" + bad, "a.csv"},
        {"import", "--samples", bad, "a.csv"},
        {"import", "--store", bad, "a.csv"},
        {"import", "--jobs", bad, "a.csv"},
        {"import", "--language", bad, "a.csv"},
        {"import", "--x" + bad, "a.csv"},
        {"completion", bad}};
    for (const auto& command : commands) {
        SCOPED_TRACE(command[0] + " " + MakeVisible(command[1]).substr(0, 20));
        PrintedBy(run, command);
    }
    run.Write("script", "click " + Hostile(LineEnds) + "\n");
    PrintedBy(run, {"dialog", "--script", "script", "a.csv"});
}

TEST(HostilePrinting, LeavesJsonAndStoresAsTheyAre) {
    const ProgramRun run;
    const std::string bad = Hostile(LineEnds + ";\t");
    run.Write("a.csv", "t;n" + bad + "x;w\n01.02.2024 10:00:00;1;" + bad + "x\n");
    const Json document = Json::parse(run({"--json", "--samples", "all", "--set", Format, "a.csv"}).Out);
    EXPECT_EQ(document["signals"][0]["symbol"], "n" + bad + "x");
    EXPECT_EQ(document["signals"][1]["samples"][0][1], bad + "x");
    if (!kelvarin::store::HasSampleFiles()) return;
    ASSERT_EQ(run({"--store", "a.h5", "--set", Format, "a.csv"}).Status, 0);
    EXPECT_EQ(run({"verify", "a.h5", "a.csv"}).Status, 0);
    run.Write("a.csv", "t;n" + bad + "x;w\n01.02.2024 10:00:00;2;" + bad + "x\n");
    EXPECT_NE(PrintedBy(run, {"verify", "a.h5", "a.csv"}).find("n\\x01\\x02"), std::string::npos);
    run.Write("b" + bad, Data);
    PrintedBy(run, {"verify", "a.h5", "b" + bad});
}

// What a run writes to a terminal, its colours and the clearing of the progress line left out.
std::string OnTerminal(const ProgramRun& run, const std::vector<std::string>& arguments) {
    int terminal = -1;
    const pid_t process = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process == 0) {
        unsetenv("NO_COLOR");
        setenv("TERM", "xterm", 1);
        const std::string command = run.CommandLine(arguments);
        execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        _exit(127);
    }
    std::string bytes;
    char block[4096];
    for (ssize_t count; (count = read(terminal, block, sizeof block)) > 0;)
        bytes.append(block, static_cast<std::size_t>(count));
    close(terminal);
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_NE(bytes.find("\033["), std::string::npos) << "it takes colours";
    // The terminal puts a carriage return before each line feed.
    return std::regex_replace(bytes, std::regex("\033\\[[0-9]*m|\r\033\\[K|\r(?=\n)"), "");
}

TEST(HostilePrinting, KeepsItsOwnColoursOnly) {
    const ProgramRun run;
    const std::string name = "n" + Hostile() + "\xFF.csv";
    std::string rows = "t;n" + Hostile(LineEnds) + "\n";
    // Enough of them for a percentage.
    for (int i = 0; i < 1'000; ++i) rows += "01.02.2024 10:00:00;1\n";
    run.Write(name, rows);
    for (const std::string command : {"import", "check", "explain", "analyze"}) {
        SCOPED_TRACE(command);
        const std::string printed = OnTerminal(run, {command, "--set", Format, name});
        EXPECT_EQ(FirstObeyed(printed), "");
        EXPECT_NE(printed.find("n\\x01\\x02\\x03"), std::string::npos) << printed;
        EXPECT_TRUE(command != "import" || printed.find(".csv  ") != std::string::npos) << "no progress line";
    }
    EXPECT_EQ(FirstObeyed(OnTerminal(run, {"import", "missing" + name})), "");
}

}  // namespace
