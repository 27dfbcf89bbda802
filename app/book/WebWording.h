#pragma once

#include "app/career/Wording.h"

// What the log book says as a web page, besides the words of its other forms.
// clang-format off
namespace wording {

inline constexpr Wording WebTitle       {3900, "Flying log book of $1"};
inline constexpr Wording WebSubtitle    {3901, "$1, $2. Flying log book, $3 to $4"}; // service, unit, first day, last day
inline constexpr Wording WebParts       {3902, "Parts of the book"};
inline constexpr Wording WebCharts      {3903, "The war so far"};
inline constexpr Wording WebService     {3904, "Service"};
inline constexpr Wording WebVictories   {3905, "Victories"};
inline constexpr Wording WebSketches    {3906, "Sketches"};
inline constexpr Wording WebFlights     {3907, "Flights"};
inline constexpr Wording FigureFlights  {3908, "flights"};
inline constexpr Wording FigureVictories{3909, "victories"};
inline constexpr Wording FigureBestMonth{3910, "best month"};
inline constexpr Wording FigureMachine  {3911, "machine"};
inline constexpr Wording FigureDamaged  {3912, "damaged"};
inline constexpr Wording FigureInjured  {3913, "injured"};
inline constexpr Wording PairOfFigures  {3914, "$1, $2"}; // month and victories, rank or decoration and date
inline constexpr Wording OwnMonths      {3915, "your victories in a month"};
inline constexpr Wording BestMonths     {3916, "the best man of the same squadron in the real war"};
inline constexpr Wording BestOfFront    {3442, "the best of five leading men of the front in the real war"};
inline constexpr Wording TotalChart     {3443, "The running total"};
inline constexpr Wording TotalOfChart   {3444, "$1: $2."}; // name, victories
inline constexpr Wording MonthAlone     {3445, "$1: $2."}; // month, own victories
inline constexpr Wording TotalsOfSquadron{3446, "The running total beside those of the squadron's best in the real war, over the same months."};
inline constexpr Wording TotalsOfFront  {3447, "The running total beside those of five leading men of the front in the real war, over the same months."};
inline constexpr Wording FigureAndBook  {3448, "$1 ($2 in the book)"}; // his, all pilots'
inline constexpr Wording MonthChart     {3917, "Victories by month"};
inline constexpr Wording MonthOfChart   {3918, "$1: $2, the best $3 with $4."}; // month, own, name, his
inline constexpr Wording TimeLine       {3919, "Flights, ranks and decorations"};
inline constexpr Wording TimeLineNote   {3920, "Each stroke is a flight; dots are victories, triangles damage, crosses injuries."};
inline constexpr Wording WebRanks       {3921, "Ranks"};
inline constexpr Wording WebAwards      {3922, "Decorations"};
inline constexpr Wording NoWebAward     {3923, "None yet"};
inline constexpr Wording WebPilot       {3924, "Pilot"};
inline constexpr Wording WebWhy         {3925, "Why it counts"};
inline constexpr Wording SketchOfFlight {3926, "Flight $1, $2."}; // number, date
inline constexpr Wording SketchesNote   {3927, "Dashed: your route. Crosses: machines lost, red German, blue Allied, in a ring your own. Rings: hits. Triangle: landed. Blue and red lines: the front."};
inline constexpr Wording WebFooter      {3928, "Written by Wingtally from the career of $1, $2. The figures of the real war are those of its history tables."};
inline constexpr Wording Kilometres     {3931, "$1 km"};
inline constexpr Wording NorthMark      {3932, "N"};
inline constexpr Wording NoTemplate     {3943, "Its template can't be read."}; // the page's
inline constexpr Wording WrongTemplate  {3944, "Its template is faulty."};

} // namespace wording
// clang-format on
