#include "app/screens/WarStrip.h"

#include <algorithm>

// The position of the bar on the pictures that art/overlays_record.py draws.
namespace {

constexpr int32_t Edge = 18; // pixels at either end
constexpr int32_t BarAbove = 38;
constexpr int32_t FlagAbove = 50; // the lower edge
constexpr int32_t BarHeight = 20;
constexpr int32_t StrokeHeight = 16;
constexpr uint32_t StrokeColour = 0xF6EBD0;
constexpr float StrokeAlpha = 0.75F;
constexpr int32_t FirstYear = 1915; // the strip begins with May
constexpr int32_t FirstMonth = 5;
constexpr double Months = 8 + 12 + 12 + 10.36;
constexpr double DaysOfMonth = 30.4;

/// The part of the strip that is over on that day.
double partOf(int32_t date) {
    const int32_t month = (date / 10000 - FirstYear) * 12 + date / 100 % 100 - FirstMonth;
    return std::clamp((month + (date % 100 - 1) / DaysOfMonth) / Months, 0.0, 1.0);
}

} // namespace

void WarStrip::show(const zel::Menu& menu, const char* widget, const zel::String& name,
                    const WarPart& war) {
    picture.begin(name.c_str());
    const auto placeOf = [&](int32_t date) {
        return Edge + int32_t(partOf(date) * (picture.width() - 2 * Edge));
    };
    const int32_t top = picture.height() - BarAbove;
    picture.drawColumns((name + "_served").c_str(), placeOf(war.since), placeOf(war.today));
    for (const int32_t flight : war.flights)
        picture.drawColumn(placeOf(flight), top + (BarHeight - StrokeHeight) / 2, StrokeHeight,
                           StrokeColour, StrokeAlpha);
    picture.draw("strip_flag", placeOf(war.today) - 1, picture.height() - FlagAbove);
    picture.show(menu, widget);
}
