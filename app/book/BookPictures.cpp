#include "app/book/BookPictures.h"

#include <algorithm>
#include <iterator>

#include "app/book/Svg.h"

namespace {

/// A stripe and its part of the ribbon's width.
struct Stripe {
    const char* color;
    float part;
};
struct RibbonRow {
    std::string_view key;
    std::vector<Stripe> stripes;
    bool isAcross = false; // the stripes, in turn from the top
};

constexpr float RibbonWidth = 44;
constexpr float RibbonHeight = 14;
constexpr float AcrossHeight = 2;

// The same as the ribbons of the screens, which art/medals.py draws.
const std::vector<RibbonRow>& ribbonRows() {
    static const std::vector<RibbonRow> rows = {
        {"vc", {{"#7A1B22", 1}}},
        {"dso", {{"#22305A", .16F}, {"#A3241F", .68F}, {"#22305A", .16F}}},
        {"mc", {{"#E8E3D6", 1}, {"#5A3A74", 1}, {"#E8E3D6", 1}}},
        {"dsc", {{"#22305A", 1}, {"#E8E3D6", 1}, {"#22305A", 1}}},
        {"dfc", {{"#E8E3D6", 1}, {"#5A3A74", 1}}, true},
        {"dcm", {{"#8E1F1A", 1}, {"#22305A", 1}, {"#8E1F1A", 1}}},
        {"mm",
         {{"#22305A", 3},
          {"#E8E3D6", 1},
          {"#A3241F", 1},
          {"#E8E3D6", 1},
          {"#A3241F", 1},
          {"#E8E3D6", 1},
          {"#22305A", 3}}},
        {"dfm", {{"#E8E3D6", 1}, {"#5A3A74", .5F}}, true},
        {"legion", {{"#A81E22", 1}}},
        {"medaille", {{"#2F6B3C", .2F}, {"#D9B02C", .6F}, {"#2F6B3C", .2F}}},
        // clang-format off
        {"croix", {{"#8E1F1A", .03F}, {"#2F6137", .085F}, {"#A12A20", .045F}, {"#2F6137", .115F},
                   {"#A12A20", .045F}, {"#2F6137", .115F}, {"#A12A20", .045F}, {"#2F6137", .115F},
                   {"#A12A20", .045F}, {"#2F6137", .115F}, {"#A12A20", .045F}, {"#2F6137", .085F},
                   {"#8E1F1A", .03F}}},
        // clang-format on
        {"merite", {{"#C9C6BC", .1F}, {"#1A1815", .8F}, {"#C9C6BC", .1F}}},
        {"golden",
         {{"#1A1815", .1F},
          {"#E8E3D6", .14F},
          {"#1A1815", .52F},
          {"#E8E3D6", .14F},
          {"#1A1815", .1F}}},
        {"house",
         {{"#1A1815", .08F},
          {"#E8E3D6", .16F},
          {"#1A1815", .52F},
          {"#E8E3D6", .16F},
          {"#1A1815", .08F}}},
        {"iron2",
         {{"#1A1815", .1F},
          {"#E8E3D6", .14F},
          {"#1A1815", .52F},
          {"#E8E3D6", .14F},
          {"#1A1815", .1F}}},
        {"medalofhonor", {{"#7FA6C9", 1}}},
        {"usdsc",
         {{"#A3241F", .12F},
          {"#E8E3D6", .06F},
          {"#22305A", .64F},
          {"#E8E3D6", .06F},
          {"#A3241F", .12F}}},
    };
    return rows;
}

// Machines seen from above, from their middle on, by Shape.
constexpr const char* Outlines[] = {
    "m-13.5 -6.1 h27 v5 h-27 Z m11.7 -2.5 h3.6 l.2 6.6 l-1.6 13.9 h-.8 l-1.6 -13.9 Z"
    " m-3.2 16.8 h10 v3.6 h-10 Z",
    "m-16.5 -7.3 h33 v7.3 h-33 Z m14.7 -1.3 h3.6 l.2 6.6 l-1.6 18.5 h-.8 l-1.6 -18.5 Z"
    " m-3.2 21.5 h10 v3.6 h-10 Z",
    "m-11.6 -5.4 h23.2 v1.6 h-23.2 Z m0 2.3 h23.2 v1.6 h-23.2 Z m0 2.3 h23.2 v1.6 h-23.2 Z"
    " m9.8 -7.8 h3.6 l.2 6.6 l-1.6 13.9 h-.8 l-1.6 -13.9 Z m-3.2 16.8 h10 v3.6 h-10 Z",
    "m-14.2 -5.6 l12.4 -1 h3.6 l12.4 1 v4.2 l-12.4 .7 h-3.6 l-12.4 -.7 Z"
    " m12.4 -3 h3.6 l.2 6.6 l-1.6 13.9 h-.8 l-1.6 -13.9 Z m-3.2 16.8 h10 v3.6 h-10 Z",
    "m-14 -2 c0 -8.5 24 -8.5 26 0 c-2 8.5 -26 8.5 -26 0 Z m22 -3 l7 -4 l-1.5 7 l1.5 7 l-7 -4 Z"
    " m-12 9 l1.5 6 h3 l1.5 -6 Z",
    "m-14 -8 h17 v12 h-17 Z m18 4 h10 v8 h-10 Z m-14.5 7 a4 4 0 1 0 8 0 a4 4 0 1 0 -8 0 Z"
    " m15 0 a4 4 0 1 0 8 0 a4 4 0 1 0 -8 0 Z",
};

constexpr float PageWidth = 940;
constexpr float MachineStep = 35;
constexpr float FifthSpace = 10;
constexpr float MachineRow = 34;
constexpr size_t MachinesOfRow = 25;

} // namespace

