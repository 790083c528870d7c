// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxAppearance.h"

#include "tests/platform/WaitFor.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace orrinvale
{

namespace
{

using namespace std::chrono_literals;
using testing::ElementsAre;

const auto light = "org.freedesktop.appearance color-scheme uint32 2";
const auto dark = "org.freedesktop.appearance color-scheme uint32 1";
const auto noPreference = "org.freedesktop.appearance color-scheme uint32 0";

// settings_portal.py until it is destroyed.
class Portal
{
public:
    explicit Portal(const QStringList& arguments = {})
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(SETTINGS_PORTAL), arguments);
        EXPECT_TRUE(says("ready"));
    }
    ~Portal()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    void set(const char* setting)
    {
        m_process.write(setting);
        m_process.write("\n");
        EXPECT_TRUE(says(("changed " + std::string(setting).substr(0, 15)).c_str()));
    }
    bool says(const char* line)
    {
        return waitFor([&] {
            m_output += m_process.readAllStandardOutput();
            return m_output.contains(line);
        });
    }

private:
    QProcess m_process;
    QByteArray m_output;
};

struct AppearanceTest : testing::Test {
    LinuxAppearance& appearance()
    {
        if (!m_appearance)
            m_appearance = std::make_unique<LinuxAppearance>(
                QDBusConnection::sessionBus(),
                LinuxAppearance::Windows{[this] { return paletteIsDark; }, [this] { return composited; },
                                         [this](std::optional<bool> isDark) { applied.push_back(isDark); }});
        return *m_appearance;
    }

    bool paletteIsDark = false;
    bool composited = true;
    std::vector<std::optional<bool>> applied;

private:
    std::unique_ptr<LinuxAppearance> m_appearance;
};

TEST_F(AppearanceTest, WithoutAPortalThePaletteTells)
{
    appearance().prime(QDeadlineTimer(100ms));
    EXPECT_FALSE(appearance().isDark());
    paletteIsDark = true;
    EXPECT_TRUE(appearance().isDark());
    EXPECT_FALSE(appearance().reducesMotion());
}

TEST_F(AppearanceTest, ThePortalIsBelievedBeforeThePalette)
{
    Portal portal;
    portal.set(dark);
    appearance().prime(QDeadlineTimer(2s));
    EXPECT_TRUE(appearance().isDark());
}

TEST_F(AppearanceTest, NoPreferenceIsLight)
{
    paletteIsDark = true;
    Portal portal;
    portal.set(noPreference);
    appearance().prime(QDeadlineTimer(2s));
    EXPECT_FALSE(appearance().isDark());
}

TEST_F(AppearanceTest, ASwitchIsAnnouncedOnceAndSameValuesAreNot)
{
    Portal portal;
    portal.set(light);
    appearance().prime(QDeadlineTimer(2s));
    auto changes = 0;
    const auto subscription = appearance().observeChanges([&] { ++changes; });
    portal.set(dark);
    EXPECT_TRUE(waitFor([&] { return appearance().isDark(); }));
    portal.set(dark);
    runEventsFor(100ms);
    EXPECT_EQ(changes, 1);
}

TEST_F(AppearanceTest, AChosenAppearanceOverrulesTheDesktop)
{
    Portal portal;
    portal.set(dark);
    appearance().prime(QDeadlineTimer(2s));
    appearance().apply(AppearanceChoice::light);
    EXPECT_FALSE(appearance().isDark());
    appearance().apply(AppearanceChoice::dark);
    EXPECT_TRUE(appearance().isDark());
}

TEST_F(AppearanceTest, WindowsFollowTheDesktopWhileItIsToBeFollowed)
{
    appearance().apply(AppearanceChoice::followSystem);
    EXPECT_THAT(applied, ElementsAre(std::nullopt));
    Portal portal;
    portal.set(dark);
    EXPECT_TRUE(waitFor([&] { return applied.back() == std::optional(true); }));
    appearance().apply(AppearanceChoice::light);
    portal.set(light);
    EXPECT_TRUE(waitFor([&] { return applied.back() == std::optional(false); }));
}

TEST_F(AppearanceTest, APortalThatIsSlowDelaysTheStartByTheBoundAndIsHeardLater)
{
    Portal portal({QStringLiteral("0.5")});
    portal.set(dark);
    const auto begin = std::chrono::steady_clock::now();
    appearance().prime(QDeadlineTimer(100ms));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 400ms);
    EXPECT_FALSE(appearance().isDark());
    EXPECT_TRUE(waitFor([&] { return appearance().isDark(); }));
}

TEST_F(AppearanceTest, APortalThatStartsLaterIsAsked)
{
    appearance().prime(QDeadlineTimer(100ms));
    Portal portal;
    EXPECT_TRUE(portal.says("answered org.freedesktop.appearance color-scheme"));
}

TEST_F(AppearanceTest, DesktopsWithoutAnimationsReduceMotion)
{
    Portal portal;
    portal.set("org.gnome.desktop.interface enable-animations false");
    EXPECT_TRUE(waitFor([&] { return appearance().reducesMotion(); }));
    portal.set("org.gnome.desktop.interface enable-animations true");
    EXPECT_TRUE(waitFor([&] { return !appearance().reducesMotion(); }));
    portal.set("org.kde.kdeglobals.KDE AnimationDurationFactor 0.0");
    EXPECT_TRUE(waitFor([&] { return appearance().reducesMotion(); }));
}

TEST_F(AppearanceTest, ValuesOfOtherTypesAreIgnored)
{
    Portal portal;
    portal.set("org.freedesktop.appearance color-scheme 'dark'");
    portal.set("org.gnome.desktop.interface enable-animations 'no'");
    portal.set("org.gnome.desktop.interface color-scheme 'prefer-dark'");
    appearance().prime(QDeadlineTimer(2s));
    runEventsFor(100ms);
    EXPECT_FALSE(appearance().isDark());
    EXPECT_FALSE(appearance().reducesMotion());
}

TEST_F(AppearanceTest, CompositionIsTheWindowSystems)
{
    EXPECT_TRUE(appearance().isComposited());
    composited = false;
    EXPECT_FALSE(appearance().isComposited());
}

} // namespace

} // namespace orrinvale
