#include "cli/report/AssumptionsReport.h"

#include <nlohmann/json.hpp>

#include "host/language/Phrase.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

void WriteAssumptions(ReportStream out, std::string label, const std::vector<Assumption>& assumptions) {
    for (const Assumption& one : assumptions) {
        out << ReportLabel(label) << one.Text << " (" << CertaintyInWords(one.Sureness) << ")\n";
        for (const std::string& objection : one.Objections)
            out << ReportLabel("") << "  " << Phrase("but: {}", objection) << "\n";
        label.clear();
    }
}

Json AssumptionsToJson(const std::vector<Assumption>& assumptions) {
    Json list = Json::array();
    for (const Assumption& one : assumptions) {
        list.push_back({{"kind", one.Kind},
                        {"text", one.Text},
                        {"certainty", CodeOf(one.Sureness)},
                        {"objections", one.Objections}});
    }
    return list;
}
}  // namespace kelvarin::cli
