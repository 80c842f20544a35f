#include "cli/SidecarDiff.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/report/TextTable.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

struct Difference {
    std::string Field;
    std::string One, Other;
};

// The fields of both are those of one module, in one order.
std::vector<Difference> Compare(const SidecarCheck& one, const SidecarCheck& other) {
    std::vector<Difference> differences;
    for (std::size_t i = 0; i < one.Fields.size(); ++i) {
        const SidecarField& a = one.Fields[i];
        const SidecarField& b = other.Fields[i];
        if (a.Value != b.Value)
            differences.push_back({a.Element, Utf16ToUtf8(a.Value), Utf16ToUtf8(b.Value)});
    }
    return differences;
}

bool ReadCleanly(const ModuleLoader& module, const std::string& file, SidecarCheck& check) {
    check = sidecar::CheckSidecar(module, PathFromNative(file));
    const std::string complaint = sidecar::ComplaintOf(check);
    if (!complaint.empty()) ComplainAbout(file, complaint);
    return complaint.empty();
}

void WriteJson(const std::string& one, const std::string& other, const std::vector<Difference>& differences) {
    Json list = Json::array();
    for (const Difference& difference : differences) {
        list.push_back({{"field", difference.Field}, {"one", difference.One}, {"other", difference.Other}});
    }
    const Json document = {{"one", PrintableName(one)},
                           {"other", PrintableName(other)},
                           {"equal", differences.empty()},
                           {"differences", list}};
    std::cout << document.dump() << "\n";
}

}  // namespace

int DiffSidecars(const ModuleLoader& module, const std::string& one, const std::string& other, bool json) {
    SidecarCheck first, second;
    const bool read = ReadCleanly(module, one, first);
    if (!ReadCleanly(module, other, second) || !read) return ExitFileFailed;
    const std::vector<Difference> differences = Compare(first, second);
    if (json) {
        WriteJson(one, other, differences);
    } else {
        constexpr std::size_t ValueWidth = 60;
        using Align = TextTable::Align;
        TextTable table({Align::Left, Align::Left, Align::Left, Align::Left});
        for (const Difference& difference : differences) {
            table.AddRow({difference.Field, "\"" + OneLine(difference.One, ValueWidth) + "\"", "->",
                          "\"" + OneLine(difference.Other, ValueWidth) + "\""});
        }
        table.Write(std::cout, "");
    }
    return differences.empty() ? ExitDone : ExitFindings;
}

}  // namespace kelvarin::cli
