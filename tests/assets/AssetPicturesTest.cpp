#include "vtl/gl/texture/ImageFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Vantrel {
namespace {

using Pixel = std::array<int, 4>;

/** An image that was made for the viewer, by its pixels from the lower left. */
class MadeImage {
public:
    explicit MadeImage(const std::string& file)
        : surface(convertToGLCoordinates(readImageFile(KELDIN_DATA + file, 8192))) {
        if (!surface) {
            throw std::runtime_error("can't read " + file);
        }
    }

    int width() const { return surface->w; }
    int height() const { return surface->h; }
    Pixel at(int x, int y) const {
        const auto* const pixel =
            static_cast<const std::uint8_t*>(surface->pixels) + y * surface->pitch + x * 4;
        return {pixel[0], pixel[1], pixel[2], pixel[3]};
    }
    /** The mean difference of two columns, or of two rows. */
    double columnDifference(int a, int b) const {
        return meanDifference(height(), [&](int i) { return std::pair(at(a, i), at(b, i)); });
    }
    double rowDifference(int a, int b) const {
        return meanDifference(width(), [&](int i) { return std::pair(at(i, a), at(i, b)); });
    }

private:
    template <class Pair>
    static double meanDifference(int count, const Pair& pairAt) {
        double sum = 0;
        for (int i = 0; i < count; ++i) {
            const auto [a, b] = pairAt(i);
            for (std::size_t channel = 0; channel < 3; ++channel) {
                sum += std::abs(a[channel] - b[channel]);
            }
        }
        return sum / (3 * count);
    }

