#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "app/career/CareerObserver.h"
#include "app/career/MissionOrders.h"
#include "app/record/RecordFile.h"
#include "app/record/RecordWriter.h"
#include "app/record/Sqlite.h"
#include "engine/core/String.h"

/// Where the record is in the user's folder, beside the career.
constexpr const char* RecordFileName = "Saves/record.db";

/// The record of a career's war: what the observer hears waits in memory and is written with each
/// save, in one transaction before the save itself. Whatever happens to the record, the career goes
/// on: an error is a log line, and the next save tries again.
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
    CareerRecord(const CareerRecord&) = delete;
    CareerRecord& operator=(const CareerRecord&) = delete;

    void onCareerBegun(const Database& career) override;
    void onCareerLoaded(const Database& career, const zel::String& loaded) override;
    void onSaving(const Database& career, std::string_view content) override;
    void onWarAdvanced(const Database& career) override;
    void onVictory(const Database& career, const Victory& victory) override;
    void onPosting(const Database& career, const Posting& posting) override;
    void onBaseChange(const Database& career) override;
    void onFlight(const Database& career, const FlownMission& mission) override;

    std::shared_ptr<const MissionOrders> ordersOut(const Database& career) const override;
    bool keep(const Database& career, MissionOrders orders) override;
    bool isReported(const zel::String& log, const zel::String& hash) override;
    int32_t voidOrders(const Database& career) const override;

    /// The tables with all that has happened up to now, saved or not, for reading only. Where the
    /// file can't be used they hold what has happened since. REQUIRES: the career that this
    /// observes.
    SqliteFile& read(const Database& career);
    /// From when to when nothing is in the record; none for a whole one.
    const std::vector<RecordGap>& gaps() const { return knownGaps; }
    /// Closes the file, so that it can be moved. What is not saved is lost.
    void close();

    // While a new career changes places with the one before it (Shelf):

    /// The next save writes the record into that folder of the user's folder. REQUIRES: a career
    /// that was not saved yet.
    void keepIn(const char* newFolder) { folder = newFolder; }
    /// Closes the file for a while, so that it can be moved. REQUIRES: all is saved.
    void release();
    /// Opens it again in that folder.
    void reopen(const Database& career, const char* newFolder);

private:
    enum class Place {
        None,     // no career
        Memory,   // a career that has no file yet: the next save makes one
        Unusable, // the file can't be used at present; a save tries again
        File,
    };

    zel::String recordPath() const;
    void attach(const Database& career, bool isFinal);
    void cut(bool isFinal);
    void takeUpOrders(const Database& career);
    bool commitOrders();
    void startOver(RecordState why);
    bool makeFile(const Database& career);
    void writeEvents(const Database& career);
    void giveUp();

    SqliteFile file;
    const char* folder = nullptr; // null for that of RecordFileName
    Place place = Place::None;
    bool ownsFile = false; // what has the record's name is of this career
    SavedPage lastSave;    // that the events follow
    bool isCut = true;     // what the loaded save doesn't hold has been removed for good
    RecordEvents events;   // not saved yet
    RecordWriter writer;   // of the events, in the open transaction
    bool rowsWait = false; // a transaction with them was rolled back: the save inserts all
    std::vector<RecordGap> knownGaps;
    std::shared_ptr<const MissionOrders> orders; // the last ones without a report; or null
    bool ordersWait = false;                     // they aren't committed
    int32_t voidDate = 0;                        // of orders in the file that don't apply; or 0
};
