// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/ConfiguredForm.h"

namespace orrinvale
{

std::optional<FormAddress> configuredForm()
{
    return FormAddress::parse(ORRINVALE_FEEDBACK_FORM, FormAddress::Allow::httpsOnly);
}

} // namespace orrinvale
