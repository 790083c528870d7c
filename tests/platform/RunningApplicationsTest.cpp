// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxRunningApplications.h"

#include "base/ThreadSerialQueue.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/ApplicationWalk.h"
#include "platform/linux/DesktopEntryFolders.h"
#include "platform/linux/ProcFolder.h"
#include "platform/linux/SystemdUnit.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <thread>

#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

// A process folder and an application folder of our own making.
struct WalkTest : testing::Test {
    WalkTest()
    {
        fs::create_directories(folder / "proc");
        fs::create_directories(folder / "applications");
        walk.emplace((folder / "proc").string());
        entries.emplace(std::vector{folder / "applications"});
    }

    // A program that exists: entries of programs that do not are as good as none.
    std::string program(const std::string& name) const
    {
        const auto path = folder / "opt" / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << "#!/bin/sh\n";
        fs::permissions(path, fs::perms::owner_all);
        return path.string();
    }
    void entry(const std::string& id, const std::string& text)
    {
        std::ofstream(folder / "applications" / (id + ".desktop")) << "[Desktop Entry]\nType=Application\n" << text;
    }
    void process(int pid, const std::string& executable, const std::string& unit = {}, int start = 100,
                 const std::string& state = "S")
    {
        const auto place = folder / "proc" / std::to_string(pid);
        fs::remove_all(place);
        fs::create_directories(place);
        std::ofstream(place / "stat") << pid << " (" << fs::path(executable).filename().string().substr(0, 15) << ") "
                                      << state << " 1 1 1 0 -1 0 0 0 0 0 5 0 0 0 20 0 1 0 " << start << " 0 0\n";
        std::ofstream(place / "cgroup") << "0::/user.slice/user-1000.slice/app.slice/" << unit << "\n";
        fs::create_symlink(executable, place / "exe");
    }
    void file(int pid, const std::string& name, const std::string& bytes)
    {
        const auto path = folder / "proc" / std::to_string(pid) / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << bytes;
    }
    std::vector<std::string> identifiers(std::chrono::seconds later = 0s)
    {
        std::vector<std::string> all;
        entries->update();
        last = walk->walk(entries->newest(0ms), std::chrono::steady_clock::now() + later);
        for (const auto& each : last)
            all.push_back(*each.bundleIdentifier);
        return all;
    }

    using Identifiers = std::vector<std::string>;
    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
    std::optional<ApplicationWalk> walk;
    std::optional<DesktopEntryFolders> entries;
    std::vector<RunningApplication> last;
};

TEST_F(WalkTest, AProgramOfADesktopEntryIsItsApplication)
{
    entry("org.example.Editor", "Name=Editor\nExec=" + program("editor") + " %F\n");
    process(10, program("editor"));
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.Editor"}));
    EXPECT_EQ(last[0].localizedName, "Editor");
    EXPECT_EQ(last[0].executablePath, program("editor"));
    EXPECT_EQ(last[0].activationPolicy, ActivationPolicy::regular);
}

TEST_F(WalkTest, AnEntryThatComesLaterIsFoundAlsoBelowAndForWhatHasLongBeenRunning)
{
    process(10, program("editor"));
    fs::create_directories(folder / "applications" / "vendor");
    EXPECT_EQ(identifiers(), (Identifiers{}));
    EXPECT_EQ(identifiers(600s), (Identifiers{}));
    entry("vendor/editor", "Name=Editor\nExec=" + program("editor") + "\n");
    EXPECT_EQ(identifiers(601s), (Identifiers{"vendor-editor"}));
}

TEST_F(WalkTest, WithoutUnitsASandboxTellsItself)
{
    process(10, "/app/bin/flat");
    file(10, "root/.flatpak-info", "[Application]\nname=us.zoom.Zoom\n");
    process(11, "/snap/clion/300/bin/clion-real");
    file(11, "attr/current", "snap.clion.clion (enforce)\n");
    process(12, "/opt/confined");
    file(12, "attr/current", "unconfined\n");
    EXPECT_EQ(identifiers(), (Identifiers{"us.zoom.Zoom", "clion_clion"}));
}

