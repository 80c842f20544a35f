#include "host/sidecar/SidecarFit.h"

#include <algorithm>

#include "contract/TimeReader.h"
#include "host/SettingText.h"
#include "host/guess/TableTrial.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Text.h"

namespace kelvarin::sidecar {

namespace {

constexpr std::u16string_view Ending = u".info";

// The column of an element, from 0.
std::size_t ColumnOf(const std::u16string& text) {
    std::size_t column = 0;
    return ParseWhole(Utf16ToUtf8(text), column) ? column : std::u16string::npos;
}

}  // namespace

SidecarFit::SidecarFit(const ModuleLoader& module, const std::u16string& sidecar)
    : Module(module), Sidecar(sidecar), Check(CheckSidecar(module, sidecar)) {
    WhyUseless = ComplaintOf(Check);
    if (!WhyUseless.empty() || !sidecar.ends_with(Ending)) return;
    const std::u16string source = sidecar.substr(0, sidecar.size() - Ending.size());
    std::string ignored;
    HasSource = Sample(source, Source, ignored);
}

std::string SidecarFit::WhyUnfit(const std::u16string& file) const {
    TableSample table;
    std::string reason;
    if (!Sample(file, table, reason)) return reason;
    if (HasSource) reason = CompareNames(table);
    return reason.empty() ? TryTimes(table) : reason;
}

bool SidecarFit::Sample(const std::u16string& file, TableSample& table, std::string& reason) const {
    const auto filter = Module.MakeFilter(file);
    ITableReader* const reader = filter->Find<ITableReader>();
    return reader != nullptr && reader->SampleTable(Sidecar.c_str(), table, reason);
}

std::u16string SidecarFit::ValueOf(const char* element) const {
    const auto found = std::find_if(Check.Fields.begin(), Check.Fields.end(),
                                    [&](const SidecarField& field) { return field.Element == element; });
    return found == Check.Fields.end() ? std::u16string() : found->Value;
}

std::string SidecarFit::CompareNames(const TableSample& table) const {
    if (table.Names.size() != Source.Names.size())
        return Phrase("it has {} columns instead of {}", table.Names.size(), Source.Names.size());
    for (std::size_t i = 0; i < table.Names.size(); ++i) {
        if (table.Names[i] == Source.Names[i]) continue;
        return Phrase("its column {} is '{}' instead of '{}'", i + 1, Utf16ToUtf8(table.Names[i]),
                      Utf16ToUtf8(Source.Names[i]));
    }
    return {};
}

std::string SidecarFit::TryTimes(const TableSample& table) const {
    if (ValueOf("TIME-SETTING") != u"0") return {};
    const bool hasDate = ValueOf("DATE-SETTING") == u"0";
    const std::size_t time = ColumnOf(ValueOf("TIME-COLUMN"));
    const std::size_t date = hasDate ? ColumnOf(ValueOf("DATE-COLUMN")) : time;
    if (std::max(date, time) >= table.Names.size())
        return Phrase("it has no column {}, where the time would be", std::max(date, time) + 1);
    const auto filter = Module.MakeFilter(Sidecar);
    const guess::TableTrial trial(*filter->Find<ITimeReader>(), table);
    const guess::TextList texts =
        date == time ? trial.Texts(time) : trial.JoinedTexts(std::min(date, time), std::max(date, time));
    const std::u16string format = ValueOf("TIMESTAMP-FORMAT");
    if (texts.empty()) return Phrase("its table has no rows");
    if (trial.FitsFirstRows(format, texts, hasDate)) return {};
    return Phrase("the format '{}' does not read its first time '{}'", Utf16ToUtf8(format),
                  Utf16ToUtf8(texts.front()));
}

}  // namespace kelvarin::sidecar
