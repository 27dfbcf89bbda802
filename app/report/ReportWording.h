#pragma once

#include "app/career/Wording.h"

// Why the combat report says what it says. $1 is a name, except in the forms for the player as the
// one who did it. Further forms have the player as the victim.
// clang-format off
namespace wording {

/// By ReasonForm.
using ReasonForms = Wording[3];

inline constexpr Wording NamedVictor[]    = {{3700, "The log names $1 as the victor."}, {3701, "The log names you as the victor."}};
inline constexpr Wording LastToHitAt[]    = {{3702, "Credited to $1: last to hit, $2."}, {3703, "Credited to you: last to hit, $1."}}; // seconds
inline constexpr Wording LastToHit[]      = {{3704, "Credited to $1: last to hit."}, {3705, "Credited to you: last to hit."}};
inline constexpr Wording OwnFireNamed[]   = {{3706, "Own fire: the log names $1."}, {3707, "Own fire: the log names you."}};
inline constexpr Wording CollisionNamed[] = {{3708, "Collision: the log names $1, without a shot."}, {3709, "Collision: the log names you, without a shot."}};
inline constexpr Wording OwnSideNamed[]   = {{3710, "Own side: the log names $1."}, {3711, "Own side: the log names you."}};
inline constexpr Wording OwnFireLast[]    = {{3712, "Own fire: last hit by $1."}, {3713, "Own fire: last hit by you."}};
inline constexpr Wording CollisionLast[]  = {{3714, "Collision: last damaged by $1, without a shot."}, {3715, "Collision: last damaged by you, without a shot."}};
inline constexpr Wording OwnSideLast[]    = {{3716, "Own side: last hit by $1."}, {3717, "Own side: last hit by you."}};
inline constexpr ReasonForms OwnDoing     = {{3718, "The last damage was his own doing."}, {3719, "The last damage was his own doing."}, {3720, "The last damage was your own doing."}};
inline constexpr ReasonForms NobodyHit    = {{3721, "Credited to nobody: no hit on him is logged."}, {3722, "Credited to nobody: no hit on him is logged."}, {3723, "Credited to nobody: no hit on you is logged."}};
inline constexpr Wording NobodyNamed        {3724, "Credited to nobody: the log names no victor."};
inline constexpr ReasonForms DiedOfWounds = {{3725, "Died of his wounds. His plane was not lost: credited to nobody."}, {3726, "Died of his wounds. His plane was not lost: credited to nobody."}, {3727, "You died of your wounds. Your plane was not lost: credited to nobody."}};
inline constexpr Wording NotInOrders[]    = {{3728, "Your orders don't name him: nothing is counted for him."}, {3729, "Not in your orders: nothing is counted for it."}}; // a pilot, an object on the ground

inline constexpr ReasonForms VictorOver   = {{3731, "The log names him as the victor over $1."}, {3732, "The log names it as the victor over $1."}, {3733, "The log names you as the victor over $1."}};
inline constexpr Wording AndMoreNames       {3730, "$1 and $2 more"};
inline constexpr Wording CreditedAt         {3734, "Credited with $1: last to hit him, $2."}; // seconds
inline constexpr Wording Credited           {3735, "Credited with $1: last to hit him."};
inline constexpr Wording CreditedEach       {3736, "Credited with $1: last to hit each of them."};
inline constexpr Wording CreditedMixed      {3737, "Credited with $1: named by the log, or last to hit."};
inline constexpr Wording NobodyLikeYou      {3738, "Your orders don't name you: the flight is not counted."};

inline constexpr ReasonForms HitBy        = {{3740, "Hit $2 by $1; he did not fall."}, {3741, "You hit him $1; he did not fall."}, {3742, "Hit $2 by $1; you did not fall."}}; // times
inline constexpr ReasonForms HitByLanded  = {{3743, "Hit $2 by $1; he landed. Not credited."}, {3744, "You hit him $1; he landed. Not credited."}, {3745, "Hit $2 by $1; you landed."}};
inline constexpr ReasonForms HitBySeveral = {{3746, "Hit $2, last by $1; he did not fall."}, {3747, "Hit $1, last by you; he did not fall."}, {3748, "Hit $2, last by $1; you did not fall."}};
inline constexpr ReasonForms SeveralLanded= {{3749, "Hit $2, last by $1; he landed. Not credited."}, {3750, "Hit $1, last by you; he landed. Not credited."}, {3751, "Hit $2, last by $1; you landed."}};
inline constexpr ReasonForms DamagedBy    = {{3752, "Damaged by $1; he did not fall."}, {3753, "Damaged by you; he did not fall."}, {3754, "Damaged by $1; you did not fall."}};
inline constexpr Wording DamagedByNobody    {3755, "The log names nobody who did the damage."};
inline constexpr ReasonForms LandedAfter  = {{3756, "Landed after $1; no hit on him is logged."}, {3757, "Landed after $1; no hit on him is logged."}, {3758, "Landed after $1; no hit on you is logged."}}; // minutes
inline constexpr ReasonForms NoLanding    = {{3759, "No hit on him is logged, and no landing."}, {3760, "No hit on him is logged, and no landing."}, {3761, "No hit on you is logged, and no landing."}};
inline constexpr Wording OnlyNamed          {3762, "The log has only the name."};

inline constexpr CountForms BeforeCrash   = {{3763, "at the moment of the crash"}, {3764, "one second before the crash"}, {3765, "$1 seconds before the crash"}};
inline constexpr Wording Times[]          = {{3766, "once"}, {3767, "twice"}, {3768, "$1 times"}};
inline constexpr CountForms Minutes       = {{3769, "less than a minute"}, {3770, "one minute"}, {3771, "$1 minutes"}};

} // namespace wording
// clang-format on