TEST_F(WalkTest, AnAppImageIsKnownByItsFileAndNotByWhatItStarts)
{
    const auto image = program("Editor.AppImage");
    entry("editor", "Name=Editor\nExec=" + image + "\n");
    const std::string environment = "APPIMAGE=" + image + '\0' + "APPDIR=/tmp/.mount_Ed" + '\0';
    process(10, "/usr/bin/make");
    file(10, "environ", environment);
    EXPECT_EQ(identifiers(), (Identifiers{}));
    process(11, "/tmp/.mount_Ed/usr/bin/ed");
    file(11, "environ", environment);
    EXPECT_EQ(identifiers(), (Identifiers{"editor"}));
}

TEST_F(WalkTest, NoDisplayAndTerminalEntriesAreNotRegular)
{
    entry("a", "Name=A\nExec=" + program("a") + "\nNoDisplay=true\n");
    entry("b", "Name=B\nExec=" + program("b") + "\nTerminal=true\n");
    process(10, program("a"), {}, 1);
    process(11, program("b"), {}, 2);
    EXPECT_EQ(identifiers(), (Identifiers{"a", "b"}));
    EXPECT_EQ(last[0].activationPolicy, ActivationPolicy::accessory);
    EXPECT_EQ(last[1].activationPolicy, ActivationPolicy::accessory);
}

TEST_F(WalkTest, MalformedAndHiddenEntriesAreLeftOut)
{
    std::ofstream(folder / "applications" / "broken.desktop") << "\xFF\xFE no entry";
    std::ofstream(folder / "applications" / "empty.desktop");
    entry("hidden", "Name=H\nExec=" + program("h") + "\nHidden=true\n");
    entry("good", "Name=Good\nExec=" + program("good") + "\n");
    process(10, program("h"), {}, 1);
    process(11, program("good"), {}, 2);
    EXPECT_EQ(identifiers(), (Identifiers{"good"}));
}

TEST_F(WalkTest, AFlatpakIsKnownByItsUnitAndItsOwnInformation)
{
    entry("org.example.Flat", "Name=Flat\nExec=" + program("flatpak") + " run org.example.Flat\n");
    process(10, "/app/bin/flat", "app-flatpak-org.example.Flat-1234.scope");
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.Flat"}));
    EXPECT_EQ(last[0].localizedName, "Flat");
    process(11, "/app/bin/other", "app-flatpak-whatever-77.scope");
    file(11, "root/.flatpak-info", "[Application]\nname=us.zoom.Zoom\n");
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.Flat", "us.zoom.Zoom"}));
}

TEST_F(WalkTest, ASnapIsKnownByItsUnit)
{
    process(10, "/snap/clion/300/bin/clion", "snap.clion.clion.0b6b3c2e-9d41.scope");
    EXPECT_EQ(identifiers(), (Identifiers{"clion_clion"}));
    EXPECT_EQ(last[0].alsoKnownAs, (Identifiers{"com.jetbrains.CLion"}));
}

TEST_F(WalkTest, ApplicationsThatShareABundleIdentifierAreEachTheirOwn)
{
    entry("google-chrome", "Name=Chrome\nExec=" + program("chrome") + "\n");
    entry("chromium", "Name=Chromium\nExec=" + program("chromium") + "\n");
    process(10, program("chrome"), {}, 1);
    process(11, program("chromium"), {}, 2);
    EXPECT_EQ(identifiers(), (Identifiers{"google-chrome", "chromium"}));
    for (const auto& each : last)
        EXPECT_EQ(each.alsoKnownAs, (Identifiers{"com.google.Chrome"}));
}

TEST_F(WalkTest, AProgramThatAnotherStartsHasTheEntryOfThatOne)
{
    entry("org.gnome.Terminal", "Name=Terminal\nExec=" + program("gnome-terminal") + "\n");
    process(10, "/usr/libexec/gnome-terminal-server");
    EXPECT_EQ(identifiers(), (Identifiers{"org.gnome.Terminal"}));
    EXPECT_EQ(last[0].localizedName, "Terminal");
    EXPECT_EQ(last[0].alsoKnownAs, (Identifiers{"com.apple.Terminal"}));
}

TEST_F(WalkTest, AnEntryOfAKnownProgramIsKnownAsThatToo)
{
    entry("my-encoder", "Name=Encoder\nExec=" + program("HandBrakeCLI") + "\n");
    process(10, program("HandBrakeCLI"));
    EXPECT_EQ(identifiers(), (Identifiers{"my-encoder"}));
    EXPECT_EQ(last[0].alsoKnownAs, (Identifiers{"com.handbrake.HandBrake"}));
}

