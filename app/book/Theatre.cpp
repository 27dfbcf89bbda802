#include "app/book/Theatre.h"

#include <iterator>

namespace {

/// A point of the earth, in degrees.
struct GeoPoint {
    float east;
    float north;
};

/// Map position of 3.5 degrees east, 50 degrees north, and metres per degree: both maps are true to
/// scale and almost north-up. Fitted to the airfields of app/career/Bases.cpp.
struct MapFit {
    float x, xByEast, xByNorth;
    float z, zByEast, zByNorth;
};
constexpr MapFit WesternFit = {181137, 2582, 117161, 112336, 70540, -4760};
constexpr MapFit ChannelFit = {-35300, 0, 111300, 251000, 70400, 0};

MapPoint onMap(const GeoPoint& place, bool onChannelMap) {
    const MapFit& fit = onChannelMap ? ChannelFit : WesternFit;
    const float east = place.east - 3.5F;
    const float north = place.north - 50;
    return {fit.x + fit.xByEast * east + fit.xByNorth * north,
            fit.z + fit.zByEast * east + fit.zByNorth * north};
}

struct NamedPlace {
    const char* name;
    GeoPoint place;
};

// clang-format off
constexpr NamedPlace Towns[] = {
    {"Nieuport", {2.75F, 51.13F}},    {"Furnes", {2.66F, 51.07F}},     {"Dixmude", {2.86F, 51.03F}},
    {"Bruges", {3.22F, 51.21F}},      {"Ostende", {2.92F, 51.23F}},    {"Zeebrugge", {3.20F, 51.33F}},
    {"Dunkerque", {2.38F, 51.04F}},   {"Ghent", {3.72F, 51.05F}},      {"Thielt", {3.33F, 51.00F}},
    {"Roulers", {3.12F, 50.95F}},     {"Ypres", {2.88F, 50.85F}},      {"Poperinghe", {2.73F, 50.86F}},
    {"Menin", {3.12F, 50.80F}},       {"Courtrai", {3.26F, 50.83F}},   {"Messines", {2.90F, 50.77F}},
    {"Armentieres", {2.88F, 50.69F}}, {"Hazebrouck", {2.54F, 50.72F}}, {"St. Omer", {2.25F, 50.75F}},
    {"Bailleul", {2.73F, 50.74F}},    {"Lille", {3.06F, 50.63F}},      {"Tournai", {3.39F, 50.61F}},
    {"Bethune", {2.64F, 50.53F}},     {"La Bassee", {2.80F, 50.53F}},  {"Lens", {2.83F, 50.43F}},
    {"St. Pol", {2.33F, 50.38F}},     {"Douai", {3.08F, 50.37F}},      {"Valenciennes", {3.52F, 50.36F}},
    {"Arras", {2.78F, 50.29F}},       {"Cambrai", {3.24F, 50.18F}},    {"Doullens", {2.34F, 50.16F}},
    {"Le Cateau", {3.54F, 50.10F}},   {"Bapaume", {2.85F, 50.10F}},    {"Albert", {2.65F, 50.00F}},
    {"Peronne", {2.94F, 49.93F}},     {"Cappy", {2.77F, 49.93F}},      {"Amiens", {2.30F, 49.89F}},
    {"St. Quentin", {3.29F, 49.85F}}, {"Guise", {3.63F, 49.90F}},      {"Hirson", {4.08F, 49.92F}},
    {"Montdidier", {2.57F, 49.65F}},  {"Roye", {2.79F, 49.70F}},       {"Noyon", {3.00F, 49.58F}},
    {"Laon", {3.62F, 49.56F}},        {"Compiegne", {2.83F, 49.42F}},  {"Soissons", {3.32F, 49.38F}},
    {"Rethel", {4.37F, 49.51F}},      {"Fismes", {3.68F, 49.31F}},     {"Reims", {4.03F, 49.26F}},
    {"Epernay", {3.96F, 49.04F}},     {"Chateau-Thierry", {3.40F, 49.04F}}, {"Chalons", {4.36F, 48.96F}},
    {"Vouziers", {4.70F, 49.40F}},    {"Ste. Menehould", {4.90F, 49.09F}}, {"Stenay", {5.19F, 49.49F}},
    {"Verdun", {5.38F, 49.16F}},      {"Etain", {5.64F, 49.21F}},      {"Conflans", {5.86F, 49.17F}},
    {"Briey", {5.94F, 49.25F}},       {"Bar-le-Duc", {5.16F, 48.77F}}, {"St. Mihiel", {5.54F, 48.89F}},
    {"Metz", {6.18F, 49.12F}},        {"Thiaucourt", {5.86F, 48.95F}}, {"Pont-a-Mousson", {6.05F, 48.91F}},
    {"Toul", {5.89F, 48.68F}},        {"Nancy", {6.18F, 48.69F}},      {"Chateau-Salins", {6.51F, 48.82F}},
    {"Luneville", {6.50F, 48.59F}},
};

// From Dieppe to the Scheldt.
constexpr GeoPoint Coast[] = {
    {1.08F, 49.93F}, {1.37F, 50.06F}, {1.55F, 50.22F}, {1.58F, 50.40F}, {1.58F, 50.73F}, {1.60F, 50.87F},
    {1.85F, 50.97F}, {2.12F, 51.01F}, {2.37F, 51.06F}, {2.75F, 51.15F}, {2.92F, 51.24F}, {3.20F, 51.34F},
    {3.45F, 51.40F}, {3.90F, 51.44F}, {4.20F, 51.60F},
};

// The front in pieces that changed at different times, from the sea on.
constexpr GeoPoint Yser[] = {{2.74F, 51.15F}, {2.86F, 51.03F}, {2.88F, 50.94F}};
constexpr GeoPoint YserOctober[] = {{3.38F, 51.37F}, {3.52F, 51.20F}, {3.58F, 51.02F}};
constexpr GeoPoint YserNovember[] = {{3.80F, 51.25F}, {3.74F, 51.10F}, {3.72F, 50.98F}};

constexpr GeoPoint Ypres[] = {{2.92F, 50.89F}, {2.95F, 50.85F}, {2.90F, 50.81F}, {2.88F, 50.78F}, {2.91F, 50.73F}};
constexpr GeoPoint YpresSummer1917[] = {{2.93F, 50.90F}, {2.97F, 50.86F}, {2.95F, 50.81F}, {2.94F, 50.76F}, {2.92F, 50.72F}};
constexpr GeoPoint YpresWinter1917[] = {{2.95F, 50.94F}, {3.03F, 50.91F}, {3.00F, 50.84F}, {2.95F, 50.77F}, {2.92F, 50.72F}};
constexpr GeoPoint YpresApril1918[] = {{2.88F, 50.91F}, {2.92F, 50.87F}, {2.88F, 50.81F}, {2.79F, 50.78F}, {2.68F, 50.74F}};
constexpr GeoPoint YpresOctober1918[] = {{3.12F, 50.98F}, {3.12F, 50.90F}, {3.06F, 50.82F}, {3.00F, 50.76F}, {2.96F, 50.71F}};
constexpr GeoPoint YpresEnd[] = {{3.60F, 50.92F}, {3.58F, 50.85F}, {3.48F, 50.76F}, {3.40F, 50.68F}, {3.37F, 50.62F}};

constexpr GeoPoint Lys[] = {{2.93F, 50.68F}, {2.82F, 50.60F}, {2.76F, 50.55F}};
constexpr GeoPoint Lys1918[] = {{2.60F, 50.68F}, {2.61F, 50.62F}, {2.72F, 50.56F}};
constexpr GeoPoint LysAutumn[] = {{2.94F, 50.66F}, {2.90F, 50.58F}, {2.84F, 50.52F}};
constexpr GeoPoint LysEnd[] = {{3.38F, 50.56F}, {3.45F, 50.48F}, {3.52F, 50.42F}};

constexpr GeoPoint Artois[] = {{2.79F, 50.46F}, {2.77F, 50.38F}, {2.81F, 50.30F}, {2.78F, 50.24F}};
constexpr GeoPoint Artois1917[] = {{2.81F, 50.44F}, {2.87F, 50.37F}, {2.90F, 50.33F}, {2.92F, 50.26F}, {2.93F, 50.20F}};
constexpr GeoPoint Artois1918[] = {{2.82F, 50.44F}, {2.86F, 50.36F}, {2.85F, 50.29F}, {2.75F, 50.21F}};
constexpr GeoPoint ArtoisAutumn[] = {{2.90F, 50.44F}, {3.00F, 50.36F}, {3.08F, 50.27F}, {3.16F, 50.20F}};
constexpr GeoPoint ArtoisEnd[] = {{3.54F, 50.38F}, {3.62F, 50.30F}, {3.65F, 50.22F}};

constexpr GeoPoint Somme[] = {{2.66F, 50.14F}, {2.67F, 50.06F}, {2.72F, 50.00F}, {2.80F, 49.96F}, {2.79F, 49.88F}, {2.76F, 49.80F}, {2.74F, 49.70F}, {2.84F, 49.59F}, {2.95F, 49.51F}};
constexpr GeoPoint SommeAutumn1916[] = {{2.66F, 50.14F}, {2.71F, 50.07F}, {2.80F, 50.07F}, {2.89F, 50.03F}, {2.91F, 49.97F}, {2.89F, 49.90F}, {2.80F, 49.82F}, {2.74F, 49.70F}, {2.84F, 49.59F}, {2.95F, 49.51F}};
constexpr GeoPoint Siegfried[] = {{3.06F, 50.14F}, {3.13F, 50.06F}, {3.18F, 49.98F}, {3.22F, 49.91F}, {3.27F, 49.84F}, {3.35F, 49.74F}, {3.35F, 49.66F}, {3.32F, 49.56F}};
constexpr GeoPoint Spring1918[] = {{2.65F, 50.13F}, {2.62F, 50.03F}, {2.62F, 49.95F}, {2.55F, 49.87F}, {2.49F, 49.77F}, {2.53F, 49.65F}, {2.72F, 49.55F}, {2.90F, 49.55F}};
constexpr GeoPoint August1918[] = {{2.75F, 50.13F}, {2.74F, 50.04F}, {2.76F, 49.93F}, {2.74F, 49.83F}, {2.75F, 49.70F}, {2.82F, 49.58F}, {2.98F, 49.52F}};
constexpr GeoPoint October1918[] = {{3.30F, 50.14F}, {3.32F, 50.04F}, {3.35F, 49.95F}, {3.40F, 49.84F}, {3.44F, 49.72F}, {3.46F, 49.62F}};
constexpr GeoPoint SommeEnd[] = {{3.70F, 50.14F}, {3.72F, 50.05F}, {3.74F, 49.95F}, {3.80F, 49.86F}, {3.95F, 49.76F}};

constexpr GeoPoint Aisne[] = {{3.10F, 49.45F}, {3.32F, 49.41F}, {3.52F, 49.41F}, {3.76F, 49.42F}, {3.90F, 49.40F}};
constexpr GeoPoint Aisne1917[] = {{3.42F, 49.48F}, {3.55F, 49.46F}, {3.78F, 49.45F}, {3.91F, 49.42F}};
constexpr GeoPoint Marne1918[] = {{3.12F, 49.46F}, {3.22F, 49.34F}, {3.20F, 49.20F}, {3.30F, 49.08F}, {3.45F, 49.05F}, {3.64F, 49.09F}, {3.85F, 49.18F}, {3.96F, 49.27F}};
constexpr GeoPoint Vesle[] = {{3.18F, 49.43F}, {3.34F, 49.39F}, {3.55F, 49.34F}, {3.72F, 49.31F}, {3.92F, 49.32F}};
constexpr GeoPoint AisneOctober[] = {{3.50F, 49.54F}, {3.62F, 49.48F}, {3.82F, 49.46F}, {3.96F, 49.44F}};
constexpr GeoPoint AisneEnd[] = {{4.10F, 49.70F}, {4.25F, 49.64F}, {4.40F, 49.58F}};

constexpr GeoPoint Champagne[] = {{4.07F, 49.30F}, {4.26F, 49.22F}, {4.45F, 49.20F}, {4.62F, 49.20F}, {4.78F, 49.19F}, {4.95F, 49.21F}, {5.07F, 49.21F}, {5.18F, 49.26F}};
constexpr GeoPoint ChampagneOctober[] = {{4.15F, 49.36F}, {4.35F, 49.34F}, {4.55F, 49.32F}, {4.72F, 49.32F}, {4.90F, 49.32F}, {5.05F, 49.33F}, {5.18F, 49.34F}};
constexpr GeoPoint ChampagneEnd[] = {{4.55F, 49.58F}, {4.72F, 49.60F}, {4.90F, 49.62F}, {5.02F, 49.60F}, {5.12F, 49.54F}};

constexpr GeoPoint VerdunBefore[] = {{5.33F, 49.31F}, {5.47F, 49.31F}, {5.58F, 49.22F}, {5.60F, 49.10F}};
constexpr GeoPoint Verdun1916[] = {{5.28F, 49.24F}, {5.36F, 49.22F}, {5.43F, 49.20F}, {5.50F, 49.17F}, {5.57F, 49.10F}};
constexpr GeoPoint VerdunAfter[] = {{5.30F, 49.27F}, {5.39F, 49.26F}, {5.47F, 49.23F}, {5.54F, 49.18F}, {5.59F, 49.10F}};
constexpr GeoPoint VerdunEnd[] = {{5.22F, 49.44F}, {5.38F, 49.36F}, {5.52F, 49.27F}, {5.60F, 49.18F}};

constexpr GeoPoint Woevre[] = {{5.60F, 49.05F}, {5.52F, 48.92F}, {5.55F, 48.86F}, {5.66F, 48.85F}, {5.85F, 48.87F}, {6.03F, 48.93F}};
constexpr GeoPoint WoevreAutumn[] = {{5.66F, 49.06F}, {5.75F, 49.02F}, {5.88F, 48.99F}, {6.03F, 48.95F}};
constexpr GeoPoint Lorraine[] = {{6.22F, 48.88F}, {6.40F, 48.78F}, {6.55F, 48.70F}, {6.72F, 48.60F}, {6.95F, 48.42F}};
// clang-format on

struct FrontStretch {
    const GeoPoint* points;
    size_t count;
};
template <size_t Count> constexpr FrontStretch stretch(const GeoPoint (&points)[Count]) {
    return {points, Count};
}

/// Takes effect on that day and replaces the row before it.
struct FrontChange {
    int32_t since;
    int32_t stretch; // its index from the sea on
    FrontStretch line;
};

constexpr int32_t Stretches = 9;
// clang-format off
constexpr FrontChange Changes[] = {
    {0, 0, stretch(Yser)}, {0, 1, stretch(Ypres)}, {0, 2, stretch(Lys)}, {0, 3, stretch(Artois)}, {0, 4, stretch(Somme)},
    {0, 5, stretch(Aisne)}, {0, 6, stretch(Champagne)}, {0, 7, stretch(VerdunBefore)}, {0, 8, stretch(Woevre)},
    {19160301, 7, stretch(Verdun1916)},
    {19160901, 4, stretch(SommeAutumn1916)},
    {19161216, 7, stretch(VerdunAfter)},
    {19170320, 4, stretch(Siegfried)},
    {19170412, 3, stretch(Artois1917)},
    {19170501, 5, stretch(Aisne1917)},
    {19170801, 1, stretch(YpresSummer1917)},
    {19171110, 1, stretch(YpresWinter1917)},
    {19180328, 3, stretch(Artois1918)}, {19180328, 4, stretch(Spring1918)},
    {19180415, 1, stretch(YpresApril1918)}, {19180415, 2, stretch(Lys1918)},
    {19180530, 5, stretch(Marne1918)},
    {19180803, 5, stretch(Vesle)},
    {19180812, 4, stretch(August1918)},
    {19180905, 2, stretch(LysAutumn)}, {19180905, 3, stretch(ArtoisAutumn)}, {19180905, 4, stretch(Siegfried)},
    {19180914, 8, stretch(WoevreAutumn)},
    {19181001, 1, stretch(YpresOctober1918)},
    {19181010, 4, stretch(October1918)}, {19181010, 5, stretch(AisneOctober)}, {19181010, 6, stretch(ChampagneOctober)},
    {19181020, 0, stretch(YserOctober)}, {19181020, 1, stretch(YpresEnd)}, {19181020, 2, stretch(LysEnd)},
    {19181105, 0, stretch(YserNovember)}, {19181105, 3, stretch(ArtoisEnd)}, {19181105, 4, stretch(SommeEnd)},
    {19181105, 5, stretch(AisneEnd)}, {19181105, 6, stretch(ChampagneEnd)}, {19181105, 7, stretch(VerdunEnd)},
};
// clang-format on

// The Channel map ends south of Lille, the western one north of it.
constexpr float ChannelEnd = 50.5F;

} // namespace

