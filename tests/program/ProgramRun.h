// Runs the program as a shell would.
#pragma once

#include <string>
#include <vector>

#include "kit/Workdir.h"

// What a run left behind.
struct ProgramResult {
    int Status = -1;
    std::string Out;
    std::string Err;
};

// The words of a command line, with blanks between them; what is in single quotes is part of one word.
inline std::vector<std::string> Words(const std::string& line) {
    std::vector<std::string> words;
    bool isInWord = false, isQuoted = false;
    for (const char c : line) {
        if (c == ' ' && !isQuoted) {
            isInWord = false;
            continue;
        }
        if (!isInWord) words.emplace_back();
        isInWord = true;
        if (c == '\'') {
            isQuoted = !isQuoted;
        } else {
            words.back() += c;
        }
    }
    return words;
}

// The lines of a report that are not indented: the names of the files. A bar is behind each.
inline std::string Headings(const std::string& report) {
    std::string names;
    for (std::size_t begin = 0, end = 0; begin < report.size(); begin = end + 1) {
        end = report.find('\n', begin);
        if (report[begin] != ' ') names += report.substr(begin, end - begin) + "|";
    }
    return names;
}

// A date and time of day as the runs show them, by the C locale or the user's settings on Windows.
std::string ShownTime(int year, int month, int day, int hour, int minute, int second);

// A folder with files, and runs of the program in it. The user's profile is empty, the zone is Central Europe
// and the locale is C, whatever the machine has.
class ProgramRun {
  public:
    // Runs the program with these arguments in the folder.
    ProgramResult operator()(const std::vector<std::string>& arguments) const;

    // The same of a command line.
    ProgramResult Command(const std::string& line) const { return (*this)(Words(line)); }

    // The command line that operator() hands to the shell.
    std::string CommandLine(const std::vector<std::string>& arguments) const;

    void Write(const std::string& name, const std::string& bytes) const { Folder.Write(name, bytes); }

    Workdir Folder;
};
