#include "program/ProgramRun.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

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
    ProgramResult result;
    FILE* const pipe = popen((CommandLine(arguments) + " 2>" + Quoted(errors)).c_str(), "r");
    if (pipe == nullptr) return result;
    char block[4096];
    while (const std::size_t count = fread(block, 1, sizeof block, pipe)) result.Out.append(block, count);
    const int status = pclose(pipe);
    result.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    result.Err = Folder.Read("stderr.txt");
    std::remove(errors.c_str());
    return result;
}
