#include "platform/framework/Dialog.h"

#include <algorithm>
#include <cstring>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/Locale.h"
#include "platform/framework/portable/DialogFront.h"
#include "platform/framework/portable/NativeWindow.h"

namespace {

DialogUnits dialogUnits;

void AddItems(NativeWindow& window, const char16_t* items) {
    const std::u16string list = items;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find(u'|', begin), list.size());
        window.Items.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
}

std::unique_ptr<NativeWindow> MakeControl(CDialog& parent, const ControlTemplate& description) {
    auto window = std::make_unique<NativeWindow>();
    const ControlPlace& place = description.Place;
    window->Parent = &parent;
    window->Id = description.Id;
    window->Kind = description.Kind;
    window->Style = description.Style;
    window->Text = description.Text;
    window->Place = dialogUnits.ToPixels(place);
    window->Seconds = CurrentSeconds();
    AddItems(*window, description.Items);
    return window;
}

}  // namespace

void SetDialogUnits(DialogUnits units) {
    dialogUnits = units;
}

DialogUnits GetDialogUnits() {
    return dialogUnits;
}

void PlaceControls(CDialog& dialog) {
    const DialogTemplate& description = dialog.GetTemplate();
    for (std::size_t i = 0; i < description.Count; ++i) {
        NativeWindow& control = *dialog.GetNative().Controls[i];
        const int before = control.Place.Width();
        control.Place = dialogUnits.ToPixels(description.Controls[i].Place);
        for (NativeListColumn& column : control.Columns)
            column.Width = column.Width * control.Place.Width() / before;
    }
}

CRect DialogUnits::ToPixels(const ControlPlace& place) const {
    const auto pixelsX = [this](int units) { return static_cast<int>((units * Width + 2) / 4); };
    const auto pixelsY = [this](int units) { return static_cast<int>((units * Height + 4) / 8); };
    const int left = pixelsX(place.X);
    const int top = pixelsY(place.Y);
    return {left, top, left + pixelsX(place.Width), top + pixelsY(place.Height)};
}

NativeWindow* CDialog::NativeDialog::Find(int id) const {
    for (const auto& control : Controls) {
        if (control->Id == id && id > 0) return control.get();
    }
    return nullptr;
}

std::vector<NativeWindow*> CDialog::NativeDialog::Group(int firstId) const {
    std::vector<NativeWindow*> group;
    for (const auto& control : Controls) {
        const bool isFirst = control->Id == firstId;
        if (group.empty() && !isFirst) continue;
        if (control->Kind != ControlKind::RadioButton) continue;
        if (!isFirst && (control->Style & ControlGroup) != 0) break;
        group.push_back(control.get());
    }
    return group;
}

CDialog::CDialog(int templateId) : TemplateId(templateId) {}

CDialog::~CDialog() {
    if (Native != nullptr && focusedWindow != nullptr && focusedWindow->Parent == this)
        focusedWindow = nullptr;
}

int CDialog::DoModal() {
    DialogDriver* const driver = GetDialogDriver();
    if (driver != nullptr) driver->PrepareDialog();
    CreateControls();
    OnInitDialog();
    if (driver != nullptr) driver->RunModal(*this);
    if (!IsEnded()) OnCancel();
    return Native->Result;
}

void CDialog::EndDialog(int result) {
    Native->Ended = true;
    Native->Result = result;
}

bool CDialog::IsEnded() const {
    return Native->Ended;
}

void CDialog::CreateControls() {
    Native = std::make_unique<NativeDialog>();
    const DialogTemplate& dialog = GetTemplate();
    for (std::size_t i = 0; i < dialog.Count; ++i) {
        Native->Controls.push_back(MakeControl(*this, dialog.Controls[i]));
        if ((dialog.Controls[i].Style & ControlBuddy) != 0) {
            Native->Controls.back()->Buddy = Native->Controls[Native->Controls.size() - 2].get();
        }
    }
}

CWnd CDialog::GetDlgItem(int id) const {
    return CWnd(IsCreated() ? Native->Find(id) : nullptr);
}

bool CDialog::IsDlgButtonChecked(int id) const {
    const NativeWindow* const button = Native->Find(id);
    return button != nullptr && button->Checked;
}

void CDialog::CheckDlgButton(int id, bool checked) {
    if (NativeWindow* const button = Native->Find(id)) button->Checked = checked;
}

int CDialog::GetCheckedRadio(int firstId) const {
    const std::vector<NativeWindow*> group = Native->Group(firstId);
    const auto checked =
        std::find_if(group.begin(), group.end(), [](const NativeWindow* w) { return w->Checked; });
    return checked == group.end() ? -1 : static_cast<int>(checked - group.begin());
}

void CDialog::CheckRadio(int firstId, int index) {
    const std::vector<NativeWindow*> group = Native->Group(firstId);
    for (std::size_t i = 0; i < group.size(); ++i) group[i]->Checked = static_cast<int>(i) == index;
}
