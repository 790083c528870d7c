// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "feedback/FormAddress.h"

namespace orrinvale
{

// The form that this build shows; nullopt when its address is none. A build for tests has another definition.
std::optional<FormAddress> configuredForm();

} // namespace orrinvale
