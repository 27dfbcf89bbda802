#include "standin/log/LogPieces.h"

#include <algorithm>
#include <string_view>

namespace standin {

namespace {

constexpr std::string_view PieceHead = "T:0 AType:15 VER:18\r\n";
constexpr int32_t PieceTicks = 1474; // about; the mean of the simulator's pieces

} // namespace

std::vector<std::string> cutIntoPieces(const std::vector<TickLine>& lines, int32_t lastTick,
                                       zel::Random& random) {
    std::vector<std::string> pieces;
    size_t next = 0;
    for (int32_t end = 0; end <= lastTick;) {
        end += PieceTicks + random.getInt(-20, 20);
        std::string piece(PieceHead);
        for (; next < lines.size() && lines[next].tick < end; ++next)
            piece += lines[next].text;
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

void truncatePiece(std::string& piece, zel::Random& random) {
    std::vector<size_t> starts{0};
    for (size_t place = piece.find('\n'); place + 1 < piece.size();
         place = piece.find('\n', place + 1))
        starts.push_back(place + 1);
    const auto last = static_cast<int32_t>(starts.size()) - 1;
    const size_t start = starts[random.getInt(std::min(1, last), last)];
    const auto length = static_cast<int32_t>(piece.find('\r', start) - start);
    piece.resize(start + random.getInt(1, length - 1));
}

} // namespace standin
