#pragma once

#include <vector>

#include "app/book/Honours.h"
#include "app/record/Shelf.h"

/// A career as the drawer shows it.
struct LogBookOfCareer : ShelvedCareer {
    Honours honours; // of the pilot in its summary, if its record is there
};

/// The player's log books as the drawer shows them, and which one he has chosen: what the screens
/// of the careers share. Careers that were put away are left out.
class CareerDrawer {
public:
    /// Both belong to the application and outlive this.
    CareerDrawer(Database& career, Shelf& shelf) : career(career), shelf(shelf) {}

    /// Reads the books again. If the chosen one is gone, the first is chosen.
    void read();
    /// Chooses the book that was flown last.
    void chooseFirst();
    void choose(size_t index);

    /// The book that was flown last is the first one.
    const std::vector<LogBookOfCareer>& getBooks() const { return books; }
    /// The index of the chosen book; 0 if there is none.
    size_t getChosen() const { return chosen; }
    /// Null if there is none.
    const LogBookOfCareer* chosenBook() const {
        return chosen < books.size() ? &books[chosen] : nullptr;
    }

    /// Takes up the chosen book and loads it. Returns the screen that follows: the office,
    /// the letter about a fallen pilot who has no successor yet, or the page about a repair or a
    /// career that can't be loaded. On error: the drawer itself, and trouble() says why; all books
    /// are where they were.
    zel::String open();
    /// The screen that follows the career that was loaded: the office, or the letter about a fallen
    /// pilot who has no successor yet.
    const char* firstScreen() const;
    /// Closes the book of the career in memory with that pilot, who has fallen: it goes to the
    /// shelf. REQUIRES: it is saved. On error: false, and trouble() says why.
    bool close(int32_t fallen);
    /// The pilot with whom the current book was closed; -1 if it is open.
    int32_t closedWith() const;
    /// The player goes on with the successor: the book is open.
    void reopen() { note(shelf.reopen()); }
    /// Puts the chosen book away, and reads the others. On error: false, and trouble() says why.
    bool putAway();
    /// Makes that page of the chosen book its present save. On error: as putAway().
    bool turnBack(const SavePage& page);
    /// Why the last operation failed, as whole sentences in the language in use; empty if it
    /// succeeded.
    const zel::String& trouble() const { return problem; }

private:
    bool note(bool succeeded);

    Database& career;
    Shelf& shelf;
    std::vector<LogBookOfCareer> books;
    size_t chosen = 0;
    zel::String problem;
};
