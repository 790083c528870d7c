// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "text/LocalizedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace orrinvale
{

namespace
{

using Texts = std::vector<std::string_view>;
using testing::ElementsAre;

Texts sorted(Texts texts, const std::string& locale)
{
    const auto keys = sortKeys(texts, locale);
    std::vector<std::pair<std::string, std::string_view>> pairs;
    for (std::size_t i = 0; i < texts.size(); ++i)
        pairs.emplace_back(keys[i], texts[i]);
    std::sort(pairs.begin(), pairs.end());
    std::transform(pairs.begin(), pairs.end(), texts.begin(), [](const auto& pair) { return pair.second; });
    return texts;
}

bool found(std::string_view part, std::string_view text, const std::string& locale = "en_US")
{
    return contains(searchForm(text, locale), searchForm(part, locale));
}

TEST(SortKeys, AreEqualForTextsThatDifferInCaseAlone)
{
    const auto keys = sortKeys({"Éa", "éA", "Ea", "Éab", ""}, "fr_FR");
    EXPECT_EQ(keys[0], keys[1]);
    EXPECT_NE(keys[0], keys[2]);
    EXPECT_LT(keys[2], keys[0]);
    EXPECT_LT(keys[0], keys[3]);
    EXPECT_LT(keys[4], keys[2]);
}

TEST(SortKeys, FollowTheLanguage)
{
    EXPECT_THAT(sorted({"Zoo", "Äpfel", "Apfel", "öl"}, "de_DE"), ElementsAre("Apfel", "Äpfel", "öl", "Zoo"));
    EXPECT_THAT(sorted({"Zoo", "Äpfel", "Apfel", "öl"}, "sv_SE"), ElementsAre("Apfel", "Zoo", "Äpfel", "öl"));
    EXPECT_THAT(sorted({"Zebra", "apple", "Mango"}, "nonsense"), ElementsAre("apple", "Mango", "Zebra"));
}

TEST(SortKeys, AreWholeForLongTexts)
{
    const std::string text(5000, 'a');
    const auto keys = sortKeys({text + "b", text + "a"}, "en_US");
    EXPECT_LT(keys[1], keys[0]);
}

TEST(Search, IgnoresCaseAndNothingElse)
{
    EXPECT_TRUE(found("SAF", "Safari"));
    EXPECT_TRUE(found("far", "SAFARI"));
    EXPECT_TRUE(found("É", "Café"));
    EXPECT_TRUE(found("STRASSE", "Straßenatlas"));
    EXPECT_TRUE(found("σ", "ΟΔΥΣΣΕΥΣ"));
    EXPECT_FALSE(found("e", "Café"));
    EXPECT_FALSE(found("saf ari", "Safari"));
    EXPECT_FALSE(found("safariX", "Safari"));
}

TEST(Search, ComposedAndDecomposedCharactersAreTheSame)
{
    EXPECT_TRUE(found("cafe\u0301", "CAFÉ"));
    EXPECT_TRUE(found("café", "Cafe\u0301 noir"));
    EXPECT_FALSE(found("x", "x\u0302")); // no composed form
    EXPECT_TRUE(found("x", "x\u0302x"));
    EXPECT_TRUE(found("x\u0302", "ax\u0302"));
    EXPECT_TRUE(found("😀", "a😀b"));
}

TEST(Search, KnowsTheTurkishLetters)
{
    EXPECT_TRUE(found("istan", "İSTANBUL", "tr_TR"));
    EXPECT_TRUE(found("ısı", "ISI", "tr"));
    EXPECT_FALSE(found("isi", "ISI", "tr_TR"));
    EXPECT_FALSE(found("isi", "ISI", "az_Latn_AZ"));
    EXPECT_TRUE(found("isi", "ISI", "en_US"));
}

TEST(Search, NothingIsFoundInEverything)
{
    EXPECT_TRUE(found("", ""));
    EXPECT_TRUE(found("", "Safari"));
    EXPECT_FALSE(found("a", ""));
}

TEST(Search, BrokenTextIsFoundByTheRest)
{
    EXPECT_TRUE(found("able", "Bro\xFFken table"));
}

} // namespace

} // namespace orrinvale
