#pragma once

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace Vantrel::Tests {

/**
 * Random numbers for one test, whose failures tell the seed. The environment variable KELDIN_TEST_SEED takes
 * a seed back.
 */
class RandomInput {
public:
    RandomInput() : seed(chooseSeed()), generator(seed), trace(__FILE__, __LINE__, describe(seed)) {}

    /** From `low` up to and without `high`. */
    float real(float low, float high) { return std::uniform_real_distribution<float>(low, high)(generator); }
    /** From `low` to `high`, both included. */
    std::size_t index(std::size_t low, std::size_t high) {
        return std::uniform_int_distribution<std::size_t>(low, high)(generator);
    }

private:
    static unsigned chooseSeed() {
        const char* const given = std::getenv("KELDIN_TEST_SEED");
        return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10))
                                : std::random_device()();
    }
    static std::string describe(unsigned seed) { return "KELDIN_TEST_SEED=" + std::to_string(seed); }

    unsigned seed;
    std::mt19937 generator;
    ::testing::ScopedTrace trace;
};

} // namespace Vantrel::Tests
