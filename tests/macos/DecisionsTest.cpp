// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// What the adapters decide themselves: portable code between the logic and the thin Objective-C++ that asks the system.
#include "platform/fake/VirtualTime.h"
#include "platform/macos/MacInstalledApplications.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacMediaDevices.h"
#include "platform/macos/MacProcessStatus.h"
#include "platform/macos/MacRunningApplications.h"
#include "platform/macos/MacSessionEvents.h"
#include "platform/macos/MacTimeZone.h"
#include "tests/platform/WaitFor.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace orrinvale;
using namespace testing;
using namespace std::chrono_literals;

namespace
{

class FakeWorkspace final : public Workspace
{
public:
    std::vector<WorkspaceApplication> running;
    std::map<std::string, BundleFacts> bundles; // by path
    bool displayAsleep = false, onConsole = true;

    void happen(WorkspaceEvent event)
    {
        for (const auto& [of, call] : m_observers)
            if (of == event)
                call();
    }

    std::vector<WorkspaceApplication> applications() override { return running; }
    Cancellable observe(WorkspaceEvent event, std::function<void()> onEvent) override
    {
        m_observers.emplace(event, std::move(onEvent));
        return Cancellable([this, event] { m_observers.erase(event); });
    }
    bool isDisplayAsleep() override { return displayAsleep; }
    bool isSessionOnConsole() override { return onConsole; }
    std::optional<BundleFacts> bundle(const std::string& path) override
    {
        const auto found = bundles.find(path);
        return found == bundles.end() ? std::nullopt : std::optional(found->second);
    }
    std::optional<std::string> pathOfApplication(const std::string& identifier) override
    {
        for (const auto& [path, facts] : bundles)
            if (facts.identifier == identifier)
                return path;
        return std::nullopt;
    }

private:
    std::multimap<WorkspaceEvent, std::function<void()>> m_observers;
};

WorkspaceApplication application(std::string identifier, std::optional<double> launched)
{
    return {{std::move(identifier), {}, {}, ActivationPolicy::regular, {}}, launched};
}

class MacDecisions : public Test
{
protected:
    VirtualTime m_time;
    FakeWorkspace m_workspace;
};

} // namespace

using MacRunningApplicationsTest = MacDecisions;

TEST_F(MacRunningApplicationsTest, AreInTheOrderOfTheirStart)
{
    m_workspace.running = {application("none", {}), application("late", 7), application("early", -3)};
    MacRunningApplications running(m_workspace, m_time);
    EXPECT_THAT(running.applications(), ElementsAre(Field(&RunningApplication::bundleIdentifier, "early"),
                                                    Field(&RunningApplication::bundleIdentifier, "late"),
                                                    Field(&RunningApplication::bundleIdentifier, "none")));
}

TEST_F(MacRunningApplicationsTest, TellOfAnotherListInATurnOfItsOwn)
{
    MacRunningApplications running(m_workspace, m_time);
    int changes = 0;
    auto token = running.observeChanges([&] { ++changes; });
    m_workspace.running = {application("one", 1)};
    m_workspace.happen(WorkspaceEvent::applicationLaunched);
    EXPECT_EQ(running.applications().size(), 1u);
    EXPECT_EQ(changes, 0);
    m_time.runPending();
    EXPECT_EQ(changes, 1);
    running.refresh(); // the same list
    m_time.runPending();
    EXPECT_EQ(changes, 1);
    m_workspace.running.clear();
    m_workspace.happen(WorkspaceEvent::applicationTerminated);
    token.cancel();
    m_time.runPending();
    EXPECT_EQ(changes, 1);
}

using MacInstalledApplicationsTest = MacDecisions;

TEST_F(MacInstalledApplicationsTest, AreTheBundlesOfTheFoldersThatHaveAnIdentifier)
{
    const QTemporaryDir home;
    const std::filesystem::path folder = home.path().toStdString();
    for (const auto* name : {"A.app/Inner.app", "B.app.app", "No.app", "Other.bundle"})
        std::filesystem::create_directories(folder / name);
    m_workspace.bundles = {{folder / "A.app", {"a", "Shown", "Short"}},
                           {folder / "A.app/Inner.app", {"inner", {}, {}}},
                           {folder / "B.app.app", {"b", {}, {}}},
                           {folder / "No.app", {{}, "Nameless", {}}},
                           {folder / "Other.bundle", {"other", {}, {}}}};
    const MacInstalledApplications installed(m_workspace, {folder / "none", folder});
    const std::string a = folder / "A.app", b = folder / "B.app.app";
    EXPECT_THAT(installed.scan(),
                UnorderedElementsAre(InstalledApplication{"a", "Shown", a, a}, InstalledApplication{"b", "B", b, b}));
    EXPECT_EQ(installed.find("inner")->name, "Inner");
    EXPECT_EQ(installed.find("nobody"), std::nullopt);
    m_workspace.bundles[a].displayName.reset();
    EXPECT_EQ(installed.find("a")->name, "Short");
}

using MacSessionEventsTest = MacDecisions;

TEST_F(MacSessionEventsTest, MergeDisplaysAndSessionsAndTellChangesAlone)
{
    MacSessionEvents events(m_workspace, m_time);
    std::vector<ScreenPresence> seen;
    const auto token = events.observe([&](ScreenPresence presence) { seen.push_back(presence); });
    m_workspace.happen(WorkspaceEvent::screensWoke);
    EXPECT_THAT(seen, ElementsAre());
    m_workspace.happen(WorkspaceEvent::screensSlept);
    m_workspace.happen(WorkspaceEvent::sessionResigned);
    m_workspace.happen(WorkspaceEvent::screensWoke);
    EXPECT_THAT(seen, ElementsAre(ScreenPresence::asleep));
    m_workspace.happen(WorkspaceEvent::sessionActivated);
    EXPECT_THAT(seen, ElementsAre(ScreenPresence::asleep, ScreenPresence::awake));
}

