#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/Style.h"
#include "app/TextTable.h"
#include "app/language/Phrase.h"
#include "host/SidecarTool.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

using Json = nlohmann::ordered_json;

namespace {

std::string PrintableName(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}

// Empty, or what is wrong with the sidecar.
std::string ComplaintOf(const SidecarCheck& check) {
    if (check.Errors < 0) return check.Reason;
    if (check.Errors > 0) {
        return Phrase("line {}, column {}: {}", check.Line, check.Column, check.Reason);
    }
    if (check.KnownRevision) return {};
    return Phrase("format-rev \"{}\" is unknown, so nothing is read; known are 1 and 2",
                  Utf16ToUtf8(check.Revision));
}

void WriteCheckJson(const std::string& file, const SidecarCheck& check) {
    Json fields = Json::object();
    for (const SidecarField& field : check.Fields) fields[field.Element] = Utf16ToUtf8(field.Value);
    const Json document = {{"file", PrintableName(file)},
                           {"errors", check.Errors},
                           {"line", check.Line},
                           {"column", check.Column},
                           {"reason", check.Reason},
                           {"revision", Utf16ToUtf8(check.Revision)},
                           {"knownRevision", check.KnownRevision},
                           {"fields", fields}};
    std::cout << document.dump() << "\n";
}

void WriteCheckText(const std::string& file, const SidecarCheck& check) {
    if (check.Errors < 0) return;
    const std::string revision = check.Revision.empty() ? "1" : Utf16ToUtf8(check.Revision);
    std::cout << Styled(Style::Heading, PrintableName(file)) << "\n  "
              << (check.Errors == 0 ? Phrase("revision {}, no error", revision)
                                    : Phrase("revision {}, {} errors: not used", revision, check.Errors))
              << "\n";
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    constexpr std::size_t ValueWidth = 100;
    for (const SidecarField& field : check.Fields) {
        table.AddRow({field.Element, "\"" + OneLine(Utf16ToUtf8(field.Value), ValueWidth) + "\""});
    }
    table.Write(std::cout, "    ");
}

int CheckFile(const ModuleLoader& module, const CommonOptions& options, const std::string& file) {
    const SidecarCheck check = module.SidecarTool().CheckSidecar(PathFromNative(file).c_str());
    if (options.Json) {
        WriteCheckJson(file, check);
    } else {
        WriteCheckText(file, check);
    }
    const std::string complaint = ComplaintOf(check);
    if (complaint.empty()) return ExitDone;
    ComplainAbout(file, complaint);
    return ExitFileFailed;
}

int WriteFile(const ModuleLoader& module, const CommonOptions& options, const std::string& file) {
    std::string reason;
    const bool written = module.SidecarTool().WriteSidecar(PathFromNative(file).c_str(), reason);
    if (options.Json) {
        const Json document = {{"file", PrintableName(file)}, {"written", written}};
        std::cout << document.dump() << "\n";
    } else if (written) {
        std::cout << PrintableName(file) << ".info\n";
    }
    if (written) return ExitDone;
    ComplainAbout(file, reason);
    return ExitFileFailed;
}

}  // namespace

void AddSidecarCommand(CommandLine& line) {
    const auto checkOnly = std::make_shared<bool>(false);
    CLI::App& command =
        line.Add("sidecar", Phrase("Write FILE.info from the settings in force, or check one"),
                 [checkOnly](const ModuleLoader& module, const CommonOptions& common) {
                     int status = ExitDone;
                     for (const std::string& file : common.Files) {
                         const int done =
                             *checkOnly ? CheckFile(module, common, file) : WriteFile(module, common, file);
                         if (done != ExitDone) status = done;
                     }
                     return status;
                 });
    command.add_flag("--check", *checkOnly, Phrase("FILE is a sidecar: say how it reads"));
    command.footer(
        Phrase("Examples:\n"
               "  kelvarin-import sidecar --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv\n"
               "  kelvarin-import sidecar --check data.csv.info"));
}
