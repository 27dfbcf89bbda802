#pragma once

#include "app/screens/CareerDrawer.h"
#include "engine/core/Clock.h"

// The texts that the screens show of the careers' log books and their pages, in the language in
// use. The examples are the English ones.

/// The name on the card: "Lieutenant Edward Harcourt MC", shortened if it is too long for two
/// lines. A book that can't be read has the name of its folder, or is an "Unreadable log book".
zel::String bookTitle(const LogBookOfCareer& book);
/// The same of one of its pages, as he was then. REQUIRES: a readable page.
zel::String pageTitle(const LogBookOfCareer& book, const SaveSummary& page);
/// "Lt Edward Harcourt MC", shortened or cut to the letters that fit the spine, with a dagger if
/// the pilot has fallen.
zel::String spineText(const LogBookOfCareer& book);
/// Says that the book can't be read and stays as it is, with its file's name and folder.
zel::String unreadableText(const ShelvedCareer& book);
/// Service, squadron and base, a line each. A squadron without a name has no line.
zel::String serviceLines(const SaveSummary& summary);
/// "7 victories, 14 missions".
zel::String figuresText(const SaveSummary& summary);
/// The date of the war and the figures, a line each.
zel::String warLines(const SaveSummary& summary);
/// The text that the main menu shows: the book as on the spine, and the date of the war, a line
/// each.
zel::String railLines(const LogBookOfCareer& book);
/// The squadron, the date of the war and the figures of a page, a line each.
zel::String pageLines(const SaveSummary& summary);
/// "Last flown 14 March 2026, 21:40"; empty if the file's time is unknown.
zel::String lastFlownText(const zel::WallTime& written);
/// The row of a page: its date, flights, victories and when it was saved, in columns of the
/// typewriter face.
zel::String pageText(const SavePage& page);
