#pragma once

#include <cstdint>

/// The length of a period of the war is drawn between the results of two draws. These are their
/// bounds in days, inclusive.
struct PeriodBounds {
    int32_t year; // in which the period begins
    int32_t upperFrom, upperTo;
    int32_t lowerFrom, lowerTo;
};

/// The bounds of a year; null outside the years of the war.
const PeriodBounds* periodBounds(int32_t year);
/// How many periods are to come from that day (yyyymmdd) up to the end of the war, if each has the
/// mean length of its year; 0 from the last day on.
int32_t periodsToCome(int32_t date);
