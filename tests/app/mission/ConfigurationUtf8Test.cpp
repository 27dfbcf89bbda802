#include <gtest/gtest.h>

#include "app/mission/Configuration.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// As editors of today save it: Windows knows the folder by its code page, other systems by bytes.
TEST(ConfigurationUtf8, NamesTheFolderThatIsMeant) {
    const TemporaryFolder folder;
#ifdef _WIN32
    const zel::String meant = "D:\\Spiele\\F\xFCr mich\\";
#else
    const zel::String meant = "D:\\Spiele\\F\u00FCr mich\\";
#endif
    for (const char* mark : {"", "\xEF\xBB\xBF"}) {
        Configuration::reset();
        Configuration::load(folder.write(
            "settings.ini", std::string(mark) + "rof.directory=D:\\Spiele\\F\u00FCr mich\r\n"));
        EXPECT_EQ(Configuration::getRofDirectory(), meant);
    }
    Configuration::reset();
}

} // namespace
