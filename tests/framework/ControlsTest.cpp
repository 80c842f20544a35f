// What controls tell their dialog of a user's steps, and how they stand afterwards. The table holds for the
// real controls as well as for those without a display: where the two differ, the real ones are right.
#include "platform/framework/Controls.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <map>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/DialogTemplate.h"
#include "platform/framework/Module.h"
#include "platform/framework/Text.h"
#include "platform/framework/UserInput.h"

namespace {

using Kind = ControlKind;
enum EId : int { Digits = 10, Spin, Plain, Box, First, Second, Combo, Drop, Date, List, Button, Other };

constexpr ControlTemplate Controls[] = {
    {Digits, Kind::Edit, u"5", ControlDigits, {5, 5, 40, 13}},
    {Spin, Kind::Spin, u"", ControlBuddy, {45, 5, 11, 13}},
    {Plain, Kind::Edit, u"old", 0, {5, 20, 40, 13}},
    {Box, Kind::CheckBox, u"box", 0, {5, 35, 40, 10}},
    {First, Kind::RadioButton, u"first", ControlGroup, {5, 50, 40, 10}},
    {Second, Kind::RadioButton, u"second", 0, {50, 50, 40, 10}},
    {Combo, Kind::ComboBox, u"", 0, {5, 65, 60, 80}, u"one|two"},
    {Drop, Kind::DropDownList, u"", 0, {70, 65, 60, 80}, u"h|min"},
    {Date, Kind::DatePicker, u"", 0, {5, 80, 60, 13}},
    {List, Kind::ListView, u"", 0, {5, 95, 200, 80}},
    {Button, Kind::PushButton, u"press", 0, {5, 180, 50, 14}},
    {Other, Kind::CheckBox, u"other", 0, {60, 180, 50, 10}},
    {2, Kind::PushButton, u"cancel", 0, {150, 180, 50, 14}},
};
constexpr DialogTemplate Template = {1, u"controls", 210, 200, Controls, std::size(Controls)};

// Writes down what it is told.
class Listener : public CDialog {
  public:
    Listener() : CDialog(1) {}
    std::string Told;

  protected:
    void OnNotification(const Notification& n) override {
        const std::map<int, const char*> names = {
            {ButtonClicked, "clicked"},  {ComboSelectionChanged, "selected"},
            {ComboEditChanged, "typed"}, {EditFocusLost, "left"},
            {EditChanged, "changed"},    {DateTimeChanged, "dated"},
            {ListClicked, "row"},        {HeaderItemChanged, "width"}};
        const bool isCombo = n.Id == Combo || n.Id == Drop;
        const auto name = names.find(n.Code);
        if (name == names.end() || (!isCombo && (n.Code == 1 || n.Code == 5))) return;
        Told += std::to_string(n.Id) + " " + name->second + ", ";
    }
};

// Hands the dialog to a function.
class Steps : public DialogDriver {
  public:
    explicit Steps(std::function<void(CDialog&)> run) : Run(std::move(run)) { SetDialogDriver(this); }
    ~Steps() override { SetDialogDriver(nullptr); }
    void RunModal(CDialog& dialog) override { Run(dialog); }
    int ShowMessage(const std::u16string&, unsigned) override { return 1; }
    std::optional<std::u16string> ChooseFile(const FileQuestion&) override { return {}; }

