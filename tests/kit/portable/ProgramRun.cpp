#include "program/ProgramRun.h"

#include <cstdio>

#include "kit/Shell.h"

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}

}  // namespace

std::string ShownTime(int year, int month, int day, int hour, int minute, int second) {
    char text[64];
    std::snprintf(text, sizeof text, "%02d/%02d/%02d  %02d:%02d:%02d", month, day, year % 100, hour, minute,
                  second);
    return text;
}

std::string ProgramRun::CommandLine(const std::vector<std::string>& arguments) const {
    const std::string folder = Folder.NativePath("").string();
    std::string command = "cd " + Quoted(folder) + " && exec env LC_ALL=C 'TZ=CET-1CEST,M3.5.0,M10.5.0/3' ";
    command += "XDG_CONFIG_HOME=" + Quoted(folder + "/config") + " " + Quoted(KELVARIN_IMPORT);
    for (const std::string& argument : arguments) command += " " + Quoted(argument);
    return command;
}

ProgramResult ProgramRun::operator()(const std::vector<std::string>& arguments) const {
    const std::string errors = Folder.NativePath("stderr.txt").string();
    const ShellResult ended = RunShell(CommandLine(arguments) + " 2>" + Quoted(errors));
    const ProgramResult result{ended.Status, ended.Out, Folder.Read("stderr.txt")};
    std::remove(errors.c_str());
    return result;
}
