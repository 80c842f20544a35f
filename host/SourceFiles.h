// The files that a user names: found by folder or pattern, and looked at when they can't be imported.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "contract/ImportFilter.h"

namespace kelvarin {
struct FileList {
    std::vector<std::string> Files;  // in the order of the arguments, those of a folder or pattern sorted
    bool IsExpanded = false;         // a folder or a pattern was among the arguments
    std::vector<std::pair<std::string, std::string>> Unread = {};  // folders, and why in the system's words
};

// A folder means its *.csv and *.txt, with `recursive` those of the folders in it too. A name with * or ?
// that is no file is a pattern, whose folders may be patterns too. A folder or pattern without any such file
// is listed as it is. Names are bytes as the system has them, on Windows UTF-8.
FileList ListFiles(const std::vector<std::string>& arguments, bool recursive);

// An output of a command that is one of its inputs, by whatever links.
struct Overwriting {
    std::string Output;
    std::string Input;  // empty, as the output: there is none
};
Overwriting FindOverwriting(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs);

// What is kept beside files: their sidecars, the paths with ".info" added, and what these can't say of the
// columns, with ".columns".
std::vector<std::string> SidecarsOf(const std::vector<std::string>& files);

// True if the name fits a pattern of * (any text) and ? (one character). Letters of ASCII in any case.
bool MatchesPattern(const std::string& name, const std::string& pattern);

// Why a file gave no signals: the system's reason if it can't be opened or read, that it is empty, or that
// NUL bytes make it hardly a text. One clause in UTF-8, empty if none of that is so.
std::string WhyUnreadable(const std::u16string& path);

// The same, but first what the filter of the file met itself: the cause may be gone since.
std::string WhyUnreadable(const CImportFilter& filter, const std::u16string& path);
}  // namespace kelvarin
