#include "vtl/net/NetMessengerStreamBuffer.h"

#include "tests/support/ReportCapture.h"
#include "tests/support/WireBytes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace Vantrel {
namespace {

using Tests::WireBytes;

constexpr const char* emptyUnsigned =
    "NetMessengerStreamBuffer::operator>> ( unsigned int& val )... Buffer is empty... Cannot extract from "
    "stream...\n";
constexpr const char* emptyFloat =
    "NetMessengerStreamBuffer::operator>> ( float& val )... Buffer is empty... Cannot extract from "
    "stream...\n";
constexpr const char* emptyString =
    "NetMessengerStreamBuffer::operator>> ( std::string& s )... Buffer is empty... Cannot extract from "
    "stream...\n";

class NetMessengerStreamBufferTest : public ::testing::Test {
protected:
    static WireBytes written(const NetMessengerStreamBuffer& buffer) {
        return WireBytes(std::span(buffer.data(), buffer.length()));
    }

    Tests::ReportCapture reports;
};

TEST_F(NetMessengerStreamBufferTest, WritesNetworkByteOrderWithoutPadding) {
    NetMessengerStreamBuffer buffer;
    buffer << 1U << 1.0F << "ab" << std::string("c\0d", 3) << std::string() << 0xFFFEFDFCU;
    EXPECT_EQ(written(buffer),
              (WireBytes{0, 0, 0, 1, 0x3F, 0x80, 0, 0, 'a', 'b', 0, 'c', 0, 0, 0xFF, 0xFE, 0xFD, 0xFC}));
    EXPECT_EQ(reports.text(), "");
}

TEST_F(NetMessengerStreamBufferTest, ReadsBackEveryBitOfAFloat) {
    const float largest = std::numeric_limits<float>::max();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    WireBytes bytes = WireBytes{9}.f32(-0.0F).f32(largest).f32(nan).f32(1e-45F); // off every alignment
    NetMessengerStreamBuffer buffer{std::span(bytes).subspan(1)};
    float zero = 1;
    float large = 0;
    float notANumber = 0;
    float smallest = 0;
    buffer >> zero >> large >> notANumber >> smallest;
    EXPECT_TRUE(zero == 0 && std::signbit(zero));
    EXPECT_EQ(large, largest);
    EXPECT_TRUE(std::isnan(notANumber));
    EXPECT_EQ(smallest, 1e-45F);
}

TEST_F(NetMessengerStreamBufferTest, GrowsAtTheByteBehindItsCapacityAndKeepsItsContents) {
    NetMessengerStreamBuffer buffer;
    WireBytes expected;
    for (std::uint32_t i = 0; i < 4096; ++i) {
        buffer << i;
        expected.u32(i);
    }
    EXPECT_EQ(buffer.length(), 16384U);
    EXPECT_EQ(buffer.remaining(), 0U);
    EXPECT_EQ(reports.text(), "");
    buffer << "";
    EXPECT_EQ(reports.text(), "Resizing NetMessengerStreamBuffer from 16384 to 32768...\n");
    EXPECT_EQ(buffer.remaining(), 16383U);
    EXPECT_EQ(written(buffer), expected.raw(WireBytes{0}));

    const std::string longText(100'000, 'x');
    buffer << longText;
    EXPECT_EQ(written(buffer), expected.text(longText));
    EXPECT_EQ(reports.count("Resizing"), 3U);
}

TEST_F(NetMessengerStreamBufferTest, FullWrappingBufferReportsAndKeepsWhatItHas) {
    WireBytes memory{1, 2, 3, 4, 5, 6};
    NetMessengerStreamBuffer buffer(memory);
    buffer << 0x0A0B0C0DU << 7U << 7.0F << "xyz";
    const std::string full = " )... Buffer is full... Cannot insert into stream...\n";
    EXPECT_EQ(reports.text(), "NetMessengerStreamBuffer::operator<< ( unsigned int& val" + full +
                                  "NetMessengerStreamBuffer::operator<< ( float& val" + full +
                                  "NetMessengerStreamBuffer::operator<< ( char* cString" + full);
    EXPECT_EQ(memory, (WireBytes{0x0A, 0x0B, 0x0C, 0x0D, 'x', 'y'}));
    reports.clear();
    EXPECT_FALSE(buffer.grow());
    EXPECT_EQ(reports.text(), "Cannot resize buffer, internal buffer is not owned by this instance, it was "
                              "passed in as a constructor param...\n");
}

TEST_F(NetMessengerStreamBufferTest, FrameLengthStaysWithinASmallWrappingBuffer) {
    for (const std::size_t capacity : {0U, 3U, 4U, 7U}) {
        WireBytes memory{1, 2, 3, 4, 5, 6, 7, 8};
        const WireBytes before = memory;
        NetMessengerStreamBuffer buffer{std::span(memory).first(capacity)};
        buffer.fixFrameLength();
        EXPECT_EQ(memory, before) << capacity;
        EXPECT_EQ(buffer.length(), 0U) << capacity;
    }
}

TEST_F(NetMessengerStreamBufferTest, ReportsWhatIsMissingAndLeavesTheTarget) {
    WireBytes bytes{'a', 'b', 0};
    NetMessengerStreamBuffer buffer(bytes);
    std::uint32_t number = 7;
    float real = 8;
    std::string text;
    buffer >> number >> real >> text >> text;
    EXPECT_EQ(number, 7U);
    EXPECT_EQ(real, 8);
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(reports.text(), std::string(emptyUnsigned) + emptyFloat + emptyString);
}

struct StringRow {
    WireBytes bytes;
    std::string text;
    std::uint32_t length;
    std::string report;
};

TEST_F(NetMessengerStreamBufferTest, ReadsStringsUpToTheEnd) {
    for (StringRow& row : std::vector<StringRow>{{{'a', 'b', 0}, "ab", 3, ""},
                                                 {{0}, "", 1, ""},
                                                 {{'a', 0, 'b'}, "a", 2, ""},
                                                 {{'a', 'b'}, "ab", 2, emptyString}}) {
        NetMessengerStreamBuffer buffer(row.bytes);
        std::string text = "what stood here before";
        reports.clear();
        buffer >> text;
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(buffer.length(), row.length);
        EXPECT_EQ(reports.text(), row.report);
    }
}

TEST_F(NetMessengerStreamBufferTest, ExtractsNoMoreNumbersThanTheBufferHolds) {
    WireBytes bytes = WireBytes().u32(5).u32(6).f32(7).f32(8).raw(WireBytes{1, 2, 3});
    NetMessengerStreamBuffer buffer(bytes);
    EXPECT_EQ(buffer.extractUnsigneds(2), (std::vector<std::uint32_t>{5, 6}));
    EXPECT_EQ(buffer.extractFloats(0), std::vector<float>());
    EXPECT_EQ(reports.text(), "");
    EXPECT_EQ(buffer.extractFloats(std::numeric_limits<std::size_t>::max()), (std::vector<float>{7, 8}));
    EXPECT_EQ(buffer.remaining(), 3U);
    EXPECT_EQ(buffer.extractUnsigneds(0xFFFFFFFF), std::vector<std::uint32_t>());
    EXPECT_EQ(reports.text(), std::string(emptyFloat) + emptyUnsigned);
}

TEST_F(NetMessengerStreamBufferTest, DumpsTheWholeCapacity) {
    WireBytes bytes{0, 255, 16, 1, 2};
    NetMessengerStreamBuffer buffer(bytes);
    std::uint32_t number = 0;
    buffer >> number;
    EXPECT_EQ(buffer.toString(), "Buffer Data, one byte at a time... (max buf len: 5, cur buf len: 4,)\n"
                                 "Owns Internal Buffer: 0:\n0 255 16 1 2 \n");
}

TEST_F(NetMessengerStreamBufferTest, HoldsAWholeFrame) {
    NetMessengerStreamBuffer buffer;
    buffer << 3U << 1U << "abc";
    buffer.fixFrameLength();
    EXPECT_EQ(WireBytes(buffer.bytes()), WireBytes::frame(3, WireBytes().text("abc")));
}

} // namespace
} // namespace Vantrel
