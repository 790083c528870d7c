// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// Speaks the layer shell's protocol for a window whose surface Qt has made and left without a role. Under it lies a
// transparent shield over every screen, which takes the click elsewhere: to other windows' surfaces a client is blind.
// A fullscreen window may lie above the shield; a click on it is its own.
#include "layer_shell/LayerSurface.h"

#include "base/Descriptor.h"
#include "layer_shell/KeyboardWatch.h"

#include "viewporter-client.h"
#include "wlr-layer-shell-unstable-v1-client.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QWindow>
#include <private/qhighdpiscaling_p.h>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformscreen.h>

#include <algorithm>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace orrinvale
{

namespace
{

// Which of two surfaces of one layer is the upper one is the compositor's affair.
constexpr auto windowLayer = ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY;
constexpr auto shieldLayer = ZWLR_LAYER_SHELL_V1_LAYER_TOP;
constexpr auto purpose = "orrinvale";
constexpr auto alsoOverPanels = -1; // as exclusive zone
constexpr auto shieldSide = 12; // pixels; a buffer's sides must be multiples of its scale, whichever of 1 to 4 it is
constexpr auto layerShellVersion = 4U;
constexpr auto destroySince = 3U;

template <auto destroy>
struct Destroyed {
    template <typename T>
    void operator()(T* proxy) const
    {
        destroy(proxy);
    }
};
template <typename T, auto destroy>
using Proxy = std::unique_ptr<T, Destroyed<destroy>>;

void destroyLayerShell(zwlr_layer_shell_v1* shell)
{
    if (zwlr_layer_shell_v1_get_version(shell) >= destroySince)
        zwlr_layer_shell_v1_destroy(shell);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(shell));
}

using Registry = Proxy<wl_registry, wl_registry_destroy>;
using Callback = Proxy<wl_callback, wl_callback_destroy>;
using Shm = Proxy<wl_shm, wl_shm_destroy>;
using Buffer = Proxy<wl_buffer, wl_buffer_destroy>;
using Viewporter = Proxy<wp_viewporter, wp_viewporter_destroy>;
using Viewport = Proxy<wp_viewport, wp_viewport_destroy>;
using Shell = Proxy<zwlr_layer_shell_v1, destroyLayerShell>;
using Layer = Proxy<zwlr_layer_surface_v1, zwlr_layer_surface_v1_destroy>;

wl_surface* surfaceOf(QWindow& window)
{
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

// Without any, Qt has a screen that nothing stands behind.
bool isReal(const QScreen& screen)
{
    return !screen.handle()->isPlaceholder();
}

wl_output* outputOf(QScreen* screen)
{
    auto& native = *QGuiApplication::platformNativeInterface();
    return screen && isReal(*screen) ? static_cast<wl_output*>(native.nativeResourceForScreen("output", screen))
                                     : nullptr;
}

std::uint32_t anchorsOf(Qt::Edges edges)
{
    auto anchors = 0U;
    for (const auto& [edge, anchor] : {std::pair(Qt::TopEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP),
                                       {Qt::BottomEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM},
                                       {Qt::LeftEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT},
                                       {Qt::RightEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT}})
        if (edges & edge)
            anchors |= anchor;
    return anchors;
}

const auto allEdges = anchorsOf(Qt::TopEdge | Qt::BottomEdge | Qt::LeftEdge | Qt::RightEdge);

void setSize(zwlr_layer_surface_v1* layer, const QSize& size)
{
    zwlr_layer_surface_v1_set_size(layer, static_cast<std::uint32_t>(size.width()),
                                   static_cast<std::uint32_t>(size.height()));
}

// Null when the system has no memory for it.
Buffer transparentBuffer(wl_shm* shm)
{
    constexpr auto bytes = 4 * shieldSide * shieldSide;
    const Descriptor file(::memfd_create("orrinvale-shield", MFD_CLOEXEC));
    if (!file.isOpen())
        return nullptr;
    Buffer buffer;
    if (::ftruncate(file.get(), bytes) == 0) { // with zeros, which are transparent
        auto* pool = wl_shm_create_pool(shm, file.get(), bytes);
        buffer.reset(
            wl_shm_pool_create_buffer(pool, 0, shieldSide, shieldSide, 4 * shieldSide, WL_SHM_FORMAT_ARGB8888));
        wl_shm_pool_destroy(pool);
    }
    return buffer;
}

// Its window is never shown: it is there for Qt to bring the clicks to.
class Shield final : public QWindow
{
public:
    Shield(QScreen& screen, zwlr_layer_shell_v1* shell, wp_viewporter* viewporter, wl_buffer* buffer,
           std::function<void()> pressed)
        : QWindow(&screen), m_buffer(buffer), m_pressed(std::move(pressed))
    {
        setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        create();
        m_surface = surfaceOf(*this);
        if (!m_surface)
            return;
        m_viewport.reset(wp_viewporter_get_viewport(viewporter, m_surface));
        m_layer.reset(zwlr_layer_shell_v1_get_layer_surface(shell, m_surface, outputOf(&screen), shieldLayer, purpose));
        zwlr_layer_surface_v1_add_listener(m_layer.get(), &listener, this);
        zwlr_layer_surface_v1_set_anchor(m_layer.get(), allEdges);
        zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), alsoOverPanels);
        wl_surface_commit(m_surface);
    }

    // From now on it takes no clicks; the window may be deleted in the midst of bringing one.
    void lift()
    {
        m_pressed = nullptr;
        m_layer.reset();
        m_viewport.reset();
        deleteLater();
    }

protected:
    void mousePressEvent(QMouseEvent*) override { press(); }
    void touchEvent(QTouchEvent*) override { press(); }

private:
    void press()
    {
        if (const auto pressed = m_pressed)
            pressed();
    }

    static void configure(void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
                          std::uint32_t height)
    {
        auto& shield = *static_cast<Shield*>(data);
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        shield.cover({static_cast<int>(width), static_cast<int>(height)});
    }
    void cover(const QSize& size)
    {
        if (size == m_covered || size.isEmpty())
            return;
        m_covered = size;
        wp_viewport_set_destination(m_viewport.get(), size.width(), size.height());
        wl_surface_attach(m_surface, m_buffer, 0, 0);
        wl_surface_damage(m_surface, 0, 0, size.width(), size.height());
        wl_surface_commit(m_surface);
    }
    // Its screen is gone.
    static void closed(void* data, zwlr_layer_surface_v1*) { static_cast<Shield*>(data)->press(); }
    static constexpr zwlr_layer_surface_v1_listener listener{configure, closed};

    wl_buffer* m_buffer;
    std::function<void()> m_pressed;
    wl_surface* m_surface = nullptr;
    QSize m_covered;
    Viewport m_viewport;
    Layer m_layer;
};

