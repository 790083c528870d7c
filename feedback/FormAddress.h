// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// The address of the hosted form, in its embeddable layout.
struct FormAddress {
    enum class Allow { httpsOnly, loopbackToo };

    std::string address;
    std::string origin; // scheme, host and port

    // nullopt for what is not https (or, where allowed, http on the loopback interface), names a user, or holds
    // characters that an address has no business with.
    static std::optional<FormAddress> parse(std::string_view text, Allow allow);
};

// The page around the form: transparent, the form fills it, and its load event is posted to the handler "formLoaded".
std::string wrapperPage(const FormAddress& form);

} // namespace orrinvale
