#include "program/ProgramRun.h"

#include <filesystem>
#include <fstream>

#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/framework/win32/Api.h"

namespace {

constexpr const char* ProfileName = "config/Brenholt/kelvarin.ini";

// As the program's start-up takes it apart again: backslashes count only before a quote.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    std::size_t slashes = 0;
    for (const char c : text) {
        if (c == '"') quoted.append(slashes + 1, '\\');
        slashes = c == '\\' ? slashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(slashes, '\\') + "\"";
}

// A file that takes one of the program's streams.
HANDLE OpenStream(const std::u16string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(W(path), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The profile that a run is given must be there. Without values it goes again with the run.
class EmptyProfile {
  public:
    explicit EmptyProfile(const Workdir& folder)
        : Top(folder.NativePath("config")), File(folder.NativePath(ProfileName)), IsMade(!exists(File)) {
        if (!IsMade) return;
        std::filesystem::create_directories(File.parent_path());
        std::ofstream(File).flush();
    }
    EmptyProfile(const EmptyProfile&) = delete;
    EmptyProfile& operator=(const EmptyProfile&) = delete;
    ~EmptyProfile() {
        std::error_code ignored;
        if (IsMade && file_size(File, ignored) == 0) std::filesystem::remove_all(Top, ignored);
    }

  private:
    const std::filesystem::path Top, File;
    const bool IsMade;
};

}  // namespace

std::string ShownTime(int year, int month, int day, int hour, int minute, int second) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = static_cast<WORD>(minute);
    time.wSecond = static_cast<WORD>(second);
    constexpr int Capacity = 128;
    char16_t date[Capacity] = {};
    char16_t daytime[Capacity] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, W(date), Capacity);
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, W(daytime), Capacity);
    return Utf16ToUtf8(std::u16string(date) + u"  " + daytime);
}

// The profile is a file of the folder, not the registry: where the same tests look for it elsewhere.
std::string ProgramRun::CommandLine(const std::vector<std::string>& arguments) const {
    std::string command = Quoted(KELVARIN_IMPORT);
    bool hasProfile = arguments.empty() || arguments.front().compare(0, 2, "--") == 0;
    for (const std::string& argument : arguments) {
        command += " " + Quoted(argument);
        for (const char* const option : {"--json", "--set", "--no-guess", "--save"})
            hasProfile = hasProfile && argument != option;
    }
    for (const std::string& argument : arguments) hasProfile = hasProfile || argument == "--profile";
    return hasProfile ? command : command + " --profile " + ProfileName;
}

ProgramResult ProgramRun::operator()(const std::vector<std::string>& arguments) const {
    const EmptyProfile profile(Folder);
    std::u16string command = PathFromNative(CommandLine(arguments));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = OpenStream(Folder.Path("stdout.txt"));
    start.hStdError = OpenStream(Folder.Path("stderr.txt"));
    PROCESS_INFORMATION process{};
    ProgramResult result;
    if (CreateProcessW(nullptr, W(command.data()), nullptr, nullptr, TRUE, 0, nullptr, W(Folder.Path("")),
                       &start, &process)) {
        DWORD status = 0;
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &status);
        result.Status = static_cast<int>(status);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    CloseHandle(start.hStdOutput);
    CloseHandle(start.hStdError);
    result.Out = Folder.Read("stdout.txt");
    result.Err = Folder.Read("stderr.txt");
    std::filesystem::remove(Folder.NativePath("stdout.txt"));
    std::filesystem::remove(Folder.NativePath("stderr.txt"));
    return result;
}
