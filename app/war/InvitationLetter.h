#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Random.h"
#include "engine/core/String.h"

class Database;

/// A pending invitation as the player sees it: the letter, and the effect of his answer.
class InvitationLetter {
public:
    virtual ~InvitationLetter() = default;

    /// Writes the letter if an invitation is due. False if none is pending; the letter is then
    /// empty. REQUIRES: a career.
    bool open(Database& career);
    const zel::String& text() const { return letter; }

    // The answer. REQUIRES: the career for which the letter was opened.

    /// The player changes places with the inviting squadron's last pilot. False, changing nothing,
    /// if that squadron has no pilot.
    bool accept(Database& career);
    void refuse(Database& career);

private:
    void write(const Database& career);

    std::vector<int32_t> roster; // of the inviting squadron, best first
    zel::String letter;
    zel::Random random; // for the months up to the next invitation
};