std::string ribbonPicture(std::string_view key) {
    if (key == "uscroix")
        key = "croix";
    const auto& rows = ribbonRows();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const RibbonRow& one) { return one.key == key; });
    if (row == rows.end())
        return {};
    Svg svg(RibbonWidth, RibbonHeight);
    const auto style = [](const char* color) { return std::string("fill=\"") + color + "\""; };
    if (row->isAcross) {
        constexpr auto Stripes = static_cast<int32_t>(RibbonHeight / AcrossHeight);
        for (int32_t i = 0; i < Stripes; ++i)
            svg.rect(0, static_cast<float>(i) * AcrossHeight, RibbonWidth, AcrossHeight,
                     style(row->stripes[i % 2].color));
    } else {
        float all = 0;
        for (const Stripe& stripe : row->stripes)
            all += stripe.part;
        float x = 0;
        for (const Stripe& stripe : row->stripes) {
            const float wide = RibbonWidth * stripe.part / all;
            svg.rect(x, 0, wide, RibbonHeight, style(stripe.color));
            x += wide;
        }
    }
    svg.rect(0, 0, RibbonWidth, RibbonHeight, "fill=\"none\" stroke=\"#2A1E12\"");
    return svg.ornament("ribbon", static_cast<int32_t>(RibbonWidth));
}

std::string victoryPictures(const std::vector<Shape>& shapes, const zel::String& title) {
    const size_t rows = (shapes.size() + MachinesOfRow - 1) / MachinesOfRow;
    Svg svg(PageWidth, static_cast<float>(rows) * MachineRow);
    for (size_t i = 0; i < shapes.size(); ++i) {
        const size_t line = i / MachinesOfRow;
        const size_t inRow = i % MachinesOfRow;
        const size_t fives = inRow / 5;
        svg.path(18 + static_cast<float>(inRow) * MachineStep +
                     static_cast<float>(fives) * FifthSpace,
                 15 + static_cast<float>(line) * MachineRow,
                 Outlines[static_cast<size_t>(shapes[i])], "fill=\"#2A1E12\"");
    }
    return svg.element(title, title);
}
