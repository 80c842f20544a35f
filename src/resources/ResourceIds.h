// Numbers of the module's strings.
#pragma once

enum EStringId : unsigned {
    IdAppName = 1,
    IdFileFilter = 2,  // description, vertical bar, patterns
    IdSidecarFilter = 3,
    IdTimeFormats = 1000,         // standard formats of a time of day, separated by vertical bars
    IdElapsedTimeFormats = 1001,  // of times that need not be a time of day
    IdDateFormats = 1002,         // of dates
    IdFormatLetters = 1003,       // year, month, day, hours, minutes, seconds as the user writes them
    IdTimestampView = 1004,       // format of a shown timestamp
    IdSpanView = 1005,            // and of a relative one
    IdFormatMismatch = 1006,
    IdNeutralFormatLetters = 1007,  // the same letters in no particular language
    IdColumnName = 1100,            // %i: 1-based column number
    IdDateColumnName = 1101,
    IdTimeColumnName = 1102,
    IdDateTimeColumnName = 1104,
    IdNoSeparator = 1110,
    IdWrongColumn = 1111,  // %i: number of columns
    IdNoFormat = 1112,
    IdNoSignal = 1113,
    IdSignalHeadings = 1200,  // separated by commas
    IdDataTypeNames = 1201,   // in the order of ECsvDataType, separated by commas
    IdNoDataType = 1210,
    IdDescription = 1300,  // %s: date, %s: path
    IdReadError = 1400,
    IdNoValidFile = 1401,
    IdTooFewLines = 1402,
    IdWrongCell = 1403,    // %s: cell, %s: signal, %i: line, %s: data type
    IdNoTimestamp = 1404,  // %i: line
    IdBefore1990 = 1405,
    IdBadSidecar = 1406,  // %s: file name
    IdOpenTitle = 61440
};

// Numbers of the dialog templates.
enum EDialogId : int {
    IdOptionDialog = 1001,
    IdSignalPage = 1002,
    IdDescriptionPage = 1003,
    IdOptionPage = 1004
};

// Numbers of the controls, by dialog.
enum EControlId : int {
    // The general page.
    CtrlComma = 1004,
    CtrlSemicolon = 1005,
    CtrlSpace = 1006,
    CtrlImportHeader = 1007,
    CtrlMergeSeparators = 1008,
    CtrlUseAsDefault = 1009,
    CtrlOther = 1010,
    CtrlFirstLineSpin = 1011,
    CtrlTab = 1012,
    CtrlDateColumn = 1014,
    CtrlTimeColumn = 1015,
    CtrlDateColumnSpin = 1016,
    CtrlTimeColumnSpin = 1017,
    CtrlIntervalValue = 1018,
    CtrlFormat = 1020,
    CtrlAutoFormat = 1022,
    CtrlSeparatorLabel = 1023,
    CtrlFirstLineLabel = 1024,
    CtrlFirstLine = 1025,
    CtrlPreview = 1026,
    CtrlFormatLabel = 1029,
    CtrlAdjustTime = 1031,
    CtrlStartDate = 1040,
    CtrlIntervalUnit = 1043,
    CtrlFixedInterval = 1045,
    CtrlAdjust = 1050,
    CtrlOtherSeparator = 1051,
    CtrlFirstTimestamp = 1052,
    CtrlFirstTimestampLabel = 1053,
    CtrlDateLabel = 1055,
    CtrlTimeLabel = 1056,
    CtrlNoDate = 1058,
    CtrlFixedDate = 1059,
    CtrlDateFromColumn = 1060,
    CtrlTimeFromColumn = 1061,
    CtrlAdjustMode = 1063,
    CtrlUnixStartDate = 1064,
    CtrlSaveSidecar = 1065,
    CtrlLoadSettings = 1066,
    // The signal page.
    CtrlSignalList = 1021,
    CtrlResetSignals = 1039,
    // The description page.
    CtrlDescription = 1010
};
