// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/ConfiguredForm.h"

#include <cstdlib>

namespace orrinvale
{

std::optional<FormAddress> configuredForm()
{
    const auto* address = std::getenv("ORRINVALE_FEEDBACK_FORM");
    return FormAddress::parse(address ? address : "", FormAddress::Allow::loopbackToo);
}

} // namespace orrinvale