TEST_F(MacSessionEventsTest, TellOfASessionThatIsAsleepFromTheStart)
{
    for (const auto displayAsleep : {true, false}) {
        m_workspace.displayAsleep = displayAsleep;
        m_workspace.onConsole = displayAsleep;
        MacSessionEvents events(m_workspace, m_time);
        std::vector<ScreenPresence> seen;
        const auto token = events.observe([&](ScreenPresence presence) { seen.push_back(presence); });
        EXPECT_THAT(seen, ElementsAre());
        m_time.runPending();
        EXPECT_THAT(seen, ElementsAre(ScreenPresence::asleep));
    }
}

TEST_F(MacDecisions, AnotherTimeZoneIsToldInATurnOfItsOwn)
{
    MacTimeZone timeZone(m_workspace, m_time);
    int changes = 0;
    const auto token = timeZone.observeChanges([&] { ++changes; });
    m_workspace.happen(WorkspaceEvent::timeZoneChanged);
    EXPECT_EQ(changes, 0);
    m_time.runPending();
    EXPECT_EQ(changes, 1);
}

namespace
{

class FakeLoginService final : public LoginService
{
public:
    Status now = Status::notRegistered, after = Status::enabled;
    Error error;
    int calls = 0;

    Status status() override { return now; }
    Error registerApplication() override
    {
        ++calls;
        now = after;
        return error;
    }
    Error unregisterApplication() override { return registerApplication(); }
};

} // namespace

TEST(MacLoginItemTest, SaysWhatWentWrong)
{
    FakeLoginService service;
    MacLoginItem item(service);
    EXPECT_EQ(item.registerApplication(), std::nullopt);
    service.error = "already there";
    EXPECT_EQ(item.registerApplication(), std::nullopt);
    service.after = LoginService::Status::requiresApproval;
    EXPECT_THAT(*item.registerApplication(), HasSubstr("System Settings"));
    service.after = LoginService::Status::notFound;
    EXPECT_EQ(item.registerApplication(), "already there");
}

TEST(MacLoginItemTest, IsTakenAwayOnceAlone)
{
    FakeLoginService service;
    MacLoginItem item(service);
    service.error = "not there";
    EXPECT_EQ(item.unregisterApplication(), std::nullopt);
    EXPECT_EQ(service.calls, 0);
    service.now = LoginService::Status::requiresApproval;
    EXPECT_EQ(item.unregisterApplication(), "not there");
    EXPECT_EQ(service.calls, 1);
}

TEST(MacMediaDevicesTest, AnswerWhatTheLastLookFound)
{
    VirtualTime time;
    const auto background = time.make("looks");
    bool camera = true;
    int looks = 0, changes = 0;
    MacMediaDevices devices(time, *background, {[&] { return ++looks, camera; }, [] { return false; }});
    const auto token = devices.observeChanges([&] { ++changes; });
    EXPECT_FALSE(devices.isCameraInUse());
    EXPECT_FALSE(devices.isCameraInUse());
    EXPECT_FALSE(devices.isMicrophoneInUse());
    time.runPending();
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(devices.isCameraInUse());
    camera = false;
    time.runPending();
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(devices.isCameraInUse());
}

TEST(MacMediaDevicesTest, MayGoDuringALook)
{
    VirtualTime time;
    const auto background = time.make("looks");
    {
        MacMediaDevices devices(time, *background, {[] { return true; }, [] { return true; }});
        devices.isCameraInUse();
    }
    time.runPending();
}

class MacProcessStatusTest : public Test
{
protected:
    QString tool(const QByteArray& script)
    {
        QFile file(m_folder.filePath(QStringLiteral("ps")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
        return file.fileName();
    }
    VirtualTime m_time;
    const QTemporaryDir m_folder;
};

TEST_F(MacProcessStatusTest, IsTheToolsTableInTheCLocale)
{
    MacProcessStatus status(m_time, tool("echo \"$LC_ALL $*\"; echo noise >&2; printf 'a\\377b\n'"));
    EXPECT_EQ(status.table(), std::nullopt);
    status.prepare();
    status.prepare();
    ASSERT_TRUE(waitFor([&] { return status.table().has_value(); }));
    EXPECT_EQ(*status.table(), "C -eo pid,pcpu,comm -r\na\uFFFDb\n");
}

TEST_F(MacProcessStatusTest, KeepsTheLastTableWhenTheToolFails)
{
    MacProcessStatus status(m_time, tool("echo good"));
    status.prepare();
    ASSERT_TRUE(waitFor([&] { return status.table().has_value(); }));
    tool("echo bad; kill -9 $$");
    status.prepare();
    runEventsFor(300ms);
    EXPECT_EQ(*status.table(), "good\n");
    MacProcessStatus missing(m_time, QStringLiteral("/nowhere/ps"));
    missing.prepare();
    missing.prepare();
    runEventsFor(50ms);
    EXPECT_EQ(missing.table(), std::nullopt);
}

TEST_F(MacProcessStatusTest, EndsAToolThatDoesNotEndOrDoesNotStopTelling)
{
    for (const auto* script : {"exec sleep 60", "exec yes"}) {
        MacProcessStatus status(m_time, tool(script));
        status.prepare();
        runEventsFor(200ms);
        m_time.advance(3s);
        tool("echo next");
        ASSERT_TRUE(waitFor([&] {
            if (!status.table())
                status.prepare(); // does nothing until the tool has ended
            return status.table().has_value();
        })) << script;
        EXPECT_EQ(*status.table(), "next\n");
    }
}
