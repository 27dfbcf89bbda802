#pragma once

#include "app/screens/RowList.h"
#include "engine/menu/HandledMenuExtension.h"

class CareerDrawer;
struct SaveSummary;

/// The drawer of log books: all careers, the particulars of the chosen one on a card. A book can be
/// taken up, put away, or turned back to an earlier page.
///
/// Before a book is put away the card asks. The answer is another plate than the one that asks, so
/// that pressing twice puts nothing away; any other press drops the question.
class MenuCareers : public zel::HandledMenuExtension {
public:
    /// REQUIRES: the drawer outlives the screen.
    explicit MenuCareers(CareerDrawer& drawer)
        : HandledMenuExtension("MenuCareers"), drawer(drawer) {}

    void onEnter() override;
    void update() override; // the line that counts what is in view
    void onKey(const zel::KeyPress& key) override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showBooks();
    void showChosen();
    void showCard();
    void showParticulars(const SaveSummary& summary);
    void showNote(const zel::String& text);
    void showPlates();
    void pressBook(size_t book, bool byKey);
    void ask(bool whether);
    void putAway();

    CareerDrawer& drawer;
    RowList rows{"book", 100, {"row", "ribbon"}};
    bool isAsking = false;
};
