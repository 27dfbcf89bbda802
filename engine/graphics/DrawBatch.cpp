#include "engine/graphics/DrawBatch.h"

#include <algorithm>
#include <cstring>

namespace zel {

namespace {

// A run further back than this is rarely found, and the search costs more than it saves.
constexpr size_t LongestSearch = 64;
// With more pieces than this a run counts as covering the rectangle around all of them.
constexpr size_t MostPieces = 64;

bool touch(const Rect& a, const Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool touches(const DrawBatch::Run& run, const Rect& bounds) {
    return std::any_of(run.bounds.begin(), run.bounds.end(),
                       [&bounds](const Rect& piece) { return touch(piece, bounds); });
}

Rect around(const Rect& a, const Rect& b) {
    const float x = std::min(a.x, b.x);
    const float y = std::min(a.y, b.y);
    return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

void cover(DrawBatch::Run& run, const Rect& bounds) {
    if (run.bounds.size() == MostPieces) {
        for (const Rect& piece : run.bounds)
            run.bounds.front() = around(run.bounds.front(), piece);
        run.bounds.resize(1);
    }
    run.bounds.push_back(bounds);
}

} // namespace

bool operator==(const DrawKey& a, const DrawKey& b) {
    return a.texture == b.texture && a.blend == b.blend && a.clipX == b.clipX &&
           a.clipY == b.clipY && a.clipWidth == b.clipWidth && a.clipHeight == b.clipHeight;
}

std::vector<Vertex>& DrawBatch::add(const DrawKey& key, const Rect& bounds) {
    // One pixel more all around: filtering may touch the neighbours of a corner between pixels.
    const Rect covered{bounds.x - 1, bounds.y - 1, bounds.width + 2, bounds.height + 2};
    const size_t last = used > LongestSearch ? used - LongestSearch : 0;
    for (size_t index = used; index > last; --index) {
        Run& run = runs[index - 1];
        if (run.key == key) {
            cover(run, covered);
            return run.vertices;
        }
        if (touches(run, covered))
            break;
    }
    Run& run = newRun(key);
    cover(run, covered);
    return run.vertices;
}

bool DrawBatch::shows(uint32_t texture) const {
    return std::any_of(runs.begin(), runs.begin() + static_cast<std::ptrdiff_t>(used),
                       [texture](const Run& run) { return run.key.texture == texture; });
}

DrawBatch::Run& DrawBatch::newRun(const DrawKey& key) {
    if (used == runs.size())
        runs.emplace_back();
    Run& run = runs[used++];
    run.key = key;
    run.vertices.clear();
    run.bounds.clear();
    return run;
}

bool DrawBatch::operator==(const DrawBatch& other) const {
    if (used != other.used)
        return false;
    for (size_t index = 0; index < used; ++index) {
        const Run& mine = runs[index];
        const Run& theirs = other.runs[index];
        if (mine.key != theirs.key || mine.vertices.size() != theirs.vertices.size() ||
            (!mine.vertices.empty() && std::memcmp(mine.vertices.data(), theirs.vertices.data(),
                                                   mine.vertices.size() * sizeof(Vertex)) != 0))
            return false;
    }
    return true;
}

} // namespace zel
