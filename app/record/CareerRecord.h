#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "app/career/CareerObserver.h"
#include "app/career/MissionOrders.h"
#include "app/record/RecordFile.h"
#include "app/record/RecordOrders.h"
#include "app/record/RecordWriter.h"
#include "app/record/Sqlite.h"
#include "engine/core/String.h"

/// The record's name in the career's folder.
constexpr const char* RecordFileName = "record.db";

/// The record of a career's war. Events are kept in memory and written with each save, in one
/// transaction just before the save gets its name. Whatever happens to the record, the career goes
/// on: an error is a log line, and the next save tries again.
///
/// Loading a save removes nothing. The next save cuts from the record what isn't in the loaded one,
/// and moves an unusable file under the record's name aside. A record that was moved aside before
/// is found again by its career and its pages.
///
/// The orders of a mission are committed at once, if the career has a save. After a load the orders
/// of the save's day are out.
///
/// Made by the application or the session that owns the career, as its Database::observer. One
/// record serves one career after another. docs/decisions.md explains how record and save stay
/// together.
class CareerRecord : public CareerObserver, public OrdersBook {
public:
    CareerRecord() = default;
    ~CareerRecord() override;
    CareerRecord(const CareerRecord&) = delete;
    CareerRecord& operator=(const CareerRecord&) = delete;

    void onCareerBegun(const Database& career) override;
    void onCareerLoaded(const Database& career) override;
    SaveMatch matchSave(const Database& career, const CheckedBytes& content,
                        int32_t& careerNumber) override;
    bool onSaving(const Database& career, std::string_view content) override;
    void onSaved(const Database& career) override;
    /// Inserts the rows into the transaction that the save will commit, so that the save itself is
    /// short. Once orders have rolled them back they stay in memory, since many missions without a
    /// save would insert the same rows again and again.
    void onWarAdvanced(const Database& career) override {
        if (storage == Storage::File && !rowsWait)
            writeEvents(career);
    }
    void onVictory(const Database& career, const Victory& victory) override {
        events.add(career, victory);
    }
    void onPosting(const Database& career, const Posting& posting) override;
    void onBaseChange(const Database& career) override { events.addBase(career); }
    void onFlight(const Database& career, const FlownMission& mission) override;

    std::shared_ptr<const MissionOrders> ordersOut(const Database& career) const override {
        return orders.out(career);
    }
    [[nodiscard]] bool keep(const Database& career, MissionOrders kept) override;
    bool isReported(const zel::String& log, const zel::String& hash) override;
    int32_t voidOrders(const Database& career) const override { return orders.voidDate(career); }

    /// The tables with everything that has happened so far, saved or not, for reading only. A file
    /// that can't be written at present is read into memory. On error: the SQLite file has failed,
    /// and its problem() says why; keep the reference and ask it after reading. REQUIRES: the
    /// career that this observes.
    SqliteFile& read(const Database& career);
    /// The periods that the record lacks; none if it is complete.
    const std::vector<RecordGap>& gaps() const { return knownGaps; }
    /// Closes the file, so that it can be moved. What is not saved is lost. False if SQLite's
    /// companions are still beside it, because another program has it open.
    [[nodiscard]] bool close();

    // For Shelf, while a new career changes places with the one before it:

    /// The next save writes the record into that folder of the user's folder. REQUIRES: a career
    /// that was not saved yet.
    void keepIn(const char* newFolder) { folder = newFolder; }
    /// Closes the file for a while, so that it can be moved. REQUIRES: all is saved.
    void release() {
        file.close();
        writer.reset();
    }
    /// Opens it again in that folder.
    void reopen(const Database& career, const char* newFolder);

private:
    enum class Storage {
        None,     // no career
        Memory,   // a career that has no file yet: the next save makes one
        Unusable, // the file can't be used at present; a save tries again
        File,
    };

    zel::String recordPath() const;
    void attach(const Database& career);
    bool attachOther(const Database& career);
    void connect();
    void noteGaps();
    void startOver(RecordState why);
    bool makeFile(const Database& career);
    void dropFile();
    void takeName();
    void beginWriting(const Database& career);
    void writeEvents(const Database& career);
    void openForReading(const Database& career);
    void giveUp();

    SqliteFile file;
    bool isCopy = false;          // in memory, of a file that another program needs
    const char* folder = nullptr; // null for CurrentFolder
    Storage storage = Storage::None;
    zel::String path; // of the file; until a save it may have another name than the record's
    RecordState inTheWay = RecordState::Missing; // of an unusable file under the record's name
    SavedPage lastSave;                          // the save before the events
    PageMark mark;                               // that save's page in the file
    RecordEvents events;                         // not saved yet
    RecordWriter writer;                         // of the events, in the open transaction
    bool rowsWait = false; // a transaction with them was rolled back: the save inserts all
    std::vector<RecordGap> knownGaps;
    RecordOrders orders;
};
