// The files that the arguments of a command name: folders and patterns stand for what lies there.
#pragma once

#include <string>
#include <vector>

namespace kelvarin {

struct FileList {
    std::vector<std::string> Files;  // in the order of the arguments, those of a folder or pattern sorted
    bool IsExpanded = false;         // a folder or a pattern was among the arguments
};

// A folder means its *.csv and *.txt, with `recursive` those of the folders in it too. A name with * or ?
// that is no file is a pattern, whose folders may be patterns too; upper and lower case are one. A folder
// or pattern without any such file stays as it is, and so gives its complaint as a file would.
FileList ListFiles(const std::vector<std::string>& arguments, bool recursive);

// True if the name fits a pattern of * (any text) and ? (one character). Letters of ASCII in any case.
bool MatchesPattern(const std::string& name, const std::string& pattern);

}  // namespace kelvarin
