#include "host/plan/DeviceColumn.h"

#include <algorithm>
#include <memory>

#include "contract/StdioFileEx.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t MostDevices = 16;

struct Device {
    std::u16string Name;
    std::int64_t Last = 0;  // time of its last row
    std::size_t Rows = 0;
};

// A column that may tell devices apart, until a row shows that it doesn't.
struct Candidate {
    std::size_t Column = 0;
    std::vector<Device> Devices;

    // False if the row shows that the column is none.
    bool Take(std::u16string_view cell, std::int64_t time) {
        const auto known = std::find_if(Devices.begin(), Devices.end(),
                                        [&](const Device& device) { return device.Name == cell; });
        if (known == Devices.end()) {
            Devices.push_back({std::u16string(cell), time, 1});
            return Devices.size() <= MostDevices;
        }
        const bool isLater = time > known->Last;
        known->Last = time;
        ++known->Rows;
        return isLater;
    }

    bool IsFinal() const {
        return Devices.size() > 1 &&
               std::all_of(Devices.begin(), Devices.end(), [](const Device& one) { return one.Rows > 1; });
    }
};

std::vector<Candidate> CandidatesOf(const ReadingPlan& plan) {
    std::vector<Candidate> candidates;
    for (std::size_t i = 0; i < plan.Columns.size(); ++i) {
        const ColumnType type = plan.Columns[i].Type;
        const bool isName = type == ColumnType::Text || type == ColumnType::Character ||
                            (type == ColumnType::Integer && plan.Columns[i].Unit.empty());
        if (isName && !plan.Columns[i].IsTime) candidates.push_back({i, {}});
    }
    return candidates;
}
}  // namespace

std::optional<DeviceColumn> FindDeviceColumn(const std::u16string& path, const ReadingPlan& plan) {
    std::vector<Candidate> candidates = CandidatesOf(plan);
    CStdioFileEx file;
    auto error = std::make_unique<CFileException>();
    constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
    if (!file.Open(path.c_str(), Flags, error.get())) throw error.release();
    LineCutter cut(plan.How);
    TimeWalk walk(plan.Times->Recipe);
    std::optional<std::int64_t> before;
    std::size_t rows = 0;
    std::size_t disorders = 0;
    std::u16string line;
    for (std::uint64_t number = 1; !candidates.empty() && file.ReadString(line); ++number) {
        if (number < plan.FirstLine) continue;
        const std::vector<std::u16string_view>& cells = cut(line);
        const std::optional<std::int64_t> time = walk.Next(cells, plan.Width);
        if (!time) continue;
        ++rows;
        disorders += before && *time <= *before;
        before = time;
        std::erase_if(candidates, [&](Candidate& one) {
            return one.Column >= cells.size() || cells[one.Column].empty() ||
                   !one.Take(cells[one.Column], *time);
        });
    }
    std::erase_if(candidates, [](const Candidate& one) { return !one.IsFinal(); });
    if (candidates.empty() || 4 * disorders < rows) return std::nullopt;
    const Candidate& best = *std::min_element(
        candidates.begin(), candidates.end(),
        [](const Candidate& a, const Candidate& b) { return a.Devices.size() < b.Devices.size(); });
    DeviceColumn found{best.Column, {}};
    for (const Device& device : best.Devices) found.Devices.push_back(device.Name);
    return found;
}
}  // namespace kelvarin::plan
