#pragma once

#include "app/career/Nation.h"
#include "tests/app/screens/LogBooks.h"

// The log books that the tour finds in the drawer, and the pages of the first of them.

inline constexpr ShelvedBook Books[] = {
    {"Edward Harcourt", England, "102056", "Arras", 19170610, 7, 14, false, "2009-05-06 21:40"},
    {"Lucien Delmas", France, "101012", "Reims", 19160301, 0, 1, false, "2009-05-05 20:12"},
    {"Friedrich Brandner", Germany, "501011", "Douai", 19170429, 11, 23, true, "2009-01-02 19:05"},
    {"Thomas Weatherby", England, "102024", "Bapaume", 19160904, 1, 9, true, "2008-12-30 22:55"},
    {"Heinrich-Wilhelm von Falkenhausen", Germany, "501002", "Cambrai", 19161028, 3, 8, false,
     "2008-12-29 18:20"},
    {"Walter Prentiss", Usa, "103094", "Toul", 19180614, 2, 5, false, "2008-12-28 17:33"},
};
/// The pages of the first of them.
inline constexpr ShelvedBook Pages[] = {
    {"Edward Harcourt", England, "102056", "Arras", 19170607, 6, 13, false, "2009-05-07 08:12"},
    {"Edward Harcourt", England, "102056", "Arras", 19170604, 6, 12, false, "2009-05-04 22:55"},
    {"Edward Harcourt", England, "102056", "Arras", 19170601, 5, 11, false, "2009-03-13 21:30"},
    {"Edward Harcourt", England, "102056", "Arras", 19170527, 5, 10, false, "2009-03-10 19:48"},
    {"Edward Harcourt", England, "102056", "Arras", 19170524, 4, 9, false, "2008-09-09 18:20"},
    {"Edward Harcourt", England, "102056", "Arras", 19170520, 4, 8, false, "2008-09-09 17:33"},
};
inline constexpr ShelvedBook LongBook = {"Friedrich-Wilhelm von Hohenstein-Wartenb",
                                         Germany,
                                         "501011",
                                         "Douai",
                                         19170910,
                                         100,
                                         100,
                                         true,
                                         "2009-05-06 21:41"};
