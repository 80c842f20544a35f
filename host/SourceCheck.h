// Why a file gave no signals, as far as the host can tell by looking at it.
#pragma once

#include <string>

namespace kelvarin {

// One clause for people: the operating system's reason if the file can't be opened or read, that it is empty,
// or that it holds NUL bytes and so is hardly a text. Empty if nothing of that is so.
std::string WhyUnreadable(const std::u16string& path);

}  // namespace kelvarin
