// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppPicker.h"

#include "orrinvale/CustomProcess.h"
#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

struct AppPickerTest : LogicFixture {
    AppPickerTest()
    {
        fake.installedApplications.install("com.apple.Safari", "Safari");
        fake.installedApplications.install("com.apple.dt.Xcode", "Xcode");
        fake.installedApplications.install("org.blender", "Blender");
    }

    // As the sheet does when it appears.
    AppPicker& appear()
    {
        picker = std::make_unique<AppPicker>(platform(), "en_US");
        picker->onLoaded = [this] { ++loaded; };
        picker->onAdd = [this](const CustomProcess& process) { added.push_back(process); };
        picker->onDismiss = [this] { ++dismissed; };
        return *picker;
    }
    AppPicker& appearLoaded()
    {
        appear();
        time.runPending();
        return *picker;
    }
    std::vector<std::string> rows() const
    {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < picker->rowCount(); ++row)
            names.push_back(picker->app(row).name);
        return names;
    }

    std::unique_ptr<AppPicker> picker;
    std::vector<CustomProcess> added;
    int loaded = 0;
    int dismissed = 0;
};

TEST_F(AppPickerTest, AppearsAtOnceAndLoadsInTheBackground)
{
    appear();
    EXPECT_TRUE(picker->isLoading());
    EXPECT_THAT(picker->allApps(), IsEmpty());
    EXPECT_EQ(picker->searchText(), "");
    EXPECT_FALSE(picker->selectedApp());
    EXPECT_EQ(picker->labelText(), "");
    EXPECT_EQ(fake.installedApplications.scans, 0);
    time.runPending();
    EXPECT_FALSE(picker->isLoading());
    EXPECT_EQ(loaded, 1);
    EXPECT_THAT(rows(), ElementsAre("Blender", "Safari", "Xcode"));
}

TEST_F(AppPickerTest, AnEmptyResultIsAnEmptyListOnceLoadingEnds)
{
    fake.installedApplications.list.clear();
    appearLoaded();
    EXPECT_FALSE(picker->isLoading());
    EXPECT_EQ(loaded, 1);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AppPickerTest, ListsWhatRunsAfterAFreshLook)
{
    appear();
    EXPECT_EQ(fake.runningApplications.refreshes, 1);
    fake.runningApplications.run("org.elsewhere", "Elsewhere"); // what the look finds
    fake.runningApplications.list.push_back({"org.agent", "Agent", {}, ActivationPolicy::accessory});
    time.runPending();
    EXPECT_THAT(rows(), ElementsAre("Blender", "Elsewhere", "Safari", "Xcode"));
    EXPECT_EQ(picker->app(1).path, "");
}

TEST_F(AppPickerTest, EveryAppearanceScansAnew)
{
    appearLoaded();
    picker->setSearchText("saf");
    picker->select(0);
    fake.installedApplications.install("org.new", "New");
    appearLoaded();
    EXPECT_EQ(fake.installedApplications.scans, 2);
    EXPECT_THAT(rows(), ElementsAre("Blender", "New", "Safari", "Xcode"));
    EXPECT_EQ(picker->searchText(), "");
    EXPECT_FALSE(picker->selectedApp());
    EXPECT_EQ(picker->labelText(), "");
}

TEST_F(AppPickerTest, DismissalBeforeTheScanSavesIt)
{
    appear();
    picker.reset();
    time.runPending();
    appear();
    fake.background->post([this] { static_cast<MainQueue&>(time).post([this] { picker.reset(); }); });
    time.runPending();
    EXPECT_EQ(loaded, 0);
    EXPECT_EQ(fake.installedApplications.scans, 0);
}

TEST_F(AppPickerTest, DismissalDuringTheScanIsHarmless)
{
    appear();
    fake.installedApplications.onScan = [this] { static_cast<MainQueue&>(time).post([this] { picker.reset(); }); };
    time.runPending();
    EXPECT_EQ(fake.installedApplications.scans, 1);
    EXPECT_EQ(loaded, 0);
}

TEST_F(AppPickerTest, SearchFindsNamesWithoutRegardToCase)
{
    appearLoaded();
    picker->setSearchText("SAF");
    EXPECT_THAT(rows(), ElementsAre("Safari"));
    picker->setSearchText("e");
    EXPECT_THAT(rows(), ElementsAre("Blender", "Xcode"));
    picker->setSearchText("");
    EXPECT_THAT(rows(), ElementsAre("Blender", "Safari", "Xcode"));
}

TEST_F(AppPickerTest, SearchDoesNotLookAtIdentifiers)
{
    appearLoaded();
    picker->setSearchText("apple");
    EXPECT_THAT(rows(), IsEmpty());
    picker->setSearchText("com.");
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AppPickerTest, SearchTakesTheTextAsItIs)
{
    fake.installedApplications.install("org.notes", "Handy Notes");
    appearLoaded();
    picker->setSearchText(" ");
    EXPECT_THAT(rows(), ElementsAre("Handy Notes"));
    picker->setSearchText(".*");
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AppPickerTest, ASearchBegunWhileLoadingHoldsForTheResult)
{
    appear();
    picker->setSearchText("xc");
    EXPECT_THAT(rows(), IsEmpty());
    time.runPending();
    EXPECT_THAT(rows(), ElementsAre("Xcode"));
}

