// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WidgetFilePanels.h"

#include "tests/interface/WindowFixture.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPushButton>

namespace orrinvale
{

namespace
{

struct WidgetFilePanelsTest : InterfaceFixture {
    WidgetFilePanelsTest() { parent.show(); }

    FilePanels::Answer answer()
    {
        return [this](std::optional<std::filesystem::path> path) { answers.push_back(std::move(path)); };
    }
    void chooseFolder() { token = panels->chooseFolder({"Choose", folder.path, parent.winId()}, answer()); }
    void chooseFile() { token = panels->chooseFile({"orrinvale-log.txt", "text/plain", parent.winId()}, answer()); }
    static QFileDialog* dialog()
    {
        for (auto* widget : QApplication::allWidgets())
            if (auto* found = qobject_cast<QFileDialog*>(widget); found && found->isVisible())
                return found;
        return nullptr;
    }
    QString path(const char* name = "") const { return QString::fromStdString((folder.path / name).string()); }

    TemporaryFolder folder;
    QWidget parent;
    std::unique_ptr<WidgetFilePanels> panels = std::make_unique<WidgetFilePanels>();
    std::vector<std::optional<std::filesystem::path>> answers;
    Cancellable token;
};

TEST_F(WidgetFilePanelsTest, AFolderIsChosenInADialogOverTheWindow)
{
    chooseFolder();
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->parentWidget(), &parent);
    EXPECT_TRUE(dialog()->isModal());
    EXPECT_EQ(dialog()->windowTitle(), QStringLiteral("Downloads Folder"));
    EXPECT_EQ(dialog()->fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(dialog()->testOption(QFileDialog::ShowDirsOnly));
    EXPECT_EQ(dialog()->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog()->labelText(QFileDialog::Accept), QStringLiteral("Choose"));
    EXPECT_EQ(dialog()->directory().absolutePath(), path().chopped(path().endsWith(QLatin1Char('/')) ? 1 : 0));
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(WidgetFilePanelsTest, TheChosenFolderIsTheAnswer)
{
    std::filesystem::create_directory(folder.path / "Fïlme & more");
    chooseFolder();
    dialog()->selectFile(path("Fïlme & more"));
    dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    settle();
    EXPECT_THAT(answers, ElementsAre(folder.path / "Fïlme & more"));
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(WidgetFilePanelsTest, CancellingIsAnAnswerToo)
{
    chooseFolder();
    dialog()->reject();
    chooseFile();
    QTest::keyClick(dialog(), Qt::Key_Escape);
    settle();
    EXPECT_THAT(answers, ElementsAre(std::nullopt, std::nullopt));
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(WidgetFilePanelsTest, AFileIsSavedUnderTheSuggestedName)
{
    chooseFile();
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog()->mimeTypeFilters(), QStringList{QStringLiteral("text/plain")});
    ASSERT_EQ(dialog()->selectedFiles().size(), 1);
    EXPECT_TRUE(dialog()->selectedFiles()[0].endsWith(QStringLiteral("/orrinvale-log.txt")));
    EXPECT_FALSE(dialog()->testOption(QFileDialog::DontConfirmOverwrite));
    dialog()->setDirectory(path());
    dialog()->selectFile(QStringLiteral("my log.txt"));
    dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    settle();
    EXPECT_THAT(answers, ElementsAre(folder.path / "my log.txt"));
}

TEST_F(WidgetFilePanelsTest, AMissingFolderIsNoObstacle)
{
    token = panels->chooseFolder({"Choose", "/no/such/folder", 0}, answer());
    ASSERT_NE(dialog(), nullptr);
    dialog()->reject();
    settle();
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
}

TEST_F(WidgetFilePanelsTest, NothingIsAnsweredAfterTheirEnd)
{
    chooseFolder();
    panels.reset();
    if (dialog())
        dialog()->reject();
    settle();
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(WidgetFilePanelsTest, AQuestionTakenBackClosesItsDialog)
{
    chooseFolder();
    token.cancel();
    settle();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(WidgetFilePanelsTest, AnAnswerMayDropItsToken)
{
    token = panels->chooseFolder({"Choose", folder.path, parent.winId()}, [this](const auto&) { token.cancel(); });
    dialog()->reject();
    settle();
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(WidgetFilePanelsTest, ADialogEndsWithItsWindow)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    token = panels->chooseFolder({"Choose", folder.path, window->winId()}, answer());
    ASSERT_NE(dialog(), nullptr);
    window.reset();
    settle();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_LE(answers.size(), 1u);
}

} // namespace

} // namespace orrinvale
