// The first step of a run: the file is brought to its first data line, and the device and its signals are
// made.
#include "platform/framework/Path.h"
#include "plugin/CsvImportFilter.h"
#include "resources/AppString.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

// The type code of a data type in the host's store; -1 for none.
constexpr std::int32_t TypeCodes[CsvTypeCount + 1] = {
    -1,
    KelvarinBool,
    KelvarinInt64,
    KelvarinInt64,
    KelvarinInt64,
    KelvarinDouble,
    KelvarinDouble,
    KelvarinChar16,
    KelvarinString,
};

// Tells the host's viewers to show the signal's numbers in hexadecimal.
void WriteHexMetaData(DM::SignalProxy& signal) {
    DM::XmlString xml(true);
    xml.WriteOpeningTag("GuiSignal", true);
    xml.WriteIntegerAttribute("DirBlockId", signal.GetUniqueSignalId().DirBlockId);
    xml.WriteOpeningTag("Plugin", true);
    xml.WriteIntegerAttribute("id", 1);
    xml.WriteIntegerElement("Hex", 1);
    xml.WriteClosingTag(true);
    xml.WriteClosingTag(true);
    signal.WriteMetaData(0, xml);
}

}  // namespace

bool CCsvImportFilter::BeginImport() {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    if (!RunAnalysis(true, true)) return false;
    if (!HasColumnToImport()) {
        AddFileMessage(IdNoValidFile);
        return false;
    }
    try {
        OpenSourceFile();
        if (!SkipToFirstDataLine()) {
            AddFileMessage(IdTooFewLines);
            return false;
        }
        if (!MakeDevice() || !MakeSignals()) return false;
        Times = {};
        SettleRun();
        BlankLines = 0;
        if (!SidecarWarning.empty()) AddMessage(false, -2, false, SidecarWarning);
        return true;
    } catch (CFileException* error) {
        HandleFileError(error, true);
        return false;
    }
}

bool CCsvImportFilter::HasColumnToImport() {
    for (int column = 0; column < Settings.GetColumnCount(); ++column) {
        if (Settings.GetColumn(column).ImportColumn) return true;
    }
    return false;
}

bool CCsvImportFilter::SkipToFirstDataLine() {
    const std::int64_t firstDataLine = Settings.GetFirstDataLine();
    for (CurrentLine = 1; CurrentLine < firstDataLine; ++CurrentLine) {
        if (!ReadRow()) return false;
    }
    return true;
}

bool CCsvImportFilter::MakeDevice() {
    const std::u16string fileFilter = GetFileFilter();
    const std::size_t bar = fileFilter.find(u'|');
    const std::u16string description = bar == std::u16string::npos ? u"" : fileFilter.substr(0, bar);
    Device = DeviceHost->CreateDevice(PathStripPath(FilePath), description.c_str(), 0);
    if (Device == nullptr) AddDevCountWarningMessage(false);
    return Device != nullptr;
}

bool CCsvImportFilter::MakeSignals() {
    Signals.resize(static_cast<std::size_t>(Settings.GetColumnCount()));
    for (int column = 0; column < Settings.GetColumnCount(); ++column) {
        if (!Settings.GetColumn(column).ImportColumn || Settings.IsTimestampColumn(column)) continue;
        if (!MakeSignal(column)) return false;
    }
    return true;
}

bool CCsvImportFilter::MakeSignal(int column) {
    const CCsvColumnInfo& info = Settings.GetColumn(column);
    const ECsvDataType dataType = info.GetEffectiveType();
    // Names given to the store must differ, and those of a file need not.
    const std::u16string name = FormatText(LoadAppString(IdColumnName), column + 1);
    const auto type = static_cast<std::uint32_t>(TypeCodes[dataType]);
    const std::uint32_t size = SizeOfKelvarinType(type);
    DM::SignalProxy* signal = nullptr;
    if (Device->GetDmSource()->CreateSignal(signal, name.c_str(), type,
                                            size == 0 ? VariableSampleSize : size) != DM::ResultOk) {
        AddWriteErrorMessage();
        return false;
    }
    signal->SetSymbol(info.GetDisplayName().c_str());
    if (!ChosenUnit(column).empty()) signal->SetUnit(ChosenUnit(column).c_str());
    Signals[static_cast<std::size_t>(column)] = signal;
    if (dataType == CsvTypeHex) WriteHexMetaData(*signal);
    return true;
}

void CCsvImportFilter::EndImport() {
    SourceFile.Abort();
    SampleColumns.clear();
    if (Device == nullptr) return;
    DeviceHost->FinishDevice(Device);
    Device = nullptr;
}
