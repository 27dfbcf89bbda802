#pragma once

#include <vector>

#include "app/book/SquadronsToJoin.h"
#include "app/war/Enlistment.h"

/// What the player has filled in on the page of his enlistment, for the page after it.
struct EnlistmentForm {
    zel::String name;                      // as typed or drawn
    std::vector<SquadronToJoin> squadrons; // to choose from
    size_t chosen = 0;                     // of them
    bool isOwnChoice = false;              // otherwise the service chooses
    bool isFilledIn = false;               // he comes back from the next page
    Enlistment enlistment;                 // what the career is begun with
};
