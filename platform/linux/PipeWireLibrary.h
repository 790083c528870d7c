// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <pipewire/impl.h>
#include <pipewire/pipewire.h>

namespace orrinvale
{

// What we use of libpipewire, without its prefix "pw_"; the rest of its interface is inline. It is loaded when it is
// first asked for, and stays. Any thread.
struct PipeWireLibrary {
    decltype(&::pw_init) init;
    decltype(&::pw_log_set_level) log_set_level;
    decltype(&::pw_properties_new) properties_new;
    decltype(&::pw_thread_loop_new) thread_loop_new;
    decltype(&::pw_thread_loop_get_loop) thread_loop_get_loop;
    decltype(&::pw_thread_loop_start) thread_loop_start;
    decltype(&::pw_thread_loop_stop) thread_loop_stop;
    decltype(&::pw_thread_loop_destroy) thread_loop_destroy;
    decltype(&::pw_context_new) context_new;
    decltype(&::pw_context_load_module) context_load_module;
    decltype(&::pw_context_connect) context_connect;
    decltype(&::pw_context_destroy) context_destroy;
    decltype(&::pw_core_disconnect) core_disconnect;
    decltype(&::pw_proxy_destroy) proxy_destroy;

    // nullptr where it is not installed.
    static const PipeWireLibrary* load();
};

} // namespace orrinvale