  private:
    const std::function<void(CDialog&)> Run;
};

// Texts, checks and selections of the controls that have one, then the focus.
std::string StateOf(const CDialog& dialog) {
    std::string state;
    for (const ControlView& view : ViewControls(dialog)) {
        if (view.Kind == Kind::Edit || view.Kind == Kind::ComboBox) state += Utf16ToUtf8(view.Text) + " ";
        if (view.Kind == Kind::CheckBox || view.Kind == Kind::RadioButton) state += view.Checked ? "x" : "-";
        if (view.Kind == Kind::ComboBox || view.Kind == Kind::DropDownList)
            state += std::to_string(view.Selected) + " ";
    }
    const CWnd focus = CWnd::GetFocus();
    return state + "@" + (focus.Exists() ? std::to_string(focus.GetDlgCtrlID()) : "-");
}

TEST(ControlSteps, TellAndLeaveTheSameOnEverySide) {
    struct Step {
        std::function<void(CDialog&)> Do;
        const char* Told;
        const char* State;
    };
    const auto edit = [](CDialog& d, int id) { return CEdit(d.GetDlgItem(id).Handle); };
    const auto combo = [](CDialog& d, int id) { return CComboBox(d.GetDlgItem(id).Handle); };
    const Step steps[] = {
        {[](CDialog& d) { UserType(d, Digits, u"1x2"); }, "10 changed, 10 changed, ",
         "12 old --- -1 -1 -@10"},
        {[](CDialog& d) { UserSpin(d, Spin, 1); }, "10 changed, ", "13 old --- -1 -1 -@10"},
        {[](CDialog& d) { UserSpin(d, Spin, 1); }, "", "13 old --- -1 -1 -@10"},
        {[](CDialog& d) { UserSpin(d, Spin, -14); },
         "10 changed, 10 changed, 10 changed, 10 changed, 10 changed, 10 changed, 10 changed, 10 changed, 10 "
         "changed, 10 changed, 10 changed, 10 changed, ",
         "1 old --- -1 -1 -@10"},
        {[](CDialog& d) { UserType(d, Digits, u""); }, "10 changed, ", " old --- -1 -1 -@10"},
        {[](CDialog& d) { UserSpin(d, Spin, 1); }, "10 changed, ", "2 old --- -1 -1 -@10"},
        {[&](CDialog& d) {
             edit(d, Plain).LimitText(2);
             UserType(d, Plain, u"ab");
         },
         "10 left, 12 changed, 12 changed, ", "2 ab --- -1 -1 -@12"},
        {[&](CDialog& d) { edit(d, Plain).SetWindowText(u"set"); }, "12 changed, ", "2 set --- -1 -1 -@12"},
        {[&](CDialog& d) { edit(d, Plain).EnableWindow(false); }, "12 left, ", "2 set --- -1 -1 -@-"},
        {[](CDialog& d) { UserType(d, Plain, u"no"); }, "", "2 set --- -1 -1 -@-"},
        {[](CDialog& d) { UserClick(d, Box); }, "13 clicked, ", "2 set x-- -1 -1 -@13"},
        {[](CDialog& d) { d.CheckDlgButton(Other, true); }, "", "2 set x-- -1 -1 x@13"},
        {[](CDialog& d) { UserClick(d, Second); }, "15 clicked, ", "2 set x-x -1 -1 x@15"},
        {[](CDialog& d) { UserClick(d, First); }, "14 clicked, ", "2 set xx- -1 -1 x@14"},
        {[](CDialog& d) { UserFocus(d, Second); }, "", "2 set xx- -1 -1 x@15"},
        {[](CDialog& d) { UserFocus(d, First); }, "", "2 set xx- -1 -1 x@14"},
        {[](CDialog& d) { UserSelect(d, Combo, 1); }, "16 selected, ", "2 set xx-two 1 -1 x@16"},
        {[](CDialog& d) { UserType(d, Combo, u"on"); }, "16 typed, 16 typed, ", "2 set xx-on -1 -1 x@16"},
        {[&](CDialog& d) { combo(d, Combo).SetCurSel(0); }, "", "2 set xx-one 0 -1 x@16"},
        {[&](CDialog& d) { combo(d, Combo).SetWindowText(u"own"); }, "", "2 set xx-own -1 -1 x@16"},
        {[&](CDialog& d) { combo(d, Combo).SetWindowText(u"two"); }, "", "2 set xx-two -1 -1 x@16"},
        {[&](CDialog& d) { combo(d, Combo).ResetContent(); }, "", "2 set xx- -1 -1 x@16"},
        {[](CDialog& d) { UserSelect(d, Drop, 0); }, "17 selected, ", "2 set xx- -1 0 x@17"},
        {[](CDialog& d) { UserSelect(d, Drop, 5); }, "", "2 set xx- -1 0 x@17"},
        {[](CDialog& d) { UserSetDate(d, Date, 2024, 2, 29); }, "18 dated, ", "2 set xx- -1 0 x@18"},
        {[](CDialog& d) { UserSetDate(d, Date, 2023, 2, 29); }, "", "2 set xx- -1 0 x@18"},
        {[](CDialog& d) { UserClickRow(d, List, 1, false); }, "19 row, ", "2 set xx- -1 0 x@19"},
        {[](CDialog& d) { UserClickRow(d, List, 1, true); }, "19 row, ", "2 set xx- -1 0 x@19"},
        {[](CDialog& d) { UserClickRow(d, List, 7, false); }, "", "2 set xx- -1 0 x@19"},
        {[](CDialog& d) { UserDragColumn(d, List, 0, 50); }, "0 width, ", "2 set xx- -1 0 x@19"},
        {[](CDialog& d) { UserClick(d, Button); }, "20 clicked, ", "2 set xx- -1 0 x@20"},
    };
    ModuleState module({}, {&Template, 1});
    const AFX_MAINTAIN_STATE2 context(module);
    Listener dialog;
    const Steps driver([&](CDialog& d) {
        CListCtrl list(d.GetDlgItem(List).Handle);
        list.SetExtendedStyle(0x24);
        CSpinButtonCtrl spin;
        spin.Handle = d.GetDlgItem(Spin).Handle;
        spin.SetRange(1, 13);
        list.InsertColumn(0, u"name", 100);
        for (int row = 0; row < 3; ++row) list.InsertItem(row, u"row");
        dialog.Told.clear();
        for (const Step& step : steps) {
            step.Do(d);
            const auto number = &step - steps;
            EXPECT_EQ(std::exchange(dialog.Told, {}), step.Told) << "step " << number;
            EXPECT_EQ(StateOf(d), step.State) << "step " << number;
        }
    });
    EXPECT_EQ(dialog.DoModal(), 2);
}

}  // namespace
