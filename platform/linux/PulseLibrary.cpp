// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/PulseLibrary.h"

#include <optional>
#include <string>

#include <dlfcn.h>

namespace orrinvale
{

namespace
{

class Symbols
{
public:
    explicit Symbols(void* library) : m_library(library) {}

    template <typename Function>
    void find(const char* name, Function& function)
    {
        function = reinterpret_cast<Function>(::dlsym(m_library, (std::string("pa_") + name).c_str()));
        m_areComplete = m_areComplete && function;
    }
    bool areComplete() const { return m_areComplete; }

private:
    void* m_library;
    bool m_areComplete = true;
};

std::optional<PulseLibrary> loaded()
{
    auto* library = ::dlopen("libpulse.so.0", RTLD_LAZY | RTLD_LOCAL);
    if (!library)
        return std::nullopt;
    Symbols symbols(library);
    PulseLibrary pulse{};
    symbols.find("threaded_mainloop_new", pulse.threaded_mainloop_new);
    symbols.find("threaded_mainloop_get_api", pulse.threaded_mainloop_get_api);
    symbols.find("threaded_mainloop_start", pulse.threaded_mainloop_start);
    symbols.find("threaded_mainloop_stop", pulse.threaded_mainloop_stop);
    symbols.find("threaded_mainloop_free", pulse.threaded_mainloop_free);
    symbols.find("context_new", pulse.context_new);
    symbols.find("context_set_state_callback", pulse.context_set_state_callback);
    symbols.find("context_set_subscribe_callback", pulse.context_set_subscribe_callback);
    symbols.find("context_connect", pulse.context_connect);
    symbols.find("context_disconnect", pulse.context_disconnect);
    symbols.find("context_unref", pulse.context_unref);
    symbols.find("context_get_state", pulse.context_get_state);
    symbols.find("context_subscribe", pulse.context_subscribe);
    symbols.find("context_get_source_info_list", pulse.context_get_source_info_list);
    symbols.find("context_get_source_output_info_list", pulse.context_get_source_output_info_list);
    symbols.find("operation_unref", pulse.operation_unref);
    symbols.find("proplist_gets", pulse.proplist_gets);
    return symbols.areComplete() ? std::optional(pulse) : std::nullopt;
}

} // namespace

const PulseLibrary* PulseLibrary::load()
{
    static const auto pulse = loaded();
    return pulse ? &*pulse : nullptr;
}

} // namespace orrinvale
