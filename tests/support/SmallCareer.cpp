#include "tests/support/SmallCareer.h"

#include <gtest/gtest.h>

#include "app/career/Aircraft.h"
#include "engine/core/Clock.h"
#include "engine/core/Registry.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/Texts.h"

namespace fs = std::filesystem;

SmallWorld::SmallWorld() : planes(3), before(fs::current_path()) {
    folder.write("Data/Names/France_1st.txt", "Jean\nLuc\nRene\n");
    folder.write("Data/Names/France_2nd.txt", "Petit\nNoir\n");
    folder.write("Data/Names/England_1st.txt", "John\nHarry\nTom\n");
    folder.write("Data/Names/England_2nd.txt", "Smith\nBrown\n");
    folder.write("Data/Names/Germany_1st.txt", "Hans\nOtto\nFritz\n");
    folder.write("Data/Names/Germany_2nd.txt", "Braun\nKlein\n");
    folder.write("Data/Names/USA_1st.txt", "Bill\nJoe\nSam\n");
    folder.write("Data/Names/USA_2nd.txt", "Young\nHill\n");
    fs::create_directories(folder.file("Data/Historical/Squadrons"));
    fs::create_directories(folder.file("Data/Historical/Pilots"));
    fs::current_path(folder.path());
    zel::setApplicationTitle("Wingtally");
    zel::setUserDirectory(folder.path() + "/user");
    zel::Registry::reset();
    zel::setTickSource([] { return 0U; });
    zel::seedSharedRandom(2);
    zel::Random::setStaticNumber(1); // after seeding: a newly built shared generator takes one
    setPlaneRandom(&planes);
}

SmallWorld::~SmallWorld() {
    setPlaneRandom(nullptr);
    zel::setTickSource(nullptr);
    zel::setUserDirectory("");
    zel::Registry::reset();
    fs::current_path(before);
}

void SmallWorld::addSquadron(std::string_view key, std::string_view text, const char* kind) {
    folder.write(std::string("Data/") + kind + "/Squadrons/" + std::string(key) + ".txt", text);
}

void SmallWorld::addPilot(std::string_view name, std::string_view text, const char* kind) {
    folder.write(std::string("Data/") + kind + "/Pilots/" + std::string(name) + ".txt", text);
}

void SmallWorld::addHistory() {
    addSquadron("101003",
                "date=19151101 until=19160501 action=skin aircraft=nieuport11 skin=stork\n"
                "date=19160301 aircraft=nieuport17\n");
    addSquadron("102024", "date=19160207 aircraft=dh2 skin=plain\n");
    addSquadron("501002", "date=19160820 aircraft=halberstadtd2\n"
                          "date=19151115 aircraft=fokkere3 skin=grey\n");
    addSquadron("101003", "DATE=19151001 aircraft=spad7early\r\n", "Custom");
    addSquadron("103094", "date=19180201 aircraft=nieuport28", "Custom");
    addPilot("Karl Falke", "date=19151201 until=19160630 action=transfer unit=501002 acelevel=1\n"
                           "date=19160701 action=aceskin aircraft=fokkere3 skin=black\n");
    addPilot("Lucien Cigale", "date=19160101 unit=101003 acelevel=2 acepotential=14\n", "Custom");
}

void SmallWorld::pin(Database& career) const {
    career.random.seed(1);
    career.careerNumber = 12345;
}

std::string SmallWorld::savedBytes() const {
    return folder.read(std::string("user/") + SaveFileName);
}

std::string referenceResult(const std::string& name) {
    const std::string text = fileText(REFERENCE_FOLDER "/" + name);
    EXPECT_FALSE(text.empty()) << name;
    return text;
}
