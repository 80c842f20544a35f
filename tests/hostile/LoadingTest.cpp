// Code comes from the program's own place and the system, never from where the data is.
#include <gtest/gtest.h>
#include <link.h>

#include "kit/Shell.h"
#include "program/ProgramRun.h"

namespace {

// A folder with a source and, for each library of the program and for its modules, a file of that name that
// is no library: to load one ends the program.
class TrapRun : public ProgramRun {
  public:
    TrapRun() {
        Write("a.csv", "n\n1\n2\n");
        for (const std::string& name : Loaded()) Write(name, "no library");
        for (const char* const name :
             {"csv-import.so", "csv-import-en.so", "libkelvarin-support.so", "libisal.so.2"})
            Write(name, "no library");
        Before = Folder.Names();
    }

    std::string Before;

  private:
    // The names of what this process has loaded, which the program needs too.
    static std::vector<std::string> Loaded() {
        std::vector<std::string> names;
        const auto add = [](dl_phdr_info* info, std::size_t, void* list) {
            const std::string path = info->dlpi_name;
            const std::string name = path.substr(path.rfind('/') + 1);
            if (!name.empty() && path[0] == '/')
                static_cast<std::vector<std::string>*>(list)->push_back(name);
            return 0;
        };
        dl_iterate_phdr(add, &names);
        return names;
    }
};

TEST(HostileLoading, TakesNoLibraryFromTheFolderOfTheData) {
    const TrapRun run;
    for (const std::vector<std::string>& command : {std::vector<std::string>{"--version"},
                                                    {"import", "a.csv"},
                                                    {"import", "--language", "en", "a.csv"}}) {
        const ProgramResult result = run(command);
        EXPECT_EQ(result.Status, 0) << result.Err;
        EXPECT_EQ(result.Err, "");
    }
    EXPECT_EQ(run.Folder.Names(), run.Before);
}

// Runs the program where /proc is empty; it then needs to be told where its libraries are, since the loader
// doesn't know either.
ShellResult RunWithoutProc(const ProgramRun& run, const std::vector<std::string>& arguments) {
    const std::string program = KELVARIN_IMPORT;
    run.Write("script", "mount -t tmpfs none /proc || exit 99\nexport LD_LIBRARY_PATH='" +
                            program.substr(0, program.rfind('/')) + "'\n" + run.CommandLine(arguments) +
                            "\n");
    return RunShell("unshare -rm sh '" + run.Folder.NativePath("script").string() + "' 2>&1");
}

TEST(HostileLoading, TakesNoModuleFromTheFolderOfTheDataWithoutProc) {
    const TrapRun run;
    if (RunWithoutProc(run, {"--version"}).Status != 0)
        GTEST_SKIP() << "this system gives nobody a /proc of his own";
    const ShellResult result = RunWithoutProc(run, {"import", "a.csv"});
    EXPECT_EQ(result.Status, 0) << result.Out;
    EXPECT_EQ(result.Out.find("no library"), std::string::npos);
    EXPECT_EQ(result.Out.substr(0, 6), "a.csv\n") << result.Out;
}

}  // namespace
