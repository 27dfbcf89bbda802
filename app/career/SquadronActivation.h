#pragma once

class Database;
class Calendar;

/// Switches on the squadrons whose day has come, and generated ones up to each nation's strength.
void activateSquadrons(Database& career, const Calendar& date);
