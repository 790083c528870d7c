// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// The kernel's answer with the links' byte counters.
#include "platform/linux/LinkDump.h"

#include "fuzz/FuzzInput.h"

#include <cstdlib>
#include <cstring>
#include <memory>

using namespace orrinvale;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // malloc aligns as the kernel's messages are, and its size is the bound that the sanitizer watches.
    if (size == 0)
        return 0;
    const std::unique_ptr<char, decltype(&std::free)> datagram(static_cast<char*>(std::malloc(size)), &std::free);
    std::memcpy(datagram.get(), data, size);
    LinkDump dump(1);
    dump.take(datagram.get(), size);
    dump.take(datagram.get(), size);
    return 0;
}