    SDLSurface surface;
};

/** How far apart the colours of one point of the cube may be: JPEG changes each side of an edge by itself. */
constexpr int mostOfJpeg = 40;

/** Where the lower left corner of each square of the sky is on the cube, and where its U and V go. */
struct SkySquare {
    std::array<int, 3> corner;
    std::array<int, 3> u;
    std::array<int, 3> v;
};
constexpr std::array<SkySquare, 6> skySquares{{{{-1, 1, -1}, {1, 0, 0}, {0, 0, 1}},
                                               {{1, 1, -1}, {0, -1, 0}, {0, 0, 1}},
                                               {{1, -1, -1}, {-1, 0, 0}, {0, 0, 1}},
                                               {{-1, -1, -1}, {0, 1, 0}, {0, 0, 1}},
                                               {{1, -1, -1}, {0, 1, 0}, {-1, 0, 0}},
                                               {{1, 1, 1}, {0, -1, 0}, {-1, 0, 0}}}};

TEST(SkyTest, SquaresMeetInTwelveEdges) {
    const MadeImage sky("local/images/skyboxes/sky_cloudy3+6.jpg");
    const int side = sky.height();
    ASSERT_EQ(sky.width(), 6 * side);
    ASSERT_GE(side, 1024);
    const int last = side - 1;
    std::map<std::array<int, 3>, std::vector<Pixel>> seen; // by the place on the cube
    for (int square = 0; square < 6; ++square) {
        const auto& [corner, u, v] = skySquares[static_cast<std::size_t>(square)];
        const auto look = [&](int x, int y) {
            std::array<int, 3> place{};
            for (std::size_t i = 0; i < 3; ++i) {
                place[i] = corner[i] * last + 2 * (u[i] * x + v[i] * y);
            }
            seen[place].push_back(sky.at(square * side + x, y));
        };
        for (int i = 1; i < last; ++i) {
            for (const int end : {0, last}) {
                look(i, end);
                look(end, i);
            }
        }
    }
    EXPECT_EQ(seen.size(), 12U * static_cast<std::size_t>(side - 2));
    int apart = 0;
    for (const auto& [place, colors] : seen) {
        ASSERT_EQ(colors.size(), 2U);
        for (std::size_t channel = 0; channel < 3; ++channel) {
            apart += std::abs(colors[0][channel] - colors[1][channel]) > mostOfJpeg ? 1 : 0;
        }
    }
    EXPECT_LT(apart, side / 50) << "of " << seen.size() << " places on edges";
}

TEST(SkyTest, SunStandsAtTheZenith) {
    const MadeImage sky("local/images/skyboxes/sky_cloudy3+6.jpg");
    const int side = sky.height();
    const auto brightness = [&](int x, int y) {
        const Pixel pixel = sky.at(5 * side + x, y);
        return pixel[0] + pixel[1] + pixel[2];
    };
    EXPECT_GT(brightness(side / 2, side / 2), 3 * 245);
    EXPECT_LT(brightness(side / 2 + side / 10, side / 2), 3 * 200);
}

TEST(TileTest, RepeatsWithoutASeam) {
    const MadeImage grass("local/models/grassFloor.jpg");
    const MadeImage runway("shared/models/RunwayBase.jpg");
    const int last = grass.width() - 1;
    EXPECT_LT(grass.columnDifference(last, 0), 1.4 * grass.columnDifference(99, 100));
    EXPECT_LT(grass.rowDifference(last, 0), 1.4 * grass.rowDifference(99, 100));
    EXPECT_LT(runway.rowDifference(runway.height() - 1, 0), 1.4 * runway.rowDifference(99, 100));
}

TEST(MarkTest, PulseHasASharpFrontAndAFadingTailAllAlongV) {
    const MadeImage pulse("shared/images/whiteStripOnTransparent.png");
    int front = 0;
    int last = 0;
    for (int x = 0; x < pulse.width(); ++x) {
        const Pixel pixel = pulse.at(x, 0);
        EXPECT_TRUE(pixel[0] == 255 && pixel[1] == 255 && pixel[2] == 255) << "no dark fringe";
        EXPECT_EQ(pulse.at(x, pulse.height() - 1), pixel);
        if (pixel[3] >= last && front == x) {
            front = x + 1;
        }
        last = pixel[3];
    }
    EXPECT_GT(front, pulse.width() * 3 / 4) << "opacity rises up to there";
    EXPECT_LT(pulse.at(front + 3, 0)[3], 8) << "and falls at once";
}

TEST(MarkTest, BarsOfTheThresholdAreOnNothingAndAlikeFromBothEnds) {
    const MadeImage keys("shared/images/pianokey.png");
    constexpr int opaque = 128;
    int bars = 0;
    for (int x = 1; x < keys.width(); ++x) {
        bars += keys.at(x - 1, keys.height() / 2)[3] == 0 && keys.at(x, keys.height() / 2)[3] > 0 ? 1 : 0;
        for (const int y : {0, keys.height() / 8, keys.height() / 3}) {
            EXPECT_EQ(keys.at(x, y)[3] > opaque, keys.at(x, keys.height() - 1 - y)[3] > opaque)
                << x << " " << y;
            EXPECT_GT(keys.at(x, y)[0], 180) << "no dark fringe";
        }
    }
    EXPECT_EQ(bars, 6);
}

TEST(MarkTest, DipoleArrayIsOnePieceOnWhite) {
    const MadeImage array("local/images/lpdelement.jpg");
    ASSERT_EQ(array.width(), 2 * array.height());
    const auto isDrawn = [&](int x, int y) {
        const Pixel pixel = array.at(x, y);
        return *std::min_element(pixel.begin(), pixel.begin() + 3) < 255 * (1 - 0.15);
    };
    for (int x = 0; x < array.width(); ++x) {
        int begins = isDrawn(x, 0) ? 1 : 0;
        for (int y = 1; y < array.height(); ++y) {
            begins += !isDrawn(x, y - 1) && isDrawn(x, y) ? 1 : 0;
        }
        const bool isBeside = x < 20 || x > array.width() - 20;
        EXPECT_TRUE(begins == 1 || (isBeside && begins == 0)) << "column " << x << ": " << begins;
    }
}

} // namespace
} // namespace Vantrel
