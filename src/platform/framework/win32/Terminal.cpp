#include "platform/framework/Terminal.h"

#include <fcntl.h>
#include <io.h>

#include <atomic>
#include <cstdio>

#include "platform/framework/Path.h"
#include "platform/framework/StandardStreams.h"
#include "platform/framework/win32/Api.h"

namespace {

std::atomic<bool> interrupted{false};
std::atomic<bool> stays_caught{false};

// Runs on a thread of the system's. False passes a second Ctrl-C on, which ends the program.
BOOL WINAPI RememberInterrupt(DWORD event) {
    const bool isCaught = event == CTRL_C_EVENT && (!interrupted.exchange(true) || stays_caught);
    return isCaught ? TRUE : FALSE;
}

}  // namespace

// The arguments of main come in the system's code page, which can't write every file name.
std::vector<std::string> BeginProgram(int, char**) {
    OpenStandardStreams();
    SetConsoleOutputCP(CP_UTF8);
    for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
        DWORD mode = 0;
        const HANDLE console = GetStdHandle(stream);
        if (GetConsoleMode(console, &mode))
            SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
    for (std::FILE* const stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** const texts = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) arguments.push_back(PathToNative(FromW(texts[i])));
    LocalFree(texts);
    return arguments;
}

bool IsOutputTerminal() {
    return _isatty(_fileno(stdout)) != 0;
}

std::size_t OutputWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)) return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

bool IsErrorTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

void CatchInterrupt(bool staysCaught) {
    stays_caught = staysCaught;
    SetConsoleCtrlHandler(RememberInterrupt, TRUE);
}

bool WasInterrupted() {
    return interrupted;
}

const std::atomic<bool>& InterruptFlag() {
    return interrupted;
}
