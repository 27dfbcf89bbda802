#pragma once

class Database;
class MissionGenerator;

/// Rewrites the template in the generator's lines into the mission of the career's day and puts the
/// plan's planes in. REQUIRES: a location, a scanned template and a plan.
void generateMission(MissionGenerator& generator, const Database& career);
