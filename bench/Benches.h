#pragma once

/// Register the benchmarks of the three files, and the ratios that they are held to.
void registerCareerBenches();
void registerFileBenches();
void registerRecordBenches();

/// Simulates a whole war and returns the process's peak memory so far, in MB; 0 where the system
/// doesn't report it.
double peakMemoryOfWar();

/// Simulates a whole war and returns the size of its record, in MB.
double recordSizeOfWar();
