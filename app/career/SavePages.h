#pragma once

#include <functional>
#include <vector>

#include "app/career/Checksum.h"
#include "app/career/Problem.h"
#include "app/career/SaveCheck.h"
#include "app/career/SaveSummary.h"
#include "engine/core/String.h"

// The earlier saves of a career: its pages. The save before the present one is ".bak" beside it,
// those before that are in the folder Pages beside both (docs/formats.md has their names). A page's
// name has the checksum of its content. Every step is a rename, so that a program that is killed at
// any moment leaves each page whole and under one of its names. `save` is the path of a career's
// save file, such as that of SaveFileName in the user's folder.
//
// The present save and the one before it have no checksum in their names: what is known of them is
// in the record of the war. `recorded` asks the record.

constexpr const char* PagesFolder = "Pages";

/// Whether the record of a career knows a save of that content as it is. REQUIRES: it has a save's
/// head.
using RecordedMatch = std::function<SaveMatch(const CheckedBytes& content)>;

/// Whether a save of that content is known outside of the record: it became a page while it was
/// whole, or was noted (UnrecordedSaves.h).
bool isKnownWhole(const zel::String& save, const CheckedBytes& content);

/// One save of a career.
struct SavePage {
    enum Kind { Present, Backup, Earlier };

    Kind kind = Earlier;
    /// What the player calls it: its date as yyyymmdd; of several pages of one date the older ones
    /// have "-2", "-3" and so on. "present" for the present save, "damaged" for one without a date.
    zel::String name;
    /// Whether the file is as it was when it became a page. Only a whole page may be offered to
    /// the player as a way back; one that is not is shown as damaged.
    bool isWhole = false;
    SaveSummary summary; // also has the path of the file
};

/// All pages of a career, newest first: the present save, the one before it, the others. Each file
/// is read whole for its checksum. Damaged files are among them. Empty without a career. closing:
/// of the career; the page that it is about has the fallen pilot's summary.
std::vector<SavePage> savePages(const zel::String& save, const RecordedMatch& recorded,
                                const Closing& closing = {});

/// The path of the newest page that is whole, the present save left out; empty if there is none.
/// Offer it when the present save can't be used. `before` is the checksum of a save that was tried
/// already: if it is one of the pages, only older ones count. Empty for none.
zel::String newestWholePage(const zel::String& save, const RecordedMatch& recorded,
                            const zel::String& before = {});

/// Before a save replaces ".bak": gives that file a place in Pages, as a damaged page if it isn't
/// whole, and removes the pages that are neither among the last ten nor the last of their month.
/// Does nothing without a ".bak". On error: false, a log line at level 2, and all files are as they
/// were; the save must not go on.
[[nodiscard]] bool keepBackupAsPage(const zel::String& save, const RecordedMatch& recorded);

/// Where a copy of the career's record is kept with the page of that checksum. It is removed with
/// the page.
zel::String keptRecordOf(const zel::String& save, const zel::String& checksum);
/// All such copies that are there, the one changed last first. `save` may be any file of the
/// career's folder.
std::vector<zel::String> keptRecords(const zel::String& save);

/// Makes the page the present save. The present one becomes the one before it (".bak"), as if the
/// page had been saved after it; one that isn't whole is kept as a damaged page. The file alone is
/// replaced: the caller loads it, and the record is cut then. On error: false, with the reason in
/// `problem`, and the present save stays.
[[nodiscard]] bool returnToPage(const zel::String& save, const SavePage& page,
                                const RecordedMatch& recorded, Problem& problem);
