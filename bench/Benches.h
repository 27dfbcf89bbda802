#pragma once

/// Register the benchmarks of the two files, and the ratios that they are held to.
void registerCareerBenches();
void registerFileBenches();

/// Simulates a whole war and returns the most memory that the process has taken so far, in MB; 0
/// where the system doesn't tell.
double peakMemoryOfWar();
