#pragma once

/// Which command of the receiver a parameter is. Reports name their values by the same headers.
struct Command {
    const char *Path;
    const char *Header;
};

// clang-format off
constexpr Command Commands[] = {
    {"Tuning/Frequency",    "FREQ"},
    {"Tuning/Step",         "FREQ:STEP"},
    {"Tuning/Bandwidth",    "BAND"},
    {"Tuning/Demodulation", "DEM"},
    {"Gain/Automatic",      "GAIN:AUTO"},
    {"Gain/Manual",         "GAIN"},
    {"Audio/Squelch",       "OUTP:SQU"},
    {"Audio/Threshold",     "OUTP:SQU:THR"},
    {"Audio/Volume",        "SYST:AUD:VOL"},
    {"Scan/Start",          "SCAN:STAR"},
    {"Scan/Stop",           "SCAN:STOP"},
    {"Scan/Step",           "SCAN:STEP"},
    {"Scan/Dwell",          "SCAN:DWEL"},
    {"Scan/Run",            "SCAN:RUN"},
};
// clang-format on
