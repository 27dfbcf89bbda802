#pragma once

#include "app/screens/CareerScreen.h"
#include "app/war/InvitationLetter.h"

/// The letter in which another squadron invites the player. He accepts, refuses, or leaves it for
/// later.
class MenuGameInvite : public CareerScreen {
public:
    MenuGameInvite() : CareerScreen("MenuGameInvite") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    InvitationLetter letter;
};