TEST_F(WalkTest, ASandboxIsKnownAsEachOfItsApplications)
{
    entry("org.example.Office", "Name=Office\nX-Flatpak=org.example.Office\nExec=" + program("flatpak") + " run o\n");
    entry("org.example.Office.writer",
          "Name=Writer\nX-Flatpak=org.example.Office\nExec=" + program("flatpak") + " run w\n");
    process(10, "/app/office", "app-flatpak-org.example.Office-10.scope");
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.Office"}));
    EXPECT_EQ(last[0].alsoKnownAs, (Identifiers{"org.example.Office.writer"}));
}

TEST_F(WalkTest, ABrowserIsNotWhatItShowsInAWindowOfItsOwn)
{
    entry("app-music", "Name=Music\nExec=" + program("browser") + " --app=https://example.org\n");
    entry("browser", "Name=Browser\nExec=" + program("browser") + " %U\n");
    process(10, program("browser"));
    EXPECT_EQ(identifiers(), (Identifiers{"browser"}));
}

TEST_F(WalkTest, HelpersFoldIntoTheOldestProcessOfTheirUnit)
{
    process(10, "/opt/suite/main", "app-gnome-org.example.Suite-10.scope", 1);
    process(11, "/opt/suite/helper", "app-gnome-org.example.Suite-10.scope", 2);
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.Suite"}));
    EXPECT_EQ(last[0].executablePath, "/opt/suite/main");
}

TEST_F(WalkTest, WhatOutlivesAnApplicationInItsUnitIsNotIt)
{
    process(10, "/opt/studio/bin/studio", "app-gnome-com.example.Studio-10.scope", 1);
    process(11, "/opt/sdk/adb", "app-gnome-com.example.Studio-10.scope", 2);
    EXPECT_EQ(identifiers(), (Identifiers{"com.example.Studio"}));
    fs::remove_all(folder / "proc/10");
    EXPECT_EQ(identifiers(60s), Identifiers{});
    EXPECT_EQ(identifiers(600s), Identifiers{});
    process(12, "/opt/studio/bin/studio", "app-gnome-com.example.Studio-12.scope", 3);
    EXPECT_EQ(identifiers(601s), (Identifiers{"com.example.Studio"}));
    EXPECT_EQ(last[0].executablePath, "/opt/studio/bin/studio");
}

TEST_F(WalkTest, WhatOutlivesAnApplicationOfADesktopEntryIsNotItEither)
{
    entry("com.example.Studio", "Name=Studio\nExec=" + program("studio") + "\n");
    process(10, program("studio"), "app-gnome-com.example.Studio-10.scope", 1);
    process(11, "/opt/sdk/adb", "app-gnome-com.example.Studio-10.scope", 2);
    EXPECT_EQ(identifiers(), (Identifiers{"com.example.Studio"}));
    fs::remove_all(folder / "proc/10");
    EXPECT_EQ(identifiers(60s), Identifiers{});
}

TEST_F(WalkTest, ALauncherThatEndsLeavesItsUnitToWhatItLaunched)
{
    process(10, "/usr/bin/dash", "app-gnome-org.example.App-10.scope", 1);
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.App"}));
    fs::remove_all(folder / "proc/10");
    process(11, "/opt/app/app", "app-gnome-org.example.App-10.scope", 2);
    EXPECT_EQ(identifiers(10s), (Identifiers{"org.example.App"}));
    EXPECT_EQ(identifiers(600s), (Identifiers{"org.example.App"}));
    process(12, "/opt/app/helper", "app-gnome-org.example.App-10.scope", 3);
    fs::remove_all(folder / "proc/11");
    EXPECT_EQ(identifiers(610s), Identifiers{});
}

TEST_F(WalkTest, AnEntryThatComesLaterDoesNotReviveAUnit)
{
    process(10, "/opt/studio/bin/studio", "app-gnome-com.example.Studio-10.scope", 1);
    process(11, "/opt/sdk/adb", "app-gnome-com.example.Studio-10.scope", 2);
    EXPECT_EQ(identifiers(), (Identifiers{"com.example.Studio"}));
    fs::remove_all(folder / "proc/10");
    entry("com.example.Other", "Name=Other\nExec=" + program("other") + "\n");
    EXPECT_EQ(identifiers(60s), Identifiers{});
}

