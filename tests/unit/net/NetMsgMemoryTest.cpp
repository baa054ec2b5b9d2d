#include "vtl/net/NetMsgMemory.h"

#include "tests/support/RandomInput.h"

#include <algorithm>
#include <cstring>
#include <future>
#include <gtest/gtest.h>
#include <vector>

namespace Vantrel {
namespace {

struct Piece {
    unsigned char* memory;
    std::size_t size;
    int mark;
};

std::vector<Piece> allocateMany(std::size_t largest) {
    std::vector<Piece> pieces(20'000);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::size_t size = 1 + i % (i % 50 == 0 ? 3000 : largest);
        auto* const memory = static_cast<unsigned char*>(NetMsgMemory::allocate(size));
        pieces[i] = {memory, size, static_cast<int>(i % 251)};
        std::memset(memory, pieces[i].mark, size);
    }
    return pieces;
}

TEST(NetMsgMemoryTest, PiecesStayApartWhicheverThreadReleasesThem) {
    Tests::RandomInput random;
    std::size_t damaged = 0;
    std::vector<Piece> held; // some outlive many others
    auto allocation = std::async(std::launch::async, allocateMany, 100);
    for (int round = 0; round < 20; ++round) {
        for (const Piece& piece : allocation.get()) {
            held.push_back(piece);
        }
        allocation = std::async(std::launch::async, allocateMany, random.index(1, 200));
        for (const std::size_t most = round < 19 ? 5000 : 0; held.size() > most; held.pop_back()) {
            std::swap(held.back(), held[random.index(0, held.size() - 1)]);
            const auto [memory, size, mark] = held.back();
            damaged += std::count(memory, memory + size, mark) == static_cast<std::ptrdiff_t>(size) ? 0U : 1U;
            const std::size_t alignment =
                size % 16 == 0 ? 16 : 8; // more than an object of this size can need
            damaged += reinterpret_cast<std::uintptr_t>(memory) % alignment == 0 ? 0U : 1U;
            NetMsgMemory::release(memory, size);
        }
    }
    for (const Piece& piece : allocation.get()) {
        NetMsgMemory::release(piece.memory, piece.size);
    }
    EXPECT_EQ(damaged, 0U);
}

} // namespace
} // namespace Vantrel
