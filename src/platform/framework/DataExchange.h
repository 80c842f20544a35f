// Exchange of one field with one control, in the direction of the exchange, and the checks behind it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/framework/Dialog.h"

void DDX_Control(CDataExchange& exchange, int id, CWnd& control);
void DDX_Check(CDataExchange& exchange, int id, int& value);
void DDX_Radio(CDataExchange& exchange, int firstId, int& value);
void DDX_Text(CDataExchange& exchange, int id, std::u16string& value);

// A number as text, held to its bounds on the way from the control. The value is stored before the bounds are
// looked at; a text that is no number leaves it alone. The message names the bounds either way.
void DDX_TextInRange(CDataExchange& exchange, int id, int& value, int lowest, int highest);
void DDX_TextInRange(CDataExchange& exchange, int id, double& value, double lowest, double highest);

void DDX_CBIndex(CDataExchange& exchange, int id, int& value);

// The text of a combo: to the control it selects the equal entry, else goes to the edit part.
void DDX_CBStringExact(CDataExchange& exchange, int id, std::u16string& value);

// Seconds since 1970 of a picker.
void DDX_DateTimeCtrl(CDataExchange& exchange, int id, std::int64_t& value);

// Checks the value just exchanged, on the way from the control only.
void DDV_MinMaxInt(CDataExchange& exchange, int id, int value, int lowest, int highest);

// Also limits what can be typed, on the way to the control.
void DDV_MaxChars(CDataExchange& exchange, int id, const std::u16string& value, int most);
