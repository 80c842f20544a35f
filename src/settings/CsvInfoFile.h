// The sidecar: a small XML file beside a source file that says how the source file is to be read. Its format
// is told in docs/sidecar.md.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CCsvImportSettings;

namespace DM {
class XmlString;
}

// Mirrors the elements of the file as plain values. Columns count from 0 here. What only the file knows
// survives from reading to writing, so one object serves one sidecar for its whole life.
class CCsvInfoFile {
  public:
    // The sidecar of the source file at this path; the file is not looked at.
    explicit CCsvInfoFile(const std::u16string& sourcePath);

    // Reads the file. 0: no error; above 0: the number of errors; -1: the file can't be opened or read. What
    // was read stays in the fields, whatever the answer.
    int Read();

    // Replaces the file by one of revision 2, as a whole or not at all. Answers 0, also if it can't be
    // written.
    int Write() const;

    // As Write, but false, with the reason, if the file can't be written or can't hold a value.
    bool Replace(std::string& reason) const;

    // Takes the values over from a record, or hands them to one without checking them.
    void TakeFromSettings(const CCsvImportSettings& settings);
    void ApplyToSettings(CCsvImportSettings& settings) const;

    // Gives the fields that revision 1 doesn't know their fixed values.
    void SetLegacyDefaults();

    const std::u16string& GetPath() const { return Path; }

    // Where the file of the last Read has its first error, and what it is. Line and column count from 1, the
    // column in bytes of UTF-8; an empty reason means that there is none.
    struct Diagnosis {
        int Line = 0;
        std::size_t Column = 0;
        std::string Reason;
        std::u16string Revision;  // as the file says it
    };
    const Diagnosis& GetDiagnosis() const { return FirstError; }

    std::u16string Path;
    std::int32_t StartLine = 1;                // as in the file; the record's FirstLine lies 1 or 0 above
    std::u16string SeparatorText = u",";       // "-->" is a tab
    std::u16string DecimalPoint = u".";        // kept; used by SetLegacyDefaults only
    std::u16string ThousandsSeparator = u"_";  // kept
    std::int32_t TimeColumn = 0;
    bool MergeSeparators = false;
    bool ImportHeader = true;
    std::int32_t DateSetting = 0;
    std::int32_t DateColumn = 0;
    std::u16string StartDateText;  // YYYY-MM-DD
    std::int32_t TimeSetting = 0;
    double IntervalValue = 1.0;
    std::u16string IntervalUnitText = u"s";  // a name of IntervalUnits
    std::u16string TimeAdjustText;           // HH:mm:ss; empty means no correction
    std::int32_t AdjustMode = 0;
    std::u16string TimestampFormat;

  private:
    // The file's lines joined, and where each line begins in that text.
    struct SourceText {
        std::string Text;
        std::vector<std::size_t> LineStarts;
    };

    // Reads the elements of either revision; errors count in the text.
    void ReadElements(DM::XmlString& xml);

    void SetDiagnosis(const SourceText& source, std::size_t offset, const std::string& reason);

    Diagnosis FirstError;
};
