#include "vtl/gl/texture/ImageHeader.h"

#include <gtest/gtest.h>
#include <string>

namespace Vantrel {
namespace {

using Verdict = ImageHeader::Verdict;

TEST(ImageHeaderTest, ReadsTheClaimsOfEachFormatAndCatchesThoseThatTheFileCannotHold) {
    using namespace std::string_literals;
    struct Row {
        const char* what;
        std::string file;
        const char* extension;
        ImageHeader expected;
    };
    const std::string png = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"s;
    const std::string jpegFrame = "\xFF\xD8\xFF\xC2\0\x0B\x08\0\x10\0\x20\1\1\x11\0"s;
    const std::string scan = "\xFF\xDA\0\x02\x12\xFF\0\x34\xFF\xD3\x56"s;
    const std::string gif = "GIF89a\x08\0\x04\0\x80\0\0\1\2\3\4\5\6"s;
    const std::string gifFrame = "\x2C\0\0\0\0\x10\0\x02\0\0"s;
    for (const Row& row :
         {Row{"PNG", png + "\0\0\0\x20\0\0\0\x10"s, "", {Verdict::sound, 32, 16}},
          Row{"PNG of four gigapixels", png + "\0\1\0\0\0\1\0\0"s, "", {Verdict::truncated, 65536, 65536}},
          Row{"PNG of the largest numbers",
              png + std::string(8, '\xFF'),
              "",
              {Verdict::truncated, 0xFFFFFFFF, 0xFFFFFFFF}},
          Row{"PNG cut off in its head", png + "\0\0"s, "", {Verdict::truncated, 0, 0}},
          Row{"JPEG", jpegFrame + scan + "\xFF\xD9"s, "", {Verdict::sound, 32, 16}},
          Row{"JPEG with bytes behind its end",
              jpegFrame + scan + "\xFF\xD9junk"s,
              "",
              {Verdict::sound, 32, 16}},
          Row{"JPEG cut off in its scan", jpegFrame + scan, "", {Verdict::truncated, 32, 16}},
          Row{"JPEG with an empty segment", "\xFF\xD8\xFF\xE0\0\0\xFF\xE0"s, "", {Verdict::truncated, 0, 0}},
          Row{"BMP",
              "BM"s + std::string(12, '\0') + "\x28\0\0\0\x05\0\0\0\xFD\xFF\xFF\xFF"s,
              "bmp",
              {Verdict::sound, 5, 3}},
          Row{"old BMP",
              "BM"s + std::string(12, '\0') + "\x0C\0\0\0\x05\0\x03\0"s,
              "",
              {Verdict::sound, 5, 3}},
          Row{"BMP of negative width",
              "BM"s + std::string(12, '\0') + "\x28\0\0\0\xFF\xFF\xFF\xFF\1\0\0\0"s,
              "",
              {Verdict::truncated, 0xFFFFFFFF, 1}},
          Row{"GIF whose frame is wider", gif + "\x21\xFE\1x\0"s + gifFrame, "", {Verdict::sound, 16, 4}},
          Row{"GIF without a frame", gif + "\x21\xFE\1x"s, "", {Verdict::truncated, 0, 0}},
          Row{"TGA", std::string(12, '\0') + "\x05\0\x03\0"s, "TGA", {Verdict::sound, 5, 3}},
          Row{"nothing known", "PBM"s, "pbm", {Verdict::unknown, 0, 0}},
          Row{"nothing", "", "", {Verdict::unknown, 0, 0}}}) {
        const ImageHeader header = readImageHeader(std::as_bytes(std::span(row.file)), row.extension);
        EXPECT_EQ(header.verdict, row.expected.verdict) << row.what;
        EXPECT_EQ(header.width, row.expected.width) << row.what;
        EXPECT_EQ(header.height, row.expected.height) << row.what;
    }
}

} // namespace
} // namespace Vantrel
