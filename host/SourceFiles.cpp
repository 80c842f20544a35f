#include "host/SourceFiles.h"

#include <algorithm>
#include <bitset>
#include <filesystem>
#include <map>

#include "contract/SettingsView.h"
#include "contract/StdioFileEx.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin {
namespace fs = std::filesystem;

namespace {
// As the arguments have it: bytes, or UTF-8 where the system's names are no bytes.
std::string NativeText(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

char Lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool IsTable(const std::string& name) {
    return MatchesPattern(name, "*.csv") || MatchesPattern(name, "*.txt");
}

// The tables of a folder and, with `recursive`, of the folders in it. One folder is open at a time: there may
// be more below one another than a process can hold open.
void AddTables(const fs::path& top, bool recursive, FileList& list, std::vector<std::string>& files) {
    for (std::vector<fs::path> folders = {top}; !folders.empty();) {
        const fs::path folder = std::move(folders.back());
        folders.pop_back();
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            // What can't be looked at is listed too: whoever opens it gets the reason.
            std::error_code unknown;
            const bool isFile = entry->is_regular_file(unknown);
            const bool isUnknown = unknown && unknown != std::errc::no_such_file_or_directory;
            if ((isFile || isUnknown) && IsTable(NativeText(entry->path().filename())))
                files.push_back(NativeText(entry->path()));
            std::error_code ignored;
            if (recursive && entry->is_directory(ignored) && !entry->is_symlink(ignored))
                folders.push_back(entry->path());
        }
        // A folder that was named itself is opened as a file if nothing is found.
        if (error && (folder != top || !files.empty()))
            list.Unread.emplace_back(NativeText(folder), error.message());
    }
}

// What fits the parts of a pattern from `part` on, below a folder.
void AddMatches(const fs::path& folder, fs::path::iterator part, fs::path::iterator end,
                std::vector<std::string>& files) {
    const std::string pattern = NativeText(*part);
    const bool isLast = std::next(part) == end;
    if (pattern.find_first_of("*?") == std::string::npos) {
        std::error_code ignored;
        if (!isLast) return AddMatches(folder / *part, std::next(part), end, files);
        if (fs::is_regular_file(folder / *part, ignored)) files.push_back(NativeText(folder / *part));
        return;
    }
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), last; !error && entry != last;
         entry.increment(error)) {
        const fs::path name = entry->path().filename();
        const bool isHidden = NativeText(name).front() == '.' && pattern.front() != '.';
        std::error_code ignored;
        if (isHidden || !MatchesPattern(NativeText(name), pattern)) continue;
        if (!isLast && entry->is_directory(ignored)) {
            AddMatches(folder / name, std::next(part), end, files);
        } else if (isLast && entry->is_regular_file(ignored)) {
            files.push_back(NativeText(folder / name));
        }
    }
}

// Empty, or what speaks against a text with separators in the first lines of a file.
std::string JudgeLines(CStdioFileEx& file) {
    constexpr int MostLines = 100;
    // A text that holds a NUL by accident has few other control characters.
    constexpr std::size_t KindsInData = 8;
    std::bitset<u' '> controls;
    int lines = 0;
    int lineOfNul = 0;
    for (std::u16string line; lines < MostLines && file.ReadString(line);) {
        ++lines;
        for (const char16_t c : line) {
            if (c < u' ' && !IsWhiteSpace(c)) controls.set(c);
        }
        if (lineOfNul == 0 && controls.test(0)) lineOfNul = lines;
    }
    if (lines == 0) return Phrase("the file is empty");
    if (lineOfNul == 0 || controls.count() < KindsInData) return {};
    return Phrase("looks like a binary file (NUL byte in line {})", lineOfNul);
}
}  // namespace

bool MatchesPattern(const std::string& name, const std::string& pattern) {
    std::size_t at = 0, star = std::string::npos, mark = 0;
    std::size_t in = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == '?') {
            while (++at < name.size() && !StartsCharacter(name[at])) continue;
            ++in;
        } else if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            mark = at;
        } else if (in < pattern.size() && Lowered(pattern[in]) == Lowered(name[at])) {
            ++in, ++at;
        } else if (star != std::string::npos) {
            in = star + 1;
            at = ++mark;
        } else {
            return false;
        }
    }
    while (in < pattern.size() && pattern[in] == '*') ++in;
    return in == pattern.size();
}

FileList ListFiles(const std::vector<std::string>& arguments, bool recursive) {
    FileList list;
    for (const std::string& argument : arguments) {
        const fs::path path = PathForStream(PathFromNative(argument));
        std::vector<std::string> found;
        std::error_code ignored;
        if (fs::is_directory(path, ignored)) {
            AddTables(path, recursive, list, found);
        } else if (argument.find_first_of("*?") != std::string::npos && !fs::exists(path, ignored)) {
            const fs::path relative = path.relative_path();
            AddMatches(path.root_path(), relative.begin(), relative.end(), found);
        }
        list.IsExpanded |= !found.empty();
        if (found.empty()) found.push_back(argument);
        std::sort(found.begin(), found.end());
        list.Files.insert(list.Files.end(), found.begin(), found.end());
    }
    return list;
}

Overwriting FindOverwriting(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs) {
    std::map<FileIdentity, std::string> read;
    for (const std::string& input : inputs) {
        if (const auto identity = IdentityOf(PathFromNative(input))) read.emplace(*identity, input);
    }
    for (const std::string& output : outputs) {
        const auto identity = IdentityOf(PathFromNative(output));
        const auto found = identity ? read.find(*identity) : read.end();
        if (found != read.end()) return {output, found->second};
    }
    return {};
}

std::vector<std::string> SidecarsOf(const std::vector<std::string>& files) {
    std::vector<std::string> sidecars;
    for (const std::string& path : files)
        sidecars.insert(sidecars.end(), {path + ".info", path + ".columns"});
    return sidecars;
}

std::string WhyUnreadable(const std::u16string& path) {
    CStdioFileEx file;
    CFileException error(false);
    if (!file.Open(path.c_str(), CFile::modeRead | CFile::shareExclusive, &error))
        return Utf16ToUtf8(DescribeFileError(error));
    try {
        return JudgeLines(file);
    } catch (CFileException* failure) {
        std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
}

std::string WhyUnreadable(const CImportFilter& filter, const std::u16string& path) {
    const ISettingsView* const view = filter.Find<ISettingsView>();
    const bool isKnown = view != nullptr && !view->GetFileFailure().empty();
    return isKnown ? Utf16ToUtf8(view->GetFileFailure()) : WhyUnreadable(path);
}
}  // namespace kelvarin
