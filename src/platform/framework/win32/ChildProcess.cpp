#include "platform/framework/ChildProcess.h"

#include <fcntl.h>
#include <io.h>

#include <array>

#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/framework/win32/Api.h"

namespace {

// Gone as soon as its last handle is closed.
std::FILE* OpenPassingFile() {
    std::array<char16_t, MAX_PATH + 1> folder{};
    std::array<char16_t, MAX_PATH + 1> path{};
    if (GetTempPathW(MAX_PATH, W(folder.data())) == 0) return nullptr;
    if (GetTempFileNameW(W(folder.data()), L"kel", 0, W(path.data())) == 0) return nullptr;
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const HANDLE handle =
        CreateFileW(W(path.data()), GENERIC_READ | GENERIC_WRITE | DELETE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited, CREATE_ALWAYS,
                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    return _fdopen(_open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_RDWR | _O_BINARY), "w+b");
}

HANDLE HandleOf(std::FILE* file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
}

// The rules by which a program takes its command line apart: a backslash counts only before a quote.
std::u16string Quoted(const std::u16string& argument) {
    std::u16string quoted = u"\"";
    std::size_t backslashes = 0;
    for (const char16_t c : argument) {
        if (c == u'"') quoted.append(backslashes + 1, u'\\');
        backslashes = c == u'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    quoted.append(backslashes, u'\\');
    return quoted + u"\"";
}

// Holds all copies. It is closed with this process, and ends them then.
HANDLE JobOfCopies() {
    static const HANDLE job = [] {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        const HANDLE made = CreateJobObjectW(nullptr, nullptr);
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return job;
}

std::string LastReason() {
    CFileException reason(false);
    reason.OsError = static_cast<long>(GetLastError());
    return Utf16ToUtf8(DescribeFileError(reason));
}

}  // namespace

ChildProcess::~ChildProcess() {
    if (Process != nullptr) {
        TerminateProcess(Process, 1);
        WaitForSingleObject(Process, INFINITE);
        CloseHandle(Process);
    }
    for (std::FILE* const file : {Out, Err}) {
        if (file != nullptr) std::fclose(file);
    }
}

bool ChildProcess::Start(const std::vector<std::string>& arguments, std::string& reason) {
    Out = OpenPassingFile();
    Err = OpenPassingFile();
    if (Out == nullptr || Err == nullptr) {
        reason = LastReason();
        return false;
    }
    constexpr DWORD Longest = 32768;
    std::u16string program(Longest, u'\0');
    program.resize(GetModuleFileNameW(nullptr, W(program.data()), Longest));
    std::u16string line = Quoted(program);
    for (const std::string& argument : arguments) line += u" " + Quoted(PathFromNative(argument));

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = HandleOf(Out);
    start.hStdError = HandleOf(Err);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(W(program), W(line.data()), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr,
                       &start, &process) == 0) {
        reason = LastReason();
        return false;
    }
    AssignProcessToJobObject(JobOfCopies(), process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    Process = process.hProcess;
    return true;
}

bool ChildProcess::HasEnded() {
    if (Process == nullptr) return true;
    if (WaitForSingleObject(Process, 0) != WAIT_OBJECT_0) return false;
    DWORD status = 0;
    GetExitCodeProcess(Process, &status);
    ExitStatus = static_cast<int>(status);
    CloseHandle(Process);
    Process = nullptr;
    std::rewind(Out);
    std::rewind(Err);
    return true;
}

// A console tells Ctrl-C to all of its programs at once: the copy knows already.
void ChildProcess::Interrupt() {}