class WaylandLayerSurface final : public LayerSurface
{
public:
    WaylandLayerSurface(QWindow& window, QScreen* screen, const Client& client)
        : m_window(window), m_screen(screen), m_client(client)
    {
        auto& native = *QGuiApplication::platformNativeInterface();
        auto* display = static_cast<wl_display*>(native.nativeResourceForIntegration("wl_display"));
        m_registry.reset(wl_display_get_registry(display));
        wl_registry_add_listener(m_registry.get(), &registryListener, this);
        m_allGlobalsKnown.reset(wl_display_sync(display));
        wl_callback_add_listener(m_allGlobalsKnown.get(), &globalsListener, this);
    }

    ~WaylandLayerSurface() override
    {
        m_layer.reset();
        for (auto* shield : m_shields)
            shield->lift();
    }

    void resize(const QSize& size) override
    {
        if (m_layer)
            setSize(m_layer.get(), inSurface(size)); // takes effect with the window's next frame
    }

    void watchKeyboard() override { m_keyboard = std::make_unique<KeyboardWatch>(m_client.dismissed); }

private:
    static void global(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                       std::uint32_t version)
    {
        auto& self = *static_cast<WaylandLayerSurface*>(data);
        const auto bind = [&](auto& proxy, const wl_interface& wanted, std::uint32_t most) {
            using Type = typename std::remove_reference_t<decltype(proxy)>::pointer;
            if (std::strcmp(interface, wanted.name) == 0)
                proxy.reset(static_cast<Type>(wl_registry_bind(registry, name, &wanted, std::min(version, most))));
        };
        bind(self.m_shm, wl_shm_interface, 1);
        bind(self.m_viewporter, wp_viewporter_interface, 1);
        bind(self.m_shell, zwlr_layer_shell_v1_interface, layerShellVersion);
    }
    static constexpr wl_registry_listener registryListener{global, [](void*, wl_registry*, std::uint32_t) {}};

