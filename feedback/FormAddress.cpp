// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/FormAddress.h"

#include <algorithm>
#include <array>

namespace orrinvale
{

namespace
{

constexpr std::array<std::string_view, 3> loopbackHosts{"127.0.0.1", "localhost", "[::1]"};

bool isPlain(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) {
        return c > ' ' && c < 0x7f && std::string_view("\"<>\\").find(c) == std::string_view::npos;
    });
}

// Behind the host of an address comes nothing or the port.
std::string_view withoutPort(std::string_view authority)
{
    const auto colon = authority.rfind(':');
    const auto isPort = colon != std::string_view::npos && authority.find(']', colon) == std::string_view::npos;
    return isPort ? authority.substr(0, colon) : authority;
}

bool isLoopback(std::string_view authority)
{
    return std::ranges::find(loopbackHosts, withoutPort(authority)) != loopbackHosts.end();
}

} // namespace

std::optional<FormAddress> FormAddress::parse(std::string_view text, Allow allow)
{
    const auto schemeEnd = text.find("://");
    if (schemeEnd == std::string_view::npos || !isPlain(text))
        return std::nullopt;
    const auto scheme = text.substr(0, schemeEnd);
    const auto authority = text.substr(schemeEnd + 3, text.find_first_of("/?#", schemeEnd + 3) - schemeEnd - 3);
    const auto isAllowed =
        scheme == "https" || (scheme == "http" && allow == Allow::loopbackToo && isLoopback(authority));
    if (!isAllowed || withoutPort(authority).empty() || authority.find('@') != std::string_view::npos)
        return std::nullopt;
    return FormAddress{std::string(text), std::string(text.substr(0, schemeEnd + 3)) + std::string(authority)};
}

std::string wrapperPage(const FormAddress& form)
{
    return "<!DOCTYPE html>\n"
           "<html>\n"
           "<head>\n"
           "  <meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "  <style>\n"
           "    html, body { margin: 0; padding: 0; height: 100%; background: transparent; }\n"
           "    iframe { border: 0; width: 100%; height: 100%; display: block; }\n"
           "  </style>\n"
           "</head>\n"
           "<body>\n"
           "  <iframe src=\"" +
           form.address +
           "\"\n"
           "          onload=\"window.webkit.messageHandlers.formLoaded.postMessage('loaded')\">\n"
           "    Loading…\n"
           "  </iframe>\n"
           "</body>\n"
           "</html>";
}

} // namespace orrinvale
