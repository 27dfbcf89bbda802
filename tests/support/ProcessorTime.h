#pragma once

/// Processor time that all threads of the program have taken, in seconds.
double processorSeconds();