std::vector<Town> townsOf(bool onChannelMap) {
    std::vector<Town> towns;
    for (const NamedPlace& town : Towns)
        if (!onChannelMap || town.place.north > ChannelEnd)
            towns.push_back({town.name, onMap(town.place, onChannelMap)});
    return towns;
}

std::vector<MapPoint> coastOf(bool onChannelMap) {
    std::vector<MapPoint> coast;
    for (const GeoPoint& place : Coast)
        coast.push_back(onMap(place, onChannelMap));
    return coast;
}

std::vector<MapPoint> frontOf(int32_t date, bool onChannelMap) {
    FrontStretch now[Stretches] = {};
    for (const FrontChange& change : Changes)
        if (change.since <= date)
            now[change.stretch] = change.line;
    std::vector<MapPoint> front;
    const auto add = [&](const GeoPoint* points, size_t count) {
        for (size_t i = 0; i < count; ++i)
            if (!onChannelMap || points[i].north > ChannelEnd)
                front.push_back(onMap(points[i], onChannelMap));
    };
    for (const FrontStretch& one : now)
        add(one.points, one.count);
    add(Lorraine, std::size(Lorraine));
    return front;
}

const char* townNear(const MapPoint& point, bool onChannelMap, float metres) {
    const char* nearest = nullptr;
    float least = metres * metres;
    for (const Town& town : townsOf(onChannelMap)) {
        const float x = town.place.x - point.x;
        const float z = town.place.z - point.z;
        if (x * x + z * z <= least) {
            least = x * x + z * z;
            nearest = town.name;
        }
    }
    return nearest;
}
