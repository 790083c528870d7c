// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/PipeWireLibrary.h"

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
        function = reinterpret_cast<Function>(::dlsym(m_library, (std::string("pw_") + name).c_str()));
        m_areComplete = m_areComplete && function;
    }
    bool areComplete() const { return m_areComplete; }

private:
    void* m_library;
    bool m_areComplete = true;
};

std::optional<PipeWireLibrary> loaded()
{
    auto* library = ::dlopen("libpipewire-0.3.so.0", RTLD_LAZY | RTLD_LOCAL);
    if (!library)
        return std::nullopt;
    Symbols symbols(library);
    PipeWireLibrary pipewire{};
    symbols.find("init", pipewire.init);
    symbols.find("log_set_level", pipewire.log_set_level);
    symbols.find("properties_new", pipewire.properties_new);
    symbols.find("thread_loop_new", pipewire.thread_loop_new);
    symbols.find("thread_loop_get_loop", pipewire.thread_loop_get_loop);
    symbols.find("thread_loop_start", pipewire.thread_loop_start);
    symbols.find("thread_loop_stop", pipewire.thread_loop_stop);
    symbols.find("thread_loop_destroy", pipewire.thread_loop_destroy);
    symbols.find("context_new", pipewire.context_new);
    symbols.find("context_load_module", pipewire.context_load_module);
    symbols.find("context_connect", pipewire.context_connect);
    symbols.find("context_destroy", pipewire.context_destroy);
    symbols.find("core_disconnect", pipewire.core_disconnect);
    symbols.find("proxy_destroy", pipewire.proxy_destroy);
    if (!symbols.areComplete())
        return std::nullopt;
    pipewire.init(nullptr, nullptr);
    pipewire.log_set_level(SPA_LOG_LEVEL_NONE); // it warns of what we do without on purpose
    return pipewire;
}

} // namespace

const PipeWireLibrary* PipeWireLibrary::load()
{
    static const auto pipewire = loaded();
    return pipewire ? &*pipewire : nullptr;
}

} // namespace orrinvale
