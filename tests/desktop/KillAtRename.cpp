// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// Preloaded into the application: kills it at the moment when it would put the new file named in KILL_AT_RENAME into
// the old one's place.

#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <unistd.h>

extern "C" int rename(const char* from, const char* to) noexcept
{
    const auto* name = std::getenv("KILL_AT_RENAME");
    if (name && std::string(to).ends_with("/" + std::string(name)))
        ::kill(::getpid(), SIGKILL);
    using Rename = int (*)(const char*, const char*);
    static const auto next = reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "rename"));
    return next(from, to);
}
