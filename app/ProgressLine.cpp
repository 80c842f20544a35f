#include "app/ProgressLine.h"

#include <iostream>
#include <utility>

#include "platform/framework/Terminal.h"

ProgressLine::ProgressLine(std::string file) : File(std::move(file)), OnTerminal(IsErrorTerminal()) {}

ProgressLine::~ProgressLine() {
    if (Shown) std::cerr << "\r\033[K" << std::flush;
}

void ProgressLine::Show(std::uint32_t percent) {
    if (!OnTerminal) return;
    std::cerr << "\r\033[K" << File << "  " << percent << " %" << std::flush;
    Shown = true;
}
