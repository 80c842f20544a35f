// The timestamp formats offered for the sources chosen.
#include "dialog/OptionPage.h"
#include "timestamp/StandardFormats.h"

void COptionPage::FillFormatCombo() {
    // What the user sees in the edit part stays, whether the new list holds it or not.
    const std::u16string shown = FormatCombo.GetWindowText();
    FormatCombo.ResetContent();
    for (const std::u16string& format : GetStandardFormats(*Settings)) FormatCombo.AddString(format);
    FormatCombo.SetWindowText(shown);
}
