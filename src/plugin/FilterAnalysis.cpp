// The analysis of the source file, and the handling of file errors that all its readers share.
#include "plugin/CsvImportFilter.h"
#include "resources/ResourceIds.h"

bool CCsvImportFilter::AnalyzeFile() {
    return RunAnalysis(false, false);
}

bool CCsvImportFilter::RunAnalysis(bool reportFailure, bool requireColumns) {
    try {
        OpenSourceFile();
        const bool passed =
            Settings.DetectFormat(SourceFile, AnalysisObserver) &&
            (Settings.AnalyzeColumns(SourceFile, nullptr, nullptr, AnalysisObserver) || !requireColumns);
        if (passed) ApplyColumnChoices();
        if (!passed && reportFailure) AddFileMessage(IdNoValidFile);
        SourceFile.Close();
        return passed;
    } catch (CFileException* error) {
        HandleFileError(error, reportFailure);
        SourceFile.Abort();
        return false;
    }
}

void CCsvImportFilter::OpenSourceFile() {
    FileFailure.clear();
    SourceFile.SetEncoding(FileEncodingImport);
    constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
    if (!SourceFile.Open(FilePath.c_str(), Flags, &FileError)) throw &FileError;
}

void CCsvImportFilter::HandleFileError(CFileException* error, bool report) {
    FileFailure = DescribeFileError(*error);
    if (report) AddFileMessage(IdReadError);
    error->Delete();
}
