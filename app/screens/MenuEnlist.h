#pragma once

#include "app/screens/CareerScreen.h"
#include "app/screens/EnlistmentForm.h"
#include "app/screens/RowList.h"
#include "engine/core/Random.h"

namespace zel {
class TextInput;
}

/// The page before the record of service: the pilot's name, typed or drawn again, and his squadron,
/// which the service chooses or he himself. Entering it from the calendar creates the career; its
/// draws are the same whatever he chooses.
///
/// The service and the month are in global strings, as MenuNewCareer describes them.
class MenuEnlist : public CareerScreen {
public:
    /// REQUIRES: the form outlives the screen.
    explicit MenuEnlist(EnlistmentForm& form) : CareerScreen("MenuEnlist"), form(form) {}

    void onEnter() override;
    void update() override; // the hint about the name, or the rows in view
    void onKey(const zel::KeyPress& key) override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    zel::TextInput* nameInput() const;
    void beginForm(Database& career);
    void showChoice();
    void checkName();
    zel::String nameHint() const;
    zel::String rowsInView() const;
    void goBack();
    void fillIn();

    EnlistmentForm& form;
    RowList rows{"squadron", 50, {"row"}};
    NameCheck check;       // of form.name
    zel::Random names{1U}; // draws of the career would change it
};
