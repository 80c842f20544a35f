// A dialog as a table: what controls it has, where, and with which texts.
#pragma once

#include <cstddef>

enum class ControlKind {
    Label,
    GroupBox,
    CheckBox,
    RadioButton,
    PushButton,
    DefaultButton,
    Edit,
    Spin,
    ComboBox,  // with free text
    DropDownList,
    DatePicker,
    TimePicker,
    ListView  // report view
};

// Properties of a control beyond its kind.
enum EControlStyle : unsigned {
    ControlPlain = 0,
    ControlGroup = 1,   // first radio button of a group
    ControlDigits = 2,  // an edit that takes digits only
    ControlReadOnly = 4,
    ControlMultiLine = 8,  // Return makes a new line
    ControlBuddy = 16      // a spin that steps the control before it
};

// Place in dialog units.
struct ControlPlace {
    short X, Y, Width, Height;
};

struct ControlTemplate {
    int Id;  // -1: none
    ControlKind Kind;
    const char16_t* Text;
    unsigned Style;
    ControlPlace Place;
    const char16_t* Items = u"";  // of a list, separated by vertical bars
};

// Controls stand in the order of their making, which is that of tabbing.
struct DialogTemplate {
    int Id;
    const char16_t* Title;
    short Width, Height;  // in dialog units
    const ControlTemplate* Controls;
    std::size_t Count;
};
