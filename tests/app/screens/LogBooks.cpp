#include "tests/app/screens/LogBooks.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

/// Restores what a book changes in the career in memory.
class Kept {
public:
    explicit Kept(Database& career)
        : career(career), player(career.player()), squadron(career.playerSquadron()),
          date(career.calendar()), observer(career.observer), isUnsaved(career.isUnsaved) {
        career.observer = nullptr;
    }
    ~Kept() {
        career.playerSquadron() = squadron;
        career.player() = player;
        career.year = date.getYear();
        career.month = date.getMonth();
        career.day = date.getDay();
        career.observer = observer;
        career.isUnsaved = isUnsaved;
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

private:
    Database& career;
    const Pilot player;
    const Squadron squadron;
    const Calendar date;
    CareerObserver* const observer;
    const bool isUnsaved;
};

std::string contentOf(const PlayerHome& home, const ShelvedBook& book) {
    Database& career = *Database::instance();
    const Kept kept(career);
    Pilot& pilot = career.player();
    Squadron& squadron = career.playerSquadron();
    zel::copyText(pilot.name, book.pilot);
    pilot.shotdowns = uint16_t(book.victories);
    pilot.missions = uint16_t(book.missions);
    pilot.alive = book.isFallen ? 0 : 1;
    if (book.unit != nullptr) {
        squadron.nation = uint16_t(book.nation);
        squadron.squadronFile = 0;
        zel::copyText(squadron.key, book.unit);
        zel::copyText(squadron.baseName, book.base);
    }
    career.year = book.date / 10000;
    career.month = book.date / 100 % 100;
    career.day = book.date % 100;
    EXPECT_TRUE(career.writeSave("book.wty"));
    const std::string content = home.folder.read("user/book.wty");
    std::filesystem::remove(home.folder.file("user/book.wty"));
    return content;
}

} // namespace

std::string putBook(const PlayerHome& home, int32_t number, const ShelvedBook& book) {
    char digits[8];
    std::snprintf(digits, sizeof digits, "%04d", number);
    const std::string folder = std::string("user/Careers/") + digits + " " + book.pilot;
    setWritten(home.folder.write(folder + "/savegame_v03.wty", contentOf(home, book)),
               book.written);
    return folder;
}

void putPage(const PlayerHome& home, const std::string& folder, int32_t number,
             const ShelvedBook& page, bool isDamaged) {
    std::string content = contentOf(home, page);
    char name[64];
    std::snprintf(name, sizeof name, "/Pages/%04d %08d %s.wty", number, page.date,
                  std::string(checksumOf(content).view()).c_str());
    if (isDamaged)
        content.back() ^= 1;
    setWritten(home.folder.write(folder + name, content), page.written);
}

void setWritten(const std::string& file, const char* written) {
    using std::chrono::system_clock;
    std::tm time{};
    ASSERT_EQ(std::sscanf(written, "%d-%d-%d %d:%d", &time.tm_year, &time.tm_mon, &time.tm_mday,
                          &time.tm_hour, &time.tm_min),
              5);
    time.tm_year -= 1900;
    time.tm_mon -= 1;
    time.tm_sec = 30; // far from another minute: the two clocks differ by some microseconds
    time.tm_isdst = -1;
    const auto ago = system_clock::now() - system_clock::from_time_t(std::mktime(&time));
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(
        file, std::chrono::time_point_cast<std::filesystem::file_time_type::duration>(now - ago));
}
