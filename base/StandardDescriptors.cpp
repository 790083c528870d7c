// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

namespace orrinvale
{

StandardDescriptors::StandardDescriptors()
{
    // The lowest free number is taken: one that is missing, as long as one is.
    for (auto opened = ::open("/dev/null", O_RDWR); opened >= 0; opened = ::open("/dev/null", O_RDWR)) {
        if (opened > STDERR_FILENO) {
            ::close(opened);
            return;
        }
    }
}

} // namespace orrinvale
