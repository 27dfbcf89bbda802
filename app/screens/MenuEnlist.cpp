#include "app/screens/MenuEnlist.h"

#include "app/book/BookTables.h"
#include "app/book/EnlistmentWording.h"
#include "app/career/Bases.h"
#include "app/career/Database.h"
#include "engine/menu/StandardMenu.h"
#include "engine/menu/widgets/TextInput.h"
#include "engine/window/Platform.h"

void MenuEnlist::onEnter() {
    Database* career = Database::instance();
    if (career == nullptr)
        return;
    if (!form.isFilledIn)
        beginForm(*career);
    form.isFilledIn = false;
    rows.resize(*menu, form.squadrons.size());
    for (size_t i = 0; i < form.squadrons.size(); ++i) {
        const SquadronToJoin& squadron = form.squadrons[i];
        const zel::String base = nameInLanguage(baseForPlayer(*career, squadron.file));
        setText(rows.name("row", i), squadronRow(squadron, base));
    }
    setText("name", form.name);
    showChoice();
    rows.show(*menu, form.chosen);
    checkName();
    setFocus("name");
}

void MenuEnlist::beginForm(Database& career) {
    const int32_t service = getGlobalString("service").toInt();
    form = {};
    career.createCareer(service);
    if (!career.hasCareer())
        return; // MenuNewCareer begins no career without it
    names.seed(career.careerSeed());
    form.name = zel::arrayText(career.player().name);
    form.squadrons = squadronsToJoin(career, BookTables::instance(), service,
                                     getGlobalString("startYear").toInt(),
                                     getGlobalString("startMonth").toInt());
}

void MenuEnlist::showChoice() {
    setWidgetKind("sent", form.isOwnChoice ? "choiceOff" : "choiceOn");
    setWidgetKind("own", form.isOwnChoice ? "choiceOn" : "choiceOff");
    setActive("own", !form.squadrons.empty());
    for (size_t i = 0; i < form.squadrons.size(); ++i) {
        const bool isChosen = form.isOwnChoice && i == form.chosen;
        setWidgetKind(rows.name("row", i), isChosen ? "wideSlipOn" : "wideSlipOff");
        setActive(rows.name("row", i), form.isOwnChoice);
    }
}

zel::TextInput* MenuEnlist::nameInput() const {
    return dynamic_cast<zel::TextInput*>(getWidget("name"));
}

void MenuEnlist::update() {
    zel::TextInput* input = nameInput();
    if (input == nullptr || runningCareer() == nullptr)
        return;
    input->setFilter(isNameCharacter);
    if (input->getLengthLimit() != LongestPilotName)
        input->setLengthLimit(LongestPilotName);
    if (input->getText() != form.name) {
        form.name = input->getText();
        checkName();
    }
    const zel::String hint = nameHint();
    setText("hint", hint);
    setText("more", hint.empty() ? rowsInView() : zel::String());
}

void MenuEnlist::checkName() {
    if (const Database* career = runningCareer())
        check = checkPilotName(*career, form.name);
    setActive("menuButton1", runningCareer() != nullptr && check.fault == NameFault::None);
}

/// What is wrong with the name or with the last key; otherwise why no squadron can be chosen.
zel::String MenuEnlist::nameHint() const {
    const zel::TextInput* input = nameInput();
    const auto refusal = input->isFocused() ? input->getRefusal() : zel::TextInput::Refusal::None;
    if (refusal == zel::TextInput::Refusal::Character || check.fault == NameFault::Character)
        return textOf(wording::NameNotInTheLog);
    if (refusal == zel::TextInput::Refusal::Length || check.fault == NameFault::TooLong)
        return textOf(wording::NameTooLong, {LongestPilotName});
    if (check.fault == NameFault::Empty)
        return textOf(wording::NameNeeded);
    if (check.fault != NameFault::None)
        return textOf(check.fault == NameFault::OfAce ? wording::NameOfAce : wording::NameOfPilot,
                      {check.bearer});
    return form.squadrons.empty() ? textOf(wording::NoSquadronOpen) : zel::String();
}

zel::String MenuEnlist::rowsInView() const {
    const auto [first, last] = rows.seen(*menu);
    return last == 0
               ? zel::String()
               : textOf(wording::SquadronsSeen, {first, last, int32_t(form.squadrons.size())});
}

// Enter has nothing to press in the name, so it leads on, as if he had finished typing.
void MenuEnlist::onKey(const zel::KeyPress& key) {
    const zel::Widget* name = getWidget("name");
    if ((key.symbol == zel::KeyReturn || key.symbol == zel::KeyEnter) && name != nullptr &&
        name->isFocused())
        setFocus("another");
}

void MenuEnlist::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    const int32_t row = rows.indexOf(*widget);
    if (name == "menuButton1")
        return fillIn();
    if (name == "menuBack")
        return goBack();
    widget->reset(); // the screen stays
    if (name == "another" && runningCareer() != nullptr) {
        setText("name", drawAnotherName(*runningCareer(), names));
    } else if (name == "sent" || name == "own") {
        form.isOwnChoice = name == "own";
        showChoice();
    } else if (row >= 0) {
        form.chosen = size_t(row);
        showChoice();
    }
}

void MenuEnlist::goBack() {
    switch (getGlobalString("startYear").toInt()) {
    case 1915:
        return setTransition("MenuNewYear");
    case 1918:
        return setTransition("MenuNewMonth1918");
    default:
        return setTransition("MenuNewMonth");
    }
}

void MenuEnlist::fillIn() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    const bool isDrawn = form.name == zel::arrayText(career->player().name);
    form.enlistment.name = isDrawn ? zel::String() : form.name.trim(' ');
    form.enlistment.squadron = form.isOwnChoice ? form.squadrons[form.chosen].file : -1;
    form.name = form.name.trim(' ');
    setTransition("MenuNewCareer");
}