TEST_F(WalkTest, AFolderOfProcessesThatCannotBeReadLeavesTheListAsItWas)
{
    process(10, "/usr/bin/ffmpeg");
    EXPECT_EQ(identifiers(), (Identifiers{"org.ffmpeg.FFmpegKit"}));
    fs::rename(folder / "proc", folder / "away");
    EXPECT_EQ(identifiers(10s), (Identifiers{"org.ffmpeg.FFmpegKit"}));
    fs::create_directory(folder / "proc");
    EXPECT_EQ(identifiers(20s), Identifiers{});
}

TEST_F(WalkTest, AProgramInATerminalIsKnownByItsExecutable)
{
    process(10, "/usr/libexec/gnome-terminal-server", "app-org.gnome.Terminal.slice/gnome-terminal-server.service", 1);
    process(11, "/usr/bin/bash", "app-gnome-org.gnome.Terminal-10.scope", 2);
    process(12, "/usr/bin/ffmpeg", "app-gnome-org.gnome.Terminal-10.scope", 3);
    EXPECT_EQ(identifiers(), (Identifiers{"org.gnome.Terminal", "org.ffmpeg.FFmpegKit"}));
}

TEST_F(WalkTest, AProcessThatHasEndedIsNoneThoughNobodyAskedForItsStatus)
{
    process(10, "/usr/bin/HandBrakeCLI", {}, 1, "Z");
    process(11, "/usr/bin/ffmpeg", {}, 1, "X");
    EXPECT_EQ(identifiers(), Identifiers{});
    process(10, "/usr/bin/HandBrakeCLI", {}, 1);
    EXPECT_EQ(identifiers(), (Identifiers{"com.handbrake.HandBrake"}));
    process(10, "/usr/bin/HandBrakeCLI", {}, 1, "Z");
    EXPECT_EQ(identifiers(), Identifiers{});
}

TEST(ProcFolder, ARealProcessThatHasEndedIsNone)
{
    const auto child = ::fork();
    if (child == 0)
        ::pause();
    EXPECT_TRUE(processStat("/proc", child));
    ::kill(child, SIGKILL);
    EXPECT_TRUE(waitFor([&] { return !processStat("/proc", child); }));
    EXPECT_TRUE(fs::exists("/proc/" + std::to_string(child)));
    ::waitpid(child, nullptr, 0);
}

TEST(ProcFolder, AProcessWhoseFirstThreadHasEndedGoesOn)
{
    const auto child = ::fork();
    if (child == 0) {
        std::thread([] { ::pause(); }).detach();
        ::syscall(SYS_exit, 0); // of this thread alone
    }
    const auto state = [&] { return processFile("/proc", child, "status"); };
    EXPECT_TRUE(waitFor([&] { return state().find("Z (zombie)") != std::string::npos; }));
    EXPECT_TRUE(processStat("/proc", child));
    ::kill(child, SIGKILL);
    EXPECT_TRUE(waitFor([&] { return !processStat("/proc", child); }));
    ::waitpid(child, nullptr, 0);
}

TEST_F(WalkTest, AnInterpreterIsJudgedByItsScript)
{
    entry("org.example.Script", "Name=Script\nExec=python3 /opt/script/run.py\n");
    process(10, "/usr/bin/python3.11");
    file(10, "cmdline", std::string("python3\0-u\0/opt/script/run.py\0", 30));
    process(11, "/usr/bin/python3.11");
    file(11, "cmdline", std::string("python3\0-c\0pass\0", 16));
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.Script"}));
}

TEST_F(WalkTest, ALaunchedDesktopFileCountsForItsOwnProcessOnly)
{
    process(10, "/opt/x/x");
    file(10, "environ",
         std::string("GIO_LAUNCHED_DESKTOP_FILE=/a/org.example.X.desktop\0GIO_LAUNCHED_DESKTOP_FILE_PID=10\0", 85));
    process(11, "/opt/x/y");
    file(11, "environ",
         std::string("GIO_LAUNCHED_DESKTOP_FILE=/a/org.example.Y.desktop\0GIO_LAUNCHED_DESKTOP_FILE_PID=10\0", 85));
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.X"}));
}

