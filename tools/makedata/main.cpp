#include <cstdio>

#include "tools/makedata/DataFiles.h"

// Status 0: the folder holds what the tables say; 1: a fault; 2: a wrong call.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Usage: wingtally-makedata SOURCE_DIR OUTPUT_DIR\n"
                   "Turns the tables in SOURCE_DIR/history and SOURCE_DIR/names into the data\n"
                   "files of the program, in OUTPUT_DIR/Historical and OUTPUT_DIR/Names.\n",
                   stderr);
        return 2;
    }
    tables::Tables read;
    tables::Faults faults;
    if (!tables::readTables(argv[1], read, faults)) {
        for (const std::string& fault : faults)
            std::fprintf(stderr, "%s/%s\n", argv[1], fault.c_str());
        return 1;
    }
    std::string fault;
    if (!tables::writeFiles(tables::makeFiles(read), argv[2], fault)) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        return 1;
    }
    return 0;
}
