#pragma once

// What `wingtally-career --help` says before and after the options.

inline constexpr const char* CareerDescription =
    R"(Leads a career. The commands run in their order; the first that fails ends the call.

Commands:
  new SERVICE YEAR MONTH  begins a career; SERVICE is french, english or german,
                          from 1915 12 to 1918 10. --name and --squadron choose
                          what the service chooses otherwise
  squadrons SERVICE YEAR MONTH
                          the squadrons that can be chosen then, with their keys,
                          machines and known pilots; where each of them is only
                          follows when the career begins
  load | save             the career file in the user's folder
  status                  the career in a few lines, and what to do next
  mission                 writes the mission of the day into the simulator's folder
  fly                     has the stand-in simulator fly it
  report                  reads the simulator's log, shows the combat report,
                          carries it into the career and moves the war on
  advance [N]             moves the war on by N periods (1) without a flight
  until YYYYMMDD          mission, fly and report up to that day or the end of
                          the war; invitations are accepted
  squadron                the player's squadron
  aces                    the best pilots of the war
  invitation [accept|refuse]
                          the invitation to another squadron, and the answer
  flights                 the player's flights, from the record of the war
  logbook                 the flying log book: the flights in columns, and totals
  why [N]                 the combat report of flight N, of the last one without a
                          number, with the reason for each result
  diary                   what happened since the last flight: the squadron, the
                          front, the real war
  record                  the player's record of service: ranks, decorations and
                          victories by machine
  letter                  the letter about the player's pilot who fell last
  end                     after the war: what remains, and the aces of the war
  pilot NAME              the page of the pilot of that name, or of a part of it
  victories [NAME]        the player's victories, or those of the pilots of that
                          name or a part of it
  postings                who came to the player's squadron, left it or died
  book FILE.html          writes the log book as one web page
  export FILE.json        writes the whole record
  careers                 all careers: the current one, those on the shelf, those
                          put away
  take NUMBER             makes a career of the shelf the current one and loads it;
                          the current one goes to the shelf
  putaway NUMBER          moves a career to those put away
  pages                   the earlier saves of the current career
  page NAME               goes back to the earlier save of that name, a date as
                          YYYYMMDD or as pages writes it, and loads it
  doctor                  checks all that a career needs, from the simulator to the
                          pictures, and says what to do; --fix does part of it)";
inline constexpr const char* CareerEnding =
    "Exit status: 0 all commands did their work, 1 one of them failed, 2 invalid arguments.";
