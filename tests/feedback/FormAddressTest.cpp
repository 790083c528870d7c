// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/FormAddress.h"

#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

using Allow = FormAddress::Allow;

struct Case {
    const char* address;
    const char* origin; // empty: refused
    const char* originForTests;
};

constexpr Case cases[] = {
    {"https://forms.example.org/orrinvale?embed=true", "https://forms.example.org", "https://forms.example.org"},
    {"https://forms.example.org", "https://forms.example.org", "https://forms.example.org"},
    {"https://forms.example.org:8443/f#top", "https://forms.example.org:8443", "https://forms.example.org:8443"},
    {"https://forms.example.org?embed", "https://forms.example.org", "https://forms.example.org"},
    {"https://forms.example.org#embed", "https://forms.example.org", "https://forms.example.org"},
    {"http://127.0.0.1:8080/form", "", "http://127.0.0.1:8080"},
    {"http://localhost/form", "", "http://localhost"},
    {"http://[::1]/form", "", "http://[::1]"},
    {"http://[::1]:8080/form", "", "http://[::1]:8080"},
    {"http://forms.example.org/", "", ""},
    {"http://127.0.0.1.example.org/", "", ""},
    {"http://localhost@example.org/", "", ""},
    {"https://user@forms.example.org/", "", ""},
    {"https:///form", "", ""},
    {"https://:443/form", "", ""},
    {"https://", "", ""},
    {"https:forms.example.org", "", ""},
    {"HTTP://localhost/", "", ""},
    {"file:///etc/passwd", "", ""},
    {"javascript://localhost/%0aalert(1)", "", ""},
    {"https://forms.example.org/\"onload=\"", "", ""},
    {"https://forms.example.org/<script>", "", ""},
    {"https://forms.example.org/a b", "", ""},
    {"https://forms.example.org/a\nb", "", ""},
    {"https://forms.example.org\\@localhost/", "", ""},
    {"https://förms.example.org/", "", ""},
    {"", "", ""},
};

std::string originOf(const char* address, Allow allow)
{
    const auto form = FormAddress::parse(address, allow);
    EXPECT_TRUE(!form || form->address == address);
    return form ? form->origin : "";
}

TEST(FormAddress, OnlyHttpsIsAFormAndInTestsLoopbackToo)
{
    for (const auto& row : cases) {
        EXPECT_EQ(row.origin, originOf(row.address, Allow::httpsOnly)) << row.address;
        EXPECT_EQ(row.originForTests, originOf(row.address, Allow::loopbackToo)) << row.address;
    }
}

TEST(WrapperPage, IsFixedToTheByte)
{
    const auto form = FormAddress::parse("https://forms.example.org/f?id=3&embed=true", Allow::httpsOnly);
    const std::string page = R"page(<!DOCTYPE html>
<html>
<head>
  <meta name="viewport" content="width=device-width, initial-scale=1">
  <style>
    html, body { margin: 0; padding: 0; height: 100%; background: transparent; }
    iframe { border: 0; width: 100%; height: 100%; display: block; }
  </style>
</head>
<body>
  <iframe src="https://forms.example.org/f?id=3&embed=true"
          onload="window.webkit.messageHandlers.formLoaded.postMessage('loaded')">
    Loading…
  </iframe>
</body>
</html>)page";
    EXPECT_EQ(page, wrapperPage(*form));
}

} // namespace

} // namespace orrinvale
