#include "cli/many/Tally.h"

#include <nlohmann/json.hpp>

#include "host/language/Phrase.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

// No complaint begins with it.
constexpr char Mark = '\x1e';

constexpr std::size_t MostNamed = 20;

std::string Grouped(std::uint64_t number) {
    std::string text = std::to_string(number);
    const std::string mark = Phrase(",");
    for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, mark);
    return text;
}

}  // namespace

void Tally::Add(const Tally& other) {
    Files += other.Files;
    Failed.insert(Failed.end(), other.Failed.begin(), other.Failed.end());
    Samples += other.Samples;
    WithFindings += other.WithFindings;
}

std::string TallyText(const Tally& tally, const std::string& done) {
    std::string text = Phrase("{} files: {} {}", tally.Files, tally.Files - tally.Failed.size(), done);
    if (tally.WithFindings != 0) text += Phrase(", {} of them with findings", tally.WithFindings);
    if (!tally.Failed.empty()) {
        std::string names;
        for (std::size_t i = 0; i < std::min(tally.Failed.size(), MostNamed); ++i)
            names += (i == 0 ? "" : ", ") + tally.Failed[i];
        if (tally.Failed.size() > MostNamed) names += ", ...";
        text += Phrase(", {} failed: {}", tally.Failed.size(), names);
    }
    if (tally.Samples != 0) text += Phrase("; {} samples", Grouped(tally.Samples));
    return text;
}

std::string TallyLine(const Tally& tally) {
    const Json document = {{"files", tally.Files},
                           {"failed", tally.Failed},
                           {"samples", tally.Samples},
                           {"findings", tally.WithFindings}};
    return Mark + document.dump(-1, ' ', true, Json::error_handler_t::replace) + "\n";
}

Tally TakeTally(std::string& complaints) {
    Tally tally;
    const std::size_t mark = complaints.rfind(Mark);
    if (mark == std::string::npos) return tally;
    const Json document = Json::parse(complaints.substr(mark + 1), nullptr, false);
    complaints.erase(mark);
    if (document.is_discarded()) return tally;
    tally.Files = document.value("files", std::size_t{0});
    tally.Failed = document.value("failed", std::vector<std::string>());
    tally.WithFindings = document.value("findings", std::size_t{0});
    tally.Samples = document.value("samples", std::uint64_t{0});
    return tally;
}

}  // namespace kelvarin::cli
