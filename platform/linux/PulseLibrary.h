// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/pulseaudio.h>

namespace orrinvale
{

// What we use of libpulse, without its prefix "pa_". It is loaded when it is first asked for, with the half a dozen
// sound libraries that come with it, and stays. Any thread.
struct PulseLibrary {
    decltype(&::pa_threaded_mainloop_new) threaded_mainloop_new;
    decltype(&::pa_threaded_mainloop_get_api) threaded_mainloop_get_api;
    decltype(&::pa_threaded_mainloop_start) threaded_mainloop_start;
    decltype(&::pa_threaded_mainloop_stop) threaded_mainloop_stop;
    decltype(&::pa_threaded_mainloop_free) threaded_mainloop_free;
    decltype(&::pa_context_new) context_new;
    decltype(&::pa_context_set_state_callback) context_set_state_callback;
    decltype(&::pa_context_set_subscribe_callback) context_set_subscribe_callback;
    decltype(&::pa_context_connect) context_connect;
    decltype(&::pa_context_disconnect) context_disconnect;
    decltype(&::pa_context_unref) context_unref;
    decltype(&::pa_context_get_state) context_get_state;
    decltype(&::pa_context_subscribe) context_subscribe;
    decltype(&::pa_context_get_source_info_list) context_get_source_info_list;
    decltype(&::pa_context_get_source_output_info_list) context_get_source_output_info_list;
    decltype(&::pa_operation_unref) operation_unref;
    decltype(&::pa_proplist_gets) proplist_gets;

    // nullptr where it is not installed.
    static const PulseLibrary* load();
};

} // namespace orrinvale
