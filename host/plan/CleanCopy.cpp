#include "host/plan/CleanCopy.h"

#include <algorithm>
#include <new>
#include <optional>

#include "host/language/Phrase.h"
#include "host/plan/CopyPass.h"
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

// Percentages that only grow, whatever is read again.
class Progress {
  public:
    explicit Progress(const std::function<void(std::uint32_t)>& show) : Show(show) {}

    void operator()(double share) {
        const auto percent = static_cast<std::uint32_t>(100 * std::clamp(share, 0.0, 1.0));
        if (percent <= Shown || !Show) return;
        Shown = percent;
        Show(percent);
    }

  private:
    const std::function<void(std::uint32_t)>& Show;
    std::uint32_t Shown = 0;
};

std::vector<ColumnType> TypesOf(const ReadingPlan& plan) {
    std::vector<ColumnType> types;
    for (const PlannedColumn& column : plan.Columns) types.push_back(column.Type);
    return types;
}

// The plan knows a sample of the file. Where another row shows that rows have to be sorted, or all cells that
// a column has another type, the copy begins anew; each of both happens once at most.
CopyResult CopyInPasses(const std::u16string& source, const ReadingPlan& plan, CopyTarget& target,
                        const CopyOptions& options) {
    bool sorts = plan.Times->Trial.Falling > 0;
    std::vector<ColumnType> types = TypesOf(plan);
    bool areTypesFinal = false;
    Progress progress(options.OnProgress);
    for (;;) {
        CopyPass pass(plan, options, types, sorts, target);
        const CopyPass::Outcome outcome = pass.Run(source, [&](double share) { progress(0.99 * share); });
        if (outcome == CopyPass::Outcome::Interrupted) {
            CopyResult result;
            result.Interrupted = true;
            return result;
        }
        if (outcome == CopyPass::Outcome::OutOfOrder) {
            sorts = true;
            continue;
        }
        const bool isWrong = !areTypesFinal && pass.HasWrongTypes();
        CopyResult result = pass.TakeResult();
        if (!isWrong) {
            if (result.Rows.Written == 0) {
                result.Failure = Phrase("no line of the table has a time");
                return result;
            }
            target.Finish();
            progress(1);
            return result;
        }
        areTypesFinal = true;
        types = result.Types;
    }
}

CopyResult CopyOrFail(const std::u16string& source, const ReadingPlan& plan, CopyTarget& target,
                      const CopyOptions& options) {
    CopyResult result;
    try {
        return CopyInPasses(source, plan, target, options);
    } catch (CFileException* error) {
        const std::string name = PathToNative(error->FileName);
        const std::string reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        result.Failure = Phrase("the copy can't be made: {}: {}", name, reason);
    } catch (const std::bad_alloc&) {
        result.Failure = Phrase("the copy can't be made: not enough memory");
    }
    return result;
}
}  // namespace

CopyResult WriteCleanCopy(const std::u16string& source, const ReadingPlan& plan, const std::u16string& target,
                          const CopyOptions& options) {
    FileTarget file(target);
    return CopyOrFail(source, plan, file, options);
}

CopyResult WriteCleanCopy(const std::u16string& source, const ReadingPlan& plan, ScratchFile& target,
                          const CopyOptions& options) {
    ScratchTarget file(target);
    return CopyOrFail(source, plan, file, options);
}
}  // namespace kelvarin::plan
