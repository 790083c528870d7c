// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Text.h"
#include "base/UUID.h"

#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

struct Row {
    const char* name;
    std::string bytes;
    std::string text;
};

class ValidUtf8 : public testing::TestWithParam<Row>
{
};

TEST_P(ValidUtf8, BecomesText)
{
    EXPECT_EQ(validUtf8(GetParam().bytes), GetParam().text);
}

const std::string R = "\xEF\xBF\xBD";

INSTANTIATE_TEST_SUITE_P(
    Bytes, ValidUtf8,
    testing::Values(Row{"Empty", "", ""}, Row{"Ascii", "film.mkv", "film.mkv"}, Row{"TwoBytes", "Mütze", "Mütze"},
                    Row{"Emoji", "🍵", "🍵"}, Row{"Latin1", "M\xFCtze", "M" + R + "tze"},
                    Row{"CutOff", "a\xF0\x9F\x8D", "a" + R}, Row{"LoneContinuation", "\x80\x80", R + R},
                    Row{"Overlong", "\xC0\xAF", R + R}, Row{"Surrogate", "\xED\xA0\x80", R + R + R},
                    Row{"BeyondUnicode", "\xF4\x90\x80\x80", R + R + R + R}, Row{"CutThenAscii", "\xE2\x82z", R + "z"},
                    Row{"LineFeedStays", "a\nb", "a\nb"}),
    [](const auto& row) { return row.param.name; });

TEST(WithVisibleControls, ShowsASignForEachControlCharacterAndLeavesTheRest)
{
    EXPECT_EQ(withVisibleControls("film\x1B[31m\a\n.mkv"), "film␛[31m␇␊.mkv");
    EXPECT_EQ(withVisibleControls(std::string("\0\x1F\x7F", 3)), "␀␟␡");
    EXPECT_EQ(withVisibleControls("a\u0085\u009Bb\u2028c\u2029d"), "a" + R + R + "b␤c␤d");
    EXPECT_EQ(withVisibleControls("Mütze 🍵 \u00A0–"), "Mütze 🍵 \u00A0–");
    EXPECT_EQ(withVisibleControls("\xC2"), "\xC2");
    EXPECT_EQ(withVisibleControls(""), "");
}

TEST(AsciiLowercase, TouchesAsciiLettersOnly)
{
    EXPECT_EQ(asciiLowercase("Movie.MKV.CRDOWNLOAD"), "movie.mkv.crdownload");
    EXPECT_EQ(asciiLowercase("İI"), "İi");
}

TEST(UUID, TextIsUpperCaseAndReadsBackInEitherCase)
{
    const auto read = UUID::fromText("0f6b3c2e-9d41-4a57-8e2b-5c1d7a9e3f10");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text(), "0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10");
    EXPECT_EQ(UUID::fromText(read->text()), read);
}

TEST(UUID, AnyOtherFormIsNone)
{
    EXPECT_FALSE(UUID::fromText(""));
    EXPECT_FALSE(UUID::fromText("0F6B3C2E9D414A578E2B5C1D7A9E3F10"));
    EXPECT_FALSE(UUID::fromText("0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F1"));
    EXPECT_FALSE(UUID::fromText("0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F1G"));
    EXPECT_FALSE(UUID::fromText("{0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10}"));
}

TEST(UUID, RandomOnesDiffer)
{
    EXPECT_NE(UUID::random(), UUID::random());
}

} // namespace

} // namespace orrinvale
