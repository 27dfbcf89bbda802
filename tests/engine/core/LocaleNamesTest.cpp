#include "engine/core/LocaleNames.h"

#include <gtest/gtest.h>

namespace {

// The identifiers are those of Microsoft's list of locales.
TEST(LocaleNames, GiveTheIdentifierOfWindows) {
    EXPECT_EQ(zel::localeIdentifier("en_US.UTF-8"), 1033u);
    EXPECT_EQ(zel::localeIdentifier("en_GB"), 2057u);
    EXPECT_EQ(zel::localeIdentifier("de_AT@euro"), 3079u);
    EXPECT_EQ(zel::localeIdentifier("fr"), 1036u);
    EXPECT_EQ(zel::localeIdentifier("pt_BR.utf8"), 1046u);
    EXPECT_EQ(zel::localeIdentifier("de_IT.UTF-8"), 1031u) << "an unknown country";
}

TEST(LocaleNames, KnowNoLanguageInTheRest) {
    for (const char* name : {"", "C", "C.UTF-8", "POSIX", "d", "deu", "xx_DE", "_", "."})
        EXPECT_EQ(zel::localeIdentifier(name), 0u) << name;
}

} // namespace