TEST_F(AppPickerTest, ChoosingFillsAnEmptyLabelOnce)
{
    appearLoaded();
    picker->select(2);
    EXPECT_EQ(picker->selectedApp()->name, "Xcode");
    EXPECT_EQ(picker->labelText(), "Xcode active");
    picker->select(1);
    EXPECT_EQ(picker->selectedApp()->name, "Safari");
    EXPECT_EQ(picker->labelText(), "Xcode active");
    picker->setLabelText("");
    picker->select(1);
    EXPECT_EQ(picker->labelText(), "Safari active");
}

TEST_F(AppPickerTest, ChoosingNeverOverwritesATypedLabel)
{
    appearLoaded();
    picker->setLabelText("Night renders");
    picker->select(0);
    EXPECT_EQ(picker->labelText(), "Night renders");
}

TEST_F(AppPickerTest, ThePlaceholderNamesTheChosenApplication)
{
    appearLoaded();
    EXPECT_EQ(picker->labelPlaceholder(), "");
    picker->select(2);
    EXPECT_EQ(picker->labelPlaceholder(), "e.g. Xcode active");
}

TEST_F(AppPickerTest, AFilterDoesNotDropTheChoice)
{
    appearLoaded();
    picker->select(2);
    EXPECT_EQ(picker->selectedRow(), 2U);
    picker->setSearchText("e");
    EXPECT_EQ(picker->selectedRow(), 1U);
    picker->setSearchText("saf");
    EXPECT_EQ(picker->selectedRow(), std::nullopt);
    EXPECT_EQ(picker->selectedApp()->name, "Xcode");
    picker->add();
    ASSERT_EQ(added.size(), 1U);
    EXPECT_EQ(added[0].bundleID, "com.apple.dt.Xcode");
}

TEST_F(AppPickerTest, AddsTheChosenApplicationWithItsLabelAndDismisses)
{
    appearLoaded();
    picker->select(0);
    picker->setLabelText("Night renders");
    picker->add();
    ASSERT_EQ(added.size(), 1U);
    EXPECT_EQ(added[0].bundleID, "org.blender");
    EXPECT_EQ(added[0].label, "Night renders");
    EXPECT_EQ(added[0].score, 3);
    EXPECT_EQ(dismissed, 1);
}

TEST_F(AppPickerTest, AClearedLabelIsReplacedByTheApplicationsName)
{
    appearLoaded();
    picker->select(0);
    picker->setLabelText("");
    picker->add();
    EXPECT_EQ(added.at(0).label, "Blender active");
    EXPECT_EQ(added.at(0).score, 3);
}

TEST_F(AppPickerTest, TheSameApplicationMayBeAddedAgain)
{
    for (int i = 0; i < 2; ++i) {
        appearLoaded().select(0);
        picker->add();
    }
    ASSERT_EQ(added.size(), 2U);
    EXPECT_EQ(added[0].bundleID, added[1].bundleID);
    EXPECT_NE(added[0].id, added[1].id);
}

TEST_F(AppPickerTest, AddingDoesNothingWhileNoneIsChosen)
{
    appearLoaded();
    picker->setLabelText("Something");
    EXPECT_FALSE(picker->canAdd());
    picker->add();
    EXPECT_THAT(added, IsEmpty());
    EXPECT_EQ(dismissed, 0);
    picker->select(0);
    EXPECT_TRUE(picker->canAdd());
}

TEST_F(AppPickerTest, CancelDismissesWithoutAdding)
{
    appearLoaded();
    picker->select(0);
    picker->cancel();
    EXPECT_EQ(dismissed, 1);
    EXPECT_THAT(added, IsEmpty());
}

TEST_F(AppPickerTest, NothingIsAddedOnceItIsDismissed)
{
    appearLoaded();
    picker->select(0);
    picker->add();
    picker->add(); // a second press of Return while the sheet fades out
    picker->cancel();
    EXPECT_EQ(added.size(), 1U);
    EXPECT_EQ(dismissed, 1);
}

TEST_F(AppPickerTest, MayBeDestroyedByItsDismissal)
{
    appearLoaded();
    picker->onDismiss = [this] { picker.reset(); };
    picker->select(0);
    picker->add();
    EXPECT_EQ(added.size(), 1U);
}

TEST_F(AppPickerTest, SearchFollowsTheLanguage)
{
    fake.installedApplications.install("org.tr", "İSTANBUL");
    picker = std::make_unique<AppPicker>(platform(), "tr_TR");
    time.runPending();
    picker->setSearchText("istan");
    EXPECT_THAT(rows(), ElementsAre("İSTANBUL"));
}

} // namespace

} // namespace orrinvale