TEST_F(WalkTest, AYoungProcessIsJudgedAgainAndAnOldOneIsNot)
{
    process(10, program("launcher"));
    EXPECT_EQ(identifiers(), Identifiers{});
    entry("org.example.App", "Name=App\nExec=" + program("launcher") + "\n");
    EXPECT_EQ(identifiers(5s), (Identifiers{"org.example.App"}));
    fs::remove(folder / "proc/10/exe");
    fs::create_symlink("/opt/other", folder / "proc/10/exe");
    EXPECT_EQ(identifiers(60s), (Identifiers{"org.example.App"}));
    process(10, "/opt/renamed"); // another comm
    EXPECT_EQ(identifiers(61s), Identifiers{});
}

TEST_F(WalkTest, HostileNamesBecomeText)
{
    process(10, "/opt/M\xFCtze", "app-org.example.\\xff-10.scope");
    EXPECT_EQ(identifiers(), (Identifiers{"org.example.\xEF\xBF\xBD"}));
    EXPECT_EQ(last[0].executablePath, "/opt/M\xEF\xBF\xBDtze");
}

TEST(DesktopIdOfUnit, ReadsWhatDesktopsWrite)
{
    EXPECT_EQ(desktopIdOfUnit("app-org.example.App-123.scope"), "org.example.App");
    EXPECT_EQ(desktopIdOfUnit("app-gnome-org.example.App-123.scope"), "org.example.App");
    EXPECT_EQ(desktopIdOfUnit("app-gnome-my\\x2dapp-123.scope"), "my-app");
    EXPECT_EQ(desktopIdOfUnit("app-org.kde.konsole@abc.service"), "org.kde.konsole");
    EXPECT_EQ(desktopIdOfUnit("app-orrinvale@autostart.service"), std::nullopt);
    EXPECT_EQ(desktopIdOfUnit("snap.firefox.firefox.1234.scope"), "firefox_firefox");
    EXPECT_EQ(desktopIdOfUnit("vte-spawn-1234.scope"), std::nullopt);
    EXPECT_EQ(desktopIdOfUnit("dbus-:1.2-org.example.App@0.service"), std::nullopt);
    EXPECT_EQ(desktopIdOfUnit("session-2.scope"), std::nullopt);
}

TEST(InnermostUnit, IsTheOneThatSystemdManages)
{
    EXPECT_EQ(innermostUnit("0::/user.slice/user@1000.service/app.slice/app-a-1.scope\n"), "app-a-1.scope");
    EXPECT_EQ(innermostUnit("0::/user.slice/user@1000.service/app.slice/app-a-1.scope/inner/leaf\n"), "app-a-1.scope");
    EXPECT_EQ(innermostUnit("3:cpu:/docker-1.scope\n1:name=systemd:/user.slice/app-a-1.scope\n0::/\n"),
              "app-a-1.scope");
    EXPECT_EQ(innermostUnit("12:pids:/user.slice\n0::/user.slice/app-b-2.scope"), "app-b-2.scope");
    EXPECT_EQ(innermostUnit("12:pids:/user.slice/app-c-3.scope\n0::/\n"), "app-c-3.scope");
    EXPECT_EQ(innermostUnit("0::/\n"), "");
    EXPECT_EQ(innermostUnit(""), "");
    EXPECT_EQ(innermostUnit("\n\n"), "");
    EXPECT_EQ(innermostUnit("app-a-1.scope"), "");
}

TEST(DesktopIdOfUnit, SaysNothingWhereTheNameIsNone)
{
    for (const auto* unit :
         {"", "app-", "app-.scope", "app--1.scope", "app-@.service", "snap.", "snap..", "snap.a.b", "app-x-@1.service"})
        EXPECT_EQ(desktopIdOfUnit(unit), std::nullopt) << unit;
    EXPECT_EQ(desktopIdOfUnit("app-a\\x2-1.scope"), "a\\x2");
    EXPECT_EQ(desktopIdOfUnit("app-a\\x"), "a\\x");
    EXPECT_EQ(desktopIdOfUnit("app-a\\xzz"), "a\\xzz");
}

TEST(StartedProgram, LooksBehindWrappers)
{
    EXPECT_EQ(startedProgram("/opt/a --flag %U"), "/opt/a");
    EXPECT_EQ(startedProgram("env A=b C=d /opt/a"), "/opt/a");
    EXPECT_EQ(startedProgram("sh -c \"/opt/a x\""), "/opt/a");
    EXPECT_EQ(startedProgram("java -jar /opt/a.jar"), "/opt/a.jar");
    EXPECT_EQ(startedProgram("/usr/bin/flatpak run org.example.App"), "");
    EXPECT_EQ(startedProgram("\"unbalanced"), "");
}

