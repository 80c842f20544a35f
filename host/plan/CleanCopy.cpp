#include "host/plan/CleanCopy.h"

#include <algorithm>
#include <deque>
#include <new>
#include <optional>
#include <utility>

#include "host/language/Phrase.h"
#include "host/plan/CopyRun.h"
#include "platform/framework/Path.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
class FileTarget : public CopyTarget {
  public:
    explicit FileTarget(const std::u16string& path) : Path(path) {}

    void Begin() override {
        File.reset();
        File.emplace(Path);
    }
    void Write(std::string_view bytes) override { File->Write(bytes.data(), bytes.size()); }
    void Finish() override { File->Finish(); }

  private:
    const std::u16string& Path;
    std::optional<ReplacingFile> File;
};

class ScratchTarget : public CopyTarget {
  public:
    explicit ScratchTarget(ScratchFile& file) : File(file) {}

    void Begin() override { File.Clear(); }
    void Write(std::string_view bytes) override { File.Write(bytes.data(), bytes.size()); }
    void Finish() override {}

  private:
    ScratchFile& File;
};

std::vector<CopyResult> CopyOrFail(CopyRun& run) {
    try {
        return run.Make();
    } catch (CFileException* error) {
        const std::string name = PathToNative(error->FileName);
        const std::string reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        return run.FailedFor(Phrase("the copy can't be made: {}: {}", name, reason));
    } catch (const std::bad_alloc&) {
        return run.FailedFor(Phrase("the copy can't be made: not enough memory"));
    }
}

CopyResult CopyTo(CopyTarget& target, const std::u16string& source, const ReadingPlan& plan,
                  const CopyOptions& options) {
    CopyRun run(source, plan, options);
    run.Add(nullptr, target);
    return std::move(CopyOrFail(run).front());
}
}  // namespace

CopyResult WriteCleanCopy(const std::u16string& source, const ReadingPlan& plan, const std::u16string& target,
                          const CopyOptions& options) {
    FileTarget file(target);
    return CopyTo(file, source, plan, options);
}

CopyResult WriteCleanCopy(const std::u16string& source, const ReadingPlan& plan, ScratchFile& target,
                          const CopyOptions& options) {
    ScratchTarget file(target);
    return CopyTo(file, source, plan, options);
}

std::vector<CopyResult> WriteDeviceCopies(const std::u16string& source, const ReadingPlan& plan,
                                          const std::vector<DeviceCopy>& copies, const CopyOptions& options) {
    CopyOptions shared = options;
    shared.MostSortedBytes /= std::max<std::size_t>(copies.size(), 1);
    CopyRun run(source, plan, shared);
    std::deque<FileTarget> targets;
    for (const DeviceCopy& copy : copies) run.Add(&copy.Rows, targets.emplace_back(copy.Target));
    return CopyOrFail(run);
}
}  // namespace kelvarin::plan
