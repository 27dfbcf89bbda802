#pragma once

#include <string>

#include "app/book/BookCharts.h"
#include "app/book/LogBook.h"

/// The victories of each of the book's pilots, step by step, beside those of the real men over the
/// same months: an SVG element. REQUIRES: there is a flight.
std::string totalChart(const LogBook& book, const RealMen& men);
