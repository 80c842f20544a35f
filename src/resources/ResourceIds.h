// Numbers of the module's strings.
#pragma once

enum EStringId : unsigned {
    IdAppName = 1,
    IdFileFilter = 2,               // description, vertical bar, patterns
    IdTimeFormats = 1000,           // standard formats of a time of day, separated by vertical bars
    IdElapsedTimeFormats = 1001,    // of times that need not be a time of day
    IdDateFormats = 1002,           // of dates
    IdFormatLetters = 1003,         // year, month, day, hours, minutes, seconds as the user writes them
    IdNeutralFormatLetters = 1007,  // the same letters in no particular language
    IdColumnName = 1100,            // %i: 1-based column number
    IdDateColumnName = 1101,
    IdTimeColumnName = 1102,
    IdDateTimeColumnName = 1104,
    IdDataTypeNames = 1201,  // in the order of ECsvDataType, separated by commas
    IdDescription = 1300,    // %s: date, %s: path
    IdReadError = 1400,
    IdNoValidFile = 1401,
    IdTooFewLines = 1402,
    IdWrongCell = 1403,    // %s: cell, %s: signal, %i: line, %s: data type
    IdNoTimestamp = 1404,  // %i: line
    IdBefore1990 = 1405,
    IdBadSidecar = 1406  // %s: file name
};
