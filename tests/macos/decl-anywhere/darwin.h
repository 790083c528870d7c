// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// Included before every adapter on a target that is not macOS: names of its C library that are missing here.
#pragma once
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>

#define O_EVTONLY O_RDONLY
#define st_mtimespec st_mtim
#define st_flags st_mode
#define UF_HIDDEN S_ISVTX // a bit that a test may set
#define AF_LINK 18
struct if_data { // begins like this; the adapters read nothing else of it
    unsigned int ifi_ibytes, ifi_obytes;
};
