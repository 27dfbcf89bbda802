#pragma once

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"

// What the charts of the web page share: SVG attributes of lines and texts, days and months.

constexpr const char* ChartInk = "stroke=\"#2A1E12\"";
constexpr const char* ChartGrid = "stroke=\"#B9A67C\" stroke-width=\"0.8\"";
constexpr const char* ChartSmall = "font-size=\"12\" fill=\"#5A452C\"";
constexpr const char* ChartPlain = "font-size=\"13\" fill=\"#2A1E12\"";
constexpr const char* ChartBold = "font-size=\"13\" fill=\"#2A1E12\" font-weight=\"bold\"";

/// The day number of a date (yyyymmdd).
inline int32_t dayOfDate(int32_t date) { return Calendar::ofNumber(date).dayNumber(); }

/// "Apr 1917" for a month (yyyymm), in the language in use.
inline zel::String monthAndYear(int32_t month) {
    return shortMonth(month % 100) + " " + month / 100;
}
