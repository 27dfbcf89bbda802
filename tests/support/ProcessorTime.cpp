#include "tests/support/ProcessorTime.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <ctime>
#endif

#ifdef _WIN32
// The C library's clock runs on while the program rests.
double processorSeconds() {
    FILETIME made;
    FILETIME ended;
    FILETIME kernel;
    FILETIME user;
    if (GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user) == 0)
        return 0;
    const auto seconds = [](const FILETIME& time) { // of units of 100 nanoseconds
        return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) * 1e-7;
    };
    return seconds(kernel) + seconds(user);
}
#else
double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }
#endif