TEST(ApplicationIdentity, KnownApplicationsHaveTheirBundleIdentifier)
{
    EXPECT_EQ(bundleIdentifierOf("fr.handbrake.ghb"), "com.handbrake.HandBrake");
    EXPECT_EQ(bundleIdentifierOf("jetbrains-idea-ce"), "com.jetbrains.intellij");
    EXPECT_EQ(bundleIdentifierOf("firefox-esr"), "org.mozilla.firefox");
    EXPECT_EQ(bundleIdentifierOf("org.example.App"), std::nullopt);
    EXPECT_EQ(bundleIdentifierOfExecutable("/usr/bin/qbittorrent-nox"), "org.qbittorrent.qbittorrent");
    EXPECT_EQ(bundleIdentifierOfExecutable("/opt/resolve/bin/resolve"), "com.blackmagic-design.DaVinci-Resolve");
    EXPECT_EQ(bundleIdentifierOfExecutable("/usr/bin/vim"), std::nullopt);
}

TEST(RunningApplications, ARealProcessIsSeenAndItsEndToo)
{
    const fs::path data = ::getenv("XDG_DATA_HOME");
    const auto program = data / "our-program";
    fs::create_directories(data / "applications");
    fs::copy_file("/bin/sleep", program, fs::copy_options::overwrite_existing);
    std::ofstream(data / "applications/org.example.Ours.desktop")
        << "[Desktop Entry]\nType=Application\nName=Ours\nExec=" << program.string() << " 100\n";
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "test");
    LinuxRunningApplications applications(queue, background, background);
    int changes = 0;
    const auto token = applications.observeChanges([&] { ++changes; });
    const auto isSeen = [&] {
        applications.refresh();
        for (const auto& each : applications.applications()) {
            if (each.bundleIdentifier == "org.example.Ours" && each.localizedName == "Ours")
                return true;
        }
        return false;
    };
    const auto child = ::fork();
    if (child == 0)
        ::execl(program.c_str(), program.c_str(), "100", nullptr);
    EXPECT_TRUE(waitFor(isSeen));
    EXPECT_GE(changes, 1);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(waitFor([&] { return !isSeen(); }));
}

// A thread that a mount holds for ever.
struct HangingQueue final : SerialQueue {
    void post(std::function<void()> work) override { held.push_back(std::move(work)); }
    Cancellable after(std::chrono::nanoseconds, std::function<void()>) override { return {}; }

    std::vector<std::function<void()>> held;
};

TEST(RunningApplications, AFolderOfEntriesThatHangsHoldsUpNoLook)
{
    const TemporaryFolder temporary;
    const auto& folder = temporary.path;
    fs::create_directory(folder / "10");
    std::ofstream(folder / "10/stat") << "10 (ffmpeg) S 1 1 1 0 -1 0 0 0 0 0 5 0 0 0 20 0 1 0 100 0 0\n";
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "test");
    HangingQueue files;
    LinuxRunningApplications applications(queue, background, files, folder.string());
    applications.refresh();
    applications.waitForRefresh(2s);
    ASSERT_EQ(applications.applications().size(), 1U);
    fs::remove_all(folder / "10");
    applications.refresh();
    applications.waitForRefresh(2s);
    EXPECT_TRUE(applications.applications().empty());
    EXPECT_EQ(files.held.size(), 1U);
}

TEST(RunningApplications, ThreeThousandKnownProcessesCostLittle)
{
    const TemporaryFolder temporary;
    const auto& folder = temporary.path;
    for (int pid = 1; pid <= 3000; ++pid) {
        fs::create_directory(folder / std::to_string(pid));
        std::ofstream(folder / std::to_string(pid) / "stat")
            << pid << " (sleep) S 1 1 1 0 -1 0 0 0 0 0 5 0 0 0 20 0 1 0 100 0 0\n";
    }
    ApplicationWalk walk(folder);
    const auto none = std::make_shared<const DesktopEntryIndex>();
    const auto now = std::chrono::steady_clock::now();
    walk.walk(none, now);
    const auto begin = std::clock();
    walk.walk(none, now + 60s);
    const auto milliseconds = 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    EXPECT_LT(milliseconds, 120); // a bound for a noisy machine; the benchmark has the real one
}

} // namespace

} // namespace orrinvale
