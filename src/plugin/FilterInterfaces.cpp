#include "plugin/FilterInterfaces.h"

#include "plugin/CsvImportFilter.h"

const CCsvImportSettings& CFilterInterfaces::GetSettings() const {
    return Owner.GetSettings();
}

const std::u16string& CFilterInterfaces::GetSidecarWarning() const {
    return Owner.GetSidecarWarning();
}

const std::u16string& CFilterInterfaces::GetFileFailure() const {
    return Owner.GetFileFailure();
}

const std::string& CFilterInterfaces::GetSidecarFailure() const {
    return Owner.GetSidecarFailure();
}

void CFilterInterfaces::ObserveAnalysis(IAnalysisObserver* observer) {
    Owner.ObserveAnalysis(observer);
}

void CFilterInterfaces::ObserveRun(IRunObserver* observer) {
    Owner.ObserveRun(observer);
}