    static void allGlobalsKnown(void* data, wl_callback*, std::uint32_t)
    {
        auto& self = *static_cast<WaylandLayerSurface*>(data);
        self.m_allGlobalsKnown.reset();
        self.m_surface = surfaceOf(self.m_window);
        // Not as an ordinary window either: without a screen there is nothing to see, and sway 1.10 dies of one.
        const auto client = self.m_client; // whose answers may delete this
        if (!isReal(*QGuiApplication::primaryScreen()))
            return client.dismissed();
        if (self.m_surface && self.m_shell && self.m_shm && self.m_viewporter)
            self.m_buffer = transparentBuffer(self.m_shm.get());
        if (self.m_buffer)
            return self.open();
        client.refused();
    }
    static constexpr wl_callback_listener globalsListener{allGlobalsKnown};

    void open()
    {
        for (auto* screen : QGuiApplication::screens())
            m_shields.push_back(
                new Shield(*screen, m_shell.get(), m_viewporter.get(), m_buffer.get(), m_client.dismissed));
        m_layer.reset(
            zwlr_layer_shell_v1_get_layer_surface(m_shell.get(), m_surface, outputOf(m_screen), windowLayer, purpose));
        zwlr_layer_surface_v1_add_listener(m_layer.get(), &layerListener, this);
        zwlr_layer_surface_v1_set_keyboard_interactivity(m_layer.get(),
                                                         ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE);
        // Between all edges, to be told what room there is.
        zwlr_layer_surface_v1_set_anchor(m_layer.get(), allEdges);
        setSize(m_layer.get(), {0, 0});
        wl_surface_commit(m_surface);
    }

    // Where Qt scales by a factor of its own, a surface's units are not those of its window.
    QSize inSurface(const QSize& size) const { return size * QHighDpiScaling::factor(&m_window); }

    void place(const QSize& told)
    {
        m_isPlaced = true;
        const auto factor = QHighDpiScaling::factor(&m_window);
        const auto placement = m_client.place((QSizeF(told) / factor).toSize());
        const auto margins = (QMarginsF(placement.margins) * factor).toMargins();
        setSize(m_layer.get(), inSurface(placement.size));
        zwlr_layer_surface_v1_set_anchor(m_layer.get(), anchorsOf(placement.edges));
        zwlr_layer_surface_v1_set_margin(m_layer.get(), margins.top(), margins.right(), margins.bottom(),
                                         margins.left());
        wl_surface_commit(m_surface);
        if (told == inSurface(placement.size)) // then some compositors have nothing more to say
            present();
    }

    void present()
    {
        if (m_client.ready)
            std::exchange(m_client.ready, nullptr)();
    }

    static void configure(void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
                          std::uint32_t height)
    {
        auto& self = *static_cast<WaylandLayerSurface*>(data);
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        if (self.m_isPlaced)
            self.present();
        else
            self.place({static_cast<int>(width), static_cast<int>(height)});
    }
    static void closed(void* data, zwlr_layer_surface_v1*)
    {
        const auto dismissed = static_cast<WaylandLayerSurface*>(data)->m_client.dismissed; // which may delete this
        dismissed();
    }
    static constexpr zwlr_layer_surface_v1_listener layerListener{configure, closed};

    QWindow& m_window;
    QPointer<QScreen> m_screen;
    Client m_client;
    Registry m_registry;
    Callback m_allGlobalsKnown;
    Shm m_shm;
    Viewporter m_viewporter;
    Shell m_shell;
    Buffer m_buffer;
    std::vector<Shield*> m_shields;
    wl_surface* m_surface = nullptr;
    Layer m_layer;
    std::unique_ptr<KeyboardWatch> m_keyboard;
    bool m_isPlaced = false;
};

} // namespace

} // namespace orrinvale

extern "C" __attribute__((visibility("default"))) orrinvale::LayerSurface*
ORRINVALE_LAYER_SHELL_ENTRY_POINT(QWindow& window, QScreen* screen, const orrinvale::LayerSurface::Client& client)
{
    return new orrinvale::WaylandLayerSurface(window, screen, client);
}
