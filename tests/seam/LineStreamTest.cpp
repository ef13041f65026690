#include "seam/clsLineStream.h"

#include <gtest/gtest.h>

#include <vector>

#include "seam/clsTextCoding.h"

namespace {

std::vector<wxString> Lines(const std::string& bytes) {
    LineStream_cls stream(bytes);
    std::vector<wxString> lines;
    for (wxString line; stream.ReadLine(line);) lines.push_back(line);
    return lines;
}

TEST(LineStreamTest, SplitsAtLineFeedsAndNothingElse) {
    using Strings = std::vector<wxString>;
    EXPECT_EQ(Lines(""), Strings{});
    EXPECT_EQ(Lines("a\n\n b\r\nlast"), (Strings{"a", "", " b\r", "last"}));
    EXPECT_EQ(Lines("a\n"), Strings{"a"});
    EXPECT_EQ(Lines("\xc3\xa9=1\n"), Strings{wxString::FromUTF8("\xc3\xa9=1")});
    EXPECT_EQ(ToBytes(Lines("bad\xff\n").front()), "bad\xff") << "bytes that are not UTF-8 survive";
    EXPECT_EQ(Lines(std::string("a\0b\nc", 5)).size(), 2U);
}

TEST(LineStreamTest, ALineWithoutEndIsCutAndTheRestSkipped) {
    std::string text(3 * LineStream_cls::kMaxLineLength, 'x');
    text += "\nnext\n";
    const std::vector<wxString> lines = Lines(text);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].length(), LineStream_cls::kMaxLineLength);
    EXPECT_EQ(lines[1], "next");
}

TEST(LineStreamTest, TheLastLineCanBePutBack) {
    LineStream_cls stream("one\ntwo");
    wxString line;
    stream.PutBack();
    ASSERT_TRUE(stream.ReadLine(line));
    ASSERT_TRUE(stream.ReadLine(line));
    stream.PutBack();
    stream.PutBack();
    ASSERT_TRUE(stream.ReadLine(line));
    EXPECT_EQ(line, "two");
    EXPECT_FALSE(stream.ReadLine(line));
    EXPECT_EQ(line, "");
    stream.PutBack();
    EXPECT_FALSE(stream.ReadLine(line)) << "the end is no line";
}

}  // namespace
