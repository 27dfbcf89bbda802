#include "app/screens/CareerDrawer.h"

#include <algorithm>

#include "app/book/BookTables.h"
#include "app/book/SavedHonours.h"
#include "app/career/Database.h"
#include "app/record/ShelfFolders.h"
#include "app/screens/MenuNotification.h"

void CareerDrawer::read() {
    const int32_t number = chosenBook() != nullptr ? chosenBook()->number : 0;
    books.clear();
    for (const ShelvedCareer& one : shelf.careers())
        if (!one.isPutAway)
            books.push_back(
                {one, savedHonours(recordIn(one.folder), one.summary, BookTables::instance())});
    const auto same = std::find_if(books.begin(), books.end(), [&](const LogBookOfCareer& book) {
        return book.number == number;
    });
    chosen = same != books.end() ? size_t(same - books.begin()) : 0;
}

void CareerDrawer::chooseFirst() {
    chosen = 0;
    problem = zel::String();
}

void CareerDrawer::choose(size_t index) {
    chosen = index;
    problem = zel::String();
}

bool CareerDrawer::note(bool succeeded) {
    problem = succeeded ? zel::String() : shelf.problem().text();
    return succeeded;
}

zel::String CareerDrawer::open() {
    const LogBookOfCareer* book = chosenBook();
    if (book != nullptr && !note(book->isCurrent || shelf.take(book->number)))
        return "MenuCareers";
    if (!career.loadFile(SaveFileName))
        return "BlackScreen";
    const bool isRepaired =
        career.repairs.any() && MenuNotification::isPage("MenuNotificationRepair");
    if (isRepaired)
        return "MenuNotificationRepair";
    return firstScreen();
}

const char* CareerDrawer::firstScreen() const {
    return closedWith() >= 0 || career.player().alive == 0 ? "MenuGameFallen" : "MenuGameMain";
}

bool CareerDrawer::close(int32_t fallen) { return note(shelf.close(fallen)); }

int32_t CareerDrawer::closedWith() const {
    const Closing closing = shelf.closing();
    const bool isClosed = closing.successor == career.playerPilot &&
                          closing.date == career.calendar().dateNumber() &&
                          career.isPilot(closing.fallen);
    return isClosed ? closing.fallen : -1;
}

bool CareerDrawer::putAway() {
    const LogBookOfCareer* book = chosenBook();
    const bool succeeded = book != nullptr && note(shelf.putAway(book->number));
    if (succeeded)
        read();
    return succeeded;
}

bool CareerDrawer::turnBack(const SavePage& page) {
    const LogBookOfCareer* book = chosenBook();
    return book != nullptr && note(shelf.turnBack(*book, page));
}
