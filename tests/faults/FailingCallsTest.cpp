// Every call on a file fails in turn: the message is right, the file closed, the device handed back, and what
// was stored is the old or the new.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "kit/FaultCount.h"
#include "kit/ImportRun.h"
#include "settings/SettingsTable.h"

namespace {

using Faults = FaultCount;

std::string Table(int rows) {
    std::string text = "a;b\n";
    for (int row = 0; row < rows; ++row) text += std::to_string(row) + ";x" + std::to_string(row) + "\n";
    return text;
}

// A run over a disk that gives 200 bytes at a time, so that it has many calls to fail.
struct SlowRun : ImportRun {
    explicit SlowRun(FileFaults& faults) : ImportRun(Table(220)) {
        faults.MostBytes = 200;
        faults.Armed = true;
    }
    std::string Reimport(FileFaults& faults) {
        faults.Armed = false;
        Host.Signals.clear();
        Host.Calls.clear();
        return Import();
    }
};

// What such a run gives on a good disk: everything, and the values of its first signal.
struct CleanRun {
    ImportRun Run{Table(220)};
    const std::string Outcome = Run.Import();
    const std::vector<std::string>& Values = Run.Host.Signals[0]->Values;
};

TEST_F(Faults, OfEachOperationAreRaisedAndLeaveTheFileClosed) {
    const Workdir folder;
    const std::u16string path = folder.Path("file");
    FailEachCall([&](FileFaults& faults) {
        faults.Armed = true;
        faults.MostBytes = 2;
        CFile file;
        CFileException error(false);
        bool raised = false;
        try {
            raised = !file.Open(path.c_str(), CFile::modeWrite | CFile::modeCreate, &error);
            if (raised) return;
            file.Seek(3);
            file.Write("abcde", 5);
            file.Flush();
            EXPECT_EQ(file.GetLength(), 8u);
            file.Close();
        } catch (CFileException* failure) {
            raised = failure->OsError == faults.Error && failure->FileName == path;
            failure->Delete();
        }
        EXPECT_EQ(raised, faults.Injected > 0 && faults.Error != EINTR);
    });
}

TEST_F(Faults, OfAnAnalysisLeaveTheFilterUsable) {
    const CleanRun clean;
    FailEachCall([&](FileFaults& faults) {
        SlowRun run(faults);
        run.Filter->AnalyzeFile();
        EXPECT_EQ(run.Messages(), "");
        EXPECT_EQ(run.Reimport(faults), clean.Outcome);
    });
}

TEST_F(Faults, OfARunGiveOneMessageAndHandTheDeviceBack) {
    const CleanRun clean;
    FailEachCall([&](FileFaults& faults) {
        SlowRun run(faults);
        const bool begun = run.Filter->BeginImport();
        while (begun && run.Next()) continue;
        run.Filter->EndImport();
        const std::string messages = run.Messages();
        EXPECT_TRUE(messages == ReadError || (messages.empty() && begun)) << messages;
        EXPECT_EQ(run.Host.Calls.empty(), run.Host.Signals.empty());
        EXPECT_TRUE(run.Host.Calls.empty() || run.Host.Calls.ends_with("finish\n")) << run.Host.Calls;
        for (const auto& signal : run.Host.Signals) {
            EXPECT_TRUE(signal->Count == 220 || !messages.empty()) << "the rest is missing";
        }
        if (!run.Host.Signals.empty()) {
            const auto& values = run.Host.Signals[0]->Values;
            EXPECT_TRUE(std::equal(values.begin(), values.end(), clean.Values.begin()));
        }
        EXPECT_EQ(run.Reimport(faults), clean.Outcome);
    });
}

// Gives a file an attribute and, if root runs the tests, another owner, for which a new file needs more
// calls.
void GiveToOther(const std::string& path) {
    constexpr uid_t Nobody = 65534;
    setxattr(path.c_str(), "user.comment", "x", 1, 0);
    if (geteuid() == 0 && chown(path.c_str(), Nobody, Nobody) != 0) ADD_FAILURE() << "can't give it away";
}

std::string OwnerAndComment(const std::string& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    char comment = '-';
    getxattr(path.c_str(), "user.comment", &comment, 1);
    return std::to_string(status.st_uid) + " " + std::to_string(status.st_gid) + " " + comment;
}

// Replaces a file by `write`, which tells whether it did; the folder then holds the old bytes or the new, and
// no more files than before.
template <class Write>
void ReplaceUnderFaults(FileFaults& faults, const std::string& name, const std::string& old, Write write) {
    const Workdir folder;
    const std::string path = folder.NativePath(name).string();
    if (!old.empty()) {
        folder.Write(name, old);
        GiveToOther(path);
    }
    const std::string owner = OwnerAndComment(path);
    faults.MostBytes = 50;
    faults.Armed = true;
    const auto writeOnce = [&] { return write(folder.Path(name)); };
    const bool done = writeOnce();
    faults.Armed = false;
    const std::string first = folder.Read(name);
    EXPECT_TRUE(done || first == old) << first;
    if (!old.empty()) {
        EXPECT_EQ(OwnerAndComment(path), owner);
    }
    if (faults.Failing != CallRemove) {
        EXPECT_EQ(folder.Names().find(".kelvarin-"), std::string::npos) << folder.Names();
    }
    EXPECT_TRUE(writeOnce());
    EXPECT_TRUE(!done || first == folder.Read(name)) << first;
}

TEST_F(Faults, OfWritingASidecarKeepTheOldOrTheNew) {
    for (const std::string old : {"", "<old/>"}) {
        FailEachCall([&](FileFaults& faults) {
            ReplaceUnderFaults(faults, "data.csv.info", old, [&](const std::u16string& path) {
                CCsvInfoFile file(path.substr(0, path.size() - 5));
                file.TimestampFormat = u"hh:mm:ss";
                std::string reason;
                const bool done = file.Replace(reason);
                EXPECT_EQ(done, reason.empty()) << reason;
                return done;
            });
        });
    }
}

TEST_F(Faults, OfReadingASidecarKeepTheProfile) {
    FailEachCall([](FileFaults& faults) {
        const Workdir folder;
        CCsvInfoFile file(folder.Path("data.csv"));
        file.StartLine = 7;
        file.Write();
        faults.Armed = true;
        const CCsvImportFilter filter(folder.Path("data.csv").c_str());
        const int line = filter.GetSettings().FirstLine;
        EXPECT_TRUE(filter.GetSidecarWarning().empty());
        EXPECT_TRUE(line == 8 || (line == 1 && faults.Injected > 0)) << line;
    });
}

TEST_F(Faults, OfWritingTheProfileLoseNothing) {
    for (const std::string old : {"", "[Other]\nKey=1\n[CsvImport]\nFirstLine=7\nAdjust=1\n"}) {
        FailEachCall([&](FileFaults& faults) {
            ReplaceUnderFaults(faults, "profile.ini", old, [&](const std::u16string& path) {
                return OpenProfileFile(path)->WriteInt(u"CsvImport", u"FirstLine", 8);
            });
        });
    }
}

// "Use as default" writes 17 values at once.
TEST_F(Faults, OfSavingTheSettingsLeaveAllOldOrAllNew) {
    const Workdir folder;
    const std::shared_ptr<ProfileStore> store = OpenProfileFile(folder.Path("profile.ini"));
    const auto save = [](CCsvImportSettings& settings, int number) {
        for (std::size_t i = 0; i < SharedSettingCount; ++i) {
            if (const auto* setting = std::get_if<IntSetting>(&SettingsTable[i].Kind)) {
                settings.*setting->Field = number;
            }
        }
        settings.SaveToProfile();
    };
    const auto previous = GetProcessProfile();
    CCsvImportSettings settings;
    SetProcessProfile(store);
    save(settings, 1);
    const std::string old = folder.Read("profile.ini");
    FailEachCall(
        [&](FileFaults& faults) {
            folder.Write("profile.ini", old);
            faults.Armed = true;
            save(settings, 0);
            faults.Armed = false;
            const auto first = store->ReadInt(SettingsSection, SettingsTable[0].Key);
            EXPECT_TRUE(first == 0 || (first == 1 && faults.Injected > 0));
            for (std::size_t i = 0; i < SharedSettingCount; ++i) {
                if (!std::holds_alternative<IntSetting>(SettingsTable[i].Kind)) continue;
                EXPECT_EQ(store->ReadInt(SettingsSection, SettingsTable[i].Key), first) << i;
            }
        },
        {EIO});
    SetProcessProfile(previous);
}

}  // namespace
