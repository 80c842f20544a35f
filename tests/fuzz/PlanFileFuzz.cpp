// Any text as the file of --plan: one that is taken says the same when it is written and read again, and
// whatever it says, files are followed by it or not without harm.
#include "cli/PlanFile.h"
#include "fuzz/kit/Check.h"

namespace plan = kelvarin::plan;
namespace cli = kelvarin::cli;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    static const std::u16string path =
        home.Write("Zeit;n;v\n01.02.2020 10:00:00;1;2,5\n01.02.2020 10:00:01;3;4 V\n;x;\"a;b\"\n");
    std::string complaint;
    const auto kinds = cli::ParsePlan(std::string(reinterpret_cast<const char*>(data), size), complaint);
    Check(kinds.has_value() == complaint.empty(), "what is refused has a reason");
    if (!kinds) return 0;
    const std::string text = cli::PlanText(*kinds);
    const auto again = cli::ParsePlan(text, complaint);
    Check(again && cli::PlanText(*again) == text, "a plan is kept as it is");
    std::vector<std::string> unlike;
    const auto followed = plan::FindPlan(path, *kinds, unlike);
    Check(followed || kinds->AreFound() || !unlike.empty(), "a file that isn't read has a reason");
    return 0;
}
