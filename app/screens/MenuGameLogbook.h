#pragma once

#include <vector>

#include "app/book/LogBook.h"
#include "app/screens/CareerScreen.h"

class CareerRecord;
struct PilotRecord;
class ReportPages;

/// The flying log book, fourteen rows a page. It opens at the last page; a row leads to the report
/// of its flight. It can be written as a web page, which the browser shows.
class MenuGameLogbook : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameLogbook(CareerRecord& record, ReportPages& pages)
        : CareerScreen("MenuGameLogbook"), record(record), pages(pages) {}

    void onEnter() override;
    void update() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;
    void onKey(const zel::KeyPress& key) override;

private:
    /// A line of the book.
    struct BookLine {
        size_t flight;       // index in the book
        bool isFall = false; // of its pilot, instead of the flight
    };

    void readBook();
    void showName(const PilotRecord& pilot);
    int32_t pageCount() const;
    void showPage(int32_t page); // from 1 on, clamped
    void showRow(int32_t row, const BookLine* line);
    bool fits(const zel::String& row, const zel::String& text) const;
    void showHalf(const zel::String& name, const zel::String& text, const BookLine* line);

    CareerRecord& record;
    ReportPages& pages;
    LogBook book;
    std::vector<BookLine> lines;
    int32_t shownPage = 1;
    bool isComingBack = false;           // from a flight's report
    const char* origin = "MenuGameMain"; // to which the book leads back
};
