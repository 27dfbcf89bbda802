#include "engine/core/LocaleNames.h"

namespace zel {

namespace {

struct LocaleName {
    const char* language;
    const char* country;
    uint32_t identifier;
};

// The languages of Europe and the larger ones elsewhere, from Microsoft's list of language
// identifiers ([MS-LCID]). The first row of a language is for unknown countries.
// clang-format off
constexpr LocaleName LocaleNames[] = {
    {"bg", "BG", 1026}, {"ca", "ES", 1027}, {"cs", "CZ", 1029}, {"da", "DK", 1030},
    {"de", "DE", 1031}, {"de", "CH", 2055}, {"de", "AT", 3079}, {"de", "LU", 4103},
    {"de", "LI", 5127}, {"el", "GR", 1032},
    {"en", "US", 1033}, {"en", "GB", 2057}, {"en", "AU", 3081}, {"en", "CA", 4105},
    {"en", "NZ", 5129}, {"en", "IE", 6153}, {"en", "ZA", 7177},
    {"es", "ES", 3082}, {"es", "MX", 2058}, {"es", "GT", 4106}, {"es", "CR", 5130},
    {"es", "PA", 6154}, {"es", "DO", 7178}, {"es", "VE", 8202}, {"es", "CO", 9226},
    {"es", "PE", 10250}, {"es", "AR", 11274}, {"es", "EC", 12298}, {"es", "CL", 13322},
    {"es", "UY", 14346}, {"es", "PY", 15370}, {"es", "BO", 16394}, {"es", "SV", 17418},
    {"es", "HN", 18442}, {"es", "NI", 19466}, {"es", "PR", 20490}, {"es", "US", 21514},
    {"es", "CU", 23562}, {"et", "EE", 1061}, {"fi", "FI", 1035},
    {"fr", "FR", 1036}, {"fr", "BE", 2060}, {"fr", "CA", 3084}, {"fr", "CH", 4108},
    {"fr", "LU", 5132}, {"hr", "HR", 1050}, {"hu", "HU", 1038}, {"is", "IS", 1039},
    {"it", "IT", 1040}, {"it", "CH", 2064}, {"ja", "JP", 1041}, {"ko", "KR", 1042},
    {"lt", "LT", 1063}, {"lv", "LV", 1062}, {"nb", "NO", 1044}, {"nn", "NO", 2068},
    {"nl", "NL", 1043}, {"nl", "BE", 2067}, {"pl", "PL", 1045},
    {"pt", "PT", 2070}, {"pt", "BR", 1046}, {"ro", "RO", 1048}, {"ru", "RU", 1049},
    {"sk", "SK", 1051}, {"sl", "SI", 1060}, {"sv", "SE", 1053}, {"sv", "FI", 2077},
    {"tr", "TR", 1055}, {"uk", "UA", 1058}, {"zh", "CN", 2052}, {"zh", "TW", 1028},
};
// clang-format on

} // namespace

uint32_t localeIdentifier(std::string_view posixName) {
    posixName = posixName.substr(0, posixName.find_first_of(".@"));
    const size_t gap = posixName.find('_');
    const std::string_view language = posixName.substr(0, gap);
    const std::string_view country =
        gap == posixName.npos ? std::string_view() : posixName.substr(gap + 1);
    uint32_t result = 0;
    for (const LocaleName& row : LocaleNames) {
        if (language != row.language)
            continue;
        if (country == row.country)
            return row.identifier;
        if (result == 0)
            result = row.identifier;
    }
    return result;
}

} // namespace zel
