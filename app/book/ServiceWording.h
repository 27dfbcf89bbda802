#pragma once

#include "app/career/Wording.h"

// What a record of service and the page of a pilot say. Ranks are their service's own words, in
// ranks.csv.
// clang-format off
namespace wording {

inline constexpr Wording Awards[] = { // by AwardKeys (ServiceText.cpp)
    {3200, "Victoria Cross"},
    {3201, "Distinguished Service Order"},
    {3202, "Bar to the Distinguished Service Order"},
    {3203, "Military Cross"},
    {3204, "Bar to the Military Cross"},
    {3205, "Distinguished Service Cross"},
    {3206, "Distinguished Flying Cross"},
    {3207, "Bar to the Distinguished Flying Cross"},
    {3208, "Distinguished Conduct Medal"},
    {3209, "Military Medal"},
    {3210, "Distinguished Flying Medal"},
    {3211, "Mentioned in despatches"},
    {3212, "L\351gion d'honneur"},
    {3213, "Officer of the L\351gion d'honneur"},
    {3214, "M\351daille militaire"},
    {3215, "Croix de guerre"},
    {3216, "Named in the communiqu\351"},
    {3217, "Pour le M\351rite"},
    {3218, "Golden Military Merit Cross"},
    {3219, "House Order of Hohenzollern"},
    {3220, "Iron Cross I"},
    {3221, "Iron Cross II"},
    {3222, "Cup of honour"},
    {3223, "Medal of Honor"},
};
inline constexpr Wording AndBar          {3224, "$1 and bar"};
inline constexpr Wording OnePalm         {3225, "$1, 1 palm"};
inline constexpr Wording Palms           {3226, "$1, $2 palms"};

inline constexpr Wording UnitNear        {3230, "$1, near $2"}; // unit, base
inline constexpr Wording FlyingSince     {3232, "Flying since $1: $2"}; // date, flights
inline constexpr CountForms FlightsFlown = {{3233, "no flight yet"}, {3234, "1 flight"}, {3235, "$1 flights"}};
inline constexpr Wording VictoriesHead   {3236, "Victories: $1"};
inline constexpr Wording NoAward         {3240, "None yet."};
inline constexpr Wording DatedHonour     {3250, "$1: $2"}; // date, rank or decoration
inline constexpr Wording ByMachine       {3251, "By machine: $1"};
inline constexpr Wording WonVictory      {3252, "$1: $2, $3"}; // date, machine, victim
inline constexpr Wording WonAndKilled    {3253, "$1: $2, $3, who died"};
inline constexpr Wording CameTo          {3254, "$1: comes to $2"}; // date, unit
inline constexpr Wording WentTo          {3255, "$1: goes from $2 to $3"}; // date, from, to
inline constexpr Wording CameToAnother   {3460, "$1: comes to another squadron"};
inline constexpr Wording WentToAnother   {3461, "$1: goes from $2 to another squadron"};
inline constexpr Wording WentFromAnother {3462, "$1: goes from another squadron to $2"};
inline constexpr Wording WentOn          {3463, "$1: goes to another squadron"};
inline constexpr Wording TookPlace       {3256, "$1: takes the place of $2"}; // date, predecessor
inline constexpr Wording HasDied         {3257, "$1: dies"};
inline constexpr Wording FellTo          {3258, "$1: falls to $2"}; // date, victor
inline constexpr Wording UnnamedSquadron {3259, "another squadron"};
inline constexpr Wording NotRecorded     {3260, "Victories: $1, $2 of them not in the record"}; // all victories, those without a day
inline constexpr Wording PilotFigures    {3261, "$1 (victories $2)"}; // name, victories
inline constexpr Wording PilotOfUnit     {3471, "$1, $2 (victories $3)"}; // name, unit, victories
inline constexpr Wording MorePilots      {3472, "and $1 more"};
inline constexpr Wording RealScoreToday  {3262, "In the real war: $1, up to this day $2. $3"}; // all victories, those up to the day, fate
inline constexpr Wording RealScore       {3263, "In the real war: $1. $2"}; // victories, fate
inline constexpr Wording RealFates[] = { // by Fate; date
    {3264, "He survived the war."},
    {3265, "He was killed on $1."},
    {3266, "He died on $1."},
    {3267, "He was captured on $1."},
    {3268, "A wound ended his war on $1."},
};
inline constexpr Wording SeveralPilots   {3270, "Several pilots have such a name:"};
inline constexpr Wording MissionsFlown   {3271, "Missions: $1"};
inline constexpr Wording RecordUnreadable{3440, "The record of the war can't be read."};
inline constexpr Wording LastMonth       {3237, "$1 in the last month"};

// Lists of pilots, and a pilot's own page.
inline constexpr Wording OwnName         {4200, "$1 (you!)"};
inline constexpr Wording LateName        {4201, "$1 RIP"};
inline constexpr Wording OwnLateName     {4202, "$1 (you!) RIP"};
inline constexpr Wording YourPlace       {3274, "Your place: $1"};
inline constexpr Wording NoVictoryYet    {4207, "No victory yet"};
inline constexpr Wording UnknownScore    {4208, "?"}; // of that day of the real war
inline constexpr Wording NoVictory       {4212, "None."}; // of a dead pilot
inline constexpr Wording NoDecoration    {4213, "No decoration yet."};
inline constexpr Wording NoPostingKnown  {4211, "None of his postings are in the record."};

} // namespace wording
// clang-format on
